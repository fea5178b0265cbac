#include "import/WrittenTempo.h"

namespace {

constexpr quint64 microsecondsPerMinute = 60'000'000;
constexpr quint64 exactness = 10'000; // the part of a tempo that it may be wrong by

} // namespace

WrittenTempo truncatedTempo(quint32 microsecondsPerQuarter)
{
    return {4, quint32(microsecondsPerMinute / microsecondsPerQuarter)};
}

// The shortest beat, a tick, comes more than 35000 times a minute in the slowest tempo, which is exact enough.
WrittenTempo exactTempo(quint32 microsecondsPerQuarter)
{
    WrittenTempo tempo;
    for (quint32 beats = 4; beats <= ticksPerWholeNote; ++beats) {
        if (ticksPerWholeNote % beats != 0)
            continue;
        const auto wanted = microsecondsPerMinute / 4 * beats;
        const auto bpm = (wanted + microsecondsPerQuarter / 2) / microsecondsPerQuarter;
        const auto reached = bpm * microsecondsPerQuarter;
        tempo = {beats, quint32(bpm)};
        if ((reached > wanted ? reached - wanted : wanted - reached) * exactness <= wanted)
            break;
    }
    return tempo;
}

QString tempoText(qint64 ticksPerMinute)
{
    qint64 beats = 4;
    while (beats < ticksPerWholeNote &&
           (ticksPerWholeNote % beats != 0 || ticksPerMinute % (ticksPerWholeNote / beats) != 0))
        ++beats;
    return QStringLiteral("1/%1=%2").arg(beats).arg(ticksPerMinute * beats / ticksPerWholeNote);
}
