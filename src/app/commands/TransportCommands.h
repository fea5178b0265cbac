#pragma once

#include "app/commands/ActionRow.h"
#include "app/commands/CommandContext.h"
#include "ui/timeline/TimeSpan.h"

#include <QCoreApplication>
#include <QVector>

class QSlider;
class TrackPlayer;
class Transport;

// The commands of the playback, beside those of Playback itself. On the interface thread.
class TransportCommands
{
    Q_DECLARE_TR_FUNCTIONS(TransportCommands)

public:
    // masterVolume: shows the stored volume from here on.
    TransportCommands(const CommandContext &context, Transport &transport, TrackPlayer &player, QSlider &masterVolume);

    static QVector<ActionRow> actions();

    // Where nothing could be heard they say why.
    void play();
    void playOrPause();
    void setMasterVolume(int percent);
    void setTempoFactor(int percent);
    // Kept in the song, as the tempo factor is.
    void setLoop(const TimeSpan &loop);
    void switchLoop(bool isOn); // the one before, or four measures from the position
    void beginLoopHere();       // at the position
    void endLoopHere();
    // What is played of another song in the window.
    void followSong();
    // With the instrument of that track.
    void previewNote(const QString &trackId, int semitone);

private:
    bool maySound();
    void applyLoop();

    CommandContext context_;
    Transport &transport_;
    TimeSpan lastLoop_;
    TrackPlayer &player_;
};
