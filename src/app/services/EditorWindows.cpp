#include "app/services/EditorWindows.h"

#include "app/services/SongSession.h"
#include "ui/editor/AbcEditorWindow.h"
#include "ui/editor/EditorActions.h"
#include "ui/editor/EditorPlayback.h"
#include "ui/editor/GhostParts.h"
#include "ui/editor/StepEntry.h"

namespace {

constexpr int typingPauseMs = 300; // while somebody types, the draft is handed in so often

}

EditorWindows::EditorWindows(SongSession &session, TrackList &tracks, const Playback &playback, Settings &settings,
                             Dialogs &dialogs, EngineFactory makeEngine, QWidget *parent)
    : QObject(parent), session_(session), tracks_(tracks), playback_(playback), settings_(settings), dialogs_(dialogs),
      makeEngine_(std::move(makeEngine)), parent_(parent)
{
    typing_.setSingleShot(true);
    typing_.setInterval(typingPauseMs);
    connect(&typing_, &QTimer::timeout, this, &EditorWindows::handInDrafts);
    // No state of the song lacks what was typed before it.
    connect(&session_, &SongSession::changed, this, [this] {
        if (typing_.isActive())
            handInDrafts();
    });
    connect(&session_, &SongSession::aboutToSave, this, &EditorWindows::apply);
    connect(&session_, &SongSession::left, this, &EditorWindows::leaveAll);
    connect(&tracks_, &TrackList::songChanged, this, &EditorWindows::follow);
}

// The windows use the player to their end.
QVector<KeyRow> EditorWindows::keyRows()
{
    return EditorActions::keyRows();
}

EditorWindows::~EditorWindows()
{
    qDeleteAll(windows_);
    qDeleteAll(retired_);
}

void EditorWindows::open(const QString &trackId)
{
    if (!tracks_.find(trackId))
        return;
    if (!windows_.value(trackId))
        addWindow(trackId);
    const auto window = windows_.value(trackId);
    window->show();
    window->raise();
    window->activateWindow();
}

void EditorWindows::renewEngine()
{
    if (player_)
        player_->renewEngine();
}

void EditorWindows::openAt(const QString &trackId, Ticks tick)
{
    open(trackId);
    if (const auto window = windows_.value(trackId))
        window->document().setCaretTick(tick);
}

QString EditorWindows::trackInFront() const
{
    for (auto each = windows_.cbegin(); each != windows_.cend(); ++each) {
        if (*each && (*each)->isActiveWindow())
            return each.key();
    }
    return {};
}

void EditorWindows::pressKey(int pitch)
{
    if (const auto window = windows_.value(trackInFront()))
        window->stepEntry().press(pitch);
}

// Wherever it was pressed.
void EditorWindows::releaseKey(int pitch)
{
    for (const auto &window : std::as_const(windows_)) {
        if (window)
            window->stepEntry().release(pitch);
    }
}

std::optional<bool> EditorWindows::insertNotes(const QString &trackId, const QVector<NoteSpec> &notes,
                                               const QString &step)
{
    const auto window = windows_.value(trackId);
    if (!window || window->document().isApplied())
        return {};
    return window->document().insertNotes(notes, step);
}

void EditorWindows::openAt(const QString &trackId, TextRange range, Ticks tick)
{
    if (range.isEmpty() && tick >= 0)
        return openAt(trackId, tick);
    open(trackId);
    const auto window = windows_.value(trackId);
    if (window && !range.isEmpty())
        window->document().setCaretOffset(range.offset);
}

void EditorWindows::addWindow(const QString &trackId)
{
    if (!player_)
        player_ = std::make_unique<TrackPlayer>(makeEngine_);
    const Window window = new AbcEditorWindow(settings_, dialogs_, *player_, parent_);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->setTrack(tracks_.trackWithPath(trackId));
    window->setInstrument(playback_.instrument(tracks_.find(trackId)->instrument));
    window->setInstruments(playback_.instruments().names());
    if (const auto draft = session_.draft(trackId))
        window->document().setDraft(*draft);
    windows_.insert(trackId, window);
    connectPlaying(window);
    showOthers(trackId);
    connect(window, &AbcEditorWindow::applied, this,
            [=, this](const Track &edited) { emit applied(windows_.key(window), edited); });
    connect(window, &AbcEditorWindow::saveRequested, this, [=, this] {
        handInDrafts();
        emit saveRequested(windows_.key(window));
    });
    connect(window, &AbcEditorWindow::closing, this,
            [=, this](const std::optional<QString> &draft) { session_.setDraft(retire(window), draft); });
    const auto &document = window->document();
    // Not before what is applied is in the song: no moment is without both.
    connect(&document, &EditorDocument::isAppliedChanged, this, &EditorWindows::handInDrafts, Qt::QueuedConnection);
    connect(&document, &EditorDocument::charactersChanged, this, [this] {
        if (!typing_.isActive())
            typing_.start();
    });
}

