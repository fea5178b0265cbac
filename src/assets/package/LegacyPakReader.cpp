#include "assets/package/LegacyPakReader.h"

#include "base/ByteReader.h"

#include <QCryptographicHash>
#include <QFile>
#include <QtEndian>

#include <cstring>
#include <utility>

namespace {
constexpr int headerLength = 75;
constexpr int keyLength = 32;
constexpr qint32 smallestBlock = 10;

qint32 int32At(const QByteArray &bytes, int position)
{
    return qFromBigEndian<qint32>(bytes.constData() + position);
}

// Identifiers fill 12 bytes and end at their first NUL.
QByteArray identifierAt(const QByteArray &header, int position)
{
    const auto field = header.mid(position, 12);
    const auto end = field.indexOf('\0');
    return end < 0 ? field : field.left(end);
}

int contentVersionOf(const QByteArray &identifier)
{
    if (identifier == "Assets1")
        return 0;
    if (identifier == "Assets2")
        return 1;
    throw QStringLiteral("Invalid Database Content Identifier.");
}

BlockLayout checked(BlockLayout layout)
{
    if (layout.headerSize < 0)
        throw QStringLiteral("Invalid header size.");
    if (layout.blockSize < smallestBlock)
        throw QStringLiteral("Invalid block size.");
    return layout;
}

// Index block: marker, level (1 byte), key count, first child, then pairs of a key and the child for it and all above.
qint32 childFor(const QByteArray &key, const QByteArray &block)
{
    constexpr int countAt = 3;
    constexpr int firstChildAt = 7;
    constexpr int pairsAt = 11;
    constexpr int pairLength = keyLength + 4;
    const auto count = block.size() < pairsAt ? -1 : int32At(block, countAt);
    if (count < 0 || count > (block.size() - pairsAt) / pairLength)
        throw QStringLiteral("Invalid index block key count.");
    auto child = int32At(block, firstChildAt);
    for (int pair = pairsAt; pair < pairsAt + count * pairLength; pair += pairLength) {
        if (std::memcmp(key.constData(), block.constData() + pair, keyLength) < 0)
            break;
        child = int32At(block, pair + keyLength);
    }
    return child;
}

QByteArray descend(BlockWalk &walk, const QByteArray &key, qint32 index)
{
    auto block = walk.block(index);
    walk.visit(index);
    while (block.startsWith("II")) {
        index = childFor(key, block);
        if (index < 0)
            throw QStringLiteral("Invalid block referred to by index");
        block = walk.block(index);
        walk.visit(index);
    }
    if (!block.startsWith("LL"))
        throw QStringLiteral("Unknown block type found.");
    return block;
}

// Leaves the stream at the value's length when it returns true.
bool findInLeaf(LeafStream &stream, const QByteArray &key)
{
    const auto count = stream.entryCount();
    for (qint32 i = 0; i < count; ++i) {
        if (stream.read(keyLength) == key)
            return true;
        stream.skip(stream.variableLength());
    }
    return false;
}

QByteArray keyOf(const QString &path)
{
    return QCryptographicHash::hash(path.toUtf8(), QCryptographicHash::Sha256);
}
} // namespace

LegacyPakReader::LegacyPakReader(const QString &packagePath) : LegacyPakReader(std::make_unique<QFile>(packagePath)) {}

LegacyPakReader::LegacyPakReader(std::unique_ptr<QIODevice> package) : file_(std::move(package)) {}

void LegacyPakReader::open()
{
    openReadOnly(*file_);
    try {
        header_ = readHeader(*file_);
    } catch (const QString &) {
        file_->close();
        throw;
    }
}

void LegacyPakReader::close()
{
    file_->close();
}

QByteArray LegacyPakReader::getFile(const QString &path)
{
    if (auto bytes = value(path))
        return *std::move(bytes);
    throw QStringLiteral("File not found");
}

bool LegacyPakReader::hasFile(const QString &path)
{
    ensureOpen();
    BlockWalk walk(*file_, header_.layout);
    const auto key = keyOf(path);
    LeafStream stream(walk, descend(walk, key, header_.rootBlock));
    return findInLeaf(stream, key);
}

QStringList LegacyPakReader::fileList()
{
    auto table = value(QStringLiteral("_index"));
    if (!table)
        throw QStringLiteral("File table not found");
    ByteReader in(*std::move(table));
    in.variableLength();
    const auto count = in.variableLength();
    QStringList paths;
    for (quint64 i = 0; i < count; ++i) {
        const auto raw = in.string();
        const auto path = QString::fromUtf8(raw.data(), int(raw.size()));
        if (header_.contentVersion == 1)
            in.string();
        if (in.ended())
            break;
        paths.append(path);
    }
    return paths;
}

LegacyPakReader::Header LegacyPakReader::readHeader(QIODevice &file)
{
    file.seek(0);
    const auto bytes = file.read(headerLength).leftJustified(headerLength, '\0');
    if (!bytes.startsWith("KVBF02") && !bytes.startsWith("KVBF03"))
        throw QStringLiteral("Invalid Block File Header.");
    if (identifierAt(bytes, 32) != "BTreeDB4")
        throw QStringLiteral("Invalid Database File Identifier.");
    Header header;
    header.contentVersion = contentVersionOf(identifierAt(bytes, 44));
    header.keySize = int32At(bytes, 56);
    if (header.keySize != keyLength)
        throw QStringLiteral("Invalid Database Key Size.");
    header.layout = checked({int32At(bytes, 6), int32At(bytes, 10)});
    const int root = bytes.at(60) == 0 ? 62 : 70;
    header.rootBlock = int32At(bytes, root);
    header.rootIsLeaf = bytes.at(root + 4) != 0;
    return header;
}

void LegacyPakReader::ensureOpen()
{
    if (!file_->isOpen())
        open();
}

std::optional<QByteArray> LegacyPakReader::value(const QString &path)
{
    ensureOpen();
    BlockWalk walk(*file_, header_.layout);
    const auto key = keyOf(path);
    LeafStream stream(walk, descend(walk, key, header_.rootBlock));
    if (!findInLeaf(stream, key))
        return std::nullopt;
    return stream.read(stream.variableLength());
}
