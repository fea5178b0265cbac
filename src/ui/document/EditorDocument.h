#pragma once

#include "assets/Instrument.h"
#include "base/Task.h"
#include "check/findings/CheckOptions.h"
#include "check/findings/LiveFindings.h"
#include "core/Track.h"
#include "edit/LiveReading.h"
#include "edit/NoteEdit.h"
#include "edit/NoteSelection.h"
#include "edit/PlaybackMarks.h"
#include "edit/StepNames.h"
#include "edit/plan/RewriteLoss.h"

#include <QObject>
#include <QTextDocument>
#include <QTimer>

#include <functional>
#include <optional>

namespace NoteEditPlan {
struct Plan;
}

// The one tune under the text and the piano roll of the ABC editor. Its QTextDocument holds the tune and the only undo
// history; track() is what the text means. All of it lives on the user interface's thread.
//
// Notes are named by their index in track().events(). The indices hold until readingChanged(); those of the selection,
// the caret and the sounding notes are new before that signal leaves. Positions in the text are offsets in UTF-16 units
// from its beginning, which is what QTextCursor counts.
//
// The text is read again 150 ms after it last changed, in the background; where it has errors, track() is what could be
// read of it. An edit in notes first reads the text at once when it must, and is itself read at once. What is wrong
// with it is looked for in the background whenever it was read.
class EditorDocument : public QObject
{
    Q_OBJECT

public:
    // Begins with an empty tune.
    explicit EditorDocument(QObject *parent = nullptr);

    // Begins with a new tune: its text becomes the applied state and the history is empty.
    void setTrack(const Track &track);

    QTextDocument *text() { return &text_; }
    bool isCurrent() const { return readRevision_ == revision_; } // false while the text was changed and not yet read
    void update();                                                // reads the text now if it is not current

    // What was read last. The track keeps its header, tempo and metre; events are in order of start.
    const AbcReading &reading() const { return *reading_; }
    const Track &track() const { return reading_->track; }
    bool hasErrors() const { return !reading_->problems.isEmpty(); }
    Ticks unitLength() const { return reading_->unitLength; } // the L field in ticks

    // What is wrong with the text as it stands now: what cannot be read as soon as the text was read, all else of it,
    // and fixes, soon after.
    const QVector<Finding> &findings() const { return findings_.all(); }
    QVector<Finding> findingsAt(TextRange range) const { return findings_.at(range); }
    void setCheckOptions(const CheckOptions &options);
    // Makes the fixes one step of the history; of those that overlap, the first one.
    void fix(const QVector<Finding> &findings);

    // See LiveReading.
    TextRange textOf(int note) const { return reading_.textOf(note); }
    TextRange sinceReading(TextRange range) const { return reading_.sinceReading(range); }
    int beforeTyping(int offset) const { return reading_.beforeTyping(offset); }
    int noteAt(int offset) const { return reading_.noteAt(offset); }

    // --- selection and caret: set by either view, shown by both.
    const QVector<int> &selectedNotes() const { return selection_.notes(); }
    const TextCaret &caret() const { return caret_; }

    // --- edits in notes. Each is one undo step called `name` in the history, changes only the characters that it must,
    // or the measures that it reaches into, and selects the changed and inserted notes. Where only a new text can hold
    // the notes, it is written after a question. The name is said as a command is: "Move Notes".
    // Starts below 0, lengths below 1 and pitches outside the playable range are brought into range; a note that comes
    // to lie on another of the same pitch and start replaces it. False when nothing changed.
    bool edit(const NoteEdit &edit, const QString &name);
    bool insertNotes(const QVector<NoteSpec> &notes, const QString &name);
    bool removeNotes(const QVector<int> &notes, const QString &name);

    // An edit that may be followed by others in its place, such as a key that is pressed again and again: editInstead()
    // takes back the edit before and makes its own of the notes as they were, as the same undo step. Its indices are of
    // the notes before the gesture; an edit without changes takes all back. The gesture ends with any other change.
    bool isInGesture() const { return gesture_ && gesture_->revision == revision_; }
    bool beginGesture(const NoteEdit &edit, const QString &name);
    bool editInstead(const NoteEdit &edit, const QString &name);
    void endGesture() { gesture_.reset(); }

    // Exchanges the whole text as one undo step, for transformations. The caret stays on its line.
    void replaceText(const QString &text, const QString &name);
    // For commands: as edit(), but these notes are selected behind it, and without any the caret stays on its line.
    bool editAndSelect(const NoteEdit &edit, const QString &name, const QVector<NoteSpec> &selected);
    // The edit becomes a part of the step before.
    bool editInLastStep(const NoteEdit &edit, const QString &name, const QVector<NoteSpec> &selected);

