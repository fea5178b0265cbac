#include "support/Text.h"
#include "ui/document/EditorDocument.h"

#include <QSignalSpy>
#include <QTextCursor>
#include <QtTest>

namespace {

constexpr Ticks unit = ticksPerQuarter;
const QString drawing = QStringLiteral("Draw Note");

struct Document : EditorDocument
{
    // Of notes in quarters.
    explicit Document(const Text &body)
    {
        Track track;
        track.setAbc(QStringLiteral("X: 1\nL: 1/4\nM: 4/4\nK: C\n") + body);
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
};

} // namespace

class TestEditorDocument : public QObject
{
    Q_OBJECT

private slots:
    void readsInTheBackground()
    {
        Document document("C D\n");
        const auto place = document.textOf(0).offset;
        QSignalSpy read(&document, &EditorDocument::readingChanged);
        document.type("%\n");
        QVERIFY(!document.isCurrent());
        QCOMPARE(document.textOf(0).offset, place + 2);
        QVERIFY(read.isEmpty());
        QVERIFY(read.wait(3000));
        QVERIFY(document.isCurrent());
        QCOMPARE(document.reading().noteTexts[0].offset, place + 2);
        document.update();
        QCOMPARE(read.size(), 1);
    }

    void checksOnItsInstrument()
    {
        Document document("C D\n");
        Instrument lute;
        lute.name = QStringLiteral("Lute");
        lute.tuning.notes[60] = {{QStringLiteral("c.wav")}, 1, 261};
        document.setInstrument(lute);
        QTRY_COMPARE(document.findings().size(), 1);
        QCOMPARE(int(document.findings()[0].kind), int(FindingKind::NoSample));
        QCOMPARE(document.findings()[0].tick, unit);
        lute.tuning.notes[62] = lute.tuning.notes[60];
        document.setInstrument(lute);
        QTRY_VERIFY(document.findings().isEmpty());
    }

    void undoesEditsOfBothViews()
    {
        Document document("C D E\n");
        const auto start = document.plainText();
        document.type("F", start.size());
        document.removeNotes({1}, QStringLiteral("Delete Note"));
        document.type("G", document.plainText().size());
        QVERIFY(document.insertNotes({{0, unit, 72}}, drawing));
        QVERIFY(!document.removeNotes({99}, drawing));
        const auto end = document.plainText();
        QCOMPARE(document.body(), QStringLiteral("[Cc] z E\nFG"));
        QStringList names;
        while (document.canUndo()) {
            names += document.undoName();
            document.undo();
        }
        QCOMPARE(names.join(u'|'), QStringLiteral("Draw Note|Typing|Delete Note|Typing"));
        QCOMPARE(document.plainText(), start);
        QVERIFY(document.isApplied());
        while (document.canRedo())
            document.redo();
        QCOMPARE(document.plainText(), end);
        QVERIFY(document.isCurrent());
        document.undo();
        document.undo();
        document.type("A", document.plainText().size()); // what was named there is gone
        QCOMPARE(document.undoName(), QStringLiteral("Typing"));
    }

    void movesThroughNotesInOneGesture()
    {
        Document document("[CEG] D\n");
        const auto up = [](quint32 semitones) {
            NoteEdit edit;
            edit.changed.append(NoteEdit::Change{0, {0, unit, 60 + semitones}});
            return edit;
        };
        QVERIFY(document.beginGesture(up(4), drawing));
        QCOMPARE(document.body(), QStringLiteral("[EG] D\n"));
        QVERIFY(document.editInstead(up(5), drawing));
        QCOMPARE(document.body(), QStringLiteral("[FEG] D\n"));
        QVERIFY(document.editInstead(up(0), drawing));
        QCOMPARE(document.body(), QStringLiteral("[CEG] D\n"));
        QVERIFY(!document.canUndo() && !document.canRedo());
        QVERIFY(document.editInstead(up(1), drawing));
        QVERIFY(document.editInstead(up(2), drawing));
        QCOMPARE(document.body(), QStringLiteral("[DEG] D\n"));
        QCOMPARE(document.undoName(), drawing);
        document.undo();
        QCOMPARE(document.body(), QStringLiteral("[CEG] D\n"));
        QVERIFY(!document.canUndo());
        QVERIFY(!document.editInstead(up(3), drawing));
        QVERIFY(!document.insertNotes({{0, unit, 60}}, drawing)); // it is there
        Document typed("C D\n");
        typed.type("%\n"); // which is not read yet
        QVERIFY(typed.beginGesture(up(4), drawing) && typed.editInstead(up(5), drawing));
        QCOMPARE(typed.body(), QStringLiteral("F D\n"));
    }

