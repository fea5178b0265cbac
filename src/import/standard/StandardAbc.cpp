#include "import/standard/StandardAbc.h"

#include "base/Interrupted.h"
#include "core/AbcParser.h"
#include "core/KeyTable.h"
#include "import/standard/ChordName.h"
#include "import/standard/Performance.h"
#include "import/standard/TuneScore.h"

#include <algorithm>
#include <utility>

namespace {

QString fractionText(qint64 numerator, qint64 denominator)
{
    return QString::number(numerator) + u'/' + QString::number(denominator);
}

// The chord names as they are written, measure by measure: "G D7 | C | G".
QString chordChart(const Voice &voice)
{
    constexpr int longest = 2000; // characters
    QString chart;
    for (const auto &item : voice.score().items) {
        const bool isBar = item.kind == ScoreItem::Kind::Bar;
        if (!isBar && item.kind != ScoreItem::Kind::ChordName)
            continue;
        const auto word = isBar ? QStringView(u"|") : item.text;
        if (chart.size() + word.size() >= longest || (isBar && chart.isEmpty()))
            continue;
        if (!chart.isEmpty())
            chart += u' ';
        chart.append(word.data(), int(word.size()));
    }
    while (chart.endsWith(QStringLiteral(" | |"))) // measures at the end without any
        chart.chop(2);
    return QStringLiteral("Chords: ") + chart;
}

// What the game has no signs for: "trill (3), fermata".
QString decorationList(const Voice &voice)
{
    QStringList names;
    for (const auto &[name, count] : voice.decorations)
        names.append(count > 1 ? QStringLiteral("%1 (%2)").arg(name).arg(count) : name);
    return QStringLiteral("Decorations: ") + names.join(QStringLiteral(", "));
}

// Turns the score of one tune into tracks.
class TuneConversion
{
public:
    TuneConversion(const TuneScore &score, StandardTune &tune) : score_(score), tune_(tune) {}

    void run(const StandardAbcOptions &options, const std::stop_token &stop)
    {
        std::vector<PerformedVoice> performed;
        for (const auto &voice : score_.voices)
            performed.push_back(perform(voice.score(), score_.partOrder, options.graces, stop));
        // A tempo holds for all voices, wherever it is written.
        for (const auto &voice : performed)
            tempos_ += voice.tempos;
        for (std::size_t i = 0; i < performed.size(); ++i)
            addVoice(score_.voices[i], performed[i], options.chordNames);
        const auto withChords = std::find_if(performed.begin(), performed.end(),
                                             [](const PerformedVoice &voice) { return !voice.chords.empty(); });
        if (options.chordNames == ChordNames::Play && withChords != performed.end())
            addAccompaniment(score_.voices[std::size_t(withChords - performed.begin())], *withChords);
        tune_.unreadable = score_.unreadable;
        tune_.hasTempo = score_.tempo || !tempos_.isEmpty();
        if (!tune_.voices.isEmpty())
            describeTune(tune_.voices.first().report);
    }

private:
    void addVoice(const Voice &voice, PerformedVoice &performed, ChordNames chordNames);
    static QVector<TrackEvent> playable(QVector<TrackEvent> notes, PartReport &report);
    void addAccompaniment(const Voice &voice, const PerformedVoice &performed);
    void addChanges(Track &track, const PerformedVoice &performed) const;
    static void finish(Track &track, const PerformedVoice &performed);
    static void takeIntoHeader(Track &track);
    void describeTune(PartReport &report) const;
    QString titleOf(const Voice &voice) const;
    void writeHeader(Track &track, const Voice &voice) const;

