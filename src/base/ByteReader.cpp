#include "base/ByteReader.h"

#include <algorithm>
#include <utility>

namespace {
using Size = decltype(QByteArray().size());

constexpr qint64 firstFetch = qint64(1) << 20;
} // namespace

ByteReader::ByteReader(QByteArray bytes)
    : buffer_(std::move(bytes)), at_(buffer_.constData()), end_(at_ + buffer_.size())
{
}

ByteReader::ByteReader(QIODevice &device)
    : at_(buffer_.constData()), end_(at_), device_(&device),
      unfetched_(std::clamp<qint64>(device.size() - device.pos(), 0, maxSize))
{
}

std::string_view ByteReader::bytes(quint64 count)
{
    if (count > quint64(end_ - at_) && !fetch(count))
        return {};
    const std::string_view view(at_, size_t(count));
    at_ += count;
    return view;
}

QByteArray ByteReader::takeRead()
{
    buffer_.truncate(Size(position()));
    buffer_.squeeze();
    auto read = std::exchange(buffer_, {});
    at_ = buffer_.constData();
    end();
    return read;
}

// Whether `count` bytes are there afterwards.
bool ByteReader::fetch(quint64 count)
{
    if (count <= left())
        fetchFromDevice(qint64(count) - (end_ - at_));
    if (count <= quint64(end_ - at_))
        return true;
    end();
    return false;
}

void ByteReader::end()
{
    ended_ = true;
    end_ = at_;
    unfetched_ = 0;
}

// What is read first may be followed by gigabytes that nobody asks for, so the buffer doubles instead of taking all at
// once.
void ByteReader::fetchFromDevice(qint64 wanted)
{
    const auto position = this->position();
    const qint64 old = buffer_.size();
    const qint64 count = std::min(unfetched_, std::max({wanted, old, firstFetch}));
    buffer_.reserve(Size(old + count));
    buffer_.resize(Size(old + count));
    const qint64 got = std::max<qint64>(0, device_->read(buffer_.data() + old, count));
    buffer_.truncate(Size(old + got));
    unfetched_ = got == count ? unfetched_ - count : 0;
    at_ = buffer_.constData() + position;
    end_ = buffer_.constData() + buffer_.size();
}
