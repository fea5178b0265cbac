#include "base/SafeFile.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QRandomGenerator>
#include <QSet>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <mutex>
#include <shared_mutex>
#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#else
#include <filesystem>
#include <io.h>
#include <system_error>
#endif

namespace {

// The files of this program that are there and not yet what they shall be.
class UnfinishedFiles
{
public:
    void add(const QString &path)
    {
        const std::scoped_lock lock(mutex_);
        paths_.insert(path);
    }
    void remove(const QString &path)
    {
        const std::scoped_lock lock(mutex_);
        paths_.remove(path);
    }
    // Nobody sees a file that is neither there nor committed. work: gives whether it took its place.
    template<typename Work>
    bool commit(const QString &path, Work work)
    {
        return change([&] {
            const bool isCommitted = work();
            if (isCommitted)
                remove(path);
            return isCommitted;
        });
    }
    // Whatever makes or moves a file: not while all are abandoned, nor after.
    template<typename Work>
    auto change(Work work)
    {
        passGate();
        const std::shared_lock lock(changing_);
        return work();
    }
    void abandon()
    {
        gate_.lock(); // these two for ever
        changing_.lock();
        const std::scoped_lock lock(mutex_);
        for (const auto &path : qAsConst(paths_))
            QFile::remove(path);
    }

private:
    // Where whoever comes later waits, so that abandoning need not wait for all of them.
    void passGate() { const std::scoped_lock gate(gate_); }

