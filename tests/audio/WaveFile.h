#pragma once

#include <QFile>
#include <QtEndian>

#include <vector>

// A 48 kHz stereo 16-bit wave file as the renderer writes it. Not valid when it is missing or anything else.
struct WaveFile
{
    explicit WaveFile(const QString &path)
    {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            return;
        const auto bytes = file.readAll();
        const auto number = [&bytes](int offset) { return qFromLittleEndian<quint32>(bytes.constData() + offset); };
        constexpr int headerBytes = 44;
        isValid = bytes.size() >= headerBytes && bytes.startsWith("RIFF") && bytes.mid(8, 8) == "WAVEfmt " &&
                  number(4) == quint32(bytes.size() - 8) && number(20) == 0x00020001 && number(24) == 48000 &&
                  number(32) == 0x00100004 && number(40) == quint32(bytes.size() - headerBytes);
        for (int offset = headerBytes; isValid && offset < bytes.size(); offset += 4) {
            left.push_back(qFromLittleEndian<qint16>(bytes.constData() + offset));
            right.push_back(qFromLittleEndian<qint16>(bytes.constData() + offset + 2));
        }
    }

    bool isValid = false;
    std::vector<qint16> left;
    std::vector<qint16> right;
};
