#include "LoggedLines.h"
#include "SampleFiles.h"
#include "VirtualPlayer.h"
#include "support/Rows.h"

#include <QtTest>

#include <numeric>
#include <set>

namespace {

const auto a = QStringLiteral("a");
const auto b = QStringLiteral("b");
const auto noGroup = QString();

constexpr DspClock leadIn = 4800;          // 100 ms
constexpr Ticks quarter = ticksPerQuarter; // 24000 samples at the default tempo

Track clicks(int count, Ticks distance = quarter)
{
    QVector<TrackEvent> events;
    for (int i = 0; i < count; ++i)
        events.append(TrackEvent::note(60, i * distance, distance / 2));
    return trackOf(events);
}

} // namespace

class TestPlayerWorker : public QObject
{
    Q_OBJECT

    const SampleFiles files_;
    const QString click_ = files_.click();

    static void playTrack(VirtualPlayer &player, const QString &id, const Track &track, const Instrument &instrument)
    {
        player.worker.playTrack({id, track, instrument});
    }

private slots:
    void signalsComeInTheirOrder()
    {
        VirtualPlayer player;
        playTrack(player, a, clicks(2), instrumentOf(click_));
        player.passes(1);
        QCOMPARE(player.toldWithMeters, list("started a, loading click.wav"));
        player.play(leadIn + 60000);
        QCOMPARE(player.told,
                 list("started a, loading click.wav, pressed a 0, released a 0, pressed a 1, stopped a, released a 1"));

        // Passes are 10.67 ms apart: the third is the first more than 25 ms after the last meters.
        const auto meters = list("master, position a, meter a");
        QCOMPARE(player.toldWithMeters.mid(2, 6), meters + meters);
        player.toldWithMeters.clear();
        player.passes(6);
        QCOMPARE(player.toldWithMeters, list("master, master"));
    }

