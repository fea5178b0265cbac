#include "settings/Settings.h"
#include "support/TestFolder.h"

#include <QColor>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>

#include <thread>

class TestSettings : public QObject
{
    Q_OBJECT

private slots:
    void init() { folder_ = std::make_unique<TestFolder>(); }

    void startsWithDefaults()
    {
        const auto colour = std::make_unique<Settings>(file())->value(Settings::NoteColor).value<QColor>();
        QCOMPARE(colour, QColor(32, 96, 255));
        QCOMPARE(int(Settings::WavSaveDir), 29);
        QVERIFY(!QFile::exists(file()));
    }

    void keepsValuesInTheFile()
    {
        const QColor colour(1, 2, 3, 77);
        {
            Settings settings(file());
            settings.setValue(Settings::NoteColor, colour);
            settings.setValue(Settings::MidiAutoRealign, false);
            settings.setValue(Settings::RealignRegular, 12);
            settings.setValue(Settings::AbcSaveDir, QStringLiteral("/sönge"));
        }
        const auto stored = QJsonDocument::fromJson(content()).object();
        QCOMPARE(stored.value(QStringLiteral("midi/autoRealign")), QJsonValue(false));
        QCOMPARE(stored.value(QStringLiteral("realign/regular")), QJsonValue(12));
        QCOMPARE(stored.size(), 4);
        const Settings settings(file());
        QCOMPARE(settings.value(Settings::NoteColor).value<QColor>(), colour);
        QCOMPARE(settings.value(Settings::MidiAutoRealign), QVariant(false));
        QCOMPARE(settings.value(Settings::RealignRegular), QVariant(12));
        QCOMPARE(settings.value(Settings::AbcSaveDir).toString(), QStringLiteral("/sönge"));
        QVERIFY(settings.contains(Settings::RealignRegular) && !settings.contains(Settings::RealignTriplets));
    }

    void readsWhatFilesHold_data()
    {
        const Rows<QByteArray, int> row("bytes", "grid");
        row("nothing", {}, 7);
        row("empty object", "{}", 7);
        row("value", "{\"realign/regular\": 9}", 9);
        row("value as text", "{\"realign/regular\": \"9\"}", 9);
        row("another type", "{\"realign/regular\": [9]}", 7);
        row("too large", "{\"realign/regular\": 1e300}", 7);
        row("nested", "{\"realign\": {\"regular\": 9}}", 7);
        row("null", "{\"realign/regular\": null}", 7);
        row("cut off", "{\"realign/regular\": 9", 7);
        row("no object", "[9]", 7);
    }

    void readsWhatFilesHold()
    {
        QFETCH(QByteArray, bytes);
        folder_->write("config/Composer.cfg", bytes);
        QTEST(Settings(file()).value(Settings::RealignRegular).toInt(), "grid");
    }

