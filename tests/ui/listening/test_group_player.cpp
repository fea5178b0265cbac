#include "audio/SampleFiles.h"
#include "audio/engine/BuiltinEngine.h"
#include "ui/listening/GroupPlayer.h"

#include <QSignalSpy>
#include <QtTest>

#include <algorithm>

// Parts that no song has are heard together, and each ends by itself.
class TestGroupPlayer : public QObject
{
    Q_OBJECT

    const SampleFiles samples_;

    HeardPart part(Ticks length) const
    {
        return {trackOf({TrackEvent::note(60, 0, length)}), instrumentOf(samples_.level(16384, 4800)), {}};
    }
    static QList<int> sorted(QList<int> numbers)
    {
        std::sort(numbers.begin(), numbers.end());
        return numbers;
    }

private slots:
    void playsUntilAllHaveEnded()
    {
        constexpr Ticks hours = 10'000 * ticksPerWholeNote;
        GroupPlayer player([] { return std::make_unique<BuiltinEngine>(EngineOutput::Silent); });
        QSignalSpy changed(&player, &GroupPlayer::playingChanged);
        player.stop(); // nothing plays
        player.follow(1, part(1));
        QVERIFY(changed.isEmpty() && !player.isPlaying());
        player.play({{1, part(ticksPerQuarter)}, {2, part(ticksPerQuarter)}});
        QCOMPARE(sorted(player.playing()), QList<int>({1, 2}));
        QTRY_COMPARE(changed.size(), 2);
        QVERIFY(!player.isPlaying() && !changed.last()[0].toBool());

        player.play({{1, part(hours)}, {2, part(hours)}, {7, part(hours)}});
        player.stop(7);
        player.stop(3); // there is none
        QTRY_COMPARE(sorted(player.playing()), QList<int>({1, 2}));
        player.follow(2, part(hours));
        player.stop(1);
        QTRY_COMPARE(player.playing(), QList<int>{2});
        player.stop(2);
        QTRY_COMPARE(changed.size(), 4);
        QVERIFY(!player.isPlaying());

        player.play({{1, part(hours)}});
        player.play({{4, part(hours)}}); // in their place
        QCOMPARE(player.playing(), QList<int>{4});
        QTest::qWait(50); // the end of the first is no end of the second
        QCOMPARE(player.playing(), QList<int>{4});
        player.stop();
        QCOMPARE(changed.size(), 8);
        QVERIFY(!changed.last()[0].toBool());
    }
};

QTEST_GUILESS_MAIN(TestGroupPlayer)
#include "test_group_player.moc"
