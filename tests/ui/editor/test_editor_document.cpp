#include "core/AbcParser.h"
#include "support/DescribeTrack.h"
#include "ui/editor/EditorDocument.h"
#include "ui/editor/NoteEditPlan.h"

#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTextCursor>
#include <QtTest>

namespace {

constexpr Ticks unit = ticksPerQuarter;

QString tune(const QString &body, const QString &header = QStringLiteral("M: 4/4\n"))
{
    return QStringLiteral("X: 1\nL: 1/4\n") + header + QStringLiteral("K: C\n") + body;
}

void open(EditorDocument &document, const QString &text)
{
    Track track;
    track.setAbc(text);
    document.setTrack(track);
}

QString bodyOf(EditorDocument &document)
{
    return document.text()->toPlainText().mid(document.reading().layout.bodyOffset);
}

// The first note of the pitch.
int noteOf(const EditorDocument &document, quint32 pitch)
{
    const auto &events = document.track().events();
    for (int i = 0; i < events.size(); ++i) {
        if (events[i].isNote() && events[i].pitch() == pitch)
            return i;
    }
    return -1;
}

NoteEdit parseEdit(const EditorDocument &document, const QString &text)
{
    NoteEdit edit;
    for (const auto &step : text.split(u';')) {
        const auto words = step.split(u' ');
        const auto number = [&](int word) { return words[word].toInt(); };
        if (words[0] == u"insert")
            edit.inserted.append({number(1) * unit / 4, number(2) * unit / 4, words[3].toUInt()});
        else if (words[0] == u"remove")
            edit.removed.append(noteOf(document, words[1].toUInt()));
        else
            edit.changed.append(NoteEdit::Change{noteOf(document, words[1].toUInt()),
                                                 {number(2) * unit / 4, number(3) * unit / 4, words[4].toUInt()}});
    }
    return edit;
}

} // namespace

class TestEditorDocument : public QObject
{
    Q_OBJECT

private slots:
    void findsEveryProblem_data();
    void findsEveryProblem();
    void readsAroundProblems();
    void readsInTheBackground();
    void laysOutTime();
    void editsNotesInTheText_data();
    void editsNotesInTheText();
    void replacesWhatItCannotKeep();
    void undoesEditsOfBothViews();
    void keepsSelectionThroughEdits();
    void linksCaretAndNotes();
    void followsTypingBeforeItIsRead();
    void appliesOnlyWhatCanBeRead();
    void writesTuneFromNothing();
    void survivesRandomEdits();
};

void TestEditorDocument::findsEveryProblem_data()
{
    QTest::addColumn<QString>("body");
    QTest::addColumn<QStringList>("problems"); // "line:column+length"

    QTest::newRow("none") << QStringLiteral("CDEF|[CEG]2 z4|\n") << QStringList{};
    QTest::newRow("two characters") << QStringLiteral("C#D ?\n")
                                    << QStringList{QStringLiteral("4:1+1"), QStringLiteral("4:4+1")};
    QTest::newRow("on two lines") << QStringLiteral("C;\nD\n;E")
                                  << QStringList{QStringLiteral("4:1+1"), QStringLiteral("6:0+1")};
    QTest::newRow("empty chord") << QStringLiteral("C[]D") << QStringList{};
    QTest::newRow("chord of blanks") << QStringLiteral("C[ ]D") << QStringList{QStringLiteral("4:1+3")};
    QTest::newRow("open chord") << QStringLiteral("C[CEG\nD#")
                                << QStringList{QStringLiteral("4:1+1"), QStringLiteral("5:1+1")};
    QTest::newRow("open chord at a bar line")
        << QStringLiteral("[CE | #") << QStringList{QStringLiteral("4:0+1"), QStringLiteral("4:6+1")};
    QTest::newRow("open chord at the end") << QStringLiteral("C [") << QStringList{QStringLiteral("4:2+1")};
    QTest::newRow("decoration in a chord")
        << QStringLiteral("[C!f!E]#") << QStringList{QStringLiteral("4:2+3"), QStringLiteral("4:7+1")};
    QTest::newRow("huge number") << QStringLiteral("C99999999999 D#")
                                 << QStringList{QStringLiteral("4:0+12"), QStringLiteral("4:14+1")};
    QTest::newRow("huge tuplet") << QStringLiteral("(9999999999CDE") << QStringList{QStringLiteral("4:10+1")};
}

