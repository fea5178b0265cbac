#include "RandomRequests.h"
#include "audio/player/TrackPlayer.h"
#include "support/GatedEngine.h"

#include <QSignalSpy>
#include <QtTest>

namespace {

std::unique_ptr<AudioEngine> pacedEngine()
{
    return std::make_unique<BuiltinEngine>(HeardOutput::Paced);
}

} // namespace

class TestTrackPlayer : public QObject
{
    Q_OBJECT

    RandomRequests requests_;

private slots:
    void requestsGoOutAndSignalsComeBack()
    {
        TrackPlayer player(pacedEngine);
        QStringList told;
        const auto tell = [&told](const char *what) { told.append(QString::fromLatin1(what)); };
        connect(&player, &TrackPlayer::loadingSample, this, [&] { tell("loading"); });
        connect(&player, &TrackPlayer::trackStarted, this, [&] { tell("started"); });
        connect(&player, &TrackPlayer::notePressed, this, [&] { tell("pressed"); });
        connect(&player, &TrackPlayer::noteReleased, this, [&] { tell("released"); });
        connect(&player, &TrackPlayer::trackStopped, this, [&] { tell("stopped"); });
        connect(&player, &TrackPlayer::allTracksStopped, this, [&] { tell("all stopped"); });
        QSignalSpy meters(&player, &TrackPlayer::trackMeter);
        QSignalSpy positions(&player, &TrackPlayer::trackPositionChanged);

        const auto instrument = requests_.anyInstrument();
        const auto track = trackOf({TrackEvent::note(60, 0, 2000), TrackEvent::note(60, 2 * ticksPerWholeNote, 9)});
        player.playTrack({QStringLiteral("a"), track, instrument});
        QVERIFY(told.isEmpty());
        QTRY_VERIFY(told.contains(QStringLiteral("released")));
        player.stopAll();
        QTRY_VERIFY(told.contains(QStringLiteral("all stopped")));
        QCOMPARE(told.join(u' '), QStringLiteral("started loading pressed released stopped all stopped"));
        QVERIFY(meters.size() > 2 && positions.size() == meters.size());
        QVERIFY(meters.last().at(1).toFloat() > 0);
        QVERIFY(positions.last().at(1).toULongLong() >= 2000);
    }

    void seeks()
    {
        TrackPlayer player([] { return std::make_unique<BuiltinEngine>(EngineOutput::Silent); });
        Ticks position = 0;
        connect(&player, &TrackPlayer::trackPositionChanged, this,
                [&](const QString &, quint64 tick) { position = Ticks(tick); });
        const auto far = 5000 * ticksPerWholeNote;
        const auto id = QStringLiteral("a");
        player.playTrack({id, trackOf({TrackEvent::note(60, 2 * far, 1)}), requests_.anyInstrument()});
        QTRY_VERIFY(position > 0);
        player.seek(id, quint64(far));
        QTRY_VERIFY(position >= far);
        player.seekAll(0);
        QTRY_VERIFY(position < far);
        QSignalSpy stopped(&player, &TrackPlayer::trackStopped);
        player.stopTrack(id);
        QVERIFY(stopped.wait());
    }

    void stopAllEndsTheLoading()
    {
        const auto gate = GatedEngine::makeGate(false);
        TrackPlayer player([gate] { return std::make_unique<GatedEngine>(HeardOutput::Paced, gate); });
        const auto opener = qScopeGuard([&] { GatedEngine::open(gate); }); // also when the test fails
        QSignalSpy loading(&player, &TrackPlayer::loadingSample);
        QSignalSpy stopped(&player, &TrackPlayer::allTracksStopped);
        QSignalSpy held(&player, &TrackPlayer::loadingTrack);
        QSignalSpy loaded(&player, &TrackPlayer::tracksLoaded);
        QSignalSpy pressed(&player, &TrackPlayer::notePressed);
        const auto instrument = requests_.anyInstrument();
        const auto track = trackOf({TrackEvent::note(60, 0, 2000)});
        const auto play = [&] { player.playTrack({QStringLiteral("a"), track, instrument}); };
        play();
        play();
        QVERIFY(loading.wait());
        QTRY_COMPARE(held.size(), 1);
        QCOMPARE(held[0], QVariantList({1, 1, 0}));
        player.stopAll();
        QVERIFY(stopped.wait()); // while the sample is still being decoded
        QCOMPARE(loaded.size(), 1);

        play();
        QTRY_COMPARE(held.size(), 2);
        QTest::qWait(200);
        QVERIFY(pressed.isEmpty());
        GatedEngine::open(gate);
        QVERIFY(pressed.wait());
        QCOMPARE(loaded.size(), 2);
    }

    void goneWhilePlaying()
    {
        for (int i = 0; i < 5; ++i) {
            TrackPlayer player(pacedEngine);
            player.precacheInstrument(requests_.anyInstrument(), requests_.anyMelody());
            player.playTrack({QStringLiteral("a"), requests_.anyMelody(), requests_.anyInstrument()});
            QTest::qWait(i * 10);
        }
    }
};

QTEST_GUILESS_MAIN(TestTrackPlayer)
#include "test_track_player.moc"
