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
        {"actionPlay_Pause", "Play or Pause", "Space", "Play from the position, or pause there", "", "onPlayPause()",
         Available::WithTracks},
        {"actionStop", "Stop", "", "Stop preview.", "stop", "onStopAll()", Available::ToStop},
        {"actionGo_to_Start", "Go to Start", "Home", "Set the position to the start of the song", "", "onGoToStart()",
         Available::WithTracks},
        {"actionGo_to_End", "Go to End", "End", "Set the position to the end of the song", "", "onGoToEnd()",
         Available::WithTracks},
        {"actionMeasure_Back", "Measure Back", "Ctrl+Left", "Set the position to the measure before", "",
         "onMeasureBack()", Available::WithTracks},
        {"actionMeasure_Forward", "Measure Forward", "Ctrl+Right", "Set the position to the next measure", "",
         "onMeasureForward()", Available::WithTracks},
        {"actionZoom_Out", "Zoom Out", "Ctrl+-", "Show more of the song (Ctrl+wheel)", "zoomout", "onZoomOut()",
         Available::WithTracks},
        {"actionZoom_In", "Zoom In", "Ctrl++", "Show less of the song, and that wider (Ctrl+wheel)", "zoomin",
         "onZoomIn()", Available::WithTracks},
        {"actionZoom_Whole", "Whole Song", "Ctrl+0", "Show the song from its start to its end", "zoomwhole",
         "onZoomWhole()", Available::WithTracks},
        {"actionFollow", "Follow Playback", "Ctrl+Shift+L", "Keep what sounds in view", "follow", "onFollow(bool)"},
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
