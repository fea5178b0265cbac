#include "ui/editor/EditorPlayback.h"

#include "audio/TrackPlayer.h"
#include "ui/document/EditorDocument.h"

#include <QUuid>

#include <algorithm>

EditorPlayback::EditorPlayback(EditorDocument &document, TrackPlayer &player, QObject *parent)
    : QObject(parent), document_(document), player_(player)
{
    // The notes of a chord come one by one and are shown together.
    soundingTimer_.setSingleShot(true);
    soundingTimer_.setInterval(0);
    connect(&soundingTimer_, &QTimer::timeout, this, &EditorPlayback::showSounding);
    connect(&player_, &TrackPlayer::trackPositionChanged, this, &EditorPlayback::onPosition);
    connect(&player_, &TrackPlayer::trackStopped, this, &EditorPlayback::onStopped);
    connect(&player_, &TrackPlayer::allTracksStopped, this, [this] { onStopped(trackId_); });
    connect(&player_, &TrackPlayer::notePressed, this,
            [this](const QString &id, int event) { onNote(id, event, true); });
    connect(&player_, &TrackPlayer::noteReleased, this,
            [this](const QString &id, int event) { onNote(id, event, false); });
    connect(&document_, &EditorDocument::previewNoteRequested, this, &EditorPlayback::playPreviewNote);
    connect(&document_, &EditorDocument::previewNoteStopped, this, &EditorPlayback::stopPreviewNote);
    connect(&document_, &EditorDocument::instrumentChanged, this, [this] {
        if (isPlaying_)
            player_.changeInstrument(trackId_, document_.instrument());
    });
}

EditorPlayback::~EditorPlayback()
{
    if (isPlaying_)
        player_.stopTrack(trackId_);
}

void EditorPlayback::play(const PreviewTrack::Stretch &stretch)
{
    if (isPlaying_)
        player_.stopTrack(trackId_);
    silence();
    document_.update();
    stretch_ = stretch;
    stretch_.tempoPercent = tempoPercent_;
    preview_ = PreviewTrack(document_.track(), stretch_);
    isPlaying_ = !preview_.isEmpty();
    if (isPlaying_) {
        trackId_ = QStringLiteral("AbcEditor/") + QUuid::createUuid().toString();
        player_.playTrack({.trackId = trackId_, .track = preview_.track(), .instrument = document_.instrument()});
        document_.setPlayPosition(stretch_.from);
    } else {
        document_.setPlayPosition(-1);
    }
    emit playingChanged(isPlaying_);
}

void EditorPlayback::playFrom(Ticks tick)
{
    document_.update();
    play({.from = std::clamp<Ticks>(tick, 0, document_.track().length())});
}

void EditorPlayback::playFromCaret()
{
    document_.update();
    const auto caret = document_.caret().tick;
    playFrom(caret < document_.track().length() ? caret : 0);
}

void EditorPlayback::loopSelection()
{
    document_.update();
    PreviewTrack::Stretch stretch{.loops = true};
    const auto &events = document_.track().events();
    if (!document_.selectedNotes().isEmpty()) {
        stretch.from = maxTicks;
        stretch.to = 0;
        for (const auto note : document_.selectedNotes()) {
            stretch.from = std::min(stretch.from, events[note].start());
            stretch.to = std::max(stretch.to, events[note].end());
        }
    }
    play(stretch);
}

void EditorPlayback::stop()
{
    if (!isPlaying_)
        return;
    isPlaying_ = false;
    player_.stopTrack(trackId_);
    silence();
    document_.setPlayPosition(-1);
    emit playingChanged(false);
}

void EditorPlayback::setTempoPercent(int percent)
{
    percent = std::clamp(percent, slowest, fastest);
    if (percent == tempoPercent_)
        return;
    tempoPercent_ = percent;
    if (!isPlaying_)
        return;
    // A loop begins anew, so that its seam stays where it was.
    auto stretch = stretch_;
    if (!stretch.loops)
        stretch.from = std::max(stretch.from, document_.playback().position());
    play(stretch);
}

void EditorPlayback::silence()
{
    sounding_.clear();
    soundingTimer_.stop();
    document_.setSoundingNotes({});
}

void EditorPlayback::onPosition(const QString &trackId, quint64 position)
{
    if (!isPlaying_ || trackId != trackId_)
        return;
    if (Ticks(position) < preview_.track().length())
        document_.setPlayPosition(preview_.sourceTick(Ticks(position)));
    else
        onStopped(trackId);
}

// A loop that comes to its last round begins anew with the tune as it stands then.
void EditorPlayback::onStopped(const QString &trackId)
{
    if (!isPlaying_ || trackId != trackId_)
        return;
    if (stretch_.loops)
        play(stretch_);
    else
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
    document_.setSoundingNotes(preview_.sourceNotes(QVector<int>(sounding_.begin(), sounding_.end())));
}

void EditorPlayback::playPreviewNote(quint32 pitch)
{
    player_.playPreviewNote(document_.instrument(), pitch);
}

void EditorPlayback::stopPreviewNote()
{
    player_.stopPreviewNote();
}
