#include "assets/package/LeafStream.h"

#include "base/ByteReader.h"

#include <QtEndian>

#include <algorithm>
#include <utility>

namespace {
constexpr int continuationSize = 4;
constexpr qint32 noContinuation = -1;
} // namespace

QByteArray BlockWalk::block(qint32 index) const
{
    const qint64 start = layout_.headerSize + qint64(index) * layout_.blockSize;
    const qint64 present = std::min<qint64>(fileSize_ - start, layout_.blockSize);
    if (index < 0 || present <= 0 || !file_->seek(start))
        return {};
    return file_->read(present);
}

void BlockWalk::visit(qint32 index)
{
    const auto before = visited_.size();
    visited_.insert(index);
    if (visited_.size() == before)
        throw QStringLiteral("Block %1 is reached twice.").arg(index);
}

LeafStream::LeafStream(BlockWalk &walk, QByteArray block) : walk_(&walk), block_(std::move(block)) {}

qint32 LeafStream::entryCount()
{
    if (available() < int(sizeof(qint32)))
        throw QStringLiteral("Premature end of leaf block");
    const auto count = qFromBigEndian<qint32>(block_.constData() + position_);
    if (count < 0)
        throw QStringLiteral("Invalid leaf block entry count.");
    position_ += int(sizeof count);
    return count;
}

QByteArray LeafStream::read(quint64 count)
{
    QByteArray bytes;
    walk(count, QStringLiteral("Invalid leaf block continuation"), [&bytes](const char *data, int size) {
        if (bytes.size() > ByteReader::maxSize - size)
            throw QStringLiteral("A value in the package is too long.");
        bytes.append(data, size);
    });
    return bytes;
}

void LeafStream::skip(quint64 count)
{
    walk(count, QStringLiteral("Invalid Leaf block continuation block"), [](const char *, int) {});
}

quint64 LeafStream::variableLength()
{
    return decodeVariableLength([this] { return byte(); });
}

quint8 LeafStream::byte()
{
    while (available() == 0)
        nextBlock(QStringLiteral("Invlaid Leaf block continuation block"));
    return quint8(block_.at(position_++));
}

template<typename Take>
void LeafStream::walk(quint64 count, const QString &wrongMarker, Take take)
{
    for (;;) {
        const int size = int(std::min<quint64>(count, quint64(available())));
        take(block_.constData() + position_, size);
        position_ += size;
        count -= quint64(size);
        if (count == 0)
            return;
        nextBlock(wrongMarker);
    }
}

int LeafStream::available() const
{
    const int end = std::min<int>(int(block_.size()), walk_->blockSize() - continuationSize);
    return std::max(0, end - position_);
}

void LeafStream::nextBlock(const QString &wrongMarker)
{
    const int reserved = walk_->blockSize() - continuationSize;
    if (block_.size() < walk_->blockSize())
        throw QStringLiteral("Premature end of leaf block");
    const auto next = qFromBigEndian<qint32>(block_.constData() + reserved);
    if (next == noContinuation)
        throw QStringLiteral("Premature end of leaf block");
    if (next < 0)
        throw QStringLiteral("Invalid leaf block continuation index '%1'").arg(next);
    block_ = walk_->block(next);
    if (!block_.startsWith("LL"))
        throw wrongMarker;
    walk_->visit(next);
    position_ = 2;
}
