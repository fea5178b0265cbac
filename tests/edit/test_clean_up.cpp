#include "edit/notes/NoteCleanUp.h"
#include "edit/notes/NoteEdits.h"
#include "edit/plan/MeasureChange.h"
#include "edit/plan/NoteEditPlan.h"
#include "support/Rows.h"

#include <functional>
#include <map>

namespace {

const QString header = QStringLiteral("X: 1\nL: 1/4\nM: 4/4\nK: C\n");
constexpr auto unit = ticksPerQuarter;

Ticks nearestQuarter(Ticks tick)
{
    return (tick + unit / 2) / unit * unit;
}

const std::map<QString, std::function<NoteEdit(const Track &, const QVector<int> &)>> commands{
    {QStringLiteral("split"),
     [](const Track &track, const QVector<int> &notes) { return NoteCleanUp::split(track, notes, unit); }},
    {QStringLiteral("join"), NoteCleanUp::join},
    {QStringLiteral("legato"), NoteCleanUp::legato},
    {QStringLiteral("double"),
     [](const Track &track, const QVector<int> &notes) { return NoteCleanUp::scaleLengths(track, notes, 2, 1); }},
    {QStringLiteral("halve"),
     [](const Track &track, const QVector<int> &notes) { return NoteCleanUp::scaleLengths(track, notes, 1, 2); }},
    {QStringLiteral("quantise"),
     [](const Track &track, const QVector<int> &notes) {
         return NoteCleanUp::quantise(track, notes, nearestQuarter, unit, 100);
     }},
    {QStringLiteral("half way"),
     [](const Track &track, const QVector<int> &notes) {
         return NoteCleanUp::quantise(track, notes, nearestQuarter, unit, 50);
     }},
    {QStringLiteral("measure later"),
     [](const Track &track, const QVector<int> &notes) {
         auto later = track;
         for (auto &event : later.editEvents())
             event.setStart(event.start() + 4 * unit);
         return NoteEdits::between(track, later, notes);
     }},
    {QStringLiteral("octave up"),
     [](const Track &track, const QVector<int> &notes) { return NoteEdits::transposition(track, notes, 12); }},
};

QString numbers(const QVector<int> &notes)
{
    QStringList texts;
    for (const auto note : notes)
        texts += QString::number(note);
    return texts.join(u' ');
}

} // namespace

// What commands make of many notes at once, as text.
class TestCleanUp : public QObject
{
    Q_OBJECT

private slots:
    void changesNotes_data()
    {
        const Rows<QString, QString, QVector<int>, QString> row("body", "command", "notes", "result");
        row("split", "C2 D % keep\n", "split", {0, 1}, "C C D % keep\n");
        row("split what is tied", "z/ C/-C D\n", "split", {0, 1}, "z/ C/C D\n");
        row("join", "C C D|C E\n", "join", {0, 1, 2}, "C2 D|C E\n");
        row("join over a rest", "C z C D\n", "join", {0, 1}, "C3 D\n");
        row("legato", "C z \"Am\"D z/ E/ F|\n", "legato", {0, 1, 2}, "C2 \"Am\"D3/ E/ F|\n");
        row("legato shortens", "[zC2] D E|\n", "legato", {0, 1}, "C D E|\n");
        row("double", "C z D z|\n", "double", {0, 1}, "C2 D2|\n");
        row("halve", "C2 D E|\n", "halve", {0, 1}, "C z D/ z/ E|\n");
        row("quantise", "C17/16 D15/16 E9/8 z7/8|\n", "quantise", {0, 1, 2}, "C D E z|\n");
        row("half way", "C9/8 D7/8 E|\n", "half way", {0, 1}, "C17/16 D15/16 E|\n");
        row("measure later", "C z D E|z4|z z z z|\n", "measure later", {1, 2}, "C z3|z2 D E|z z z z|\n");
        row("octave up", "C !f!^F|G\n", "octave up", {}, "c !f!^f|g\n");
    }

    void changesNotes()
    {
        QFETCH(QString, body);
        QFETCH(QString, command);
        QFETCH(QVector<int>, notes);
        const auto text = header + body;
        const auto reading = readAbc(text);
        const auto plan = NoteEditPlan::plan(text, reading, commands.at(command)(reading.track, notes));
        QVERIFY(plan && !plan->rewritesAll);
        QTEST(applyChanges(text, plan->changes).mid(header.size()), "result");
    }

