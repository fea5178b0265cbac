#include "audio/fmod/FmodEngine.h"

#include "audio/fmod/FmodSystem.h"
#include "audio/fmod/FmodVoices.h"

#include <optional>

// What exists between prepare() and release(). Voices are in groups, and both are the system's.
struct FmodEngine::Session
{
    Session(const FmodLibrary &itsLibrary, FmodFailures &itsFailures)
        : library(itsLibrary), failures(itsFailures), system(itsLibrary, itsFailures)
    {
    }

    AudioResult open(FmodOutput output, const std::filesystem::path &wavFile);
    void start();
    DspClock readClock();
    AudioResult update();
    AudioResult close();

    const FmodLibrary &library;
    FmodFailures &failures;
    FmodSystem system;
    std::optional<FmodGroups> groups;
    std::optional<FmodVoices> voices;
    std::optional<fmodlib::Clock> base; // the library's clock at initialize()
    std::atomic<DspClock> clock{0};
    DspClock metered = 0; // up to where the meters were read
    bool isStarted = false;
    AudioResult latestUpdate = AudioResult::Ok;
};

AudioResult FmodEngine::Session::open(FmodOutput output, const std::filesystem::path &wavFile)
{
    const auto result = system.open(output, wavFile);
    if (result != AudioResult::Ok && result != AudioResult::NoDevice)
        return result;
    groups.emplace(library.api(), system.handle(), system.master(), failures);
    voices.emplace(library, system.handle(), *groups, failures, system.sampleRate());
    return result;
}

void FmodEngine::Session::start()
{
    isStarted = true;
    readClock();
}

// The library's clock runs from its own beginning on.
DspClock FmodEngine::Session::readClock()
{
    fmodlib::Clock now = 0;
    if (!failures.note(groups->masterClock(now)))
        return clock;
    if (!base) {
        base = now;
        voices->setBase(now);
    }
    clock = now - *base;
    return clock;
}

AudioResult FmodEngine::Session::update()
{
    failures.note(library.api().systemUpdate(&system.handle()));
    const auto now = readClock();
    if (std::exchange(metered, now) != now)
        groups->readMeters();
    voices->reap(now);
    groups->releaseEmpty();
    return failures.tellNoted();
}

AudioResult FmodEngine::Session::close()
{
    if (voices) {
        voices->stopAll();
        groups->releaseAll();
    }
    const auto result = system.close();
    const auto noted = failures.tellNoted();
    return result != AudioResult::Ok ? result : noted;
}

struct FmodEngine::Parts
{
    std::shared_ptr<const FmodLibrary> library;
    FmodOutput output;
    std::filesystem::path wavFile;
    FmodFailures failures;
    std::unique_ptr<Session> session;
    AudioResult prepared = AudioResult::Ok; // what prepare() gave

    bool isStarted() const { return session && session->isStarted; }
    bool isFileWhole(DspClock frames) const;
};

// The library does not say when the disk is full.
bool FmodEngine::Parts::isFileWhole(DspClock frames) const
{
    constexpr DspClock bytesPerFrame = 4;
    std::error_code error;
    const auto size = std::filesystem::file_size(wavFile, error);
    return !error && size >= frames * bytesPerFrame;
}

FmodEngine::FmodEngine(std::shared_ptr<const FmodLibrary> library, FmodOutput output, std::filesystem::path wavFile)
    : parts_(std::make_unique<Parts>())
{
    parts_->library = std::move(library);
    parts_->output = output;
    parts_->wavFile = std::move(wavFile);
}

FmodEngine::~FmodEngine()
{
    release();
}

const char *FmodEngine::name() const
{
    return "FMOD";
}

const char *FmodEngine::errorText(AudioResult result) const
{
    return result == AudioResult::LibraryError ? parts_->failures.latestText() : AudioEngine::errorText(result);
}

AudioResult FmodEngine::prepare()
{
    release();
    parts_->session = std::make_unique<Session>(*parts_->library, parts_->failures);
    parts_->prepared = parts_->session->open(parts_->output, parts_->wavFile);
    if (!parts_->session->voices)
        parts_->session.reset();
    return parts_->prepared;
}

AudioResult FmodEngine::initialize()
{
    if (!parts_->session || parts_->isStarted())
        prepare();
    if (parts_->session)
        parts_->session->start();
    return parts_->prepared;
}

