#include "check/InstrumentCheck.h"

#include "assets/InstrumentGuess.h"
#include "assets/ProgramInstruments.h"
#include "check/NoteCheck.h"
#include "core/AbcParser.h"
#include "core/HeaderFields.h"
#include "core/KeyTable.h"
#include "edit/NoteText.h"

#include <QCoreApplication>

#include <array>
#include <cmath>
#include <optional>

namespace {

constexpr int semitonesOfOctave = 12;

// What each pitch of an instrument comes to: found once, and not for every note.
class Pitches
{
public:
    Pitches(const Tuning &tuning, const CheckOptions &options)
    {
        for (quint32 pitch = lowestPlayablePitch; pitch <= highestPlayablePitch; ++pitch) {
            const auto entry = tuning.notes.constFind(pitch);
            const bool isSilent = entry == tuning.notes.constEnd() || entry->files.isEmpty() ||
                                  !std::isfinite(entry->rate) || entry->rate <= 0;
            auto &judged = judged_[pitch];
            if (isSilent) {
                judged.kind = FindingKind::NoSample;
                continue;
            }
            judged.semitones = std::abs(std::log2(entry->rate)) * semitonesOfOctave;
            if (judged.semitones > options.mostSemitones + 0.5) // rates are rounded, and samples a little out of tune
                judged.kind = FindingKind::FarFromSample;
        }
    }

    std::optional<FindingKind> kind(quint32 pitch) const { return judged_[pitch].kind; }
    // To the nearest octave with a sample; 0 where two are as near, or there is none.
    int octavesToSample(int pitch) const
    {
        for (int octaves = 1; octaves * semitonesOfOctave < int(judged_.size()); ++octaves) {
            const bool isAbove = hasSample(pitch + octaves * semitonesOfOctave);
            const bool isBelow = hasSample(pitch - octaves * semitonesOfOctave);
            if (isAbove || isBelow)
                return isAbove == isBelow ? 0 : isAbove ? octaves : -octaves;
        }
        return 0;
    }
    double semitones(quint32 pitch) const { return judged_[pitch].semitones; }

private:
    bool hasSample(int pitch) const
    {
        return isPlayable(pitch) && judged_[size_t(pitch)].kind != FindingKind::NoSample;
    }

    struct Judged
    {
        std::optional<FindingKind> kind;
        double semitones = 0; // from the sample
    };
    std::array<Judged, highestPlayablePitch + 1> judged_;
};

QStringList valuesOf(FindingKind kind, quint32 pitch, const Pitches &pitches, const QString &instrument)
{
    const auto note = NoteText::pitch(int(pitch), neutralKeyRow);
    return {note, kind == FindingKind::NoSample ? instrument : QString::number(qRound(pitches.semitones(pitch)))};
}

// Of the name in the header's field "I:Instrument:"; empty when it is not there.
TextRange nameInHeader(const QString &text, const QString &name)
{
    const auto field = QStringLiteral("Instrument:");
    const auto body = text.indexOf(QStringLiteral("\nK:"));
    const auto at = int(text.indexOf(field));
    const auto begin = at < 0 ? -1 : int(text.indexOf(name, at + field.size()));
    return begin < 0 || (body >= 0 && begin > body) ? TextRange{} : TextRange{begin, int(name.size())};
}

// Only a name that holds the instrument's own is a slip of the pen.
Finding unknownInstrument(const TextCheck &part, const QString &name, const InstrumentSet &instruments)
{
    Finding finding{FindingKind::UnknownInstrument, nameInHeader(part.text, name), -1, {name, {}}};
    const auto guess = guessInstrument({name}, {}, instruments);
    if (!guess || guess->basis != GuessBasis::Name)
        return finding;
    finding.values[1] = u' ' + QCoreApplication::translate("Finding", "There is “%1”.").arg(guess->name);
    if (!finding.range.isEmpty())
        finding.fix = {{finding.range, guess->name}};
    return finding;
}

void checkSamples(const TextCheck &part, const Instrument &instrument, const CheckOptions &options,
                  QVector<Finding> &findings)
{
    const Pitches pitches(instrument.tuning, options);
    std::array<int, findingKindCount> counts{};
    for (const auto &note : part.track.events()) {
        const auto kind = note.isNote() ? pitches.kind(note.pitch()) : std::nullopt;
        if (kind && counts[size_t(*kind)]++ < options.mostFindings)
            findings.append(
                {*kind, textOf(note, part), note.start(), valuesOf(*kind, note.pitch(), pitches, instrument.name)});
    }
    addFixes(part.noteFixes, findings);
}

} // namespace

QVector<Finding> checkInstrument(const TextCheck &part, const QString &instrument, const InstrumentSet &instruments,
                                 const CheckOptions &options)
{
    const auto name = instrument.isEmpty() ? instruments.names().value(0) : instrument;
    const auto named = HeaderFields::instrumentName(part.track.headerFields(QStringLiteral("I")));
    QVector<Finding> findings;
    if (!named.isEmpty() && !instruments.contains(named))
        findings.append(unknownInstrument(part, named, instruments));
    if (instruments.contains(name))
        checkSamples(part, instruments.instrument(name), options, findings);
    else if (name != named)
        findings.append(unknownInstrument(part, name, instruments));
    return findings;
}

OctaveMoves octavesToSamples(const QString &instrument, const InstrumentSet &instruments, const CheckOptions &options)
{
    OctaveMoves moves{};
    const auto name = instrument.isEmpty() ? instruments.names().value(0) : instrument;
    if (!instruments.contains(name) || usualProgram(name) == ProgramInstruments::percussion)
        return moves;
    const Pitches pitches(instruments.instrument(name).tuning, options);
    for (auto pitch = lowestPlayablePitch; pitch <= highestPlayablePitch; ++pitch) {
        if (pitches.kind(pitch) == FindingKind::NoSample)
            moves[pitch] = qint8(pitches.octavesToSample(int(pitch)));
    }
    return moves;
}
