#include "ui/tracks/TrackList.h"

#include <QElapsedTimer>
#include <QUndoCommand>

#include <algorithm>

namespace {

constexpr qint64 mergingPauseMs = 1500;
constexpr int longestHistory = 20000; // steps; each costs a pointer a track beside what it changed

std::shared_ptr<const Track> shared(Track track)
{
    track.toAbc(); // so that nothing that only looks at the track has to change it
    return std::make_shared<const Track>(std::move(track));
}

// Of names such as the list gives; 0 for others, and for those that it never comes to.
int numberOf(const QString &id)
{
    constexpr int largest = 1'000'000'000;
    const int number = id.startsWith(u'T') ? id.mid(1).toInt() : 0;
    return number <= largest ? number : 0;
}

QSet<QString> idsOf(const SongTracks &song)
{
    QSet<QString> ids;
    for (const auto &track : song)
        ids.insert(track->id);
    return ids;
}

} // namespace

class TrackListStep : public QUndoCommand
{
public:
    TrackListStep(TrackList &list, const SongTracks &after, const QString &step, int merging, const QString &id)
        : QUndoCommand(step), list_(list), before_(list.song_), after_(after), removed_(idsOf(before_) - idsOf(after_)),
          merging_(merging), id_(id)
    {
        age_.start();
    }

    void undo() override
    {
        list_.countRemovals(removed_, -1);
        list_.show(before_);
    }
    void redo() override
    {
        list_.countRemovals(removed_, 1);
        list_.show(after_);
    }
    int id() const override { return merging_ == int(TrackList::Merging::Never) ? -1 : merging_; }

    bool mergeWith(const QUndoCommand *other) override
    {
        const auto *const next = static_cast<const TrackListStep *>(other); // the same id() is the same class
        if (next->id_ != id_ || age_.elapsed() > mergingPauseMs)
            return false;
        after_ = next->after_;
        age_.restart();
        return true;
    }

private:
    TrackList &list_;
    SongTracks before_;
    SongTracks after_;
    QSet<QString> removed_;
    int merging_;
    QString id_;
    QElapsedTimer age_;
};

TrackList::TrackList(QObject *parent) : QObject(parent)
{
    history_.setUndoLimit(longestHistory);
}

int TrackList::indexOf(const QString &id) const
{
    const auto found = std::find_if(song_.cbegin(), song_.cend(), [&](const auto &track) { return track->id == id; });
    return found != song_.cend() ? int(found - song_.cbegin()) : -1;
}

const SongTrack *TrackList::find(const QString &id) const
{
    const int index = indexOf(id);
    return index >= 0 ? song_[index].get() : nullptr;
}

std::shared_ptr<const SongTrack> TrackList::leader() const
{
    const auto hasNotes = [](const auto &track) { return track->track->length() > 0; };
    const auto found = std::find_if(song_.begin(), song_.end(), hasNotes);
    return found != song_.end() ? *found : song_.value(0);
}

QStringList TrackList::ids() const
{
    QStringList ids;
    for (const auto &track : song_)
        ids.append(track->id);
    return ids;
}

Ticks TrackList::commonLength() const
{
    Ticks length = 0;
    for (const auto &track : song_)
        length = std::max(length, track->track->length());
    return length;
}

Track TrackList::trackWithPath(const QString &id) const
{
    const auto *const found = find(id);
    if (!found)
        return {};
    auto track = *found->track;
    track.setFilePath(filePath(id));
    return track;
}

QStringList TrackList::selectedIds() const
{
    auto selected = ids();
    selected.erase(std::remove_if(selected.begin(), selected.end(), [&](const auto &id) { return !isSelected(id); }),
                   selected.end());
    return selected;
}

QStringList TrackList::withSelection(const QString &id) const
{
    return isSelected(id) ? selectedIds() : QStringList(id);
}

void TrackList::setSelected(const QString &id, bool isSelected)
{
    if (indexOf(id) < 0 || selected_.contains(id) == isSelected)
        return;
    if (isSelected)
        selected_.insert(id);
    else
        selected_.remove(id);
    emit selectionChanged(id, isSelected);
}

void TrackList::selectAll()
{
    for (const auto &id : ids())
        setSelected(id, true);
}

void TrackList::deselectAll()
{
    for (const auto &id : ids())
        setSelected(id, false);
}