AudioResult FmodEngine::release()
{
    if (!parts_->session)
        return AudioResult::NotInitialized;
    const auto frames = clock();
    const auto result = parts_->session->close();
    parts_->session.reset();
    if (result == AudioResult::Ok && parts_->output == FmodOutput::WavFile && !parts_->isFileWhole(frames))
        return AudioResult::CannotWrite;
    return result;
}

AudioResult FmodEngine::update()
{
    if (!parts_->isStarted())
        return AudioResult::NotInitialized;
    const auto result = parts_->session->update();
    // What fails all the time is told once, unless a render waits for it.
    const bool isRepeated = std::exchange(parts_->session->latestUpdate, result) == result;
    return isRepeated && parts_->output == FmodOutput::Device ? AudioResult::Ok : result;
}

OutputState FmodEngine::outputState() const
{
    return parts_->session && parts_->session->system.hasDevice() ? OutputState::Running : OutputState::NoDevice;
}

void FmodEngine::wake()
{
    if (parts_->isStarted())
        parts_->session->readClock();
}

int FmodEngine::sampleRate() const
{
    return parts_->session ? parts_->session->system.sampleRate() : FmodSystem::usualSampleRate;
}

std::size_t FmodEngine::blockFrames() const
{
    return parts_->session ? parts_->session->system.blockFrames() : FmodSystem::usualBlockFrames;
}

DspClock FmodEngine::clock() const
{
    return parts_->session ? parts_->session->clock.load() : 0;
}

std::size_t FmodEngine::playingVoices() const
{
    return parts_->session ? parts_->session->voices->count() : 0;
}

AudioResult FmodEngine::createGroup(GroupId &group)
{
    if (!parts_->isStarted())
        return AudioResult::NotInitialized;
    auto &groups = *parts_->session->groups;
    if (groups.isFull())
        return AudioResult::TooManyGroups;
    group = groups.create();
    return AudioResult::Ok;
}

AudioResult FmodEngine::checkGroup(GroupId group) const
{
    if (!parts_->isStarted())
        return AudioResult::NotInitialized;
    return parts_->session->groups->isOpen(group) ? AudioResult::Ok : AudioResult::UnknownGroup;
}

AudioResult FmodEngine::setGroupLevel(GroupId group, GroupLevel level)
{
    if (!isInRange(level))
        return AudioResult::InvalidArgument;
    const auto result = checkGroup(group);
    return result == AudioResult::Ok ? parts_->failures.told(parts_->session->groups->setLevel(group, level)) : result;
}

AudioResult FmodEngine::stopGroup(GroupId group)
{
    if (const auto result = checkGroup(group); result != AudioResult::Ok)
        return result;
    auto &session = *parts_->session;
    return parts_->failures.told(session.voices->stopGroup(group, session.readClock()));
}

AudioResult FmodEngine::releaseGroup(GroupId group)
{
    if (group == masterGroup)
        return AudioResult::InvalidArgument;
    const auto result = checkGroup(group);
    if (result == AudioResult::Ok)
        parts_->session->groups->close(group);
    return result;
}

MeterReading FmodEngine::groupMeter(GroupId group)
{
    return parts_->isStarted() ? parts_->session->groups->meter(group) : MeterReading{};
}

AudioResult FmodEngine::play(const VoiceSpec &spec, VoiceId &voice)
{
    if (const auto result = checkGroup(spec.group); result != AudioResult::Ok)
        return result;
    if (!isInRange(spec))
        return AudioResult::InvalidArgument;
    auto &session = *parts_->session;
    if (session.voices->count() >= maxVoices)
        return AudioResult::TooManyVoices;
    return parts_->failures.told(session.voices->play(spec, session.readClock(), voice));
}

AudioResult FmodEngine::fadeOut(VoiceId voice, std::size_t frames)
{
    if (!parts_->isStarted())
        return AudioResult::NotInitialized;
    auto &session = *parts_->session;
    return parts_->failures.told(session.voices->fadeOut(voice, session.readClock(), frames));
}

bool FmodEngine::isPlaying(VoiceId voice) const
{
    return parts_->session && parts_->session->voices->isPlaying(voice);
}
