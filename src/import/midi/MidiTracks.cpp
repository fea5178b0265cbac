#include "import/midi/MidiTracks.h"

#include "import/EachTrack.h"
#include "import/Realign.h"
#include "import/UnitLength.h"

namespace {

const QString &titleField()
{
    static const auto letter = QStringLiteral("T");
    return letter;
}

const QString &tempoField()
{
    static const auto letter = QStringLiteral("Q");
    return letter;
}

Track finished(Track track, const MidiImportOptions &options, Shifts *shifts)
{
    if (!track.hasHeaderField(tempoField()))
        track.setHeaderField(tempoField(), WrittenTempo().text());
    track.normalize();
    if (options.autoRealign)
        track = realign(std::move(track), SnapGrid::quick(), shifts);
    if (!options.mergeChannels || (options.mergedUnitLength && options.autoDetectUnitLength)) {
        const auto denominator = options.autoDetectUnitLength ? detectUnitLength(track) : 4;
        track.setHeaderField(QStringLiteral("L"), unitLengthText(denominator));
    }
    return track;
}

} // namespace

Track midiTrack(MidiPart part, const QStringList &titles, const MidiStart &start)
{
    Track track;
    for (const auto &title : titles)
        track.appendHeaderField(titleField(), title);
    if (start.tempo)
        setTempo(track, 0, *start.tempo);
    if (!start.metre.isEmpty()) {
        track.setHeaderField(QStringLiteral("M"), start.metre);
        track.setMetre(start.measureTicks, start.beatsPerMeasure);
    }
    if (!start.key.isEmpty())
        track.setHeaderField(QStringLiteral("K"), start.key);
    track.editEvents() = std::move(part.events);
    return track;
}

void setTempo(Track &track, Ticks start, const WrittenTempo &tempo)
{
    if (start > 0) {
        track.appendEvent(tempo.eventAt(start));
        return;
    }
    track.setHeaderField(tempoField(), tempo.text());
    track.setTempo(tempo.ticksPerMinute());
}

void finishTracks(ImportResult &result, const MidiImportOptions &options, const std::stop_token &stop)
{
    // Each track leaves the list before it is worked on, so that its events are not copied more often than needed.
    auto *const tracks = result.tracks.data();
    std::vector<Shifts> shifts(std::size_t(result.tracks.size()));
    forEachTrack(result.tracks, stop, [&](int number) {
        tracks[number] = finished(std::move(tracks[number]), options, &shifts[std::size_t(number)]);
    });
    for (int i = 0; i < result.tracks.size(); ++i) {
        addShifts(result, i, shifts[std::size_t(i)]);
        addNotes(result.report, result.parts[i]);
    }
    addNotes(result.report, result.elsewhere);
}
