#pragma once

#include "core/Track.h"

#include <QVector>

#include <algorithm>
#include <optional>

struct RollNote
{
    Ticks start = 0;
    Ticks length = 0;
    int pitch = 0;
    int event = -1; // its place in the track's event list

    Ticks end() const { return start + length; }
};

// The notes of a track by start, made for finding those in a window of time quickly, however long the longest is. A
// value.
class RollNotes
{
public:
    explicit RollNotes(const Track &track = {});

    int count() const { return int(notes_.size()); }
    Ticks end() const { return blockEnds_.isEmpty() ? 0 : *std::max_element(blockEnds_.begin(), blockEnds_.end()); }
    const RollNote &operator[](int note) const { return notes_[note]; }

    // Calls visit(int note) for the notes that touch from..to, by start.
    template<typename Visit>
    void forEachIn(Ticks from, Ticks to, Visit visit) const
    {
        const auto end = firstStartingAtOrAfter(to);
        for (int block = 0; block * blockSize < end; ++block) {
            if (blockEnds_[block] < from)
                continue;
            const auto blockLast = std::min(end, (block + 1) * blockSize);
            for (auto note = block * blockSize; note < blockLast; ++note) {
                if (notes_[note].end() >= from)
                    visit(note);
            }
        }
    }

    int firstStartingAtOrAfter(Ticks tick) const;

    // The note of an event; -1 when the event is none.
    int ofEvent(int event) const;

private:
    static constexpr int blockSize = 64;

    QVector<RollNote> notes_;
    QVector<Ticks> blockEnds_; // where the last note of each 64 ends
};