    void keepsADamagedFile()
    {
        for (const auto *const precious : {"my precious", "[1]", "my precious"}) { // each is kept, once
            folder_->write("config/Composer.cfg", precious);
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("is damaged")));
            Settings settings(file());
            QVERIFY(settings.problem().contains(QStringLiteral("Composer.cfg.bad")));
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("is damaged")));
            settings.setValue(Settings::LoadMods, true);
            QVERIFY(settings.save());
            QVERIFY(content().contains("instruments/loadMods"));
        }
        QCOMPARE(content(".bad"), QByteArray("my precious"));
        QCOMPARE(content(".bad2"), QByteArray("[1]"));
        QCOMPARE(folder_->files("config").size(), 3);
    }

    // What cannot be read is not replaced by the few values that are known.
    void keepsAFileThatItCannotRead()
    {
        const auto unreadable = QStringLiteral("/proc/self/mem"); // at its beginning, for everybody
        if (!QFile::exists(unreadable))
            QSKIP("There is no file that nobody can read");
        QVERIFY(QDir(folder_->path()).mkdir(QStringLiteral("config")) && QFile::link(unreadable, file()));
        Settings settings(file());
        QVERIFY(settings.problem().startsWith(QStringLiteral("The settings cannot be read: ")));
        settings.setValue(Settings::LoadMods, true);
        QVERIFY(!settings.save() && QFileInfo(file()).isSymLink());
        QVERIFY(QFile::remove(file()));
        folder_->write("config/Composer.cfg", "{\"realign/regular\": 9}");
        QSignalSpy spy(&settings, &Settings::problemChanged);
        QVERIFY(settings.save());
        QVERIFY(content().contains("instruments/loadMods") && content().contains("realign/regular"));
        QVERIFY(spy.size() == 1 && settings.problem().isEmpty());
    }

    void keepsRecentEntriesOfOtherWriters_data()
    {
        const Rows<QString, QString, QString, QString> row("before", "mine", "theirs", "merged");
        row("both add", "a b", "m a b", "t a b", "m t a b");
        row("I use again", "a b c", "c a b", "t a b c", "c t a b");
        row("I remove", "a b c", "a c", "t a b c", "t a c");
        row("they remove", "a b c", "m a b c", "a c", "m a c");
        row("both add the same", "a b", "m a b", "m a b", "m a b");
        row("many", "1 2 3 4 5 6 7 8 9 0", "m 1 2 3 4 5 6 7 8 9", "t 1 2 3 4 5 6 7 8 9", "m t 1 2 3 4 5 6 7 8");
    }
    void keepsRecentEntriesOfOtherWriters()
    {
        const auto use = [](Settings &settings, const char *column) {
            auto entries = *static_cast<QString *>(QTest::qData(column, QMetaType::QString));
            settings.setValue(Settings::RecentFiles, entries.replace(u' ', u'\n'));
            return settings.save();
        };
        Settings mine(file());
        QVERIFY(use(mine, "before"));
        Settings theirs(file());
        QVERIFY(use(theirs, "theirs") && use(mine, "mine"));
        for (const auto &entries : {mine.value(Settings::RecentFiles), Settings(file()).value(Settings::RecentFiles)})
            QTEST(entries.toString().replace(u'\n', u' '), "merged");
    }

    void announcesEveryWriteOutsideTheLock()
    {
        Settings settings(file());
        QSignalSpy spy(&settings, &Settings::settingChanged);
        QVariant readInSlot;
        connect(&settings, &Settings::settingChanged, this,
                [&](Settings::Setting setting) { readInSlot = settings.value(setting); });
        settings.setValue(Settings::LoadMods, false);
        settings.setValue(Settings::LoadMods, false);
        QCOMPARE(spy.count(), 2);
        QCOMPARE(spy[0][0].value<Settings::Setting>(), Settings::LoadMods);
        QCOMPARE(readInSlot, QVariant(false));
    }

    void keepsKeysOfOtherWriters()
    {
        Settings mine(file());
        Settings other(file());
        other.setValue(Settings::MidiOpenDir, QStringLiteral("/midi"));
        QVERIFY(other.save());
        mine.setValue(Settings::AbcOpenDir, QStringLiteral("/abc"));
        QTRY_VERIFY(content().contains("dirs/abc/open")); // by the event loop
        QVERIFY(content().contains("dirs/midi/open"));
    }

    // The warning of a save that fails tells which thread it was on.
    void savesBesideTheInterfaceThreadUntilItCan()
    {
        static std::atomic<QThread *> saver;
        folder_->write("config/Composer.cfg/in.the.way", "");
        Settings settings(file());
        const auto previous = qInstallMessageHandler(
            [](QtMsgType, const QMessageLogContext &, const QString &) { saver = QThread::currentThread(); });
        settings.setValue(Settings::LoadMods, true);
        const bool isTried = QTest::qWaitFor([] { return saver != nullptr; });
        qInstallMessageHandler(previous);
        QVERIFY(isTried && saver != thread());
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("Not a regular file")));
        QVERIFY(!settings.save());
        QVERIFY(QDir(file()).removeRecursively());
        QVERIFY(settings.save()); // and nothing is lost
        QVERIFY(content().contains("instruments/loadMods"));
    }

    void standsManyThreads()
    {
        Settings settings(file());
        std::vector<std::thread> threads;
        for (int thread = 0; thread < 4; ++thread) {
            threads.emplace_back([&settings, thread] {
                for (int round = 0; round < 500; ++round) {
                    settings.setValue(Settings::Setting(Settings::RealignRegular + thread), round);
                    settings.value(Settings::RealignRegular);
                    settings.contains(Settings::RealignTriplets);
                }
            });
        }
        for (int round = 0; round < 20; ++round)
            settings.save();
        for (auto &thread : threads)
            thread.join();
        settings.save();
        const Settings stored(file());
        for (int thread = 0; thread < 4; ++thread)
            QCOMPARE(stored.value(Settings::Setting(Settings::RealignRegular + thread)).toInt(), 499);
    }

private:
    QString file() const { return folder_->path("config/Composer.cfg"); }

    QByteArray content(const char *suffix = "") const
    {
        return folder_->read(QStringLiteral("config/Composer.cfg") + QLatin1String(suffix));
    }

    std::unique_ptr<TestFolder> folder_;
};

QTEST_MAIN(TestSettings)
#include "test_settings.moc"