    // An hour of music whose tempo changes all the time; the samples a tick are dyadic, so whole numbers give them.
    void anHourOnTheSample()
    {
        constexpr DspClock hour = DspClock(60) * 60 * 48000;
        const QVector<std::pair<qint64, DspClock>> tempos{
            {1'152'000, 20}, {1'280'000, 18}, {960'000, 24}, {1'536'000, 15}};
        QVector<TrackEvent> events;
        std::vector<DspClock> expected;
        Ticks tick = 0;
        DspClock clock = leadIn;
        for (int i = 0; clock < hour; ++i) {
            const auto &[ticksPerMinute, eighthsOfSamples] = tempos[i % 4];
            events.append(tempoEvent(tick, ticksPerMinute));
            events.append(TrackEvent::note(60, tick, 100));
            expected.push_back(clock);
            const auto distance = Ticks(4000 + 8 * (i % 101));
            tick += distance;
            clock += DspClock(distance) * eighthsOfSamples / 8;
        }
        VirtualPlayer player;
        player.keepsAudio = false;
        playTrack(player, a, trackOf(events), instrumentOf(click_));
        std::vector<DspClock> found;
        while (player.engine->clock() < hour + 48000) {
            const auto blockStart = player.engine->clock();
            player.passes(1);
            const auto block = player.engine->lastBlock();
            for (std::size_t frame = 0; frame < block.size() / 2; ++frame) {
                if (block[2 * frame] != 0)
                    found.push_back(blockStart + frame);
            }
        }
        QVERIFY(expected.size() > 15000);
        QCOMPARE(found.size(), expected.size());
        QVERIFY(found == expected);
        QCOMPARE(player.toldOf("released").size(), int(expected.size()));
        QCOMPARE(player.count("stopped a"), 1);
    }

    // A note that comes late is heard from where it would be by then, and not at all when it is over.
    void lateNotesBeginInside()
    {
        QVector<qint16> ramp(30000);
        std::iota(ramp.begin(), ramp.end(), 0);
        const auto instrument = instrumentOf(files_.write(QStringLiteral("ramp.wav"), waveBytes(ramp)));
        VirtualPlayer player, inTime;
        for (auto *const each : {&player, &inTime}) {
            playTrack(*each, a, clicks(6), instrument);
            each->passes(1);
        }
        while (player.engine->clock() < leadIn + 2 * 24000 + 5000)
            player.engine->update(); // the mixer runs on while the worker is held up
        const auto now = player.engine->clock();
        player.left.resize(now);
        player.play(60000);
        inTime.play(now + 60000);
        QCOMPARE(player.count("pressed a 0"), 1); // it was scheduled in time
        QCOMPARE(player.count("pressed a 1"), 0);
        QCOMPARE(player.count("pressed a 2"), 1);
        QVERIFY(player.left[now] == 0 && player.left[now + 120] > 0 && player.left[now + 120] < inTime.left[now + 120]);
        for (DspClock clock = now + 240; clock < player.left.size(); ++clock)
            QCOMPARE(player.left[clock], inTime.left[clock]);
    }

    void seekMovesTheTrack()
    {
        VirtualPlayer player;
        const auto level = instrumentOf(files_.level(16384, 12000), 0);
        playTrack(player, a, clicks(40), level);
        player.play(leadIn + 6000); // within the first note
        auto now = player.engine->clock();
        player.worker.seek(a, 10 * quarter);
        player.play(20000);
        QVERIFY(player.left[now - 1] > 0.3F && player.left[leadIn + 11999] > 0); // the sounding note was left alone
        QVERIFY(player.left[now] > 0.6F); // and the new one is there in the very next sample
        QCOMPARE(player.count("pressed a 10"), 1);
        QCOMPARE(player.count("pressed a 1"), 0);

        now = player.engine->clock();
        player.worker.seekAll(2 * quarter + 1); // back; the note at the quarter itself is past
        player.play(24000 + 6000);
        QCOMPARE(player.count("pressed a 2"), 0);
        QCOMPARE(player.count("pressed a 3"), 1);
        QVERIFY(player.left[now + 23998] > 0.3F);
        QVERIFY(player.position > quint64(2 * quarter) && player.position < quint64(4 * quarter));
    }

    void joiningDisturbsNobody_data()
    {
        const Rows<bool, int> row("isNew", "offset");
        row("a new track", true, 750);
        row("a changed track", false, 750);
        row("an unchanged track", false, 1500);
    }

    // Clicks each 3000 samples; the track that joins has its own behind them, before at 1500.
    void joiningDisturbsNobody()
    {
        QFETCH(bool, isNew);
        QFETCH(int, offset);
        constexpr DspClock distance = 3000;
        constexpr Ticks tick = quarter / 24; // 1000 samples
        const auto group = QStringLiteral("Main");
        const auto instrument = instrumentOf(click_);
        const auto shifted = [](int samples) {
            QVector<TrackEvent> events;
            for (int i = 0; i < 40; ++i)
                events.append(TrackEvent::note(60, 3 * tick * i + tick * samples / 1000, tick));
            return trackOf(events);
        };
        VirtualPlayer player;
        player.worker.playTrack({a, shifted(0), instrument, {}, group});
        if (!isNew)
            player.worker.playTrack({b, shifted(1500), instrument, {}, group});
        player.play(20000);
        const auto request = player.engine->clock();
        player.worker.playTrack({b, shifted(offset), instrument, {}, group, false, PlayRequest::Begin::WithTheGroup});
        player.play(60000);

        std::vector<DspClock> expected;
        for (DspClock clock = leadIn; clock < player.left.size(); clock += distance) {
            expected.push_back(clock);
            const auto before = clock + 1500, after = clock + DspClock(offset);
            if (!isNew && before < request)
                expected.push_back(before);
            if (after >= request && after < player.left.size())
                expected.push_back(after);
        }
        std::ranges::sort(expected);
        QCOMPARE(player.onsets(), expected);
        QCOMPARE(player.count("stopped b"), 0);
    }

    // A note that a change leaves alone sounds on, one that it removes ends without a click.
    void heldNotesSurviveChanges()
    {
        const auto held = TrackEvent::note(60, 0, 8 * quarter), later = TrackEvent::note(60, 20 * quarter, quarter);
        const auto instrument = instrumentOf(files_.level(16384, 480000));
        const auto change = [&](VirtualPlayer &player, const QVector<TrackEvent> &events) {
            player.worker.playTrack({a, trackOf(events), instrument, {}, a, false, PlayRequest::Begin::WithTheGroup});
        };
        VirtualPlayer player;
        change(player, {held}); // alone: from its start
        player.play(leadIn + 10000);
        const auto level = player.left.back();
        QVERIFY(level > 0.3F);
        change(player, {tempoEvent(0, defaultTicksPerMinute), held, later});
        player.play(10000);
        QCOMPARE(player.toldOf("pressed").size(), 2); // again, for it may have another index
        QCOMPARE(std::set<float>(player.left.begin() + leadIn, player.left.end()), std::set<float>{level});
        const auto now = player.engine->clock();
        change(player, {later});
        player.play(10000);
        QVERIFY(player.left[now + 100] > 0.1F && player.left[now + 100] < level);
        QCOMPARE(player.left[now + 240], 0.0F);
    }

    void syncGroupsMoveTogether()
    {
        VirtualPlayer player;
        const auto group = QStringLiteral("Main");
        const auto instrument = instrumentOf(click_);
        player.worker.playTrack({a, clicks(20), instrument, {}, group});
        player.passes(2); // the mixer goes on between the two requests
        player.worker.playTrack({b, clicks(20), instrument, {}, group});
        playTrack(player, QStringLiteral("other"), clicks(20, quarter * 3), instrument);
        player.play(leadIn + 10000);
        QCOMPARE(player.onsets(), std::vector<DspClock>({leadIn, leadIn + 1024}));
        QCOMPARE(player.left[leadIn], 2 * player.left[leadIn + 1024]);

        player.worker.seekSynced(15 * quarter, group);
        player.passes(8);
        QVERIFY(player.count("pressed a 15") == 1 && player.count("pressed b 15") == 1);
        QCOMPARE(player.count("pressed other 1"), 0);
        player.play(3 * 24000);
        QCOMPARE(player.count("pressed other 1"), 1);
    }

    void mutedTracksGoOnSilently()
    {
        VirtualPlayer player;
        player.worker.playTrack({a, clicks(4), instrumentOf(click_), {}, noGroup, true});
        playTrack(player, b, clicks(4), instrumentOf(click_));
        player.play(leadIn + 30000);
        QCOMPARE(player.toldOf("pressed a"), QStringList());
        QVERIFY(player.position > quint64(quarter)); // b's, or a's: both tell the same
        player.worker.muteTrack(a, false);
        player.worker.muteTrack(b, true);
        player.play(70000);
        QCOMPARE(player.toldOf("pressed a"), list("pressed a 1, pressed a 2, pressed a 3"));
        QCOMPARE(player.toldOf("pressed b"), list("pressed b 0, pressed b 1"));
        QCOMPARE(player.toldOf("stopped"), list("stopped a, stopped b"));
    }

    // What sounds ends within 5 ms, what was placed ahead does not begin, and both are back as if nothing had been.
    void mutingIsHeardAtOnce()
    {
        const auto held = trackOf({TrackEvent::note(60, 0, 4 * quarter), TrackEvent::note(62, 2 * quarter, quarter)});
        const auto level = instrumentOf(files_.level(16384, 200'000));
        VirtualPlayer player, unmuted;
        for (auto *const each : {&player, &unmuted}) {
            playTrack(*each, a, held, level);
            each->play(leadIn + 2 * 24000 - 1024);
        }
        const auto muted = player.engine->clock();
        player.worker.muteTrack(a, true);
        QCOMPARE(player.told.last(), QStringLiteral("released a 0"));
        player.play(24000 - 512);
        const auto heard = player.engine->clock();
        QVERIFY(player.left[muted] > 0 && player.left[muted + 239] < 0.1F * player.left[muted]);
        QVERIFY(std::all_of(player.left.begin() + std::ptrdiff_t(muted + 240), player.left.end(),
                            [](float sample) { return sample == 0; }));
        player.worker.muteTrack(a, false);
        player.play(48000);
        unmuted.play(80000);
        QVERIFY(player.left[heard + 120] > 0 && player.left[heard + 120] < unmuted.left[heard + 120]);
        for (auto clock = heard + 240; clock < player.left.size(); ++clock)
            QCOMPARE(player.left[clock], unmuted.left[clock]);
    }

    void aNewInstrumentIsForNotesToCome()
    {
        VirtualPlayer player;
        playTrack(player, a, clicks(2), instrumentOf(files_.level(8192, 1)));
        player.play(leadIn + 24000 - 3 * 512); // the second note is scheduled already
        player.worker.changeInstrument(a, instrumentOf(files_.level(16384, 1)));
        player.play(leadIn);
        QCOMPARE(player.left[leadIn + 24000], player.left[leadIn]);

        playTrack(player, a, clicks(2), instrumentOf(files_.level(8192, 1)));
        const auto start = player.engine->clock() + leadIn;
        player.play(leadIn + 10000);
        player.worker.changeInstrument(a, instrumentOf(files_.level(16384, 1)));
        player.play(24000);
        QCOMPARE(player.left[start + 24000], 2 * player.left[start]);
    }

    void tracksEndWithTheLongest()
    {
        VirtualPlayer player;
        const auto instrument = instrumentOf(click_);
        playTrack(player, a, clicks(1), instrument);
        playTrack(player, b, clicks(4), instrument);
        player.play(leadIn + 3 * 24000);
        QCOMPARE(player.toldOf("stopped"), QStringList());
        player.play(24000);
        QCOMPARE(player.toldOf("stopped"), list("stopped a, stopped b"));

        // The length stays after an end like that, and goes with the last track that is stopped.
        playTrack(player, a, clicks(1), instrument);
        player.play(leadIn + 3 * 24000);
        QCOMPARE(player.count("stopped a"), 1);
        player.worker.stopTrack(a);
        QCOMPARE(player.told.last(), QStringLiteral("stopped a"));
        playTrack(player, a, clicks(1), instrument);
        player.play(leadIn + 13000);
        QCOMPARE(player.count("stopped a"), 3);
        QCOMPARE(player.count("all stopped"), 0);
        player.worker.stopAll();
        QCOMPARE(player.told.last(), QStringLiteral("all stopped"));
    }

    void stoppingSilences()
    {
        VirtualPlayer player;
        const auto level = instrumentOf(files_.level(16384, 48000));
        playTrack(player, a, clicks(4), level);
        playTrack(player, b, clicks(4), level);
        player.play(leadIn + 24000 - 512); // the second notes are scheduled
        player.worker.stopAll();
        QCOMPARE(player.told.mid(player.told.size() - 3), list("stopped a, stopped b, all stopped"));
        const auto soon = player.engine->clock() + 1024;
        const auto toldBefore = player.told.size();
        player.play(48000);
        QVERIFY(player.onsets().back() < soon);
        QCOMPARE(player.told.size(), toldBefore);
        QCOMPARE(player.engine->playingVoices(), std::size_t(0));
    }

    void unknownTracksAreLeftAlone()
    {
        VirtualPlayer player;
        const LoggedLines logged;
        player.worker.seek(a, 5);
        player.worker.setVolume(a, 1);
        player.worker.setPan(a, 0);
        player.worker.muteTrack(a, true);
        player.worker.changeInstrument(a, {});
        player.worker.stopTrack(a);
        QCOMPARE(player.told, QStringList());
        QCOMPARE(logged.count(), 0);
    }

    void volumeAndPanReachTheGroup()
    {
        VirtualPlayer player;
        player.worker.playTrack({a, clicks(3), instrumentOf(click_), {0.5F, 0}});
        player.play(leadIn + 512);
        player.worker.setPan(a, 0.5F);
        player.play(24000);
        player.worker.setVolume(a, 1);
        player.worker.setMasterVolume(0.25F);
        player.play(24000);
        const auto full = float(0.5 * std::sqrt(0.5));
        QCOMPARE(player.left[leadIn], full * 0.5F);
        QCOMPARE(player.left[leadIn + 24000], full * 0.25F);
        QCOMPARE(player.left[leadIn + 48000], full * 0.125F);
    }

    void precachingLoadsWhatTheNotesNeed()
    {
        auto instrument = instrumentOf(click_);
        instrument.tuning.notes[61].files = QStringList(files_.level(100, 50));
        instrument.tuning.notes[62].files = QStringList(files_.level(101, 50));
        instrument.tuning.notes[62].rate = 1.25;
        const auto track = trackOf({TrackEvent::note(60, 0, 10), TrackEvent::note(62, 10, 10),
                                    TrackEvent::note(60, 20, 10), TrackEvent::note(62, 20, 4000)});
        VirtualPlayer player;
        player.worker.precacheInstrument(instrument, track);
        player.worker.precacheInstrument(instrument, Track());
        player.passes(1);
        player.worker.precacheInstrument(instrument, track); // all is there
        player.passes(1);
        auto loaded = player.told;
        loaded.sort();
        QCOMPARE(loaded, list("loading click.wav, loading level-101-50.wav"));
        playTrack(player, a, track, instrument);
        player.play(leadIn + 6000);
        QCOMPARE(player.toldOf("loading").size(), 2);
        QCOMPARE(player.toldOf("pressed").size(), 4);
    }

    void previewNotes()
    {
        VirtualPlayer player;
        const auto instrument = instrumentOf(files_.level(16384, 48000), 0.01);
        player.worker.stopPreviewNote();
        player.worker.playPreviewNote(instrument, 200); // no such pitch
        player.passes(1);
        player.worker.playPreviewNote(instrument, 60);
        player.passes(4);
        player.worker.stopPreviewNote();
        player.passes(4);
        QCOMPARE(player.onsets().front(), DspClock(512));
        QCOMPARE(player.left[5 * 512 - 1], player.left[512]);
        QVERIFY(player.left[5 * 512 + 240] < 0.6F * player.left[512]);
        QVERIFY(player.onsets().back() < 5 * 512 + 481);
        QCOMPARE(player.told, list("loading level-16384-48000.wav"));
        VirtualPlayer quick;
        quick.worker.playPreviewNote(instrument, 60);
        quick.worker.stopPreviewNote(); // before its sample is there
        quick.passes(5);
        QVERIFY(!quick.onsets().empty() && quick.onsets().back() < 512 + 481);
        VirtualPlayer again;
        again.worker.playPreviewNote(instrument, 60);
        again.worker.stopPreviewNote();
        again.worker.playPreviewNote(instrument, 60); // is not let go
        again.passes(5);
        QVERIFY(again.left.back() != 0);
    }

    // Each as loud as it was struck, times the part's volume; one that is struck again ends first.
    void keysSoundTogether()
    {
        VirtualPlayer player;
        const auto instrument = instrumentOf(files_.level(16384, 48000), 0.01);
        player.worker.pressKey(60, 100); // there is no instrument yet
        player.worker.setKeySound(instrument, 0.5F);
        player.worker.releaseKey(70);
        player.worker.playPreviewNote(instrument, 60);
        player.passes(4);
        const auto whole = player.left.back();
        player.worker.stopPreviewNote();
        const auto level = [&] {
            player.passes(4);
            return double(player.left.back() / whole);
        };
        QVERIFY(level() == 0);
        player.worker.pressKey(60, 127);
        QVERIFY(std::abs(level() - 0.5) < 0.01);
        player.worker.pressKey(61, 127);
        QVERIFY(std::abs(level() - 1) < 0.01);
        player.worker.pressKey(61, 64);
        QVERIFY(std::abs(level() - 0.752) < 0.01);
        player.worker.releaseKey(60);
        QVERIFY(std::abs(level() - 0.252) < 0.01);
        player.worker.releaseKey(61);
        QVERIFY(level() == 0);
    }

    void badSamplesAreSilent()
    {
        const auto junk = files_.write(QStringLiteral("junk.ogg"), QByteArray(1000, 'x'));
        auto instrument = instrumentOf(click_);
        instrument.tuning.notes[50].files = QStringList(junk);
        instrument.tuning.notes[51].files = QStringList(files_.path(QStringLiteral("missing.wav")));
        instrument.tuning.notes[52].files = QStringList(QStringLiteral("pak://nowhere"));
        instrument.tuning.notes[53].files.clear();
        instrument.tuning.notes[54].rate = -1;
        instrument.tuning.notes[55].rate = 1e200;
        instrument.tuning.notes.remove(56);
        QVector<TrackEvent> events;
        for (int i = 0; i < 30; ++i)
            events.append(TrackEvent::note(quint32(50 + i % 8), i * 1000, 500));

        VirtualPlayer player;
        const LoggedLines logged;
        player.worker.precacheInstrument(instrument, trackOf(events));
        playTrack(player, a, trackOf(events), instrument);
        player.play(leadIn + 80000);
        QCOMPARE(logged.count("junk.ogg: "), 1);
        QCOMPARE(logged.count("missing.wav: "), 1);
        QCOMPARE(logged.count("pak://nowhere: Invalid pak:// filename"), 1);
        QCOMPARE(logged.count("click.wav at rate 1e+200: "), 1);
        QCOMPARE(logged.count("Notes are silent: "), 1);
        QCOMPARE(logged.count(), 5);
        QCOMPARE(player.toldOf("pressed"), list("pressed a 7, pressed a 15, pressed a 23"));
        QCOMPARE(player.told.last(), QStringLiteral("stopped a"));
    }

    void strangeTracksDoNotHang_data()
    {
        const Rows<Track, int> row("track", "pressed");
        const auto note = [](Ticks start, Ticks length = 100) { return TrackEvent::note(60, start, length); };
        row("tempo 0", trackOf({note(0), tempoEvent(100, 0), note(1000)}, 0), 2);
        row("a note at 2^60", trackOf({note(0), note(maxTicks)}), 1);
        row("a note until 2^60", trackOf({note(0, maxTicks), note(5)}), 2);
        row("ten hours' rest", trackOf({note(0), note(Ticks(600) * defaultTicksPerMinute)}), 1);
        row("a tempo of 2^60", trackOf({note(0), note(maxTicks / 2)}, maxTicks), 1);
        row("a tempo of 1", trackOf({note(0), note(1)}, 1), 1);
        row("nothing", Track(), 0);
    }

    void strangeTracksDoNotHang()
    {
        QFETCH(const Track, track);
        QFETCH(const int, pressed);
        VirtualPlayer player;
        const auto instrument = instrumentOf(click_, 1e300, 1.1);
        player.worker.precacheInstrument(instrument, track);
        playTrack(player, a, track, instrument);
        player.play(leadIn + 48000);
        player.worker.seekAll(~quint64(0));
        player.passes(5);
        player.worker.seekAll(0);
        player.passes(5);
        QVERIFY(player.toldOf("pressed").size() >= pressed);
        player.worker.stopAll();
        QCOMPARE(player.told.last(), QStringLiteral("all stopped"));
    }

    // More notes at once than there are voices: the rest is dropped, and the log says so once.
    void tooManyNotes()
    {
        VirtualPlayer player;
        const LoggedLines logged;
        playTrack(player, a, trackOf(QVector<TrackEvent>(10000, TrackEvent::note(60, 0, 100))), instrumentOf(click_));
        player.passes(1);
        QCOMPARE(logged.count(), 1);
        QCOMPARE(logged.count("Audio Error: Too many notes sound at once.\n"), 1);
        player.play(leadIn);
        QCOMPARE(player.toldOf("pressed").size(), int(maxVoices));
    }
};

QTEST_GUILESS_MAIN(TestPlayerWorker)
#include "test_player_worker.moc"
