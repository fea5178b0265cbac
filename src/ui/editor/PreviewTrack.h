#pragma once

#include "core/Track.h"
#include "edit/NoteEdit.h"

// A stretch of a track made to be heard by itself: it begins at tick 0 with the tempo that holds there, sounds so many
// times in a row without a seam, and as slow or fast as wanted. Knows where its ticks and notes come from.
class PreviewTrack
{
public:
    struct Stretch
    {
        Ticks from = 0;
        Ticks to = maxTicks; // exclusive; notes that sound beyond it end there
        int tempoPercent = 100;
        bool loops = false;
    };

    PreviewTrack() = default;
    PreviewTrack(const Track &source, const Stretch &stretch);

    const Track &track() const { return track_; }
    bool isEmpty() const { return track_.events().isEmpty(); }
    // Of the source, for a position of track().
    Ticks sourceTick(Ticks position) const;
    // The source's notes that events of track() play; other events give none.
    QVector<NoteSpec> sourceNotes(const QVector<int> &events) const;

private:
    void appendRound(Ticks begin, qint64 tempo);

    Track source_;
    Stretch stretch_;
    Ticks roundLength_ = 0;
    Track track_;
};
