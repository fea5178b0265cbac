#pragma once

#include "app/TrackList.h"
#include "assets/InstrumentSetModel.h"

#include <QObject>
#include <QSet>

class TrackPlayer;

// Plays the song: tells the player what the user asks for, and every change of the song while it sounds. On the
// interface thread.
class Playback : public QObject
{
    Q_OBJECT

public:
    Playback(TrackList &list, const InstrumentSetModel &catalogue, TrackPlayer &player, QObject *parent = nullptr);

    // What a track without an instrument of the catalogue plays.
    void setDefaultInstrument(const QString &name) { defaultInstrument_ = name; }
    // The name that is played under this name: itself, the default, or the first of the catalogue; empty while the
    // catalogue is.
    QString resolvedName(const QString &name) const;
    Instrument instrument(const QString &name) const;

    bool isPlaying() const { return !playing_.isEmpty(); }
    void play(); // from the start
    void stop();
    void seek(Ticks position); // all tracks together

signals:
    void playingChanged(bool isPlaying);

private:
    void follow(const Song &before, const Song &after);
    void followTrack(const SongTrack &before, const SongTrack &after);
    void start(const SongTrack &track);
    void onTrackStarted(const QString &id);
    void onTrackStopped(const QString &id);

    TrackList &list_;
    const InstrumentSetModel &catalogue_;
    TrackPlayer &player_;
    QString defaultInstrument_;
    QSet<QString> playing_;
    Ticks position_ = 0; // of the track that reported last
};

// The dials' percents as the player takes them.
constexpr float gainOf(int percent)
{
    return float(percent) / 100;
}
