#pragma once

#include "app/keyboard/LiveKeyboard.h"
#include "app/keyboard/SongClock.h"
#include "edit/NoteEdit.h"

#include <QHash>

class Dialogs;
class OutputControl;
class QWidget;
class Transport;

// Writes down what is played on the keyboard while the song runs: on a grid, into the part that is played, as one step
// to undo. On the interface thread.
class KeyRecorder : public QObject
{
    Q_OBJECT

public:
    // The grids that there are to choose from: notes in a whole one.
    static const QVector<int> grids;

    struct Song
    {
        Settings &settings;
        TrackList &tracks;
        Playback &playback;
        Transport &transport;
        EditorWindows &editors;
        Dialogs &dialogs;
        QWidget *window; // in front of which is asked
        const OutputControl &output;
    };

    // All outlive it.
    KeyRecorder(const Song &song, LiveKeyboard &keyboard, QObject *parent = nullptr);

    bool isRecording() const { return clock_.has_value(); }
    // Into the part that is played at the moment; there must be one. The song is to be played next, unless it has
    // neither notes nor beats: then its time runs from here. tempoFactor: as it is heard.
    void start(double tempoFactor);
    // What was played becomes notes of the part; where its text would lose what stands beside the notes and the user
    // does not want that, a part of its own.
    void finish();
    void cancel(); // it does not

    // What the player tells of a track that runs with the song.
    void report(Ticks position);

signals:
    void recordingChanged(bool isRecording);

private:
    struct Key
    {
        int pitch;
        qint64 pressed; // milliseconds
        qint64 released;
    };

    void press(int pitch, qint64 at);
    void release(int pitch, qint64 at);
    void convert(const Key &key);
    Ticks step() const;
    void write(const QVector<NoteSpec> &notes);
    bool writeInto(Track track, const QVector<NoteSpec> &notes);
    void writeAsPart(const QVector<NoteSpec> &notes);

    Song song_;
    LiveKeyboard &keyboard_;
    std::optional<SongClock> clock_; // while it records
    QString part_;
    Ticks from_ = 0;         // where the song began
    Ticks lastPosition_ = 0; // that was told
    QHash<int, qint64> held_;
    QVector<Key> early_; // before it is known where the song is
    QVector<NoteSpec> played_;
};
