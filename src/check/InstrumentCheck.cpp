#include "check/InstrumentCheck.h"

#include "check/NoteCheck.h"
#include "core/AbcParser.h"
#include "core/KeyTable.h"
#include "edit/NoteText.h"

#include <array>
#include <cmath>
#include <optional>

namespace {

constexpr double semitonesOfOctave = 12;

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
    double semitones(quint32 pitch) const { return judged_[pitch].semitones; }

private:
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

} // namespace

QVector<Finding> checkInstrument(const TextCheck &part, const QString &instrument, const InstrumentSet &instruments,
                                 const CheckOptions &options)
{
    const auto name = instrument.isEmpty() && !instruments.isEmpty() ? instruments.names().first() : instrument;
    if (!instruments.contains(name))
        return {{FindingKind::UnknownInstrument, {}, -1, {name}}};
    const Pitches pitches(instruments.instrument(name).tuning, options);
    std::array<int, findingKindCount> counts{};
    QVector<Finding> findings;
    for (const auto &note : part.track.events()) {
        const auto kind = note.isNote() ? pitches.kind(note.pitch()) : std::nullopt;
        if (kind && counts[size_t(*kind)]++ < options.mostFindings)
            findings.append({*kind, textOf(note, part), note.start(), valuesOf(*kind, note.pitch(), pitches, name)});
    }
    return findings;
}
