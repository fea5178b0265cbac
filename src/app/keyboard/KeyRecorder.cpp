#include "app/keyboard/KeyRecorder.h"

#include "app/keyboard/RecordedNotes.h"
#include "app/services/EditorWindows.h"
#include "app/services/Transport.h"
#include "audio/OutputControl.h"
#include "core/AbcParser.h"
#include "edit/plan/NoteEditPlan.h"
#include "edit/plan/RewriteLoss.h"
#include "ui/editor/RewriteQuestion.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int mostNotes = 100'000;

} // namespace

const QVector<int> KeyRecorder::grids{8, 12, 16, 24, 32};

KeyRecorder::KeyRecorder(const Song &song, LiveKeyboard &keyboard, QObject *parent)
    : QObject(parent), song_(song), keyboard_(keyboard)
{
    connect(&keyboard_.keyboard(), &MidiKeyboard::keyPressed, this,
            [this](int pitch, int, qint64 at) { press(pitch, at); });
    connect(&keyboard_.keyboard(), &MidiKeyboard::keyReleased, this, &KeyRecorder::release);
    connect(&song_.transport, &Transport::positionChanged, this, &KeyRecorder::report);
}

void KeyRecorder::start(double tempoFactor)
{
    part_ = keyboard_.part();
    clock_.emplace(song_.transport.counted(), tempoFactor);
    from_ = song_.transport.position() < song_.tracks.commonLength() ? song_.transport.position() : 0;
    lastPosition_ = from_;
    played_.clear();
    early_.clear();
    held_.clear();
    if (song_.tracks.commonLength() == 0 && !song_.playback.hasBeats())
        clock_->report(0, double(MidiKeyboard::now()));
    emit recordingChanged(true);
}

void KeyRecorder::finish()
{
    if (!isRecording())
        return;
    const auto held = held_;
    for (auto key = held.begin(); key != held.end(); ++key)
        release(key.key(), MidiKeyboard::now());
    const auto notes = std::exchange(played_, {});
    cancel();
    write(onGrid(notes, song_.transport.measures(), step()));
}

void KeyRecorder::cancel()
{
    clock_.reset();
    emit recordingChanged(false);
}

void KeyRecorder::press(int pitch, qint64 at)
{
    if (isRecording() && isPlayable(pitch))
        held_.insert(pitch, at);
}

void KeyRecorder::release(int pitch, qint64 at)
{
    if (!isRecording() || !held_.contains(pitch))
        return;
    const Key key{pitch, held_.take(pitch), at};
    if (played_.size() + early_.size() >= mostNotes)
        return;
    if (clock_->tickAt(double(at)))
        convert(key);
    else
        early_.append(key);
}

// A song that waits for its samples, or is counted in, does not move.
void KeyRecorder::report(Ticks position)
{
    if (!isRecording() || !song_.playback.isPlaying() || position == std::exchange(lastPosition_, position))
        return;
    clock_->report(position, double(MidiKeyboard::now()));
    for (const auto &key : std::exchange(early_, {}))
        convert(key);
}

// What is heard was mixed before; whoever plays goes by what is heard. A little before the start is the start.
void KeyRecorder::convert(const Key &key)
{
    const auto latency = song_.output.figures().latency;
    const auto pressed = *clock_->tickAt(double(key.pressed) - latency);
    const auto released = *clock_->tickAt(double(key.released) - latency);
    const auto start = std::max(pressed, from_);
    if (released > start && start - pressed <= step())
        played_.append({start, released - start, quint32(key.pitch)});
}

Ticks KeyRecorder::step() const
{
    const auto grid = song_.settings.value(Settings::RecordingGrid).toInt();
    return ticksPerWholeNote / (grids.contains(grid) ? grid : 16);
}

void KeyRecorder::write(const QVector<NoteSpec> &notes)
{
    if (notes.isEmpty() || !song_.tracks.find(part_))
        return;
    const auto inEditor = song_.editors.insertNotes(part_, notes, tr("Record Notes"));
    const bool isWritten = inEditor ? *inEditor : writeInto(song_.tracks.trackWithPath(part_), notes);
    if (!isWritten)
        writeAsPart(notes);
}

// False where the user does not want it.
bool KeyRecorder::writeInto(Track track, const QVector<NoteSpec> &notes)
{
    const auto text = track.toAbc();
    const auto plan = NoteEditPlan::plan(text, readAbc(text), {{}, {}, notes});
    if (!plan)
        return true;
    if (plan->rewritesAll && !mayRewriteText(song_.dialogs, song_.window, tr("Record Notes"), lostInRewriting(text),
                                             tr("Otherwise what was played becomes a part of its own.")))
        return false;
    auto recorded = parseAbc(applyChanges(text, plan->changes));
    recorded.setFilePath(track.filePath());
    song_.tracks.setTrack(tr("Record Notes"), part_, recorded);
    return true;
}

// With the tempos and metres of the part that it was played to.
void KeyRecorder::writeAsPart(const QVector<NoteSpec> &notes)
{
    const auto &part = *song_.tracks.find(part_);
    NoteEdit exchange{{}, {}, notes};
    for (int i = 0; i < part.track->events().size(); ++i)
        exchange.removed.append(i);
    auto played = NoteEditPlan::editedTrack(*part.track, NoteEditPlan::cleaned(*part.track, exchange));
    played.setFilePath({});
    played.toAbc();
    song_.tracks.add(tr("Record Notes"), {{played, part.instrument}});
}
