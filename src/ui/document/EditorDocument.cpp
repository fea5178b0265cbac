#include "ui/document/EditorDocument.h"

#include "base/ErrorText.h"
#include "check/PartCheck.h"
#include "check/findings/FindingKinds.h"
#include "check/findings/Fixes.h"
#include "core/AbcParser.h"
#include "edit/NoteLookup.h"
#include "edit/plan/NoteEditPlan.h"

#include <QPlainTextDocumentLayout>
#include <QTextBlock>
#include <QTextCursor>
#include <QThreadPool>

#include <algorithm>
#include <memory>
#include <utility>

namespace {

constexpr int restBeforeReading = 150; // ms
constexpr int restBeforeChecking = 60;

// Of the part by itself and its one instrument: it may have no notes yet, and the song knows whether it has the
// instrument that the text names.
QVector<Finding> findingsIn(const QString &text, const Instrument &instrument, const CheckOptions &options,
                            const std::stop_token &stop)
{
    InstrumentSet instruments;
    if (!instrument.tuning.notes.isEmpty())
        instruments.add(instrument);
    auto findings = checkPart(text, instrument.name, instruments, options, stop).findings;
    findings.erase(std::remove_if(findings.begin(), findings.end(),
                                  [](const Finding &finding) {
                                      return finding.kind == FindingKind::EmptyPart ||
                                             finding.kind == FindingKind::UnknownInstrument;
                                  }),
                   findings.end());
    return findings;
}

// That of a text of 3 MB takes longer than half a blink to free. Whoever else holds a part of it has let go of it.
void freeBesideInterface(AbcReading reading)
{
    constexpr int quicklyFreed = 10'000; // events
    if (reading.track.events().size() < quicklyFreed)
        return;
    const auto held = std::make_shared<AbcReading>(std::move(reading));
    QThreadPool::globalInstance()->start([held] { *held = {}; });
}

} // namespace

EditorDocument::EditorDocument(QObject *parent) : QObject(parent)
{
    text_.setDocumentLayout(new QPlainTextDocumentLayout(&text_));
    restTimer_.setSingleShot(true);
    restTimer_.setInterval(restBeforeReading);
    connect(&restTimer_, &QTimer::timeout, this, &EditorDocument::startReading);
    checkTimer_.setSingleShot(true);
    checkTimer_.setInterval(restBeforeChecking);
    connect(&checkTimer_, &QTimer::timeout, this, &EditorDocument::startChecking);
    connect(&text_, &QTextDocument::contentsChange, this, &EditorDocument::onContentsChange);
    connect(&text_, &QTextDocument::modificationChanged, this,
            [this](bool modified) { emit isAppliedChanged(!modified); });
    setTrack({});
}

void EditorDocument::setTrack(const Track &track)
{
    applied_ = track;
    text_.setPlainText(applied_.toAbc());
    text_.setModified(false);
    stepNames_.clear();
    selection_.clear();
    update();
}

void EditorDocument::onContentsChange(int position, int removed, int added)
{
    if (removed == added && text_.revision() == seenTextRevision_)
        return;
    seenTextRevision_ = text_.revision();
    ++revision_;
    reading_.addTyping(position, removed, added);
    findings_.addTyping(position, removed, added);
    restTimer_.start();
    emit charactersChanged();
}

void EditorDocument::startReading()
{
    if (isCurrent())
        return;
    if (reader_.isRunning()) {
        restTimer_.start();
        return;
    }
    const auto read = [text = text_.toPlainText()](const TaskControl &) { return readAbc(text); };
    const auto take = [this, revision = revision_](const AbcReading &reading) { takeLateReading(reading, revision); };
    reader_.start(read, take, [take](const QString &error) { take(unreadableAbc(error)); });
}

void EditorDocument::takeLateReading(const AbcReading &reading, int revision)
{
    if (revision == revision_ && !isCurrent())
        takeReading(reading, revision);
}

void EditorDocument::update()
{
    if (!isCurrent())
        takeReading(readAbc(text_.toPlainText()), revision_);
}

void EditorDocument::takeReading(AbcReading reading, int revision)
{
    selection_.follow(track(), reading.track);
    auto before = *reading_;
    reading_.take(std::move(reading));
    readRevision_ = revision;
    restTimer_.stop();
    findings_.takeRefusals(reading_->problems);
    checkTimer_.start();
    playback_.follow(track());
    caret_ = reading_.caretAt(caret_.offset);
    emit readingChanged();
    emit findingsChanged();
    emit selectionChanged();
    emit caretChanged();
    freeBesideInterface(std::move(before));
}

