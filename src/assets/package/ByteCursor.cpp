#include "assets/package/ByteCursor.h"

#include <QtEndian>

#include <algorithm>
#include <cstring>
#include <utility>

namespace {
using Size = decltype(QByteArray().size());

constexpr qint64 firstFetch = qint64(1) << 20;
} // namespace

ByteCursor::ByteCursor(QByteArray bytes) : buffer_(std::move(bytes)) {}

ByteCursor::ByteCursor(QIODevice &device)
    : device_(&device), unfetched_(std::clamp<qint64>(device.size() - device.pos(), 0, maxSize))
{
}

quint8 ByteCursor::byte()
{
    if (!require(1))
        return 0;
    return quint8(buffer_.constData()[position_++]);
}

qint64 ByteCursor::int64()
{
    const auto raw = bytes(sizeof(qint64));
    return raw.empty() ? 0 : qFromBigEndian<qint64>(raw.data());
}

double ByteCursor::float64()
{
    const qint64 bits = int64();
    double value = 0;
    static_assert(sizeof value == sizeof bits);
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

quint64 ByteCursor::vlq()
{
    quint64 value = 0;
    for (;;) {
        const quint8 group = byte();
        value |= group & 0x7F;
        if ((group & 0x80) == 0)
            return ended_ ? 0 : value;
        value <<= 7;
    }
}

std::string_view ByteCursor::bytes(quint64 count)
{
    if (!require(count))
        return {};
    const std::string_view view(buffer_.constData() + position_, size_t(count));
    position_ += qint64(count);
    return view;
}

QByteArray ByteCursor::takeRead()
{
    buffer_.truncate(Size(std::exchange(position_, 0)));
    buffer_.squeeze();
    unfetched_ = 0;
    ended_ = true;
    return std::exchange(buffer_, {});
}

bool ByteCursor::require(quint64 count)
{
    const qint64 here = buffer_.size() - position_;
    if (!ended_ && count > quint64(here) && count - quint64(here) <= quint64(unfetched_))
        fetch(qint64(count) - here);
    ended_ = ended_ || count > quint64(buffer_.size() - position_);
    return !ended_;
}

// The index may be followed by gigabytes of file data, so the buffer doubles instead of taking all at once.
void ByteCursor::fetch(qint64 wanted)
{
    const qint64 old = buffer_.size();
    const qint64 count = std::min(unfetched_, std::max({wanted, old, firstFetch}));
    buffer_.reserve(Size(old + count));
    buffer_.resize(Size(old + count));
    const qint64 got = std::max<qint64>(0, device_->read(buffer_.data() + old, count));
    buffer_.truncate(Size(old + got));
    unfetched_ = got == count ? unfetched_ - count : 0;
}
