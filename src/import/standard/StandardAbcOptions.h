#pragma once

// What readers of standard ABC do differently; the standard leaves it open, or old texts do not keep to it.

// What a grace note does: it sounds in time taken from the note behind it, or not at all.
enum class GraceNotes { TakeTime, Drop };

// What a number alone, "Q:120", counts: unit notes by the standard, quarters in the habit of some programs.
enum class BareTempo { UnitNotes, Quarters };

// Chord names over the music: in a remark of the header, or played as a part of their own.
enum class ChordNames { Note, Play };

struct StandardAbcOptions
{
    ChordNames chordNames = ChordNames::Note;
    GraceNotes graces = GraceNotes::TakeTime;
    BareTempo bareTempo = BareTempo::UnitNotes;
};
