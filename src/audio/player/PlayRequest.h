#pragma once

#include "assets/Instrument.h"
#include "audio/AudioEngine.h"
#include "core/Track.h"

#include <QString>

// A part of the song that is played again and again: what begins in it, each time the same.
struct LoopRegion
{
    Ticks begin = 0;
    Ticks end = 0;
};

// A track that a player is to sound. [any]
struct PlayRequest
{
    // At `from`, 100 ms after the samples of the first second have been loaded, or where its sync group is now. What
    // plays under the track's id is heard to the end of its notes in the one case; in the other, the track takes its
    // place: notes that are the same in both sound on, the others end. While nothing of the group plays the two are the
    // same.
    // BeforeTheOthers is a count-in: it plays once, in no loop, and what else starts in the same go begins where it
    // ends. A seek ends it.
    enum class Begin { AtTheStart, WithTheGroup, BeforeTheOthers };

    QString trackId; // of the caller's choice; replaces what plays under it
    Track track;
    Instrument instrument;
    GroupLevel level = {};
    QString syncGroup =
        {}; // tracks of one group that are started in one go begin at the same sample; empty: on its own
    bool isMuted = false;
    Begin begin = Begin::AtTheStart;
    Ticks from = 0;
    double offset = 0; // milliseconds by which the track sounds later than it should, or sooner
};
