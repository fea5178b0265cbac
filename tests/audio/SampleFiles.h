#pragma once

#include "assets/Instrument.h"
#include "core/Track.h"

#include <QDataStream>
#include <QFile>
#include <QTemporaryDir>
#include <QVector>

// Mono 16-bit samples as a little-endian wave file of 48 kHz.
inline QByteArray waveBytes(const QVector<qint16> &samples, quint32 rate = 48000)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    const auto dataBytes = quint32(samples.size() * 2);
    stream.writeRawData("RIFF", 4);
    stream << quint32(36 + dataBytes);
    stream.writeRawData("WAVEfmt ", 8);
    stream << quint32(16) << quint16(1) << quint16(1) << rate << 2 * rate << quint16(2) << quint16(16);
    stream.writeRawData("data", 4);
    stream << dataBytes;
    for (const auto sample : samples)
        stream << sample;
    return bytes;
}

// Sample files of a test, in a directory of their own, and instruments that play them.
class SampleFiles
{
public:
    SampleFiles() {} // written out, so that clang 14 makes constant ones, too
    QString path(const QString &name) const { return directory_.filePath(name); }

    QString write(const QString &name, const QByteArray &bytes) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write the test's files");
        return file.fileName();
    }

    // One frame of half of full scale, √½ of which reaches each side.
    QString click() const { return write(QStringLiteral("click.wav"), waveBytes({16384})); }

    // A level that holds for so long.
    QString level(qint16 level, int frames) const
    {
        return write(QStringLiteral("level-%1-%2.wav").arg(level).arg(frames),
                     waveBytes(QVector<qint16>(frames, level)));
    }

private:
    QTemporaryDir directory_;
};

// All pitches from 21 to 108 play one file.
inline Instrument instrumentOf(const QString &file, double fadeout = 0, double rate = 1)
{
    Instrument instrument;
    instrument.tuning.fadeout = fadeout;
    for (quint32 pitch = 21; pitch <= 108; ++pitch)
        instrument.tuning.notes.insert(pitch, {{file}, rate, 440});
    return instrument;
}

inline Track trackOf(const QVector<TrackEvent> &events, qint64 ticksPerMinute = defaultTicksPerMinute)
{
    Track track;
    track.setTempo(ticksPerMinute);
    track.editEvents() = events;
    track.normalize();
    return track;
}

inline TrackEvent tempoEvent(Ticks start, qint64 ticksPerMinute)
{
    return TrackEvent::tempo(start, 1, quint32(ticksPerWholeNote), quint32(ticksPerMinute));
}
