#include "assets/PackageWriter.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QImage>

#include <algorithm>
#include <map>

namespace {
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

using Entries = std::map<QByteArray, QByteArray>;            // values by their keys
using Children = std::vector<std::pair<QByteArray, qint32>>; // first key and block of each

class TreeWriter
{
public:
    explicit TreeWriter(const LegacyPackage &package) : package_(package) {}

    // The index of the root block.
    qint32 write(const Entries &entries)
    {
        auto level = leaves(entries);
        while (level.size() > 1)
            level = indexesOver(level);
        return level.front().second;
    }

    QByteArray blocks;

private:
    Children leaves(const Entries &entries)
    {
        Children written;
        auto entry = entries.begin();
        do {
            const auto firstKey = entry == entries.end() ? QByteArray() : entry->first;
            QByteArray stream;
            qint32 entriesHere = 0;
            for (; entry != entries.end() && entriesHere < package_.entriesPerLeaf; ++entry, ++entriesHere)
                stream += entry->first + prefixed(entry->second);
            written.emplace_back(firstKey, writeLeaf(int32(entriesHere) + stream));
        } while (entry != entries.end());
        return written;
    }

    qint32 writeLeaf(const QByteArray &stream)
    {
        const int room = package_.blockSize - 6;
        const auto first = count();
        for (int at = 0; at < stream.size(); at += room) {
            const auto next = at + room < stream.size() ? count() + 1 : -1;
            blocks += "LL" + stream.mid(at, room).leftJustified(room, '\x5A') + int32(next);
        }
        return first;
    }

    Children indexesOver(const Children &children)
    {
        Children written;
        const auto fanOut = size_t(std::min(package_.fanOut, (package_.blockSize - 11) / 36 + 1));
        for (size_t first = 0; first < children.size(); first += fanOut) {
            const auto end = std::min(children.size(), first + fanOut);
            auto block = "II" + QByteArray(1, '\1') + int32(qint32(end - first - 1)) + int32(children[first].second);
            for (size_t i = first + 1; i < end; ++i)
                block += children[i].first + int32(children[i].second);
            written.emplace_back(children[first].first, count());
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

QByteArray keyOf(const Text &path)
{
    return QCryptographicHash::hash(path.toUtf8(), QCryptographicHash::Sha256);
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
    Entries entries;
    for (const auto &[path, contents] : files)
        entries.emplace(keyOf(path), contents);
    if (withTable)
        entries.emplace(keyOf("_index"), fileTable(*this));
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

QByteArray picture(int width, int height, const char *format)
{
    QBuffer buffer;
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    image.save(&buffer, format);
    return buffer.data();
}

QByteArray instrumentItem(const QByteArray &name, const QByteArray &kind)
{
    return "{ // an item\n\"shortdescription\": \"" + name + "\", \"kind\": \"" + kind +
           "\", \"inventoryIcon\": \"icon.png\"}";
}

NamedFiles instrumentFiles(const Text &root, const QByteArray &name, const QByteArray &kind)
{
    const auto path = [&root](const char *place, const QByteArray &part) {
        return root + QString::fromLatin1(QByteArray(place).replace("%1", part));
    };
    return {{path("/items/instruments/%1.instrument", name), instrumentItem(name, kind)},
            {path("/items/instruments/icon.png", {}), picture(16, 8)},
            {path("/sfx/instruments/%1/tuning.config", kind),
             R"({"fadeout": 0.5, "mapping": {"60": {"file": "/$instrument$ c.ogg", "f": 261.6}}})"}};
}
