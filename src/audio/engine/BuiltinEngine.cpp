#include "audio/engine/BuiltinEngine.h"

#include "audio/engine/LiveOutput.h"
#include "audio/engine/Mixer.h"
#include "audio/engine/SpanRender.h"
#include "audio/engine/VoiceTable.h"
#include "audio/sound/SoundFileWriter.h"

// What exists between initialize() and release(). The output comes last, so that its threads end first.
struct BuiltinEngine::Session
{
    Mixer mixer;
    VoiceTable table;
    std::vector<float> block; // of an output that mixes in update()
    SoundFileWriter file;
    std::unique_ptr<LiveOutput> live; // null for the others

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
    OutputState closed; // what the output is while there is no session
    MakeLive makeLive;  // empty for what is not heard
    std::unique_ptr<Session> session;

    AudioResult openOutput()
    {
        if (session->live)
            return session->live->open();
        const bool isOpen = output == EngineOutput::Silent || session->file.open(wavFile);
        return isOpen ? AudioResult::Ok : AudioResult::CannotWrite;
    }
    LiveOutput *live() const { return session ? session->live.get() : nullptr; }
};

BuiltinEngine::BuiltinEngine(EngineOutput output, std::filesystem::path wavFile)
    : parts_(new Parts{output, std::move(wavFile), OutputState::Running, {}, nullptr})
{
}

BuiltinEngine::BuiltinEngine(OutputState closed, MakeLive makeLive)
    : parts_(new Parts{EngineOutput::Silent, {}, closed, std::move(makeLive), nullptr})
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
    parts_->session = std::make_unique<Session>();
    if (parts_->makeLive)
        parts_->session->live = parts_->makeLive(parts_->session->mixer);
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
    if (session.live) {
        result = session.live->watch();
    } else {
        session.mixBlock();
        if (parts_->output == EngineOutput::WavFile && !session.file.write(session.block))
            result = AudioResult::CannotWrite;
    }
    session.reap();
    return result;
}

OutputState BuiltinEngine::outputState() const
{
    const auto *const live = parts_->live();
    return live != nullptr ? live->state() : parts_->closed;
}

int BuiltinEngine::sampleRate() const
{
    const auto *const live = parts_->live();
    return live != nullptr ? live->sampleRate() : LiveOutput::ownSampleRate;
}

void BuiltinEngine::rest()
{
    if (auto *const live = parts_->live())
        live->rest();
}

void BuiltinEngine::wake()
{
    if (auto *const live = parts_->live())
        live->wake();
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
    const auto *const live = parts_->live();
    return live != nullptr ? live->underruns() : 0;
}
