#include "app/commands/TransportCommands.h"

#include "app/services/Playback.h"
#include "audio/TrackPlayer.h"
#include "settings/Settings.h"

#include <QSlider>

TransportCommands::TransportCommands(const CommandContext &context, TrackPlayer &player, QSlider &masterVolume)
    : context_(context), player_(player)
{
    masterVolume.setRange(0, 100);
    masterVolume.setValue(context_.settings.value(Settings::MasterVolume).toInt());
    player_.setMasterVolume(gainOf(masterVolume.value()));
}

QVector<ActionRow> TransportCommands::actions()
{
    return {
        {"actionPlay", "Play", "", "Preview current tracks.", "play", "onPlay()", Available::WithTracks},
        {"actionStop", "Stop", "", "Stop preview.", "stop", "onStopAll()", Available::WhilePlaying},
    };
}

void TransportCommands::setMasterVolume(int percent)
{
    player_.setMasterVolume(gainOf(percent));
    context_.settings.setValue(Settings::MasterVolume, percent);
}

void TransportCommands::previewNote(const QString &trackId, int semitone)
{
    if (const auto *const track = context_.tracks.find(trackId))
        player_.playPreviewNote(context_.playback.instrument(track->instrument), quint32(semitone));
}
