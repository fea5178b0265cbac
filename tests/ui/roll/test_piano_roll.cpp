#include "RollFixture.h"
#include "support/Rows.h"
#include "ui/roll/RollKeyboard.h"

#include <QTextCursor>

class TestPianoRoll : public QObject
{
    Q_OBJECT

private slots:
    void edits_data()
    {
        const Rows<QString, QString, QString, int> row("body", "steps", "result", "undoSteps");
        row("later", "CDE", "1.5:62 Right Right", "0+1:60 2+1:64 3+1:62* @1:62", 1);
        row("later through others", "CCCC", "0.5:60 Right Right", "1+1:60 2+1:60* 3+1:60 @0:60", 1);
        row("up through a chord", "[CEG]4", "1:60 Up Up Up Up Up", "0+4:64 0+4:65* 0+4:67 @0:65", 1);
        row("earlier stops at the start", "CE2", "1.5:64 Left Left Left", "0+1:60 0+2:64* @1:64", 1);
        row("up and down", "CDE", "1.5:62 Up Up Up Down", "0+1:60 1+1:64* 2+1:64 @1:64", 1);
        row("octaves", "CDE", "1.5:62 Ctrl+Up Ctrl+Up Ctrl+Down", "0+1:60 1+1:74* 2+1:64 @1:74", 1);
        row("not above the highest", "CDc'''", "Ctrl+A Up", "0+1:60* 1+1:62* 2+1:108* @0:60", 0);
        row("not below the lowest", "A,,,,C", "Ctrl+A Up Down Down", "0+1:21* 1+1:60* @0:21", 0);
        row("a measure later", "CDE", "1.5:62 Ctrl+Right", "0+1:60 2+1:64 9+1:62* @1:62", 1);
        row("a measure earlier, as long as that is", "C8|[M:2/4]D4", "8.5:62 Ctrl+Left", "0+8:60 0+4:62* @8:62", 1);
        row("longer", "CDz4", "1.5:62 Shift+Right Shift+Right", "0+1:60 1+3:62* @1:62", 2);
        row("no shorter than the grid", "CD3", "1.5:62 Shift+Left Shift+Left Shift+Left", "0+1:60 1+1:62* @1:62", 2);
        row("shorter than the grid stays", "CD/2", "1.2:62 Shift+Left Shift+Right", "0+1:60 1+1.5:62* @1:62", 1);
        row("finer grid", "CDz", "1.5:62 ] Shift+Right", "0+1:60 1+1.5:62* @1:62", 1);
        row("coarser grid", "CDz4", "1.5:62 [ [ [ [ Right", "0+1:60 9+1:62* @1:62", 1);
        row("delete", "CDE", "1.5:62 Del", "0+1:60 2+1:64 @1:62", 1);
        row("all", "CDE", "Ctrl+A Down", "0+1:59* 1+1:61* 2+1:63* @0:59", 1);
        row("none", "CDE", "1.5:62 Esc Del", "0+1:60 1+1:62 2+1:64 @1:62", 0);
        row("next", "CDE", "1.5:62 Alt+Right Alt+Right", "0+1:60 1+1:62 2+1:64* @1:62", 0);
        row("extend backwards", "CDE", "1.5:62 Alt+Shift+Left Alt+Shift+Right", "0+1:60* 1+1:62* 2+1:64* @1:62", 0);
        row("first from the cursor", "CDE", "Home Alt+Right", "0+1:60* 1+1:62 2+1:64 @0:60", 0);
        row("last before the cursor", "CDE", "End Alt+Left", "0+1:60 1+1:62 2+1:64* @3:60", 0);
        row("insert at the end", "CDE", "End Ins", "0+1:60 1+1:62 2+1:64 3+1:60* @4:60", 1);
        row("cursor moves", "C", "Home Ctrl+Right Left Up Up Ins Esc Ctrl+Left", "0+1:60 7+1:62 @0:62", 1);
        row("as long as the last one", "C3", "1.5:60 Shift+Right Esc End Ins", "0+4:60 4+4:60* @8:60", 2);
        row("duplicate", "CDE", "1.5:62 Shift+2.5:64 Ctrl+D", "0+1:60 1+1:62 2+1:64 3+1:62* 4+1:64* @2:64", 1);
        row("cut and paste", "CDEF", "1.5:62 Ctrl+X End Ctrl+V", "0+1:60 2+1:64 3+1:65 4+1:62* @5:62", 2);
        row("paste among others", "CDEF", "1.5:62 Ctrl+C Home Ctrl+V", "0+1:60 0+1:62* 1+1:62 2+1:64 3+1:65 @1:62", 1);
        row("from keys alone", "", "Home Ins Ins Up Up Ins Esc Right Shift+Right Ins Shift+Right",
            "0+1:60 1+1:62 2+1:62 4+2:62* @5:62", 6);
        row("from letters and digits", "", "Home 3 G F . C 4 A", "0+2:55 2+2:53 4+3:48 7+1:45* @8:45", 4);
        row("chords, rests and triplets", "", "Home C Shift+E Shift+G Z T E F G T 3 C",
            "0+1:60 0+1:64 0+1:67 2+0.666667:64 2.66667+0.666667:65 3.33333+0.666667:67 4+2:72* @6:72", 7);
        row("letters in the key that holds there", "[K:D]C", "End F", "0+1:61 1+1:66* @2:66", 1);
        row("letters stay in range", "", "Home Ctrl+Down Ctrl+Down Ctrl+Down B Down G", "0+1:22 1+1:31* @2:31", 3);
        row("paste what was typed", "C", "End =G2_[ce]_]]_nonsense Ctrl+V",
            "0+1:60 1+2:67* 3+1:72* 3+1:76* 4+1:76* 5+1:76* @6:60", 1);
        row("paste what is no music", "C", "=12_%% Ctrl+V", "0+1:60 @0:60", 0);

        row("click", "CDEF", "1.5:62", "0+1:60 1+1:62* 2+1:64 3+1:65 @1:62", 0);
        row("click beside", "CDEF", "1.5:62 6.1:70", "0+1:60 1+1:62 2+1:64 3+1:65 @6:70", 0);
        row("click beside off the grid", "CDEF", "Alt+6.25:70", "0+1:60 1+1:62 2+1:64 3+1:65 @6.25:70", 0);
        row("clicks add and take away", "CDEF", "1.5:62 Shift+2.5:64 Ctrl+3.5:65 Ctrl+1.5:62",
            "0+1:60 1+1:62 2+1:64* 3+1:65* @1:62", 0);
        row("click on one of several", "CDEF", "Ctrl+A 3.5:65", "0+1:60 1+1:62 2+1:64 3+1:65* @3:65", 0);
        row("click beside adds nothing", "CDEF", "1.5:62 Shift+6.1:70", "0+1:60 1+1:62* 2+1:64 3+1:65 @6:70", 0);
        row("menu of a note", "CDEF", "1.5:62 Menu+2.5:64", "0+1:60 1+1:62 2+1:64* 3+1:65 @1:62", 0);
        row("menu of the selection", "CDEF", "Ctrl+A Menu+2.5:64", "0+1:60* 1+1:62* 2+1:64* 3+1:65* @0:60", 0);
        row("band", "CDEFGA", "2.8:62>1.2:64", "0+1:60 1+1:62* 2+1:64* 3+1:65 4+1:67 5+1:69 @0:60", 0);
        row("band adds", "CDEFGA", "0.5:60 Shift+5.5:75>3.5:61", "0+1:60* 1+1:62 2+1:64 3+1:65* 4+1:67* 5+1:69* @0:60",
            0);
        row("band turns over", "CDEFGA", "Ctrl+A Ctrl+6.5:75>4.5:60",
            "0+1:60* 1+1:62* 2+1:64* 3+1:65* 4+1:67 5+1:69 @0:60", 0);

        row("drag to the grid", "C2D2", "3:62>5.3:62", "0+2:60 4+2:62* @2:62", 1);
        row("drag in pitch only", "C2D2", "3:62>3.1:67", "0+2:60 2+2:67* @2:67", 1);
        row("drag not before the start", "C2D2", "3:62>-6:63", "0+2:60 0+2:63* @2:63", 1);
        row("drag beyond the range stays where it fitted", "C2c'''2", "Ctrl+A 1:60>1:62", "0+2:60* 2+2:108* @0:60", 0);
        row("drag copies", "C2D2", "Ctrl+3:62>6.1:60", "0+2:60 2+2:62 5+2:60* @2:62", 1);
        row("drag copies nowhere", "C2D2", "Ctrl+3:62>3.2:62", "0+2:60 2+2:62* @2:62", 0);
        row("drag off the grid", "C2D2", "Alt+3:62>5.5:62", "0+2:60 4.5+2:62* @2:62", 1);
        row("drag several", "CDEF", "Ctrl+A 0.5:60>5.5:66", "5+1:66* 6+1:68* 7+1:70* 8+1:71* @0:66", 1);
        row("drag at the right edge resizes", "C2D2", "3.9:62>5.6:62", "0+2:60 2+4:62* @2:62", 1);
        row("drag no shorter than the grid", "C2D2", "3.9:62>-3:62", "0+2:60 2+1:62* @2:62", 1);
        row("drag broken off", "CDEF", "1.5:62>6:70!", "0+1:60 1+1:62* 2+1:64 3+1:65 @1:62", 0);
        row("double click", "C", "2x2.2:64", "0+1:60 2+1:64* @3:64", 1);
        row("double click off the grid", "C", "Alt+2x2.25:64", "0+1:60 2.25+1:64* @3.25:64", 1);
        row("draw", "C", "P 5.2:67>7.9:67", "0+1:60 5+3:67* @8:67", 1);
        row("draw as long as before", "C", "P 5.2:67>7.9:67 10.2:70", "0+1:60 5+3:67 10+3:70* @13:70", 2);
        row("draw at least a step", "C", "P 5.2:67>3:67", "0+1:60 5+1:67* @6:67", 1);
        row("draw with a pitch on the way", "C", "P 5.2:67>5.3:72", "0+1:60 5+1:72* @6:72", 1);
        row("draw broken off", "C", "P 5.2:67>7.9:67!", "0+1:60 @0:60", 0);
        row("tool for selecting again", "C", "P S 5.2:67>7.9:67", "0+1:60 @0:60", 0);
        row("chords, tuplets and overlaps", "z4 [C4E2] (3FGA [^c2-e4] [^c2B2] z3", "Ctrl+A Ctrl+X Ctrl+V",
            "4+4:60* 4+2:64* 6+0.666667:65* 6.66667+0.666667:67* 7.33333+0.666667:69* 8+4:73* 8+4:76* 10+2:71* @12:60",
            2);
    }

