#include "settings/Settings.h"

#include <QColor>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <thread>

class TestSettings : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void startsWithDefaults();
    void keepsValuesInTheFile();
    void readsWhatFilesHold_data();
    void readsWhatFilesHold();
    void keepsAnUnreadableFile();
    void announcesEveryWriteOutsideTheLock();
    void keepsKeysOfOtherWriters();
    void triesAgainWhenItCannotSave();
    void savesBesideTheInterfaceThread();
    void standsManyThreads();

private:
    QString file() const { return directory_->filePath(QStringLiteral("config/Composer.cfg")); }
    QByteArray content(const QString &suffix = {}) const;
    void write(const QByteArray &bytes) const;

    std::unique_ptr<QTemporaryDir> directory_;
};

void TestSettings::init()
{
    directory_ = std::make_unique<QTemporaryDir>();
}

QByteArray TestSettings::content(const QString &suffix) const
{
    QFile stored(file() + suffix);
    return stored.open(QIODevice::ReadOnly) ? stored.readAll() : QByteArray();
}

void TestSettings::write(const QByteArray &bytes) const
{
    QDir(directory_->path()).mkpath(QStringLiteral("config"));
    QFile stored(file());
    QVERIFY(stored.open(QIODevice::WriteOnly));
    stored.write(bytes);
}

void TestSettings::startsWithDefaults()
{
    {
        const Settings settings(file());
        for (const auto &row : SettingsTable::rows()) {
            QVERIFY2(!settings.contains(row.setting), row.key);
            QCOMPARE(settings.value(row.setting), SettingsTable::defaultValue(row.setting));
        }
        QCOMPARE(settings.value(Settings::NoteColor).value<QColor>(), QColor(32, 96, 255));
        QCOMPARE(int(Settings::WavSaveDir), 29);
    }
    QVERIFY(!QFile::exists(file()));
}

void TestSettings::keepsValuesInTheFile()
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

void TestSettings::readsWhatFilesHold_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("grid");
    QTest::newRow("nothing") << QByteArray() << 7;
    QTest::newRow("empty object") << QByteArray("{}") << 7;
    QTest::newRow("value") << QByteArray("{\"realign/regular\": 9}") << 9;
    QTest::newRow("value as text") << QByteArray("{\"realign/regular\": \"9\"}") << 9;
    QTest::newRow("another type") << QByteArray("{\"realign/regular\": [9]}") << 7;
    QTest::newRow("too large") << QByteArray("{\"realign/regular\": 1e300}") << 7;
    QTest::newRow("nested") << QByteArray("{\"realign\": {\"regular\": 9}}") << 7;
    QTest::newRow("null") << QByteArray("{\"realign/regular\": null}") << 7;
    QTest::newRow("cut off") << QByteArray("{\"realign/regular\": 9") << 7;
    QTest::newRow("no object") << QByteArray("[9]") << 7;
}

void TestSettings::readsWhatFilesHold()
{
    QFETCH(QByteArray, bytes);
    write(bytes);
    QTEST(Settings(file()).value(Settings::RealignRegular).toInt(), "grid");
}

void TestSettings::keepsAnUnreadableFile()
{
    write("my precious");
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("is not readable")));
    Settings settings(file());
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("is not readable")));
    settings.setValue(Settings::LoadMods, true);
    QVERIFY(settings.save());
    QCOMPARE(content(QStringLiteral(".bad")), QByteArray("my precious"));
    QVERIFY(content().contains("instruments/loadMods"));
}

void TestSettings::announcesEveryWriteOutsideTheLock()
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

void TestSettings::keepsKeysOfOtherWriters()
{
    Settings mine(file());
    Settings other(file());
    other.setValue(Settings::MidiOpenDir, QStringLiteral("/midi"));
    QVERIFY(other.save());
    mine.setValue(Settings::AbcOpenDir, QStringLiteral("/abc"));
    QTRY_VERIFY(content().contains("dirs/abc/open")); // by the event loop
    QVERIFY(content().contains("dirs/midi/open"));
}

void TestSettings::triesAgainWhenItCannotSave()
{
    QVERIFY(QDir(directory_->path()).mkpath(QStringLiteral("config/Composer.cfg"))); // a directory is in the way
    Settings settings(file());
    settings.setValue(Settings::LoadMods, true);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("Not a regular file")));
    QVERIFY(!settings.save());
    QVERIFY(QDir().rmdir(file()));
    QVERIFY(settings.save());
    QVERIFY(content().contains("instruments/loadMods"));
}

// The warning of a save that fails tells which thread it was on.
void TestSettings::savesBesideTheInterfaceThread()
{
    static std::atomic<QThread *> saver;
    QVERIFY(QDir(directory_->path()).mkpath(QStringLiteral("config/Composer.cfg"))); // a directory is in the way
    Settings settings(file());
    const auto previous = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext &, const QString &) { saver = QThread::currentThread(); });
    settings.setValue(Settings::LoadMods, true);
    const bool isTried = QTest::qWaitFor([] { return saver != nullptr; });
    qInstallMessageHandler(previous);
    QVERIFY(isTried && saver != thread());
    QVERIFY(QDir().rmdir(file()));
    QVERIFY(settings.save()); // and nothing is lost
    QVERIFY(content().contains("instruments/loadMods"));
}

void TestSettings::standsManyThreads()
{
    Settings settings(file());
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([&settings, thread] {
            for (int round = 0; round < 500; ++round) {
                settings.setValue(Settings::Setting(Settings::RealignRegular + thread), round);
                settings.value(Settings::RealignRegular);
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

QTEST_MAIN(TestSettings)
#include "test_settings.moc"
