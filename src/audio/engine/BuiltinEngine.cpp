#include "audio/engine/BuiltinEngine.h"

#include "audio/engine/DeviceOutput.h"
#include "audio/engine/PacedOutput.h"
#include "audio/engine/SpanRender.h"
#include "audio/engine/VoiceTable.h"
#include "audio/engine/WavWriter.h"

#include <chrono>
#include <cmath>
#include <future>

namespace {

constexpr int ownSampleRate = WavWriter::sampleRate; // where no device has one
constexpr std::chrono::seconds deviceSearchInterval{4};

using Time = std::chrono::steady_clock::time_point;
Time now()
{
    return std::chrono::steady_clock::now();
}

} // namespace

// What exists between initialize() and release(). The outputs come last, so that their threads end first.
struct BuiltinEngine::Session
{
    Mixer mixer;
    VoiceTable table;
    int sampleRate = ownSampleRate;
    std::vector<float> block; // of an output that mixes in update()
    WavWriter file;
    Time nextSearch;
    PacedOutput paced;
    DeviceOutput device{mixer};
    std::future<bool> search; // for another device, which takes a tenth of a second; `device` is its own meanwhile

    bool hasDevice() const { return !search.valid() && device.isOpen(); }
    void reap()
    {
        VoiceTable::Slot slot = 0;
        while (mixer.takeFinished(slot))
            table.giveBack(slot);
    }

    AudioResult openDevice();
    AudioResult watchDevice();
    void mixBlock()
    {
        block.resize(2 * mixerBlockFrames);
        mixer.mix(block.data(), mixerBlockFrames);
    }
};

AudioResult BuiltinEngine::Session::openDevice()
{
    if (!device.open(0)) {
        nextSearch = now() + deviceSearchInterval;
        paced.start(mixer, sampleRate);
        return AudioResult::NoDevice;
    }
    sampleRate = device.sampleRate();
    device.start();
    return AudioResult::Ok;
}

AudioResult BuiltinEngine::Session::watchDevice()
{
    if (search.valid()) {
        if (search.wait_for(std::chrono::seconds(0)) == std::future_status::ready && search.get()) {
            paced.stop();
            device.start();
        }
        nextSearch = now() + deviceSearchInterval;
    } else if (device.lost()) {
        device.close();
        nextSearch = now() + deviceSearchInterval;
        paced.start(mixer, sampleRate);
        return AudioResult::DeviceLost;
    } else if (!device.isOpen() && now() >= nextSearch) {
        // The new device takes over at the engine's rate, in which all clocks are counted.
        search = std::async(std::launch::async, [this] {
            const bool isFound = device.open(sampleRate);
            DeviceOutput::leaveThread();
            return isFound;
        });
    }
    return AudioResult::Ok;
}

struct BuiltinEngine::Parts
{
    EngineOutput output;
    std::filesystem::path wavFile;
    std::unique_ptr<Session> session;

    AudioResult openOutput();
};

AudioResult BuiltinEngine::Parts::openOutput()
{
    switch (output) {
    case EngineOutput::Device:
        return session->openDevice();
    case EngineOutput::WavFile:
        return session->file.open(wavFile) ? AudioResult::Ok : AudioResult::CannotWrite;
    case EngineOutput::Paced:
        session->paced.start(session->mixer, session->sampleRate);
        return AudioResult::Ok;
    case EngineOutput::Silent:
        return AudioResult::Ok;
    }
    return AudioResult::InvalidArgument;
}

BuiltinEngine::BuiltinEngine(EngineOutput output, std::filesystem::path wavFile) : parts_(std::make_unique<Parts>())
{
    parts_->output = output;
    parts_->wavFile = std::move(wavFile);
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
        result = session.watchDevice();
        break;
    case EngineOutput::WavFile:
        session.mixBlock();
        result = session.file.write(session.block) ? AudioResult::Ok : AudioResult::CannotWrite;
        break;
    case EngineOutput::Silent:
        session.mixBlock();
        break;
    case EngineOutput::Paced:
        break;
    }
    session.reap();
    return result;
}

OutputState BuiltinEngine::outputState() const
{
    const bool lacksDevice =
        parts_->output == EngineOutput::Device && !(parts_->session && parts_->session->hasDevice());
    return lacksDevice ? OutputState::NoDevice : OutputState::Running;
}

int BuiltinEngine::sampleRate() const
{
    return parts_->session ? parts_->session->sampleRate : ownSampleRate;
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
    if (!(level.volume >= 0) || !std::isfinite(level.volume) || !(std::abs(level.pan) <= 1))
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

AudioResult BuiltinEngine::render(Timeline &timeline, RenderHost &host)
{
    if (!parts_->session)
        return AudioResult::NotInitialized;
    if (parts_->output == EngineOutput::Silent)
        return AudioEngine::render(timeline, host);
    if (parts_->output != EngineOutput::WavFile)
        return AudioResult::InvalidArgument;
    return SpanRender(timeline, host,
                      [&session = *parts_->session](std::span<const float> stereo) {
                          session.mixer.skip(stereo.size() / 2);
                          return session.file.write(stereo) ? AudioResult::Ok : AudioResult::CannotWrite;
                      })
        .run();
}

std::span<const float> BuiltinEngine::lastBlock() const
{
    return parts_->session ? std::span<const float>(parts_->session->block) : std::span<const float>();
}

std::uint64_t BuiltinEngine::underruns() const
{
    return parts_->session ? parts_->session->paced.underruns() : 0;
}