// One plays at a time.
void EditorWindows::connectPlaying(const Window &window)
{
    window->playback().setCompanions([=, this] { return companionsOf(window); });
    connect(&window->playback(), &EditorPlayback::playingChanged, this, [=, this](bool isPlaying) {
        for (const auto &other : std::as_const(windows_)) {
            if (isPlaying && other && other != window)
                other->playback().stop();
        }
    });
}

Companions EditorWindows::companionsOf(const Window &window) const
{
    Companions companions;
    const auto edited = windows_.key(window);
    for (const auto &track : tracks_.song()) {
        const auto request = playback_.requestFor(*track, PlayRequest::Begin::AtTheStart);
        if (track->id == edited)
            companions = {request.level, request.offset, companions.others};
        else if (!track->isMuted)
            companions.others.append(request);
    }
    return companions;
}

void EditorWindows::showOthers(const QString &trackId) const
{
    QVector<OtherPart> others;
    for (const auto &track : tracks_.song()) {
        if (track->id != trackId)
            others.append({track->id, track->track});
    }
    if (const auto window = windows_.value(trackId))
        window->ghosts().setParts(others);
}

void EditorWindows::handInDrafts()
{
    typing_.stop();
    for (auto each = windows_.cbegin(); each != windows_.cend(); ++each) {
        if (*each)
            session_.setDraft(each.key(), (*each)->document().draft());
    }
}

// What has errors stays a draft.
void EditorWindows::apply(const QStringList &trackIds)
{
    for (const auto &id : trackIds) {
        const auto window = windows_.value(id);
        if (window && !window->document().isApplied())
            window->document().apply();
    }
    handInDrafts();
}

// What they hold is part of the song, which may be discarded.
void EditorWindows::leaveAll()
{
    handInDrafts();
    const auto windows = windows_;
    for (const auto &window : windows) {
        if (!window)
            continue;
        retire(window);
        window->document().text()->setModified(false);
        window->close();
    }
}

// Nothing of it counts any more. Gives the track that it was about.
QString EditorWindows::retire(const Window &window)
{
    const auto trackId = windows_.key(window);
    window->document().disconnect(this);
    window->disconnect(this);
    windows_.remove(trackId);
    retired_.removeAll(Window());
    retired_.append(window);
    return trackId;
}

void EditorWindows::bringBack(const QString &trackId, const Track &track)
{
    auto unsaved = track;
    unsaved.setFilePath({}); // which holds the track as it was
    const auto instrument = playback_.instrumentNameFor(track);
    const auto id = tracks_.add(tr("Edit Track"), {{unsaved, instrument}}).first();
    const auto window = windows_.take(trackId);
    windows_.insert(id, window);
    session_.setDraft(trackId, {});
    if (window)
        window->setInstrument(playback_.instrument(instrument));
}

bool EditorWindows::closeStrays()
{
    handInDrafts();                // whoever asks about the song next is to know of them
    const auto windows = windows_; // an applied change reassigns one
    for (auto each = windows.cbegin(); each != windows.cend(); ++each) {
        if (*each && !tracks_.find(each.key()) && !(*each)->close())
            return false;
    }
    return true;
}

void EditorWindows::follow(const SongTracks &before, const SongTracks &after)
{
    for (const auto &track : after) {
        const auto window = windows_.value(track->id);
        if (!window || before.contains(track))
            continue;
        window->setInstrument(playback_.instrument(track->instrument));
        auto shown = window->document().appliedTrack();
        auto now = tracks_.trackWithPath(track->id);
        if (window->document().isApplied() && shown.toAbc() != now.toAbc())
            window->setTrack(now);
    }
    for (const auto &id : windows_.keys()) {
        showOthers(id);
        if (const auto window = windows_.value(id))
            window->playback().followSong();
    }
}
