#include "app/commands/TrackCommands.h"

#include "app/commands/ImportQueue.h"
#include "core/HeaderFields.h"
#include "import/MergeTracks.h"
#include "import/Transpose.h"
#include "import/quantise/CleanQuantise.h"
#include "ui/Dialogs.h"
#include "ui/tracks/TrackList.h"

#include <QMap>

#include <algorithm>

namespace {

Track merged(const QVector<Track> &sources)
{
    auto track = mergeTracks(sources);
    track.toAbc();
    return track;
}

const auto metreField = QStringLiteral("M");

// The metre at the start of the first part that has one: without it notes that are drawn get no bar lines.
QString metreOf(const TrackList &tracks)
{
    for (const auto &id : tracks.ids()) {
        const auto metre = tracks.find(id)->track->headerField(metreField);
        if (!HeaderFields::parseMetre(metre).isNone())
            return metre;
    }
    return QStringLiteral("4/4");
}

QMap<QString, Track> edited(const TrackCommands::Sources &sources, const TrackCommands::Edit &edit,
                            const std::stop_token &stop)
{
    QMap<QString, Track> tracks;
    for (auto each = sources.begin(); each != sources.end(); ++each) {
        auto track = edit(**each, stop);
        track.toAbc();
        tracks.insert(each.key(), track);
    }
    return tracks;
}

bool isShort(const TrackCommands::Sources &sources)
{
    constexpr int mostEvents = 2000; // within a blink
    int events = 0;
    for (const auto &source : sources)
        events += int(source->events().size());
    return events <= mostEvents;
}

} // namespace

QVector<ActionRow> TrackCommands::actions()
{
    return {
        {"actionNew_Track", tr("New Track"), "Ctrl+N", tr("Create a new track"), "newtrack", "onNewTrack()"},
        {"actionClear_Tracks", tr("Remove All Tracks"), "Shift+Del", tr("Remove all tracks"), "removetrack",
         "onClearTracks()", Available::WithTracks},
        {"actionMerge_Selected", tr("Merge Selected"), "Ctrl+J", tr("Merges the selected tracks together"), "merge",
         "onMergeTracks()", Available::ToWorkOn},
        {"actionClean_Quantise", tr("Clean Quantise"), "",
         tr("Write the selected tracks as a musician would, on the grid of "
            "each measure"),
         "", "onCleanQuantise()", Available::ToWorkOn},
        {"actionRemove_Selected", tr("Remove Selected"), "", tr("Remove the selected tracks"), "removeone",
         "onRemoveSelectedTracks()", Available::WithSelection},
        {"actionSelect_All", tr("Select All"), "Ctrl+A", {}, "", "onSelectAll()", Available::WithTracks},
        {"actionDeselect_All", tr("Deselect All"), "Ctrl+Shift+A", {}, "", "onDeselectAll()", Available::WithTracks},
        {"actionInvert_Selection",
         tr("Invert Selection"),
         "Ctrl+I",
         {},
         "",
         "onInvertSelection()",
         Available::WithTracks},
        {"actionDuplicate_Selected", tr("Duplicate Selected"), "Ctrl+D", tr("Duplicate the selected tracks"),
         "duplicatetrack", "onDuplicateTracks()", Available::WithSelection},
        {"actionMute_Selected", tr("(Un)mute Selected"), "Ctrl+M", tr("(Un)mute the selected tracks"), "mute",
         "onMuteSelected()", Available::WithSelection},
        {"actionNext_Track", tr("Next Track"), "Ctrl+Down", tr("Go to the track below, at the same control"), "",
         "onNextTrack()", Available::WithTracks},
        {"actionPrevious_Track", tr("Previous Track"), "Ctrl+Up", tr("Go to the track above, at the same control"), "",
         "onPreviousTrack()", Available::WithTracks},
        {"actionRename_Track", tr("Rename Track..."), "F2", tr("Change the title of the track that has the keys"),
         "editdoc", "onRenameTrack()", Available::WithTracks},
        {"actionEdit_Track", tr("Open ABC Editor"), "Ctrl+E", tr("Edit the track that has the keys"), "edittrack",
         "onEditTrack()", Available::WithTracks},
        {"actionSolo_Track", tr("Solo"), "Ctrl+Shift+O",
         tr("Hear only the track that has the keys, or all that are selected with it"), "solo", "onSoloTrack()",
         Available::WithTracks},
        {"actionMove_Up", tr("Move Track Up"), "Ctrl+Shift+Up", tr("Move the track that has the keys up"), "moveup",
         "onMoveUp()", Available::WithTracks},
        {"actionMove_Down", tr("Move Track Down"), "Ctrl+Shift+Down", tr("Move the track that has the keys down"),
         "movedown", "onMoveDown()", Available::WithTracks},
        {"actionDescribe_Track", tr("Describe Track"), "Ctrl+Shift+I",
         tr("Tell instrument, volume, mute and level of the track that has the keys"), "", "onDescribeTrack()",
         Available::WithTracks},
    };
}

