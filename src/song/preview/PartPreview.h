#pragma once

#include "assets/InstrumentSet.h"
#include "assets/ProgramInstruments.h"
#include "core/Track.h"
#include "import/PartReport.h"

#include <optional>

// What a person wants of a part; what is not chosen is proposed.
struct PartChoice
{
    bool isTaken = true;
    std::optional<QString> instrument;
    std::optional<int> octaves;
};

// What proposals are made of. A value that travels between threads.
struct ProposalBasis
{
    InstrumentSet instruments;
    ProgramInstruments remembered;
    QString fallback; // the instrument of a part that nothing speaks for
};

// The same part of the same source read in another way has the same key; there can be several parts with it.
QString keyOf(const Track &track, const PartReport &report);

// What a track of an import would become. A value.
class PartPreview
{
public:
    PartPreview() = default;
    // As it was read, and what was lost on the way. Goes through all notes. [any]
    PartPreview(const Track &asRead, const PartReport &report);

    // Takes the choice, proposes the rest and makes the track. Goes through all notes when they are moved. [any]
    void settle(const PartChoice &choice, const ProposalBasis &basis);

    QString name() const { return asRead_.title(); }
    QString programName() const;                                   // empty when it has none
    std::optional<int> program() const;                            // as ProgramInstruments counts
    std::optional<int> channel() const { return report_.channel; } // 1..16
    const PartReport &report() const { return report_; }

    const QString &instrument() const { return instrument_; } // of the catalogue; empty while that is
    int octaves() const { return octaves_; }
    const Track &track() const { return track_; } // with the octaves; it has its text

    int notes() const { return notes_; }
    int characters() const { return characters_; } // of the track's ABC text
    // Of the track, by pitch; nothing without notes.
    std::optional<std::pair<quint32, quint32>> range() const;
    int mostAtOnce() const { return mostAtOnce_; }     // notes
    int silentNotes() const { return silentNotes_; }   // that the instrument cannot play
    int droppedNotes() const { return droppedNotes_; } // that the octaves moved out of the playable range
    // Everything that nobody will hear, those that were lost when it was read too.
    int lostNotes() const;

private:
    QString proposedInstrument(const ProposalBasis &basis) const;

    Track asRead_;
    PartReport report_;
    QMap<quint32, int> pitchCounts_; // as it was read
    int notes_ = 0;
    int mostAtOnce_ = 0;

    QString instrument_;
    int octaves_ = 0;
    Track track_;
    int characters_ = 0;
    int silentNotes_ = 0;
    int droppedNotes_ = 0;
};
