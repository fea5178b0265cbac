// What the engine plays, with an output whose clock the test moves.
#include "ReferenceMix.h"
#include "audio/engine/BuiltinEngine.h"
#include "audio/sound/Signals.h"
#include "support/Rows.h"

#include <QtTest>

#include <cstring>

namespace {

// Everything that is mixed, left and right apart.
struct Recording
{
    explicit Recording(BuiltinEngine &engine) : engine_(engine) {}

    void update(int blocks = 1)
    {
        for (int i = 0; i < blocks; ++i) {
            QCOMPARE(engine_.update(), AudioResult::Ok);
            const auto block = engine_.lastBlock();
            stereo.insert(stereo.end(), block.begin(), block.end());
        }
    }
    float left(std::size_t clock) const { return stereo[2 * clock]; }
    float right(std::size_t clock) const { return stereo[2 * clock + 1]; }
    // The levels of the left side at these clocks.
    QString at(std::initializer_list<std::size_t> clocks) const
    {
        QStringList levels;
        for (const auto clock : clocks)
            levels += QString::number(double(left(clock)));
        return levels.join(u' ');
    }

    std::vector<float> stereo;

private:
    BuiltinEngine &engine_;
};

// A song of all kinds of voices: mono and stereo, at ratio 1 and others, held, fading and running out.
Mix randomMix(std::size_t groups, std::size_t voices, unsigned seed)
{
    std::minstd_rand random(seed);
    const auto below = [&random](unsigned n) { return random() % n; };
    Mix mix;
    for (std::size_t i = 0; i < groups; ++i)
        mix.groups.push_back({float(below(100)) / 100, float(below(201)) / 100 - 1});
    const Sound sounds[] = {noiseSound(1, 3000, 1), noiseSound(2, 2000, 2), noiseSound(1, 50, 3)};
    for (std::size_t i = 0; i < voices; ++i) {
        const DspClock start = below(8000), end = start + below(3000);
        mix.voices.push_back({sounds[below(3)], GroupId(below(unsigned(groups))), start, end, end + below(2000),
                              float(below(128)) / 127, below(2) ? 1.0 : 0.25 + below(1000) / 400.0});
    }
    return mix;
}

} // namespace

