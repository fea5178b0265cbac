#pragma once

#include "audio/TempoMap.h"
#include "core/Measures.h"

#include <QObject>

#include <memory>

class Playback;
class TrackList;

// Where in the song we are: the position that a person sets, from which Play begins, and which runs while it plays.
// When the playing ends, the position goes back to where it was set last. Measures and seconds are those of the song's
// leader. On the interface thread.
class Transport : public QObject
{
    Q_OBJECT

public:
    // Both outlive it.
    Transport(const TrackList &tracks, Playback &playback, QObject *parent = nullptr);

    Ticks position() const { return position_; }
    qint64 milliseconds(Ticks tick) const;
    const Measures &measures() const { return measures_; }
    // The track whose tempo and measures they are; an empty one while there is none.
    Track counted() const { return counted_ ? *counted_ : Track(); }

    // Also while it plays; within the song.
    void setPosition(Ticks position);
    void goToEnd();
    void goMeasureBack();
    void goMeasureForward();

    void play(); // anew while it plays
    // Plays, or stays where it plays.
    void playOrPause();
    // Ends the playing; when nothing plays, goes back to where the position was set, and from there to the start.
    void stop();
    bool canStop() const;

    // What the player tells of a track.
    void report(const QString &trackId, Ticks position);

signals:
    void positionChanged(Ticks position);
    void measuresChanged();

private:
    void followSong();
    void followPlaying(bool isPlaying);
    void moveTo(Ticks position);

    const TrackList &tracks_;
    Playback &playback_;
    QString leader_; // the track that is counted
    std::shared_ptr<const Track> counted_;
    Measures measures_;
    TempoMap tempo_;
    Ticks position_ = 0;
    Ticks mark_ = 0;       // where the position was set last
    Ticks afterwards_ = 0; // when the playing has ended
};
