#include "audio/AudioEngine.h"

#include "audio/sound/SampleDecoder.h"

#include <QtGlobal>

namespace {

constexpr int mostFruitlessUpdates = 8;

// The groups of a timeline in an engine, by their place.
AudioResult makeGroups(AudioEngine &engine, const std::vector<GroupLevel> &levels, RenderHost &host,
                       std::vector<GroupId> &groups)
{
    for (const auto &level : levels) {
        auto group = masterGroup;
        if (!groups.empty()) {
            if (const auto result = engine.createGroup(group); result != AudioResult::Ok)
                return result;
        }
        if (const auto result = engine.setGroupLevel(group, level); result != AudioResult::Ok)
            host.report(result);
        groups.push_back(group);
    }
    return AudioResult::Ok;
}

void playVoices(AudioEngine &engine, std::vector<VoiceSpec> voices, const std::vector<GroupId> &groups,
                RenderHost &host)
{
    for (auto &voice : voices) {
        voice.group = groups.at(std::size_t(voice.group));
        VoiceId id{};
        if (const auto result = engine.play(voice, id); result != AudioResult::Ok)
            host.report(result);
    }
}

// Not Ok when there is no hope for the file. A library that failed once may mix the block when it is asked again.
AudioResult mixBlock(AudioEngine &engine, RenderHost &host)
{
    auto result = AudioResult::Ok;
    const auto before = engine.clock();
    for (int i = 0; i < mostFruitlessUpdates; ++i) {
        result = engine.update();
        if (result == AudioResult::CannotWrite || result == AudioResult::NotInitialized)
            return result;
        if (result != AudioResult::Ok)
            host.report(result);
        if (engine.clock() != before)
            return AudioResult::Ok;
    }
    return result == AudioResult::Ok ? AudioResult::InvalidArgument : result;
}

} // namespace

const char *AudioEngine::errorText(AudioResult result) const
{
    switch (result) {
    case AudioResult::Ok:
        return QT_TRANSLATE_NOOP("AudioEngine", "No errors.");
    case AudioResult::InvalidArgument:
        return QT_TRANSLATE_NOOP("AudioEngine", "An invalid parameter was passed.");
    case AudioResult::NotInitialized:
        return QT_TRANSLATE_NOOP("AudioEngine", "The engine is not initialized.");
    case AudioResult::NoDevice:
        return QT_TRANSLATE_NOOP("AudioEngine", "There is no sound device.");
    case AudioResult::DeviceLost:
        return QT_TRANSLATE_NOOP("AudioEngine", "The sound device was lost.");
    case AudioResult::DeviceNotAnswering:
        return QT_TRANSLATE_NOOP("AudioEngine", "The sound server does not answer.");
    case AudioResult::UnknownGroup:
        return QT_TRANSLATE_NOOP("AudioEngine", "There is no such group.");
    case AudioResult::TooManyGroups:
        return QT_TRANSLATE_NOOP("AudioEngine", "There are too many groups.");
    case AudioResult::TooManyVoices:
        return QT_TRANSLATE_NOOP("AudioEngine", "Too many notes sound at once.");
    case AudioResult::QueueFull:
        return QT_TRANSLATE_NOOP("AudioEngine", "The mixer did not keep up with the commands.");
    case AudioResult::UnreadableSample:
        return QT_TRANSLATE_NOOP("AudioEngine", "The sample cannot be decoded.");
    case AudioResult::SampleTooLong:
        return QT_TRANSLATE_NOOP("AudioEngine", "The sample is too long.");
    case AudioResult::CannotWrite:
        return QT_TRANSLATE_NOOP("AudioEngine", "The wave file cannot be written.");
    case AudioResult::LibraryError:
        return QT_TRANSLATE_NOOP("AudioEngine", "The sound library failed.");
    }
    return QT_TRANSLATE_NOOP("AudioEngine", "Unknown error.");
}

AudioResult AudioEngine::render(Timeline &timeline, RenderHost &host)
{
    std::vector<GroupId> groups;
    if (const auto result = makeGroups(*this, timeline.groups(), host, groups); result != AudioResult::Ok)
        return result;
    while (clock() < timeline.end() || playingVoices() > 0) {
        playVoices(*this, timeline.takeVoices(clock() + blockFrames()), groups, host);
        if (const auto result = mixBlock(*this, host); result != AudioResult::Ok)
            return result;
        host.passBlock(clock());
    }
    return AudioResult::Ok;
}

AudioResult AudioEngine::mix(Timeline &, RenderHost &, const MixedFrames &)
{
    return AudioResult::InvalidArgument;
}

AudioResult AudioEngine::makeSound(std::span<const std::byte> file, std::size_t mostFrames, Sound &sound) const
{
    return decodeSample(file, mostFrames, sound);
}
