#pragma once

#include "check/text/TextCheck.h"

#include <functional>
#include <optional>
#include <vector>

// What the other parts of a song need to know of a part; all else of it need not be kept.
struct PartFacts
{
    struct Tempo
    {
        Ticks from = 0;
        qint64 ticksPerMinute = 0;

        bool operator==(const Tempo &) const = default;
    };

    // Where the part's tempo at the start is written, or is to be.
    struct TempoField
    {
        TextRange range;
        bool isThere = false;
        bool isOnly = false; // no other comes behind it, even one that changes nothing
    };

    bool hasNotes = false;
    Ticks firstNote = 0;
    Ticks length = 0;                          // with the rests at the end
    std::vector<Tempo> tempos;                 // by time, without those that change nothing; the first begins at 0
    std::optional<TempoField> tempoField = {}; // unless the text has no header
    std::optional<MusicEnd> end = {};          // where rests can follow
};
PartFacts factsOf(const TextCheck &part);

// What is wrong with the parts beside each other: for each of them, in their order. Parts without notes are left out.
// textOf: of the part with this index; asked for where tempos differ behind the start. Throws what it throws. [any]
QVector<QVector<Finding>> checkSong(const QVector<PartFacts> &parts, const std::function<QString(int part)> &textOf);