    void selectsNotes()
    {
        const auto track = readAbc(header + QStringLiteral("C E G C D B\n")).track;
        QCOMPARE(numbers(NoteCleanUp::inverted(track, {0, 2})), QStringLiteral("1 3 4 5"));
        QCOMPARE(numbers(NoteCleanUp::ofSamePitch(track, {3})), QStringLiteral("0 3"));
        QCOMPARE(numbers(NoteCleanUp::betweenTheirPitches(track, {1, 4})), QStringLiteral("1 4"));
        QVERIFY(NoteCleanUp::betweenTheirPitches(track, {}).isEmpty());
    }

    void movesMeasures_data()
    {
        const Rows<QString, int, int, QString> row("body", "from", "to", "result"); // in quarters
        row("insert", "C4|\nM:3/4\nD3|\n", 4, -4, "C4| z4 |\nM:3/4\nD3|\n");
        row("insert at the start", "\"C\"C4|D4|\n", 0, -4, "z4 |\n\"C\"C4|D4|\n");
        row("insert behind the first fields", "M:3/4\nC3|D3|\n", 0, -3, "M:3/4\nz3 |\nC3|D3|\n");
        row("insert through a tie", "C4-|C4|\n", 4, -4, "C4| z4 |C4|\n");
        row("insert through a chord's tie", "[C4E4]-|[C4E4]|\n", 4, -4, "[C4E4]| z4 |[C4E4]|\n");
        row("insert behind a key", "C4 [K:G]|F4|\n", 4, -4, "C4 [K:G]| z4 |F4|\n");
        row("insert where notes overlap", "C4 D2|E4|F4\n", 4, -4, "C4 D2| z4 |E4|F4\n");
        row("insert into a rest of measures", "C4|Z3|D4|\n", 8, -4, "C4|Z4|D4|\n");
        row("insert without bar lines", "C4 D4\nE4\n", 8, -4, "C4 D4 z4\nE4\n");
        row("insert into a tuplet", "C2 (3CD|E2 z2|\n", 4, -4, "");
        row("delete", "C4|\"G\"D4|E4|\n", 4, 8, "C4|E4|\n");
        row("delete with fields", "C4|\nK:G\nF4|\nQ:1/4=90\nF4|[K:D]F4|C4\n", 4, 12,
            "C4|\nK:G\nQ:1/4=90\n[K:D]F4|C4\n");
        row("delete and leave what is no music", "C4|\nw: la\nP:B\nD4| % why\nE4|\n", 4, 8,
            "C4|\nw: la\nP:B\n% why\nE4|\n");
        row("delete a line", "C4|\\\nD4|\nE4|\n", 4, 8, "C4|\nE4|\n");
        row("delete before a repeat sign", "C4|D4:|E4|\n", 4, 8, "C4:|E4|\n");
        row("delete before a repeat sign behind a field", "C4|D4|\nK:G\n|:E4|\n", 8, 12, "C4|D4\nK:G\n|:E4|\n");
        row("delete between ties", "C4-|C4-|C4|\n", 4, 8, "C4-|C4|\n");
        row("delete what was tied to", "C4-|C4|C4|\n", 4, 8, "C4|C4|\n");
        row("delete half of a slur", "C4|(D2 E2|F2) G2|\n", 4, 8, "C4|F2 G2|\n");
        row("delete of a rest of measures", "C4|Z3|D4|\n", 4, 8, "C4|Z2|D4|\n");
        row("delete the last", "C4|D4\n", 4, 8, "C4|\n");
        row("delete what notes overlap", "C3 D2|E3|F4|\n", 4, 8, "C3 D2|F4|\n");
        row("delete without bar lines", "C4 D4\nE4\n", 4, 8, "C4\nE4\n");
        row("delete under a long note", "C4 D6\nE4\n", 4, 8, "C4 D2\nE4\n");
        row("delete nothing", "C4|D4||\n", 12, 16, "");
    }

    void movesMeasures()
    {
        QFETCH(QString, body);
        QFETCH(int, from);
        QFETCH(int, to);
        const auto text = header + body;
        const auto reading = readAbc(text);
        const auto result = to < 0 ? MeasureChange::inserted(text, reading, from * unit, -to * unit)
                                   : MeasureChange::removed(text, reading, from * unit, to * unit);
        QTEST(result.text.mid(header.size()), "result");
    }
};

QTEST_APPLESS_MAIN(TestCleanUp)
#include "test_clean_up.moc"