    void edits()
    {
        QFETCH(QString, body);
        QFETCH(QString, steps);
        RollFixture fixture(body);
        const auto before = fixture.document.text()->toPlainText();
        fixture.act(steps);
        QTEST(fixture.result(), "result");
        for (int note = 0; note < fixture.state().notes.count(); ++note)
            QVERIFY(!fixture.document.textOf(fixture.state().notes[note].event).isEmpty());
        int undoSteps = 0;
        for (; fixture.document.canUndo(); ++undoSteps)
            fixture.document.undo();
        QTEST(undoSteps, "undoSteps");
        QCOMPARE(fixture.document.text()->toPlainText(), before);
    }

    // As a musician would write it.
    void writes_data()
    {
        const Rows<QString, QString, QString> row("body", "steps", "text");
        row("bar lines and beats", "", "Home C D E F G A B C D", "CD EF GA Bc | d");
        row("compound metre", "[M:6/8]", "Home C D E F G A B", "[M:6/8] CDE FGA | B");
        row("triplets", "", "Home T C D E T 3 G", "(3CDE G2");
        row("triplet of chords and a rest, in a rest", "z8|C", "Home Right Right T C Shift+E Z D", "z2 (3[CE]zD z4|C");
        row("ties", "", "Home 2 C . D E", "C4 D4- | D2 E6 |");
        row("longer over bar lines", "C6", "5.9:60>20:60", "C8- | C8- | C4");
        row("accidentals of new measures", "", "Home 1 F Up F", "^F8 | F8 |");
        row("rests end with beats", "", "Home C Z 3 Z E", "C z z2 E2");
        row("in a measure of rest", "C8 | z8 | C8", "Home Ctrl+Right Right Right Right D", "C8 | z2 z D z4 | C8");
        row("far behind the end", "C8 |", "End Ctrl+Right Ctrl+Right 3 D", "C8 | z8 | z8 | D2");
        row("on the next line", "C8 | D8 | E8 | F8 |", "End 1 F", "C8 | D8 | E8 | F8 |\nF8 |");
        row("a full measure without its bar line", "C8 | D8", "End F", "C8 | D8 | F");
        row("blanks as the text has them", "C D E F G A B c | C D", "End E", "C D E F G A B c | C D E");
        row("no bar lines in a text without", "C8 D8", "End 1 F", "C8 D8\nF8");
        row("a tune", "",
            "Home Ctrl+Up 2 . Z 4 G A 3 B 4 B A G A B C 3 D 4 T E D C 3 B A 3 G A 2 . B 3 A 2 G "
            "4 B C D B 3 C A 3 . G 4 F 3 G A 4 T G A B C B A 2 G 2 D Z "
            "3 G Shift+B 4 A B 3 C 4 B A 3 . D 4 C 3 B A 2 G 2 . A 3 B 2 C "
            "4 T C B A G A B 3 C A 3 G E 4 F G A F 1 G",
            "z4 z2 GA | B2 BA GA Bc | d2 (3edc B2 A2 | G2 A2 B4- | B2 A2 G4 |\n"
            "Bc dB c2 A2 | G3 F G2 A2 | (3GAB (3cBA G4 | D4 z4 |\n"
            "[GB]2 AB c2 BA | d3 c B2 A2 | G4 A4- | A2 B2 c4 |\n"
            "(3cBA (3GAB c2 A2 | G2 E2 FG AF | G8 |");
    }

