#include "audio/fmod/FmodVoices.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr DspClock stopFrames = 240; // 5 ms at 48 kHz: what a stopped group takes to fade without a click
constexpr DspClock riseFrames = 240; // likewise for a voice that begins inside its sound

fmodlib::Result firstFailure(std::initializer_list<fmodlib::Result> results)
{
    const auto failed =
        std::find_if(results.begin(), results.end(), [](fmodlib::Result result) { return result != 0; });
    return failed != results.end() ? *failed : 0;
}

// Of a channel that has ended meanwhile, which is no failure.
bool isGone(fmodlib::Result result)
{
    return result == fmodlib::channelStolen || result == fmodlib::invalidHandle;
}

} // namespace

fmodlib::Result FmodVoices::play(const VoiceSpec &spec, DspClock now, VoiceId &id)
{
    const bool isInside = spec.start < now && spec.lateStart == LateStart::Inside;
    const auto start = std::max(spec.start, now);
    const auto firstFrame = isInside ? std::floor(double(now - spec.start) * spec.ratio) : 0.0;
    const auto outputFrames = std::ceil((double(spec.sound->frames()) - firstFrame) / spec.ratio);
    Voice voice{spec.group, spec.sound, FmodEnvelope(spec, start, isInside ? riseFrames : 0), spec.fadeEnd};
    if (voice.stop > start && outputFrames < double(voice.stop - start))
        voice.stop = start + DspClock(std::max(outputFrames, 0.0));
    const VoiceId given{++lastId_};
    if (voice.stop > start) { // else it is over before it begins
        fmodlib::Sound *sound = nullptr;
        if (const auto result = findSound(voice, std::size_t(firstFrame), sound); result != 0)
            return result;
        if (const auto result = begin(spec, voice, sound); result != 0) {
            releasePart(voice);
            return result;
        }
        groups_.addVoice(spec.group);
        voices_.emplace(given, std::move(voice));
    }
    id = given;
    return 0;
}

fmodlib::Result FmodVoices::findSound(Voice &voice, std::size_t firstFrame, fmodlib::Sound *&sound)
{
    if (firstFrame == 0)
        return sounds_.find(voice.sound, sound);
    const auto result = sounds_.makePart(*voice.sound, firstFrame, sound);
    voice.part = result == 0 ? sound : nullptr;
    return result;
}

fmodlib::Result FmodVoices::begin(const VoiceSpec &spec, Voice &voice, fmodlib::Sound *sound)
{
    FmodGroups::Place place;
    if (const auto result = groups_.place(spec.group, place); result != 0)
        return result;
    voice.shift = place.shift;
    if (const auto result = api_.systemPlaySound(&system_, sound, place.group, 1, &voice.channel); result != 0)
        return result;
    const auto result = setUp(spec, voice);
    if (result != 0)
        api_.channelStop(voice.channel);
    return result;
}

// The voice waits meanwhile.
fmodlib::Result FmodVoices::setUp(const VoiceSpec &spec, const Voice &voice) const
{
    const auto frequency = float(spec.ratio * sampleRate_);
    if (const auto result = spec.ratio != 1 ? api_.channelSetFrequency(voice.channel, frequency) : 0; result != 0)
        return result;
    if (const auto result = api_.channelSetVolume(voice.channel, spec.gain); result != 0)
        return result;
    if (const auto result = addPoints(voice, 0); result != 0)
        return result;
    if (const auto result = setDelay(voice); result != 0)
        return result;
    return api_.channelSetPaused(voice.channel, 0);
}

// One alone that is full says nothing.
fmodlib::Result FmodVoices::addPoints(const Voice &voice, DspClock from) const
{
    const auto &points = voice.envelope.points();
    if (points.size() == 1 && points.front().level == 1)
        return 0;
    fmodlib::Result failure = 0;
    for (const auto &point : points) {
        if (point.clock >= from && failure == 0)
            failure = api_.channelAddFadePoint(voice.channel, libraryClock(voice, point.clock), point.level);
    }
    return failure;
}

// The library takes 0 for "at once" and for "never".
fmodlib::Result FmodVoices::setDelay(const Voice &voice) const
{
    const auto end = voice.envelope.stop();
    return api_.channelSetDelay(voice.channel, libraryClock(voice, voice.envelope.start()),
                                end == never ? 0 : libraryClock(voice, end), 1);
}

fmodlib::Result FmodVoices::fadeOut(VoiceId id, DspClock now, DspClock frames)
{
    const auto voice = voices_.find(id);
    return voice != voices_.end() ? fade(voice->second, now, frames) : 0;
}

fmodlib::Result FmodVoices::stopGroup(GroupId group, DspClock now)
{
    fmodlib::Result failure = 0;
    for (auto &[id, voice] : voices_) {
        if (voice.group == group)
            failure = firstFailure({failure, fade(voice, now, stopFrames)});
    }
    return failure;
}

fmodlib::Result FmodVoices::fade(Voice &voice, DspClock now, DspClock frames)
{
    if (voice.isEnded)
        return 0;
    if (voice.envelope.start() > now || frames == 0)
        return stop(voice);
    if (!voice.envelope.fadeFrom(now, frames))
        return 0;
    voice.stop = std::min(voice.stop, voice.envelope.stop());
    const auto removal = api_.channelRemoveFadePoints(voice.channel, libraryClock(voice, now), ~fmodlib::Clock(0));
    if (isGone(removal))
        return 0;
    const auto points = addPoints(voice, now);
    const auto delay = setDelay(voice);
    const auto result = firstFailure({removal, points, delay});
    if (delay != 0) // it would not end
        return firstFailure({result, stop(voice)});
    return isGone(result) ? 0 : result;
}

fmodlib::Result FmodVoices::stop(Voice &voice)
{
    const auto result = api_.channelStop(voice.channel);
    voice.stop = 0;
    voice.isEnded = result == 0 || isGone(result);
    return voice.isEnded ? 0 : result;
}

// By itself a voice ends at its clock, or a few frames later by the library's reckoning. One that does not is stopped.
bool FmodVoices::hasEnded(Voice &voice, DspClock now)
{
    if (voice.isEnded || voice.stop > now)
        return voice.isEnded;
    fmodlib::Bool isPlaying = 0;
    const auto result = api_.channelIsPlaying(voice.channel, &isPlaying);
    if (isGone(result) || (result == 0 && isPlaying == 0))
        return true;
    failures_.note(result);
    if (now - voice.stop > DspClock(sampleRate_))
        failures_.note(stop(voice));
    return voice.isEnded;
}

void FmodVoices::reap(DspClock now)
{
    for (auto entry = voices_.begin(); entry != voices_.end();) {
        auto &voice = entry->second;
        const bool isOver = hasEnded(voice, now);
        if (isOver) {
            groups_.removeVoice(voice.group);
            releasePart(voice);
        }
        entry = isOver ? voices_.erase(entry) : std::next(entry);
    }
    if (now < nextSweep_)
        return;
    nextSweep_ = now + DspClock(sampleRate_) / 10;
    failures_.note(sounds_.releaseUnused());
}

void FmodVoices::releasePart(const Voice &voice)
{
    if (voice.part != nullptr)
        failures_.note(sounds_.release(voice.part));
}

void FmodVoices::stopAll()
{
    for (auto &[id, voice] : voices_) {
        failures_.note(stop(voice));
        groups_.removeVoice(voice.group);
        releasePart(voice);
    }
    voices_.clear();
    failures_.note(sounds_.releaseAll());
}
