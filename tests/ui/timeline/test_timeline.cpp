#include "support/Rows.h"
#include "ui/timeline/MarkTexts.h"
#include "ui/timeline/PositionDisplay.h"
#include "ui/timeline/TimeRuler.h"
#include "ui/timeline/TimeZoom.h"

#include <QSignalSpy>

namespace {

constexpr Ticks whole = ticksPerWholeNote;

// Two measures of 4/4, then of 3/4.
Track waltz()
{
    Track track;
    track.appendEvent(TrackEvent::note(60, 0, 20 * whole));
    track.appendEvent(TrackEvent::metre(2 * whole, 3, 4));
    track.normalize();
    return track;
}

void drag(QWidget &widget, QPoint to, Qt::KeyboardModifiers modifiers = {})
{
    QMouseEvent move(QEvent::MouseMove, to, widget.mapToGlobal(to), Qt::NoButton, Qt::LeftButton, modifiers);
    QCoreApplication::sendEvent(&widget, &move);
}

} // namespace

class TestTimeline : public QObject
{
    Q_OBJECT

private slots:
    void rulerPicksBeats_data()
    {
        const Rows<Ticks, Ticks, int, int, Ticks> row("begin", "length", "modifiers", "x", "picked");
        row("a beat", 0, 4 * whole, Qt::NoModifier, 110, whole / 4);
        row("a beat behind the change", 0, 4 * whole, Qt::NoModifier, 1060, whole * 11 / 4);
        row("what the mouse is at", 0, 4 * whole, Qt::AltModifier, 100, whole / 4);
        row("between the beats", 0, 4 * whole, Qt::AltModifier, 150, whole * 3 / 8);
        row("a measure where beats are close", 0, 80 * whole, Qt::NoModifier, 72, whole * 7 / 2);
        row("scrolled", whole, whole, Qt::NoModifier, 790, whole * 3 / 2);
        row("the last beat that is shown", 0, whole * 9 / 8, Qt::NoModifier, 1599, whole);
        row("nothing", 0, 0, Qt::NoModifier, 100, 0);
    }

    void rulerPicksBeats()
    {
        QFETCH(Ticks, begin);
        QFETCH(Ticks, length);
        QFETCH(int, modifiers);
        QFETCH(int, x);
        TimeRuler ruler;
        ruler.setMeasures(Measures(waltz()));
        ruler.resize(1600, 40);
        ruler.setSpan({begin, length});
        const QSignalSpy seeks(&ruler, &TimeRuler::seek);
        QTest::mousePress(&ruler, Qt::LeftButton, Qt::KeyboardModifiers(modifiers), {0, 30});
        QTest::mousePress(&ruler, Qt::RightButton, {}, {3, 30});
        drag(ruler, {x, 30}, Qt::KeyboardModifiers(modifiers));
        QCOMPARE(seeks.size(), 2);
        QTEST(Ticks(seeks.last()[0].toLongLong()), "picked");
    }

    void rulerLoops_data()
    {
        // In beats of 100 pixels; 0 long: none.
        const Rows<int, int, int, int, int, int> row("begin", "length", "from", "to", "newBegin", "newLength");
        row("new", 0, 0, 103, 398, 1, 3);
        row("new, backwards", 0, 0, 398, 103, 1, 3);
        row("another", 4, 2, 103, 200, 1, 1);
        row("its begin", 4, 2, 403, 203, 2, 4);
        row("its end", 4, 2, 597, 1000, 4, 6);
        row("its begin behind its end", 4, 2, 397, 800, 6, 2);
        row("of nothing", 4, 2, 101, 120, 4, 2);
        row("a click sets the position", 4, 2, 300, 300, 4, 2);
    }

    void rulerLoops()
    {
        QFETCH(int, begin);
        QFETCH(int, length);
        QFETCH(int, from);
        QFETCH(int, to);
        constexpr auto beat = whole / 4;
        TimeRuler ruler;
        ruler.resize(1600, 40);
        ruler.setSpan({0, 16 * beat});
        if (length > 0)
            ruler.setLoop(TimeSpan{begin * beat, length * beat});
        connect(&ruler, &TimeRuler::loopChosen, &ruler, &TimeRuler::setLoop);
        const QSignalSpy seeks(&ruler, &TimeRuler::seek);
        QTest::mousePress(&ruler, Qt::LeftButton, {}, {from, 3});
        drag(ruler, {to, 3});
        QTest::mouseRelease(&ruler, Qt::LeftButton, {}, {to, 3});
        QCOMPARE(seeks.size(), from == to ? 1 : 0);
        QTEST(int(ruler.loop()->begin / beat), "newBegin");
        QTEST(int(ruler.loop()->length / beat), "newLength");
        QVERIFY(!ruler.grab().isNull());
    }

