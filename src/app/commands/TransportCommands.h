#pragma once

#include "app/commands/ActionRow.h"
#include "app/commands/CommandContext.h"

#include <QVector>

class QSlider;
class TrackPlayer;

// The commands of the playback, beside those of Playback itself. On the interface thread.
class TransportCommands
{
public:
    // masterVolume: shows the stored volume from here on.
    TransportCommands(const CommandContext &context, TrackPlayer &player, QSlider &masterVolume);

    static QVector<ActionRow> actions();

    void setMasterVolume(int percent);
    // With the instrument of that track.
    void previewNote(const QString &trackId, int semitone);

private:
    CommandContext context_;
    TrackPlayer &player_;
};
