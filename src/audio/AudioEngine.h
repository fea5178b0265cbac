#pragma once

#include "audio/sound/AudioResult.h"
#include "audio/sound/Sound.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <optional>
#include <span>
#include <vector>

// A point of the engine's time: output samples since initialize(). Every start, end and fade is given in it.
using DspClock = std::uint64_t;
constexpr DspClock never = std::numeric_limits<DspClock>::max();

// Whether somebody can hear the output.
enum class OutputState { Running, NoDevice, NotAnswering };

enum class GroupId : std::uint32_t {}; // of one track
enum class VoiceId : std::uint64_t {}; // never given twice by one engine

constexpr GroupId masterGroup{0}; // always there; every other group plays into it
constexpr std::size_t maxGroups = 1024;
constexpr std::size_t maxVoices = 2048;

// Of a voice whose start the mixer has already passed: it begins at the mixer's clock, or there inside its sound, where
// it would be by then.
enum class LateStart { Moved, Inside };

// What a group does to its voices.
struct GroupLevel
{
    float volume = 1; // linear, 0 or more
    float pan = 0;    // -1 left … 1 right; at the ends the other side is silent, at 0 both are as they were
};

// Linear amplitudes, 1 is full scale.
struct MeterReading
{
    float leftRms = 0;
    float rightRms = 0;
    float leftPeak = 0;
    float rightPeak = 0;
};

// One note. At clock c the voice plays source frame (c - start) * ratio. Its gain holds until `end` and then falls
// linearly to 0 at `fadeEnd`, where the voice ends; it also ends where the sound ends. A mono sound goes to both sides
// with the power of a stereo one. At ratio 1 it is played sample for sample.
struct VoiceSpec
{
    Sound sound; // not null
    GroupId group = masterGroup;
    DspClock start = 0;
    DspClock end = never;
    DspClock fadeEnd = never; // end or later
    float gain = 1;           // linear, finite
    double ratio = 1;         // source frames per output frame: pitch factor * sound rate / engine rate; above 0
    LateStart lateStart = LateStart::Moved;
};

// Whether an engine takes it: numbers are finite, ratios from 1/4096 to 4096, starts up to 2^62. [any]
bool isInRange(const VoiceSpec &spec);
bool isInRange(GroupLevel level);

// A song that an engine renders as a whole. [render]
class Timeline
{
public:
    virtual ~Timeline() = default;

    // What each group does, the master's at 0 (so at least one). Voices name their group by its place here.
    virtual const std::vector<GroupLevel> &groups() const = 0;
    // The file goes on at least until here.
    virtual DspClock end() const = 0;
    // The voices that start before the clock and were not taken before, by their starts. Asked in rising order.
    virtual std::vector<VoiceSpec> takeVoices(DspClock before) = 0;
};

// A part of a render for any core, and what follows on the render's thread.
struct RenderJob
{
    std::function<void()> work; // [any]
    std::function<void()> take; // [render]
};

// For whom an engine renders. What these throw ends the render and passes through the engine. [render]
class RenderHost
{
public:
    virtual ~RenderHost() = default;

    // One more block is in the file, up to the clock.
    virtual void passBlock(DspClock clock) = 0;
    // Something failed, and the render goes on.
    virtual void report(AudioResult failure) = 0;
    // How many jobs run at the same time.
    virtual std::size_t cores() const = 0;
    // Asks for jobs until there are none, and takes them in their order. When it throws, the work of jobs that began
    // may still go on.
    virtual void run(const std::function<std::optional<RenderJob>()> &nextJob) = 0;
};

// Takes what was mixed, interleaved. Everything but Ok ends the mixing. [render]
using MixedFrames = std::function<AudioResult(std::span<const float> stereo)>;

// The one door to sound. An engine has one owner thread, [audio] below: the player's audio thread or the renderer's.
// What is tagged [any] is const and may be called from several threads at once. When a call fails, the rest goes on.
class AudioEngine
{
public:
    virtual ~AudioEngine() = default;

    // What messages begin with ("Audio" in "Audio Error: …"). [any]
    virtual const char *name() const = 0;
    // The text of a result; of a LibraryError it is that of the library's latest one, with its number. [any]
    virtual const char *errorText(AudioResult result) const;

    // Opens the output; the clock starts at 0. NoDevice and DeviceNotAnswering are warnings: everything works on,
    // unheard. [audio]
    virtual AudioResult initialize() = 0;
    // Ends all voices, closes the output and completes its file. The destructor does the same. [audio]
    virtual AudioResult release() = 0;
    // To be called every few milliseconds: gives back finished voices and looks after the device. It returns DeviceLost
    // once when the device goes away or DeviceNotAnswering when it stops asking for frames, and takes a new one by
    // itself when there is one. An output without a clock of its own mixes exactly one block here, on the caller's
    // thread. [audio]
    virtual AudioResult update() = 0;
    virtual OutputState outputState() const = 0; // [audio]
    // Nothing sounds or is scheduled, and nothing will be until wake(): the clock may stand still, and threads and
    // device be given back. [audio]
    virtual void rest() {}
    virtual void wake() {}

    virtual int sampleRate() const = 0;            // Hz; fixed from initialize() to release() [any]
    virtual std::size_t blockFrames() const = 0;   // [any]
    virtual DspClock clock() const = 0;            // samples mixed so far [any]
    virtual std::size_t playingVoices() const = 0; // scheduled or sounding, as of the last update() [audio]

    // A group for one track, at level {1, 0}. `group` is written on Ok only. [audio]
    virtual AudioResult createGroup(GroupId &group) = 0;
    // Changes glide while the group sounds, so that they do not click. [audio]
    virtual AudioResult setGroupLevel(GroupId group, GroupLevel level) = 0;
    // Ends the group's voices: those that sound fade over some milliseconds, scheduled ones do not begin. [audio]
    virtual AudioResult stopGroup(GroupId group) = 0;
    // Forgets the group; voices that it has left play to their ends. Not for masterGroup. [audio]
    virtual AudioResult releaseGroup(GroupId group) = 0;
    // Behind the group's level, of late; an unknown group reads 0. [audio]
    virtual MeterReading groupMeter(GroupId group) = 0;

    // Schedules a voice. `voice` is written on Ok only. [audio]
    virtual AudioResult play(const VoiceSpec &spec, VoiceId &voice) = 0;
    // From now on the voice falls linearly from its present gain to 0 over that many frames, and ends (one that has not
    // begun ends at once). Does nothing when the voice has ended. [audio]
    virtual AudioResult fadeOut(VoiceId voice, std::size_t frames) = 0;
    virtual bool isPlaying(VoiceId voice) const = 0; // scheduled or sounding, as of the last update() [audio]

    // Writes a timeline to the file of the output, from an initialized engine that has played nothing; release() must
    // follow. The file ends with the block in which the timeline and its last voice end. This body plays the voices and
    // updates the engine block by block; an engine that knows a faster way overrides it. [render]
    virtual AudioResult render(Timeline &timeline, RenderHost &host);

    // Whether there is mix(). [any]
    virtual bool canMix() const { return false; }
    // Mixes a timeline as render() does, but for somebody else than the output, at 48 kHz, and without initialize(). It
    // ends with the block in which the timeline does. [render]
    virtual AudioResult mix(Timeline &timeline, RenderHost &host, const MixedFrames &take);

    // The sound of a sample file, up to so many frames at least. This body reads what SampleDecoder reads; an engine
    // whose library knows more formats overrides it. [any]
    virtual AudioResult makeSound(std::span<const std::byte> file, std::size_t mostFrames, Sound &sound) const;
};
