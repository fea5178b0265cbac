#pragma once

#include <array>
#include <cstddef>

// What the engine uses of the library FMOD, versions 1.08 to 2.03 on 64 bit: our own declarations of functions, numbers
// and records as its manual describes them. The library itself is the user's, and is opened at run time.
namespace fmodlib {

using Result = int; // 0: it worked
using Bool = int;   // 0 or 1
using Clock = unsigned long long;

// Of the library; only pointers to them are handed about.
struct System;
struct Sound;
struct Channel;
struct ChannelGroup;
struct Dsp;

constexpr Result headerMismatch = 20;
constexpr Result channelStolen = 3;
constexpr Result invalidHandle = 30;
constexpr Result outputInit = 51;
constexpr Result noDrivers = 52;
constexpr Result tooManySamples = 81;

constexpr int outputNoSound = 2;
constexpr int outputWavWriterNrt = 5; // mixes in update(), into a file
constexpr int speakersStereo = 3;
constexpr unsigned initNormal = 0;
constexpr unsigned initStreamFromUpdate = 1;
constexpr int dspHead = -1;
constexpr int formatFloat = 5;
// No loop, 2D, a decoded sample, raw data in memory, which is copied.
constexpr unsigned modeRawSample = 0x1 | 0x8 | 0x100 | 0x800 | 0x1000;

// How sound data lie in memory. The library reads as many bytes as `size` says; all behind `format` stays 0.
struct alignas(8) SoundInfo
{
    static constexpr int sizeIn1 = 232;
    static constexpr int sizeIn2 = 224;

    int size = 0;
    unsigned length = 0; // bytes
    unsigned fileOffset = 0;
    int channels = 0;
    int frequency = 0; // Hz
    int format = 0;
    std::array<unsigned char, 208> others = {};
};
static_assert(sizeof(SoundInfo) == SoundInfo::sizeIn1 && offsetof(SoundInfo, format) == 20);

struct MeteringInfo
{
    int samples = 0; // that were measured
    std::array<float, 32> peak = {};
    std::array<float, 32> rms = {};
    short channels = 0;
};
static_assert(sizeof(MeteringInfo) == 264 && offsetof(MeteringInfo, channels) == 260);

// The functions, by the library's own names without "FMOD_". Where a version knows fewer arguments, it leaves the last
// ones alone.
struct Api
{
    Result (*systemCreate)(System **system, unsigned headerVersion) = nullptr;
    Result (*systemRelease)(System *) = nullptr;
    Result (*systemGetVersion)(System *, unsigned *version, unsigned *build) = nullptr;
    Result (*systemSetOutput)(System *, int output) = nullptr;
    Result (*systemSetSoftwareChannels)(System *, int count) = nullptr;
    Result (*systemSetSoftwareFormat)(System *, int rate, int speakers, int rawSpeakers) = nullptr;
    Result (*systemGetSoftwareFormat)(System *, int *rate, int *speakers, int *rawSpeakers) = nullptr;
    Result (*systemGetDspBufferSize)(System *, unsigned *frames, int *count) = nullptr;
    Result (*systemInit)(System *, int channels, unsigned flags, void *driverData) = nullptr;
    Result (*systemUpdate)(System *) = nullptr;
    Result (*systemGetMasterChannelGroup)(System *, ChannelGroup **) = nullptr;
    Result (*systemCreateSound)(System *, const char *data, unsigned mode, SoundInfo *, Sound **) = nullptr;
    Result (*systemCreateChannelGroup)(System *, const char *name, ChannelGroup **) = nullptr;
    Result (*systemPlaySound)(System *, Sound *, ChannelGroup *, Bool paused, Channel **) = nullptr;
    Result (*soundRelease)(Sound *) = nullptr;
    Result (*channelSetDelay)(Channel *, Clock start, Clock end, Bool stop) = nullptr;
    Result (*channelAddFadePoint)(Channel *, Clock, float volume) = nullptr;
    Result (*channelRemoveFadePoints)(Channel *, Clock from, Clock to) = nullptr;
    Result (*channelSetVolume)(Channel *, float) = nullptr;
    Result (*channelSetFrequency)(Channel *, float) = nullptr;
    Result (*channelSetPaused)(Channel *, Bool) = nullptr;
    Result (*channelStop)(Channel *) = nullptr;
    Result (*channelIsPlaying)(Channel *, Bool *) = nullptr;
    Result (*groupSetVolume)(ChannelGroup *, float) = nullptr;
    Result (*groupSetPan)(ChannelGroup *, float) = nullptr;
    Result (*groupGetDspClock)(ChannelGroup *, Clock *own, Clock *parent) = nullptr;
    Result (*groupGetDsp)(ChannelGroup *, int index, Dsp **) = nullptr;
    Result (*groupRelease)(ChannelGroup *) = nullptr;
    Result (*dspSetMeteringEnabled)(Dsp *, Bool input, Bool output) = nullptr;
    Result (*dspGetMeteringInfo)(Dsp *, MeteringInfo *input, MeteringInfo *output) = nullptr;
};

// Calls visit(name, function) for every function.
template<typename AnApi, typename Visit>
void visitFunctions(AnApi &api, Visit visit)
{
    visit("System_Create", api.systemCreate);
    visit("System_Release", api.systemRelease);
    visit("System_GetVersion", api.systemGetVersion);
    visit("System_SetOutput", api.systemSetOutput);
    visit("System_SetSoftwareChannels", api.systemSetSoftwareChannels);
    visit("System_SetSoftwareFormat", api.systemSetSoftwareFormat);
    visit("System_GetSoftwareFormat", api.systemGetSoftwareFormat);
    visit("System_GetDSPBufferSize", api.systemGetDspBufferSize);
    visit("System_Init", api.systemInit);
    visit("System_Update", api.systemUpdate);
    visit("System_GetMasterChannelGroup", api.systemGetMasterChannelGroup);
    visit("System_CreateSound", api.systemCreateSound);
    visit("System_CreateChannelGroup", api.systemCreateChannelGroup);
    visit("System_PlaySound", api.systemPlaySound);
    visit("Sound_Release", api.soundRelease);
    visit("Channel_SetDelay", api.channelSetDelay);
    visit("Channel_AddFadePoint", api.channelAddFadePoint);
    visit("Channel_RemoveFadePoints", api.channelRemoveFadePoints);
    visit("Channel_SetVolume", api.channelSetVolume);
    visit("Channel_SetFrequency", api.channelSetFrequency);
    visit("Channel_SetPaused", api.channelSetPaused);
    visit("Channel_Stop", api.channelStop);
    visit("Channel_IsPlaying", api.channelIsPlaying);
    visit("ChannelGroup_SetVolume", api.groupSetVolume);
    visit("ChannelGroup_SetPan", api.groupSetPan);
    visit("ChannelGroup_GetDSPClock", api.groupGetDspClock);
    visit("ChannelGroup_GetDSP", api.groupGetDsp);
    visit("ChannelGroup_Release", api.groupRelease);
    visit("DSP_SetMeteringEnabled", api.dspSetMeteringEnabled);
    visit("DSP_GetMeteringInfo", api.dspGetMeteringInfo);
}

// "no such file (18)": a result's number with words of ours. It stays for the program's life. [any]
const char *textOf(Result result);

} // namespace fmodlib
