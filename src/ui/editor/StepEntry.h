#pragma once

#include "ui/Shortcuts.h"

#include <QAction>
#include <QSet>
#include <QVector>

class AbcTextEdit;
class EditorDocument;
class PianoRoll;

// Enters what is played on a MIDI keyboard where the caret is, in the view that has the focus: keys that are down
// together are a chord, which is entered when the last of them is let go. Notes are as long as those that are drawn.
class StepEntry : public QObject
{
    Q_OBJECT

public:
    // All outlive it.
    StepEntry(EditorDocument &document, AbcTextEdit &text, PianoRoll &roll, QObject *parent);

    static KeyRow keyRow();
    QAction *action() { return action_; } // a switch, which is off at first

    void press(int pitch);
    void release(int pitch);

private:
    void enter();
    void enterInText(const QVector<quint32> &chord);

    EditorDocument &document_;
    AbcTextEdit &text_;
    PianoRoll &roll_;
    QAction *action_;
    QSet<int> held_;
    QVector<quint32> chord_;
};
