#include "ui/document/EditorDocument.h"

#include "core/AbcParser.h"
#include "edit/NoteEditPlan.h"

#include <QPlainTextDocumentLayout>
#include <QTextCursor>
#include <QtConcurrent>

#include <algorithm>

namespace {

constexpr int restBeforeReading = 150; // ms

// The one stretch in which the texts differ, so that carets and marks outside stay where they are.
TextChange difference(const QString &from, const QString &to)
{
    const auto shorter = std::min(from.size(), to.size());
    const auto same = int(std::mismatch(from.begin(), from.begin() + shorter, to.begin()).first - from.begin());
    int tail = 0;
    while (tail < shorter - same && from[from.size() - 1 - tail] == to[to.size() - 1 - tail])
        ++tail;
    return {{same, int(from.size()) - tail - same}, to.mid(same, int(to.size()) - tail - same)};
}

} // namespace

EditorDocument::EditorDocument(QObject *parent) : QObject(parent)
{
    text_.setDocumentLayout(new QPlainTextDocumentLayout(&text_));
    restTimer_.setSingleShot(true);
    restTimer_.setInterval(restBeforeReading);
    connect(&restTimer_, &QTimer::timeout, this, &EditorDocument::startReading);
    connect(&reader_, &QFutureWatcherBase::finished, this, &EditorDocument::finishReading);
    connect(&text_, &QTextDocument::contentsChange, this, &EditorDocument::onContentsChange);
    connect(&text_, &QTextDocument::modificationChanged, this,
            [this](bool modified) { emit isAppliedChanged(!modified); });
    setTrack({});
}

EditorDocument::~EditorDocument()
{
    reader_.waitForFinished();
}

void EditorDocument::setTrack(const Track &track)
{
    applied_ = track;
    text_.setPlainText(applied_.toAbc());
    text_.setModified(false);
    stepNames_.clear();
    selectedNotes_.clear();
    update();
}

void EditorDocument::onContentsChange(int position, int removed, int added)
{
    if (removed == added && text_.revision() == seenTextRevision_)
        return;
    seenTextRevision_ = text_.revision();
    ++revision_;
    typing_.append({position, removed, added});
    restTimer_.start();
}

void EditorDocument::startReading()
{
    if (isCurrent())
        return;
    if (reader_.isRunning()) {
        restTimer_.start();
        return;
    }
    startedRevision_ = revision_;
    reader_.setFuture(QtConcurrent::run(readAbc, text_.toPlainText()));
}

void EditorDocument::finishReading()
{
    if (startedRevision_ == revision_ && !isCurrent())
        takeReading(reader_.result(), startedRevision_);
}

void EditorDocument::update()
{
    if (!isCurrent())
        takeReading(readAbc(text_.toPlainText()), revision_);
}

void EditorDocument::takeReading(AbcReading reading, int revision)
{
    const auto selected = specs(selectedNotes_);
    reading_ = std::move(reading);
    readRevision_ = revision;
    typing_.clear();
    restTimer_.stop();
    selectedNotes_ = indicesOf(selected);
    soundingNotes_ = indicesOf(soundingSpecs_);
    findCaret();
    emit readingChanged();
    emit selectionChanged();
    emit caretChanged();
}

// Typing over a range takes it away; a range that typing only touches stays.
TextRange EditorDocument::sinceReading(TextRange range) const
{
    for (const auto &typing : typing_) {
        if (typing.position + typing.removed <= range.offset)
            range.offset += typing.added - typing.removed;
        else if (typing.position < range.end())
            return {};
    }
    return range;
}

int EditorDocument::beforeTyping(int offset) const
{
    for (auto typing = typing_.rbegin(); typing != typing_.rend(); ++typing) {
        if (offset >= typing->position + typing->added)
            offset += typing->removed - typing->added;
        else
            offset = std::min(offset, typing->position);
    }
    return offset;
}

TextRange EditorDocument::textOf(int note) const
{
    return note >= 0 && note < reading_.noteTexts.size() ? sinceReading(reading_.noteTexts[note]) : TextRange();
}

int EditorDocument::noteAt(int offset) const
{
    const auto at = beforeTyping(offset);
    const auto token = reading_.layout.tokenAt(at);
    if (token < 0 || reading_.layout.tokens[token].range.end() < at)
        return -1;
    return reading_.layout.tokens[token].event;
}

QVector<int> EditorDocument::notesWithin(TextRange range) const
{
    const auto begin = beforeTyping(range.offset);
    const auto end = beforeTyping(range.end());
    QVector<int> notes;
    const auto &tokens = reading_.layout.tokens;
    for (auto i = reading_.layout.tokenAt(begin - 1) + 1; i < tokens.size() && tokens[i].range.end() <= end; ++i) {
        if (tokens[i].event >= 0)
            notes.append(tokens[i].event);
    }
    return notes;
}

void EditorDocument::setSelection(const QVector<int> &notes)
{
    auto sorted = notes;
    std::sort(sorted.begin(), sorted.end());
    sorted.erase(std::unique(sorted.begin(), sorted.end()), sorted.end());
    if (sorted == selectedNotes_)
        return;
    selectedNotes_ = sorted;
    emit selectionChanged();
}

void EditorDocument::selectNotes(const QVector<int> &notes)
{
    QVector<int> existing;
    for (const auto note : notes) {
        if (note >= 0 && note < track().events().size() && track().events()[note].isNote())
            existing.append(note);
    }
    setSelection(existing);
}

