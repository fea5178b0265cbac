// Loops, tempo factors and start offsets, sample for sample.
#include "SampleFiles.h"
#include "VirtualPlayer.h"
#include "support/Rows.h"

#include <QtTest>

#include <algorithm>
#include <set>

namespace {

const auto a = QStringLiteral("a");
const auto b = QStringLiteral("b");
const auto group = QStringLiteral("Main");

constexpr DspClock leadIn = 4800;          // 100 ms
constexpr Ticks quarter = ticksPerQuarter; // 24000 samples at the default tempo
constexpr auto withTheGroup = PlayRequest::Begin::WithTheGroup;

Track clicks(int count, Ticks distance = quarter)
{
    QVector<TrackEvent> events;
    for (int i = 0; i < count; ++i)
        events.append(TrackEvent::note(60, i * distance, distance / 2));
    return trackOf(events);
}

// Notes of all lengths, some of them longer than a loop, at a tempo that has no whole samples.
Track melody(int seed, int notes = 60)
{
    QVector<TrackEvent> events{tempoEvent(3 * quarter, 1'000'003)};
    for (int i = 0; i < notes; ++i)
        events.append(TrackEvent::note(quint32(50 + (7 * i + seed) % 20), i * quarter / 5 + 11 * seed,
                                       (i * i * 997 + seed) % (6 * quarter) + 50, 0.1F));
    return trackOf(events, 1'207'931);
}

} // namespace

class TestPlayerLoop : public QObject
{
    Q_OBJECT

    const SampleFiles files_;
    const Instrument click_ = instrumentOf(files_.click());
    const Instrument tone_ = tone();

