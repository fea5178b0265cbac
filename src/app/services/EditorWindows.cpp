#include "app/services/EditorWindows.h"

#include "ui/editor/AbcEditorWindow.h"

EditorWindows::EditorWindows(TrackList &tracks, const Playback &playback, Settings &settings, Dialogs &dialogs,
                             EngineFactory makeEngine, QWidget *parent)
    : QObject(parent), tracks_(tracks), playback_(playback), settings_(settings), dialogs_(dialogs),
      makeEngine_(std::move(makeEngine)), parent_(parent)
{
    connect(&tracks_, &TrackList::songChanged, this, &EditorWindows::follow);
}

// The windows use the player to their end.
EditorWindows::~EditorWindows()
{
    for (const auto &window : std::as_const(windows_))
        delete window;
}

void EditorWindows::open(const QString &trackId)
{
    const auto *const track = tracks_.find(trackId);
    if (!track)
        return;
    auto &window = windows_[trackId];
    if (!window) {
        if (!player_)
            player_ = std::make_unique<TrackPlayer>(makeEngine_);
        window = new AbcEditorWindow(settings_, dialogs_, *player_, parent_);
        window->setAttribute(Qt::WA_DeleteOnClose);
        window->setTrack(tracks_.trackWithPath(trackId));
        window->setInstrument(playback_.instrument(track->instrument));
        connect(window, &AbcEditorWindow::applied, this,
                [this, applying = window](const Track &edited) { emit applied(windows_.key(applying), edited); });
    }
    window->show();
    window->raise();
    window->activateWindow();
}

void EditorWindows::bringBack(const QString &trackId, const Track &track)
{
    auto unsaved = track;
    unsaved.setFilePath({}); // which holds the track as it was
    const auto instrument = playback_.instrumentNameFor(track);
    const auto id = tracks_.add(tr("Edit Track"), {{unsaved, instrument}}).first();
    const auto window = windows_.take(trackId);
    windows_.insert(id, window);
    if (window)
        window->setInstrument(playback_.instrument(instrument));
}

bool EditorWindows::closeAll()
{
    const auto windows = windows_; // an applied change may reassign one
    for (const auto &window : windows) {
        if (window && !window->close())
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
}
