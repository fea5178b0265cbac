#include "app/songtools/SourceListening.h"

#include "app/services/Playback.h"
#include "app/services/SongSession.h"
#include "ui/Dialogs.h"
#include "ui/tracks/TrackList.h"

namespace {

QStringList idsOf(const SongTracks &song)
{
    QStringList ids;
    for (const auto &track : song)
        ids.append(track->id);
    return ids;
}

} // namespace

SourceListening::SourceListening(const CommandContext &context) : context_(context)
{
    connect(&context_.session, &SongSession::opened, this, [this] {
        listenToSource(false);
        emit switchedOff();
    });
    connect(&context_.tracks, &TrackList::songChanged, this, [this](const SongTracks &before, const SongTracks &after) {
        if (isOn_ && idsOf(before) != idsOf(after))
            listenToSource(true);
    });
}

QVector<ActionRow> SourceListening::actions()
{
    return {{"actionListen_to_Source", tr("Source"), "Ctrl+B",
             tr("Hear the song as its source has it, instead of as the game will play it"), "source",
             "onListenToSource(bool)", Available::WithImports}};
}

void SourceListening::listenToSource(bool isOn)
{
    isOn_ = isOn;
    if (!isOn) {
        reading_.cancel();
        context_.playback.setStandIns({});
        return;
    }
    reading_.start([song = context_.tracks.song(), imports = context_.session.imports()](
                       const TaskControl &control) { return sourceTracks(song, imports, control.stop()); },
                   [this](const SourceTracks &sources) { take(sources); },
                   [this](const QString &error) { tell(error); });
}

void SourceListening::take(const SourceTracks &sources)
{
    if (sources.tracks.isEmpty())
        return tell(sources.problems.isEmpty() ? tr("No part is one of the source any more.")
                                               : sources.problems.join(u'\n'));
    context_.playback.setStandIns(sources.tracks);
}

void SourceListening::tell(const QString &text)
{
    listenToSource(false);
    emit switchedOff();
    context_.dialogs.message(&context_.window, Dialogs::Severity::Warning, tr("Source"), text);
}
