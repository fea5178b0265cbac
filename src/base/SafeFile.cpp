#include "base/SafeFile.h"

#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <algorithm>
#include <cerrno>
#include <cstring>
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

#ifdef Q_OS_UNIX

[[noreturn]] void failWithErrno()
{
    throw QString::fromLocal8Bit(std::strerror(errno));
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

void create(const QString &path, const QByteArray &bytes)
{
    constexpr auto flags = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC;
    Descriptor(open(QFile::encodeName(path).constData(), flags, 0666)).write(bytes);
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
    if (rename(newName.constData(), oldName.constData()) != 0)
        failWithErrno();
    const auto directory = QFile::encodeName(QFileInfo(target).absolutePath());
    Descriptor(open(directory.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)).sync();
}

#else

void create(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush())
        throw file.errorString();
}

void replace(const QString &target, const QString &replacement)
{
    std::error_code error;
    std::filesystem::rename(replacement.toStdU16String(), target.toStdU16String(), error);
    if (error)
        throw QString::fromLocal8Bit(error.message().c_str());
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

// A name that nobody else has, so that no file of the user's is in the way. What it begins with tells whose it is, and
// it is no longer than a name that is known to be allowed.
QString nameBeside(const QString &target)
{
    constexpr qsizetype allowedAnywhere = 100;
    constexpr qsizetype longestAnywhere = 255;
    const QFileInfo info(target);
    const auto unique = QStringLiteral("~%1.saving").arg(QRandomGenerator::system()->generate64(), 0, 36);
    auto name = info.fileName();
    const auto known = std::clamp<qsizetype>(name.toUtf8().size(), allowedAnywhere, longestAnywhere);
    cutToBytes(name, known - unique.size());
    return info.path() + u'/' + name + unique;
}

} // namespace

namespace SafeFile {

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
        throw QStringLiteral("Not a regular file.");
    target_ = info.exists() ? info.canonicalFilePath() : target;
    path_ = nameBeside(target_);
}

Replacement::~Replacement()
{
    if (!isCommitted_)
        QFile::remove(path_);
}

void Replacement::commit()
{
    replace(target_, path_);
    isCommitted_ = true;
}

bool writeNew(const QString &path, const QByteArray &bytes)
{
    QFile reserved(path);
    if (!reserved.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
        const QFileInfo info(path);
        if (info.exists() || info.isSymLink())
            return false;
        throw reserved.errorString();
    }
    reserved.close();
    try {
        write(path, bytes);
        return true;
    } catch (...) {
        reserved.remove();
        throw;
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
