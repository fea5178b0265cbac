#include "audio/engine/BuiltinEngine.h"

#include "audio/engine/RealTimeOutput.h"
#include "audio/engine/SpanRender.h"
#include "audio/engine/VoiceTable.h"
#include "audio/sound/SoundFileWriter.h"

// What exists between initialize() and release(). The output comes last, so that its threads end first.
struct BuiltinEngine::Session
{
    Session(std::chrono::milliseconds searchInterval, OutputControl &control) : realTime(mixer, searchInterval, control)
    {
    }

    Mixer mixer;
    VoiceTable table;
    std::vector<float> block; // of an output that mixes in update()
    SoundFileWriter file;
    RealTimeOutput realTime;

    void reap()
    {
        VoiceTable::Slot slot = 0;
        while (mixer.takeFinished(slot))
            table.giveBack(slot);
    }
    void mixBlock()
    {
        block.resize(2 * mixerBlockFrames);
        mixer.mix(block.data(), mixerBlockFrames);
    }
};

struct BuiltinEngine::Parts
{
    EngineOutput output;
    std::filesystem::path wavFile;
    std::chrono::milliseconds searchInterval;
    std::shared_ptr<OutputControl> control;
    std::unique_ptr<Session> session;

    AudioResult openOutput();
};

AudioResult BuiltinEngine::Parts::openOutput()
{
    switch (output) {
    case EngineOutput::Device:
        return session->realTime.openDevice();
    case EngineOutput::WavFile:
        return session->file.open(wavFile) ? AudioResult::Ok : AudioResult::CannotWrite;
    case EngineOutput::Paced:
        session->realTime.openPaced();
        return AudioResult::Ok;
    case EngineOutput::Silent:
        return AudioResult::Ok;
    }
    return AudioResult::InvalidArgument;
}

BuiltinEngine::BuiltinEngine(EngineOutput output, std::filesystem::path wavFile,
                             std::chrono::milliseconds searchInterval)
    : parts_(new Parts{output, std::move(wavFile), searchInterval, std::make_shared<OutputControl>(), nullptr})
{
}

BuiltinEngine::BuiltinEngine(std::shared_ptr<OutputControl> control, std::chrono::milliseconds searchInterval)
    : parts_(new Parts{EngineOutput::Device, {}, searchInterval, std::move(control), nullptr})
{
}

BuiltinEngine::~BuiltinEngine()
{
    release();
}

const char *BuiltinEngine::name() const
{
    return "Audio";
}

AudioResult BuiltinEngine::initialize()
{
    release();
    parts_->session = std::make_unique<Session>(parts_->searchInterval, *parts_->control);
    const auto result = parts_->openOutput();
    if (result == AudioResult::CannotWrite)
        parts_->session.reset();
    return result;
}

AudioResult BuiltinEngine::release()
{
    if (!parts_->session)
        return AudioResult::NotInitialized;
    const bool complete = parts_->session->file.close();
    parts_->session.reset();
    return complete ? AudioResult::Ok : AudioResult::CannotWrite;
}

AudioResult BuiltinEngine::update()
{
    if (!parts_->session)
        return AudioResult::NotInitialized;
    auto &session = *parts_->session;
    auto result = AudioResult::Ok;
    switch (parts_->output) {
    case EngineOutput::Device:
    case EngineOutput::Paced:
        result = session.realTime.watch();
        break;
    case EngineOutput::WavFile:
        session.mixBlock();
        result = session.file.write(session.block) ? AudioResult::Ok : AudioResult::CannotWrite;
        break;
    case EngineOutput::Silent:
        session.mixBlock();
        break;
    }
    session.reap();
    return result;
}

OutputState BuiltinEngine::outputState() const
{
    if (parts_->output != EngineOutput::Device)
        return OutputState::Running;
    return parts_->session ? parts_->session->realTime.state() : OutputState::NoDevice;
}

int BuiltinEngine::sampleRate() const
{
    return parts_->session ? parts_->session->realTime.sampleRate() : RealTimeOutput::ownSampleRate;
}