void TrackList::invertSelection()
{
    for (const auto &id : ids())
        setSelected(id, !isSelected(id));
}

std::shared_ptr<const SongTrack> TrackList::adopt(const NewTrack &added)
{
    auto track = std::make_shared<SongTrack>();
    track->id = nextId();
    track->track = shared(added.track);
    track->instrument = added.instrument;
    track->isMuted = added.isMuted;
    track->volume = added.volume;
    track->pan = added.pan;
    track->import = added.import;
    files_.add(*track, added.track.filePath());
    return track;
}

void TrackList::open(const QVector<OpenedTrack> &tracks)
{
    history_.clear();
    selected_.clear();
    files_.clear();
    removals_.clear();
    show({}); // a row or an editor of the song before is none of this one, even of a track of the same name
    SongTracks song;
    for (const auto &opened : tracks) {
        song.append(std::make_shared<const SongTrack>(opened.track));
        lastNumber_ = std::max(lastNumber_, numberOf(opened.track.id));
        if (!opened.path.isEmpty() && opened.file == FileHolds::Track)
            files_.add(opened.track, opened.path);
        else if (!opened.path.isEmpty())
            files_.setPath(opened.track.id, opened.path);
    }
    show(song);
}

QStringList TrackList::add(const QString &step, const QVector<NewTrack> &tracks, ExistingTracks existing)
{
    auto after = existing == ExistingTracks::Keep ? song_ : SongTracks();
    QStringList ids;
    for (const auto &track : tracks) {
        after.append(adopt(track));
        ids.append(after.last()->id);
    }
    change(step, after);
    return ids;
}

void TrackList::remove(const QString &step, const QStringList &ids)
{
    auto after = song_;
    after.erase(std::remove_if(after.begin(), after.end(), [&](const auto &track) { return ids.contains(track->id); }),
                after.end());
    change(step, after);
}

std::shared_ptr<const SongTrack> TrackList::successor(const SongTrack &old, const NewTrack &track)
{
    auto changed = std::make_shared<SongTrack>(old);
    changed->track = shared(track.track);
    changed->import = track.import;
    return changed;
}

QStringList TrackList::replace(const QString &step, const QStringList &ids, const QVector<NewTrack> &tracks)
{
    SongTracks replacing;
    QStringList newIds;
    for (const auto &track : tracks) {
        const auto *const old = find(track.inPlaceOf);
        replacing.append(old ? successor(*old, track) : adopt(track));
        newIds.append(replacing.last()->id);
    }
    const auto isReplaced = [&](const auto &track) { return ids.contains(track->id); };
    const auto first = std::find_if(song_.cbegin(), song_.cend(), isReplaced);
    SongTracks after;
    std::copy(song_.cbegin(), first, std::back_inserter(after));
    after += replacing;
    std::copy_if(first, song_.cend(), std::back_inserter(after), [&](const auto &track) { return !isReplaced(track); });
    change(step, after);
    return newIds;
}

void TrackList::duplicate(const QStringList &ids)
{
    auto after = song_;
    QStringList titles;
    for (const auto &track : song_)
        titles.append(track->track->title());
    for (const auto &id : ids) {
        const auto *const source = find(id);
        if (!source)
            continue;
        auto copy = std::make_shared<SongTrack>(*source);
        copy->id = nextId();
        copy->import.clear();
        titles.append(numberedTitle(source->track->title(), titles));
        copy->track = shared(copyWithTitle(*source->track, titles.last()));
        files_.add(*copy, {});
        after.append(copy);
    }
    change(tr("Duplicate Tracks"), after);
}

void TrackList::move(const QString &id, int index)
{
    const int from = indexOf(id);
    if (from < 0)
        return;
    auto after = song_;
    after.move(from, std::clamp(index, 0, int(song_.size()) - 1));
    change(tr("Move Track"), after);
}

void TrackList::setTrack(const QString &step, const QString &id, const Track &track)
{
    const auto value = shared(track);
    changeEach(step, {id}, Merging::Never, [&](SongTrack &changed) { changed.track = value; });
}

void TrackList::setTracks(const QString &step, const QMap<QString, Track> &tracks)
{
    changeEach(step, tracks.keys(), Merging::Never,
               [&](SongTrack &changed) { changed.track = shared(tracks[changed.id]); });
}