    void asksBeforeAllIsWrittenAnew()
    {
        Document document("[Z2C8] | \"Am\"C | % end\n");
        const auto before = document.plainText();
        QVERIFY(!document.insertNotes({{6 * unit, unit, 64}}, drawing));
        NoteEdit edit;
        edit.inserted.append(NoteSpec{6 * unit, unit, 64});
        QVERIFY(!document.beginGesture(edit, drawing) && !document.isInGesture());
        QCOMPARE(document.plainText(), before);
        RewriteLoss told;
        document.setRewriteQuestion([&](const RewriteLoss &loss) {
            told = loss;
            return true;
        });
        QVERIFY(document.insertNotes({{6 * unit, unit, 64}}, drawing));
        QVERIFY(!document.plainText().contains(u'|'));
        QCOMPARE(told.barLines, 2);
        QCOMPARE(told.comments, 1);
        QCOMPARE(told.chordSymbols, 1);
    }

    void keepsSelectionThroughEdits()
    {
        Document document("C D E F\n");
        QSignalSpy changes(&document, &EditorDocument::selectionChanged);
        document.selectNotes({3, 1});
        document.selectNotes({1, 3});
        QCOMPARE(changes.size(), 1);
        document.setSoundingNotes({{unit, unit, 62}});
        document.type("T: New\n");
        document.update();
        QCOMPARE(document.selectedNotes(), (QVector<int>{1, 3}));
        NoteEdit edit;
        edit.changed.append(NoteEdit::Change{1, {unit, unit, 60}});
        edit.removed.append(0);
        QVERIFY(document.edit(edit, drawing));
        QCOMPARE(document.selectedNotes(), (QVector<int>{0}));
        QVERIFY(document.playback().notes().isEmpty());
        document.undo();
        QCOMPARE(document.playback().notes(), (QVector<int>{1}));
    }

    void linksCaretAndNotes()
    {
        Document document("CD [EG]2 z A|\n");
        const auto body = document.bodyOffset();
        document.setCaret(body + 12, {body, 6});
        QCOMPARE(document.selectedNotes(), (QVector<int>{0, 1, 2, 3}));
        document.moveCaret(body + 4);
        QCOMPARE(document.caret().note, 2);
        QCOMPARE(document.selectedNotes().size(), 4);
        document.setCaret(body, {body, 0});
        QVERIFY(document.selectedNotes().isEmpty());

        QStringList places;
        connect(&document, &EditorDocument::caretMoveRequested, this,
                [&](int offset) { places += QString::number(offset - body); });
        for (const auto quarter : {0, 2, 4, 5, 6})
            document.setCaretTick(quarter * unit);
        QCOMPARE(places.join(u' '), QStringLiteral("0 3 9 11 14"));
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
        QVERIFY(document.insertNotes({{2 * unit, unit, 64}}, drawing));
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
            QVERIFY(document.insertNotes({{i * unit, unit, quint32(60 + i)}}, drawing));
        QCOMPARE(document.body(), QStringLiteral("C ^C D ^D | E F ^F G |"));
        QVERIFY(document.apply());
    }
};

QTEST_MAIN(TestEditorDocument)
#include "test_editor_document.moc"