    Instrument tone() const
    {
        QVector<qint16> samples;
        for (int i = 0; i < 100'000; ++i)
            samples.append(qint16((i * 7919) % 20011 - 10000));
        auto instrument = instrumentOf(files_.write(QStringLiteral("tone.wav"), waveBytes(samples)), 0.3);
        for (auto note = instrument.tuning.notes.begin(); note != instrument.tuning.notes.end(); ++note)
            note->rate = note.key() % 3 == 0 ? 1 : 0.9 + 0.01 * note.key() / 7;
        return instrument;
    }

    static std::vector<float> part(const VirtualPlayer &player, DspClock begin, DspClock frames)
    {
        return {player.left.begin() + std::ptrdiff_t(begin), player.left.begin() + std::ptrdiff_t(begin + frames)};
    }
    static DspClock periodOf(const Track &track, const LoopRegion &loop, double factor)
    {
        const TempoMap tempo(track, 48000, factor);
        return tempo.samplesAt(loop.end) - tempo.samplesAt(loop.begin);
    }

private slots:
    void everyPassIsTheFirst_data()
    {
        const Rows<qint64, qint64, double> row("begin", "end", "factor");
        row("two measures", 0, 8 * quarter, 1.0);
        row("across a tempo", 2 * quarter + 77, 5 * quarter + 1, 1.0);
        row("slow", quarter, 3 * quarter, 0.7);
        row("fast", quarter, 9 * quarter, 2.0);
        row("shorter than what is placed ahead", quarter, quarter + quarter / 6, 1.0);
        row("nothing in it", 100 * quarter, 101 * quarter, 1.0);
    }

    void everyPassIsTheFirst()
    {
        QFETCH(qint64, begin);
        QFETCH(qint64, end);
        QFETCH(double, factor);
        const LoopRegion loop{begin, end};
        const auto longest = melody(1);
        VirtualPlayer player;
        player.worker.setLoop(loop);
        player.worker.setTempoFactor(factor);
        player.worker.playTracks(
            {{.trackId = a, .track = longest, .instrument = tone_, .syncGroup = group, .from = begin},
             {.trackId = b, .track = melody(2, 30), .instrument = tone_, .syncGroup = group, .from = begin}});
        const auto period = periodOf(longest, loop, factor);
        constexpr int passes = 8;
        player.play(leadIn + passes * period);
        const auto first = part(player, leadIn, period);
        for (int pass = 1; pass < passes; ++pass)
            QVERIFY2(part(player, leadIn + DspClock(pass) * period, period) == first,
                     qPrintable(QString::number(pass)));
        QCOMPARE(player.toldOf("stopped"), QStringList());
        QVERIFY(player.position >= quint64(begin) && player.position < quint64(end));
        QCOMPARE(begin < 12 * quarter, std::ranges::any_of(
                                           first, [](float sample) { return sample != 0; }));
    }

    // Before the change is heard, a pass is as it was; and from the next pass on, as if it had always been so.
    void editsWhileItLoops()
    {
        const LoopRegion loop{0, 8 * quarter};
        const auto before = melody(1), other = melody(2);
        auto events = before.events();
        events.append(TrackEvent::note(62, 6 * quarter, quarter, 0.1F));
        const auto after = trackOf(events, 1'207'931);
        const auto play = [&](VirtualPlayer &player, const Track &track) {
            player.worker.setLoop(loop);
            player.worker.playTracks({{.trackId = a, .track = track, .instrument = tone_, .syncGroup = group},
                                      {.trackId = b, .track = other, .instrument = tone_, .syncGroup = group}});
        };
        VirtualPlayer edited, fresh;
        play(edited, before);
        play(fresh, after);
        const auto period = periodOf(before, loop, 1);
        edited.play(leadIn + 2 * period + period / 3);
        edited.worker.playTrack(
            {.trackId = a, .track = after, .instrument = tone_, .syncGroup = group, .begin = withTheGroup});
        edited.play(3 * period);
        fresh.play(leadIn + period);
        const auto old = part(edited, leadIn, period), now = part(fresh, leadIn, period);
        QVERIFY(old != now);
        QVERIFY(part(edited, leadIn + period, period) == old);
        QVERIFY(part(edited, leadIn + 2 * period, period) == now); // they differ behind the edit only
        QVERIFY(part(edited, leadIn + 3 * period, period) == now);
        QVERIFY(part(edited, leadIn + 4 * period, period) == now);
    }

    // Between the edit and the first sample that would have been another.
    void editsAreHeardWithin10Milliseconds()
    {
        constexpr Ticks often = quarter / 50, silence = 100 * quarter;
        VirtualPlayer player;
        player.worker.setLoop(LoopRegion{quarter, 5 * quarter});
        const auto playClicks = [&](Ticks distance, PlayRequest::Begin begin) {
            player.worker.playTrack({.trackId = a,
                                     .track = clicks(300, distance),
                                     .instrument = click_,
                                     .syncGroup = group,
                                     .begin = begin});
        };
        playClicks(silence, PlayRequest::Begin::AtTheStart);
        for (int edit = 0; edit < 10; ++edit) {
            player.play(30'000 + 997 * DspClock(edit));
            auto edited = player.left.size();
            playClicks(often, withTheGroup);
            player.play(480);
            QVERIFY(std::ranges::count(part(player, edited, 480), 0.0F) < 480);
            player.play(4800);
            edited = player.left.size();
            playClicks(silence, withTheGroup);
            player.play(9600);
            QCOMPARE(std::ranges::count(part(player, edited + 480, 9120), 0.0F), 9120);
        }
    }

    void loopsAreSetAndLeftWhileItPlays()
    {
        VirtualPlayer player;
        player.worker.playTrack({a, clicks(12), click_});
        player.play(leadIn + 24000 + 100); // the second click has sounded
        player.worker.setLoop(LoopRegion{0, 2 * quarter});
        player.play(6 * 24000);
        player.worker.setLoop(std::nullopt); // at 1 and a bit
        player.play(2 * 24000);
        QCOMPARE(player.toldOf("pressed").mid(0, 10), list("pressed a 0, pressed a 1, pressed a 0, pressed a 1, "
                                                           "pressed a 0, pressed a 1, pressed a 0, pressed a 1, "
                                                           "pressed a 2, pressed a 3"));
        std::vector<DspClock> expected;
        for (DspClock i = 0; i < 10; ++i)
            expected.push_back(leadIn + 24000 * i);
        auto onsets = player.onsets();
        onsets.resize(10);
        QCOMPARE(onsets, expected);

        // One that lies behind waits until it is sought.
        player.worker.setLoop(LoopRegion{0, quarter});
        player.told.clear();
        player.play(2 * 24000);
        player.worker.seekAll(0);
        player.play(2 * 24000 + 512);
        QCOMPARE(player.toldOf("pressed"), list("pressed a 4, pressed a 5, pressed a 0, pressed a 0, pressed a 0"));
    }

    void tempoFactors_data()
    {
        const Rows<double> row("factor");
        for (const double factor : {0.25, 0.5, 1.0, 1.25, 2.0})
            row(qUtf8Printable(QString::number(factor)), factor);
    }

    // The samples a tick are 2.5 and then 1.25, so that the scaled ones are exact, too.
    void tempoFactors()
    {
        QFETCH(double, factor);
        const auto first = [factor](Ticks tick) { return DspClock(2.5 * double(tick) / factor); };
        QVector<TrackEvent> events{tempoEvent(10'000, 2'304'000)};
        std::vector<DspClock> expected;
        for (Ticks tick = 0; tick < 30'000; tick += 1000) {
            events.append(TrackEvent::note(60, tick, 500));
            const auto then = tick < 10'000 ? first(tick) : first(10'000) + first(tick - 10'000) / 2;
            expected.push_back(leadIn + then);
        }
        VirtualPlayer player;
        player.worker.setTempoFactor(factor);
        player.worker.playTrack({a, trackOf(events, 1'152'000), click_});
        player.play(expected.back() + 10'000);
        QCOMPARE(player.onsets(), expected);
    }

    // From where it is, it goes on in the new tempo; what sounds, sounds on.
    void tempoChangesWhileItPlays()
    {
        VirtualPlayer player;
        player.worker.playTrack({a, clicks(20), click_});
        player.worker.playTrack(
            {b, trackOf({TrackEvent::note(60, 0, 8 * quarter)}), instrumentOf(files_.level(3000, 300'000))});
        player.play(leadIn + 2 * 24000);
        const auto now = player.engine->clock();
        player.worker.setTempoFactor(2);
        player.play(4 * 12000);
        std::vector<DspClock> expected{leadIn, leadIn + 24000, leadIn + 48000};
        for (DspClock next = leadIn + 48000; next < player.left.size();) {
            next = expected.size() == 3 ? now + (leadIn + 3 * 24000 - now) / 2 : next + 12000;
            expected.push_back(next);
        }
        const auto level = player.left[leadIn + 1];
        std::vector<DspClock> found;
        for (DspClock clock = leadIn; clock < player.left.size(); ++clock) {
            if (player.left[clock] != level)
                found.push_back(clock);
        }
        expected.resize(found.size());
        QVERIFY(found.size() > 5);
        for (std::size_t i = 0; i < found.size(); ++i)
            QVERIFY(std::abs(qint64(found[i] - expected[i])) <= (i < 3 ? 0 : 2)); // a tick
    }

    void startOffsets_data()
    {
        const Rows<double, qint64, qint64> row("offset", "first", "second"); // ms, of a and b
        row("late", 250.0, 4800, 4800 + 12000);
        row("early", -250.0, 4800 + 12000, 4800);
        row("together", 0.0, 4800, 4800);
    }

    void startOffsets()
    {
        QFETCH(double, offset);
        QFETCH(qint64, first);
        QFETCH(qint64, second);
        for (const bool loops : {false, true}) {
            VirtualPlayer player;
            if (loops)
                player.worker.setLoop(LoopRegion{0, 2 * quarter});
            player.worker.playTracks(
                {{.trackId = a, .track = clicks(3), .instrument = click_, .syncGroup = group},
                 {.trackId = b, .track = clicks(3), .instrument = click_, .syncGroup = group, .offset = offset}});
            player.play(leadIn + 12000 + 3 * 24000 - 512);
            std::set<DspClock> expected;
            for (DspClock clock = 0; clock < 3 * 24000; clock += 24000) {
                expected.insert(DspClock(first) + clock);
                expected.insert(DspClock(second) + clock);
            }
            auto onsets = player.onsets();
            onsets.resize(std::min(onsets.size(), expected.size()));
            QCOMPARE(onsets, std::vector<DspClock>(expected.begin(), expected.end()));
            QCOMPARE(player.position >= quint64(2 * quarter), !loops);
        }
    }
};

QTEST_GUILESS_MAIN(TestPlayerLoop)
#include "test_player_loop.moc"