    // Asked what the text may lose, before all of it is written anew. Nobody to ask means no.
    using RewriteQuestion = std::function<bool(const RewriteLoss &)>;
    void setRewriteQuestion(const RewriteQuestion &mayRewrite) { mayRewrite_ = mayRewrite; }

    // Exchanges a part of the text as one undo step.
    void replaceRange(TextRange range, const QString &text, const QString &name);

    bool canUndo() const { return text_.isUndoAvailable(); }
    bool canRedo() const { return text_.isRedoAvailable(); }
    QString undoName() const; // of the step that undo() would take back
    // Whether it was typed; what was not leaves the caret on its line when it is taken back.
    bool isTypingUndone() const { return !stepNames_.has(text_.availableUndoSteps()); }
    bool isTypingRedone() const { return !stepNames_.hasNext(text_.availableUndoSteps()); }

    // --- the applied state: what the song holds.
    bool isApplied() const { return !text_.isModified(); }
    const Track &appliedTrack() const { return applied_; }
    // The text where it is not applied.
    std::optional<QString> draft() const;
    // Makes it the text, not applied, as one undo step.
    void setDraft(const QString &text);
    // Makes the text the applied state and emits applied(); when the text has an error, says it and changes nothing.
    bool apply(QString *error = nullptr);
    // What the text holds without errors, as the song would get it; throws a QString otherwise.
    Track exactTrack();

    // --- what sounds; the instrument decides which keys have a sample
    const Instrument &instrument() const { return instrument_; }
    void setInstrument(const Instrument &instrument);
    const PlaybackMarks &playback() const { return playback_; }

public slots:
    void undo();
    void redo();

    void selectNotes(const QVector<int> &notes);
    // From the text view: selects the notes whose characters lie within the range, and moves the caret to its end.
    void setCaret(int offset, TextRange selection);
    void moveCaret(int offset); // without a change to the selected notes
    // From the roll: the caret goes to what is written at the tick (the text view follows).
    void setCaretTick(Ticks tick);
    // From a list of places: likewise.
    void setCaretOffset(int offset) { emit caretMoveRequested(offset); }

    // A key or a note was touched and let go; the window plays it.
    void playPreviewNote(quint32 pitch) { emit previewNoteRequested(pitch); }
    void stopPreviewNote() { emit previewNoteStopped(); }

    // For the playback.
    void setPlayPosition(Ticks tick);
    void setSoundingNotes(const QVector<NoteSpec> &notes);

signals:
    void readingChanged();   // track(), problems and every index may differ
    void findingsChanged();  // typing that moves or removes some is not told
    void selectionChanged(); // selectedNotes()
    void caretChanged();
    void caretMoveRequested(int offset);
    void isAppliedChanged(bool applied);
    void charactersChanged(); // of the text, at once
    void applied(const Track &track);
    void instrumentChanged();
    void playPositionChanged(Ticks tick);
    void soundingNotesChanged();
    void previewNoteRequested(quint32 pitch);
    void previewNoteStopped();

private:
    void onContentsChange(int position, int removed, int added);
    void startReading();
    void takeLateReading(const AbcReading &reading, int revision);
    void takeReading(AbcReading reading, int revision);
    void startChecking();
    enum class Step { New, Joined };
    void replaceRanges(const QVector<TextChange> &changes, const QString &name, Step step);
    bool editAs(Step step, const NoteEdit &edit, const QString &name,
                const std::optional<QVector<NoteSpec>> &selected = {});
    void takeBackGesture();
    bool mayMake(const NoteEditPlan::Plan &plan, const QString &text) const;

    struct CaretPlace
    {
        int line = 0;
        int column = 0;
        int lineCount = 0;
        Ticks tick = 0;
    };
    CaretPlace caretPlace() const;
    void keepCaret(const CaretPlace &place);

    struct Gesture
    {
        QString text; // before it, as are these
        AbcReading reading;
        NoteSelection selection;
        bool hasStep = false; // in the history
        int revision = 0;     // behind its last edit
    };

    QTextDocument text_;
    int revision_ = 0; // of the text's characters; format changes do not count
    int seenTextRevision_ = -1;
    StepNames stepNames_;

    LiveReading reading_;
    int readRevision_ = 0;
    Task reader_;
    QTimer restTimer_;
    std::optional<Gesture> gesture_;
    RewriteQuestion mayRewrite_;
    LiveFindings findings_;
    CheckOptions checkOptions_;
    Task checker_;
    QTimer checkTimer_;

    Track applied_;
    Instrument instrument_;
    NoteSelection selection_;
    TextCaret caret_;
    PlaybackMarks playback_;
};
