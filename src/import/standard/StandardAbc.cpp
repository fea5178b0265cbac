#include "import/standard/StandardAbc.h"

#include "base/Interrupted.h"
#include "core/AbcParser.h"
#include "core/KeyTable.h"
#include "import/standard/TuneScore.h"

namespace {

QString fractionText(qint64 numerator, qint64 denominator)
{
    return QStringLiteral("%1/%2").arg(numerator).arg(denominator);
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
            performed.push_back(perform(voice.items(), score_.partOrder, options.graces, stop));
        // A tempo holds for all voices, wherever it is written.
        for (const auto &voice : performed)
            tempos_ += voice.tempos;
        for (std::size_t i = 0; i < performed.size(); ++i)
            addVoice(score_.voices[i], performed[i]);
        tune_.unreadable = score_.unreadable;
        tune_.hasTempo = score_.tempo || !tempos_.isEmpty();
        if (!tune_.voices.isEmpty())
            describeTune(tune_.voices.first().report);
    }

private:
    void addVoice(const Voice &voice, const PerformedVoice &performed);
    void describeTune(PartReport &report) const;
    QString titleOf(const Voice &voice) const;
    void writeHeader(Track &track, const Voice &voice) const;

    const TuneScore &score_;
    StandardTune &tune_;
    QVector<TrackEvent> tempos_;
};

void TuneConversion::addVoice(const Voice &voice, const PerformedVoice &performed)
{
    tune_.repeatsPlayed += performed.repeatsPlayed;
    auto report = performed.report;
    Track track;
    writeHeader(track, voice);
    track.editEvents().reserve(tempos_.size() + performed.changes.size() + performed.notes.size());
    track.editEvents() += tempos_ + performed.changes;
    for (const auto &note : performed.notes) {
        if (isPlayable(note.pitch()))
            track.appendEvent(note);
        else
            report.add(ImportFinding::OutOfRange, note.start());
    }
    track.normalize();
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

QString TuneConversion::titleOf(const Voice &voice) const
{
    const auto title = tune_.title.isEmpty() ? QStringLiteral("Untitled") : tune_.title;
    return score_.voices.size() > 1 && !voice.name.isEmpty() ? title + QStringLiteral(" - ") + voice.name : title;
}

// The fields in the game's words. Every tempo is written with its beat, so that it means the same to all.
void TuneConversion::writeHeader(Track &track, const Voice &voice) const
{
    const auto set = [&track](const char *letter, const QString &value) {
        track.setHeaderField(QLatin1String(letter), value);
    };
    set("X", QStringLiteral("1"));
    set("T", titleOf(voice));
    for (const auto &[letter, values] : score_.texts) {
        for (const auto &value : letter == u'T' ? QStringList() : values)
            track.appendHeaderField(letter, value);
    }
    const auto &start = score_.start;
    if (!start.metre.isNone()) {
        set("M", fractionText(start.metre.numerator, start.metre.denominator));
        track.setMetre(quint32(start.metre.measureTicks()), start.metre.numerator);
    }
    const auto unit = start.unitLength * Fraction(1, ticksPerWholeNote);
    set("L", fractionText(unit.numerator(), unit.denominator()));
    const auto tempo = score_.tempo.value_or(TempoValue());
    set("Q", fractionText(tempo.beatNumerator, tempo.beatDenominator) + u'=' + QString::number(tempo.bpm));
    track.setTempo(TrackEvent::tempo(0, tempo.beatNumerator, tempo.beatDenominator, tempo.bpm).ticksPerMinute());
    set("K", KeyTable::keyName(start.key.row, start.key.mode));
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
