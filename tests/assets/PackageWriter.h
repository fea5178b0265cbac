#pragma once

#include <QByteArray>
#include <QString>

#include <utility>
#include <vector>

// Writers of the two package formats for the tests. They share no code with the readers, so that a mistake in one
// cannot hide in the other.

using NamedFiles = std::vector<std::pair<QString, QByteArray>>;

QByteArray vlq(quint64 value);
QByteArray prefixed(const QByteArray &text); // its length, then the text
QByteArray int32(qint32 value);              // both big-endian
QByteArray int64(qint64 value);

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