void EditorDocument::startChecking()
{
    if (!isCurrent())
        return;
    const auto check = [text = text_.toPlainText(), instrument = instrument_,
                        options = checkOptions_](const TaskControl &control) {
        return findingsIn(text, instrument, options, control.stop());
    };
    const auto take = [this, revision = revision_](const QVector<Finding> &findings) {
        if (revision != revision_)
            return;
        findings_.take(findings);
        emit findingsChanged();
    };
    checker_.start(check, take, [](const QString &) {}); // the reader says the same
}

void EditorDocument::setCheckOptions(const CheckOptions &options)
{
    if (options == checkOptions_)
        return;
    checkOptions_ = options;
    checkTimer_.start();
}

void EditorDocument::fix(const QVector<Finding> &findings)
{
    const auto changes = combinedFixes(findings);
    if (changes.isEmpty())
        return;
    replaceRanges(changes, FindingKinds::fixText(findings.first().kind), Step::New);
    update();
}

void EditorDocument::selectNotes(const QVector<int> &notes)
{
    if (selection_.select(notes, track()))
        emit selectionChanged();
}

void EditorDocument::moveCaret(int offset)
{
    caret_ = reading_.caretAt(offset);
    emit caretChanged();
}

void EditorDocument::setCaret(int offset, TextRange selection)
{
    moveCaret(offset);
    selectNotes(selection.isEmpty() ? QVector<int>() : reading_.notesWithin(selection));
}

void EditorDocument::setCaretTick(Ticks tick)
{
    update();
    const auto &elements = reading_->layout.elements;
    const auto element = reading_->layout.elementAtTick(tick);
    if (element < 0)
        emit caretMoveRequested(reading_->layout.bodyOffset);
    else if (element + 1 == elements.size() && tick >= elements[element].end())
        emit caretMoveRequested(text_.characterCount() - 1);
    else
        emit caretMoveRequested(elements[element].range.offset);
}

void EditorDocument::replaceRanges(const QVector<TextChange> &changes, const QString &name, Step step)
{
    const auto stepsBefore = text_.availableUndoSteps();
    const auto from = step == Step::Joined ? stepNames_.beginOf(stepsBefore) : stepsBefore;
    QTextCursor cursor(&text_);
    if (step == Step::Joined)
        cursor.joinPreviousEditBlock();
    else
        cursor.beginEditBlock();
    for (auto change = changes.rbegin(); change != changes.rend(); ++change) {
        cursor.setPosition(change->range.offset);
        cursor.setPosition(change->range.end(), QTextCursor::KeepAnchor);
        cursor.insertText(change->text);
    }
    cursor.endEditBlock();
    stepNames_.name(from, text_.availableUndoSteps(), name);
}

bool EditorDocument::mayMake(const NoteEditPlan::Plan &plan, const QString &text) const
{
    return !plan.rewritesAll || (mayRewrite_ && mayRewrite_(lostInRewriting(text)));
}

bool EditorDocument::edit(const NoteEdit &edit, const QString &name)
{
    endGesture();
    return editAs(Step::New, edit, name);
}

bool EditorDocument::editAndSelect(const NoteEdit &edit, const QString &name, const QVector<NoteSpec> &selected)
{
    endGesture();
    return editAs(Step::New, edit, name, selected);
}

bool EditorDocument::editInLastStep(const NoteEdit &edit, const QString &name, const QVector<NoteSpec> &selected)
{
    endGesture();
    return editAs(Step::Joined, edit, name, selected);
}

bool EditorDocument::editAs(Step step, const NoteEdit &edit, const QString &name,
                            const std::optional<QVector<NoteSpec>> &selected)
{
    update();
    const auto text = text_.toPlainText();
    auto plan = NoteEditPlan::plan(text, *reading_, edit);
    if (!plan || !mayMake(*plan, text))
        return false;
    const auto place = caretPlace();
    replaceRanges(plan->changes, name, step);
    selection_.clear();
    takeReading(std::move(plan->reading), revision_);
    selectNotes(findNotes(track(), selected.value_or(plan->touched)));
    if (selected && selected->isEmpty())
        keepCaret(place);
    return true;
}