void TestEditorDocument::findsEveryProblem()
{
    QFETCH(QString, body);
    QFETCH(QStringList, problems);
    const auto text = tune(body);
    const auto reading = readAbc(text);
    QStringList found;
    for (const auto &problem : reading.problems)
        found += QStringLiteral("%1:%2+%3").arg(problem.line).arg(problem.column).arg(problem.range.length);

    // The reader that refuses a tune has the last word on whether it has a problem at all.
    bool isRefused = false;
    try {
        parseAbc(text);
    } catch (const QString &) {
        isRefused = true;
    }
    QCOMPARE(!found.isEmpty(), isRefused);
    QCOMPARE(found, problems);
}

void TestEditorDocument::readsAroundProblems()
{
    const auto reading = readAbc(QStringLiteral("X: 1\nwhat is this\nL: 1/4\nK: C\nC # [EG D\n"));
    QCOMPARE(reading.problems.size(), 3);
    QCOMPARE(reading.problems.first().line, 1);
    QCOMPARE(describe(reading.track), QStringLiteral("60@0+10080 64@10080+10080 67@20160+10080 62@30240+10080"));
}

void TestEditorDocument::readsInTheBackground()
{
    EditorDocument document;
    open(document, tune(QStringLiteral("C D\n")));
    QSignalSpy read(&document, &EditorDocument::readingChanged);
    QTextCursor(document.text()).insertText(QStringLiteral("%\n"));
    QVERIFY(!document.isCurrent());
    QVERIFY(read.isEmpty());
    QVERIFY(read.wait(3000));
    QVERIFY(document.isCurrent());
    QCOMPARE(document.textOf(0).offset, tune(QStringLiteral("C D\n")).indexOf(QStringLiteral("C D")) + 2);
}

// The layout's times are the reader's: every note's own element starts with it.
void TestEditorDocument::laysOutTime()
{
    const auto text = tune(
        QStringLiteral("c>d e<<f (3abc | [ceg]2 .c2 | C | Z2 | (3:2:3 c[ce]d [M:3/4] C2- | C {ab} c ^F ~F\nF4-|F|\n"));
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
    QCOMPARE(checked, 23);
}