class TestBuiltinEngine : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        engine = std::make_unique<BuiltinEngine>(EngineOutput::Silent);
        QCOMPARE(engine->initialize(), AudioResult::Ok);
    }

    void clocksAreExact_data()
    {
        const Rows<quint64, quint64> row("start", "end");
        row("inside a block", 3, 10);
        row("whole block", 512, 1024);
        row("across blocks", 511, 1025);
        row("one sample", 777, 778);
        row("from the first", 0, 1);
        row("nothing", 600, 600);
    }

    void clocksAreExact()
    {
        QFETCH(quint64, start);
        QFETCH(quint64, end);
        const auto sound = noiseSound(2, 4000, 5);
        const auto voice = play({sound, masterGroup, start, end, end});
        QVERIFY(engine->isPlaying(voice));
        Recording recording(*engine);
        recording.update(4);
        for (std::size_t clock = 0; clock < 2048; ++clock) {
            const bool sounds = clock >= start && clock < end;
            QCOMPARE(recording.left(clock), sounds ? sound->plane(0)[clock - start] : 0.0F);
            QCOMPARE(recording.right(clock), sounds ? sound->plane(1)[clock - start] : 0.0F);
        }
        QVERIFY(!engine->isPlaying(voice));
        QCOMPARE(engine->playingVoices(), std::size_t(0));
        QCOMPARE(engine->clock(), DspClock(2048));
    }

    void levelGlides()
    {
        const auto track = group();
        play({constantSound(2, 5000, 1), track});
        Recording recording(*engine);
        recording.update();
        QCOMPARE(engine->setGroupLevel(track, {0, 0}), AudioResult::Ok);
        recording.update(2);
        for (std::size_t clock = 512; clock < 1023; ++clock)
            QVERIFY(recording.left(clock) > recording.left(clock + 1) &&
                    recording.left(clock) - recording.left(clock + 1) < 0.01F);
        QCOMPARE(recording.left(1024), 0.0F);
    }

    void meters()
    {
        const auto track = group({0.5F, 0}), other = group();
        auto sound = std::make_shared<SoundData>(2, 1024, 48000);
        std::fill_n(sound->plane(0), 1024, 0.5F);
        sound->plane(1)[3] = -0.75F;
        play({sound, track});
        Recording recording(*engine);
        recording.update();
        // One reading covers all blocks since the one before: the peak of the first is not lost in the second.
        recording.update();
        const auto read = [this](GroupId id) {
            const auto [leftRms, rightRms, leftPeak, rightPeak] = engine->groupMeter(id);
            return QStringLiteral("%1 %2 %3 %4")
                .arg(double(leftRms))
                .arg(double(rightRms))
                .arg(double(leftPeak))
                .arg(double(rightPeak));
        };
        QCOMPARE(read(track), QStringLiteral("0.25 0.0117188 0.25 0.375"));
        QCOMPARE(engine->groupMeter(masterGroup).rightPeak, 0.375F);
        QCOMPARE(read(other), QStringLiteral("0 0 0 0"));
        recording.update();
        QCOMPARE(engine->groupMeter(track).rightPeak, 0.0F);
        QCOMPARE(read(GroupId{500}), QStringLiteral("0 0 0 0"));
    }

    void lateStartPlaysFromTheBeginning()
    {
        Recording recording(*engine);
        recording.update();
        const auto sound = noiseSound(2, 100, 6);
        play({sound, masterGroup, 0});
        recording.update();
        QCOMPARE(recording.left(512), sound->plane(0)[0]);
        QCOMPARE(recording.left(611), sound->plane(0)[99]);
        QCOMPARE(recording.left(612), 0.0F);
    }

    void fadeOut()
    {
        const auto voice = play({constantSound(2, 5000, 1), masterGroup, 0, never, never, 0.5F});
        const auto waiting = play({constantSound(2, 5000, 1), masterGroup, 1000});
        Recording recording(*engine);
        recording.update();
        QCOMPARE(engine->fadeOut(voice, 100), AudioResult::Ok);
        QCOMPARE(engine->fadeOut(waiting, 100), AudioResult::Ok);
        recording.update(2);
        QCOMPARE(recording.at({511, 512, 562, 612, 1200}), QStringLiteral("0.5 0.5 0.25 0 0"));
        QVERIFY(!engine->isPlaying(voice) && !engine->isPlaying(waiting));
        QCOMPARE(engine->fadeOut(voice, 100), AudioResult::Ok);
        const auto slow = play({constantSound(2, 5000, 1), masterGroup, 1536, never, never, 0.5F});
        recording.update();
        QCOMPARE(engine->fadeOut(slow, 1024), AudioResult::Ok);
        recording.update();
        QCOMPARE(engine->fadeOut(slow, 100), AudioResult::Ok); // goes on from where it is
        recording.update();
        QCOMPARE(recording.at({2048, 2560, 2610, 2660}), QStringLiteral("0.5 0.25 0.125 0"));
    }

    void stopGroup()
    {
        const auto track = group(), other = group();
        const auto sound = constantSound(2, 5000, 0.25F);
        play({sound, track});
        play({sound, track, 700});
        play({sound, other, 900});
        Recording recording(*engine);
        recording.update();
        QCOMPARE(engine->stopGroup(track), AudioResult::Ok);
        recording.update(2);
        QCOMPARE(recording.at({512, 632, 752, 900}), QStringLiteral("0.25 0.125 0 0.25"));
        QCOMPARE(engine->playingVoices(), std::size_t(1));
    }

    void voiceLimit()
    {
        const auto sound = constantSound(2, 10, 1.0F / 4096);
        VoiceId voice{};
        for (std::size_t i = 0; i < maxVoices; ++i)
            QCOMPARE(engine->play({sound, masterGroup, 5}, voice), AudioResult::Ok);
        QCOMPARE(engine->play({sound, masterGroup, 5}, voice), AudioResult::TooManyVoices);
        QCOMPARE(engine->playingVoices(), maxVoices);
        Recording recording(*engine);
        recording.update();
        QCOMPARE(recording.left(5), 0.5F);
        QCOMPARE(engine->playingVoices(), std::size_t(0));
        QCOMPARE(engine->play({sound, masterGroup, 5}, voice), AudioResult::Ok);
    }

    void groupLimitAndReuse()
    {
        GroupId last{};
        for (std::size_t i = 1; i < maxGroups; ++i)
            last = group();
        GroupId created{};
        QCOMPARE(engine->createGroup(created), AudioResult::TooManyGroups);
        // A released group's number comes back when its voices have played to their ends.
        play({constantSound(2, 600, 0.5F), last});
        QCOMPARE(engine->releaseGroup(last), AudioResult::Ok);
        QCOMPARE(engine->createGroup(created), AudioResult::TooManyGroups);
        Recording recording(*engine);
        recording.update(2);
        QCOMPARE(recording.left(599), 0.5F);
        QCOMPARE(engine->createGroup(created), AudioResult::Ok);
        QCOMPARE(created, last);
        QCOMPARE(engine->groupMeter(created).leftPeak, 0.0F);
    }

    void soundsAreLetGo()
    {
        auto sound = constantSound(1, 600, 1);
        std::weak_ptr<const SoundData> watched = sound;
        play({sound});
        sound.reset();
        Recording recording(*engine);
        recording.update();
        QVERIFY(!watched.expired());
        recording.update();
        QVERIFY(watched.expired());

        sound = constantSound(1, 600, 1);
        watched = sound;
        play({std::move(sound)});
        QCOMPARE(engine->release(), AudioResult::Ok);
        QVERIFY(watched.expired());
        QCOMPARE(engine->update(), AudioResult::NotInitialized);
    }

    void agreesWithReference()
    {
        const auto mix = randomMix(5, 60, 7);
        std::vector<float> stereo(2 * 12000);
        QCOMPARE(mixOffline(mix, 0, stereo), AudioResult::Ok);
        const ReferenceMix reference(mix);
        double largest = 0;
        for (std::size_t clock = 0; clock < stereo.size() / 2; ++clock) {
            const auto [left, right] = reference.at(clock);
            largest = std::max(
                {largest, std::abs(left - double(stereo[2 * clock])), std::abs(right - double(stereo[2 * clock + 1]))});
        }
        QVERIFY2(largest < 1e-5, qPrintable(QString::number(20 * std::log10(largest))));
    }

    void spansAgreeBitForBit()
    {
        const auto mix = randomMix(9, 400, 8);
        std::vector<float> whole(2 * 24 * 512), pieces(whole.size());
        QCOMPARE(mixOffline(mix, 0, whole), AudioResult::Ok);
        std::minstd_rand random(9);
        for (std::size_t at = 0; at < pieces.size();) {
            const auto size = std::min<std::size_t>(2 * (1 + random() % 3000), pieces.size() - at);
            QCOMPARE(mixOffline(mix, at / 2, {pieces.data() + at, size}), AudioResult::Ok);
            at += size;
        }
        QVERIFY(std::memcmp(whole.data(), pieces.data(), whole.size() * sizeof(float)) == 0);

        // The same voices, played: every voice is given in the update before its block.
        QCOMPARE(engine->initialize(), AudioResult::Ok);
        for (std::size_t i = 1; i < mix.groups.size(); ++i)
            group(mix.groups[i]);
        QCOMPARE(engine->setGroupLevel(masterGroup, mix.groups[0]), AudioResult::Ok);
        for (const auto &spec : mix.voices)
            play(spec);
        Recording recording(*engine);
        recording.update(24);
        QVERIFY(std::memcmp(whole.data(), recording.stereo.data(), whole.size() * sizeof(float)) == 0);
    }

    void refusals_data()
    {
        const Rows<double, float, quint64, quint64, int, bool> row("ratio", "gain", "start", "fadeEnd", "group",
                                                                   "known");
        const auto nan = std::nan("");
        row("ratio 0", 0.0, 1.0F, 0, 200, 0, true);
        row("negative ratio", -1.0, 1.0F, 0, 200, 0, true);
        row("ratio not a number", nan, 1.0F, 0, 200, 0, true);
        row("endless ratio", HUGE_VAL, 1.0F, 0, 200, 0, true);
        row("gain not a number", 1.0, float(nan), 0, 200, 0, true);
        row("fade before its beginning", 1.0, 1.0F, 0, 99, 0, true);
        row("start out of all time", 1.0, 1.0F, quint64(never), quint64(never), 0, true);
        row("no such group", 1.0, 1.0F, 0, 200, 3, false);
        row("no such group number", 1.0, 1.0F, 0, 200, 1, false);
    }

    void refusals()
    {
        QFETCH(double, ratio);
        QFETCH(float, gain);
        QFETCH(quint64, start);
        QFETCH(quint64, fadeEnd);
        QFETCH(int, group);
        QFETCH(bool, known);
        const VoiceSpec spec{constantSound(1, 10, 1), GroupId(group), start, 100, fadeEnd, gain, ratio};
        VoiceId voice{};
        QCOMPARE(engine->play(spec, voice), known ? AudioResult::InvalidArgument : AudioResult::UnknownGroup);
        QCOMPARE(engine->playingVoices(), std::size_t(0));
        std::vector<float> stereo(64);
        if (start == 0)
            QCOMPARE(mixOffline({{{}}, {spec}}, 0, stereo), AudioResult::InvalidArgument);
    }

private:
    VoiceId play(const VoiceSpec &spec)
    {
        VoiceId voice{};
        if (engine->play(spec, voice) != AudioResult::Ok)
            qFatal("the voice was refused");
        return voice;
    }
    GroupId group(GroupLevel level = {})
    {
        GroupId created{};
        if (engine->createGroup(created) != AudioResult::Ok || engine->setGroupLevel(created, level) != AudioResult::Ok)
            qFatal("no group");
        return created;
    }

    std::unique_ptr<BuiltinEngine> engine;
};

QTEST_APPLESS_MAIN(TestBuiltinEngine)
#include "test_builtin_engine.moc"