    void writes()
    {
        QFETCH(QString, body);
        QFETCH(QString, steps);
        RollFixture fixture(body);
        fixture.act(steps);
        QTEST(fixture.document.text()->toPlainText().mid(fixture.document.reading().layout.bodyOffset), "text");
    }

    void linkedWithTheText()
    {
        RollFixture fixture("CDEF");
        const auto start = fixture.document.reading().layout.bodyOffset;
        fixture.roll.clearFocus();
        fixture.document.setCaret(start + 3, {start + 1, 2});
        QCOMPARE(fixture.result(), QStringLiteral("0+1:60 1+1:62* 2+1:64* 3+1:65 @3:60"));
        fixture.document.moveCaret(start + 4); // behind the last one, where more would be typed
        QCOMPARE(fixture.state().cursor, 4 * eighth);
        fixture.document.moveCaret(start + 3);
        QVERIFY(fixture.state().has(1, RollState::Selected) && !fixture.state().has(0, RollState::Selected));
        QVERIFY(fixture.state().has(3, RollState::AtCaret) && !fixture.state().has(1, RollState::AtCaret));
        QCOMPARE(fixture.roll.accessibleDescription(), QStringLiteral("2 note(s) selected"));

        QTextCursor typing(fixture.document.text());
        typing.setPosition(start);
        typing.insertText(QStringLiteral("G2"));
        fixture.roll.setFocus();
        fixture.act("0.5:67"); // reads it
        fixture.act("5.5:65");
        const auto range = fixture.document.textOf(fixture.document.selectedNotes().value(0));
        QCOMPARE(fixture.document.text()->toPlainText().mid(range.offset, range.length), QStringLiteral("F"));
        QCOMPARE(fixture.roll.accessibleDescription(), QStringLiteral("F4, Measure 1, beat 3 + 1/8, length 1/8"));
    }