void TestEditorDocument::editsNotesInTheText_data()
{
    QTest::addColumn<QString>("body");
    QTest::addColumn<QString>("edit"); // times in sixteenths
    QTest::addColumn<QString>("result");

    QTest::newRow("pitch") << QStringLiteral("C D % keep\nE|F\n") << QStringLiteral("change 62 4 4 63")
                           << QStringLiteral("C ^D % keep\nE|F\n");
    QTest::newRow("pitch keeps the rest of the note")
        << QStringLiteral("C .D3/2 E\n") << QStringLiteral("change 62 4 3 65") << QStringLiteral("C .F3/2 E\n");
    QTest::newRow("accidental that others leaned on")
        << QStringLiteral("^F G F|F\n") << QStringLiteral("change 66 0 4 67") << QStringLiteral("G G ^F|F\n");
    QTest::newRow("accidental that others would inherit")
        << QStringLiteral("F A F\n") << QStringLiteral("change 69 4 4 66") << QStringLiteral("F ^F =F\n");
    QTest::newRow("pitch in a chord") << QStringLiteral("[CEG]2\n") << QStringLiteral("change 64 0 8 63")
                                      << QStringLiteral("[C^DG]2\n");
    QTest::newRow("pitch in a tuplet") << QStringLiteral("(3CDE F\n") << QStringLiteral("change 65 8 4 67")
                                       << QStringLiteral("(3CDE G\n");
    QTest::newRow("remove") << QStringLiteral("C !f!D E | F\n") << QStringLiteral("remove 62")
                            << QStringLiteral("C !f!z E | F\n");
    QTest::newRow("remove the last") << QStringLiteral("C D\n") << QStringLiteral("remove 62") << QStringLiteral("C\n");
    QTest::newRow("remove from a chord") << QStringLiteral("C [DFA] E\n") << QStringLiteral("remove 65")
                                         << QStringLiteral("C [DA] E\n");
    QTest::newRow("longer over a rest") << QStringLiteral("C D z2 | E\n") << QStringLiteral("change 62 4 8 62")
                                        << QStringLiteral("C D2 z | E\n");
    QTest::newRow("shorter") << QStringLiteral("C D2 E\n") << QStringLiteral("change 62 4 4 62")
                             << QStringLiteral("C D z E\n");
    QTest::newRow("longer over a note") << QStringLiteral("C D E F|\n") << QStringLiteral("change 60 0 8 60")
                                        << QStringLiteral("[zC2] D E F|\n");
    QTest::newRow("over a bar line") << QStringLiteral("C D E F| G\n") << QStringLiteral("change 65 12 8 65")
                                     << QStringLiteral("C D E [zF2]| G\n");
    QTest::newRow("into a rest") << QStringLiteral("C z4 D\n") << QStringLiteral("insert 8 4 64")
                                 << QStringLiteral("C z E z2 D\n");
    QTest::newRow("into a chord") << QStringLiteral("C D\n") << QStringLiteral("insert 4 4 65")
                                  << QStringLiteral("C [DF]\n");
    QTest::newRow("at the end") << QStringLiteral("C D|\n") << QStringLiteral("insert 16 4 64")
                                << QStringLiteral("C D|\nE\n");
    QTest::newRow("behind the end") << QStringLiteral("C D\n") << QStringLiteral("insert 12 4 64")
                                    << QStringLiteral("C D z E\n");
    QTest::newRow("behind a comment") << QStringLiteral("C D % end") << QStringLiteral("insert 8 4 64")
                                      << QStringLiteral("C D % end\nE");
    QTest::newRow("where a bar was not full")
        << QStringLiteral("C D|E\n") << QStringLiteral("insert 12 4 64") << QStringLiteral("C D z E |E\n");
    QTest::newRow("move") << QStringLiteral("C D z2|\n") << QStringLiteral("change 60 8 4 60")
                          << QStringLiteral("z D C z|\n");
    QTest::newRow("tied note") << QStringLiteral("C4-|C2 D2\n") << QStringLiteral("change 60 0 16 60")
                               << QStringLiteral("C4|z2 D2\n");
    QTest::newRow("out of a tuplet") << QStringLiteral("(3CDE F\n") << QStringLiteral("remove 64")
                                     << QStringLiteral("C2/3 D2/3 z2/3 F\n");
    QTest::newRow("batch") << QStringLiteral("C D E F\n") << QStringLiteral("remove 60;change 62 4 4 67;insert 12 4 69")
                           << QStringLiteral("z G E [FA]\n");
    QTest::newRow("line breaks") << QStringLiteral("C4\n") << QStringLiteral("insert 16 4 64")
                                 << QStringLiteral("C4\nE\n");
}

void TestEditorDocument::editsNotesInTheText()
{
    QFETCH(QString, body);
    QFETCH(QString, edit);
    QFETCH(QString, result);
    EditorDocument document;
    open(document, tune(body));
    const auto parsed = parseEdit(document, edit);
    const auto expected = NoteEditPlan::editedTrack(document.track(), NoteEditPlan::cleaned(document.track(), parsed));
    QVERIFY(document.edit(parsed, QStringLiteral("Edit")));
    QCOMPARE(bodyOf(document), result);
    QVERIFY(NoteEditPlan::haveSameEvents(parseAbc(document.text()->toPlainText()), expected));
    QCOMPARE(document.undoName(), QStringLiteral("Edit"));
    document.undo();
    QCOMPARE(bodyOf(document), body);
}

