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
        {"actionPlay", tr("Play"), "", tr("Preview current tracks."), "play", "onPlay()", Available::WithTracks},
        {"actionPlay_Pause", tr("Play or Pause"), "Space", tr("Play from the position, or pause there"), "",
         "onPlayPause()", Available::WithTracks},
        {"actionStop", tr("Stop"), "", tr("Stop preview."), "stop", "onStopAll()", Available::ToStop},
        {"actionRecord", tr("Record"), "Ctrl+Shift+R",
         tr("Play, and write down what is played on the MIDI keyboard in the selected part"), "record",
         "onRecord(bool)", Available::WithTracks},
        {"actionGo_to_Start", tr("Go to Start"), "Home", tr("Set the position to the start of the song"), "",
         "onGoToStart()", Available::WithTracks},
        {"actionGo_to_End", tr("Go to End"), "End", tr("Set the position to the end of the song"), "", "onGoToEnd()",
         Available::WithTracks},
        {"actionMeasure_Back", tr("Measure Back"), "Ctrl+Left", tr("Set the position to the measure before"), "",
         "onMeasureBack()", Available::WithTracks},
        {"actionMeasure_Forward", tr("Measure Forward"), "Ctrl+Right", tr("Set the position to the next measure"), "",
         "onMeasureForward()", Available::WithTracks},
        {"actionLoop", tr("Loop"), "Ctrl+L",
         tr("Play a part of the song again and again (drag in the upper half of the ruler)"), "loop", "onLoop(bool)",
         Available::WithTracks},
        {"actionLoop_Begin", tr("Begin Loop Here"), "Ctrl+[", tr("Let the loop begin at the position"), "",
         "onLoopBegin()", Available::WithTracks},
        {"actionLoop_End", tr("End Loop Here"), "Ctrl+]", tr("Let the loop end at the position"), "", "onLoopEnd()",
         Available::WithTracks},
        {"actionZoom_Out", tr("Zoom Out"), "Ctrl+-", tr("Show more of the song (Ctrl+wheel)"), "zoomout", "onZoomOut()",
         Available::WithTracks},
        {"actionZoom_In", tr("Zoom In"), "Ctrl++", tr("Show less of the song, and that wider (Ctrl+wheel)"), "zoomin",
         "onZoomIn()", Available::WithTracks},
        {"actionZoom_Whole", tr("Whole Song"), "Ctrl+0", tr("Show the song from its start to its end"), "zoomwhole",
         "onZoomWhole()", Available::WithTracks},
        {"actionFollow", tr("Follow Playback"), "Ctrl+Shift+L", tr("Keep what sounds in view"), "follow",
         "onFollow(bool)"},
        {"actionForget_Clips", tr("Put Out Red Lights"), "", tr("Forget which levels were too loud"), "",
         "onForgetClips()"},
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
