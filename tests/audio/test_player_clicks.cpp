// Metronome and count-in, sample for sample.
#include "SampleFiles.h"
#include "VirtualPlayer.h"
#include "audio/clicks/ClickTrack.h"
#include "support/Rows.h"

#include <QRegularExpression>
#include <QtTest>

namespace {

const auto songId = QStringLiteral("a");
const auto metronomeId = QStringLiteral("m");
const auto group = QStringLiteral("Main");

constexpr DspClock leadIn = 4800;          // 100 ms
constexpr Ticks quarter = ticksPerQuarter; // 24000 samples at the default tempo

// A note on each quarter, and other metres and tempos as words: "3/4@2" from the quarter 2 on, "x2@4" twice as fast.
Track song(const QString &changes, int notes = 8)
{
    QVector<TrackEvent> events;
    for (const auto &word : changes.split(u' ', Qt::SkipEmptyParts)) {
        const auto at = Ticks(word.section(u'@', 1).toInt()) * quarter;
        const auto what = word.section(u'@', 0, 0);
        if (what.startsWith(u'x'))
            events.append(tempoEvent(at, defaultTicksPerMinute * what.mid(1).toInt()));
        else
            events.append(TrackEvent::metre(at, what.section(u'/', 0, 0).toUInt(), what.section(u'/', 1).toUInt()));
    }
    for (int i = 0; i < notes; ++i)
        events.append(TrackEvent::note(60, i * quarter, quarter));
    return trackOf(events);
}

PlayRequest clicks(const Track &track, PlayRequest::Begin begin, Ticks from = 0)
{
    return {.trackId = metronomeId,
            .track = track,
            .instrument = ClickTrack::instrument(),
            .syncGroup = group,
            .begin = begin,
            .from = from};
}

// What begins where, in quarters of 24000 samples behind the lead-in: "A" an accent, "b" a beat, "n" a note.
QString heard(const VirtualPlayer &player)
{
    const QHash<int, QString> kinds{{424, QStringLiteral("A")},  {283, QStringLiteral("b")},
                                    {354, QStringLiteral("n")},  {778, QStringLiteral("An")},
                                    {636, QStringLiteral("bn")}, {637, QStringLiteral("bn")}};
    QStringList found;
    DspClock last = 0;
    for (const auto clock : player.onsets()) {
        if (clock - last > 100 || last == 0)
            found.append(
                QString::number((double(clock) - leadIn) / 24000, 'g', 9) +
                kinds.value(int(std::lround(player.left[clock] * 1000)), QString::number(double(player.left[clock]))));
        last = clock;
    }
    return found.join(u' ');
}

} // namespace

class TestPlayerClicks : public QObject
{
    Q_OBJECT

    const SampleFiles files_;
    const Instrument note_ = instrumentOf(files_.click());

