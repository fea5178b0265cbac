#include "app/commands/TransportCommands.h"

#include "app/services/Playback.h"
#include "app/services/SongSession.h"
#include "app/services/Transport.h"
#include "audio/player/TrackPlayer.h"
#include "settings/Settings.h"
#include "ui/Dialogs.h"

#include <QSlider>

TransportCommands::TransportCommands(const CommandContext &context, Transport &transport, TrackPlayer &player,
                                     QSlider &masterVolume)
    : context_(context), transport_(transport), player_(player)
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
        {"actionRecord", "Record", "Ctrl+Shift+R",
         "Play, and write down what is played on the MIDI keyboard in the selected part", "record", "onRecord(bool)",
         Available::WithTracks},
        {"actionGo_to_Start", "Go to Start", "Home", "Set the position to the start of the song", "", "onGoToStart()",
         Available::WithTracks},
        {"actionGo_to_End", "Go to End", "End", "Set the position to the end of the song", "", "onGoToEnd()",
         Available::WithTracks},
        {"actionMeasure_Back", "Measure Back", "Ctrl+Left", "Set the position to the measure before", "",
         "onMeasureBack()", Available::WithTracks},
        {"actionMeasure_Forward", "Measure Forward", "Ctrl+Right", "Set the position to the next measure", "",
         "onMeasureForward()", Available::WithTracks},
        {"actionLoop", "Loop", "Ctrl+L",
         "Play a part of the song again and again (drag in the upper half of the ruler)", "loop", "onLoop(bool)",
         Available::WithTracks},
        {"actionLoop_Begin", "Begin Loop Here", "Ctrl+[", "Let the loop begin at the position", "", "onLoopBegin()",
         Available::WithTracks},
        {"actionLoop_End", "End Loop Here", "Ctrl+]", "Let the loop end at the position", "", "onLoopEnd()",
         Available::WithTracks},
        {"actionZoom_Out", "Zoom Out", "Ctrl+-", "Show more of the song (Ctrl+wheel)", "zoomout", "onZoomOut()",
         Available::WithTracks},
        {"actionZoom_In", "Zoom In", "Ctrl++", "Show less of the song, and that wider (Ctrl+wheel)", "zoomin",
         "onZoomIn()", Available::WithTracks},
        {"actionZoom_Whole", "Whole Song", "Ctrl+0", "Show the song from its start to its end", "zoomwhole",
         "onZoomWhole()", Available::WithTracks},
        {"actionFollow", "Follow Playback", "Ctrl+Shift+L", "Keep what sounds in view", "follow", "onFollow(bool)"},
    };
}

bool TransportCommands::maySound()
{
    if (context_.playback.hasSound())
        return true;
    const auto problem =
        context_.playback.instruments().isEmpty()
            ? tr("No instruments were found, so that nothing can be heard.\nPlease choose the game's folder under "
                 "Tools, "
                 "Preferences.")
            : tr("None of the tracks' instruments has samples, so that nothing can be heard.\nPlease choose others.");
    context_.dialogs.message(&context_.window, Dialogs::Severity::Warning, tr("Play"), problem);
    return false;
}

void TransportCommands::play()
{
    if (maySound())
        transport_.play();
}

void TransportCommands::playOrPause()
{
    if (context_.playback.isPlaying() || maySound())
        transport_.playOrPause();
}

void TransportCommands::setMasterVolume(int percent)
{
    player_.setMasterVolume(gainOf(percent));
    context_.settings.setValue(Settings::MasterVolume, percent);
}

void TransportCommands::setTempoFactor(int percent)
{
    context_.session.setTempoFactor(percent);
    context_.playback.setTempoFactor(percent / 100.0);
}

void TransportCommands::setLoop(const TimeSpan &loop)
{
    const auto others = context_.session.loop() ? context_.session.loop()->others : QJsonObject();
    lastLoop_ = loop;
    context_.session.setLoop(SongLoop{loop.begin, loop.end(), others});
    applyLoop();
}

void TransportCommands::switchLoop(bool isOn)
{
    constexpr int usualMeasures = 4;
    if (!isOn) {
        context_.session.setLoop({});
        return applyLoop();
    }
    const auto &measures = transport_.measures();
    const auto begin = measures.at(transport_.position()).start;
    auto end = begin;
    for (int measure = 0; measure < usualMeasures && (measure == 0 || end < context_.tracks.commonLength()); ++measure)
        end = measures.nextStart(end);
    setLoop(lastLoop_.length > 0 ? lastLoop_ : TimeSpan{begin, end - begin});
}

void TransportCommands::beginLoopHere()
{
    const auto here = transport_.position();
    const auto end = lastLoop_.end() > here ? lastLoop_.end() : context_.tracks.commonLength();
    if (end > here)
        setLoop({here, end - here});
}

void TransportCommands::endLoopHere()
{
    const auto here = transport_.position();
    const auto begin = lastLoop_.begin < here ? lastLoop_.begin : 0;
    if (here > begin)
        setLoop({begin, here - begin});
}

void TransportCommands::applyLoop()
{
    const auto &loop = context_.session.loop();
    context_.playback.setLoop(loop ? std::optional(LoopRegion{loop->begin, loop->end}) : std::nullopt);
}

void TransportCommands::followSong()
{
    const auto &loop = context_.session.loop();
    lastLoop_ = loop ? TimeSpan{loop->begin, loop->end - loop->begin} : TimeSpan();
    applyLoop();
    context_.playback.setTempoFactor(context_.session.tempoFactor() / 100.0);
}

void TransportCommands::previewNote(const QString &trackId, int semitone)
{
    if (const auto *const track = context_.tracks.find(trackId))
        player_.playPreviewNote(context_.playback.instrument(track->instrument), quint32(semitone));
}