void TrackList::setInstrument(const QStringList &ids, const QString &instrument)
{
    changeEach(tr("Change Instrument"), ids, Merging::Instrument,
               [&](SongTrack &track) { track.instrument = instrument; });
}

void TrackList::setVolume(const QStringList &ids, int percent)
{
    changeEach(tr("Change Volume"), ids, Merging::Volume, [=](SongTrack &track) { track.volume = percent; });
}

void TrackList::setPan(const QStringList &ids, int pan)
{
    changeEach(tr("Change Pan"), ids, Merging::Pan, [=](SongTrack &track) { track.pan = pan; });
}

void TrackList::setStartOffset(const QStringList &ids, int milliseconds)
{
    changeEach(tr("Change Start Offset"), ids, Merging::Never,
               [=](SongTrack &track) { track.startOffset = milliseconds; });
}

void TrackList::setMuted(const QStringList &ids, bool isMuted)
{
    changeEach(isMuted ? tr("Mute") : tr("Unmute"), ids, Merging::Never,
               [=](SongTrack &track) { track.isMuted = isMuted; });
}

void TrackList::toggleMuted(const QStringList &ids)
{
    setMuted(ids, std::any_of(ids.cbegin(), ids.cend(), [&](const auto &id) {
                 const auto *const track = find(id);
                 return track && !track->isMuted;
             }));
}

void TrackList::solo(const QStringList &ids)
{
    const auto sounds = [&](const auto &track) { return track->isMuted != ids.contains(track->id); };
    const bool areAlone = std::all_of(song_.cbegin(), song_.cend(), sounds);
    soloed_ = areAlone ? QSet<QString>() : QSet<QString>(ids.begin(), ids.end());
    if (std::any_of(ids.begin(), ids.end(), [&](const auto &id) { return indexOf(id) >= 0; }))
        changeEach(tr("Solo"), this->ids(), Merging::Never,
                   [&](SongTrack &track) { track.isMuted = !areAlone && !ids.contains(track.id); });
}

QSet<QString> TrackList::soloed() const
{
    QSet<QString> sounding;
    for (const auto &track : song_) {
        if (!track->isMuted)
            sounding.insert(track->id);
    }
    const bool areAlone = sounding.size() < song_.size() && (sounding.size() == 1 || sounding == soloed_);
    return areAlone ? sounding : QSet<QString>();
}

bool TrackList::isUnsaved(const QString &id) const
{
    const auto *const track = find(id);
    return track && isUnsaved(*track);
}

QStringList TrackList::unsavedIds() const
{
    auto unsaved = ids();
    unsaved.erase(std::remove_if(unsaved.begin(), unsaved.end(), [&](const auto &id) { return !isUnsaved(id); }),
                  unsaved.end());
    return unsaved;
}

void TrackList::setFilePath(const QString &id, const QString &path)
{
    files_.setPath(id, path);
    emit filesChanged();
}

void TrackList::markSaved(const QString &id, const QString &path)
{
    if (const auto *const track = find(id))
        markSaved(id, path, track->track);
}

void TrackList::markSaved(const QString &id, const QString &path, const std::shared_ptr<const Track> &written)
{
    files_.markSaved(id, path, written);
    emit filesChanged();
}

QStringList TrackList::rivalsFor(const QString &path, const QString &id) const
{
    const auto *const track = find(id);
    return track ? files_.rivals(song_, *track, path) : QStringList();
}

void TrackList::changeEach(const QString &step, const QStringList &ids, Merging merging,
                           const std::function<void(SongTrack &)> &edit)
{
    auto after = song_;
    for (const auto &id : ids) {
        const int index = indexOf(id);
        if (index < 0)
            continue;
        const auto edited = std::make_shared<SongTrack>(*song_[index]);
        edit(*edited);
        if (*edited != *song_[index])
            after[index] = edited;
    }
    change(step, after, merging, ids.join(u' '));
}

void TrackList::change(const QString &step, const SongTracks &after, Merging merging, const QString &id)
{
    if (after != song_)
        history_.push(new TrackListStep(*this, after, step, int(merging), id));
}

void TrackList::countRemovals(const QSet<QString> &ids, int steps)
{
    for (const auto &id : ids)
        removals_[id] += steps;
}

void TrackList::show(const SongTracks &song)
{
    const auto before = std::exchange(song_, song);
    emit songChanged(before, song_);
}
