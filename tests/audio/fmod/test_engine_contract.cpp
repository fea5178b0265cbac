// What AudioEngine promises, held by every engine: the built-in one and FMOD's, for which libraries of ours stand in.
#include "StandIn.h"
#include "audio/WaveFile.h"
#include "audio/engine/BuiltinEngine.h"
#include "audio/fmod/FmodEngine.h"
#include "audio/sound/Signals.h"
#include "support/Rows.h"

#include <QTemporaryDir>
#include <QtTest>

#include <cmath>
#include <set>
#include <thread>

namespace {

enum Kind { Silent, File, Device, Fmod1, Fmod2, Fmod3, FmodDevice };

constexpr std::pair<const char *, Kind> kinds[] = {
    {"built-in, silent", Silent}, {"built-in, file", File},   {"built-in, device", Device},     {"FMOD 1, file", Fmod1},
    {"FMOD 2.02, file", Fmod2},   {"FMOD 2.03, file", Fmod3}, {"FMOD 2.02, device", FmodDevice}};

// An engine, and what it plays from a moment on that can still be reached; all clocks below count from there.
class Take
{
public:
    explicit Take(Kind kind) : kind_(kind), engine_(make())
    {
        if (engine_->initialize() != AudioResult::Ok)
            qFatal("the engine does not start");
        if (isRealTime())
            begin_ = engine_->clock() + 6144;
    }

    AudioEngine *operator->() const { return engine_.get(); }
    AudioEngine &engine() const { return *engine_; }
    bool isRealTime() const { return kind_ == Device || kind_ == FmodDevice; }

    GroupId group(GroupLevel level = {}) const
    {
        GroupId group{};
        if (engine_->createGroup(group) != AudioResult::Ok || engine_->setGroupLevel(group, level) != AudioResult::Ok)
            qFatal("no group");
        return group;
    }
    VoiceId play(VoiceSpec spec) const
    {
        VoiceId voice{};
        for (auto *const clock : {&spec.start, &spec.end, &spec.fadeEnd})
            *clock += *clock != never ? begin_ : 0;
        if (engine_->play(spec, voice) != AudioResult::Ok)
            qFatal("the voice was refused");
        return voice;
    }

    void update()
    {
        const auto result = engine_->update();
        if (result != AudioResult::Ok)
            qFatal("update: %s", engine_->errorText(result));
        if (isRealTime())
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        if (const auto *const builtin = dynamic_cast<BuiltinEngine *>(engine_.get())) {
            for (std::size_t i = 0; i < builtin->lastBlock().size(); i += 2) {
                left_.push_back(builtin->lastBlock()[i]);
                right_.push_back(builtin->lastBlock()[i + 1]);
            }
        }
    }
    void until(DspClock clock)
    {
        while (engine_->clock() < begin_ + clock)
            update();
        if (isRealTime())
            update(); // its clock has moved since the last one
    }
    // Where the next block begins.
    DspClock now() const { return engine_->clock() - begin_; }

    // Ends it, for what follows.
    void end()
    {
        if (engine_->release() != AudioResult::Ok)
            qFatal("no end");
        const WaveFile file(path());
        if (!file.isValid)
            return;
        const auto toFloat = [](qint16 sample) { return float(sample) / 32768; };
        left_.assign(file.left.size(), 0);
        right_ = left_;
        std::transform(file.left.begin(), file.left.end(), left_.begin(), toFloat);
        std::transform(file.right.begin(), file.right.end(), right_.begin(), toFloat);
    }
    // At which of these clocks the levels of the left or the right side are other ones.
    struct Level
    {
        DspClock clock;
        double left;
        double right = left;
    };
    QString wrong(const std::vector<Level> &levels, double tolerance = 1e-4) const
    {
        QString text;
        for (const auto &level : levels) {
            if (isRealTime()) // nobody hears it
                continue;
            const double left = double(left_.at(level.clock)), right = double(right_.at(level.clock));
            if (!(std::abs(left - level.left) < tolerance && std::abs(right - level.right) < tolerance))
                text += QStringLiteral("%1: %2 %3; ").arg(level.clock).arg(left).arg(right);
        }
        return text;
    }

private:
    QString path() const { return folder_.filePath(QStringLiteral("take.wav")); }
    std::unique_ptr<AudioEngine> make() const
    {
        switch (kind_) {
        case Silent:
            return std::make_unique<BuiltinEngine>(EngineOutput::Silent);
        case File:
            return std::make_unique<BuiltinEngine>(EngineOutput::WavFile, path().toStdString());
        case Device:
            return std::make_unique<BuiltinEngine>(HeardOutput::Device);
        case FmodDevice:
            return std::make_unique<FmodEngine>(StandIn(2).open(), FmodOutput::Device);
        default:
            return std::make_unique<FmodEngine>(StandIn(1 + kind_ - Fmod1).open(), FmodOutput::WavFile,
                                                path().toStdString());
        }
    }

