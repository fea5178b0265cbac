#include "assets/InstrumentScan.h"

#include "assets/CostLimit.h"
#include "assets/InstrumentDecoder.h"
#include "assets/package/Logging.h"
#include "assets/package/PackageRegistry.h"
#include "assets/package/PakReader.h"
#include "base/ErrorText.h"
#include "base/FilePaths.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <limits>
#include <new>
#include <vector>

namespace {
// Many times the largest that an instrument has beside its samples: an icon of a million pixels takes four.
constexpr qint64 largestFile = qint64(16) << 20;

void warn(const QString &message)
{
    qCWarning(assetsLog).noquote() << message;
}

// Somewhere to look for instruments.
struct Place
{
    enum Kind { Directory, Mod, Package } kind;
    QString path;
};

// Where a place keeps its items: a directory of loose files, or a package.
struct AssetSource
{
    QString root;         // before every path below it, without a slash at its end
    QString samplePrefix; // before the tuning's directory in sample names
    QString directory;    // loose files only: nothing outside of it is read
    QString mod;          // a mod only: nothing is read where links lead out of it
    std::function<bool(const QString &path, QByteArray &bytes)> tryRead;

    QString itemDirectory() const { return root + QStringLiteral("/items/instruments"); }
    QString tuningDirectory(const QString &kind) const { return root + QStringLiteral("/sfx/instruments/") + kind; }
};

class InstrumentScan
{
public:
    explicit InstrumentScan(const ScanStep &step) : step_(step) {}

    InstrumentSet scan(const std::vector<Place> &places);

private:
    PlaceFiles read(const Place &place);
    PlaceFiles readMod(const QString &modDirectory);
    PlaceFiles readDirectory(const QString &directory, const QString &mod = {});
    PlaceFiles readPackage(const QString &packagePath);
    bool goOn();