bool EditorDocument::beginGesture(const NoteEdit &edit, const QString &name)
{
    update();
    Gesture gesture{text_.toPlainText(), *reading_, selection_};
    if (!this->edit(edit, name))
        return false;
    gesture.hasStep = true;
    gesture.revision = revision_;
    gesture_ = std::move(gesture);
    return true;
}

bool EditorDocument::editInstead(const NoteEdit &edit, const QString &name)
{
    if (!isInGesture())
        return false;
    auto plan = NoteEditPlan::plan(gesture_->text, gesture_->reading, edit);
    if (!plan) {
        takeBackGesture();
        return true;
    }
    if (!mayMake(*plan, gesture_->text))
        return false;
    const auto wanted = applyChanges(gesture_->text, plan->changes);
    replaceRanges({difference(text_.toPlainText(), wanted)}, name, gesture_->hasStep ? Step::Joined : Step::New);
    gesture_->hasStep = true;
    gesture_->revision = revision_;
    selection_.clear();
    takeReading(std::move(plan->reading), revision_);
    selectNotes(findNotes(track(), plan->touched));
    return true;
}

void EditorDocument::takeBackGesture()
{
    if (gesture_->hasStep) {
        text_.undo();
        text_.clearUndoRedoStacks(QTextDocument::RedoStack);
        stepNames_.forgetBehind(text_.availableUndoSteps());
    }
    gesture_->hasStep = false;
    gesture_->revision = revision_;
    selection_.clear();
    takeReading(gesture_->reading, revision_);
    selection_ = gesture_->selection;
    emit selectionChanged();
}

bool EditorDocument::insertNotes(const QVector<NoteSpec> &notes, const QString &name)
{
    NoteEdit insertion;
    insertion.inserted = notes;
    return edit(insertion, name);
}

bool EditorDocument::removeNotes(const QVector<int> &notes, const QString &name)
{
    NoteEdit removal;
    removal.removed = notes;
    return edit(removal, name);
}

void EditorDocument::replaceRange(TextRange range, const QString &text, const QString &name)
{
    replaceRanges({{range, text}}, name, Step::New);
}

void EditorDocument::replaceText(const QString &text, const QString &name)
{
    const auto old = text_.toPlainText();
    if (old == text)
        return;
    update();
    const auto place = caretPlace();
    replaceRanges({difference(old, text)}, name, Step::New);
    update();
    keepCaret(place);
}

EditorDocument::CaretPlace EditorDocument::caretPlace() const
{
    const auto block = text_.findBlock(caret_.offset);
    return {block.blockNumber(), caret_.offset - block.position(), text_.blockCount(), caret_.tick};
}

// On its line; where the lines are others, with the music.
void EditorDocument::keepCaret(const CaretPlace &place)
{
    if (text_.blockCount() != place.lineCount) {
        setCaretTick(place.tick);
        return;
    }
    const auto block = text_.findBlockByNumber(place.line);
    emit caretMoveRequested(block.position() + std::min(place.column, block.length() - 1));
}

QString EditorDocument::undoName() const
{
    return stepNames_.of(text_.availableUndoSteps(), tr("Typing"));
}

void EditorDocument::undo()
{
    const auto place = caretPlace();
    text_.undo();
    update();
    keepCaret(place);
}

void EditorDocument::redo()
{
    const auto place = caretPlace();
    text_.redo();
    update();
    keepCaret(place);
}

std::optional<QString> EditorDocument::draft() const
{
    return isApplied() ? std::nullopt : std::optional(text_.toPlainText());
}

void EditorDocument::setDraft(const QString &text)
{
    replaceText(text, tr("Draft"));
}

Track EditorDocument::exactTrack()
{
    return parseAbc(text_.toPlainText());
}

bool EditorDocument::apply(QString *error)
{
    try {
        auto track = exactTrack();
        track.setFilePath(applied_.filePath());
        applied_ = track;
    } catch (...) {
        if (error != nullptr)
            *error = currentErrorText();
        return false;
    }
    text_.setModified(false);
    emit applied(applied_);
    return true;
}

void EditorDocument::setInstrument(const Instrument &instrument)
{
    instrument_ = instrument;
    checkTimer_.start();
    emit instrumentChanged();
}

void EditorDocument::setPlayPosition(Ticks tick)
{
    if (playback_.setPosition(tick))
        emit playPositionChanged(tick);
}

void EditorDocument::setSoundingNotes(const QVector<NoteSpec> &notes)
{
    if (playback_.setNotes(notes, track()))
        emit soundingNotesChanged();
}
