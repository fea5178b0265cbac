#include "assets/PackageWriter.h"

#include <QCryptographicHash>
#include <QtEndian>

#include <algorithm>

namespace {
template<typename Integer>
QByteArray bigEndian(Integer value)
{
    QByteArray bytes(int(sizeof value), '\0');
    qToBigEndian(value, bytes.data());
    return bytes;
}

QByteArray keyOf(const QString &path)
{
    return QCryptographicHash::hash(path.toUtf8(), QCryptographicHash::Sha256);
}

QByteArray fileTable(const LegacyPackage &package)
{
    QByteArray table = vlq(0) + vlq(package.files.size());
    for (const auto &[path, contents] : package.files) {
        table += prefixed(path.toUtf8());
        if (package.content == "Assets2")
            table += prefixed("digest");
    }
    return table;
}

using Entry = std::pair<QByteArray, QByteArray>; // key and value
struct Child
{
    QByteArray firstKey;
    qint32 block;
};

class TreeWriter
{
public:
    explicit TreeWriter(const LegacyPackage &package) : package_(package) {}

    // The index of the root block.
    qint32 write(const std::vector<Entry> &entries)
    {
        auto level = leaves(entries);
        while (level.size() > 1)
            level = indexesOver(level);
        return level.front().block;
    }

    QByteArray blocks;

private:
    std::vector<Child> leaves(const std::vector<Entry> &entries)
    {
        std::vector<Child> written;
        const auto perLeaf = size_t(package_.entriesPerLeaf);
        for (size_t first = 0; first < std::max<size_t>(1, entries.size()); first += perLeaf) {
            const auto end = std::min(entries.size(), first + perLeaf);
            QByteArray stream = int32(qint32(end - first));
            for (size_t i = first; i < end; ++i)
                stream += entries[i].first + prefixed(entries[i].second);
            const auto block = writeLeaf(stream);
            written.push_back({entries.empty() ? QByteArray() : entries[first].first, block});
        }
        return written;
    }

    qint32 writeLeaf(const QByteArray &stream)
    {
        const int room = package_.blockSize - 6;
        const auto first = count();
        for (int at = 0; at < stream.size() || at == 0; at += room) {
            const auto next = at + room < stream.size() ? count() + 1 : -1;
            blocks += "LL" + stream.mid(at, room).leftJustified(room, '\x5A') + int32(next);
        }
        return first;
    }

    std::vector<Child> indexesOver(const std::vector<Child> &children)
    {
        std::vector<Child> written;
        const auto fanOut = size_t(std::min(package_.fanOut, (package_.blockSize - 11) / 36 + 1));
        for (size_t first = 0; first < children.size(); first += fanOut) {
            const auto end = std::min(children.size(), first + fanOut);
            QByteArray block =
                "II" + QByteArray(1, '\1') + int32(qint32(end - first - 1)) + int32(children[first].block);
            for (size_t i = first + 1; i < end; ++i)
                block += children[i].firstKey + int32(children[i].block);
            written.push_back({children[first].firstKey, count()});
            blocks += block.leftJustified(package_.blockSize, '\x5A');
        }
        return written;
    }

    qint32 count() const { return qint32(blocks.size() / package_.blockSize); }

    const LegacyPackage &package_;
};

QByteArray legacyHeader(const LegacyPackage &package, qint32 root)
{
    const auto record = int32(root) + '\1';
    const auto unused = QByteArray("\x7F\x7F\x7F\x7F\0", 5);
    QByteArray header = package.magic + int32(package.headerSize) + int32(package.blockSize) + QByteArray(18, '\x11');
    header += package.database.leftJustified(12, '\0') + package.content.leftJustified(12, '\0');
    header += int32(package.keySize) + char(package.secondRoot) + '\0';
    header += (package.secondRoot ? unused : record) + QByteArray(3, '\0') + (package.secondRoot ? record : unused);
    return header.leftJustified(package.headerSize, '\0');
}
} // namespace

QByteArray vlq(quint64 value)
{
    QByteArray bytes(1, char(value & 0x7F));
    for (value >>= 7; value != 0; value >>= 7)
        bytes.prepend(char(0x80 | (value & 0x7F)));
    return bytes;
}

QByteArray prefixed(const QByteArray &text)
{
    return vlq(quint64(text.size())) + text;
}

QByteArray int32(qint32 value)
{
    return bigEndian(value);
}

QByteArray int64(qint64 value)
{
    return bigEndian(value);
}

CurrentPackage::CurrentPackage(const NamedFiles &files)
{
    for (const auto &[path, contents] : files)
        add(path.toUtf8(), contents);
}

void CurrentPackage::add(const QByteArray &path, const QByteArray &contents)
{
    addEntry(path, data.size(), contents.size());
    data += contents;
}

void CurrentPackage::addEntry(const QByteArray &path, qint64 offset, qint64 size)
{
    entries += prefixed(path) + int64(offset) + int64(size);
    ++entryCount;
}

void CurrentPackage::addMetadata(const QByteArray &key, const QByteArray &typeAndPayload)
{
    metadata += prefixed(key) + typeAndPayload;
    ++metadataCount;
}

QByteArray CurrentPackage::index() const
{
    return vlq(metadataCount) + metadata + vlq(entryCount) + entries;
}

QByteArray CurrentPackage::bytes() const
{
    auto whole = data + "INDEX" + index();
    return whole.replace(8, 8, int64(data.size()));
}

QByteArray LegacyPackage::bytes() const
{
    std::vector<Entry> entries;
    for (const auto &[path, contents] : files)
        entries.emplace_back(keyOf(path), contents);
    if (withTable)
        entries.emplace_back(keyOf(QStringLiteral("_index")), fileTable(*this));
    std::sort(entries.begin(), entries.end());
    TreeWriter tree(*this);
    const auto root = tree.write(entries);
    return legacyHeader(*this, root) + tree.blocks;
}

QByteArray legacyOf(const std::vector<QByteArray> &blocks, qint32 blockSize)
{
    LegacyPackage package;
    package.blockSize = blockSize;
    auto bytes = legacyHeader(package, 0);
    for (const auto &block : blocks)
        bytes += block.leftJustified(blockSize, '\0', true);
    return bytes;
}
