#include "assets/package/PackageRegistry.h"

#include "assets/package/KVAssetPakReader.h"
#include "assets/package/LegacyPakReader.h"
#include "assets/package/Logging.h"

#include <QFile>
#include <QFileInfo>
#include <QHash>

namespace {
using SharedReader = std::shared_ptr<PakReader>;

struct Registry
{
    std::mutex mutex;
    QHash<QString, SharedReader> readers;
};

Registry &registry()
{
    static Registry instance;
    return instance;
}

const QString &pakScheme()
{
    static const auto scheme = QStringLiteral("pak://");
    return scheme;
}

// Null, and a line in `refusals`, when the package is not of the reader's format.
template<typename Reader>
SharedReader opened(const QString &packagePath, QStringList &refusals)
{
    try {
        auto reader = std::make_shared<Reader>(packagePath);
        reader->open();
        return reader;
    } catch (const QString &message) {
        refusals.append(message);
        return nullptr;
    }
}

// Opening a pipe would wait for its other end.
bool isFile(const QString &path)
{
    return QFileInfo(path).isFile();
}

SharedReader opened(const QString &packagePath)
{
    QStringList refusals;
    SharedReader reader;
    if (isFile(packagePath))
        reader = opened<KVAssetPakReader>(packagePath, refusals);
    if (isFile(packagePath) && !reader)
        reader = opened<LegacyPakReader>(packagePath, refusals);
    if (reader)
        return reader;
    qCDebug(assetsLog).noquote() << QStringLiteral("%1: %2").arg(packagePath, refusals.join(QLatin1Char(' ')));
    throw QStringLiteral("Could not find compatible pak reader.");
}

// The registry's mutex must be held.
PakReader *cachedReader(const QString &packagePath)
{
    auto &readers = registry().readers;
    if (const auto known = readers.constFind(packagePath); known != readers.constEnd())
        return known->get();
    return readers.insert(packagePath, opened(packagePath))->get();
}

QByteArray readPakFile(const QString &name)
{
    const auto separator = name.indexOf(QLatin1String("::"), pakScheme().size());
    if (separator < 0)
        throw QStringLiteral("Invalid pak:// filename");
    const auto packagePath = name.mid(pakScheme().size(), separator - pakScheme().size());
    return OpenPackage(packagePath)->getFile(name.mid(separator + 2));
}

QByteArray readPlainFile(const QString &path)
{
    QFile file(path);
    if (!isFile(path) || !file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        throw QStringLiteral("Could not open file.");
    return file.readAll();
}
} // namespace

OpenPackage::OpenPackage(const QString &packagePath) : lock_(registry().mutex), reader_(cachedReader(packagePath)) {}

OpenPackage::~OpenPackage()
{
    reader_->close();
}

QString pakFileName(const QString &packagePath, const QString &innerPath)
{
    return QStringLiteral("pak://%1::%2").arg(packagePath, innerPath);
}

QByteArray readGameFile(const QString &fileName)
{
    return fileName.startsWith(pakScheme()) ? readPakFile(fileName) : readPlainFile(fileName);
}