    // As songs may have them; each within a second.
    void rulerPaintsOddSongs_data()
    {
        const Rows<Track, Ticks, Ticks> row("track", "begin", "length");
        Track crowded;
        for (Ticks i = 0; i < 20'000; ++i) {
            crowded.appendEvent(TrackEvent::metre(i, 1U + quint32(i % 9), 4294967295U));
            crowded.appendEvent(TrackEvent::tempo(i, 1, 4, 60U + quint32(i % 100)));
        }
        row("changes on every tick", crowded, 0, 30'000);
        row("changes on every tick, far away", crowded, maxTicks / 2, 1000);
        Track tiny;
        tiny.setMetre(1, 1);
        row("measures of a tick", tiny, 0, maxTicks);
        row("nothing", {}, 0, 0);
    }

    void rulerPaintsOddSongs()
    {
        QFETCH(Track, track);
        QFETCH(Ticks, begin);
        QFETCH(Ticks, length);
        TimeRuler ruler;
        ruler.setMeasures(Measures(track));
        ruler.resize(1600, 40);
        ruler.setSpan({begin, length});
        QElapsedTimer timer;
        timer.start();
        QVERIFY(!ruler.grab().isNull());
        QVERIFY(timer.elapsed() < 1000);
    }

    void zoomKeepsThePlaceUnderThePointer()
    {
        TimeZoom zoom;
        zoom.zoom(2, 0.5); // an empty song
        QVERIFY(zoom.span() == TimeSpan() && zoom.isWhole());
        zoom.setSongLength(100 * whole);
        QCOMPARE(zoom.span().length, 100 * whole);
        for (const double anchor : {0.5, 0.25, 1.0, 0.0}) {
            const auto place = [&] { return zoom.span().begin + anchor * double(zoom.span().length); };
            const auto before = place();
            zoom.zoom(1.5, anchor);
            QVERIFY(std::abs(place() - before) < 2);
            zoom.zoom(1 / 1.2, anchor);
            QVERIFY(std::abs(place() - before) < 3);
        }
        zoom.zoom(1e9, 0.5);
        QCOMPARE(zoom.span().length, TimeZoom::shortestSpan);
        zoom.zoom(1e-9, 0.3);
        QVERIFY(zoom.isWhole() && zoom.span().begin == 0);
        zoom.setSongLength(200 * whole); // which stays the whole
        QVERIFY(zoom.isWhole() && zoom.span().length == 200 * whole);
    }

    void zoomFollowsAndReveals()
    {
        TimeZoom zoom;
        zoom.setSongLength(100 * whole);
        zoom.zoom(10, 0);
        const auto beginAfter = [&](auto move) {
            move();
            return zoom.span().begin;
        };
        QCOMPARE(beginAfter([&] { zoom.follow(8 * whole); }), Ticks(0));
        QCOMPARE(beginAfter([&] { zoom.follow(19 * whole / 2); }), whole * 17 / 2);
        QCOMPARE(beginAfter([&] { zoom.follow(0); }), Ticks(0));
        QCOMPARE(beginAfter([&] { zoom.reveal(10 * whole); }), Ticks(0));
        QCOMPARE(beginAfter([&] { zoom.reveal(20 * whole); }), whole * 45 / 4);
        QCOMPARE(beginAfter([&] { zoom.reveal(10 * whole); }), whole * 35 / 4);
        QCOMPARE(beginAfter([&] { zoom.follow(100 * whole); }), 90 * whole); // no further than the end
        QCOMPARE(beginAfter([&] { zoom.setSongLength(50 * whole); }), 40 * whole);
        QCOMPARE(beginAfter([&] { zoom.setSongLength(5 * whole); }), Ticks(0));
        QVERIFY(zoom.isWhole());
    }

    // What holds at the left edge stands there, then what is seen; what has no room is left out.
    void marksHaveTheirPlaces_data()
    {
        const Rows<double, QString> row("first", "places"); // in quarters, which are 100 wide
        row("from the start", 0, "0 2/4, 0 ♩ = 90, 800 3/8 = 60, 1200 free, 1200 ♩ = 60");
        row("later", 9, "0 2/4, 0 3/8 = 60, 300 free, 300 ♩ = 60");
        row("at a change", 12, "0 free, 0 ♩ = 60");
        row("what holds hides what follows at once", 7.9, "0 2/4, 0 ♩ = 90, 400 free, 400 ♩ = 60");
    }
    void marksHaveTheirPlaces()
    {
        QFETCH(double, first);
        constexpr auto quarter = whole / 4;
        const auto begin = Ticks(first * quarter);
        const std::vector<TrackEvent> marks{TrackEvent::metre(0, 2, 4),
                                            TrackEvent::tempo(0, 1, 4, 90),
                                            TrackEvent::tempo(8 * quarter, 3, 8, 60),
                                            TrackEvent::metre(12 * quarter, 0, 0),
                                            TrackEvent::tempo(12 * quarter, 1, 4, 60),
                                            TrackEvent::metre(40 * quarter, 7, 4)};
        const QFontMetrics metrics((QFont()));
        const auto found = placeMarks(marks, begin, 1600, metrics,
                                      [&](Ticks tick) { return double(tick - begin) * 100 / double(quarter); });
        QStringList places;
        double free = 0;
        for (const auto &place : found) {
            QVERIFY(place.x >= free);
            free = place.x + metrics.horizontalAdvance(place.text);
            places.append(QStringLiteral("%1 %2").arg(int(place.x) / 100 * 100).arg(place.text));
        }
        QTEST(places.join(QStringLiteral(", ")), "places");
    }

    void displaysThePosition()
    {
        const Measures measures(waltz());
        PositionDisplay display;
        const auto shown = [&](Ticks position, qint64 milliseconds) {
            display.setPosition(position, measures.at(position), milliseconds);
            return display.time() + u' ' + display.place();
        };
        QCOMPARE(shown(0, 0), QStringLiteral("0:00.000 1.1"));
        QCOMPARE(shown(whole * 3 / 4, 1500), QStringLiteral("0:01.500 1.4"));
        QCOMPARE(shown(whole * 13 / 4 - 1, 3'725'042), QStringLiteral("62:05.042 4.2"));
    }
};

QTEST_MAIN(TestTimeline)
#include "test_timeline.moc"
