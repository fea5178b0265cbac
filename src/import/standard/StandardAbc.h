#pragma once

#include "core/Track.h"
#include "import/PartReport.h"
#include "import/standard/StandardAbcOptions.h"

#include <QString>
#include <QVector>

#include <optional>
#include <stop_token>

// Reads ABC as the standard 2.1 means it, which is not always what the game makes of the same text, and gives tracks
// that the game plays as a musician reads the tune: repeats, endings and parts played out, a track for each voice.

struct StandardVoice
{
    Track track;                // normalised, without a text
    std::optional<int> program; // of General MIDI, that the tune asks for
    std::optional<int> channel; // 1..16; drums on 10
    PartReport report;          // what is said once of a tune is in its first voice
};

struct StandardTune
{
    QString number; // of X:
    QString title;
    QVector<StandardVoice> voices; // those with notes
    QString error;                 // why it could not be read; then there are no voices
    int outOfRange = 0;            // notes that no instrument plays
    PartReport silent;             // of voices without notes
    int unreadable = 0;            // fields and characters without a meaning
    int repeatsPlayed = 0;
    bool hasTempo = false; // otherwise it plays at the usual 120 quarters a minute
};

// The tunes of a text in their order; one that cannot be read carries its error. Throws a QString when
// there are too many, and Interrupted soon after a stop.
QVector<StandardTune> importStandardAbc(const QString &text, const StandardAbcOptions &options = {},
                                        const std::stop_token &stop = {});
