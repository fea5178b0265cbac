#pragma once

#include "app/services/Playback.h"
#include "audio/player/TrackPlayer.h"
#include "edit/NoteEdit.h"
#include "edit/TextChange.h"
#include "ui/Shortcuts.h"

#include <QMap>
#include <QPointer>
#include <QTimer>

#include <optional>

class AbcEditorWindow;
struct Companions;
class Dialogs;
class Settings;
class SongSession;

// The ABC editors that are open, at most one a track. They share one player beside the song's. An editor without
// unapplied changes follows its track; what another one holds is handed to the session as the track's draft, in the
// middle of typing too, and comes back when an editor opens on the track. On the interface thread.
class EditorWindows : public QObject
{
    Q_OBJECT

public:
    // What is referred to outlives it; the parent is also that of the windows.
    EditorWindows(SongSession &session, TrackList &tracks, const Playback &playback, Settings &settings,
                  Dialogs &dialogs, EngineFactory makeEngine, QWidget *parent);
    ~EditorWindows() override;

    static QVector<KeyRow> keyRows(); // of the editors' commands

    void open(const QString &trackId);
    void openAt(const QString &trackId, Ticks tick); // with the caret there
    // With the caret at a place of the applied text; at the tick where that is empty, which may be -1 for nowhere.
    void openAt(const QString &trackId, TextRange range, Ticks tick);
    // Whose editor is active; empty: none.
    QString trackInFront() const;
    // Of a MIDI keyboard; they enter notes in the editor that is active.
    void pressKey(int pitch);
    void releaseKey(int pitch);
    // Into the editor's text, where that holds what is not applied; whether it was changed, nothing where there is no
    // such editor.
    std::optional<bool> insertNotes(const QString &trackId, const QVector<NoteSpec> &notes, const QString &step);
    // Adds what was edited of a track that was removed; the editor belongs to the new track from then on.
    void bringBack(const QString &trackId, const Track &track);
    // Those of tracks that are gone, whose changes no song has, ask about them; false when one stays open. The others
    // close without a question when the song is left, since whoever leaves it has asked.
    bool closeStrays();
    // What is typed and not applied is part of the song from here on.
    void handInDrafts();
    // Their player's, at its next start.
    void renewEngine();

signals:
    void applied(const QString &trackId, const Track &track);
    void saveRequested(const QString &trackId);

private:
    using Window = QPointer<AbcEditorWindow>;
    void connectPlaying(const Window &window);
    Companions companionsOf(const Window &window) const;
    void showOthers(const QString &trackId) const;
    void addWindow(const QString &trackId);
    void apply(const QStringList &trackIds);
    void leaveAll();
    QString retire(const Window &window);
    void follow(const SongTracks &before, const SongTracks &after);

    SongSession &session_;
    TrackList &tracks_;
    const Playback &playback_;
    Settings &settings_;
    Dialogs &dialogs_;
    EngineFactory makeEngine_;
    QWidget *parent_;
    std::unique_ptr<TrackPlayer> player_; // made for the first editor
    QMap<QString, Window> windows_;
    QVector<Window> retired_; // closed, and about to be deleted
    QTimer typing_;
};