// A multi-measure rest holds its measures together; there the tune is written anew.
void TestEditorDocument::replacesWhatItCannotKeep()
{
    EditorDocument document;
    open(document, tune(QStringLiteral("Z4 | C\n")));
    QVERIFY(document.insertNotes({{unit, unit, 64}}, QStringLiteral("Draw Note")));
    QCOMPARE(describe(document.track()), QStringLiteral("64@10080+10080 60@161280+10080"));
    QVERIFY(!document.hasErrors());
    document.undo();
    QCOMPARE(bodyOf(document), QStringLiteral("Z4 | C\n"));
}

void TestEditorDocument::undoesEditsOfBothViews()
{
    EditorDocument document;
    const auto start = tune(QStringLiteral("C D E\n"));
    open(document, start);
    QTextCursor cursor(document.text());
    cursor.movePosition(QTextCursor::End);
    cursor.insertText(QStringLiteral("F"));
    document.removeNotes({noteOf(document, 62)}, QStringLiteral("Delete Note"));
    cursor.movePosition(QTextCursor::End);
    cursor.insertText(QStringLiteral("G"));
    document.insertNotes({{0, unit, 72}}, QStringLiteral("Draw Note"));
    const auto end = document.text()->toPlainText();
    QCOMPARE(bodyOf(document), QStringLiteral("[Cc] z E\nFG"));
    int steps = 0;
    for (; document.canUndo(); ++steps)
        document.undo();
    QCOMPARE(steps, 4);
    QCOMPARE(document.text()->toPlainText(), start);
    QVERIFY(document.isApplied());
    while (document.canRedo())
        document.redo();
    QCOMPARE(document.text()->toPlainText(), end);
    QVERIFY(document.isCurrent());
}

void TestEditorDocument::keepsSelectionThroughEdits()
{
    EditorDocument document;
    open(document, tune(QStringLiteral("C D E F\n")));
    document.selectNotes({3, 1, 1, 99, -1});
    QCOMPARE(document.selectedNotes(), (QVector<int>{1, 3}));
    QTextCursor(document.text()).insertText(QStringLiteral("T: New\n"));
    document.update();
    QCOMPARE(document.selectedNotes(), (QVector<int>{1, 3}));
    document.edit(parseEdit(document, QStringLiteral("change 62 4 4 60;remove 60")), QStringLiteral("Edit"));
    QCOMPARE(document.selectedNotes(), (QVector<int>{0}));
    QCOMPARE(document.track().events()[0].pitch(), 60U);
}

void TestEditorDocument::linksCaretAndNotes()
{
    EditorDocument document;
    const auto text = tune(QStringLiteral("CD [EG]2 z A|\n"));
    open(document, text);
    const auto body = document.reading().layout.bodyOffset;
    const auto caretAt = [&](int column) {
        document.setCaret(body + column, {body + column, 0});
        return QStringLiteral("%1@%2").arg(document.caretNote()).arg(document.caretTick() / unit);
    };
    QCOMPARE(caretAt(0), QStringLiteral("0@0"));
    QCOMPARE(caretAt(1), QStringLiteral("1@1"));
    QCOMPARE(caretAt(2), QStringLiteral("1@1"));
    QCOMPARE(caretAt(3), QStringLiteral("-1@2"));
    QCOMPARE(caretAt(5), QStringLiteral("3@2"));
    QCOMPARE(caretAt(9), QStringLiteral("-1@4"));
    QCOMPARE(caretAt(13), QStringLiteral("-1@6"));
    document.setCaret(body + 12, {body, 6});
    QCOMPARE(document.selectedNotes(), (QVector<int>{0, 1, 2, 3}));

    QSignalSpy moves(&document, &EditorDocument::caretMoveRequested);
    for (const auto tick : {Ticks(0), 2 * unit, 4 * unit, 5 * unit})
        document.setCaretTick(tick);
    QCOMPARE(moves.size(), 4);
    QCOMPARE(moves[1].first().toInt(), body + 3);
    QCOMPARE(moves[2].first().toInt(), body + 9);
}

