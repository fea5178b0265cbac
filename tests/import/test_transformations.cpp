#include "core/AbcParser.h"
#include "import/ChangeKey.h"
#include "import/MergeTracks.h"
#include "import/MmlImport.h"
#include "import/Realign.h"
#include "import/Transpose.h"
#include "import/UnitLength.h"
#include "support/DescribeTrack.h"
#include "support/Rows.h"
#include "support/Thrown.h"

#include <QtTest>

#include <limits>

namespace {

Track tune(const char *body, const char *fields = "")
{
    return parseAbc(QStringLiteral("X:7\n") + QString::fromLatin1(fields) + QStringLiteral("K:C\n") +
                    QString::fromLatin1(body));
}

// The rule for the nearest grid point, as it is told: for each grid in turn, the point below, then the point above.
Ticks nearest(Ticks time, const QVector<quint32> &denominators)
{
    auto best = time;
    auto distance = std::numeric_limits<Ticks>::max();
    for (const auto denominator : denominators) {
        const auto step = ticksPerWholeNote / Ticks(denominator);
        for (const auto point : {time / step * step, time / step * step + step}) {
            if (qAbs(point - time) < distance) {
                best = point;
                distance = qAbs(point - time);
            }
        }
    }
    return best;
}

} // namespace

class TestTransformations : public QObject
{
    Q_OBJECT

private slots:
    void snaps_data()
    {
        const Rows<QVector<quint32>> row("grids");
        row("quick", {128, 96, 80, 112, 72});
        row("one", {96});
        row("triplets first", {3, 1});
        row("no divisors", {11, 40320});
    }

    void snaps()
    {
        QFETCH(QVector<quint32>, grids);
        const SnapGrid grid(grids);
        for (Ticks time = 0; time < 90000; ++time)
            QCOMPARE(grid.snap(time), nearest(time, grids));
        QCOMPARE(grid.snap(Ticks(1) << 59), nearest(Ticks(1) << 59, grids));
    }

    void realigns()
    {
        Track track;
        track.editEvents() = {TrackEvent::note(60, 100, 10), TrackEvent::key(200, 3, 0),
                              TrackEvent::note(62, 400, 400)};
        track.setAbc(QStringLiteral("old"));
        track.normalize();
        const auto quick = realign(track, SnapGrid::quick());
        QCOMPARE(describe(quick), QStringLiteral("60@0+315 K3/0@315 62@420+420"));
        QVERIFY(!quick.hasAbc());
        QCOMPARE(describe(realign(track, SnapGrid({}))), QStringLiteral("K3/0@0 60@0+40320 62@0+40320"));
        QCOMPARE(SnapGrid({96}).snap(210), 0);
        QCOMPARE(SnapGrid({96}).snap(211), 420);
    }

    void transposes()
    {
        const auto track = tune("A,,,,C[M:3/4]c'''' c''", "T:a\nT:b\nM:4/4\n");
        const auto higher = transpose(track, 12);
        QCOMPARE(describe(higher), QStringLiteral("33@0+10080 72@10080+10080 M3/4@20160 108@30240+10080"));
        QCOMPARE(higher.headerFields(QStringLiteral("T")).size(), 2);
        QCOMPARE(higher.measureTicks(), track.measureTicks());
        QVERIFY(!higher.hasAbc());
        QCOMPARE(transpose(track, 13).noteCount(), 2);

        Track soft;
        soft.editEvents() = {TrackEvent::note(60, 0, 1, 0.5F)};
        QCOMPARE(transpose(soft, 0).events()[0].velocity(), 1.0F);
    }

    void changesKey()
    {
        auto track = changeKey(tune("^FB"), QStringLiteral("G"));
        QVERIFY(track.toAbc().endsWith(QStringLiteral("K: G\nF B \n")));
        QStringList keys;
        for (const auto &[row, mode] : {std::pair(10U, 1U), {7, 0}, {0, 5}})
            keys += keyText(row, mode, MajorQualifier::Omit);
        QCOMPARE(keys.join(u' '), QStringLiteral("Cm C F#lyd"));
        QCOMPARE(keyText(7, 0, MajorQualifier::Include), QStringLiteral("Cmaj"));
        for (quint32 row = 0; row < 15; ++row) {
            for (quint32 mode = 0; mode < 7; ++mode) {
                const auto position = keyPosition(keyText(row, mode, MajorQualifier::Include));
                QVERIFY(position && position->row == row && position->mode == mode);
            }
        }
        QVERIFY(!keyPosition(QStringLiteral("12")).has_value());
    }

    void detectsUnitLength_data()
    {
        // body: with the default unit of a quarter
        const Rows<QString, int> row("body", "denominator");
        row("no notes", "", 4);
        row("eighths", "C/C/C/C/", 8);
        row("equal costs take the longer", "CC/", 4);
        row("triplets", "C/3D/3E/3F", 12);
        row("zero lengths", "C0D0", 1);
    }

    void detectsUnitLength()
    {
        QFETCH(QString, body);
        QTEST(int(detectUnitLength(parseAbc(QStringLiteral("K:C\n") + body))), "denominator");
    }

    void costsWhatTheWriterWrites()
    {
        for (const Ticks length : {1, 315, 420, 2520, 5040, 7560, 10080, 13440, 40320, 100800, 403200}) {
            for (const auto *unit : {"1/1", "1/4", "1/8", "1/12", "3/16"}) {
                Track track;
                track.setHeaderField(QStringLiteral("L"), QString::fromLatin1(unit));
                track.editEvents() = {TrackEvent::note(60, 0, length)};
                track.toAbc();
                const auto unitTicks = HeaderFields::parseUnitLength(QString::fromLatin1(unit));
                QCOMPARE(int(track.events()[0].textLength()) - 1, suffixCost(length, unitTicks));
            }
        }
    }

