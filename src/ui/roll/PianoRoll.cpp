#include "ui/roll/PianoRoll.h"

#include "settings/Settings.h"
#include "ui/roll/RollKeyboard.h"
#include "ui/roll/RollRuler.h"
#include "ui/timeline/SpokenPosition.h"

#include <utility>

namespace {

constexpr int previewMilliseconds = 250;
constexpr int edgeScrollMilliseconds = 30;
constexpr int focusRing = 2; // pixels
constexpr int normalHScale = 4;
constexpr int normalVScale = 2;

} // namespace

PianoRoll::PianoRoll(EditorDocument &document, Settings &settings, QWidget *parent)
    : QAbstractScrollArea(parent), document_(document), settings_(settings), commands_(document, state_),
      mouse_(state_, commands_), scroller_(state_, *viewport(), *horizontalScrollBar(), *verticalScrollBar()),
      actions_(new RollActions(commands_, *this)), keyboard_(new RollKeyboard(state_, this)),
      ruler_(new RollRuler(state_, this))
{
    setFocusPolicy(Qt::StrongFocus);
    setFrameShape(QFrame::Box);
    setFrameShadow(QFrame::Plain);
    setForegroundRole(QPalette::Mid); // of the frame, which has uneven edges at fractional scales
    setLineWidth(focusRing);
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
    connectActions();
    readColours();
    readInstrument();
    readTrack();
}

PianoRoll::~PianoRoll() = default;