void TrackCommands::addEmpty()
{
    Track track;
    const auto text = metreOf(context_.tracks);
    const auto metre = HeaderFields::parseMetre(text);
    track.setHeaderField(metreField, text);
    track.setMetre(quint32(metre.measureTicks()), metre.numerator);
    track.normalize();
    queue_.add({tr("New Track"), {}, {}}, {{track}, {}, {}});
}

void TrackCommands::removeAll()
{
    context_.tracks.remove(tr("Remove All Tracks"), context_.tracks.ids());
}

void TrackCommands::removeSelected()
{
    context_.tracks.remove(tr("Remove Tracks"), context_.tracks.selectedIds());
}

void TrackCommands::duplicateSelected()
{
    context_.tracks.duplicate(context_.tracks.selectedIds());
}

void TrackCommands::muteSelected()
{
    context_.tracks.toggleMuted(context_.tracks.selectedIds());
}

void TrackCommands::moveBy(const QString &id, int places)
{
    context_.tracks.move(id, int(context_.tracks.ids().indexOf(id)) + places);
}

void TrackCommands::mergeSelected()
{
    const auto ids = context_.tracks.selectedIds();
    if (ids.isEmpty() || isWorking())
        return;
    QVector<Track> sources;
    for (const auto &id : ids)
        sources.append(*context_.tracks.find(id)->track);
    const auto take = [this, instrument = context_.tracks.find(ids.first())->instrument](const Track &track) {
        emit workingChanged();
        context_.tracks.add(tr("Merge Tracks"), {{track, instrument}});
    };
    const auto fail = [this](const QString &error) {
        emit workingChanged();
        context_.dialogs.message(&context_.window, Dialogs::Severity::Critical, tr("Merge Tracks"),
                                 tr("Could not merge tracks: %1").arg(error));
    };
    work_.start([sources](const TaskControl &) { return merged(sources); }, take, fail);
    emit workingChanged();
}

TrackCommands::Sources TrackCommands::sourcesOf(const QStringList &ids) const
{
    Sources sources;
    for (const auto &id : ids)
        sources.insert(id, context_.tracks.find(id)->track);
    return sources;
}

// A track that was changed meanwhile stays as it is.
void TrackCommands::editBeside(const QString &step, const Sources &sources, const Edit &edit)
{
    if (sources.isEmpty() || isWorking())
        return;
    const auto take = [=, this](QMap<QString, Track> tracks) {
        for (auto each = sources.begin(); each != sources.end(); ++each) {
            const auto *const now = context_.tracks.find(each.key());
            if (!now || now->track != *each)
                tracks.remove(each.key());
        }
        emit workingChanged();
        context_.tracks.setTracks(step, tracks);
    };
    const auto fail = [=, this](const QString &error) {
        emit workingChanged();
        context_.dialogs.message(&context_.window, Dialogs::Severity::Critical, step, error);
    };
    work_.start([=](const TaskControl &control) { return edited(sources, edit, control.stop()); }, take, fail);
    emit workingChanged();
}

void TrackCommands::cleanQuantiseSelected()
{
    editBeside(tr("Clean Quantise"), sourcesOf(context_.tracks.selectedIds()),
               [](const Track &track, const std::stop_token &stop) { return cleanQuantised(track, nullptr, stop); });
}

// Nothing when the user would rather leave it.
std::optional<BeyondRange> TrackCommands::askBeyondRange(const QString &step, const Sources &sources, int semitones)
{
    int count = 0;
    for (const auto &source : sources)
        count += notesBeyondRange(*source, semitones);
    if (count == 0)
        return BeyondRange::Drop;
    const auto question = tr("%n note(s) would leave the range and be removed.\n"
                             "Move them back into the range by octaves instead?",
                             nullptr, count);
    const auto answer = context_.dialogs.askOrCancel(&context_.window, step, question);
    if (!answer)
        return std::nullopt;
    return answer == Dialogs::Answer::Yes ? BeyondRange::Fold : BeyondRange::Drop;
}

void TrackCommands::transpose(const QString &id, int semitones)
{
    const auto step = tr("Transpose Track");
    const auto sources = sourcesOf(context_.tracks.withSelection(id));
    const auto beyond = askBeyondRange(step, sources, semitones);
    if (!beyond)
        return;
    const auto transposed = [semitones, beyond](const Track &track, const std::stop_token &) {
        return ::transpose(track, semitones, *beyond);
    };
    if (isShort(sources))
        context_.tracks.setTracks(step, edited(sources, transposed, {}));
    else
        editBeside(step, sources, transposed);
}

void TrackCommands::select(const QString &id, bool isSelected, Qt::KeyboardModifiers modifiers)
{
    const auto ids = context_.tracks.ids();
    const auto last = modifiers & Qt::ShiftModifier ? ids.indexOf(lastSelected_) : -1;
    const auto here = ids.indexOf(id);
    const auto from = last < 0 ? here : std::min(last, here);
    for (auto each = from; each <= std::max(last, here); ++each)
        context_.tracks.setSelected(ids[each], isSelected);
    lastSelected_ = id;
}

void TrackCommands::cancelWork()
{
    work_.cancel(); // its sources are there
    emit workingChanged();
}