    void start(VirtualPlayer &player, const Track &track, int from, int countIn, bool hasMetronome,
               double offset = 0) const
    {
        QVector<PlayRequest> requests{{.trackId = songId,
                                       .track = track,
                                       .instrument = note_,
                                       .syncGroup = group,
                                       .from = from * quarter,
                                       .offset = offset}};
        if (const auto counted = ClickTrack::countIn(track, from * quarter, countIn); counted.length() > 0)
            requests.append(clicks(counted, PlayRequest::Begin::BeforeTheOthers));
        if (hasMetronome)
            requests.append(
                clicks(ClickTrack::beats(track, track.length()), PlayRequest::Begin::AtTheStart, from * quarter));
        player.worker.playTracks(requests);
    }

private slots:
    void clicksAreOnTheBeats_data()
    {
        const Rows<QString, int, int, bool, QString, double, double, QString> row(
            "changes", "from", "countIn", "metronome", "loop", "factor", "offset", "heard");
        row("no clicks", "", 0, 0, false, "", 1.0, 0.0, "0n 1n 2n 3n 4n 5n");
        row("beats", "", 0, 0, true, "", 1.0, 0.0, "0An 1bn 2bn 3bn 4An 5bn");
        row("from within a measure", "3/4@0", 1, 0, true, "", 1.0, 0.0, "0bn 1bn 2An 3bn 4bn 5An");
        row("count-in", "", 0, 1, false, "", 1.0, 0.0, "0A 1b 2b 3b 4n 5n");
        row("count-in and beats", "3/4@0", 0, 1, true, "", 1.0, 0.0, "0A 1b 2b 3An 4bn 5bn");
        row("two measures", "2/4@0", 0, 2, true, "", 1.0, 0.0, "0A 1b 2A 3b 4An 5bn");
        row("counts up to the place", "2/4@0", 3, 1, true, "", 1.0, 0.0, "0A 1b 2A 3bn 4An 5bn");
        row("in the metre and tempo there", "4/4@0 x2@3 2/4@4", 4, 2, true, "", 1.0, 0.0,
            "0A 0.5b 1A 1.5b 2An 2.5bn 3An 3.5bn");
        row("a measure that is cut", "4/4@0 3/4@2", 0, 0, true, "", 1.0, 0.0, "0An 1bn 2An 3bn 4bn 5An");
        row("another tempo", "x2@2", 0, 0, true, "", 1.0, 0.0, "0An 1bn 2bn 2.5bn 3An 3.5bn 4bn 4.5bn");
        row("eighths", "6/8@0", 0, 0, true, "", 1.0, 0.0, "0An 0.5b 1bn 1.5b 2bn 2.5b 3An 3.5b 4bn 4.5b 5bn 5.5b");
        row("slow", "2/4@0", 0, 1, true, "", 0.5, 0.0, "0A 2b 4An");
        row("fast", "2/4@0", 0, 1, true, "", 2.0, 0.0, "0A 0.5b 1An 1.5bn 2An 2.5bn 3An 3.5bn 4An 4.5bn");
        row("counted in once, and looped", "2/4@0", 0, 1, true, "0 2", 1.0, 0.0, "0A 1b 2An 3bn 4An 5bn");
        row("a loop across the measures", "3/4@0", 1, 0, true, "1 3", 1.0, 0.0, "0bn 1bn 2bn 3bn 4bn 5bn");
        row("a fast loop", "2/4@0", 2, 1, false, "2 4", 2.0, 0.0, "0A 0.5b 1n 1.5n 2n 2.5n 3n 3.5n 4n 4.5n 5n 5.5n");
        row("who begins early", "2/4@0", 0, 1, true, "", 1.0, -250.0, "0A 1b 1.5n 2A 2.5n 3b 3.5n 4A 4.5n 5b 5.5n");
        row("earlier than the count-in", "1/4@0", 0, 1, false, "", 1.0, -750.0, "0n 0.5A 1n 2n 3n 4n 5n");
    }

    void clicksAreOnTheBeats()
    {
        QFETCH(const QString, changes);
        QFETCH(const int, from);
        QFETCH(const int, countIn);
        QFETCH(const bool, metronome);
        QFETCH(const QString, loop);
        QFETCH(const double, factor);
        QFETCH(const double, offset);
        VirtualPlayer player;
        if (!loop.isEmpty())
            player.worker.setLoop(
                LoopRegion{loop.section(u' ', 0, 0).toInt() * quarter, loop.section(u' ', 1).toInt() * quarter});
        player.worker.setTempoFactor(factor);
        start(player, song(changes), from, countIn, metronome, offset);
        player.play(leadIn + 6 * 24000 - 512);
        QTEST(heard(player), "heard");
    }

