#pragma once

#include "core/Ticks.h"
#include "edit/TextChange.h"

#include <QStringList>

// What a check can find. Each has its row in FindingKinds.
enum class FindingKind : quint8 {
    // in the text of a part
    RefusedText,
    OutOfRange,
    EmptyMeasure,
    PickUp,
    BarLineSilence,
    BarLineOverlap,
    LongText,
    OpenGraceNotes,
    StraySign,
    LostTie,
    UnreadableField,
    IgnoredField,
    SecondTune,
    // in its notes
    EmptyPart,
    ManyNotes,
    // on its instrument
    UnknownInstrument,
    NoSample,
    FarFromSample,
    // beside the other parts
    TempoDiffers,
    StartDiffers,
    LengthDiffers,
};
constexpr int findingKindCount = int(FindingKind::LengthDiffers) + 1;

// A note is worth knowing, a warning is probably not meant, an error is not played as it is written.
enum class Severity : quint8 { Note, Warning, Error };

// One thing that a check found in a part. A plain value.
struct Finding
{
    FindingKind kind = FindingKind::RefusedText;
    TextRange range = {};         // of the part's text; empty when it is about the part as a whole
    Ticks tick = -1;              // of the part; -1 where time does not matter
    QStringList values = {};      // what the sentence names
    QVector<TextChange> fix = {}; // of the part's text, in its order; empty where there is not one right answer
};
