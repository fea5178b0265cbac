#pragma once

#include "app/commands/ActionRow.h"
#include "app/commands/CommandContext.h"

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
    // With the instrument of that track.
    void previewNote(const QString &trackId, int semitone);

private:
    bool maySound();

    CommandContext context_;
    Transport &transport_;
    TrackPlayer &player_;
};
