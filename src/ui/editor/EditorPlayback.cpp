#include "ui/editor/EditorPlayback.h"

#include "audio/player/TrackPlayer.h"
#include "edit/NoteLookup.h"
#include "ui/document/EditorDocument.h"

#include <QUuid>

#include <algorithm>
#include <utility>

using Begin = PlayRequest::Begin;

EditorPlayback::EditorPlayback(EditorDocument &document, TrackPlayer &player, QObject *parent)
    : QObject(parent), document_(document), player_(player)
{
    // The notes of a chord come one by one and are shown together.
    soundingTimer_.setSingleShot(true);
    soundingTimer_.setInterval(0);
    connect(&soundingTimer_, &QTimer::timeout, this, &EditorPlayback::showSounding);
    connect(&player_, &TrackPlayer::trackStarted, this, &EditorPlayback::onStarted);
    connect(&player_, &TrackPlayer::trackPositionChanged, this, &EditorPlayback::onPosition);
    connect(&player_, &TrackPlayer::trackStopped, this, &EditorPlayback::onStopped);
    connect(&player_, &TrackPlayer::allTracksStopped, this, [this] { onStopped(trackId_); });
    connect(&player_, &TrackPlayer::notePressed, this,
            [this](const QString &id, int event) { onNote(id, event, true); });
    connect(&player_, &TrackPlayer::noteReleased, this,
            [this](const QString &id, int event) { onNote(id, event, false); });
    connect(&document_, &EditorDocument::readingChanged, this, &EditorPlayback::followEdits);
    connect(&document_, &EditorDocument::previewNoteRequested, this, &EditorPlayback::playPreviewNote);
    connect(&document_, &EditorDocument::previewNoteStopped, this, &EditorPlayback::stopPreviewNote);
    connect(&document_, &EditorDocument::instrumentChanged, this, [this] {
        if (isPlaying_)
            player_.changeInstrument(trackId_, document_.instrument());
    });
}

void EditorPlayback::stopTracks()
{
    if (isPlaying_)
        player_.stopTrack(trackId_);
    for (const auto &id : std::as_const(otherIds_))
        player_.stopTrack(id);
    otherIds_.clear();
    requested_.clear();
}

void EditorPlayback::play(Ticks from, Loops loops)
{
    stopTracks();
    silence();
    loops_ = loops;
    loop_ = region(loops);
    isPlaying_ = from < document_.track().length();
    document_.setPlayPosition(isPlaying_ ? from : -1);
    if (isPlaying_) {
        trackId_ = QStringLiteral("AbcEditor/") + QUuid::createUuid().toString();
        length_ = 0;
        player_.setLoop(loop_);
        player_.setTempoFactor(tempoPercent_ / 100.0);
        const auto companions = this->companions();
        player_.playTracks(others(companions, Begin::AtTheStart, from) << own(companions, Begin::AtTheStart, from));
        played_ = requested_.front();
    }
    emit playingChanged(isPlaying_);
}

PlayRequest EditorPlayback::own(const Companions &companions, Begin begin, Ticks from)
{
    const auto &track = document_.track();
    requested_.push_back(track);
    length_ = std::max(length_, track.length());
    return {.trackId = trackId_,
            .track = track,
            .instrument = document_.instrument(),
            .level = companions.own,
            .syncGroup = trackId_,
            .begin = begin,
            .from = from,
            .offset = companions.ownOffset};
}

QVector<PlayRequest> EditorPlayback::others(const Companions &companions, Begin begin, Ticks from)
{
    auto requests = companions.others;
    for (auto &request : requests) {
        request.trackId = trackId_ + u'/' + request.trackId;
        request.syncGroup = trackId_;
        request.begin = begin;
        request.from = from;
        otherIds_.insert(request.trackId);
        length_ = std::max(length_, request.track.length());
    }
    return requests;
}

// A track in a player's group takes its own place anew: what has not changed sounds on.
void EditorPlayback::followEdits()
{
    if (!isPlaying_)
        return;
    if (loops_ == Loops::Tune && loop_->end != document_.track().length()) {
        loop_ = region(loops_);
        player_.setLoop(loop_);
    }
    player_.playTrack(own(companions(), Begin::WithTheGroup));
}

