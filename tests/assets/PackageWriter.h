#pragma once

#include "support/Text.h"

#include <QtEndian>

#include <utility>
#include <vector>

// Writers of the two package formats for the tests. They share no code with the readers, so that a mistake in one
// cannot hide in the other.

using NamedFiles = std::vector<std::pair<Text, QByteArray>>;

QByteArray vlq(quint64 value);
QByteArray prefixed(const QByteArray &text); // its length, then the text
QByteArray keyOf(const Text &path);          // in the legacy format

template<typename Integer>
QByteArray bigEndian(Integer value)
{
    QByteArray bytes(int(sizeof value), '\0');
    qToBigEndian(value, bytes.data());
    return bytes;
}
constexpr auto int32 = bigEndian<qint32>;
constexpr auto int64 = bigEndian<qint64>;

// The current format, with each part open to damage.
struct CurrentPackage
{
    explicit CurrentPackage(const NamedFiles &files = {});

    void add(const QByteArray &path, const QByteArray &contents);
    void addEntry(const QByteArray &path, qint64 offset, qint64 size);
    void addMetadata(const QByteArray &key, const QByteArray &typeAndPayload);
    QByteArray index() const; // without its "INDEX"
    QByteArray bytes() const;

    QByteArray data = QByteArray("KVAsset6") + int64(0);
    QByteArray metadata;
    QByteArray entries;
    quint64 metadataCount = 0;
    quint64 entryCount = 0;
};

// The legacy format: a tree with `entriesPerLeaf` files a leaf and as many children an index block as fit or, when that
// is less, `fanOut`. The file table is added under its own name.
struct LegacyPackage
{
    NamedFiles files;
    QByteArray magic = "KVBF03";
    QByteArray database = "BTreeDB4";
    QByteArray content = "Assets2";
    qint32 keySize = 32;
    qint32 headerSize = 512;
    qint32 blockSize = 128;
    int entriesPerLeaf = 2;
    int fanOut = 2;
    bool secondRoot = false;
    bool withTable = true;

    QByteArray bytes() const;
};

// A legacy package of blocks given one by one (each filled up to the block size); block 0 is the root.
QByteArray legacyOf(const std::vector<QByteArray> &blocks, qint32 blockSize = 64);

// A picture of one colour, and an instrument's three files below `root`, named as in a package; its tuning maps 60 to
// "KIND c.ogg".
QByteArray picture(int width, int height, const char *format = "png");
QByteArray instrumentItem(const QByteArray &name, const QByteArray &kind = "lute");
NamedFiles instrumentFiles(const Text &root, const QByteArray &name, const QByteArray &kind = "lute");
