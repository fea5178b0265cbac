#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QSet>

// The blocks of a legacy package: where block 0 begins and how long each is, in bytes. Not negative, and the size at
// least 10 (a marker, a count and the index of a continuation).
struct BlockLayout
{
    qint32 headerSize = 0;
    qint32 blockSize = 0;
};

// The blocks that one lookup has visited. Every block is fetched whole, in one read.
class BlockWalk
{
public:
    // The device must be open and outlive the walk.
    BlockWalk(QIODevice &file, BlockLayout layout) : file_(&file), fileSize_(file.size()), layout_(layout) {}

    // The bytes of a block: fewer than the block size at the end of the file, none beyond it.
    QByteArray block(qint32 index) const;

    // Throws when this walk has been at the block before, as no sound package leads it there.
    void visit(qint32 index);

    qint32 blockSize() const { return layout_.blockSize; }

private:
    QIODevice *file_;
    qint64 fileSize_;
    BlockLayout layout_;
    QSet<qint32> visited_;
};

// A leaf and the blocks on which it continues, read as one stream. The last four bytes of each block, the index of the
// next, are no part of it. Every failure is a thrown QString.
class LeafStream
{
public:
    // `block` begins with the leaf's marker, which the stream starts after.
    LeafStream(BlockWalk &walk, QByteArray block);

    // The number of entries, which the first block must hold. Comes before everything else.
    qint32 entryCount();

    QByteArray read(quint64 count);
    void skip(quint64 count);
    quint64 variableLength();

private:
    int available() const;
    void nextBlock(const QString &wrongMarker);
    quint8 byte();
    template<typename Take>
    void walk(quint64 count, const QString &wrongMarker, Take take);

    BlockWalk *walk_;
    QByteArray block_;
    int position_ = 2;
};
