#pragma once

#include "audio/Sound.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

// A point of the engine's time: output samples since initialize(). Every start, end and fade is given in it.
using DspClock = std::uint64_t;
constexpr DspClock never = std::numeric_limits<DspClock>::max();

enum class AudioResult {
    Ok,
    InvalidArgument,  // a number out of its range, or an operation that the output does not have
    NotInitialized,   // before initialize() or after release()
    NoDevice,         // there is no sound device: the engine runs on, paced, and nothing is heard
    DeviceLost,       // the sound device went away: as NoDevice
    UnknownGroup,     // not created, or released
    TooManyGroups,    // more than maxGroups
    TooManyVoices,    // more than maxVoices scheduled or sounding; those that sound are not touched
    QueueFull,        // more commands than the mixer took; the operation had no effect
    UnreadableSample, // neither WAV, FLAC, Ogg Vorbis, Ogg Opus nor MP3, or damaged before its first frame
    SampleTooLong,    // longer than ten minutes, or than 256 MB when decoded
    CannotWrite,      // the wave file could not be created or not be written
};

// Whether somebody can hear the output.
enum class OutputState { Running, NoDevice };

enum class GroupId : std::uint32_t {}; // of one track
enum class VoiceId : std::uint64_t {}; // never given twice by one engine

constexpr GroupId masterGroup{0}; // always there; every other group plays into it
constexpr std::size_t maxGroups = 1024;
constexpr std::size_t maxVoices = 2048;

// What a group does to its voices. With pan p the left side is multiplied by volume * min(1, 1 - p), the right one by
// volume * min(1, 1 + p).
struct GroupLevel
{
    float volume = 1; // linear, 0 or more
    float pan = 0;    // -1 left … 1 right
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
// linearly to 0 at `fadeEnd`, where the voice ends; it also ends where the sound ends. A mono sound goes to left and
// right at √½ each, a stereo sound as it is. Ratio 1 plays sample for sample; any other goes through the live kernel.
struct VoiceSpec
{
    Sound sound; // not null
    GroupId group = masterGroup;
    DspClock start = 0;
    DspClock end = never;
    DspClock fadeEnd = never; // end or later
    float gain = 1;           // linear, finite
    double ratio = 1;         // source frames per output frame: pitch factor * sound rate / engine rate; above 0
};

// A whole timeline, for mixSpan(): groups[n] is what GroupId{n} does, the master's at 0 (so at least one). Voices of a
// group are added in the order of the list.
struct Mix
{
    std::vector<GroupLevel> groups;
    std::vector<VoiceSpec> voices;
};

// The one door to sound. An engine has one owner thread, [audio] below: the player's audio thread or the renderer's.
// What is tagged [any] is const and may be called from several threads at once.
// The same calls at the same clocks give the same samples, bit for bit, however the timeline is cut into blocks.
class AudioEngine
{
public:
    virtual ~AudioEngine() = default;

    // What messages begin with ("Audio" in "Audio Error: …"), and the text of a result. [any]
    virtual const char *name() const = 0;
    virtual const char *errorText(AudioResult result) const = 0;

    // Opens the output; the clock starts at 0. NoDevice is a warning: everything works on, unheard. [audio]
    virtual AudioResult initialize() = 0;
    // Ends all voices, closes the output and completes its file. The destructor does the same. [audio]
    virtual AudioResult release() = 0;
    // To be called every few milliseconds: gives back finished voices and looks after the device. It returns DeviceLost
    // once when the device goes away, and takes a new one by itself when there is one. An output without a clock of its
    // own mixes exactly one block here, on the caller's thread. [audio]
    virtual AudioResult update() = 0;
    virtual OutputState outputState() const = 0; // [audio]

    virtual int sampleRate() const = 0;            // Hz; fixed from initialize() to release() [any]
    virtual std::size_t blockFrames() const = 0;   // [any]
    virtual DspClock clock() const = 0;            // samples mixed so far [any]
    virtual std::size_t playingVoices() const = 0; // scheduled or sounding, as of the last update() [audio]

    // A group for one track, at level {1, 0}. `group` is written on Ok only. [audio]
    virtual AudioResult createGroup(GroupId &group) = 0;
    // Changes glide over one block while the group sounds. [audio]
    virtual AudioResult setGroupLevel(GroupId group, GroupLevel level) = 0;
    // Ends the group's voices: those that sound fade over 240 frames, scheduled ones do not begin. [audio]
    virtual AudioResult stopGroup(GroupId group) = 0;
    // Forgets the group; voices that it has left play to their ends. Not for masterGroup. [audio]
    virtual AudioResult releaseGroup(GroupId group) = 0;
    // Behind the group's level, over all blocks mixed since the previous reading; an unknown group reads 0. [audio]
    virtual MeterReading groupMeter(GroupId group) = 0;

    // Schedules a voice. A start that the mixer has already passed is moved to the mixer's clock. `voice` is written on
    // Ok only. [audio]
    virtual AudioResult play(const VoiceSpec &spec, VoiceId &voice) = 0;
    // From now on the voice falls linearly from its present gain to 0 over that many frames, and ends (one that has not
    // begun ends at once). Does nothing when the voice has ended. [audio]
    virtual AudioResult fadeOut(VoiceId voice, std::size_t frames) = 0;
    virtual bool isPlaying(VoiceId voice) const = 0; // scheduled or sounding, as of the last update() [audio]

    // Decodes a whole sample file of any supported format; more than two channels become the first two. [any]
    virtual AudioResult decode(std::span<const std::byte> bytes, Sound &sound) const = 0;
    // Resamples with the high-quality kernel, so that the result at ratio 1 is the source at `ratio`. At most maxFrames
    // of the result are made: what the longest note needs. InvalidArgument when ratio is not in 1/16 … 16. [any]
    virtual AudioResult resample(const SoundData &source, double ratio, std::size_t maxFrames, Sound &sound) const = 0;
    // Mixes the clocks from … from + stereo.size() / 2 to interleaved left and right (overwritten): the same bytes that
    // playing the voices gives. Voices outside the span cost one comparison each; there may be any number. [any]
    virtual AudioResult mixSpan(const Mix &mix, DspClock from, std::span<float> stereo) const = 0;
    // Appends interleaved frames to the wave file and moves the clock on (wave file output only). [audio]
    virtual AudioResult write(std::span<const float> stereo) = 0;
};