    void aTextThatChangesEndsTheGesture()
    {
        RollFixture fixture("CDEF");
        QTest::mousePress(fixture.canvas(), Qt::LeftButton, {}, fixture.at(1.5, 62));
        fixture.moveTo(fixture.at(3.5, 65));
        fixture.moveTo(fixture.at(5.5, 67));
        QTextCursor typing(fixture.document.text());
        typing.movePosition(QTextCursor::End);
        typing.insertText(QStringLiteral("G2"));
        fixture.document.update();
        QTest::mouseRelease(fixture.canvas(), Qt::LeftButton, {}, fixture.at(5.5, 67));
        QVERIFY(fixture.document.text()->toPlainText().endsWith(QStringLiteral("CDEFG2")));
    }

    void sounds()
    {
        RollFixture fixture("C4D4");
        QStringList heard;
        connect(&fixture.document, &EditorDocument::previewNoteRequested, this,
                [&](quint32 pitch) { heard += QString::number(pitch); });
        connect(&fixture.document, &EditorDocument::previewNoteStopped, this, [&] { heard += QStringLiteral("-"); });
        auto *keyboard = fixture.roll.findChild<RollKeyboard *>();
        const auto key = [&](int pitch) { return QPoint(50, fixture.at(0, pitch).y()); };
        QTest::mousePress(keyboard, Qt::LeftButton, {}, key(67));
        RollFixture::move(keyboard, key(69), Qt::LeftButton);
        QTest::mouseRelease(keyboard, Qt::LeftButton, {}, QPoint(50, 3));
        QCOMPARE(fixture.state().cursorPitch, 69);
        fixture.act("2:60 6:62>6:64 Up Alt+Left");
        QTRY_COMPARE(heard.join(u' '), QStringLiteral("67 - 69 - 60 - 62 - 63 - 64 - 65 - 60 -"));
    }
};

QTEST_MAIN(TestPianoRoll)
#include "test_piano_roll.moc"