    const TuneScore &score_;
    StandardTune &tune_;
    QVector<TrackEvent> tempos_;
};

// The notes that have a key on the game's instruments.
QVector<TrackEvent> TuneConversion::playable(QVector<TrackEvent> notes, PartReport &report)
{
    const auto isLeftOut = [&report](const TrackEvent &note) {
        const bool isOut = !isPlayable(note.pitch());
        if (isOut)
            report.add(ImportFinding::OutOfRange, note.start());
        return isOut;
    };
    notes.erase(std::remove_if(notes.begin(), notes.end(), isLeftOut), notes.end());
    return notes;
}

void TuneConversion::addVoice(const Voice &voice, PerformedVoice &performed, ChordNames chordNames)
{
    tune_.repeatsPlayed += performed.repeatsPlayed;
    auto report = performed.report;
    Track track;
    writeHeader(track, voice);
    if (chordNames == ChordNames::Note && !performed.chords.empty())
        track.appendHeaderField(QStringLiteral("N"), chordChart(voice));
    if (!voice.decorations.empty())
        track.appendHeaderField(QStringLiteral("N"), decorationList(voice));
    addChanges(track, performed);
    auto notes = playable(std::move(performed.notes), report);
    if (track.events().isEmpty())
        track.editEvents() = std::move(notes);
    else
        track.editEvents() += notes;
    finish(track, performed);
    tune_.outOfRange += report.count(ImportFinding::OutOfRange);
    report.channel = voice.channel;
    report.program = voice.program;
    report.isPercussion = voice.channel == 10;
    report.notes = track.noteCount();
    if (report.notes > 0)
        tune_.voices.append({track, voice.program, voice.channel, report});
    else
        tune_.silent.add(report);
}

void TuneConversion::describeTune(PartReport &report) const
{
    if (tune_.unreadable > 0)
        report.addWithoutPlace(ImportFinding::Unreadable, tune_.unreadable);
    if (!tune_.hasTempo)
        report.add(ImportFinding::DefaultTempo, 0);
}

// A repeat brings the same key and metre again, which needs no field.
void TuneConversion::addChanges(Track &track, const PerformedVoice &performed) const
{
    const auto &start = score_.start;
    track.editEvents() += tempos_;
    auto key = std::pair(start.key.row, start.key.mode);
    auto metre = start.metre.isNone() ? std::pair(4U, 4U) : std::pair(start.metre.numerator, start.metre.denominator);
    for (const auto &change : performed.changes) {
        const bool isKey = change.kind() == TrackEvent::Key;
        const auto next = isKey ? std::pair(change.keyIndex(), change.keyMode())
                                : std::pair(change.numerator(), change.denominator());
        if (std::exchange(isKey ? key : metre, next) != next)
            track.appendEvent(change);
    }
}

// In the order of time, ends with what the text is to show of it.
void TuneConversion::finish(Track &track, const PerformedVoice &performed)
{
    auto barLines = performed.measures; // where a part of the tune ends and one begins, there are two
    barLines.erase(std::unique(barLines.begin(), barLines.end()), barLines.end());
    track.setBarLines(QVector<Ticks>(barLines.begin(), barLines.end()));
    track.normalize();
    takeIntoHeader(track);
}

// What holds from the start on is said there.
void TuneConversion::takeIntoHeader(Track &track)
{
    auto &events = track.editEvents();
    const auto isOfHeader = [&track](const TrackEvent &event) {
        if (event.start() > 0 || event.isNote())
            return false;
        const auto fraction = fractionText(event.numerator(), event.denominator());
        if (event.kind() == TrackEvent::Tempo) {
            track.setHeaderField(QStringLiteral("Q"), fraction + u'=' + QString::number(event.bpm()));
            track.setTempo(event.ticksPerMinute());
        } else if (event.kind() == TrackEvent::Key) {
            track.setHeaderField(QStringLiteral("K"), KeyTable::keyName(event.keyIndex(), event.keyMode()));
        } else {
            track.setHeaderField(QStringLiteral("M"), fraction);
            track.setMetre(quint32(ticksPerWholeNote * event.numerator() / event.denominator()), event.numerator());
        }
        return true;
    };
    events.erase(std::remove_if(events.begin(), events.end(), isOfHeader), events.end());
}

// Each chord sounds until the next, and anew in each measure.
void TuneConversion::addAccompaniment(const Voice &voice, const PerformedVoice &performed)
{
    Track track;
    writeHeader(track, voice);
    track.setHeaderField(QStringLiteral("T"), titleOf(voice) + QStringLiteral(" - Chords"));
    addChanges(track, performed);
    auto measure = performed.measures.begin();
    for (std::size_t i = 0; i < performed.chords.size(); ++i) {
        const auto pitches = chordPitches(performed.chords[i].name);
        const auto end = i + 1 < performed.chords.size() ? performed.chords[i + 1].start : performed.end;
        for (auto start = performed.chords[i].start; start < end;) {
            measure = std::find_if(measure, performed.measures.end(), [&](Ticks at) { return at > start; });
            const auto stop = measure == performed.measures.end() ? end : std::min(end, *measure);
            for (const int untransposed : pitches) {
                const int pitch = untransposed + performed.chords[i].transposed;
                if (pitch >= 0 && isPlayable(pitch))
                    track.appendEvent(TrackEvent::note(quint32(pitch), start, stop - start));
            }
            start = stop;
        }
    }
    finish(track, performed);
    PartReport report;
    report.notes = track.noteCount();
    if (report.notes > 0)
        tune_.voices.append({track, {}, {}, report});
}

QString TuneConversion::titleOf(const Voice &voice) const
{
    const auto title = tune_.title.isEmpty() ? QStringLiteral("Untitled") : tune_.title;
    return score_.voices.size() > 1 && !voice.name.isEmpty() ? title + QStringLiteral(" - ") + voice.name : title;
}

// The fields in the game's words. Every tempo is written with its beat, so that it means the same to all.
void TuneConversion::writeHeader(Track &track, const Voice &voice) const
{
    track.setHeaderField(QStringLiteral("X"), QStringLiteral("1"));
    track.setHeaderField(QStringLiteral("T"), titleOf(voice));
    for (const auto &[letter, values] : score_.texts) {
        for (const auto &value : letter == u'T' ? QStringList() : values)
            track.appendHeaderField(letter, value);
    }
    const auto &start = score_.start;
    if (!start.metre.isNone()) {
        track.setHeaderField(QStringLiteral("M"), fractionText(start.metre.numerator, start.metre.denominator));
        track.setMetre(quint32(start.metre.measureTicks()), start.metre.numerator);
    }
    const auto unit = start.unitLength * Fraction(1, ticksPerWholeNote);
    track.setHeaderField(QStringLiteral("L"), fractionText(unit.numerator(), unit.denominator()));
    const auto tempo = score_.tempo.value_or(TempoValue());
    track.setHeaderField(QStringLiteral("Q"),
                         fractionText(tempo.beatNumerator, tempo.beatDenominator) + u'=' + QString::number(tempo.bpm));
    track.setTempo(TrackEvent::tempo(0, tempo.beatNumerator, tempo.beatDenominator, tempo.bpm).ticksPerMinute());
    track.setHeaderField(QStringLiteral("K"), KeyTable::keyName(start.key.row, start.key.mode));
}

StandardTune readOne(const TunebookTune &source, const StandardAbcOptions &options, const std::stop_token &stop)
{
    StandardTune tune;
    tune.number = source.number;
    tune.title = source.title;
    try {
        TuneConversion(readTune(source, options.bareTempo, stop), tune).run(options, stop);
    } catch (const QString &error) {
        tune.voices.clear();
        tune.error = error;
    }
    return tune;
}

} // namespace

QVector<StandardTune> importStandardAbc(const QString &text, const StandardAbcOptions &options,
                                        const std::stop_token &stop)
{
    QVector<StandardTune> tunes;
    for (const auto &source : splitTunebook(text)) {
        throwIfStopped(stop);
        tunes.append(readOne(source, options, stop));
    }
    return tunes;
}