void BuiltinEngine::rest()
{
    if (parts_->session)
        parts_->session->realTime.rest();
}

void BuiltinEngine::wake()
{
    if (parts_->session)
        parts_->session->realTime.wake();
}

std::size_t BuiltinEngine::blockFrames() const
{
    return mixerBlockFrames;
}

DspClock BuiltinEngine::clock() const
{
    return parts_->session ? parts_->session->mixer.clock() : 0;
}

std::size_t BuiltinEngine::playingVoices() const
{
    return parts_->session ? parts_->session->table.taken() : 0;
}

AudioResult BuiltinEngine::createGroup(GroupId &group)
{
    if (!parts_->session)
        return AudioResult::NotInitialized;
    const auto opened = parts_->session->table.openGroup();
    if (!opened)
        return AudioResult::TooManyGroups;
    parts_->session->mixer.openGroup(*opened);
    group = *opened;
    return AudioResult::Ok;
}

AudioResult BuiltinEngine::checkGroup(GroupId group) const
{
    if (!parts_->session)
        return AudioResult::NotInitialized;
    return parts_->session->table.isOpen(group) ? AudioResult::Ok : AudioResult::UnknownGroup;
}

AudioResult BuiltinEngine::setGroupLevel(GroupId group, GroupLevel level)
{
    if (!isInRange(level))
        return AudioResult::InvalidArgument;
    const auto result = checkGroup(group);
    if (result == AudioResult::Ok)
        parts_->session->mixer.setGains(group, sideGains(level));
    return result;
}

AudioResult BuiltinEngine::stopGroup(GroupId group)
{
    if (const auto result = checkGroup(group); result != AudioResult::Ok)
        return result;
    return parts_->session->mixer.stopGroup(group) ? AudioResult::Ok : AudioResult::QueueFull;
}

AudioResult BuiltinEngine::releaseGroup(GroupId group)
{
    if (group == masterGroup)
        return AudioResult::InvalidArgument;
    const auto result = checkGroup(group);
    if (result == AudioResult::Ok)
        parts_->session->table.closeGroup(group);
    return result;
}

MeterReading BuiltinEngine::groupMeter(GroupId group)
{
    return checkGroup(group) == AudioResult::Ok ? parts_->session->mixer.meter(group) : MeterReading{};
}

AudioResult BuiltinEngine::play(const VoiceSpec &spec, VoiceId &voice)
{
    if (const auto result = checkGroup(spec.group); result != AudioResult::Ok)
        return result;
    VoiceShape shape;
    if (const auto result = shapeOf(spec, shape); result != AudioResult::Ok)
        return result;
    auto &session = *parts_->session;
    const auto slot = session.table.take(spec.sound, spec.group);
    if (!slot)
        return AudioResult::TooManyVoices;
    if (!session.mixer.play(*slot, spec.group, shape)) {
        session.table.giveBack(*slot);
        return AudioResult::QueueFull;
    }
    voice = session.table.idOf(*slot);
    return AudioResult::Ok;
}

AudioResult BuiltinEngine::fadeOut(VoiceId voice, std::size_t frames)
{
    if (!parts_->session)
        return AudioResult::NotInitialized;
    const auto slot = parts_->session->table.find(voice);
    if (!slot)
        return AudioResult::Ok;
    return parts_->session->mixer.fadeOut(*slot, frames) ? AudioResult::Ok : AudioResult::QueueFull;
}

bool BuiltinEngine::isPlaying(VoiceId voice) const
{
    return parts_->session && parts_->session->table.find(voice).has_value();
}

AudioResult BuiltinEngine::mix(Timeline &timeline, RenderHost &host, const MixedFrames &take)
{
    return SpanRender(timeline, host, take).run();
}

std::span<const float> BuiltinEngine::lastBlock() const
{
    return parts_->session ? std::span<const float>(parts_->session->block) : std::span<const float>();
}

std::uint64_t BuiltinEngine::underruns() const
{
    return parts_->session ? parts_->session->realTime.underruns() : 0;
}
