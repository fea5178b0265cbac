#pragma once

#include <QColor>
#include <QPalette>

// The colours of the piano roll, all mixed from a palette and the colour of notes, so that they follow light and dark
// looks.
struct RollColours
{
    struct Note
    {
        QColor fill;
        QColor edge;
        QColor text;
    };

    QColor whiteRow;
    QColor blackRow;
    QColor rowLine;
    QColor octaveLine;
    QColor snapLine;
    QColor beatLine;
    QColor measureLine;
    QColor unplayable; // laid over rows that the game cannot play
    QColor silent;     // hatched over rows that the instrument has no sample for
    QColor afterEnd;   // laid over what follows the last note
    QColor whiteKey;
    QColor blackKey;
    QColor keyLine;
    QColor keyText;
    QColor ruler;
    QColor rulerText;
    QColor rulerMark;
    QColor error;
    QColor warning;
    QColor cursor;
    QColor playing; // position line and the keys that sound
    QColor band;
    Note note;
    Note selected;
    Note sounding;
    Note ghost; // of another part
    Note faded; // where a note comes from while it is dragged

    RollColours(const QPalette &palette, const QColor &noteColour);
};
