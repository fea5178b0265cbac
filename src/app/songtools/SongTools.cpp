#include "app/songtools/SongTools.h"

#include "app/services/Playback.h"
#include "arrange/OneTempo.h"
#include "arrange/WholeSong.h"
#include "assets/InstrumentGuess.h"
#include "assets/ProgramInstruments.h"
#include "import/WrittenTempo.h"
#include "ui/Dialogs.h"
#include "ui/arranging/ArrangeDialog.h"
#include "ui/tracks/TrackList.h"
#include "ui/transform/OneTempoDialog.h"
#include "ui/transform/SongTransposeDialog.h"

#include <algorithm>

namespace {

bool isPercussion(const SongTrack &track)
{
    const auto program = usualProgram(track.instrument);
    return (program ? program : usualProgram(track.track->title())) == ProgramInstruments::percussion;
}

PitchRange rangeOf(const Instrument &instrument)
{
    const auto &notes = instrument.tuning.notes;
    return notes.isEmpty() ? PitchRange() : PitchRange{notes.firstKey(), notes.lastKey()};
}

} // namespace

SongTools::SongTools(const CommandContext &context, EngineFactory makeEngine)
    : context_(context), makeEngine_(std::move(makeEngine))
{
}

QVector<ActionRow> SongTools::actions()
{
    return {
        {"actionArrange", tr("Arrange for Players..."), "",
         tr("Fit the parts that are not muted to a number of players"), "", "onArrange()", Available::WithTracks},
        {"actionTranspose_Song", tr("Transpose Song..."), "", tr("Transpose all parts and their keys"), "",
         "onTransposeSong()", Available::WithTracks},
        {"actionOne_Tempo", tr("One Tempo for All..."), "", tr("Give all parts the tempo of one of them"), "",
         "onOneTempo()", Available::WithTracks},
        {"actionTrim_Silence", tr("Trim Silence"), "",
         tr("Remove the silence before the first note of all parts and behind the last"), "", "onTrimSilence()",
         Available::WithTracks},
        {"actionPad_Parts", tr("Pad to One Length"), "", tr("Let all parts end with the longest, with rests"), "",
         "onPadParts()", Available::WithTracks},
    };
}

QVector<Track> SongTools::allTracks() const
{
    QVector<Track> tracks;
    for (const auto &track : context_.tracks.song())
        tracks.append(*track->track);
    return tracks;
}

SourcePart SongTools::sourceOf(const SongTrack &track) const
{
    const auto instrument = context_.playback.instrument(track.instrument);
    return {*track.track, track.track->title(), track.instrument, rangeOf(instrument), isPercussion(track)};
}

void SongTools::arrangeForPlayers()
{
    QStringList ids;
    QVector<ArrangedSource> sources;
    for (const auto &track : context_.tracks.song()) {
        if (track->isMuted)
            continue;
        ids.append(track->id);
        sources.append({sourceOf(*track), {gainOf(track->volume), gainOf(track->pan)}});
    }
    if (sources.isEmpty())
        return tell(tr("Arrange for Players"), tr("All parts are muted."));
    ArrangeDialog dialog(sources, context_.playback.instruments(), makeEngine_, &context_.window);
    connect(&dialog, &ArrangeDialog::aboutToListen, &context_.playback, &Playback::stop);
    if (context_.dialogs.run(dialog))
        takeArrangement(ids, dialog.arrangement());
}

// New parts, so that nobody saves one over the file of a source.
void SongTools::takeArrangement(const QStringList &ids, const Arrangement &arrangement)
{
    QVector<NewTrack> tracks;
    for (const auto &part : arrangement.parts) {
        const auto *const source = context_.tracks.find(ids[part.sources.first()]);
        if (!source)
            return tell(tr("Arrange for Players"), tr("The song was changed meanwhile."));
        tracks.append({part.track, source->instrument, false, source->volume, source->pan, source->import});
    }
    context_.tracks.replace(tr("Arrange for %n Player(s)", nullptr, int(tracks.size())), ids, tracks);
}

void SongTools::transposeSong()
{
    QVector<SongTransposeDialog::Part> parts;
    for (const auto &track : context_.tracks.song())
        parts.append({*track->track, isPercussion(*track)});
    SongTransposeDialog dialog(parts, &context_.window);
    if (!context_.dialogs.run(dialog))
        return;
    QVector<int> semitones;
    for (const auto &part : qAsConst(parts))
        semitones.append(part.isPercussion && !dialog.movesPercussion() ? 0 : dialog.semitones());
    edit(tr("Transpose Song"), {}, [semitones, beyond = dialog.beyond()](const QVector<Track> &tracks) {
        QVector<Track> result;
        for (int i = 0; i < tracks.size(); ++i)
            result.append(WholeSong::transposed(tracks[i], semitones[i], beyond));
        return result;
    });
}

void SongTools::giveOneTempo()
{
    const auto tracks = allTracks();
    QVector<OneTempoDialog::Part> parts;
    for (const auto &track : tracks)
        parts.append({track.title(), tempoText(track.ticksPerMinute())});
    const auto isShorter = [](const Track &a, const Track &b) { return a.length() < b.length(); };
    const auto longest = std::max_element(tracks.begin(), tracks.end(), isShorter);
    OneTempoDialog dialog(parts, int(longest - tracks.begin()), &context_.window);
    if (!context_.dialogs.run(dialog) || dialog.part() < 0)
        return;
    const auto leader = tracks[dialog.part()];
    const auto change =
        dialog.stays() == OneTempoDialog::Stays::Moments ? WholeSong::inTempoOf : WholeSong::withTemposOf;
    edit(tr("One Tempo for All"), tr("All parts have that tempo already."), [=](const QVector<Track> &all) {
        QVector<Track> result;
        for (const auto &track : all)
            result.append(change(track, leader));
        return result;
    });
}

void SongTools::trimSilence()
{
    edit(tr("Trim Silence"), tr("There is no silence before the first note of the song, nor behind its last."),
         WholeSong::trimmed);
}

void SongTools::padParts()
{
    edit(tr("Pad to One Length"), tr("All parts have one length already."), WholeSong::padded);
}

// Tracks that have their texts still were not changed.
void SongTools::edit(const QString &step, const QString &nothingToDo, const Edit &change)
{
    if (isWorking() || context_.tracks.isEmpty())
        return;
    const auto work = [tracks = allTracks(), change](const TaskControl &) {
        auto edited = change(tracks);
        for (int i = 0; i < edited.size(); ++i) {
            if (edited[i].hasAbc())
                edited[i] = Track();
            else
                edited[i].toAbc();
        }
        return edited;
    };
    work_.start(
        work,
        [=, this, before = context_.tracks.song()](const QVector<Track> &edited) {
            take(step, nothingToDo, before, edited);
        },
        [=, this](const QString &error) { tell(step, error); });
}

void SongTools::take(const QString &step, const QString &nothingToDo, const SongTracks &before,
                     const QVector<Track> &edited)
{
    QMap<QString, Track> tracks;
    for (int i = 0; i < before.size(); ++i) {
        const auto *const now = context_.tracks.find(before[i]->id);
        if (!now || now->track != before[i]->track)
            return tell(step, tr("The song was changed meanwhile."));
        if (edited[i].hasAbc())
            tracks.insert(before[i]->id, edited[i]);
    }
    if (!tracks.isEmpty())
        context_.tracks.setTracks(step, tracks);
    else if (!nothingToDo.isEmpty())
        tell(step, nothingToDo);
}

void SongTools::tell(const QString &step, const QString &text)
{
    context_.dialogs.message(&context_.window, Dialogs::Severity::Information, step, text);
}
