#include "audio/fmod/FmodLibrary.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLibrary>

#include <mutex>

namespace {

constexpr unsigned oldest = 0x00010800;
constexpr unsigned newest = 0x000203ff;

std::mutex &systemMutex()
{
    static std::mutex mutex;
    return mutex;
}

#if defined(Q_OS_WIN)
const QString filesPattern = QStringLiteral("fmod*.dll");
const QStringList systemNames{QStringLiteral("fmod.dll"), QStringLiteral("fmod64.dll")};
#elif defined(Q_OS_MACOS)
const QString filesPattern = QStringLiteral("libfmod*.dylib");
const QStringList systemNames{QStringLiteral("libfmod.dylib")};
#else
const QString filesPattern = QStringLiteral("libfmod*.so*");
const QStringList systemNames{QStringLiteral("libfmod.so.14"), QStringLiteral("libfmod.so.13"),
                              QStringLiteral("libfmod.so.12"), QStringLiteral("libfmod.so.11"),
                              QStringLiteral("libfmod.so.10"), QStringLiteral("libfmod.so.9"),
                              QStringLiteral("libfmod.so.8"),  QStringLiteral("libfmod.so")};
#endif

// Where games keep what their program loads.
const QStringList gameSubfolders{QString(),
                                 QStringLiteral("linux64"),
                                 QStringLiteral("linux"),
                                 QStringLiteral("win64"),
                                 QStringLiteral("win32"),
                                 QStringLiteral("lib"),
                                 QStringLiteral("bin"),
                                 QStringLiteral("Kelvarion.app/Contents/MacOS"),
                                 QStringLiteral("Kelvarion.app/Contents/Frameworks")};

// The digits of a number below 100 as hexadecimal ones.
constexpr unsigned digits(unsigned number)
{
    return number / 10 * 16 + number % 10;
}

// A version from 2.02 on takes only the number that it was made with, or perhaps any of its minor version.
template<typename Create>
fmodlib::Result tryHeaderVersions(Create create)
{
    for (const unsigned version : {0x00020300U, 0x00020200U, 0x00020100U}) {
        if (const auto result = create(version); result != fmodlib::headerMismatch)
            return result;
    }
    for (const unsigned minor : {0x00020300U, 0x00020200U}) {
        for (unsigned patch = 1; patch <= 40; ++patch) {
            if (const auto result = create(minor + digits(patch)); result != fmodlib::headerMismatch)
                return result;
        }
    }
    return fmodlib::headerMismatch;
}

// A name that is no file here is one for the system to look for.
QString placeOf(const QString &chosenFile)
{
    const QFileInfo chosen(chosenFile);
    if (chosen.exists())
        return chosen.absoluteFilePath();
    if (chosen.path() != u".")
        throw FmodLibrary::tr("There is no file %1.").arg(chosenFile);
    return chosenFile;
}

} // namespace

std::shared_ptr<const FmodLibrary> FmodLibrary::open(const QString &file)
{
    const std::shared_ptr<FmodLibrary> library(new FmodLibrary);
    library->file_ = file;
    library->resolve();
    library->readVersion();
    return library;
}

void FmodLibrary::resolve()
{
    QLibrary library(file_); // stays loaded
    if (!library.load())
        throw library.errorString();
    QStringList missing;
    fmodlib::visitFunctions(api_, [&]<typename Function>(const char *name, Function &function) {
        auto symbol = library.resolve(QByteArray("FMOD_").append(name).constData());
        if (symbol == nullptr)
            symbol = library.resolve(QByteArray("FMOD5_").append(name).constData());
        if (symbol == nullptr)
            missing.append(QLatin1String(name));
        function = reinterpret_cast<Function>(symbol);
    });
    if (!missing.isEmpty())
        throw tr("%1 is no FMOD library, or one that is not supported: it has no %2.")
            .arg(file_, missing.size() > 3 ? missing.first() : missing.join(QStringLiteral(", ")));
}

void FmodLibrary::readVersion()
{
    fmodlib::System *system = nullptr;
    unsigned build = 0;
    auto result = tryHeaderVersions([&](unsigned version) {
        const std::lock_guard lock(systemMutex());
        headerVersion_ = version;
        return api_.systemCreate(&system, version);
    });
    if (result == 0) {
        result = api_.systemGetVersion(system, &version_, &build);
        const auto released = releaseSystem(system);
        result = result != 0 ? result : released;
    }
    if (result != 0)
        throw tr("%1 does not start: FMOD Error: %2").arg(file_, QString::fromUtf8(fmodlib::textOf(result)));
    if (version_ < oldest || version_ > newest)
        throw tr("%1 is FMOD %2; 1.08 to 2.03 are supported.").arg(file_, versionText());
}

std::shared_ptr<const FmodLibrary> FmodLibrary::find(const QString &chosenFile, const QString &gameFolder)
{
    if (!chosenFile.isEmpty())
        return open(placeOf(chosenFile));
    QString reason = tr("No FMOD library was found.");
    for (const auto &file : candidates(gameFolder)) {
        try {
            return open(file);
        } catch (const QString &failure) {
            if (QDir::isAbsolutePath(file)) // the others need not be there
                reason = failure;
        }
    }
    throw reason;
}

QStringList FmodLibrary::candidates(const QString &gameFolder)
{
    if (gameFolder.isEmpty())
        return systemNames;
    QStringList files;
    for (const auto &subfolder : gameSubfolders) {
        const QDir folder(QDir(gameFolder).absoluteFilePath(subfolder));
        for (const auto &name : folder.entryList({filesPattern}, QDir::Files, QDir::Name))
            files.append(folder.absoluteFilePath(name));
    }
    return files + systemNames;
}

QString FmodLibrary::versionText() const
{
    const auto part = [this](int shift) { return version_ >> shift & 0xff; };
    return QStringLiteral("%1.%2.%3")
        .arg(version_ >> 16, 0, 16)
        .arg(part(8), 2, 16, QLatin1Char('0'))
        .arg(part(0), 2, 16, QLatin1Char('0'));
}

int FmodLibrary::soundInfoSize() const
{
    return version_ >> 16 == 1 ? fmodlib::SoundInfo::sizeIn1 : fmodlib::SoundInfo::sizeIn2;
}

fmodlib::Result FmodLibrary::createSystem(fmodlib::System **system) const
{
    const std::lock_guard lock(systemMutex());
    return api_.systemCreate(system, headerVersion_);
}

fmodlib::Result FmodLibrary::releaseSystem(fmodlib::System *system) const
{
    const std::lock_guard lock(systemMutex());
    const auto result = api_.systemRelease(system);
    if (result != 0)
        api_.systemRelease(system); // once more: what it holds would stay for as long as the program
    return result;
}
