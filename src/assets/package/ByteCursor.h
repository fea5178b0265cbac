#pragma once

#include <QByteArray>
#include <QIODevice>

#include <string_view>

// Reads the numbers and strings of a package index: big-endian, with variable-length unsigned integers. A read that
// needs more bytes than there are yields zero or an empty string, as does every read after it, and ended() tells.
// No length that the bytes claim is ever allocated before that many bytes were seen.
class ByteCursor
{
public:
    // At most this many bytes are taken from a device; positions then fit 31 bits.
    static constexpr qint64 maxSize = (qint64(1) << 31) - 64;

    explicit ByteCursor(QByteArray bytes);

    // Starts at the device's position and fetches from it as the reads go on, at most to the end that it has now.
    // The device must outlive the reads.
    explicit ByteCursor(QIODevice &device);

    bool ended() const { return ended_; }
    qint64 position() const { return position_; }

    quint8 byte();
    qint64 int64();
    double float64();

    // Most significant group first; the top bit of a byte says that another follows. Bits beyond 64 are lost.
    quint64 vlq();

    // The view is valid until the next read.
    std::string_view bytes(quint64 count);

    // A string preceded by its length, under the same terms.
    std::string_view string() { return bytes(vlq()); }

    // Everything from the start to the current position. Nothing can be read afterwards.
    QByteArray takeRead();

private:
    bool require(quint64 count);
    void fetch(qint64 wanted);

    QByteArray buffer_;
    QIODevice *device_ = nullptr;
    qint64 unfetched_ = 0;
    qint64 position_ = 0;
    bool ended_ = false;
};
