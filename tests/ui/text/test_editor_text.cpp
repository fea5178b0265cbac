#include "ui/EditorFixture.h"
#include "ui/text/EditorColours.h"
#include "ui/text/FindBar.h"
#include "ui/text/LineNumbers.h"
#include "ui/text/ProblemList.h"

#include <QComboBox>
#include <QLineEdit>
#include <QTextBlock>
#include <QTextLayout>

// What the window does with its text: search, colours, problems, places.
class TestEditorText : public QObject
{
    Q_OBJECT

private slots:
    void keepsFindSettings()
    {
        EditorFixture editor("c d c d c\n");
        editor.show();
        auto *const bar = editor.child<FindBar>("findBar");
        QVERIFY(!bar->isVisible());
        editor.trigger("actionFind");
        QVERIFY(bar->isVisible());
        QTest::keyClicks(editor.child<QLineEdit>("txtFind"), QStringLiteral("c d"));
        QCOMPARE(bar->countText(), QStringLiteral("2 matches"));
        QTest::keyClick(editor.child<QLineEdit>("txtFind"), Qt::Key_Return);
        QCOMPARE(editor.selected(), QStringLiteral("c d"));
        QCOMPARE(bar->countText(), QStringLiteral("1 of 2"));
        QCOMPARE(editor.window.document().selectedNotes().size(), 2);

        // At the end of the text the search goes on from its beginning, unless it may not.
        bar->findNext();
        QCOMPARE(bar->countText(), QStringLiteral("2 of 2"));
        bar->findNext();
        QCOMPARE(bar->countText(), QStringLiteral("1 of 2"));
        editor.settings.setValue(Settings::WrapAround, false);
        FindBar other(*editor.text, editor.settings);
        QVERIFY(!other.options().wrapAround);
        QCOMPARE(other.options().find, QStringLiteral("c d"));
        QCOMPARE(int(other.options().direction), int(SearchOptions::Down));
        other.findPrevious();
        QCOMPARE(bar->countText(), QStringLiteral("1 of 2"));
        editor.child<QComboBox>("cboSearchMode")->setCurrentIndex(2);
        QCOMPARE(editor.settings.value(Settings::SearchMode).toInt(), 2);
        QTest::keyClick(bar, Qt::Key_Escape);
        QVERIFY(!bar->isVisible());
    }

    void replacesAllInOneStep()
    {
        EditorFixture editor("c d c d c\n");
        editor.settings.setValue(Settings::FindString, QStringLiteral("c"));
        editor.settings.setValue(Settings::ReplaceString, QStringLiteral("cc"));
        editor.settings.setValue(Settings::MatchCase, true);
        FindBar bar(*editor.text, editor.settings);
        bar.replaceAll();
        QCOMPARE(editor.body(), QStringLiteral("cc d cc d cc\n"));
        editor.trigger("actionUndo");
        QCOMPARE(editor.body(), QStringLiteral("c d c d c\n"));
        editor.select(0, 1);
        bar.replace();
        QCOMPARE(editor.body(), QStringLiteral("cc d c d c\n"));
        QCOMPARE(editor.selected(), QStringLiteral("c"));
    }

    void coloursTokens_data()
    {
        // colours: a letter for each character, a blank for the text's own colour
        const Rows<QString, QString> row("music", "colours");
        row("note", "^c'3/2-", "ANNLLLT");
        row("rest and bar", "z4|:", "RRBB");
        row("chord", "[CE]2", "[NN[[");
        row("tuplet", "(3C>D", "33N3N");
        row("words", "\"Am\"!f!C%x", "\"\"\"\"DDDN%%");
        row("error", "C#", "NE");
        row("dollar means nothing", "$", "E");
        row("dollar breaks lines", "I:linebreak $\n$", "$");
    }