    std::mutex gate_;
    std::shared_mutex changing_;
    std::mutex mutex_; // of the paths
    QSet<QString> paths_;
};

UnfinishedFiles &unfinishedFiles()
{
    static auto *const files = new UnfinishedFiles; // saving may go on while the program ends
    return *files;
}

#ifdef Q_OS_UNIX

[[noreturn]] void failWithErrno()
{
    throw SafeFile::causeOf(errno);
}

class Descriptor
{
public:
    explicit Descriptor(int descriptor) : descriptor_(descriptor)
    {
        if (descriptor_ < 0)
            failWithErrno();
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;
    ~Descriptor() { close(descriptor_); }

    void write(const QByteArray &bytes) const
    {
        for (qint64 written = 0; written < bytes.size();) {
            const auto count = ::write(descriptor_, bytes.constData() + written, size_t(bytes.size() - written));
            if (count < 0 && errno != EINTR)
                failWithErrno();
            written += std::max<qint64>(count, 0);
        }
    }

    void sync() const
    {
        if (fsync(descriptor_) != 0)
            failWithErrno();
    }

    // Of many files, all at once: the disk need not wait for the one that is synchronised first.
    void beginSync() const
    {
#ifdef SYNC_FILE_RANGE_WRITE
        sync_file_range(descriptor_, 0, 0, SYNC_FILE_RANGE_WRITE); // where it cannot be, sync() does all
#endif
    }

    void setMode(mode_t mode) const
    {
        if (fchmod(descriptor_, mode) != 0)
            failWithErrno();
    }

private:
    int descriptor_;
};

int openNew(const QString &path)
{
    return open(QFile::encodeName(path).constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
}

int beginNew(const QString &path)
{
    return unfinishedFiles().change([&path] { return openNew(path); });
}

void create(const QString &path, const QByteArray &bytes)
{
    Descriptor(beginNew(path)).write(bytes);
}

// It gets the permissions of the file that it shall replace.
void synchronise(const Descriptor &replacement, const QString &target)
{
    struct stat old = {};
    if (stat(QFile::encodeName(target).constData(), &old) == 0)
        replacement.setMode(old.st_mode & 07777);
    replacement.sync();
}

void synchronise(const QString &replacement, const QString &target)
{
    const auto name = QFile::encodeName(replacement);
    synchronise(Descriptor(open(name.constData(), O_RDONLY | O_CLOEXEC)), target);
}

// An empty file; false when there is something of that name.
bool reserve(const QString &path)
{
    const int descriptor = openNew(path);
    if (descriptor < 0 && errno == EEXIST)
        return false;
    const Descriptor file(descriptor);
    return true;
}

void moveTo(const QString &target, const QString &replacement)
{
    if (rename(QFile::encodeName(replacement).constData(), QFile::encodeName(target).constData()) != 0)
        failWithErrno();
}

void syncFolder(const QString &path)
{
    const auto name = QFile::encodeName(path);
    Descriptor(open(name.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)).sync();
}

#else

void create(QFile &file, const QByteArray &bytes)
{
    const bool isOpen = unfinishedFiles().change([&file] { return file.open(QIODevice::WriteOnly); });
    if (!isOpen || file.write(bytes) != bytes.size() || !file.flush())
        throw file.errorString();
}

void create(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    create(file, bytes);
}

void synchronise(const QString &replacement, const QString &)
{
    QFile file(replacement);
    if (!file.open(QIODevice::ReadWrite))
        throw file.errorString();
    SafeFile::synchronise(file);
}

bool reserve(const QString &path)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        return true;
    if (QFileInfo::exists(path))
        return false;
    throw file.errorString();
}

void syncFolder(const QString &) {} // it cannot be done

void moveTo(const QString &target, const QString &replacement)
{
    std::error_code error;
    std::filesystem::rename(replacement.toStdU16String(), target.toStdU16String(), error);
    if (error)
        throw QString::fromLocal8Bit(error.message().c_str());
}

#endif

// Where the system cannot move without replacing, an empty file keeps the place.
bool moveToReserved(const QString &target, const QString &replacement)
{
    if (!reserve(target))
        return false;
    try {
        moveTo(target, replacement);
    } catch (...) {
        QFile::remove(target);
        throw;
    }
    return true;
}

// False when there is something of that name.
bool moveToNew(const QString &target, const QString &replacement)
{
#ifdef RENAME_NOREPLACE
    const auto from = QFile::encodeName(replacement);
    const auto to = QFile::encodeName(target);
    if (renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0)
        return true;
    if (errno == EEXIST)
        return false;
    const bool isUnknown = errno == EINVAL || errno == ENOSYS; // to the file system, or to the system
    if (!isUnknown)
        failWithErrno();
#endif
    return moveToReserved(target, replacement);
}

bool isRefused(QChar c)
{
    return c.unicode() < 0x20 || c.unicode() == 0x7F || QStringLiteral("/\\:*?\"<>|").contains(c);
}

// Names that Windows keeps for devices, whatever their ending.
bool isDeviceName(const QString &name)
{
    const auto upper = name.section(u'.', 0, 0).trimmed().toUpper();
    const bool isPort =
        upper.size() == 4 && (upper.startsWith(u"COM") || upper.startsWith(u"LPT")) && upper[3].isDigit();
    return isPort || upper == u"CON" || upper == u"PRN" || upper == u"AUX" || upper == u"NUL";
}

void cutToBytes(QString &name, qsizetype most)
{
    while (name.toUtf8().size() > most)
        name.chop(name.size() > 1 && name.at(name.size() - 1).isLowSurrogate() ? 2 : 1);
}

// Of the name of a file beside another: "NAME~", 13 digits of base 36 and the ending.
constexpr int uniqueDigits = 13;
const auto endingBeside = QStringLiteral(".saving");

// What the names of the files beside begin with. It tells whose they are, and they are no longer than a name that is
// known to be allowed.
QString beginBeside(const QFileInfo &target)
{
    constexpr qsizetype allowedAnywhere = 100;
    constexpr qsizetype longestAnywhere = 255;
    auto name = target.fileName();
    const auto known = std::clamp<qsizetype>(name.toUtf8().size(), allowedAnywhere, longestAnywhere);
    cutToBytes(name, known - 1 - uniqueDigits - endingBeside.size());
    return name + u'~';
}

// A name that nobody else has, so that no file of the user's is in the way.
QString nameBeside(const QString &target)
{
    const QFileInfo info(target);
    const auto number = QString::number(QRandomGenerator::system()->generate64(), 36);
    return info.path() + u'/' + beginBeside(info) + number.rightJustified(uniqueDigits, u'0') + endingBeside;
}

bool isBeside(const QString &name, const QString &begin)
{
    const auto isDigit = [](QChar c) { return (c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'z'); };
    return name.size() == begin.size() + uniqueDigits + endingBeside.size() && name.startsWith(begin) &&
           name.endsWith(endingBeside) &&
           std::all_of(name.begin() + begin.size(), name.end() - endingBeside.size(), isDigit);
}

// What a file's name begins with that is beside another; empty for all other names.
QString beginIn(const QString &name)
{
    const auto begin = name.chopped(std::min(int(name.size()), uniqueDigits + int(endingBeside.size())));
    return isBeside(name, begin) ? begin : QString();
}

// What programs left that were killed while they saved the same files, and that nobody has changed for so long.
void removeLeftovers(const QString &folder, const QSet<QString> &begins, int seconds)
{
    const auto old = QDateTime::currentDateTime().addSecs(-seconds);
    for (QDirIterator files(folder, QDir::Files | QDir::Hidden | QDir::NoSymLinks); files.hasNext();) {
        files.next();
        if (begins.contains(beginIn(files.fileName())) && files.fileInfo().lastModified() < old)
            QFile::remove(files.filePath());
    }
}

constexpr int oldAfterSeconds = 600; // nobody writes for so long without changing the file

void removeLeftovers(const QString &target, int seconds)
{
    const QFileInfo info(target);
    removeLeftovers(info.path(), {beginBeside(info)}, seconds);
}

// Where writing to the path leads, also when that is not there yet.
QString behindLinks(const QString &path)
{
    const QFileInfo info(path);
    if (info.exists())
        return info.canonicalFilePath();
    return info.isSymLink() ? info.symLinkTarget() : path;
}

} // namespace

namespace SafeFile {

QString causeOf(int error)
{
    switch (error) {
    case ENOSPC:
        return QCoreApplication::translate("SafeFile", "The disk is full.");
#ifdef EDQUOT
    case EDQUOT:
        return QCoreApplication::translate("SafeFile", "The space that is yours on the disk is used up.");
#endif
    case EROFS:
        return QCoreApplication::translate("SafeFile", "The disk is read-only.");
    case EACCES:
        return QCoreApplication::translate("SafeFile", "The folder is read-only.");
    case EPERM:
        return QCoreApplication::translate("SafeFile", "The file may not be replaced.");
    case ENOENT:
        return QCoreApplication::translate("SafeFile", "The folder does not exist.");
    case ENAMETOOLONG:
        return QCoreApplication::translate("SafeFile", "The name is too long.");
    default:
        return QString::fromLocal8Bit(std::strerror(error));
    }
}

void abandonAll()
{
    unfinishedFiles().abandon();
}

void removeLeftovers(const QString &path)
{
    ::removeLeftovers(behindLinks(path), -1); // also those of this very second
}

void synchronise(QFile &file)
{
    if (!file.flush())
        throw file.errorString();
#ifdef Q_OS_UNIX
    if (fsync(file.handle()) != 0)
        failWithErrno();
#else
    if (_commit(file.handle()) != 0)
        throw QString::fromLocal8Bit(std::strerror(errno));
#endif
}

#ifdef Q_OS_UNIX

struct Replacement::Open
{
    Descriptor file;

