#include "core/AbcParser.h"
#include "edit/NoteEditPlan.h"
#include "edit/NoteLookup.h"
#include "support/DescribeTrack.h"
#include "support/Rows.h"
#include "support/Thrown.h"
#include "ui/document/EditorDocument.h"

#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTextCursor>

namespace {

constexpr Ticks unit = ticksPerQuarter;

QString tune(const Text &body)
{
    return QStringLiteral("X: 1\nL: 1/4\nM: 4/4\nK: C\n") + body;
}

struct Document : EditorDocument
{
    // Of notes in quarters.
    explicit Document(const Text &body)
    {
        Track track;
        track.setAbc(tune(body));
        setTrack(track);
    }

    QString plainText() { return text()->toPlainText(); }
    int bodyOffset() const { return reading().layout.bodyOffset; }
    QString body() { return plainText().mid(bodyOffset()); }
    void type(const Text &typed, int position = 0)
    {
        QTextCursor cursor(text());
        cursor.setPosition(position);
        cursor.insertText(typed);
    }

    // The first note of the pitch.
    int noteOf(quint32 pitch) const
    {
        const auto &events = track().events();
        const auto found = std::find_if(events.begin(), events.end(), [pitch](const TrackEvent &event) {
            return event.isNote() && event.pitch() == pitch;
        });
        return found == events.end() ? -1 : int(found - events.begin());
    }

    NoteEdit parseEdit(const Text &steps) const
    {
        NoteEdit edit;
        for (const auto &step : steps.split(u';')) {
            const auto words = step.split(u' ');
            const auto number = [&](int word) { return words[word].toInt(); };
            if (words[0] == u"insert")
                edit.inserted.append({number(1) * unit / 4, number(2) * unit / 4, words[3].toUInt()});
            else if (words[0] == u"remove")
                edit.removed.append(noteOf(words[1].toUInt()));
            else
                edit.changed.append(NoteEdit::Change{noteOf(words[1].toUInt()),
                                                     {number(2) * unit / 4, number(3) * unit / 4, words[4].toUInt()}});
        }
        return edit;
    }

    // Whether it was done, and the text means what the edit makes of the track.
    bool editsRightly(const NoteEdit &wanted)
    {
        const auto expected = NoteEditPlan::editedTrack(track(), NoteEditPlan::cleaned(track(), wanted));
        return edit(wanted, QStringLiteral("Edit")) && NoteEditPlan::haveSameEvents(parseAbc(plainText()), expected);
    }
};

} // namespace

