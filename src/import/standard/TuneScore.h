#pragma once

#include "import/standard/TimeFields.h"
#include "import/standard/Tunebook.h"
#include "import/standard/Voice.h"

#include <deque>
#include <map>
#include <stop_token>

// A tune as it is written: its fields and its voices, repeats not yet played.
struct TuneScore
{
    VoiceSettings start; // of every voice, as the header says
    std::optional<TempoValue> tempo;
    std::map<QChar, QStringList> texts; // fields that only people read, by letter
    QString partOrder;                  // the letters of P:, one for each part to play; empty: as they stand
    std::deque<Voice> voices;           // in the order met
    int unreadable = 0;                 // fields and characters that mean nothing
};

// Throws a QString when the tune cannot be played as it is written, and Interrupted soon after a stop.
TuneScore readTune(const TunebookTune &tune, BareTempo bareTempo, const std::stop_token &stop = {});
