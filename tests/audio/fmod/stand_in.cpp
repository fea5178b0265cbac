// Stands in for the library FMOD in tests: a shared library of our own with the functions that the program calls, built
// three times for three kinds of versions. It mixes simply and keeps to the rules that its callers rely on; of how the
// library behaves otherwise it proves nothing.
//   STAND_IN 1: creation with one argument, records of 232 bytes
//   STAND_IN 2: takes only callers of its minor version; a group's clock begins with the group
//   STAND_IN 3: takes only callers of its very version; only names with FMOD5_; the version has a third argument
#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <condition_variable>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#if STAND_IN == 3
#define EXPORTED(NAME) extern "C" __attribute__((visibility("default"))) int FMOD5_##NAME
#else
#define EXPORTED(NAME) extern "C" __attribute__((visibility("default"))) int FMOD_##NAME
#endif
#define CONTROL(TYPE, NAME) extern "C" __attribute__((visibility("default"))) TYPE StandIn_##NAME
// Begins every function: fails when it was told to.
#define MAY_FAIL(NAME)                                                                                                 \
    if (const int failure = planned(#NAME); failure != 0)                                                              \
    return failure

namespace {

constexpr unsigned version = STAND_IN == 1 ? 0x00011020 : STAND_IN == 2 ? 0x00020215 : 0x00020309;
constexpr int infoSize = STAND_IN == 1 ? 232 : 224;
constexpr std::uint64_t blockFrames = 1024;
constexpr int invalidHandle = 30;
constexpr int invalidParameter = 31;

std::mutex planMutex;
std::string plannedName;
int plannedCode = 0;
int plannedSkip = 0;
std::atomic<bool> hasDevice{true};
std::atomic<int> systemsAlive{0};
std::atomic<int> soundsAlive{0};

int planned(const char *name)
{
    const std::lock_guard lock(planMutex);
    if (plannedName != name || plannedSkip-- > 0)
        return 0;
    plannedName.clear();
    return plannedCode;
}

struct SoundInfo
{
    int size;
    unsigned length, fileOffset;
    int channels, frequency, format;
};

struct MeteringInfo
{
    int samples;
    float peak[32], rms[32];
    short channels;
};

struct Sound
{
    std::vector<float> stereo;
    int frequency;
};

struct Group
{
    std::uint64_t born; // where its clock is 0
    float volume = 1, pan = 0;
    bool isMetered = false;
    MeteringInfo meter{};
    std::vector<float> block{};
};

struct Channel
{
    Sound *sound;
    Group *group;
    bool isPaused;
    double position = 0;
    float volume = 1, frequency = 0;
    std::uint64_t start = 0, end = 0;
    std::map<std::uint64_t, float> points;

    float levelAt(std::uint64_t clock) const
    {
        if (points.empty())
            return 1;
        const auto next = points.upper_bound(clock);
        if (next == points.begin())
            return next->second;
        const auto before = std::prev(next);
        if (next == points.end())
            return before->second;
        const auto share = float(clock - before->first) / float(next->first - before->first);
        return before->second + share * (next->second - before->second);
    }
};

struct System
{
    std::mutex mutex;
    std::uint64_t clock = 0;
    int rate = 48000;
    int output = 0;
    bool isOpen = false;
    Group master{0};
    std::vector<std::unique_ptr<Group>> groups;
    std::vector<std::unique_ptr<Sound>> sounds;
    std::map<std::uintptr_t, Channel> channels; // by their handles
    std::FILE *file = nullptr;
    std::thread thread;
    std::condition_variable ending;
    bool isEnding = false;

    ~System()
    {
        {
            const std::lock_guard lock(mutex);
            isEnding = true;
        }
        ending.notify_all();
        if (thread.joinable())
            thread.join();
        if (file != nullptr) {
            writeHeader();
            std::fclose(file);
        }
        soundsAlive -= int(sounds.size());
    }

    void writeHeader()
    {
        const auto bytes = std::uint32_t(clock * 4), frequency = std::uint32_t(rate);
        std::uint32_t header[11] = {0,         bytes + 36,    0,          0, 16,   0x00020001,
                                    frequency, 4 * frequency, 0x00100004, 0, bytes};
        std::memcpy(&header[0], "RIFF", 4);
        std::memcpy(&header[2], "WAVEfmt ", 8);
        std::memcpy(&header[9], "data", 4);
        std::rewind(file);
        std::fwrite(header, 4, 11, file);
    }

    void mixBlock();
    bool add(Channel &channel, std::uint64_t frame) const;
    void runInRealTime();
};

// False when the channel has ended.
bool System::add(Channel &channel, std::uint64_t frame) const
{
    const auto now = clock + frame - channel.group->born;
    if (channel.isPaused || now < channel.start)
        return true;
    const auto at = std::size_t(channel.position);
    const auto frames = channel.sound->stereo.size() / 2;
    if ((channel.end != 0 && now >= channel.end) || at >= frames)
        return false;
    const auto share = float(channel.position - double(at));
    const auto gain = channel.volume * channel.levelAt(now);
    for (std::size_t side = 0; side < 2; ++side) {
        const auto &samples = channel.sound->stereo;
        const auto next = at + 1 < frames ? samples[2 * at + 2 + side] : 0.0F;
        channel.group->block[2 * frame + side] += gain * (samples[2 * at + side] * (1 - share) + next * share);
    }
    channel.position += double(channel.frequency) / rate;
    return true;
}

void finish(Group &group)
{
    const float sides[2] = {group.volume * std::min(1.0F, 1 - group.pan), group.volume * std::min(1.0F, 1 + group.pan)};
    double energy[2] = {};
    group.meter = {};
    group.meter.channels = 2;
    group.meter.samples = int(blockFrames);
    for (std::size_t i = 0; i < group.block.size(); ++i) {
        group.block[i] *= sides[i % 2];
        group.meter.peak[i % 2] = std::max(group.meter.peak[i % 2], std::abs(group.block[i]));
        energy[i % 2] += double(group.block[i]) * double(group.block[i]);
    }
    for (int side = 0; side < 2; ++side)
        group.meter.rms[side] = float(std::sqrt(energy[side] / double(blockFrames)));
}

void System::mixBlock()
{
    master.block.assign(2 * blockFrames, 0);
    for (auto &group : groups)
        group->block.assign(2 * blockFrames, 0);
    for (auto channel = channels.begin(); channel != channels.end();) {
        bool isAlive = true;
        if (channel->second.start >= clock + blockFrames - channel->second.group->born) {
            ++channel;
            continue;
        }
        for (std::uint64_t frame = 0; isAlive && frame < blockFrames; ++frame)
            isAlive = add(channel->second, frame);
        // One that ends with the block is as good as gone.
        const auto next = clock + blockFrames - channel->second.group->born;
        isAlive = isAlive && (channel->second.end == 0 || channel->second.isPaused || next < channel->second.end) &&
                  std::size_t(channel->second.position) < channel->second.sound->stereo.size() / 2;
        channel = isAlive ? std::next(channel) : channels.erase(channel);
    }
    for (auto &group : groups) {
        finish(*group);
        for (std::size_t i = 0; i < master.block.size(); ++i)
            master.block[i] += group->block[i];
    }
    finish(master);
    clock += blockFrames;
    if (file == nullptr)
        return;
    std::vector<std::int16_t> samples;
    for (const auto sample : master.block)
        samples.push_back(std::int16_t(std::lrint(std::clamp(sample * 32768.0F, -32768.0F, 32767.0F))));
    std::fwrite(samples.data(), 2, samples.size(), file);
}

void System::runInRealTime()
{
    const auto begin = std::chrono::steady_clock::now();
    std::unique_lock lock(mutex);
    for (std::uint64_t block = 1; !isEnding; ++block) {
        mixBlock();
        ending.wait_until(lock, begin + std::chrono::microseconds(block * blockFrames * 1'000'000 / 48000),
                          [this] { return isEnding; });
    }
}

// Every handle belongs to a system that lives; which one, only these know.
std::mutex ownersMutex;
std::map<const void *, System *> owners; // of groups and sounds, and of channels by their handles

System *ownerOf(const void *handle)
{
    const std::lock_guard lock(ownersMutex);
    const auto owner = owners.find(handle);
    return owner != owners.end() ? owner->second : nullptr;
}

void setOwner(const void *handle, System *owner)
{
    const std::lock_guard lock(ownersMutex);
    owners[handle] = owner;
}

template<typename Action>
int onChannel(void *handle, Action action)
{
    auto *const system = ownerOf(handle);
    if (system == nullptr)
        return invalidHandle;
    const std::lock_guard lock(system->mutex);
    const auto channel = system->channels.find(reinterpret_cast<std::uintptr_t>(handle));
    return channel != system->channels.end() ? action(*system, channel->second) : invalidHandle;
}

template<typename Action>
int onGroup(void *handle, Action action)
{
    auto *const system = ownerOf(handle);
    if (system == nullptr)
        return invalidHandle;
    const std::lock_guard lock(system->mutex);
    return action(*system, *static_cast<Group *>(handle));
}

std::atomic<int> creating{0}; // must never be two

struct Creating
{
    Creating()
    {
        if (++creating != 1)
            std::abort();
    }
    ~Creating() { --creating; }
};

int create(void **system)
{
    const Creating guard;
    ++systemsAlive;
    *system = new System;
    return 0;
}

} // namespace

// The next call of a function fails with the code, after so many that do not; whether it has.
CONTROL(void, Fail)(const char *name, int code, int skip)
{
    const std::lock_guard lock(planMutex);
    plannedName = name;
    plannedCode = code;
    plannedSkip = skip;
}
CONTROL(int, HasFailed)()
{
    const std::lock_guard lock(planMutex);
    return plannedName.empty();
}
CONTROL(void, SetDevice)(int isThere)
{
    hasDevice = isThere != 0;
}
CONTROL(int, SystemsAlive)()
{
    return systemsAlive;
}
CONTROL(int, SoundsAlive)()
{
    return soundsAlive;
}

#if STAND_IN == 1
EXPORTED(System_Create)(void **system)
{
    MAY_FAIL(System_Create);
    return create(system);
}
#else
EXPORTED(System_Create)(void **system, unsigned caller)
{
    MAY_FAIL(System_Create);
    const unsigned mask = STAND_IN == 2 ? 0xffffff00 : 0xffffffff;
    return (caller & mask) == (version & mask) ? create(system) : 20;
}
#endif

EXPORTED(System_Release)(void *handle)
{
    static std::vector<void *> kept; // that nobody can release any more
    if (const int failure = planned("System_Release"); failure != 0)
        return kept.push_back(handle), failure;
    const Creating guard;
    auto *const system = static_cast<System *>(handle);
    {
        const std::lock_guard lock(ownersMutex);
        std::erase_if(owners, [system](const auto &owner) { return owner.second == system; });
    }
    delete system;
    --systemsAlive;
    return 0;
}

#if STAND_IN == 3
EXPORTED(System_GetVersion)(void *, unsigned *number, unsigned *build)
{
    *build = 1;
#else
EXPORTED(System_GetVersion)(void *, unsigned *number)
{
#endif
    MAY_FAIL(System_GetVersion);
    *number = version;
    return 0;
}

EXPORTED(System_SetOutput)(void *system, int output)
{
    MAY_FAIL(System_SetOutput);
    static_cast<System *>(system)->output = output;
    return 0;
}

EXPORTED(System_SetSoftwareChannels)(void *, int count)
{
    MAY_FAIL(System_SetSoftwareChannels);
    return count == 2048 ? 0 : invalidParameter;
}

EXPORTED(System_SetSoftwareFormat)(void *system, int rate, int speakers, int)
{
    MAY_FAIL(System_SetSoftwareFormat);
    static_cast<System *>(system)->rate = rate;
    return speakers == 3 ? 0 : invalidParameter;
}

EXPORTED(System_GetSoftwareFormat)(void *system, int *rate, int *, int *)
{
    MAY_FAIL(System_GetSoftwareFormat);
    *rate = static_cast<System *>(system)->rate;
    return 0;
}

EXPORTED(System_GetDSPBufferSize)(void *, unsigned *length, int *count)
{
    MAY_FAIL(System_GetDSPBufferSize);
    *length = unsigned(blockFrames);
    *count = 4;
    return 0;
}

EXPORTED(System_Init)(void *handle, int, unsigned, void *driverData)
{
    MAY_FAIL(System_Init);
    auto &system = *static_cast<System *>(handle);
    if (system.isOpen)
        return 27;
    if (system.output == 0 && !hasDevice)
        return 52;
    if (system.output == 5) {
        system.file = std::fopen(static_cast<const char *>(driverData), "wb");
        if (system.file == nullptr)
            return 51;
        system.writeHeader();
    }
    system.isOpen = true;
    if (system.output == 0 || system.output == 2)
        system.thread = std::thread([&system] { system.runInRealTime(); });
    setOwner(&system.master, &system);
    return 0;
}

EXPORTED(System_Update)(void *handle)
{
    MAY_FAIL(System_Update);
    auto &system = *static_cast<System *>(handle);
    const std::lock_guard lock(system.mutex);
    if (system.output == 5)
        system.mixBlock();
    return 0;
}

EXPORTED(System_GetMasterChannelGroup)(void *system, void **group)
{
    MAY_FAIL(System_GetMasterChannelGroup);
    *group = &static_cast<System *>(system)->master;
    return 0;
}

EXPORTED(System_CreateSound)(void *handle, const char *data, unsigned mode, const SoundInfo *info, void **sound)
{
    MAY_FAIL(System_CreateSound);
    if (mode != 0x1909 || info->size != infoSize || info->format != 5 || info->channels != 2 || info->length % 8 != 0)
        return invalidParameter;
    auto &system = *static_cast<System *>(handle);
    auto made = std::make_unique<Sound>();
    made->stereo.resize(info->length / sizeof(float));
    std::memcpy(made->stereo.data(), data, info->length);
    made->frequency = info->frequency;
    *sound = made.get();
    setOwner(made.get(), &system);
    ++soundsAlive;
    const std::lock_guard lock(system.mutex);
    system.sounds.push_back(std::move(made));
    return 0;
}

EXPORTED(Sound_Release)(void *sound)
{
    MAY_FAIL(Sound_Release);
    auto *const system = ownerOf(sound);
    if (system == nullptr)
        return invalidHandle;
    const std::lock_guard lock(system->mutex);
    std::erase_if(system->channels, [sound](const auto &channel) { return channel.second.sound == sound; });
    std::erase_if(system->sounds, [sound](const auto &owned) { return owned.get() == sound; });
    setOwner(sound, nullptr);
    --soundsAlive;
    return 0;
}

EXPORTED(System_CreateChannelGroup)(void *handle, const char *, void **group)
{
    MAY_FAIL(System_CreateChannelGroup);
    auto &system = *static_cast<System *>(handle);
    const std::lock_guard lock(system.mutex);
    system.groups.push_back(std::make_unique<Group>(Group{STAND_IN == 2 ? system.clock : 0}));
    *group = system.groups.back().get();
    setOwner(*group, &system);
    return 0;
}

EXPORTED(System_PlaySound)(void *handle, void *sound, void *group, int isPaused, void **channel)
{
    MAY_FAIL(System_PlaySound);
    auto &system = *static_cast<System *>(handle);
    const std::lock_guard lock(system.mutex);
    if (system.channels.size() >= 2048) // the least important one is stolen
        system.channels.erase(system.channels.begin());
    static std::atomic<std::uintptr_t> lastChannel{0x1000}; // no handle comes twice, in no system
    const auto id = ++lastChannel;
    auto &made = system.channels[id];
    made.sound = static_cast<Sound *>(sound);
    made.group = group != nullptr ? static_cast<Group *>(group) : &system.master;
    made.isPaused = isPaused != 0;
    made.frequency = float(made.sound->frequency);
    *channel = reinterpret_cast<void *>(id);
    setOwner(*channel, &system);
    return 0;
}

EXPORTED(Channel_SetDelay)(void *channel, unsigned long long start, unsigned long long end, int stops)
{
    MAY_FAIL(Channel_SetDelay);
    return onChannel(channel, [=](System &, Channel &its) {
        its.start = start;
        its.end = end;
        return stops == 1 ? 0 : invalidParameter;
    });
}

EXPORTED(Channel_AddFadePoint)(void *channel, unsigned long long clock, float volume)
{
    MAY_FAIL(Channel_AddFadePoint);
    return onChannel(channel, [=](System &, Channel &its) {
        return its.points.emplace(clock, volume).second ? 0 : invalidParameter; // two at one clock have no order
    });
}

EXPORTED(Channel_RemoveFadePoints)(void *channel, unsigned long long from, unsigned long long to)
{
    MAY_FAIL(Channel_RemoveFadePoints);
    return onChannel(channel, [=](System &, Channel &its) {
        its.points.erase(its.points.lower_bound(from), its.points.upper_bound(to));
        return 0;
    });
}

EXPORTED(Channel_SetVolume)(void *channel, float volume)
{
    MAY_FAIL(Channel_SetVolume);
    return onChannel(channel, [=](System &, Channel &its) { return its.volume = volume, 0; });
}

EXPORTED(Channel_SetFrequency)(void *channel, float frequency)
{
    MAY_FAIL(Channel_SetFrequency);
    return onChannel(channel, [=](System &, Channel &its) { return its.frequency = frequency, 0; });
}

EXPORTED(Channel_SetPaused)(void *channel, int isPaused)
{
    MAY_FAIL(Channel_SetPaused);
    return onChannel(channel, [=](System &, Channel &its) { return its.isPaused = isPaused != 0, 0; });
}

EXPORTED(Channel_Stop)(void *channel)
{
    MAY_FAIL(Channel_Stop);
    return onChannel(channel, [=](System &system, Channel &) {
        system.channels.erase(reinterpret_cast<std::uintptr_t>(channel));
        return 0;
    });
}

EXPORTED(Channel_IsPlaying)(void *channel, int *isPlaying)
{
    MAY_FAIL(Channel_IsPlaying);
    *isPlaying = 0;
    return onChannel(channel, [=](System &, Channel &) { return *isPlaying = 1, 0; });
}

EXPORTED(ChannelGroup_SetVolume)(void *group, float volume)
{
    MAY_FAIL(ChannelGroup_SetVolume);
    return onGroup(group, [=](System &, Group &its) { return its.volume = volume, 0; });
}

EXPORTED(ChannelGroup_SetPan)(void *group, float pan)
{
    MAY_FAIL(ChannelGroup_SetPan);
    return onGroup(group, [=](System &, Group &its) { return its.pan = pan, 0; });
}

EXPORTED(ChannelGroup_GetDSPClock)(void *group, unsigned long long *own, unsigned long long *parent)
{
    MAY_FAIL(ChannelGroup_GetDSPClock);
    return onGroup(group, [=](System &system, Group &its) {
        *own = system.clock - its.born;
        *parent = system.clock;
        return 0;
    });
}

EXPORTED(ChannelGroup_GetDSP)(void *group, int index, void **dsp)
{
    MAY_FAIL(ChannelGroup_GetDSP);
    *dsp = group;
    return index == -1 ? 0 : invalidParameter;
}

EXPORTED(ChannelGroup_Release)(void *group)
{
    MAY_FAIL(ChannelGroup_Release);
    const int result = onGroup(group, [=](System &system, Group &) {
        for (auto &[id, channel] : system.channels)
            channel.group = channel.group == group ? &system.master : channel.group;
        std::erase_if(system.groups, [group](const auto &owned) { return owned.get() == group; });
        return 0;
    });
    setOwner(group, nullptr);
    return result;
}

EXPORTED(DSP_SetMeteringEnabled)(void *dsp, int input, int output)
{
    MAY_FAIL(DSP_SetMeteringEnabled);
    return onGroup(dsp, [=](System &, Group &its) {
        its.isMetered = output == 1;
        return input == 0 ? 0 : invalidParameter;
    });
}

EXPORTED(DSP_GetMeteringInfo)(void *dsp, MeteringInfo *, MeteringInfo *output)
{
    MAY_FAIL(DSP_GetMeteringInfo);
    return onGroup(dsp, [=](System &, Group &its) {
        if (!its.isMetered)
            return 1;
        *output = its.meter;
        return 0;
    });
}