    void keepsTheTempoWhenTheUnitChanges_data()
    {
        const Rows<QString, QString> row("fields", "tempo");
        row("missing", "L:1/8\n", "1/8=120");
        row("counted in units", "L:6/32\nQ:90\n", "3/16=90");
        row("with its beat", "Q:3/8=60\n", "3/8=60");
        row("words", "Q:Allegro\n", "1/4=120");
    }

    void keepsTheTempoWhenTheUnitChanges()
    {
        QFETCH(QString, fields);
        const auto track = tune("CD", qPrintable(fields));
        auto changed = changeUnitLength(track, QStringLiteral("1/16"));
        QTEST(changed.headerField(QStringLiteral("Q")), "tempo");
        const auto reread = parseAbc(changed.toAbc());
        QCOMPARE(reread.ticksPerMinute(), track.ticksPerMinute());
        QCOMPARE(describe(reread), describe(track));
        QCOMPARE(changeUnitLength(track, QStringLiteral("auto")).headerField(QStringLiteral("L")),
                 unitLengthText(detectUnitLength(track)));
    }

    void merges()
    {
        auto first = tune("C2[Q:1/4=90]D", "T:One\nQ:1/4=100\n");
        first.setFilePath(QStringLiteral("one.abc"));
        const auto second = tune("z2[Q:1/4=90]E[K:G]F", "T:Two\nQ:1/4=100\n");
        const auto merged = mergeTracks({first, second});
        QCOMPARE(describe(merged),
                 QStringLiteral("60@0+20160 Q907200@20160 62@20160+10080 64@20160+10080 K6/0@30240 66@30240+10080"));
        QCOMPARE(merged.title(), QStringLiteral("One"));
        QCOMPARE(merged.headerField(QStringLiteral("X")), QStringLiteral("1"));
        QVERIFY(!merged.hasAbc() && merged.filePath().isEmpty()); // which holds the first alone
        QCOMPARE(describe(mergeTracks({first})), describe(first));
    }

    // At the start, later, and where the first has none.
    void refusesToMergeOtherTempos()
    {
        const auto first = tune("C2[Q:1/4=90]D", "Q:1/4=100\n");
        for (const auto *const other :
             {"Q:1/4=101\nK:C\nC", "Q:1/4=100\nK:C\nC2[Q:1/4=91]D", "Q:1/4=100\nK:C\nC[Q:1/4=90]D"}) {
            const auto merge = [&] { mergeTracks({first, parseAbc(QString::fromLatin1(other))}); };
            QCOMPARE(thrownBy(merge), QStringLiteral("Cannot merge tracks with different tempos"));
        }
    }

    void readsMml_data()
    {
        const Rows<QString, QString> row("text", "tracks");
        row("two tracks", "MML@t120l8cdef,l4g;", "60@0+5040 62@5040+5040 64@10080+5040 65@15120+5040 | 67@0+10080");
        row("ties", "c4&c4 c4&d4", "60@0+20160 60@20160+10080 62@30240+10080");
        row("a tie over the separator", "c&,cd", "60@0+20160 62@20160+10080");
        row("octaves", "o9co0c<c>c>>>>>>>>c", "96@0+10080 24@10080+10080 24@20160+10080 36@30240+10080 96@40320+10080");
        row("alterations", "c+c#C-Aa", "61@0+10080 61@10080+10080 59@20160+10080 69@30240+10080 69@40320+10080");
        row("dots", "l8.cl8c.r4.&c", "60@0+7560 60@7560+7560 60@30240+5040");
        row("note numbers", "n60n128n&c&n61d", "60@0+10080 61@10080+10080 60@20160+10080 62@30240+10080");
        row("zeros are ignored", "l0c0r0c", "60@0+10080 60@20160+10080");
        row("comments", "c//d\ne/*f*xg/*ax/bc/d",
            "60@0+10080 64@10080+10080 67@20160+10080 71@30240+10080 60@40320+10080 62@50400+10080");
        row("tempos are shared", "ct150e,t150g,,",
            "60@0+10080 Q1512000@10080 64@10080+10080 | 67@0+10080 Q1512000@10080");
    }

    void readsMml()
    {
        QFETCH(QString, text);
        QStringList tracks;
        for (const auto &track : importMml(text, {}).tracks)
            tracks.append(describe(track));
        QTEST(tracks.join(QStringLiteral(" | ")), "tracks");
    }

    void mmlTempoAndUnit()
    {
        const auto fast = importMml(QStringLiteral("t150l8cc"), {}).tracks.first();
        QCOMPARE(fast.headerField(QStringLiteral("Q")), QStringLiteral("1/4=150"));
        QCOMPARE(fast.ticksPerMinute(), 1491840);
        QCOMPARE(fast.headerField(QStringLiteral("L")), QStringLiteral("1/8"));
        const auto plain = importMml(QStringLiteral("l8c&"), {false});
        QVERIFY(plain.tracks.isEmpty());
        QCOMPARE(plain.report.unterminated, 1);
        QCOMPARE(importMml(QStringLiteral("c"), {false}).tracks.first().headerField(QStringLiteral("Q")),
                 QStringLiteral("1/4=120"));
    }
};

QTEST_APPLESS_MAIN(TestTransformations)
#include "test_transformations.moc"
