#include "core/AbcParser.h"
#include "edit/AbcReading.h"
#include "support/DescribeTrack.h"
#include "support/Rows.h"
#include "support/Thrown.h"

namespace {

QString tune(const Text &body)
{
    return QStringLiteral("X: 1\nL: 1/4\nM: 4/4\nK: C\n") + body;
}

} // namespace

class TestAbcReading : public QObject
{
    Q_OBJECT

private slots:
    void findsEveryProblem_data()
    {
        // problems: "line:column+length"
        const Rows<QString, QString> row("body", "problems");
        row("none", "CDEF|[CEG]2 z4|\n", "");
        row("two characters", "C#D ?\n", "4:1+1 4:4+1");
        row("on two lines", "C;\nD\n;E", "4:1+1 6:0+1");
        row("empty chord", "C[]D", "");
        row("chord of blanks", "C[ ]D", "4:1+3");
        row("open chord", "C[CEG\nD#", "4:1+1 5:1+1");
        row("open chord at a bar line", "[CE | #", "4:0+1 4:6+1");
        row("open chord at the end", "C [", "4:2+1");
        row("decoration in a chord", "[C!f!E]#", "4:2+3 4:7+1");
        row("huge number", "C99999999999 D#", "4:0+12 4:14+1");
        row("grace notes hold what they like", "{[C99999999999 |}D#", "4:18+1");
        row("giant chord", u'[' + QString(10'001, u'c') + QStringLiteral("d]\nC#"), "4:10001+1 4:10002+1 5:1+1");
        row("huge tuplet", "(9999999999CDE", "4:10+1");
    }

    void findsEveryProblem()
    {
        QFETCH(QString, body);
        const auto text = tune(body);
        const auto reading = readAbc(text);
        QStringList found;
        for (const auto &problem : reading.problems)
            found += QStringLiteral("%1:%2+%3").arg(problem.line).arg(problem.column).arg(problem.range.length);

        // The reader that refuses a tune has the last word on whether it has a problem at all.
        QCOMPARE(found.isEmpty(), thrownBy([&] { parseAbc(text); }) == u"nothing");
        QTEST(found.join(u' '), "problems");
    }

    void readsAroundProblems()
    {
        const auto reading = readAbc(QStringLiteral("X: 1\nwhat is this\nL: 1/4\nK: C\nC # [EG D\n"));
        QCOMPARE(reading.problems.size(), 3);
        QCOMPARE(reading.problems.first().line, 1);
        QCOMPARE(reading.problems.first().range.length, 12); // the whole line
        QCOMPARE(readAbc(QStringLiteral("X:1\nno end")).problems.first().range.length, 6);
        QCOMPARE(readAbc(QStringLiteral("X:1\nK:C\n") + QString(3000, u'?')).problems.size(), AbcReading::maxProblems);
        QVERIFY(unreadableAbc(QStringLiteral("why")).problems.first().message == u"why");
        QCOMPARE(describe(reading.track), QStringLiteral("60@0+10080 64@10080+10080 67@20160+10080 62@30240+10080"));
    }

    // The layout's times are the reader's: every note's own element starts with it.
    void laysOutTime()
    {
        const auto text = tune(QStringLiteral("c>d e<<f (3abc | [ceg]2 .c2 | C | Z2 | (3:2:3 c[ce]d [M:3/4] C2- | C "
                                              "{ab} c ^F ~F\nF4-|F (11:2:11 [ce]3 d|\n"));
        const auto reading = readAbc(text);
        QVERIFY(reading.problems.isEmpty());
        int checked = 0;
        for (int i = 0; i < reading.track.events().size(); ++i) {
            if (!reading.track.events()[i].isNote())
                continue;
            const auto element = reading.layout.elementAt(reading.noteTexts[i].offset);
            QCOMPARE(reading.layout.elements[element].start, reading.track.events()[i].start());
            ++checked;
        }
        QCOMPARE(checked, 26);
        const auto &layout = reading.layout;
        for (int i = 0; i < layout.elements.size(); ++i) { // bar lines take time back: the last one counts
            const auto found = layout.elementAtTick(layout.elements[i].start);
            QVERIFY(found >= i || layout.elements[i].advance == 0);
            QVERIFY(layout.elements[found].start <= layout.elements[i].start);
            QVERIFY(layout.elements[i].start < layout.elements[found].end() || layout.elements[i].advance == 0);
        }
        QCOMPARE(layout.elementAtTick(maxTicks), int(layout.elements.size()) - 1);
        QCOMPARE(readAbc(QString()).layout.elementAtTick(0), -1);
    }
};

QTEST_APPLESS_MAIN(TestAbcReading)
#include "test_abc_reading.moc"