    Kind kind_;
    QTemporaryDir folder_;
    std::unique_ptr<AudioEngine> engine_;
    DspClock begin_ = 0;
    std::vector<float> left_, right_;
};

Sound ramp(std::size_t frames)
{
    auto sound = std::make_shared<SoundData>(2, frames, 48000);
    for (std::size_t i = 0; i < frames; ++i)
        sound->plane(0)[i] = sound->plane(1)[i] = float(i) / float(frames);
    return sound;
}

void startsAndEnds(Take &take)
{
    const auto sound = constantSound(2, 9000, 0.5F);
    const std::pair<DspClock, DspClock> spans[] = {{0, 1},       {3, 10},      {512, 1024},
                                                   {2047, 2049}, {3000, 5119}, {6000, 6000}};
    for (const auto &[start, end] : spans)
        take.play({sound, masterGroup, start, end, end});
    const auto held = take.play({constantSound(2, 400, 0.5F), masterGroup, 7000});
    QCOMPARE(take->isPlaying(held), true);
    take.until(7600);
    QCOMPARE(take->isPlaying(held), false);
    QCOMPARE(take->playingVoices(), std::size_t(0));
    take.end();
    QCOMPARE(take.wrong({{0, .5},    {1, 0},    {2, 0},    {3, .5},    {9, .5},    {10, 0},    {511, 0},  {512, .5},
                         {1023, .5}, {1024, 0}, {2046, 0}, {2047, .5}, {2048, .5}, {2049, 0},  {2999, 0}, {3000, .5},
                         {5118, .5}, {5119, 0}, {6000, 0}, {6999, 0},  {7000, .5}, {7399, .5}, {7400, 0}}),
             QString());
}

void fadesLinearly(Take &take)
{
    take.play({constantSound(2, 9000, 1), masterGroup, 100, 1000, 3000, 0.5F});
    take.play({constantSound(2, 9000, 1), masterGroup, 4000, 4000, 5000, 0.5F});
    take.until(5200);
    take.end();
    QCOMPARE(take.wrong({{99, 0},
                         {100, .5},
                         {999, .5},
                         {1000, .5},
                         {1500, .375},
                         {2000, .25},
                         {2900, .025},
                         {3000, 0},
                         {4000, .5},
                         {4500, .25},
                         {5000, 0}},
                        1e-3),
             QString());
}

void playsAtRatios(Take &take)
{
    take.play({ramp(1000), masterGroup, 0, never, never, 1, 2});
    take.play({ramp(1000), masterGroup, 1000, never, never, 1, 0.5});
    take.play({ramp(1000), masterGroup, 4000, never, never, 1, 1});
    take.until(5100);
    QCOMPARE(take->playingVoices(), std::size_t(0));
    take.end();
    QCOMPARE(
        take.wrong({{100, .2}, {300, .6}, {480, .96}, {700, 0}, {1100, .05}, {2600, .8}, {3200, 0}, {4400, .4}}, 2e-3),
        QString());
}

void levelsGroups(Take &take)
{
    const auto sound = constantSound(2, 500, 1);
    DspClock start = 0;
    for (const GroupLevel level : {GroupLevel{0.5F, -1}, {0.5F, 0}, {0.5F, 1}, {0, 0}})
        take.play({sound, take.group(level), 1000 * start++});
    take.play({constantSound(1, 500, 1), take.group(), 4000, never, never, 0.5F});
    QCOMPARE(take->setGroupLevel(masterGroup, {0.5F, 0}), AudioResult::Ok);
    take.until(4600);
    take.end();
    const auto mono = 0.25 * std::sqrt(0.5);
    QCOMPARE(take.wrong({{10, .25, 0}, {1010, .25}, {2010, 0, .25}, {3010, 0}, {4010, mono}}), QString());
}

void startsLate(Take &take)
{
    take.until(2048);
    const auto now = take.now();
    take.play({ramp(8000), masterGroup, 0, never, never, 0.5F});
    take.until(now + 4096);
    VoiceSpec inside{ramp(16000), masterGroup, now, never, never, 0.5F};
    inside.lateStart = LateStart::Inside;
    take.until(now + 9000);
    take.play(inside);
    const auto entered = take.now();
    const auto over = take.play({ramp(100), masterGroup, 0, 50, 60, 1, 1, LateStart::Inside});
    take.until(entered + 2048);
    QVERIFY(!take->isPlaying(over));
    take.end();
    const auto at = [now](DspClock clock) { return 0.5 * double(clock - now) / 16000; };
    QCOMPARE(take.wrong({{now, 0},
                         {now + 800, .05},
                         {now + 7200, .45},
                         {now + 8001, 0},
                         {entered + 300, at(entered + 300)},
                         {entered + 2000, at(entered + 2000)}},
                        1e-3),
             QString());
}

void fadesOut(Take &take)
{
    const auto sound = constantSound(2, 60'000, 1);
    const auto voice = take.play({sound, masterGroup, 0, never, never, 0.5F});
    const auto fading = take.play({sound, masterGroup, 0, 200, 300});
    const auto waiting = take.play({sound, masterGroup, 30'000});
    take.until(2048);
    const auto now = take.now();
    for (const auto each : {voice, fading, waiting})
        QCOMPARE(take->fadeOut(each, 1000), AudioResult::Ok);
    take.until(now + 3072);
    for (const auto each : {voice, fading, waiting, VoiceId(1'000'000)}) {
        QVERIFY(!take->isPlaying(each));
        QCOMPARE(take->fadeOut(each, 100), AudioResult::Ok);
    }
    take.until(now + 3100);
    take.end();
    QCOMPARE(take.wrong({{now - 1, .5}, {now, .5}, {now + 500, .25}, {now + 1000, 0}, {now + 2000, 0}}, 1e-3),
             QString());
}

void stopsGroups(Take &take)
{
    const auto track = take.group(), other = take.group();
    const auto sound = constantSound(2, 90'000, 0.25F);
    take.play({sound, track});
    take.play({sound, track, 20'000});
    const auto stays = take.play({sound, other});
    take.until(1024);
    const auto now = take.now();
    QCOMPARE(take->stopGroup(track), AudioResult::Ok);
    take.until(now + 4096);
    QCOMPARE(take->playingVoices(), std::size_t(1));
    QVERIFY(take->isPlaying(stays));
    take.end();
    QCOMPARE(take.wrong({{now - 1, .5}, {now, .5}, {now + 120, .375}, {now + 300, .25}, {now + 4000, .25}}, 2e-3),
             QString());
}

// Voices that a released group left are heard as before, in its level.
void releasesGroups(Take &take)
{
    const auto track = take.group({0.5F, -1});
    take.play({constantSound(2, 5000, 1), track});
    take.until(1024);
    QCOMPARE(take->releaseGroup(track), AudioResult::Ok);
    QCOMPARE(take->releaseGroup(track), AudioResult::UnknownGroup);
    QCOMPARE(take->groupMeter(track).leftPeak, 0.0F);
    take.until(6000);
    QCOMPARE(take->playingVoices(), std::size_t(0));
    take.end();
    QCOMPARE(take.wrong({{1000, .5, 0}, {2100, .5, 0}, {4999, .5, 0}, {5000, 0}}), QString());
}

void refusesVoicesBeyondTheLimit(Take &take)
{
    const auto sound = constantSound(2, 10, 1.0F / 4096);
    VoiceId voice{};
    std::set<VoiceId> ids;
    for (std::size_t i = 0; i < maxVoices; ++i)
        ids.insert(take.play({sound, masterGroup, 50'000, 50'005, 50'005}));
    QCOMPARE(ids.size(), maxVoices);
    QCOMPARE(take->play({sound}, voice), AudioResult::TooManyVoices);
    QCOMPARE(take->playingVoices(), maxVoices);
    QCOMPARE(take->stopGroup(masterGroup), AudioResult::Ok);
    for (int i = 0; i < 1000 && take->playingVoices() > 0; ++i)
        take.update();
    QCOMPARE(take->playingVoices(), std::size_t(0));
    if (!take.isRealTime()) {
        const auto at = take.now() + 5;
        for (std::size_t i = 0; i < maxVoices; ++i)
            QVERIFY(ids.insert(take.play({sound, masterGroup, at, at + 5, at + 5})).second);
        take.until(at + 10);
        take.end();
        QCOMPARE(take.wrong({{at - 1, 0}, {at, .5}, {at + 4, .5}, {at + 5, 0}}), QString());
    }
}

void refusesGroupsBeyondTheLimit(Take &take)
{
    GroupId group{};
    for (std::size_t i = 1; i < maxGroups; ++i)
        group = take.group();
    GroupId another{};
    QCOMPARE(take->createGroup(another), AudioResult::TooManyGroups);
    QCOMPARE(another, GroupId{});
    QCOMPARE(take->releaseGroup(group), AudioResult::Ok);
    take.update();
    QCOMPARE(take->createGroup(another), AudioResult::Ok);
}

void refusesWhatMeansNothing(Take &take)
{
    const auto sound = constantSound(1, 10, 1);
    const float nan = float(std::nan(""));
    const VoiceSpec specs[] = {{nullptr},
                               {sound, masterGroup, 0, 100, 99},
                               {sound, masterGroup, 0, 100, 200, nan},
                               {sound, masterGroup, 0, 100, 200, 1, 0},
                               {sound, masterGroup, 0, 100, 200, 1, HUGE_VAL},
                               {sound, masterGroup, 0, 100, 200, 1, std::nan("")},
                               {sound, masterGroup, never}};
    VoiceId voice{77};
    for (const auto &spec : specs)
        QCOMPARE(take->play(spec, voice), AudioResult::InvalidArgument);
    QCOMPARE(take->play({sound, GroupId{900}}, voice), AudioResult::UnknownGroup);
    QCOMPARE(voice, VoiceId{77});
    for (const GroupLevel level : {GroupLevel{-1, 0}, {nan, 0}, {1, 1.5F}, {1, nan}})
        QCOMPARE(take->setGroupLevel(masterGroup, level), AudioResult::InvalidArgument);
    QCOMPARE(take->releaseGroup(masterGroup), AudioResult::InvalidArgument);
    for (const auto result :
         {take->setGroupLevel(GroupId{900}, {}), take->stopGroup(GroupId{900}), take->releaseGroup(GroupId{900})})
        QCOMPARE(result, AudioResult::UnknownGroup);
}

void doesNothingWhenReleased(Take &take)
{
    const auto sound = constantSound(1, 10'000, 1);
    const auto lost = take.play({sound});
    QCOMPARE(take->release(), AudioResult::Ok);
    VoiceId voice{};
    GroupId group{};
    for (const auto result : {take->release(), take->update(), take->createGroup(group), take->play({sound}, voice),
                              take->fadeOut(lost, 10), take->stopGroup(masterGroup)})
        QCOMPARE(result, AudioResult::NotInitialized);
    QVERIFY(!take->isPlaying(lost));
    QCOMPARE(take->playingVoices(), std::size_t(0));
    QCOMPARE(sound.use_count(), 1L);
    // And once more from the beginning.
    QCOMPARE(take->initialize(), AudioResult::Ok);
    QVERIFY(take->clock() < 10'000);
    take.play({sound});
    take.update();
}

void keepsTimeWithoutVoices(Take &take)
{
    const auto rate = take->sampleRate();
    const auto block = take->blockFrames();
    QVERIFY(rate >= 8000 && block > 0);
    const auto before = take->clock();
    take.update();
    if (!take.isRealTime())
        QCOMPARE(take->clock(), before + block);
    take.until(20'000);
    QVERIFY(take->clock() > before);
    QCOMPARE(take->outputState(), OutputState::Running);
    take.end();
    QCOMPARE(take.wrong({{0, 0}, {511, 0}, {19'999, 0}}), QString());
}

void letsSoundsGo(Take &take)
{
    auto sound = constantSound(2, 600, 1);
    const std::weak_ptr<const SoundData> watched = sound;
    take.play({sound});
    sound.reset();
    QVERIFY(!watched.expired());
    take.until(8000);
    QVERIFY(watched.expired());
}

void measures(Take &take)
{
    const auto track = take.group({0.5F, 0}), other = take.group();
    take.play({constantSound(2, 40'000, 0.5F), track});
    take.until(20'000);
    const auto meter = take->groupMeter(track);
    for (const auto value : {meter.leftPeak, meter.rightPeak, take->groupMeter(masterGroup).leftPeak})
        QVERIFY(std::abs(value - 0.25F) < 1e-4F);
    QVERIFY(meter.leftRms > 0.1F && meter.leftRms < 0.2501F);
    QCOMPARE(take->groupMeter(other).leftPeak, 0.0F);
    QCOMPARE(take->groupMeter(GroupId{900}).leftPeak, 0.0F);
}

void livesBesideAnother(Take &take)
{
    Take another(Fmod2), third(File);
    const auto voice = take.play({constantSound(2, 3000, 0.5F)});
    another.play({constantSound(2, 3000, 0.25F)});
    for (int i = 0; i < 3; ++i) {
        take.update();
        another.update();
        third.update();
    }
    another.end();
    third.end();
    QCOMPARE(another.wrong({{100, .25}}), QString());
    QCOMPARE(third.wrong({{100, 0}}), QString());
    take.until(4096);
    QVERIFY(!take->isPlaying(voice));
    take.end();
    QCOMPARE(take.wrong({{100, .5}, {2999, .5}, {3000, 0}}), QString());
}

constexpr std::pair<const char *, void (*)(Take &)> promises[] = {
    {"starts and ends", startsAndEnds},
    {"fades linearly", fadesLinearly},
    {"plays at ratios", playsAtRatios},
    {"levels groups", levelsGroups},
    {"starts late", startsLate},
    {"fades out", fadesOut},
    {"stops groups", stopsGroups},
    {"releases groups", releasesGroups},
    {"2048 voices", refusesVoicesBeyondTheLimit},
    {"1024 groups", refusesGroupsBeyondTheLimit},
    {"refuses what means nothing", refusesWhatMeansNothing},
    {"does nothing when released", doesNothingWhenReleased},
    {"keeps time without voices", keepsTimeWithoutVoices},
    {"lets sounds go", letsSoundsGo},
    {"measures", measures},
    {"lives beside another", livesBesideAnother},
};

} // namespace

class TestEngineContract : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { qputenv("SDL_AUDIODRIVER", "dummy"); }

    void holds_data()
    {
        const Rows<int, int> row("kind", "promise");
        for (const auto &[engine, kind] : kinds) {
            for (int i = 0; i < int(std::size(promises)); ++i)
                row(qPrintable(QStringLiteral("%1: %2").arg(QLatin1String(engine), QLatin1String(promises[i].first))),
                    int(kind), i);
        }
    }

    void holds()
    {
        QFETCH(int, kind);
        QFETCH(int, promise);
        Take take{Kind(kind)};
        promises[promise].second(take);
    }

    // Systems come and go on two threads while each plays, at random, on a third one of its own.
    void holdsOnSeveralThreads()
    {
        const auto play = [](unsigned seed) {
            std::minstd_rand random(seed);
            for (int round = 0; round < 3; ++round) {
                Take take(seed % 2 == 0 ? FmodDevice : Device);
                const GroupId groups[] = {masterGroup, take.group(), take.group({0.5F, 1})};
                const auto sound = noiseSound(2, 9000, seed);
                std::vector<VoiceId> voices{VoiceId{}};
                for (int i = 0; i < 60; ++i) {
                    const auto group = groups[random() % 3];
                    voices.push_back(take.play({sound, group, i * 300U, i * 300U + 1000, i * 300U + 2000, 0.1F}));
                    take->setGroupLevel(group, {float(random() % 10) / 10, 0});
                    take->fadeOut(voices[random() % voices.size()], random() % 500);
                    take->groupMeter(group);
                    if (random() % 20 == 0)
                        take->stopGroup(group);
                    take.update();
                }
                take->releaseGroup(groups[1]);
                take.until(22'000);
                take.end();
            }
        };
        std::thread another(play, 1), third(play, 2);
        play(4);
        another.join();
        third.join();
    }
};

QTEST_GUILESS_MAIN(TestEngineContract)
#include "test_engine_contract.moc"