void TestEditorDocument::followsTypingBeforeItIsRead()
{
    EditorDocument document;
    open(document, tune(QStringLiteral("C D E\n")));
    const auto body = document.reading().layout.bodyOffset;
    QTextCursor cursor(document.text());
    cursor.setPosition(body + 2);
    cursor.insertText(QStringLiteral("zzz "));
    QCOMPARE(document.textOf(0).offset, body);
    QCOMPARE(document.textOf(1).offset, body + 6);
    QCOMPARE(document.noteAt(body + 6), 1);
    cursor.setPosition(body + 8);
    cursor.setPosition(body + 9, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    QVERIFY(document.textOf(2).isEmpty());
}

void TestEditorDocument::appliesOnlyWhatCanBeRead()
{
    EditorDocument document;
    open(document, tune(QStringLiteral("C D\n")));
    QSignalSpy applied(&document, &EditorDocument::applied);
    QSignalSpy state(&document, &EditorDocument::isAppliedChanged);
    QTextCursor(document.text()).insertText(QStringLiteral("?"));
    QVERIFY(!document.isApplied());
    QString error;
    QVERIFY(!document.apply(&error));
    QVERIFY(error.contains(QStringLiteral("line 1")));
    QVERIFY(applied.isEmpty());
    document.undo();
    QVERIFY(document.isApplied());
    document.insertNotes({{2 * unit, unit, 64}}, QStringLiteral("Draw Note"));
    QVERIFY(document.apply());
    QCOMPARE(applied.size(), 1);
    QCOMPARE(applied.first().first().value<Track>().events().size(), 3);
    QCOMPARE(state.size(), 4);
}

void TestEditorDocument::writesTuneFromNothing()
{
    EditorDocument document;
    document.setTrack({});
    for (int i = 0; i < 8; ++i)
        QVERIFY(document.insertNotes({{i * unit, unit, quint32(60 + i)}}, QStringLiteral("Draw Note")));
    QCOMPARE(bodyOf(document), QStringLiteral("C ^C D ^D\nE F ^F G\n").trimmed());
    QCOMPARE(document.track().events().size(), 8);
    QVERIFY(document.apply());
}

void TestEditorDocument::survivesRandomEdits()
{
    QRandomGenerator random(7);
    EditorDocument document;
    const auto start = tune(
        QStringLiteral("c>d e<<f (3abc | [ceg]2 .c2 | ^C | Z2 | (3:2:3 c[ce]d [M:3/4] C2- | C {ab} c ^F ~F\nF4-|F|\n"));
    open(document, start);
    for (int i = 0; i < 300; ++i) {
        NoteEdit edit;
        const auto &events = document.track().events();
        const NoteSpec note{random.bounded(60) * unit / 4, (1 + random.bounded(6)) * unit / 4,
                            50 + quint32(random.bounded(40))};
        const auto some = events.isEmpty() ? 0 : random.bounded(int(events.size()));
        const int kind = random.bounded(4);
        if (kind == 0)
            edit.inserted.append(note);
        else if (kind == 1)
            edit.removed.append(some);
        else if (kind == 2)
            edit.changed.append({some, note});
        else if (!events.isEmpty())
            edit.changed.append(NoteEdit::Change{some, {events[some].start(), events[some].length(), note.pitch}});
        const auto wanted = NoteEditPlan::editedTrack(document.track(), NoteEditPlan::cleaned(document.track(), edit));
        if (document.edit(edit, QStringLiteral("Edit")))
            QVERIFY(NoteEditPlan::haveSameEvents(parseAbc(document.text()->toPlainText()), wanted));
    }
    while (document.canUndo())
        document.undo();
    QCOMPARE(document.text()->toPlainText(), start);
}

QTEST_MAIN(TestEditorDocument)
#include "test_editor_document.moc"
