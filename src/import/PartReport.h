#pragma once

#include "core/Ticks.h"
#include "import/ImportReport.h"

#include <QVector>

#include <array>
#include <optional>

// What an import found that is not in the part as the source has it.
enum class ImportFinding : quint8 {
    // notes, as ImportReport has them
    BelowVelocityGate,
    Restruck,
    OutOfRange,
    Folded,
    Unterminated,
    // in ABC
    BarLineSilence,  // the game's bar line puts what follows later than the notes before it end
    BarLineOverlap,  // … or before they end
    DefaultTempo,    // none is written; once a tune
    RepeatNotPlayed, // the game plays on at a repeat's end
    TieLost,         // the note that a tie leads to is not there, or the tie stands behind a blank
    Unreadable,      // fields and characters without a meaning
};
constexpr int importFindingCount = int(ImportFinding::Unreadable) + 1;

// What an import says of one part. A value.
class PartReport
{
public:
    static constexpr int mostPlaces = 200; // of one kind that are kept

    std::optional<int> channel; // of MIDI, 1..16
    std::optional<int> program; // of General MIDI, 0..127
    bool isPercussion = false;
    int notes = 0;            // in the part
    Ticks barLineSilence = 0; // of all its BarLineSilence
    ShiftReport shifts;

    void add(ImportFinding finding, Ticks place)
    {
        auto &found = at(finding);
        ++found.count;
        if (found.places.size() < mostPlaces)
            found.places.append(place);
    }
    void addWithoutPlace(ImportFinding finding, int count) { at(finding).count += count; }
    // All that another found; not what kind of part it is.
    void add(const PartReport &other);

    int count(ImportFinding finding) const { return findings_[size_t(finding)].count; }
    // Where, in ticks of the part and in the order of the source; the first of them.
    const QVector<Ticks> &places(ImportFinding finding) const { return findings_[size_t(finding)].places; }
    // Notes that moved are no finding.
    bool hasFindings() const;

private:
    struct Found
    {
        int count = 0;
        QVector<Ticks> places;
    };
    Found &at(ImportFinding finding) { return findings_[size_t(finding)]; }

    std::array<Found, importFindingCount> findings_;
};

// Adds the part's notes that were left out or changed to the sums; not its shifts.
void addNotes(ImportReport &sum, const PartReport &part);