void EditorDocument::moveCaret(int offset)
{
    caretOffset_ = offset;
    findCaret();
    emit caretChanged();
}

void EditorDocument::setCaret(int offset, TextRange selection)
{
    moveCaret(offset);
    setSelection(selection.isEmpty() ? QVector<int>() : notesWithin(selection));
}

// Between two elements the caret stands at the beginning of the next.
void EditorDocument::findCaret()
{
    const auto &elements = reading_.layout.elements;
    const auto at = beforeTyping(caretOffset_);
    const auto element = reading_.layout.elementAt(at);
    caretNote_ = noteAt(caretOffset_);
    if (element >= 0 && at <= elements[element].range.end())
        caretTick_ = elements[element].start;
    else if (element + 1 < elements.size())
        caretTick_ = elements[element + 1].start;
    else
        caretTick_ = elements.isEmpty() ? 0 : elements.last().end();
}

void EditorDocument::setCaretTick(Ticks tick)
{
    update();
    const auto &elements = reading_.layout.elements;
    const auto element = reading_.layout.elementAtTick(tick);
    if (element < 0)
        emit caretMoveRequested(reading_.layout.bodyOffset);
    else if (element + 1 == elements.size() && tick >= elements[element].end())
        emit caretMoveRequested(text_.characterCount() - 1);
    else
        emit caretMoveRequested(elements[element].range.offset);
}

QVector<NoteSpec> EditorDocument::specs(const QVector<int> &notes) const
{
    QVector<NoteSpec> result;
    for (const auto note : notes) {
        const auto &event = track().events()[note];
        result.append({event.start(), event.length(), event.pitch()});
    }
    return result;
}

QVector<int> EditorDocument::indicesOf(const QVector<NoteSpec> &notes) const
{
    QVector<int> result;
    const auto &events = track().events();
    for (const auto &note : notes) {
        for (auto i = track().firstEventAtOrAfter(note.start); i < events.size() && events[i].start() == note.start;
             ++i) {
            if (events[i].isNote() && events[i].pitch() == note.pitch && events[i].length() == note.length)
                result.append(i);
        }
    }
    std::sort(result.begin(), result.end());
    result.erase(std::unique(result.begin(), result.end()), result.end());
    return result;
}

void EditorDocument::replaceRanges(const QVector<TextChange> &changes, const QString &name)
{
    QTextCursor cursor(&text_);
    cursor.beginEditBlock();
    for (auto change = changes.rbegin(); change != changes.rend(); ++change) {
        cursor.setPosition(change->range.offset);
        cursor.setPosition(change->range.end(), QTextCursor::KeepAnchor);
        cursor.insertText(change->text);
    }
    cursor.endEditBlock();
    const auto step = text_.availableUndoSteps();
    stepNames_.erase(stepNames_.lower_bound(step), stepNames_.end());
    stepNames_[step] = name;
}

bool EditorDocument::edit(const NoteEdit &edit, const QString &name)
{
    update();
    const auto wanted = NoteEditPlan::cleaned(track(), edit);
    if (wanted.changed.isEmpty() && wanted.removed.isEmpty() && wanted.inserted.isEmpty())
        return false;
    auto result = NoteEditPlan::editedTrack(track(), wanted);
    const auto text = text_.toPlainText();
    auto changes = NoteEditPlan::textChanges(text, reading_, wanted);
    AbcReading reading;
    if (changes)
        reading = readAbc(NoteEditPlan::applyChanges(text, *changes));
    if (!changes || !NoteEditPlan::haveSameEvents(reading.track, result)) {
        changes = {difference(text, result.toAbc())};
        reading = readAbc(result.toAbc());
    }
    replaceRanges(*changes, name);

    QVector<NoteSpec> touched = wanted.inserted;
    for (const auto &change : wanted.changed)
        touched.append(change.to);
    selectedNotes_.clear();
    takeReading(std::move(reading), revision_);
    setSelection(indicesOf(touched));
    return true;
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

void EditorDocument::replaceText(const QString &text, const QString &name)
{
    const auto old = text_.toPlainText();
    if (old == text)
        return;
    replaceRanges({difference(old, text)}, name);
    update();
}

QString EditorDocument::undoName() const
{
    const auto name = stepNames_.find(text_.availableUndoSteps());
    return name != stepNames_.end() ? name->second : tr("Typing");
}

void EditorDocument::undo()
{
    text_.undo();
    update();
}

void EditorDocument::redo()
{
    text_.redo();
    update();
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
    } catch (const QString &message) {
        if (error != nullptr)
            *error = message;
        return false;
    }
    text_.setModified(false);
    emit applied(applied_);
    return true;
}

void EditorDocument::setInstrument(const Instrument &instrument)
{
    instrument_ = instrument;
    emit instrumentChanged();
}

void EditorDocument::setPlayPosition(Ticks tick)
{
    if (tick == playPosition_)
        return;
    playPosition_ = tick;
    emit playPositionChanged(tick);
}

void EditorDocument::setSoundingNotes(const QVector<NoteSpec> &notes)
{
    soundingSpecs_ = notes;
    const auto sounding = indicesOf(notes);
    if (sounding == soundingNotes_)
        return;
    soundingNotes_ = sounding;
    emit soundingNotesChanged();
}
