#include "assets/package/KVAssetPakReader.h"

#include "assets/package/MetadataReader.h"

#include <QFile>
#include <QtEndian>

#include <limits>

namespace {
// Comparisons that cannot overflow, whatever the two numbers are.
bool liesWithin(const FileEntry &entry, qint64 packageSize)
{
    return entry.offset >= 0 && entry.size >= 0 && entry.offset <= packageSize &&
           entry.size <= packageSize - entry.offset && entry.size < std::numeric_limits<qint32>::max();
}
} // namespace

KVAssetPakReader::KVAssetPakReader(const QString &packagePath) : KVAssetPakReader(std::make_unique<QFile>(packagePath))
{
}

KVAssetPakReader::KVAssetPakReader(std::unique_ptr<QIODevice> package) : file_(std::move(package)) {}

void KVAssetPakReader::open()
{
    openReadOnly(*file_);
    if (loaded_)
        return;
    try {
        readIndex();
    } catch (const QString &) {
        file_->close();
        throw;
    }
    loaded_ = true;
}

void KVAssetPakReader::close()
{
    file_->close();
}

QByteArray KVAssetPakReader::getFile(const QString &path)
{
    const auto entry = files_.find(path);
    if (!entry)
        throw QStringLiteral("File not found");
    open();
    if (!liesWithin(*entry, file_->size()))
        throw QStringLiteral("File entry lies outside of the package.");
    file_->seek(entry->offset);
    auto bytes = file_->read(entry->size);
    if (bytes.size() != entry->size)
        throw QStringLiteral("Could not read the whole file.");
    return bytes;
}

bool KVAssetPakReader::hasFile(const QString &path)
{
    return files_.find(path).has_value();
}

QStringList KVAssetPakReader::fileList()
{
    return files_.paths();
}

void KVAssetPakReader::readIndex()
{
    seekToIndex();
    if (file_->read(5) != "INDEX")
        throw QStringLiteral("Invalid INDEX header.");
    ByteReader in(*file_);
    metadata_ = readMetadata(in);
    files_ = FileTable::read(in);
}

void KVAssetPakReader::seekToIndex()
{
    file_->seek(0);
    const auto header = file_->read(16);
    if (!header.startsWith("KVAsset6"))
        throw QStringLiteral("Invalid Asset File Header.");
    const auto offset = header.size() < 16 ? 0 : qFromBigEndian<qint64>(header.constData() + 8);
    if (offset < 0 || !file_->seek(offset))
        throw QStringLiteral("Could not seek to .pak root");
}
