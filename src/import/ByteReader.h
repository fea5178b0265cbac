#pragma once

#include <QByteArray>

#include <algorithm>

// Big-endian reads from bytes in memory. A read past the end gives zeros and moves to the end; it never fails. The
// bytes must outlive the reader.
class ByteReader
{
public:
    explicit ByteReader(const QByteArray &bytes) : at_(bytes.constData()), end_(at_ + bytes.size()) {}

    bool atEnd() const { return at_ == end_; }

    quint8 u8() { return atEnd() ? quint8(0) : quint8(*at_++); }
    quint16 u16() { return quint16(bigEndian(2)); }
    quint32 u24() { return bigEndian(3); }
    quint32 u32() { return bigEndian(4); }

    // Seven bits a byte, the most significant first; the top bit says that more follow.
    quint64 variableLength()
    {
        auto byte = u8();
        quint64 value = byte & 0x7FU;
        while ((byte & 0x80U) != 0) {
            byte = u8();
            value = (value << 7) | (byte & 0x7FU);
        }
        return value;
    }

    // The next byte, which stays.
    quint8 peek() const { return atEnd() ? quint8(0) : quint8(*at_); }

    void skip(quint64 count) { at_ += bounded(count); }

    QByteArray bytes(quint64 count)
    {
        const auto size = bounded(count);
        const QByteArray result(at_, int(size));
        at_ += size;
        return result;
    }

private:
    qint64 bounded(quint64 count) const { return qint64(std::min(count, quint64(end_ - at_))); }

    quint32 bigEndian(int count)
    {
        quint32 value = 0;
        while (count-- > 0)
            value = (value << 8) | u8();
        return value;
    }

    const char *at_;
    const char *end_;
};
