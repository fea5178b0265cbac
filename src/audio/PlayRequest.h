#pragma once

#include "assets/Instrument.h"
#include "audio/AudioEngine.h"
#include "core/Track.h"

#include <QString>

// A track that a player is to sound. [any]
struct PlayRequest
{
    QString trackId; // of the caller's choice; replaces what plays under it
    Track track;
    Instrument instrument;
    GroupLevel level = {};
    QString syncGroup =
        {}; // tracks of one group that are started in one go begin at the same sample; empty: on its own
    bool isMuted = false;
};