    Open(const QString &path, const QByteArray &bytes) : file(beginNew(path))
    {
        file.write(bytes);
        file.beginSync();
    }
    void synchronise(const QString &target) { ::synchronise(file, target); }
};

#else

struct Replacement::Open
{
    QFile file;

    Open(const QString &path, const QByteArray &bytes) : file(path) { ::create(file, bytes); }
    void synchronise(const QString &) { SafeFile::synchronise(file); }
};

#endif

Replacement::Replacement(const QString &target)
{
    const QFileInfo info(target);
    if (info.exists() && !info.isFile())
        throw QCoreApplication::translate("SafeFile", "Not a regular file.");
    target_ = behindLinks(target);
    path_ = nameBeside(target_);
    unfinishedFiles().add(path_);
}

Replacement::~Replacement()
{
    if (isCommitted_)
        return;
    open_.reset();
    QFile::remove(path_);
    unfinishedFiles().remove(path_);
}

void Replacement::create() const
{
    ::create(path_, {});
}

void Replacement::write(const QByteArray &bytes)
{
    open_ = std::make_unique<Open>(path_, bytes);
}

void Replacement::synchronise()
{
    open_->synchronise(target_);
    open_.reset();
}

void Replacement::commit()
{
    ::synchronise(path_, target_);
    commitUnsynchronised();
    finishFolders({target_});
}

void Replacement::commitUnsynchronised()
{
    takePlace(Existing::Replaced);
}

bool Replacement::takePlace(Existing existing)
{
    isCommitted_ = unfinishedFiles().commit(path_, [this, existing] {
        if (existing == Existing::Kept)
            return moveToNew(target_, path_);
        moveTo(target_, path_);
        return true;
    });
    return isCommitted_;
}

void synchroniseFolder(const QString &path)
{
    syncFolder(QFileInfo(path).path());
}

void writeUnsynchronised(const QString &path, const QByteArray &bytes)
{
    Replacement replacement(path);
    create(replacement.path(), bytes);
    replacement.commitUnsynchronised();
}

bool isThere(const QString &path)
{
    const QFileInfo info(path);
    return info.exists() || info.isSymLink();
}

void finishFolders(const QStringList &written)
{
    QHash<QString, QSet<QString>> beginsIn;
    for (const auto &path : written) {
        const QFileInfo file(path);
        beginsIn[file.path()].insert(beginBeside(file));
    }
    for (auto begins = beginsIn.constBegin(); begins != beginsIn.constEnd(); ++begins) {
        syncFolder(begins.key());
        ::removeLeftovers(begins.key(), *begins, oldAfterSeconds);
    }
}

namespace {

bool writeOne(const QString &path, const QByteArray &bytes, Existing existing)
{
    Replacement replacement(path);
    replacement.write(bytes);
    replacement.synchronise();
    if (!replacement.takePlace(existing))
        return false;
    finishFolders({replacement.target()});
    return true;
}

} // namespace

bool writeNew(const QString &path, const QByteArray &bytes)
{
    return !isThere(path) && writeOne(path, bytes, Existing::Kept);
}

void write(const QString &path, const QByteArray &bytes)
{
    writeOne(path, bytes, Existing::Replaced);
}

QString cleanName(const QString &title)
{
    constexpr int longestName = 200;
    auto name = title;
    std::replace_if(name.begin(), name.end(), isRefused, QChar(u'_'));
    if (name.isEmpty() || name == u"." || name == u"..")
        name.fill(u'_', std::max<int>(1, int(name.size())));
    if (isDeviceName(name))
        name.prepend(u'_');
    cutToBytes(name, longestName);
    return name;
}

} // namespace SafeFile