    void coloursTokens()
    {
        QFETCH(QString, music);
        EditorFixture editor;
        QTextCursor(editor.window.document().text())
            .insertText(QStringLiteral("X: 1\nno music yet\nK: C\n") + music + u'\n');
        QCoreApplication::processEvents(); // the first colouring waits for the event loop
        const auto &c = EditorColours::of(editor.text->palette());
        const QMap<QRgb, QChar> letters{{c.accidental.rgb(), u'A'}, {c.note.rgb(), u'N'},    {c.length.rgb(), u'L'},
                                        {c.tie.rgb(), u'T'},        {c.rest.rgb(), u'R'},    {c.bar.rgb(), u'B'},
                                        {c.chord.rgb(), u'['},      {c.tuplet.rgb(), u'3'},  {c.text.rgb(), u'"'},
                                        {c.decoration.rgb(), u'D'}, {c.comment.rgb(), u'%'}, {c.problem.rgb(), u'E'},
                                        {c.lineNumber.rgb(), u'$'}};
        const auto lettersOf = [&](const QTextBlock &block) {
            QString found(block.length() - 1, u' ');
            for (const auto &range : block.layout()->formats()) {
                for (int i = range.start; i < range.start + range.length; ++i)
                    found[i] = letters.value(range.format.foreground().color().rgb(), u'?');
            }
            return found;
        };
        const auto line = music.count(u'\n') + 3;
        QTEST(lettersOf(editor.text->document()->findBlockByNumber(int(line))), "colours");
        QCOMPARE(lettersOf(editor.text->document()->findBlockByNumber(1)).trimmed(), QString());
    }

    void marksProblemsAndGoesToThem()
    {
        EditorFixture editor("C D\nE F\n");
        editor.show();
        auto *const list = editor.child<ProblemList>("problemList");
        QVERIFY(!list->isVisible());
        editor.text->moveCursor(QTextCursor::End);
        for (const auto *const line : {"c ?", "[eg"}) {
            QTest::keyClicks(editor.text, QLatin1String(line));
            QTest::keyClick(editor.text, Qt::Key_Return);
        }
        QVERIFY(list->count() == 1);
        QTRY_COMPARE(list->count(), 2);
        QVERIFY(list->isVisible());
        QCOMPARE(editor.label("lblProblems"), QStringLiteral("2 problems"));
        QVERIFY(editor.dialogs.messages.isEmpty());

        const auto place = list->visualItemRect(list->item(1)).center();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
        QCOMPARE(editor.selected(), QStringLiteral("["));
        editor.trigger("actionPreviousProblem");
        QCOMPARE(editor.selected(), QStringLiteral("?"));
        editor.trigger("actionPreviousProblem");
        QCOMPARE(editor.selected(), QStringLiteral("["));
        QVERIFY(
            editor.text->problemAtLine(editor.text->cursorRect().center().y()).contains(QStringLiteral("not closed")));

        editor.trigger("actionApply");
        QVERIFY(editor.dialogs.takeMessages().value(0).contains(QStringLiteral("line 9, column 3")));
        QVERIFY(!editor.window.document().isApplied());
    }

    void statusTellsTheCaret()
    {
        EditorFixture editor("[M:3/4]C3 | ^F2 z\n");
        const auto status = [&editor](int column) {
            editor.select(column, column);
            return QStringList{editor.label("lblPlace"), editor.label("lblTime"), editor.label("lblNote")}.join(u'|');
        };
        QCOMPARE(status(13), QStringLiteral("Line 7, column 14|Measure 2, beat 1, tick 30240|F♯4, 1/2"));
        QCOMPARE(status(16), QStringLiteral("Line 7, column 17|Measure 2, beat 3, tick 50400|"));
    }

    void goesToLines()
    {
        EditorFixture editor;
        editor.open(QStringLiteral("C\n").repeated(300));
        editor.show();
        const auto lineFor = [&editor](const char *entered) {
            editor.dialogs.enteredText = QString::fromLatin1(entered);
            editor.trigger("actionGoToLine");
            return editor.text->textCursor().blockNumber();
        };
        QCOMPARE(lineFor("250"), 249);
        QVERIFY(editor.text->viewport()->rect().contains(editor.text->cursorRect()));
        QCOMPARE(lineFor("99999999999"), 249);
        QCOMPARE(lineFor("5000"), editor.text->blockCount() - 1);
        const auto numbers = editor.text->findChild<LineNumbers *>()->grab().toImage();
        auto blank = numbers;
        blank.fill(numbers.pixelColor(0, 0));
        QVERIFY(numbers != blank);
        const auto size = editor.text->font().pointSizeF();
        editor.trigger("actionZoomIn");
        QVERIFY(editor.text->font().pointSizeF() > size);
        editor.trigger("actionZoomNormal");
        QCOMPARE(editor.text->font().pointSizeF(), size);
    }
};

QTEST_MAIN(TestEditorText)
#include "test_editor_text.moc"
