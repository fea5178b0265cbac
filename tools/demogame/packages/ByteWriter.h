#pragma once

#include <QByteArray>
#include <QtEndian>

// Both package formats store their numbers big-endian and their strings behind a length.

template<typename Number>
void putNumber(QByteArray &bytes, Number value)
{
    const auto stored = qToBigEndian(value);
    bytes.append(reinterpret_cast<const char *>(&stored), int(sizeof stored));
}

// Seven bits a byte, the most significant first; all bytes but the last have their top bit set.
inline void putLength(QByteArray &bytes, quint64 value)
{
    QByteArray groups(1, char(value & 0x7F));
    while (value >>= 7)
        groups.prepend(char(0x80 | (value & 0x7F)));
    bytes.append(groups);
}

inline void putString(QByteArray &bytes, const QByteArray &text)
{
    putLength(bytes, quint64(text.size()));
    bytes.append(text);
}
