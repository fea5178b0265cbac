#include "packages/LegacyPackage.h"

#include "packages/ByteWriter.h"

#include <QCryptographicHash>

#include <algorithm>
#include <vector>

namespace {

constexpr int headerSize = 512;
constexpr int blockSize = 2048;
constexpr int entriesInLeaf = 3;
constexpr int childrenOfIndex = 5;
constexpr int streamBytesInBlock = blockSize - 2 - 4; // less the marker and the index of the block that goes on

using Entries = std::map<QByteArray, QByteArray>; // by their keys

QByteArray digest(const QByteArray &bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256);
}

struct Node
{
    QByteArray lowestKey;
    qint32 block;
};

class BlockFile
{
public:
    qint32 addLeaf(const QByteArray &stream)
    {
        // From its end to its start, since each block names the one that goes on.
        qint32 next = -1;
        const auto blocks = (stream.size() + streamBytesInBlock - 1) / streamBytesInBlock;
        for (auto i = blocks - 1; i >= 0; --i) {
            auto block = QByteArray("LL") + stream.mid(i * streamBytesInBlock, streamBytesInBlock);
            block = block.leftJustified(blockSize - 4, '\0');
            putNumber(block, next);
            next = add(block);
        }
        return next;
    }

    qint32 addIndex(quint8 level, const std::vector<Node> &children)
    {
        QByteArray block("II");
        putNumber(block, level);
        putNumber(block, qint32(children.size()) - 1);
        putNumber(block, children.front().block);
        std::for_each(children.begin() + 1, children.end(), [&block](const Node &child) {
            block.append(child.lowestKey);
            putNumber(block, child.block);
        });
        return add(block);
    }

    const QByteArray &bytes() const { return bytes_; }

private:
    qint32 add(const QByteArray &block)
    {
        bytes_.append(block.leftJustified(blockSize, '\0'));
        return qint32(bytes_.size() / blockSize - 1);
    }

    QByteArray bytes_;
};

// The paths, each with a field of its own that readers skip; here the digest of the contents.
QByteArray fileTable(const Files &files)
{
    QByteArray table;
    putLength(table, 1);
    putLength(table, files.size());
    for (const auto &[path, contents] : files) {
        putString(table, path.toUtf8());
        putString(table, digest(contents));
    }
    return table;
}

Entries entriesOf(const Files &files)
{
    Entries entries{{digest("_index"), fileTable(files)}};
    for (const auto &[path, contents] : files)
        entries.emplace(digest(path.toUtf8()), contents);
    return entries;
}

std::vector<Node> writeLeaves(BlockFile &blocks, const Entries &entries)
{
    std::vector<Node> leaves;
    for (auto entry = entries.begin(); entry != entries.end();) {
        const auto &lowestKey = entry->first;
        QByteArray stream;
        qint32 count = 0;
        for (; entry != entries.end() && count < entriesInLeaf; ++entry, ++count) {
            stream.append(entry->first);
            putString(stream, entry->second);
        }
        QByteArray counted;
        putNumber(counted, count);
        leaves.push_back({lowestKey, blocks.addLeaf(counted + stream)});
    }
    return leaves;
}

Node writeTree(BlockFile &blocks, std::vector<Node> nodes)
{
    for (quint8 level = 0; nodes.size() > 1; ++level) {
        std::vector<Node> parents;
        for (auto first = nodes.begin(); first != nodes.end();) {
            const auto last = first + std::min<std::ptrdiff_t>(childrenOfIndex, nodes.end() - first);
            parents.push_back({first->lowestKey, blocks.addIndex(level, {first, last})});
            first = last;
        }
        nodes = std::move(parents);
    }
    return nodes.front();
}

QByteArray header(qint32 root, bool rootIsLeaf)
{
    QByteArray bytes("KVBF03");
    putNumber<qint32>(bytes, headerSize);
    putNumber<qint32>(bytes, blockSize);
    bytes = bytes.leftJustified(32, '\0');
    bytes.append(QByteArray("BTreeDB4").leftJustified(12, '\0'));
    bytes.append(QByteArray("Assets2").leftJustified(12, '\0'));
    putNumber<qint32>(bytes, 32); // key size
    putNumber<quint8>(bytes, 1);  // the second of the two root records holds
    bytes = bytes.leftJustified(70, '\0');
    putNumber(bytes, root);
    putNumber<quint8>(bytes, rootIsLeaf);
    return bytes.leftJustified(headerSize, '\0');
}

} // namespace

QByteArray legacyPackage(const Files &files)
{
    BlockFile blocks;
    const auto leaves = writeLeaves(blocks, entriesOf(files));
    const auto root = writeTree(blocks, leaves);
    return header(root.block, leaves.size() == 1) + blocks.bytes();
}
