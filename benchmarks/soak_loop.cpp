// Two measures of sixteen parts, played round and round for ten minutes of music, as fast as they can be mixed. Fails
// when a pass differs from the first in a single sample. Usage: soak_loop [MINUTES]
#include "audio/SampleFiles.h"
#include "audio/VirtualPlayer.h"
#include "support/Figures.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <numbers>

namespace {

constexpr int tracks = 16;
constexpr LoopRegion loop{2 * ticksPerWholeNote, 4 * ticksPerWholeNote};

// Resampled at most keys, and longer than most notes.
Instrument instrument(const SampleFiles &files)
{
    QVector<qint16> samples;
    for (int i = 0; i < 3 * 48000; ++i)
        samples.append(qint16(8000 * std::sin(2 * std::numbers::pi * 220 * i / 48000) * std::exp(-i / 48000.0)));
    auto made = instrumentOf(files.write(QStringLiteral("tone.wav"), waveBytes(samples)), 0.3);
    for (auto note = made.tuning.notes.begin(); note != made.tuning.notes.end(); ++note)
        note->rate = std::exp2((double(note.key()) - 57) / 12);
    return made;
}

// Off the grid, at a tempo that has no whole samples; some notes are longer than the loop.
Track melody(int number)
{
    constexpr Ticks sixteenth = ticksPerWholeNote / 16;
    QVector<TrackEvent> events;
    for (int i = 0; i < 100; ++i)
        events.append(TrackEvent::note(quint32(40 + (i * 7 + number * 11) % 40), i * sixteenth + 7 * number,
                                       i % 13 == 0 ? 3 * ticksPerWholeNote : (1 + i % 5) * sixteenth, 0.03F));
    return trackOf(events, 1'207'931);
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const int minutes = argc > 1 ? QByteArray(argv[1]).toInt() : 10;
    if (minutes <= 0) {
        std::fputs("usage: soak_loop [MINUTES]\n", stderr);
        return 2;
    }
    const SampleFiles files;
    const auto sounding = instrument(files);
    QVector<PlayRequest> requests;
    for (int i = 0; i < tracks; ++i)
        requests.append({.trackId = QString::number(i),
                         .track = melody(i),
                         .instrument = sounding,
                         .syncGroup = QStringLiteral("Main"),
                         .from = loop.begin});
    VirtualPlayer player;
    player.keepsAudio = false;
    player.worker.setLoop(loop);
    player.worker.playTracks(requests);

    const TempoMap tempo(melody(0), 48000);
    const auto period = 2 * std::size_t(tempo.samplesAt(loop.end) - tempo.samplesAt(loop.begin));
    std::vector<float> first, pass;
    int passes = 0, different = 0;
    for (std::size_t skipped = 2 * 4800; player.engine->clock() < DspClock(minutes) * 60 * 48000;) {
        player.passes(1);
        const auto block = player.engine->lastBlock();
        const auto silent = std::min(skipped, block.size());
        skipped -= silent;
        pass.insert(pass.end(), block.begin() + std::ptrdiff_t(silent), block.end());
        if (pass.size() < period)
            continue;
        const std::vector<float> rest(pass.begin() + std::ptrdiff_t(period), pass.end());
        pass.resize(period);
        if (passes++ == 0)
            first = pass;
        different += pass != first ? 1 : 0;
        pass = rest;
    }
    const auto loudest = std::ranges::max(first);
    std::printf("%d passes of %.3f s, %d differ from the first; loudest sample %.3f\n", passes,
                double(period) / 2 / 48000, different, double(loudest));
    const bool isMusic = passes > 1 && loudest > 0.01F;
    return report({"Loop: passes that differ from the first", isMusic ? double(different) : 1e9, 0, {}, Better::Less})
               ? 0
               : 1;
}
