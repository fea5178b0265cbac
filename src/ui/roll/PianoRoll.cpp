#include "ui/roll/PianoRoll.h"

#include "core/HeaderFields.h"
#include "settings/Settings.h"
#include "ui/roll/RollKeyboard.h"
#include "ui/roll/RollRuler.h"
#include "ui/roll/RollText.h"

#include <cmath>
#include <utility>

namespace {

constexpr int previewMilliseconds = 250;
constexpr int edgeScrollMilliseconds = 30;
constexpr int normalHScale = 4;
constexpr int normalVScale = 2;

bool hasSample(const NoteEntry &entry)
{
    return !entry.files.isEmpty() && std::isfinite(entry.rate) && entry.rate > 0;
}

} // namespace

PianoRoll::PianoRoll(EditorDocument &document, Settings &settings, QWidget *parent)
    : QAbstractScrollArea(parent), document_(document), settings_(settings), commands_(document, state_),
      mouse_(document, state_, commands_), actions_(new RollActions(*this)), keyboard_(new RollKeyboard(state_, this)),
      ruler_(new RollRuler(state_, this))
{
    setFocusPolicy(Qt::StrongFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setAccessibleName(tr("Piano roll"));
    viewport()->setMouseTracking(true);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    for (QWidget *side : {static_cast<QWidget *>(keyboard_), static_cast<QWidget *>(ruler_)}) {
        side->setFocusPolicy(Qt::ClickFocus);
        side->setFocusProxy(this);
    }
    previewEnd_.setSingleShot(true);
    previewEnd_.setInterval(previewMilliseconds);
    edgeScroll_.setInterval(edgeScrollMilliseconds);
    state_.geometry.setHScale(settings_.value(Settings::PianoRollHScale).toInt());
    state_.geometry.setVScale(settings_.value(Settings::PianoRollVScale).toInt());

    connectDocument();
    connectParts();
    readColours();
    readInstrument();
    readTrack();
}

PianoRoll::~PianoRoll() = default;

void PianoRoll::connectDocument()
{
    connect(&document_, &EditorDocument::readingChanged, this, &PianoRoll::readTrack);
    connect(&document_, &EditorDocument::selectionChanged, this, &PianoRoll::onSelectionChanged);
    connect(&document_, &EditorDocument::caretChanged, this, &PianoRoll::onCaretChanged);
    connect(&document_, &EditorDocument::instrumentChanged, this, &PianoRoll::readInstrument);
    connect(&document_, &EditorDocument::soundingNotesChanged, this, &PianoRoll::onSoundingChanged);
    connect(&document_, &EditorDocument::playPositionChanged, this, &PianoRoll::onPlayPositionChanged);
    connect(this, &PianoRoll::previewNote, &document_,
            [this](int pitch) { document_.playPreviewNote(quint32(pitch)); });
    connect(this, &PianoRoll::stopPreview, &document_, &EditorDocument::stopPreviewNote);
    connect(&settings_, &Settings::settingChanged, this, [this](Settings::Setting setting) {
        if (setting == Settings::NoteColor)
            readColours();
    });
}

void PianoRoll::connectParts()
{
    connect(&commands_, &RollCommands::cursorMoved, this, &PianoRoll::onCursorMoved);
    connect(&commands_, &RollCommands::noteTouched, this, &PianoRoll::soundBriefly);
    connect(&commands_, &RollCommands::notesMoved, this, [this] {
        if (const auto &selected = document_.selectedNotes(); !selected.isEmpty() && !mouse_.isDown())
            showNote(state_.notes[state_.notes.ofEvent(selected.first())]);
    });
    connect(&mouse_, &RollMouse::dragChanged, viewport(), qOverload<>(&QWidget::update));
    connect(&mouse_, &RollMouse::notePressed, this, &PianoRoll::previewNote);
    connect(&mouse_, &RollMouse::noteReleased, this, &PianoRoll::stopPreview);
    connect(keyboard_, &RollKeyboard::pressed, this, [this](int pitch) {
        commands_.placeCursor(state_.cursor, pitch);
        emit previewNote(pitch);
    });
    connect(keyboard_, &RollKeyboard::released, this, &PianoRoll::stopPreview);
    connect(keyboard_, &RollKeyboard::hovered, this, &PianoRoll::setKeyUnderMouse);
    connect(ruler_, &RollRuler::cursorPicked, this, [this](Ticks tick) { commands_.setCursor(tick); });
    connect(ruler_, &RollRuler::playRequested, this, &PianoRoll::playRequested);
    connect(&previewEnd_, &QTimer::timeout, this, &PianoRoll::stopPreview);
    connect(&edgeScroll_, &QTimer::timeout, this, &PianoRoll::dragBeyondEdge);
}

// --- what the roll shows

void PianoRoll::readTrack()
{
    mouse_.cancel();
    const auto &track = document_.track();
    state_.measures = Measures(track);
    state_.notes = RollNotes(track);
    state_.length = track.length();
    const auto key =
        HeaderFields::findKey(track.headerField(QStringLiteral("K")), HeaderFields::ModeReading::WholeWord);
    state_.keyRow = key.value_or(HeaderFields::Key()).row;
    if (document_.unitLength() > 0)
        state_.snap.setUnit(document_.unitLength());
    actions_->update();
    readFlags();
    onSoundingChanged();
    updateScrollBars();
    showMiddleOfNotes();
    updateAll();
}

void PianoRoll::readFlags()
{
    state_.noteFlags.assign(size_t(state_.notes.count()), 0);
    const auto mark = [this](int event, RollState::NoteFlag flag) {
        if (const auto note = state_.notes.ofEvent(event); note >= 0)
            state_.noteFlags[size_t(note)] |= quint8(flag);
    };
    for (const auto event : document_.selectedNotes())
        mark(event, RollState::Selected);
    for (const auto event : document_.playback().notes())
        mark(event, RollState::Sounding);
    mark(document_.caret().note, RollState::AtCaret);
}

void PianoRoll::readInstrument()
{
    const auto &notes = document_.instrument().tuning.notes;
    state_.silent.reset();
    // Without an instrument nothing is known about its samples.
    for (quint32 pitch = 0; pitch < state_.silent.size() && !notes.isEmpty(); ++pitch) {
        const auto entry = notes.constFind(pitch);
        state_.silent.set(pitch, entry == notes.constEnd() || !hasSample(*entry));
    }
    updateAll();
}

void PianoRoll::readColours()
{
    state_.colours = RollColours(palette(), settings_.value(Settings::NoteColor).value<QColor>());
    auto names = font();
    names.setPixelSize(10);
    painter_.setFont(names);
    updateAll();
}

void PianoRoll::updateAll()
{
    viewport()->update();
    keyboard_->update();
    ruler_->update();
}

void PianoRoll::updateNotes(const QVector<int> &notes)
{
    const auto whole = viewport()->rect();
    for (const auto event : notes) {
        const auto note = state_.notes.ofEvent(event);
        if (note < 0)
            continue;
        const auto rect = state_.rect(state_.notes[note]).toAlignedRect().adjusted(-1, 0, 2, 0);
        viewport()->update(rect & whole);
    }
}

void PianoRoll::onSelectionChanged()
{
    readFlags();
    actions_->update();
    viewport()->update();
    updateAccessibleText();
    // What was selected in the text comes into sight.
    const auto &selected = document_.selectedNotes();
    if (!hasFocus() && !selected.isEmpty())
        showNote(state_.notes[state_.notes.ofEvent(selected.first())]);
}

void PianoRoll::onSoundingChanged()
{
    const auto before = std::exchange(shownSounding_, document_.playback().notes());
    readFlags();
    updateNotes(before);
    updateNotes(shownSounding_);

    RollState::PitchSet keys;
    for (const auto event : shownSounding_) {
        if (const auto note = state_.notes.ofEvent(event); note >= 0)
            keys.set(size_t(state_.notes[note].pitch));
    }
    const auto changed = state_.soundingKeys ^ keys;
    state_.soundingKeys = keys;
    for (size_t pitch = 0; changed.any() && pitch < changed.size(); ++pitch) {
        if (changed.test(pitch))
            keyboard_->updateKey(int(pitch));
    }
}

void PianoRoll::onPlayPositionChanged(Ticks tick)
{
    if (state_.playing)
        updateLine(*state_.playing);
    state_.playing = tick < 0 ? std::optional<Ticks>() : tick;
    if (!state_.playing)
        return;
    followPlayback(tick);
    updateLine(tick);
}

// The text's caret takes the cursor along unless the roll is where the user works.
void PianoRoll::onCaretChanged()
{
    readFlags();
    viewport()->update();
    if (!hasFocus() && !mouse_.isDown())
        commands_.placeCursor(document_.caret().tick, state_.cursorPitch);
}

void PianoRoll::onCursorMoved()
{
    updateLine(shownCursor_);
    updateLine(state_.cursor);
    shownCursor_ = state_.cursor;
    updateScrollBars();
    if (!mouse_.isDown()) {
        showTick(state_.cursor);
        showPitch(state_.cursorPitch);
    }
    updateAccessibleText();
    emit statusChanged(RollText::position(state_.cursor, state_.measures) + QStringLiteral(" · ") +
                       RollText::pitch(state_.cursorPitch, state_.keyRow));
}

void PianoRoll::updateLine(Ticks tick)
{
    const auto x = int(state_.geometry.x(tick));
    viewport()->update(x - 2, 0, 8, viewport()->height());
    ruler_->updateMark(tick);
}

void PianoRoll::updateAccessibleText()
{
    const auto &selected = document_.selectedNotes();
    auto text = RollText::position(state_.cursor, state_.measures) + QStringLiteral(", ") +
                RollText::pitch(state_.cursorPitch, state_.keyRow);
    if (selected.size() == 1)
        text = describe(state_.notes[state_.notes.ofEvent(selected.first())]);
    else if (!selected.isEmpty())
        text = tr("%n note(s) selected", nullptr, int(selected.size()));
    setAccessibleDescription(text); // tells assistive programs by itself
}

QString PianoRoll::describe(const RollNote &note) const
{
    return tr("%1, %2, length %3")
        .arg(RollText::pitch(note.pitch, state_.keyRow), RollText::position(note.start, state_.measures),
             RollText::length(note.length));
}

void PianoRoll::soundBriefly(int pitch)
{
    if (previewEnd_.isActive())
        emit stopPreview();
    emit previewNote(pitch);
    previewEnd_.start();
}

void PianoRoll::setKeyUnderMouse(std::optional<int> pitch)
{
    const auto before = std::exchange(state_.keyUnderMouse, pitch);
    if (before == pitch)
        return;
    for (const auto changed : {before, pitch}) {
        if (changed)
            keyboard_->updateKey(*changed);
    }
}

// --- commands about the view

void PianoRoll::setSnap(int choice)
{
    state_.snap.setChoice(std::clamp(choice, 0, RollSnap::choiceCount() - 1));
    actions_->update();
    viewport()->update();
}

void PianoRoll::changeSnap(int steps)
{
    setSnap(state_.snap.choice() + steps);
}

void PianoRoll::cancelOrSelectNone()
{
    if (mouse_.isDown())
        mouse_.cancel();
    else
        commands_.selectNone();
}

void PianoRoll::zoomTime(int steps)
{
    applyZoom(state_.geometry.hScale() + steps, state_.geometry.vScale(), viewport()->rect().center());
}

void PianoRoll::zoomPitch(int steps)
{
    applyZoom(state_.geometry.hScale(), state_.geometry.vScale() + steps, viewport()->rect().center());
}

void PianoRoll::zoomNormal()
{
    applyZoom(normalHScale, normalVScale, viewport()->rect().center());
}
