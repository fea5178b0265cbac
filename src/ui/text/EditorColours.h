#pragma once

#include "check/findings/Finding.h"

#include <QColor>

class QPalette;

// The colours of ABC text on a light or a dark ground.
struct EditorColours
{
    QColor field;
    QColor note;
    QColor accidental;
    QColor length;
    QColor rest;
    QColor bar;
    QColor chord;
    QColor tuplet;
    QColor decoration;
    QColor text; // in quotation marks
    QColor comment;
    QColor tie;

    QColor currentLine;
    QColor lineNumber;
    QColor caretNote;
    QColor selectedNote;
    QColor soundingNote;
    QColor bracket;
    QColor found;
    QColor problem;
    QColor warning;

    const QColor &of(Severity severity) const { return severity == Severity::Error ? problem : warning; }

    static const EditorColours &of(const QPalette &palette);
};
