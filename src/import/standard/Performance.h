#pragma once

#include "core/TrackEvent.h"
#include "import/PartReport.h"
#include "import/standard/ScoreItem.h"
#include "import/standard/StandardAbcOptions.h"

#include <QString>
#include <QVector>

#include <stop_token>
#include <vector>

// A chord name where it stands, and what an accompaniment plays from there on.
struct PerformedChord
{
    Ticks start = 0;
    QStringView name;   // of the text that was read
    int transposed = 0; // semitones
};

// A voice as it sounds: repeats, endings and parts played out, ties joined.
struct PerformedVoice
{
    QVector<TrackEvent> notes;   // of any pitch from 0 on; not sorted
    QVector<TrackEvent> changes; // keys and metres
    QVector<TrackEvent> tempos;
    PartReport report; // notes under pitch 0, and ties that lead to no note
    std::vector<PerformedChord> chords;
    std::vector<Ticks> measures; // where the bar lines are
    Ticks end = 0;
    int repeatsPlayed = 0; // how often the music went back
};

// partOrder: the parts to play, by their letters; empty: the music as it stands. Throws a QString when the voice plays
// longer than any tune, and Interrupted soon after a stop.
PerformedVoice perform(const VoiceScore &score, const QString &partOrder, GraceNotes graces,
                       const std::stop_token &stop = {});
