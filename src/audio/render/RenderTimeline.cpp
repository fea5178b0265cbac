#include "audio/render/RenderTimeline.h"

#include "audio/SampleCache.h"
#include "base/Interrupted.h"

#include <algorithm>
#include <cmath>

namespace {

DspClock endOf(const VoiceSpec &voice)
{
    const auto outputFrames = std::ceil(double(voice.sound->frames()) / voice.ratio);
    const auto longest = double(voice.fadeEnd - voice.start);
    return outputFrames < longest ? voice.start + DspClock(outputFrames) : voice.fadeEnd;
}

} // namespace

RenderTimeline::RenderTimeline(const std::vector<RenderTrack> &tracks, SampleCache &samples,
                               const std::stop_token &stop, RenderRange range)
    : samples_(samples), groups_(1)
{
    for (const auto &track : tracks) {
        const GroupId group{std::uint32_t(groups_.size())};
        groups_.push_back(track.level);
        end_ = std::max(end_, track.playback.lastEventClock());
        auto playback = track.playback;
        while (const auto note = playback.takeNote(maxTicks)) {
            throwIfStopped(stop);
            const auto voice = voiceFor(*note, group, samples_);
            if (!voice.sound || voice.start >= range.to || endOf(voice) <= range.from)
                continue;
            end_ = std::max(end_, endOf(voice));
            notes_.push_back({*note, group});
        }
    }
    if (range.to != never)
        end_ = range.to;
    std::ranges::stable_sort(notes_, {}, [](const Note &note) { return note.placed.start; });
}

std::vector<VoiceSpec> RenderTimeline::takeVoices(DspClock before)
{
    std::vector<VoiceSpec> voices;
    for (; nextNote_ < notes_.size() && notes_[nextNote_].placed.start < before; ++nextNote_) {
        auto voice = voiceFor(notes_[nextNote_].placed, notes_[nextNote_].group, samples_);
        if (voice.sound)
            voices.push_back(std::move(voice));
    }
    return voices;
}

RenderProgress::RenderProgress(const std::vector<RenderTrack> &tracks, Tell tell) : tell_(std::move(tell))
{
    for (const auto &track : tracks) {
        tracks_.push_back(track.playback);
        totalTicks_ = std::max(totalTicks_, track.playback.track().length());
    }
}

void RenderProgress::passBlock(DspClock clock)
{
    auto currentTick = totalTicks_;
    std::erase_if(tracks_, [&](TrackPlayback &track) {
        const auto horizon = track.tickAt(clock);
        currentTick = std::min(currentTick, horizon);
        const bool isDone = track.isExhausted();
        while (track.takeNote(horizon)) { // only the position counts
        }
        if (++visits_ % 64 == 0)
            tell_(quint64(currentTick), quint64(totalTicks_));
        return isDone;
    });
}
