#include "base/SafeFile.h"

#include "base/SystemFiles.h"

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
#include <memory>
#include <mutex>
#include <shared_mutex>
#include <system_error>

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

SystemFiles::Path systemPath(const QString &path)
{
    if constexpr (sizeof(SystemFiles::Path::value_type) == sizeof(char))
        return QFile::encodeName(path).toStdString();
    else
        return path.toStdWString();
}

// What has the number of an errno is told by it; the rest as the system has it.
QString causeOf(const std::error_code &error)
{
    const auto condition = error.default_error_condition();
    const bool isPlain = error.category() == std::generic_category() || condition == std::errc::no_space_on_device ||
                         condition == std::errc::no_such_file_or_directory;
    return isPlain ? SafeFile::causeOf(condition.value()) : QString::fromLocal8Bit(error.message().c_str());
}

// What the system refuses, in words.
template<typename Work>
auto told(Work work)
{
    try {
        return work();
    } catch (const std::system_error &error) {
        throw causeOf(error.code());
    }
}

std::optional<SystemFiles::OpenFile> beginUnnamed(const QString &folder)
{
    return unfinishedFiles().change([&folder] { return SystemFiles::OpenFile::createUnnamed(systemPath(folder)); });
}

SystemFiles::OpenFile beginNew(const QString &path)
{
    return unfinishedFiles().change(
        [&path] { return told([&path] { return SystemFiles::OpenFile::createNew(systemPath(path)); }); });
}

void writeTo(const SystemFiles::OpenFile &file, const QByteArray &bytes)
{
    told([&] { file.write({bytes.constData(), size_t(bytes.size())}); });
}

void create(const QString &path, const QByteArray &bytes)
{
    writeTo(beginNew(path), bytes);
}

// It gets the permissions of the file that it shall replace.
void takePermissions(const SystemFiles::OpenFile &replacement, const QString &target)
{
    told([&] { replacement.takePermissionsOf(systemPath(target)); });
}

void synchronise(const SystemFiles::OpenFile &file)
{
    told([&file] { file.synchronise(); });
}

void syncFolder(const QString &path)
{
    told([&path] { SystemFiles::synchroniseFolder(systemPath(path)); });
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

// What programs left that were killed while they saved the same files, and that nobody has changed for so long. There
// is seldom any, so the names of the targets are only looked at when there is.
void removeLeftovers(const QString &folder, const QStringList &targets, int seconds)
{
    if (targets.isEmpty())
        return;
    const auto old = QDateTime::currentDateTime().addSecs(-seconds);
    QSet<QString> begins;
    for (QDirIterator files(folder, QDir::Files | QDir::Hidden | QDir::NoSymLinks); files.hasNext();) {
        files.next();
        const auto begin = beginIn(files.fileName());
        if (begin.isEmpty())
            continue;
        if (begins.isEmpty()) {
            for (const auto &target : targets)
                begins.insert(beginBeside(QFileInfo(target)));
        }
        if (begins.contains(begin) && files.fileInfo().lastModified() < old)
            QFile::remove(files.filePath());
    }
}

constexpr int oldAfterSeconds = 600; // nobody writes for so long without changing the file

void removeLeftovers(const QString &target, int seconds)
{
    removeLeftovers(QFileInfo(target).path(), QStringList(target), seconds);
}

void finishFolderOf(const QString &target)
{
    SafeFile::finishFolder(QFileInfo(target).path(), QStringList(target));
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
    told([&file] { SystemFiles::synchronise(file.handle()); });
}

struct Replacement::Open
{
    SystemFiles::OpenFile file;
};

// What is not there is neither a link nor something else than a file.
Replacement::Replacement(const QString &target, Existing existing) : existing_(existing), target_(target)
{
    if (existing == Existing::Kept)
        return;
    const QFileInfo info(target);
    if (info.exists() && !info.isFile())
        throw QCoreApplication::translate("SafeFile", "Not a regular file.");
    target_ = behindLinks(target);
    takeName();
}

Replacement::~Replacement()
{
    open_.reset();
    if (isCommitted_ || path_.isEmpty())
        return;
    QFile::remove(path_);
    unfinishedFiles().remove(path_);
}

void Replacement::takeName()
{
    path_ = nameBeside(target_);
    unfinishedFiles().add(path_);
}

void Replacement::create() const
{
    ::create(path_, {});
}

void Replacement::write(const QByteArray &bytes)
{
    auto file = path_.isEmpty() ? beginUnnamed(QFileInfo(target_).path()) : std::nullopt;
    if (!file && path_.isEmpty())
        takeName();
    open_.reset(new Open{file ? *std::move(file) : beginNew(path_)});
    writeTo(open_->file, bytes);
    open_->file.beginSynchronising();
}

void Replacement::synchronise()
{
    if (existing_ == Existing::Replaced)
        takePermissions(open_->file, target_);
    ::synchronise(open_->file);
}

void Replacement::commit()
{
    const auto path = systemPath(path_);
    open_.reset(new Open{told([&path] { return SystemFiles::OpenFile::openExisting(path); })});
    synchronise();
    commitUnsynchronised();
    finishFolderOf(target_);
}

void Replacement::commitUnsynchronised()
{
    takePlace();
}

bool Replacement::takePlace()
{
    const auto from = systemPath(path_);
    const auto to = systemPath(target_);
    const auto file = path_.isEmpty() ? std::move(open_) : nullptr;
    open_.reset(); // what is open cannot be moved everywhere
    isCommitted_ = unfinishedFiles().commit(path_, [&] {
        return told([&] {
            if (file)
                return file->file.giveName(to);
            if (existing_ == Existing::Kept)
                return SystemFiles::moveToNew(to, from);
            SystemFiles::moveOver(to, from);
            return true;
        });
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
    return SystemFiles::isThere(systemPath(path));
}

void finishFolder(const QString &folder, const QStringList &targets)
{
    syncFolder(folder);
    ::removeLeftovers(folder, targets, oldAfterSeconds);
}

bool isLeftBeside(const QString &name)
{
    return !beginIn(name).isEmpty();
}

namespace {

bool writeOne(const QString &path, const QByteArray &bytes, Existing existing)
{
    Replacement replacement(path, existing);
    replacement.write(bytes);
    replacement.synchronise();
    if (!replacement.takePlace())
        return false;
    finishFolderOf(replacement.target());
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
