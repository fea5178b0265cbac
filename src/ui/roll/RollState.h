#pragma once

#include "check/findings/Finding.h"
#include "core/Measures.h"
#include "ui/roll/RollColours.h"
#include "ui/roll/RollGeometry.h"
#include "ui/roll/RollNotes.h"
#include "ui/roll/RollSnap.h"

#include <QRectF>

#include <bitset>
#include <optional>
#include <vector>

class EditorDocument;
struct Instrument;

// What a mouse drag in progress would do to the track when it ended here; the canvas shows it.
struct RollDrag
{
    enum class Kind { None, Band, Move, Copy, Resize, Draw };

    Kind kind = Kind::None;
    QRectF band;       // Band: in canvas pixels
    Ticks ticks = 0;   // Move, Copy: later by; Resize: longer by
    int semitones = 0; // Move, Copy: higher by
    RollNote drawn;

    bool isRunning() const { return kind != Kind::None; }
    bool changesNotes() const { return kind == Kind::Move || kind == Kind::Resize; }
    RollNote applied(RollNote note) const;
};

// What the parts of the piano roll (canvas, keyboard, ruler, commands, mouse) read. The roll keeps it and alone changes
// it: by what the document tells, and by what the parts ask for with their signals.
struct RollState
{
    enum NoteFlag : quint8 { Selected = 1, Sounding = 2, AtCaret = 4 };
    using PitchSet = std::bitset<128>;

    RollGeometry geometry;
    RollColours colours{QPalette(), Qt::blue};
    Measures measures;
    RollNotes notes;
    std::vector<quint8> noteFlags; // one for each note
    std::vector<RollNotes> ghosts; // of other parts, behind the notes
    QVector<Finding> findings;     // that have a place in time
    Ticks length = 0;
    quint32 keyRow = 0;

    RollSnap snap;
    PitchSet silent;       // pitches that the instrument has no sample near; none without an instrument
    PitchSet soundingKeys; // lit on the keyboard
    std::optional<int> keyUnderMouse;
    Ticks cursor = 0; // where notes are inserted and pasted
    int cursorPitch = 60;
    std::optional<Ticks> playing;

    bool has(int note, NoteFlag flag) const { return (noteFlags[size_t(note)] & flag) != 0; }

    // The note's rectangle on the canvas, without the gap to its neighbour.
    QRectF rect(const RollNote &note) const;

    // "Measure 3, beat 2", "C4".
    QString positionText(Ticks tick) const;
    QString pitchText(int pitch) const;
    QString noteText(const RollNote &note) const; // with its length

    void readTrack(const EditorDocument &document);
    void readFlags(const EditorDocument &document);
    void readFindings(const EditorDocument &document);
    // Gives the keys that begin or cease to be lit.
    PitchSet readSounding(const EditorDocument &document);
    void readInstrument(const Instrument &instrument);

    static bool isBlackKey(int pitch) { return ((1 << pitch % 12) & 0b010101001010) != 0; }
};