void EditorPlayback::setWithSong(bool isWithSong)
{
    if (std::exchange(isWithSong_, isWithSong) != isWithSong)
        followSong();
}

void EditorPlayback::followSong()
{
    if (!isPlaying_)
        return;
    const auto companions = this->companions();
    const auto before = std::exchange(otherIds_, {});
    const auto requests = others(companions, Begin::WithTheGroup);
    for (const auto &id : before) {
        if (!otherIds_.contains(id))
            player_.stopTrack(id);
    }
    player_.setVolume(trackId_, companions.own.volume);
    player_.setPan(trackId_, companions.own.pan);
    player_.setOffset(trackId_, companions.ownOffset);
    if (!requests.isEmpty())
        player_.playTracks(requests);
}

// Behind the end there is nothing to hear.
void EditorPlayback::playFrom(Ticks tick)
{
    document_.update();
    play(tick < document_.track().length() ? std::max(Ticks(0), tick) : 0, Loops::Never);
}

void EditorPlayback::playFromCaret()
{
    document_.update();
    playFrom(document_.caret().tick);
}

void EditorPlayback::playOrStop()
{
    if (isPlaying_)
        stop();
    else
        playFromCaret();
}

void EditorPlayback::loopSelection()
{
    document_.update();
    const auto loops = document_.selectedNotes().isEmpty() ? Loops::Tune : Loops::Selection;
    play(region(loops)->begin, loops);
}

std::optional<LoopRegion> EditorPlayback::region(Loops loops) const
{
    if (loops == Loops::Never)
        return std::nullopt;
    if (loops == Loops::Tune)
        return LoopRegion{0, document_.track().length()};
    LoopRegion selected{maxTicks, 0};
    for (const auto note : document_.selectedNotes()) {
        const auto &event = document_.track().events()[note];
        selected = {std::min(selected.begin, event.start()), std::max(selected.end, event.end())};
    }
    return selected;
}

void EditorPlayback::stop()
{
    if (!isPlaying_)
        return;
    stopTracks();
    isPlaying_ = false;
    silence();
    document_.setPlayPosition(-1);
    emit playingChanged(false);
}

void EditorPlayback::setTempoPercent(int percent)
{
    tempoPercent_ = std::clamp(percent, slowest, fastest);
    if (isPlaying_)
        player_.setTempoFactor(tempoPercent_ / 100.0);
}

void EditorPlayback::silence()
{
    sounding_.clear();
    soundingTimer_.stop();
    document_.setSoundingNotes({});
}

// From here on the player speaks of the next version's events.
void EditorPlayback::onStarted(const QString &trackId)
{
    if (!isPlaying_ || trackId != trackId_ || requested_.empty())
        return;
    played_ = requested_.front();
    requested_.pop_front();
    sounding_.clear();
}

void EditorPlayback::onPosition(const QString &trackId, quint64 position)
{
    if (!isPlaying_ || trackId != trackId_)
        return;
    if (Ticks(position) < length_)
        document_.setPlayPosition(Ticks(position));
    else
        stop();
}

void EditorPlayback::onStopped(const QString &trackId)
{
    if (isPlaying_ && trackId == trackId_)
        stop();
}

void EditorPlayback::onNote(const QString &trackId, int event, bool sounds)
{
    if (!isPlaying_ || trackId != trackId_)
        return;
    if (sounds)
        sounding_.insert(event);
    else
        sounding_.erase(event);
    if (!soundingTimer_.isActive())
        soundingTimer_.start();
}

void EditorPlayback::showSounding()
{
    QVector<NoteSpec> notes;
    for (const auto event : sounding_) {
        if (event >= 0 && event < played_.events().size() && played_.events()[event].isNote())
            notes.append(specOf(played_.events()[event]));
    }
    document_.setSoundingNotes(notes);
}

void EditorPlayback::playPreviewNote(quint32 pitch)
{
    player_.playPreviewNote(document_.instrument(), pitch);
}

void EditorPlayback::stopPreviewNote()
{
    player_.stopPreviewNote();
}
