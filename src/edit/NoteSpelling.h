#pragma once

#include "core/Ticks.h"

#include <QString>

#include <map>

// Writes notes as ABC among others: knows which accidentals hold where it stands.
class NoteSpelling
{
public:
    // A new measure: only the key's own accidentals hold.
    void begin(quint32 keyRow);
    void nextMeasure() { accidentals_.clear(); }
    // Within a measure; the accidentals that were written in it still hold.
    void setKey(quint32 keyRow) { keyRow_ = keyRow; }

    // Accidental, letter and octave; the accidental only where another one is in force. It holds from here on.
    QString write(quint32 pitch);

    // Steps are diatonic, 7 to an octave, 0 is middle C; accidentals +1 for each sharp, -1 for each flat.
    int inForce(int step) const;
    void set(int step, int accidental) { accidentals_[step] = accidental; }

    // "^", "__", or "=" for 0.
    static QString accidentalText(int accidental);

private:
    quint32 keyRow_ = 0;
    std::map<int, int> accidentals_; // of the measure, by step
};

// "", "2", "/", "3/4": the length in units.
QString lengthText(Ticks length, Ticks unitLength);
