#include "base/FileBatch.h"
#include "base/SafeFile.h"
#include "support/Rows.h"
#include "support/SystemFaults.h"
#include "support/TestFolder.h"
#include "support/Thrown.h"

#include <QtTest>

#include <functional>
#include <stdexcept>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

Q_DECLARE_METATYPE(SafeFile::Existing)

#ifdef __SANITIZE_THREAD__
constexpr bool endsForksWithThreads = true;
#else
constexpr bool endsForksWithThreads = false;
#endif

class TestSafeFile : public QObject
{
    Q_OBJECT

private slots:
    void init() { folder_ = std::make_unique<TestFolder>(); }

    void keepsTheOldOrTheNewFileWhenACallFails()
    {
        faults::longestWrite = 10'000; // so that there is a second and a third write to fail
        int failures = 0;
        for (int call = 1;; ++call) {
            SafeFile::write(path(), old_);
            faults::callsUntilFault = call;
            const auto message = thrownBy([this] { SafeFile::write(path(), new_); });
            const bool wasReached = faults::callsUntilFault.exchange(0) == 0;
            QCOMPARE(names(), QStringList(QStringLiteral("song.abc")));
            QVERIFY(content() == old_ || content() == new_);
            if (!wasReached) {
                QCOMPARE(message, QStringLiteral("nothing"));
                QCOMPARE(content(), new_);
                break;
            }
            QCOMPARE(message, QString::fromLocal8Bit(strerror(EIO)));
            ++failures;
        }
        faults::longestWrite = SIZE_MAX;
        QVERIFY(failures >= 9); // open, mode, three writes, sync, rename, open and sync of the directory
    }

    void leavesNothingOfANewFileThatFails()
    {
        faults::callsUntilFault = 2;
        QVERIFY(throws<QString>([&] { SafeFile::write(path(), new_); }));
        QCOMPARE(names(), QStringList());
    }

    void goesOnAfterShortWrites()
    {
        faults::longestWrite = 7;
        SafeFile::write(path(), new_);
        faults::longestWrite = SIZE_MAX;
        QCOMPARE(content(), new_);
    }

    void leavesOtherFilesAlone()
    {
        QCOMPARE(folder_->write("song.abc.saving", "mine"), path("song.abc.saving"));
        QVERIFY(SafeFile::writeNew(path(), old_));
        QVERIFY(!SafeFile::writeNew(path(), new_));
        QCOMPARE(content(), old_);
        QCOMPARE(folder_->read("song.abc.saving"), QByteArray("mine"));
        QVERIFY(throws<QString>([&] { SafeFile::writeNew(path("missing/song.abc"), new_); }));
        faults::callsUntilFault = 2; // the first makes it
        QVERIFY(throws<QString>([&] { SafeFile::writeNew(path("b.abc"), new_); }));
        for (const auto &longName : {QString(255, u'a'), QString(84, QChar(0x20AC)) + QStringLiteral("abc")}) {
            SafeFile::write(path(qPrintable(longName)), new_);
            QVERIFY(QFile::remove(path(qPrintable(longName))));
        }
        QCOMPARE(names(), QStringList({QStringLiteral("song.abc"), QStringLiteral("song.abc.saving")}));
    }

    void removesWhatTheKilledLeft_data()
    {
        const Rows<QString, int, bool> row("name", "ageMinutes", "isLeft");
        row("old", "1.abc~0123456789abc.saving", 11, false);
        row("being written", "1.abc~0123456789abc.saving", 9, true);
        row("of another", "1.abc.abc~0123456789abc.saving", 11, true);
        row("of the user", "1.abc~0123456789abC.saving", 11, true);
    }
    void removesWhatTheKilledLeft()
    {
        QFETCH(QString, name);
        QFETCH(int, ageMinutes);
        const auto leaves = [&](const std::function<void()> &save) {
            QFile left(folder_->write(name, "half"));
            const auto time = QDateTime::currentDateTime().addSecs(-60 * ageMinutes);
            if (!left.open(QIODevice::ReadWrite) || !left.setFileTime(time, QFileDevice::FileModificationTime))
                throw std::runtime_error("the file cannot be made older");
            left.close();
            save();
            return left.exists();
        };
        QTEST(leaves([this] { saveBatch(SafeFile::Existing::Kept, 1); }), "isLeft");
        QTEST(leaves([this] { saveBatch(SafeFile::Existing::Replaced, 1); }), "isLeft");
        QTEST(leaves([this] { SafeFile::write(path("1.abc"), new_); }), "isLeft");
    }

    void keepsPermissionsAndFollowsLinks()
    {
        SafeFile::write(path("target"), old_);
        QVERIFY(QFile::setPermissions(path("target"), QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup));
        QVERIFY(QFile::link(path("target"), path()));
        SafeFile::write(path(), new_);
        QVERIFY(QFileInfo(path()).isSymLink());
        QCOMPARE(content(), new_);
        struct stat status = {};
        QCOMPARE(stat(QFile::encodeName(path("target")).constData(), &status), 0);
        QCOMPARE(int(status.st_mode & 07777), 0640);
        QVERIFY(QFile::remove(path("target")));
        SafeFile::write(path(), old_); // where the link leads, though nothing is there any more
        QCOMPARE(folder_->read("target"), old_);
    }

