#include "core/SafeFile.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <dlfcn.h>
#include <fcntl.h>
#include <new>
#include <random>
#include <sched.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

// The system calls that saving is made of, replaced for this program: the one with the armed number fails.
namespace faults {

int callsUntilFault = 0; // 0: none is armed
int error = 0;
size_t longestWrite = SIZE_MAX;

bool isDue()
{
    if (callsUntilFault == 0 || --callsUntilFault > 0)
        return false;
    errno = error;
    return true;
}

template<typename Function>
Function original(const char *name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

} // namespace faults

extern "C" {

int open(const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const auto mode = va_arg(arguments, mode_t);
    va_end(arguments);
    return faults::isDue() ? -1 : faults::original<int (*)(const char *, int, ...)>("open")(path, flags, mode);
}

ssize_t write(int descriptor, const void *bytes, size_t size)
{
    static const auto original = faults::original<ssize_t (*)(int, const void *, size_t)>("write");
    return faults::isDue() ? -1 : original(descriptor, bytes, std::min(size, faults::longestWrite));
}

int fsync(int descriptor)
{
    return faults::isDue() ? -1 : faults::original<int (*)(int)>("fsync")(descriptor);
}

int rename(const char *from, const char *to) noexcept
{
    return faults::isDue() ? -1 : faults::original<int (*)(const char *, const char *)>("rename")(from, to);
}

int fchmod(int descriptor, mode_t mode) noexcept
{
    return faults::isDue() ? -1 : faults::original<int (*)(int, mode_t)>("fchmod")(descriptor, mode);
}
}

class TestSafeFile : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void keepsTheOldOrTheNewFileWhenACallFails_data();
    void keepsTheOldOrTheNewFileWhenACallFails();
    void leavesNothingOfANewFileThatFails();
    void goesOnAfterShortWrites();
    void keepsTheOldOrTheNewFileWhenKilled();
    void keepsPermissionsAndFollowsLinks();
    void refusesWhatIsNoFile();
    void cleansNames_data();
    void cleansNames();

private:
    QString path(const char *name = "song.abc") const { return directory_->filePath(QLatin1String(name)); }
    QByteArray content() const;
    QStringList names() const { return QDir(directory_->path()).entryList(QDir::Files | QDir::Hidden); }

    std::unique_ptr<QTemporaryDir> directory_;
    const QByteArray old_ = QByteArray(10'000, 'o');
    const QByteArray new_ = QByteArray(30'000, 'n');
};

void TestSafeFile::init()
{
    directory_ = std::make_unique<QTemporaryDir>();
}

QByteArray TestSafeFile::content() const
{
    QFile file(path());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void TestSafeFile::keepsTheOldOrTheNewFileWhenACallFails_data()
{
    QTest::addColumn<int>("error");
    QTest::newRow("no space") << ENOSPC;
    QTest::newRow("broken disk") << EIO;
    QTest::newRow("read-only") << EROFS;
}

void TestSafeFile::keepsTheOldOrTheNewFileWhenACallFails()
{
    QFETCH(int, error);
    faults::longestWrite = 10'000; // so that there is a second and a third write to fail
    int failures = 0;
    for (int call = 1;; ++call) {
        SafeFile::write(path(), old_);
        QString message;
        faults::error = error;
        faults::callsUntilFault = call;
        try {
            SafeFile::write(path(), new_);
        } catch (const QString &thrown) {
            message = thrown;
        }
        const bool wasReached = std::exchange(faults::callsUntilFault, 0) == 0;
        QCOMPARE(names(), QStringList(QStringLiteral("song.abc")));
        QVERIFY(content() == old_ || content() == new_);
        if (!wasReached) {
            QVERIFY(message.isEmpty());
            QCOMPARE(content(), new_);
            break;
        }
        QCOMPARE(message, QString::fromLocal8Bit(strerror(error)));
        ++failures;
    }
    faults::longestWrite = SIZE_MAX;
    QVERIFY(failures >= 9); // open, mode, three writes, sync, rename, open and sync of the directory
}

void TestSafeFile::leavesNothingOfANewFileThatFails()
{
    faults::error = ENOSPC;
    faults::callsUntilFault = 2;
    QVERIFY_EXCEPTION_THROWN(SafeFile::write(path(), new_), QString);
    QCOMPARE(names(), QStringList());
}

void TestSafeFile::goesOnAfterShortWrites()
{
    faults::longestWrite = 7;
    SafeFile::write(path(), new_);
    faults::longestWrite = SIZE_MAX;
    QCOMPARE(content(), new_);
}

void TestSafeFile::keepsTheOldOrTheNewFileWhenKilled()
{
    constexpr int kills = 1000;
    std::mt19937 random(1);
    auto *const shared =
        mmap(nullptr, sizeof(std::atomic<int>), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    QVERIFY(shared != MAP_FAILED);
    auto *const written = new (shared) std::atomic<int>;
    SafeFile::write(path(), old_);
    int killedWhileSaving = 0;
    for (int kill = 0; kill < kills; ++kill) {
        *written = 0;
        const pid_t writer = fork();
        QVERIFY(writer >= 0);
        if (writer == 0) {
            for (bool isNew = true;; isNew = !isNew) {
                SafeFile::write(path(), isNew ? new_ : old_);
                ++*written;
            }
        }
        while (*written == 0)
            sched_yield();
        usleep(random() % 500);
        ::kill(writer, SIGKILL);
        waitpid(writer, nullptr, 0);
        const auto found = content();
        QVERIFY2(found == old_ || found == new_, qPrintable(QString::number(kill)));
        killedWhileSaving += names().size() > 1 ? 1 : 0; // its unfinished file is there
    }
    munmap(shared, sizeof(std::atomic<int>));
    qInfo("%d of %d writers were killed while a file was half written", killedWhileSaving, kills);
    QVERIFY(killedWhileSaving > kills / 20);
    SafeFile::write(path(), old_); // what a killed writer left beside the file is no obstacle
    QCOMPARE(names(), QStringList(QStringLiteral("song.abc")));
}

void TestSafeFile::keepsPermissionsAndFollowsLinks()
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
}

void TestSafeFile::refusesWhatIsNoFile()
{
    QVERIFY(QDir(directory_->path()).mkdir(QStringLiteral("song.abc")));
    QVERIFY_EXCEPTION_THROWN(SafeFile::write(path(), new_), QString);
    QVERIFY_EXCEPTION_THROWN(SafeFile::write(QStringLiteral("/dev/null"), new_), QString);
    QVERIFY_EXCEPTION_THROWN(SafeFile::write(path("missing/song.abc"), new_), QString);
}

void TestSafeFile::cleansNames_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << QStringLiteral("Winter Hymn") << QStringLiteral("Winter Hymn");
    QTest::newRow("path") << QStringLiteral("../etc/a\\b:c") << QStringLiteral(".._etc_a_b_c");
    QTest::newRow("parent") << QStringLiteral("..") << QStringLiteral("__");
    QTest::newRow("empty") << QString() << QStringLiteral("_");
    QTest::newRow("control") << QStringLiteral("a\nb") << QStringLiteral("a_b");
    QTest::newRow("device") << QStringLiteral("con.abc") << QStringLiteral("_con.abc");
    QTest::newRow("long") << QString(150, QChar(0xE4)) << QString(100, QChar(0xE4));
}

void TestSafeFile::cleansNames()
{
    QFETCH(QString, title);
    QTEST(SafeFile::cleanName(title), "name");
}

QTEST_GUILESS_MAIN(TestSafeFile)
#include "test_safe_file.moc"
