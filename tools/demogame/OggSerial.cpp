#include "OggSerial.h"

#include <QString>

#include <array>

namespace {

constexpr int serialAt = 14;
constexpr int checksumAt = 22;
constexpr int segmentCountAt = 26;
constexpr int segmentsAt = 27;

std::array<quint32, 256> checksumSteps()
{
    std::array<quint32, 256> steps{};
    for (quint32 byte = 0; byte < steps.size(); ++byte) {
        auto &step = steps[byte];
        step = byte << 24;
        for (int bit = 0; bit < 8; ++bit)
            step = (step << 1) ^ (step >> 31 ? 0x04C11DB7 : 0);
    }
    return steps;
}

quint32 checksum(const char *page, int size)
{
    static const auto steps = checksumSteps();
    quint32 sum = 0;
    for (int i = 0; i < size; ++i)
        sum = (sum << 8) ^ steps[(sum >> 24) ^ quint8(page[i])];
    return sum;
}

int pageSize(const QByteArray &ogg, int start)
{
    if (ogg.mid(start, 4) != "OggS" || ogg.size() - start < segmentsAt)
        throw QStringLiteral("An Ogg page was expected at byte %1.").arg(start);
    const int segments = quint8(ogg.at(start + segmentCountAt));
    int size = segmentsAt + segments;
    for (const auto length : ogg.mid(start + segmentsAt, segments))
        size += quint8(length);
    if (ogg.size() - start < size)
        throw QStringLiteral("The Ogg page at byte %1 is cut off.").arg(start);
    return size;
}

QByteArray littleEndian(quint32 value)
{
    QByteArray bytes;
    for (int shift = 0; shift < 32; shift += 8)
        bytes.append(char(value >> shift));
    return bytes;
}

} // namespace

QByteArray withOggSerial(QByteArray ogg, quint32 serial)
{
    for (int start = 0; start < ogg.size();) {
        const auto size = pageSize(ogg, start);
        ogg.replace(start + serialAt, 4, littleEndian(serial));
        ogg.replace(start + checksumAt, 4, littleEndian(0));
        ogg.replace(start + checksumAt, 4, littleEndian(checksum(ogg.constData() + start, size)));
        start += size;
    }
    return ogg;
}