    void refusesWhatIsNoFile()
    {
        QVERIFY(QDir(folder_->path()).mkdir(QStringLiteral("song.abc")));
        QVERIFY(throws<QString>([&] { SafeFile::write(path(), new_); }));
        QCOMPARE(mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
        QVERIFY(throws<QString>([&] { SafeFile::write(path("pipe"), new_); }));
        QCOMPARE(thrownBy([&] { SafeFile::write(path("missing/song.abc"), new_); }),
                 QStringLiteral("The folder does not exist."));
    }

    void batchesKeepTheOldOrTheNewFilesWhenACallFails_data()
    {
        const Rows<SafeFile::Existing> row("existing");
        row("kept", SafeFile::Existing::Kept);
        row("replaced", SafeFile::Existing::Replaced);
    }
    void batchesKeepTheOldOrTheNewFilesWhenACallFails()
    {
        QFETCH(const SafeFile::Existing, existing);
        constexpr int count = 9; // a group, and one more
        const bool replaces = existing == SafeFile::Existing::Replaced;
        int allFailures = 0;
        bool wasReached = true;
        for (int call = 1; wasReached; ++call) {
            folder_ = std::make_unique<TestFolder>();
            folder_->write("1.abc", old_);
            faults::callsUntilFault = call;
            int failures = 0;
            const auto batch = thrownBy([&] { failures = saveBatch(existing, count); });
            wasReached = faults::callsUntilFault.exchange(0) == 0;
            failures += batch != u"nothing" ? 1 : 0;
            QVERIFY(failures <= 1);
            allFailures += failures;
            const auto first = folder_->read("1.abc");
            QVERIFY(first == old_ || (replaces && first == new_));
            for (const auto &name : names().filter(QRegularExpression(QStringLiteral("^(?!1.abc)"))))
                QCOMPARE(folder_->read(qPrintable(name)), new_);
            const int others = replaces ? 0 : 1;
            QVERIFY(names().size() >= count + others - failures && names().size() <= count + others);
        }
        QVERIFY(allFailures >= 3 * count); // of each at least the writing, the synchronising and the name
    }

    // Where a file system has no files without a name.
    void batchesNameTheirFilesAtOnceWhereTheyMust()
    {
        faults::callsUntilFault = 1; // of the one that makes it
        QVERIFY(SafeFile::writeNew(path(), new_));
        QVERIFY(!SafeFile::writeNew(path(), old_));
        QCOMPARE(content(), new_);
        QCOMPARE(names(), QStringList(QStringLiteral("song.abc")));
    }

    void batchesTakeNoPlaceThatSomebodyElseTook()
    {
        FileBatch batch(SafeFile::Existing::Kept);
        QStringList told;
        const auto take = [&told](const QString &path, const QString &) { told.append(QFileInfo(path).fileName()); };
        int number = 0;
        folder_->write("1.abc", "there before");
        batch.add([&] { return path(qPrintable(QStringLiteral("%1.abc").arg(++number))); }, new_, take);
        folder_->write("2.abc", "there meanwhile");
        QVERIFY(QFile::link(path("nowhere"), path("3.abc")));
        batch.finish();
        QCOMPARE(told, QStringList(QStringLiteral("4.abc")));
        QCOMPARE(folder_->read("1.abc") + folder_->read("2.abc"), QByteArray("there beforethere meanwhile"));
        QCOMPARE(folder_->read("4.abc"), new_);
    }

    void batchesDoNotWaitForOneFileAfterTheOther()
    {
        faults::fsyncMs = 20;
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(saveBatch(SafeFile::Existing::Kept, 128), 0);
        faults::fsyncMs = 0;
        QVERIFY2(timer.elapsed() < 128 * 20 / 4, qPrintable(QString::number(timer.elapsed())));
    }

    void abandonedBatchesLeaveNothingHalf()
    {
        if (endsForksWithThreads)
            QSKIP("ThreadSanitizer ends the child");
        const auto child = fork();
        if (child == 0) {
            faults::fsyncMs = 5;
            std::thread([this] { saveBatch(SafeFile::Existing::Kept, 2000); }).detach();
            while (QDir(folder_->path()).entryList({QStringLiteral("*.abc")}).size() < 40)
                usleep(1000);
            SafeFile::abandonAll();
            _exit(0);
        }
        QCOMPARE(waitpid(child, nullptr, 0), child);
        QVERIFY(!names().isEmpty() && names().filter(QStringLiteral(".saving")).isEmpty());
        for (const auto &name : names())
            QCOMPARE(folder_->read(qPrintable(name)), new_);
    }

    void cleansNames_data()
    {
        const Rows<QString, QString> row("title", "name");
        row("plain", "Winter Hymn", "Winter Hymn");
        row("path", "../etc/a\\b:c", ".._etc_a_b_c");
        row("parent", "..", "__");
        row("empty", "", "_");
        row("control", "a\nb", "a_b");
        row("device", "con.abc", "_con.abc");
        row("long", QString(150, QChar(0xE4)), QString(100, QChar(0xE4)));
    }

    void cleansNames()
    {
        QFETCH(QString, title);
        QTEST(SafeFile::cleanName(title), "name");
    }

private:
    QString path(const char *name = "song.abc") const { return folder_->path(name); }
    // 1.abc, 2.abc and so on; gives how many could not be saved.
    int saveBatch(SafeFile::Existing existing, int count) const
    {
        FileBatch batch(existing);
        int failures = 0;
        int number = 0;
        const auto nextPath = [&] { return path(qPrintable(QStringLiteral("%1.abc").arg(++number))); };
        for (int i = 0; i < count; ++i)
            batch.add(nextPath, new_, [&](const QString &, const QString &why) { failures += why.isEmpty() ? 0 : 1; });
        batch.finish();
        return failures;
    }
    QByteArray content() const { return folder_->read("song.abc"); }
    QStringList names() const { return folder_->files(); }

    std::unique_ptr<TestFolder> folder_;
    const QByteArray old_ = QByteArray(10'000, 'o');
    const QByteArray new_ = QByteArray(30'000, 'n');
};

QTEST_GUILESS_MAIN(TestSafeFile)
#include "test_safe_file.moc"