void PianoRoll::connectDocument()
{
    connect(&document_, &EditorDocument::readingChanged, this, &PianoRoll::readTrack);
    connect(&document_, &EditorDocument::findingsChanged, this, [this] {
        state_.readFindings(document_);
        ruler_->update();
    });
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
    connect(&commands_, &RollCommands::cursorPlaced, this, &PianoRoll::onCursorPlaced);
    connect(&commands_, &RollCommands::cursorCarried, this, [this](int pitch) { state_.cursorPitch = pitch; });
    connect(&commands_, &RollCommands::newNoteLengthChanged, this, &PianoRoll::showLengths);
    connect(&commands_, &RollCommands::noteTouched, this, &PianoRoll::soundBriefly);
    connect(&commands_, &RollCommands::said, this, &PianoRoll::statusChanged);
    connect(&commands_, &RollCommands::notesMoved, this, [this] {
        if (!mouse_.isDown())
            showSelected();
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

void PianoRoll::connectActions()
{
    const auto on = [this](RollActions::Id id, auto run) {
        connect(actions_->action(id), &QAction::triggered, this, run);
    };
    on(RollActions::SelectTool, [this] { mouse_.setTool(RollMouse::Tool::Select); });
    on(RollActions::DrawTool, [this] { mouse_.setTool(RollMouse::Tool::Draw); });
    on(RollActions::SelectNone, [this] { cancelOrSelectNone(); });
    on(RollActions::PlayFromCursor, [this] { emit playRequested(state_.cursor); });
    on(RollActions::PlayOrStop, [this] { emit playOrStopRequested(state_.cursor); });
    on(RollActions::Finer, [this] { setSnap(state_.snap.choice() + 1); });
    on(RollActions::Coarser, [this] { setSnap(state_.snap.choice() - 1); });
    on(RollActions::ZoomIn, [this] { zoomTime(1); });
    on(RollActions::ZoomOut, [this] { zoomTime(-1); });
    on(RollActions::RowsHigher, [this] { zoomPitch(1); });
    on(RollActions::RowsLower, [this] { zoomPitch(-1); });
    on(RollActions::NormalSize, [this] { zoomNormal(); });
    connect(actions_, &RollActions::snapChosen, this, &PianoRoll::setSnap);
}

// --- what the roll shows

void PianoRoll::readTrack()
{
    mouse_.cancel();
    state_.readTrack(document_);
    updateActions();
    onSoundingChanged();
    scroller_.updateRanges();
    centreOnce();
    updateAll();
}

void PianoRoll::readInstrument()
{
    state_.readInstrument(document_.instrument());
    updateAll();
}

void PianoRoll::setGhosts(std::vector<RollNotes> ghosts)
{
    state_.ghosts = std::move(ghosts);
    scroller_.updateRanges();
    viewport()->update();
}

void PianoRoll::readColours()
{
    state_.colours = RollColours(palette(), settings_.value(Settings::NoteColor).value<QColor>());
    auto names = font();
    names.setPixelSize(10);
    painter_.setFont(names);
    updateAll();
}

void PianoRoll::updateActions()
{
    const auto selection =
        document_.selectedNotes().isEmpty() ? RollActions::Selection::None : RollActions::Selection::Some;
    actions_->update(selection, state_.snap);
    showLengths();
}

void PianoRoll::showLengths()
{
    actions_->showNewNoteLength(commands_.newNoteLength());
    emit lengthsChanged();
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
    state_.readFlags(document_);
    updateActions();
    viewport()->update();
    updateAccessibleText();
    // What was selected in the text comes into sight.
    if (!hasFocus())
        showSelected();
}

void PianoRoll::showSelected()
{
    if (const auto &selected = document_.selectedNotes(); !selected.isEmpty())
        scroller_.showNote(state_.notes[state_.notes.ofEvent(selected.first())]);
}

void PianoRoll::onSoundingChanged()
{
    const auto before = std::exchange(shownSounding_, document_.playback().notes());
    const auto changed = state_.readSounding(document_);
    updateNotes(before);
    updateNotes(shownSounding_);
    if (changed.any())
        keyboard_->update();
}

void PianoRoll::onPlayPositionChanged(Ticks tick)
{
    if (state_.playing)
        updateLine(*state_.playing);
    state_.playing = tick < 0 ? std::optional<Ticks>() : tick;
    if (!state_.playing)
        return;
    if (actions_->action(RollActions::Follow)->isChecked() && !mouse_.isDown() && !panFrom_)
        scroller_.follow(tick);
    updateLine(tick);
}

// The text's caret takes the cursor along unless the roll is where the user works.
void PianoRoll::onCaretChanged()
{
    state_.readFlags(document_);
    viewport()->update();
    if (!hasFocus() && !mouse_.isDown())
        commands_.placeCursor(document_.caret().insertion, state_.cursorPitch);
}

void PianoRoll::onCursorPlaced(Ticks tick, int pitch)
{
    updateLine(state_.cursor);
    state_.cursor = tick;
    state_.cursorPitch = pitch;
    updateLine(state_.cursor);
    scroller_.updateRanges();
    if (!mouse_.isDown()) {
        scroller_.showTick(state_.cursor);
        scroller_.showPitch(state_.cursorPitch);
    }
    updateAccessibleText();
    emit statusChanged(state_.positionText(state_.cursor) + QStringLiteral(" · ") +
                       state_.pitchText(state_.cursorPitch));
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
    auto text = spokenValue();
    if (selected.size() == 1)
        text = state_.noteText(state_.notes[state_.notes.ofEvent(selected.first())]);
    else if (!selected.isEmpty())
        text = tr("%n note(s) selected", nullptr, int(selected.size()));
    setAccessibleDescription(text); // tells assistive programs by itself
}

QString PianoRoll::spokenValue() const
{
    return state_.positionText(state_.cursor) + QStringLiteral(", ") + state_.pitchText(state_.cursorPitch);
}

std::optional<SpokenWidget::Range> PianoRoll::spokenRange() const
{
    return SpokenPosition::range(state_.measures, state_.cursor, state_.length);
}

void PianoRoll::setSpokenValue(double measure)
{
    commands_.setCursor(SpokenPosition::tick(state_.measures, measure));
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
    if (std::exchange(state_.keyUnderMouse, pitch) != pitch)
        keyboard_->update();
}

// --- commands about the view

void PianoRoll::setSnap(int choice)
{
    state_.snap.setChoice(std::clamp(choice, 0, RollSnap::choiceCount() - 1));
    updateActions();
    viewport()->update();
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
    zoom(state_.geometry.hScale() + steps, state_.geometry.vScale(), viewport()->rect().center());
}

void PianoRoll::zoomPitch(int steps)
{
    zoom(state_.geometry.hScale(), state_.geometry.vScale() + steps, viewport()->rect().center());
}

void PianoRoll::zoomNormal()
{
    zoom(normalHScale, normalVScale, viewport()->rect().center());
}

void PianoRoll::zoom(int hScale, int vScale, const QPoint &anchor)
{
    auto &geometry = state_.geometry;
    const auto before = geometry;
    geometry.setHScale(hScale);
    geometry.setVScale(vScale);
    if (geometry.hScale() == before.hScale() && geometry.vScale() == before.vScale())
        return;
    mouse_.cancel();
    scroller_.keepInPlace(anchor, before);
    updateAll();
    settings_.setValue(Settings::PianoRollHScale, geometry.hScale());
    settings_.setValue(Settings::PianoRollVScale, geometry.vScale());
}

// A tune that comes into view for the first time stands in the middle, from its first note on.
void PianoRoll::centreOnce()
{
    if (isCentred_ || state_.notes.count() == 0 || !isVisible())
        return;
    isCentred_ = true;
    scroller_.showMiddleOfNotes();
}