    // The rest of the count-in goes in the new tempo, and the song begins at its end.
    void tempoChangesInTheCountIn()
    {
        VirtualPlayer player;
        start(player, song({}), 0, 1, true);
        player.play(leadIn + 24000 + 1000);
        const auto now = player.engine->clock();
        player.worker.setTempoFactor(2);
        player.play(4 * 24000);
        const auto third = double(leadIn + 2 * 24000 + now) / 2; // half of the way to where it was
        QStringList expected{QStringLiteral("0A"), QStringLiteral("1b")};
        for (const auto &[at, kind] : {std::pair(0, "b"), {1, "b"}, {2, "An"}, {3, "bn"}})
            expected.append(QString::number((third - leadIn) / 24000 + 0.5 * at, 'f', 3) + QLatin1String(kind));
        auto found = heard(player).split(u' ').mid(0, 6);
        for (int i = 2; i < found.size(); ++i) { // a tick may be lost
            const auto kind = found[i].mid(int(found[i].indexOf(QRegularExpression(QStringLiteral("[A-Za-z]")))));
            found[i] = QString::number(found[i].chopped(kind.size()).toDouble(), 'f', 3) + kind;
        }
        QCOMPARE(found, expected);
    }

    void aSeekEndsTheCountIn()
    {
        VirtualPlayer player;
        start(player, song({}), 0, 2, false);
        player.play(leadIn + 24000 + 5000);
        const auto now = player.engine->clock();
        player.worker.seekSynced(quint64(6 * quarter), group);
        player.play(2 * 24000);
        const auto note = QString::number((double(now) - leadIn) / 24000, 'g', 9);
        QVERIFY(heard(player).startsWith(QStringLiteral("0A 1b %1n ").arg(note)));
        QVERIFY(!heard(player).mid(5).contains(u'b'));
    }

    void aStopEndsIt()
    {
        VirtualPlayer player;
        start(player, song({}), 0, 2, true);
        player.play(leadIn + 24000 + 5000);
        player.worker.stopAll();
        player.play(8 * 24000);
        QCOMPARE(heard(player), QStringLiteral("0A 1b"));
        start(player, song({}), 0, 0, false); // of which nothing is left
        player.left.clear();
        player.play(leadIn + 5000);
        QCOMPARE(heard(player), QStringLiteral("0n"));
    }

    // While the song plays on, in a loop: the clicks come in at the next beat, and go.
    void comesAndGoesWhileItPlays()
    {
        VirtualPlayer player;
        const auto track = song(QStringLiteral("2/4@0"));
        player.worker.setLoop(LoopRegion{0, 4 * quarter});
        start(player, track, 0, 0, false);
        player.play(leadIn + 4 * 24000 + 12000);
        player.worker.playTrack(clicks(ClickTrack::beats(track, track.length()), PlayRequest::Begin::WithTheGroup));
        player.play(3 * 24000);
        player.worker.stopTrack(metronomeId);
        player.play(2 * 24000 - 512);
        QCOMPARE(heard(player), QStringLiteral("0n 1n 2n 3n 4n 5bn 6An 7bn 8n 9n"));
    }

    // As long as nobody could wait, or more than a memory could hold.
    void wildMetres_data()
    {
        const Rows<quint32, quint32, qint64, int, qint64> row("beats", "unit", "length", "count", "countIn");
        row("none", 0, 0, 4 * quarter, 4, 4 * quarter);
        row("huge measures", 4'000'000'000, 1, 4 * quarter, 1, 0);
        row("tiny beats", 4'000'000'000, 4'000'000'000, ticksPerWholeNote, 39, ticksPerWholeNote);
        row("without an end", 1, 64, maxTicks, 200'000, 630);
    }

    void wildMetres()
    {
        QFETCH(const quint32, beats);
        QFETCH(const quint32, unit);
        QFETCH(const qint64, length);
        const auto track = trackOf({TrackEvent::metre(0, beats, unit)});
        QTEST(ClickTrack::beats(track, length).noteCount(), "count");
        QTEST(ClickTrack::countIn(track, 0, 1).length(), "countIn");
    }
};

QTEST_GUILESS_MAIN(TestPlayerClicks)
#include "test_player_clicks.moc"