class TestEditorDocument : public QObject
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
        QCOMPARE(describe(reading.track), QStringLiteral("60@0+10080 64@10080+10080 67@20160+10080 62@30240+10080"));
    }

    // Only because each start is looked through once does this come to an end.
    void findsTheNotesOfGiantChords()
    {
        Track track;
        QVector<NoteSpec> notes;
        for (Ticks length = 300'000; length > 0; --length) {
            notes.append({ticksPerQuarter, length, 60 + quint32(length) % 2});
            track.appendEvent(TrackEvent::note(notes.last().pitch, ticksPerQuarter, length));
        }
        track.normalize();
        notes.append(notes.first());
        notes.append({ticksPerQuarter, 1, 60});
        const auto found = findNotes(track, notes);
        QCOMPARE(found.size(), 300'000);
        QCOMPARE(found.last(), 299'999);
        const auto first = firstNotesLike(track, notes);
        QCOMPARE(first.size(), notes.size());
        QVERIFY(first.first() == (NoteSpec{ticksPerQuarter, 2, 60}));
        QVERIFY(first[1] == (NoteSpec{ticksPerQuarter, 1, 61}));
    }

    void readsInTheBackground()
    {
        Document document("C D\n");
        QSignalSpy read(&document, &EditorDocument::readingChanged);
        document.type("%\n");
        QVERIFY(!document.isCurrent());
        QVERIFY(read.isEmpty());
        QVERIFY(read.wait(3000));
        QVERIFY(document.isCurrent());
        QCOMPARE(document.textOf(0).offset, tune(QStringLiteral("C D\n")).indexOf(QStringLiteral("C D")) + 2);
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
    }

    void editsNotesInTheText_data()
    {
        // edit: times in sixteenths
        const Rows<QString, QString, QString> row("body", "edit", "result");

        row("pitch", "C D % keep\nE|F\n", "change 62 4 4 63", "C ^D % keep\nE|F\n");
        row("pitch keeps the rest of the note", "C .D3/2 E\n", "change 62 4 3 65", "C .F3/2 E\n");
        row("accidental that others leaned on", "^F G F|F\n", "change 66 0 4 67", "G G ^F|F\n");
        row("accidental that others would inherit", "F A F\n", "change 69 4 4 66", "F ^F =F\n");
        row("pitch in a chord", "[CEG]2\n", "change 64 0 8 63", "[C^DG]2\n");
        row("pitch in a tuplet", "(3CDE F\n", "change 65 8 4 67", "(3CDE G\n");
        row("remove", "C !f!D E | F\n", "remove 62", "C !f!z E | F\n");
        row("remove the last", "C D\n", "remove 62", "C\n");
        row("remove from a chord", "C [DFA] E\n", "remove 65", "C [DA] E\n");
        row("longer over a rest", "C D z2 | E\n", "change 62 4 8 62", "C D2 z | E\n");
        row("shorter", "C D2 E\n", "change 62 4 4 62", "C D z E\n");
        row("longer over a note", "C D E F|\n", "change 60 0 8 60", "[zC2] D E F|\n");
        row("over a bar line", "C D E F| G\n", "change 65 12 8 65", "C D E [zF2]| G\n");
        row("into a rest", "C z4 D\n", "insert 8 4 64", "C z E z2 D\n");
        row("into a chord", "C D\n", "insert 4 4 65", "C [DF]\n");
        row("at the end", "C D|\n", "insert 16 4 64", "C D|\nE\n");
        row("behind the end", "C D\n", "insert 12 4 64", "C D z E\n");
        row("behind a comment", "C D % end", "insert 8 4 64", "C D % end\nE");
        row("where a bar was not full", "C D|E\n", "insert 12 4 64", "C D z E |E\n");
        row("move", "C D z2|\n", "change 60 8 4 60", "z D C z|\n");
        row("tied note", "C4-|C2 D2\n", "change 60 0 16 60", "C4|z2 D2\n");
        row("out of a tuplet", "(3CDE F\n", "remove 64", "C2/3 D2/3 z2/3 F\n");
        row("batch", "C D E F\n", "remove 60;change 62 4 4 67;insert 12 4 69", "z G E [FA]\n");
        row("line breaks", "C4\n", "insert 16 4 64", "C4\nE\n");
    }

    void editsNotesInTheText()
    {
        QFETCH(QString, body);
        QFETCH(QString, edit);
        QFETCH(QString, result);
        Document document(body);
        QVERIFY(document.editsRightly(document.parseEdit(edit)));
        QCOMPARE(document.body(), result);
        QCOMPARE(document.undoName(), QStringLiteral("Edit"));
        document.undo();
        QCOMPARE(document.body(), body);
    }

    // A multi-measure rest holds its measures together; there the tune is written anew.
    void replacesWhatItCannotKeep()
    {
        Document document("Z4 | C\n");
        QVERIFY(document.insertNotes({{unit, unit, 64}}, QStringLiteral("Draw Note")));
        QCOMPARE(describe(document.track()), QStringLiteral("64@10080+10080 60@161280+10080"));
        QVERIFY(!document.hasErrors());
        document.undo();
        QCOMPARE(document.body(), QStringLiteral("Z4 | C\n"));
    }

    void undoesEditsOfBothViews()
    {
        Document document("C D E\n");
        const auto start = document.plainText();
        document.type("F", start.size());
        document.removeNotes({document.noteOf(62)}, QStringLiteral("Delete Note"));
        document.type("G", document.plainText().size());
        document.insertNotes({{0, unit, 72}}, QStringLiteral("Draw Note"));
        const auto end = document.plainText();
        QCOMPARE(document.body(), QStringLiteral("[Cc] z E\nFG"));
        int steps = 0;
        for (; document.canUndo(); ++steps)
            document.undo();
        QCOMPARE(steps, 4);
        QCOMPARE(document.plainText(), start);
        QVERIFY(document.isApplied());
        while (document.canRedo())
            document.redo();
        QCOMPARE(document.plainText(), end);
        QVERIFY(document.isCurrent());
    }

    void keepsSelectionThroughEdits()
    {
        Document document("C D E F\n");
        document.selectNotes({3, 1, 1, 99, -1});
        QCOMPARE(document.selectedNotes(), (QVector<int>{1, 3}));
        document.type("T: New\n");
        document.update();
        QCOMPARE(document.selectedNotes(), (QVector<int>{1, 3}));
        document.edit(document.parseEdit("change 62 4 4 60;remove 60"), QStringLiteral("Edit"));
        QCOMPARE(document.selectedNotes(), (QVector<int>{0}));
        QCOMPARE(document.track().events()[0].pitch(), 60U);
    }

    void linksCaretAndNotes()
    {
        Document document("CD [EG]2 z A|\n");
        const auto body = document.bodyOffset();
        QStringList found;
        for (const int column : {0, 1, 2, 3, 5, 9, 13}) {
            document.setCaret(body + column, {body + column, 0});
            found += QStringLiteral("%1@%2").arg(document.caret().note).arg(document.caret().tick / unit);
        }
        QCOMPARE(found.join(u' '), QStringLiteral("0@0 1@1 1@1 -1@2 3@2 -1@4 -1@6"));
        document.setCaret(body + 12, {body, 6});
        QCOMPARE(document.selectedNotes(), (QVector<int>{0, 1, 2, 3}));

        QSignalSpy moves(&document, &EditorDocument::caretMoveRequested);
        for (const auto tick : {Ticks(0), 2 * unit, 4 * unit, 5 * unit})
            document.setCaretTick(tick);
        QCOMPARE(moves.size(), 4);
        QCOMPARE(moves[1].first().toInt(), body + 3);
        QCOMPARE(moves[2].first().toInt(), body + 9);
    }

    void followsTypingBeforeItIsRead()
    {
        Document document("C D E\n");
        const auto body = document.bodyOffset();
        document.type("zzz ", body + 2);
        QCOMPARE(document.textOf(0).offset, body);
        QCOMPARE(document.textOf(1).offset, body + 6);
        QCOMPARE(document.noteAt(body + 6), 1);
        QTextCursor cursor(document.text());
        cursor.setPosition(body + 8);
        cursor.setPosition(body + 9, QTextCursor::KeepAnchor);
        cursor.removeSelectedText();
        QVERIFY(document.textOf(2).isEmpty());
    }

    void appliesOnlyWhatCanBeRead()
    {
        Document document("C D\n");
        QSignalSpy applied(&document, &EditorDocument::applied);
        QSignalSpy state(&document, &EditorDocument::isAppliedChanged);
        document.type("?");
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

    void writesTuneFromNothing()
    {
        Document document("");
        document.setTrack({});
        for (int i = 0; i < 8; ++i)
            QVERIFY(document.insertNotes({{i * unit, unit, quint32(60 + i)}}, QStringLiteral("Draw Note")));
        QCOMPARE(document.body(), QStringLiteral("C ^C D ^D\nE F ^F G\n").trimmed());
        QCOMPARE(document.track().events().size(), 8);
        QVERIFY(document.apply());
    }

    void survivesRandomEdits()
    {
        QRandomGenerator random(7);
        Document document(
            "c>d e<<f (3abc | [ceg]2 .c2 | ^C | Z2 | (3:2:3 c[ce]d [M:3/4] C2- | C {ab} c ^F ~F\nF4-|F|\n");
        const auto start = document.plainText();
        for (int i = 0; i < 300; ++i) {
            NoteEdit edit;
            const auto before = document.plainText();
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
            QVERIFY(document.editsRightly(edit) || document.plainText() == before);
        }
        while (document.canUndo())
            document.undo();
        QCOMPARE(document.plainText(), start);
    }
};

QTEST_MAIN(TestEditorDocument)
#include "test_editor_document.moc"
