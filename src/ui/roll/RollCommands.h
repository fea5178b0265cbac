#pragma once

#include "edit/notes/NoteMove.h"
#include "ui/document/EditorDocument.h"

#include <QTimer>

#include <functional>
#include <optional>

struct RollState;

// What can be done to the notes in the piano roll, by keys, menus and the mouse alike. Every change of notes is one
// step of the document's history. The commands bring the document's reading up to date before they use it. They read
// the state, and rely on its owner to follow the document and the signals at once.
class RollCommands : public QObject
{
    Q_OBJECT

public:
    enum class Direction { Back = -1, Forward = 1 };

    // Both must outlive the commands.
    RollCommands(EditorDocument &document, const RollState &state, QObject *parent = nullptr);

    // Reads what was typed, so that the state shows what the next command will find.
    void bringUpToDate() { document_.update(); }

    // The cursor stands on a tick and a pitch. The document's caret goes along when the cursor is set, not when an edit
    // takes it on.
    void setCursor(Ticks tick);
    void setCursor(Ticks tick, int pitch);
    void placeCursor(Ticks tick, int pitch);
    void setCursorToEnd();

    // Move the selected notes together; without a selection, the cursor. Movement in time stops at the start, movement
    // in pitch is refused when a note would leave the playable range. A note that comes to rest on another of its pitch
    // and start replaces it; those that keys move pass through what they do not rest on, up to a pause.
    void moveByStep(Direction direction);
    void moveByMeasure(Direction direction);
    void moveBySemitones(int semitones);
    void moveNotes(Ticks ticks, int semitones);
    void copyNotes(Ticks ticks, int semitones);

    // No note becomes shorter than one grid step, unless it was.
    void resizeByStep(Direction direction);
    void resizeNotes(Ticks ticks);

    // At the cursor, as long as the note last drawn or resized. The cursor goes to its end.
    void insertAtCursor();
    // The letter's note in the key that holds there, nearest to the cursor's pitch, or above the selected note and at
    // its start. Letters count C D E F G A B = 0..6.
    void enterLetter(int letter);
    void addLetterToChord(int letter);
    void enterRest(); // what sounds there stays
    void chooseNewNoteLength(Ticks length);
    void insertNote(const NoteSpec &note);
    void insertChordAtCursor(const QVector<quint32> &pitches); // playable ones
    Ticks newNoteLength() const;

    void removeSelected();
    void cut();
    void copy();      // as ABC
    void paste();     // ABC, at the cursor
    void duplicate(); // behind the selection

    enum class Selecting { Replace, Extend, Toggle };
    // Notes by their events, sorted.
    void select(const QVector<int> &events, Selecting selecting);
    void selectAll();
    void selectNone();
    // The note before or after the selection, or from the cursor on when there is none.
    void selectNeighbour(Direction direction, Selecting selecting);

    // How far the selected notes can really go.
    Ticks possibleShift(Ticks ticks) const;
    int possibleTransposition(int semitones) const; // all or nothing
    Ticks possibleGrowth(Ticks ticks) const;

signals:
    void cursorPlaced(Ticks tick, int pitch); // both in range
    void cursorCarried(int pitch);            // by notes that were moved or inserted there
    void notesMoved();                        // show them
    void noteTouched(int pitch);              // let it sound for a moment
    void newNoteLengthChanged();
    void said(const QString &message);

private:
    // Keys that follow each other make one step.
    void moveByKeys(Ticks ticks, int semitones);
    bool isInGesture() const;
    void tellMoved(const NoteMove &move);
    static QString nameOf(const NoteMove &move);

    using Changer = std::function<void(NoteSpec &)>;
    int semitoneOf(int letter) const;
    bool changeSelected(const Changer &change, const QString &name);
    QVector<NoteSpec> selectedSpecs() const;
    void insertSelected(QVector<NoteSpec> notes, Ticks shift, const QString &name);
    QVector<NoteSpec> clipboardNotes() const;

    EditorDocument &document_;
    const RollState &state_;
    std::optional<Ticks> lastLength_; // that a note was given or that was chosen
    NoteMove gesture_;
    QVector<int> gestureSelection_; // behind its last key
    QTimer pause_;                  // runs while a key goes on with the gesture
};