    const ScanStep &step_;
    ScanProgress progress_;
    bool cancelled_ = false;
    InstrumentDecoder decoder_;
};

// By name ignoring case; names that differ only in case are in one order on every machine.
QStringList listing(const QDir &directory, const QStringList &patterns, QDir::Filters kind)
{
    auto names = directory.entryList(patterns, kind | QDir::NoDotAndDotDot, QDir::NoSort);
    std::sort(names.begin(), names.end(), [](const QString &left, const QString &right) {
        const int order = left.compare(right, Qt::CaseInsensitive);
        return order != 0 ? order < 0 : left < right;
    });
    return names;
}

// Empty for what may be read.
QString refusal(const QString &path, const QString &mod)
{
    if (!mod.isEmpty() && leadsOutOf(mod, path))
        return QStringLiteral("%1: the link leads out of the mod.").arg(path);
    if (QFileInfo(path).size() > largestFile)
        return QStringLiteral("%1 is too large.").arg(path);
    return {};
}

bool tryReadLoose(const QString &path, const QString &mod, QByteArray &bytes)
{
    try {
        if (const auto reason = refusal(path, mod); !reason.isEmpty()) {
            warn(reason);
            return false;
        }
        bytes = readGameFile(path);
        return true;
    } catch (const QString &) {
        return false;
    }
}

QString modPath(const QByteArray &description, const QString &name)
{
    try {
        return readModPath(description);
    } catch (const QString &message) {
        warn(QStringLiteral("%1: %2").arg(name, message));
        return QStringLiteral(".");
    }
}

// One slash before the path and none after it; empty for the package's root.
QString packagePrefix(const QString &path)
{
    auto names = path.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    names.removeAll(QStringLiteral("."));
    return names.isEmpty() ? QString() : QLatin1Char('/') + names.join(QLatin1Char('/'));
}

QString packageRoot(const OpenPackage &package, const QString &packagePath)
{
    const auto description = QStringLiteral("pak.modinfo");
    QByteArray bytes;
    if (!package->hasFile(description) || !package->tryGetFile(description, bytes))
        return {};
    return packagePrefix(modPath(bytes, pakFileName(packagePath, description)));
}

QStringList itemPaths(const OpenPackage &package, const AssetSource &source)
{
    const auto prefix = source.itemDirectory() + QLatin1Char('/');
    QStringList items;
    const auto paths = package->fileList();
    for (const auto &path : paths) {
        if (path.startsWith(prefix) && path.endsWith(QLatin1String(".instrument")))
            items.append(path);
    }
    return items;
}

void addPlaces(std::vector<Place> &places, Place::Kind kind, const QDir &directory, const QStringList &patterns)
{
    const auto names = listing(directory, patterns, kind == Place::Package ? QDir::Files : QDir::Dirs);
    for (const auto &name : names)
        places.push_back({kind, directory.filePath(name)});
}

std::vector<Place> placesOf(const QDir &game, Mods mods)
{
    const QDir assets(game.filePath(QStringLiteral("assets")));
    std::vector<Place> places{{Place::Directory, assets.path()}};
    addPlaces(places, Place::Package, assets, {QStringLiteral("*.pak")});
    places.push_back({Place::Directory, assets.filePath(QStringLiteral("user"))});
    if (mods == Mods::Load) {
        const QDir modDirectory(game.filePath(QStringLiteral("mods")));
        addPlaces(places, Place::Mod, modDirectory, {});
        addPlaces(places, Place::Package, modDirectory, {QStringLiteral("*.modpak"), QStringLiteral("*.pak")});
    }
    return places;
}

std::optional<QByteArray> tryRead(const AssetSource &source, const QString &path)
{
    QByteArray bytes;
    if (!source.tryRead(path, bytes))
        return std::nullopt;
    return bytes;
}

// The item and what it names; a missing tuning or icon is the decoder's to tell. None, and a warning, for what is no
// item.
std::optional<InstrumentFiles> readFiles(const AssetSource &source, const QString &itemPath)
{
    try {
        const auto bytes = tryRead(source, itemPath);
        if (!bytes)
            throw QStringLiteral("Could not read instrument file %1.").arg(itemPath);
        const auto item = readItem(*bytes, itemPath);
        const auto directory = source.tuningDirectory(item.kind);
        const auto iconPath = source.itemDirectory() + QLatin1Char('/') + item.iconFile;
        const SampleBase base{source.samplePrefix + directory + QLatin1Char('/'), source.directory, source.mod};
        const auto tuning = tryRead(source, directory + QStringLiteral("/tuning.config"));
        return InstrumentFiles{item, base, tuning, tryRead(source, iconPath), iconPath};
    } catch (const QString &message) {
        warn(message);
        return std::nullopt;
    } catch (const std::bad_alloc &) {
        warn(QStringLiteral("%1: %2").arg(itemPath, currentErrorText()));
        return std::nullopt;
    }
}

qint64 memoryOf(const InstrumentFiles &files)
{
    return files.tuning.value_or(QByteArray()).size() + files.icon.value_or(QByteArray()).size();
}

InstrumentSet InstrumentScan::scan(const std::vector<Place> &places)
{
    progress_.total = int(places.size());
    for (const auto &place : places) {
        progress_.path = place.path;
        if (!goOn())
            break;
        decoder_.take(read(place));
        ++progress_.done;
    }
    return decoder_.finish();
}

// A step that said no is not asked again.
bool InstrumentScan::goOn()
{
    cancelled_ = cancelled_ || (step_ && !step_(progress_));
    return !cancelled_;
}

PlaceFiles InstrumentScan::read(const Place &place)
{
    if (place.kind == Place::Directory)
        return readDirectory(place.path);
    if (place.kind == Place::Mod)
        return readMod(place.path);
    return readPackage(place.path);
}

PlaceFiles InstrumentScan::readMod(const QString &modDirectory)
{
    const auto description =
        QStringLiteral("%1/%2.modinfo").arg(modDirectory, modDirectory.section(QLatin1Char('/'), -1));
    QByteArray bytes;
    auto path = QStringLiteral(".");
    if (tryReadLoose(description, modDirectory, bytes))
        path = modPath(bytes, description);
    const auto assets = QDir::cleanPath(modDirectory + QLatin1Char('/') + path);
    if (isInside(modDirectory, assets))
        return readDirectory(assets, modDirectory);
    warn(QStringLiteral("%1: the path leads out of the mod.").arg(description));
    return {};
}

PlaceFiles InstrumentScan::readDirectory(const QString &directory, const QString &mod)
{
    AssetSource source{directory, {}, directory, mod, {}};
    source.tryRead = [directory, mod](const QString &path, QByteArray &bytes) {
        return isInside(directory, path) && tryReadLoose(path, mod, bytes);
    };
    const QDir items(source.itemDirectory());
    const auto names = listing(items, {QStringLiteral("*.instrument")}, QDir::Files);
    PlaceFiles found{directory, std::numeric_limits<qint64>::max(), {}};
    for (const auto &name : names) {
        if (!goOn())
            break;
        if (auto files = readFiles(source, items.filePath(name)))
            found.instruments.push_back(*std::move(files));
    }
    return found;
}

// What was read before a failure counts.
PlaceFiles InstrumentScan::readPackage(const QString &packagePath)
{
    PlaceFiles found{packagePath, QFileInfo(packagePath).size(), {}};
    try {
        if (packagePath.contains(QLatin1String("::")))
            throw QStringLiteral("The path of a package may not hold \"::\".");
        const OpenPackage package(packagePath);
        CostLimit limit(found.size);
        AssetSource source{packageRoot(package, packagePath), pakFileName(packagePath, {}), {}, {}, {}};
        source.tryRead = [&package](const QString &path, QByteArray &bytes) {
            return package->tryGetFile(path, bytes);
        };
        for (const auto &path : itemPaths(package, source)) {
            if (!goOn())
                break;
            if (auto files = readFiles(source, path)) {
                limit.addMemory(memoryOf(*files));
                found.instruments.push_back(*std::move(files));
            }
            if (limit.isReached())
                throw QStringLiteral("Reading its instruments costs too much for its size.");
        }
    } catch (...) {
        warn(QStringLiteral("Failed to load pak file: %1").arg(packagePath));
        qCDebug(assetsLog).noquote() << currentErrorText();
    }
    return found;
}
} // namespace

InstrumentSet noInstruments()
{
    InstrumentSet none;
    none.add({QStringLiteral("None"), {}, {}});
    return none;
}

InstrumentSet scanInstruments(const QString &gameRoot, Mods mods, const ScanStep &step)
{
    auto instruments = InstrumentScan(step).scan(placesOf(QDir(QDir::cleanPath(gameRoot)), mods));
    return instruments.isEmpty() ? noInstruments() : instruments;
}
