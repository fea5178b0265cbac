#pragma once

#include "app/services/Playback.h"
#include "audio/TrackPlayer.h"

#include <QMap>
#include <QPointer>

class AbcEditorWindow;
class Dialogs;
class Settings;

// The ABC editors that are open, at most one a track. They share one player beside the song's. An editor without
// unapplied changes follows its track. On the interface thread.
class EditorWindows : public QObject
{
    Q_OBJECT

public:
    // What is referred to outlives it; the parent is also that of the windows.
    EditorWindows(TrackList &tracks, const Playback &playback, Settings &settings, Dialogs &dialogs,
                  EngineFactory makeEngine, QWidget *parent);
    ~EditorWindows() override;

    void open(const QString &trackId);
    // Adds what was edited of a track that was removed; the editor belongs to the new track from then on.
    void bringBack(const QString &trackId, const Track &track);
    // Each may ask about its changes; false when one stays open.
    bool closeAll();

signals:
    void applied(const QString &trackId, const Track &track);

private:
    void follow(const SongTracks &before, const SongTracks &after);

    TrackList &tracks_;
    const Playback &playback_;
    Settings &settings_;
    Dialogs &dialogs_;
    EngineFactory makeEngine_;
    QWidget *parent_;
    std::unique_ptr<TrackPlayer> player_; // made for the first editor
    QMap<QString, QPointer<AbcEditorWindow>> windows_;
};
