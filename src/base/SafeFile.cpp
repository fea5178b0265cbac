#include "base/SafeFile.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QSet>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <mutex>
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
    // Nobody sees a file that is neither there nor committed.
    template<typename Work>
    void commit(const QString &path, Work work)
    {
        const std::scoped_lock lock(mutex_);
        work();
        paths_.remove(path);
    }
    void abandon()
    {
        mutex_.lock(); // for ever
        for (const auto &path : qAsConst(paths_))
            QFile::remove(path);
    }

private:
    std::mutex mutex_;
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

void create(const QString &path, const QByteArray &bytes)
{
    Descriptor(openNew(path)).write(bytes);
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

void syncFolderOf(const QString &path)
{
    const auto folder = QFile::encodeName(QFileInfo(path).absolutePath());
    Descriptor(open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)).sync();
}

void replace(const QString &target, const QString &replacement)
{
    const auto oldName = QFile::encodeName(target);
    const auto newName = QFile::encodeName(replacement);
    {
        struct stat old = {};
        const Descriptor file(open(newName.constData(), O_RDONLY | O_CLOEXEC));
        if (stat(oldName.constData(), &old) == 0)
            file.setMode(old.st_mode & 07777);
        file.sync();
    }
    unfinishedFiles().commit(replacement, [&] { moveTo(target, replacement); });
    syncFolderOf(target);
}

#else

void create(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush())
        throw file.errorString();
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

void syncFolderOf(const QString &) {} // it cannot be done

void moveTo(const QString &target, const QString &replacement)
{
    std::error_code error;
    std::filesystem::rename(replacement.toStdU16String(), target.toStdU16String(), error);
    if (error)
        throw QString::fromLocal8Bit(error.message().c_str());
}

void replace(const QString &target, const QString &replacement)
{
    unfinishedFiles().commit(replacement, [&] { moveTo(target, replacement); });
}

#endif

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

// What programs left that were killed while they saved the same file, and that nobody has changed for so long.
void removeLeftovers(const QString &target, int seconds)
{
    const QFileInfo info(target);
    const auto begin = beginBeside(info);
    const auto old = QDateTime::currentDateTime().addSecs(-seconds);
    for (QDirIterator files(info.path(), QDir::Files | QDir::Hidden | QDir::NoSymLinks); files.hasNext();) {
        files.next();
        if (isBeside(files.fileName(), begin) && files.fileInfo().lastModified() < old)
            QFile::remove(files.filePath());
    }
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
    QFile::remove(path_);
    unfinishedFiles().remove(path_);
}

void Replacement::create() const
{
    ::create(path_, {});
}

void Replacement::commit()
{
    replace(target_, path_);
    isCommitted_ = true;
    constexpr int oldAfterSeconds = 600; // nobody writes for so long without changing the file
    ::removeLeftovers(target_, oldAfterSeconds);
}

void Replacement::commitUnsynchronised()
{
    unfinishedFiles().commit(path_, [this] { moveTo(target_, path_); });
    isCommitted_ = true;
}

void synchroniseFolder(const QString &path)
{
    syncFolderOf(path);
}

void writeUnsynchronised(const QString &path, const QByteArray &bytes)
{
    Replacement replacement(path);
    create(replacement.path(), bytes);
    replacement.commitUnsynchronised();
}

namespace {

bool writeReserved(const QString &path, const QByteArray &bytes,
                   void (*writeOver)(const QString &path, const QByteArray &bytes))
{
    if (!reserve(path))
        return false;
    unfinishedFiles().add(path);
    try {
        writeOver(path, bytes);
    } catch (...) {
        QFile::remove(path);
        unfinishedFiles().remove(path);
        throw;
    }
    unfinishedFiles().remove(path);
    return true;
}

} // namespace

bool writeNew(const QString &path, const QByteArray &bytes)
{
    return writeReserved(path, bytes, write);
}

bool writeNewUnsynchronised(const QString &path, const QByteArray &bytes)
{
    return writeReserved(path, bytes, writeUnsynchronised);
}

void synchroniseNew(const QStringList &paths)
{
    QSet<QString> folders;
    for (const auto &path : paths) {
        QFile file(path);
        if (!file.open(QIODevice::ReadWrite))
            throw file.errorString();
        synchronise(file);
        if (const auto folder = QFileInfo(path).path(); !folders.contains(folder)) {
            folders.insert(folder);
            synchroniseFolder(path);
        }
    }
}

void write(const QString &path, const QByteArray &bytes)
{
    Replacement replacement(path);
    create(replacement.path(), bytes);
    replacement.commit();
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
