#pragma once

#include <QByteArray>
#include <QIODevice>

#include <bit>
#include <concepts>
#include <string_view>

// A number of seven bits a byte, the most significant first; the top bit of a byte says that another follows (SMF 1.0
// calls it a variable-length quantity). `nextByte` gives the bytes and must end with one below 0x80. Bits beyond 64 are
// lost.
template<typename NextByte>
quint64 decodeVariableLength(NextByte nextByte)
{
    quint64 value = 0;
    for (;;) {
        const quint8 group = nextByte();
        value = (value << 7) | (group & 0x7FU);
        if ((group & 0x80U) == 0)
            return value;
    }
}

// Reads numbers and bytes one after another, from memory or from a device. Nothing that is read can lie beyond the end:
// what is missing of a number reads as zero, ended() tells so from then on, and everything after it is zero or empty.
// No length that the bytes claim is ever allocated before that many bytes were seen.
class ByteReader
{
public:
    // At most this many bytes are taken from a device; positions then fit 31 bits.
    static constexpr qint64 maxSize = (qint64(1) << 31) - 64;

    explicit ByteReader(QByteArray bytes);

    // Starts at the device's position and fetches from it as the reads go on, at most to the end that it has now.
    // The device must outlive the reads.
    explicit ByteReader(QIODevice &device);

    ByteReader(const ByteReader &) = delete;
    ByteReader &operator=(const ByteReader &) = delete;

    bool atEnd() const { return at_ == end_ && unfetched_ == 0; }
    bool ended() const { return ended_; } // something was read that is not there
    qint64 position() const { return at_ - buffer_.constData(); }
    quint64 left() const { return quint64(end_ - at_) + quint64(unfetched_); }

    quint8 u8()
    {
        if (at_ == end_ && !fetch(1)) [[unlikely]]
            return 0;
        return quint8(*at_++);
    }

    quint8 peek() { return at_ != end_ || fetch(1) ? quint8(*at_) : quint8(0); } // the next byte, which stays

    // Most significant byte first.
    quint16 u16() { return quint16(bigEndian<quint32>(2)); }
    quint32 u24() { return bigEndian<quint32>(3); }
    quint32 u32() { return bigEndian<quint32>(4); }
    quint64 u64() { return bigEndian<quint64>(8); }
    double float64() { return std::bit_cast<double>(u64()); } // IEEE 754

    // Least significant byte first.
    quint16 littleU16() { return quint16(littleEndian<quint32>(2)); }
    quint32 littleU32() { return littleEndian<quint32>(4); }

    quint64 variableLength()
    {
        return decodeVariableLength([this] { return u8(); });
    }

    // Nothing when there are fewer. The view is valid until the next read.
    std::string_view bytes(quint64 count);

    // Bytes preceded by their number, of variable length, under the same terms.
    std::string_view string() { return bytes(variableLength()); }

    void skip(quint64 count)
    {
        if (count <= quint64(end_ - at_)) [[likely]]
            at_ += count;
        else
            bytes(count);
    }

    // Everything from the start to the current position. Nothing can be read afterwards.
    QByteArray takeRead();

private:
    bool fetch(quint64 count);
    void fetchFromDevice(qint64 wanted);
    void end();

    template<std::unsigned_integral Number>
    Number bigEndian(int size)
    {
        Number value = 0;
        while (size-- > 0)
            value = (value << 8) | u8();
        return value;
    }

    template<std::unsigned_integral Number>
    Number littleEndian(int size)
    {
        Number value = 0;
        for (int i = 0; i < size; ++i)
            value |= Number(u8()) << (8 * i);
        return value;
    }

    QByteArray buffer_;
    const char *at_;
    const char *end_;
    QIODevice *device_ = nullptr;
    qint64 unfetched_ = 0;
    bool ended_ = false;
};
