#include "ui/EditorFixture.h"
#include "ui/text/EditorColours.h"
#include "ui/text/FindBar.h"
#include "ui/text/LineNumbers.h"
#include "ui/text/ProblemList.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QStatusBar>
#include <QTextBlock>
#include <QTextLayout>
#include <QWheelEvent>

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

    void opensWithWhatIsSelected()
    {
        EditorFixture editor("c d c d c\n");
        editor.show();
        auto *const bar = editor.child<FindBar>("findBar");
        auto *const find = editor.child<QLineEdit>("txtFind");
        editor.select(2, 3);
        editor.trigger("actionFind");
        QCOMPARE(find->text(), QStringLiteral("d"));
        QCOMPARE(find->selectedText(), QStringLiteral("d"));
        QCOMPARE(bar->countText(), QStringLiteral("1 of 2"));
        QVERIFY(!editor.child<QLineEdit>("txtReplace")->isVisible());
        editor.select(0, 1);
        editor.child<QComboBox>("cboSearchMode")->setCurrentIndex(2); // an expression stays what it is
        editor.trigger("actionReplace");
        QCOMPARE(find->text(), QStringLiteral("d"));
        QVERIFY(editor.child<QLineEdit>("txtReplace")->isVisible());
        const QMap<QString, QString> counts{{QStringLiteral("("), QStringLiteral("Not an expression")},
                                            {QStringLiteral("y"), QStringLiteral("No matches")},
                                            {QStringLiteral("d"), QStringLiteral("2 matches")},
                                            {QString(), QString()}};
        for (auto count = counts.begin(); count != counts.end(); ++count) {
            find->setText(count.key());
            QCOMPARE(bar->countText(), count.value());
        }
        find->setText(QStringLiteral("j"));
        editor.insert("j");
        QTRY_COMPARE(bar->countText(), QStringLiteral("1 match")); // when typing rests
    }

    void returnFindsAndReplaces_data()
    {
        // of "c d c d c" with the selection at "from"; "c" becomes "e"
        const Rows<QString, int, int, int, QString, int, QString> row("box", "key", "direction", "from", "body", "to",
                                                                      "said");
        const int down = SearchOptions::Down, up = SearchOptions::Up, shift = Qt::SHIFT;
        row("next", "txtFind", 0, down, 4, "c d c d c\n", 8, "");
        row("previous", "txtFind", shift, down, 4, "c d c d c\n", 0, "");
        row("upwards", "txtFind", 0, up, 4, "c d c d c\n", 0, "");
        row("around", "txtFind", 0, down, 8, "c d c d c\n", 0, "The search went on from the other end of the text.");
        row("around, upwards", "txtFind", 0, up, 0, "c d c d c\n", 8,
            "The search went on from the other end of the text.");
        row("replace", "txtReplace", 0, down, 4, "c d e d c\n", 8, "");
        row("replace upwards", "txtReplace", 0, up, 4, "c d e d c\n", 0, "");
        row("nothing to replace yet", "txtReplace", 0, down, 2, "c d c d c\n", 4, "");
    }

    void returnFindsAndReplaces()
    {
        QFETCH(QString, box);
        QFETCH(int, key);
        QFETCH(int, direction);
        QFETCH(int, from);
        QFETCH(int, to);
        EditorFixture editor("c d c d c\n");
        editor.show();
        editor.settings.setValue(Settings::MatchCase, true);
        editor.trigger("actionReplace");
        editor.child<QCheckBox>("chkMatchCase")->setChecked(true);
        editor.child<QComboBox>("cboDirection")->setCurrentIndex(direction);
        editor.child<QLineEdit>("txtFind")->setText(QStringLiteral("c"));
        editor.child<QLineEdit>("txtReplace")->setText(QStringLiteral("e"));
        editor.select(from, from + 1);
        editor.window.statusBar()->showMessage(QStringLiteral("said before"));
        auto *const field = editor.child<QLineEdit>(qPrintable(box));
        field->setFocus();
        QTRY_VERIFY(field->hasFocus());
        QTest::keyClick(field, Qt::Key_Return, Qt::KeyboardModifiers(key));
        QTEST(editor.body(), "body");
        QTEST(editor.window.statusBar()->currentMessage(), "said");
        const auto cursor = editor.text->textCursor();
        QCOMPARE(cursor.selectionStart() - int(editor.plainText().size() - editor.body().size()), to);
        QCOMPARE(cursor.selectedText(), QStringLiteral("c"));
    }

    void lightsUp_data()
    {
        // steps: "caret COLUMN", "select NOTE…", "sound PITCH…", "find TEXT", "type TEXT" (at the beginning)
        // lit: for each column c caret, S selected, s sounding, b bracket, f found, w a wave below
        const Rows<QString, QString> row("steps", "lit");
        row("nothing", "caret -1", "              w");
        row("caret", "caret 1", " c            w");
        row("bracket of a chord", "caret 3", "   b  b       w");
        row("bracket of a slur", "caret 12", "        b  bc w");
        row("selected", "caret -1;select 0 3", "S    S        w");
        row("sounding", "caret -1;select 0 3;sound 60 64", "s   sS        w");
        row("found", "caret -1;find c", "f           f w");
        row("typed since", "caret -1;sound 60 64;type zz", "  s   s         w");
    }

    // The middle of the upper edge of each character is never ink.
    void lightsUp()
    {
        QFETCH(QString, steps);
        EditorFixture editor("CD [EG] (AB)c \n");
        editor.select(14, 14);
        editor.insert("?");
        editor.window.document().update();
        editor.show();
        editor.child<FindBar>("findBar")->setFocus();
        editor.text->clearFocus();
        for (const auto &step : steps.split(u';')) {
            const auto verb = step.section(u' ', 0, 0), rest = step.section(u' ', 1);
            auto &document = editor.window.document();
            QVector<int> notes;
            QVector<NoteSpec> specs;
            for (const auto &number : rest.split(u' ')) {
                notes += number.toInt();
                for (const auto &event : document.track().events()) {
                    if (event.pitch() == number.toUInt())
                        specs.append({event.start(), event.length(), event.pitch()});
                }
            }
            if (verb == u"caret")
                editor.select(notes.first(), notes.first());
            else if (verb == u"select")
                document.selectNotes(notes);
            else if (verb == u"sound")
                document.setSoundingNotes(specs);
            else if (verb == u"find")
                editor.text->setFound(QRegularExpression(rest, QRegularExpression::CaseInsensitiveOption));
            else
                QTextCursor(document.text()->lastBlock().previous()).insertText(rest);
        }
        QTEST(lit(editor), "lit");
    }

    void numbersLines()
    {
        EditorFixture editor;
        editor.open(QStringLiteral("C\n").repeated(121));
        editor.show();
        auto *const margin = editor.text->findChild<LineNumbers *>();
        const auto picture = [&] {
            QCoreApplication::processEvents();
            return margin->grab().toImage();
        };
        editor.text->goToLine(67); // the header has six lines
        const auto plain = picture();
        editor.insert("?");
        editor.window.document().update();
        const auto marked = picture();
        const auto y = editor.text->cursorRect().center().y();
        QVERIFY(marked != plain && !editor.text->problemAtLine(y).isEmpty());
        QVERIFY(editor.text->problemAtLine(y - editor.text->cursorRect().height()).isEmpty());
        editor.text->goToLine(66); // which may scroll
        const auto before = picture();
        QTest::mouseClick(margin, Qt::LeftButton, {}, {3, editor.text->cursorRect().bottom() + 5});
        QCOMPARE(editor.text->textCursor().blockNumber(), 66);
        QVERIFY(before != marked && picture() != before);
    }

    void followsWhatSounds()
    {
        EditorFixture editor;
        editor.open(QStringLiteral("C\n").repeated(200) + QString(300, u'z') + QStringLiteral("D\n"));
        editor.show();
        auto &document = editor.window.document();
        const auto &events = document.track().events();
        const auto isSeen = [&](int note) {
            document.setSoundingNotes({{events[note].start(), events[note].length(), events[note].pitch()}});
            QTextCursor cursor(document.text());
            cursor.setPosition(document.textOf(note).offset);
            return editor.text->viewport()->rect().contains(editor.text->cursorRect(cursor));
        };
        QVERIFY(isSeen(100) && isSeen(3) && isSeen(200) && isSeen(100));
        editor.trigger("actionFollow");
        QVERIFY(!isSeen(3) && !isSeen(200));
    }

    // Lines of the text are what the reader takes for lines.
    void keepsLinesAsTheyAreRead()
    {
        EditorFixture editor("C\n");
        const auto lines = editor.text->blockCount();
        QTest::keyClick(editor.text, Qt::Key_Return, Qt::ShiftModifier);
        QCOMPARE(editor.text->blockCount(), lines + 1);
        QGuiApplication::clipboard()->setText(QStringLiteral("D\u2028E"));
        editor.trigger("actionPaste");
        QCOMPARE(editor.text->blockCount(), lines + 2);
        QVERIFY(!editor.window.document().isCurrent());
        QTest::keyClick(editor.text, Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(editor.window.document().isCurrent());
        QCOMPARE(editor.text->blockCount(), lines + 1);
    }

    void zooms()
    {
        EditorFixture editor("C D E F\n");
        editor.show();
        const auto size = [&] { return editor.text->font().pointSizeF(); };
        const auto normal = size();
        const auto margin = editor.text->lineNumberWidth();
        const auto wheel = [&](int angle, Qt::KeyboardModifiers keys) {
            QWheelEvent event({50, 50}, editor.text->viewport()->mapToGlobal(QPoint(50, 50)), {}, {0, angle},
                              Qt::NoButton, keys, Qt::NoScrollPhase, false);
            QCoreApplication::sendEvent(editor.text->viewport(), &event);
        };
        wheel(60, Qt::ControlModifier);
        QCOMPARE(size(), normal);
        wheel(60, Qt::ControlModifier);
        QCOMPARE(size(), normal + 1);
        wheel(-120, Qt::NoModifier);
        QCOMPARE(size(), normal + 1);
        for (int i = 0; i < 10; ++i)
            editor.trigger("actionZoomIn");
        QCOMPARE(size(), normal + 11);
        QVERIFY(editor.text->lineNumberWidth() > margin);
        QCOMPARE(editor.text->findChild<LineNumbers *>()->width(), editor.text->lineNumberWidth());
        for (int i = 0; i < 60; ++i)
            editor.trigger("actionZoomOut");
        QCOMPARE(size(), 6);
        editor.trigger("actionZoomNormal");
        QCOMPARE(size(), normal);
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

    // What no layout colours, the view paints itself.
    void coloursLinesOfAnyLength_data()
    {
        const Rows<int, bool> row("measures", "wraps");
        row("short", 20, false);
        row("long", 2000, false);
        row("long and wrapped", 2000, true);
    }

    void coloursLinesOfAnyLength()
    {
        QFETCH(int, measures);
        QFETCH(bool, wraps);
        EditorFixture editor;
        editor.open(QStringLiteral("C2\t^D z|").repeated(measures));
        editor.text->setWrapsLines(wraps);
        editor.text->zoom(8); // so that letters have pixels that are all ink
        editor.show();
        editor.text->moveCursor(QTextCursor::End);
        editor.text->moveCursor(QTextCursor::Left, QTextCursor::KeepAnchor);
        const auto image = editor.text->viewport()->grab().toImage();
        const auto nearest = [&image](const QColor &colour) {
            int least = 1000;
            for (int i = 0; i < image.width() * image.height(); ++i) {
                const QColor seen(image.pixel(i % image.width(), i / image.width()));
                least = std::min(least, std::abs(seen.red() - colour.red()) + std::abs(seen.green() - colour.green()) +
                                            std::abs(seen.blue() - colour.blue()));
            }
            return least;
        };
        const auto &c = EditorColours::of(editor.text->palette());
        for (const auto &colour :
             {c.note, c.length, c.accidental, c.rest, c.bar, editor.text->palette().color(QPalette::Highlight)})
            QVERIFY2(nearest(colour) < 40, qPrintable(colour.name()));
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
        QVERIFY(!list->isVisible());
        QCOMPARE(editor.label("lblProblems"), QStringLiteral("2 problems"));
        QVERIFY(editor.dialogs.messages.isEmpty());

        // Only Apply opens the list, and not when it was closed since.
        editor.trigger("actionApply");
        QVERIFY(editor.dialogs.takeMessages().value(0).contains(QStringLiteral("line 9, column 3")));
        QVERIFY(!editor.window.document().isApplied() && list->isVisible());
        QCOMPARE(editor.selected(), QStringLiteral("?"));
        editor.trigger("actionShowProblems");
        editor.trigger("actionSave");
        QVERIFY(!list->isVisible());
        editor.trigger("actionShowProblems");

        const auto place = list->visualItemRect(list->item(1)).center();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
        QCOMPARE(editor.selected(), QStringLiteral("["));
        for (const auto &[command, problem] : {std::pair("actionPreviousProblem", "?"),
                                               {"actionPreviousProblem", "["},
                                               {"actionNextProblem", "?"},
                                               {"actionNextProblem", "["}}) {
            editor.trigger(command);
            QCOMPARE(editor.selected(), QLatin1String(problem));
        }
        QVERIFY(
            editor.text->problemAtLine(editor.text->cursorRect().center().y()).contains(QStringLiteral("not closed")));
    }

    // The text before, with the caret at "^", and behind the fix or the first one of the menu.
    void fixesProblems_data()
    {
        const Rows<QString, QString, QString> row("body", "fixed", "by");
        row("at the caret", "C4||^D4||E4", "C4|D4||E4", "");
        row("on its line", "C4 ^|D3)|E4", "C4 |D3|E4", "");
        row("a choice of two", "^C4 || D4 || E4", "C4 | D4 || E4", "");
        row("nothing", "C4^|C3|C", "C4|C3|C", "");
        row("in the margin", "^C4||D4", "C4|D4", "margin");
        row("nothing in the margin", "^C4|C3|C", "C4|C3|C", "margin");
        row("in the list", "^C4||D4", "C4|D4", "list");
        row("nothing in the list", "^C4|C3|C", "C4|C3|C", "list");
    }

    void fixesProblems()
    {
        QFETCH(QString, body);
        const auto caret = body.indexOf(u'^');
        EditorFixture editor(body.remove(caret, 1));
        editor.show();
        editor.select(caret, caret);
        const auto &document = editor.window.document();
        QTRY_VERIFY(!document.findings().isEmpty());
        QFETCH(QString, by);
        QFETCH(QString, fixed);
        if (by == u"margin") {
            QTest::mouseClick(editor.text->findChild<LineNumbers *>(), Qt::LeftButton, {},
                              {8, editor.text->cursorRect().center().y()});
        } else if (by == u"list") {
            auto *const list = editor.child<ProblemList>("problemList");
            const auto place = list->visualItemRect(list->item(0)).center();
            QContextMenuEvent event(QContextMenuEvent::Mouse, place, list->viewport()->mapToGlobal(place));
            QCoreApplication::sendEvent(list->viewport(), &event);
        } else {
            editor.trigger("actionFixProblem");
        }
        QVERIFY(by.isEmpty() || (QApplication::activePopupWidget() != nullptr) == (fixed != body));
        if (auto *const menu = qobject_cast<QMenu *>(QApplication::activePopupWidget())) {
            menu->actions().first()->trigger();
            menu->close();
        }
        QCOMPARE(editor.body(), fixed);
        if (fixed != body) {
            QVERIFY(document.undoName().startsWith(QStringLiteral("Remove")));
            editor.trigger("actionUndo");
            QCOMPARE(editor.body(), body);
        }
    }

    void undoOfNotesKeepsTheLine()
    {
        EditorFixture editor("c d\n");
        editor.show();
        editor.text->setFocus();
        QTRY_VERIFY(editor.text->hasFocus());
        const auto before = editor.plainText();
        editor.window.document().insertNotes({{0, ticksPerQuarter, 60}}, QStringLiteral("Insert Note"));
        editor.text->goToLine(2);
        QTest::keyClick(editor.text, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(editor.plainText(), before);
        QCOMPARE(editor.text->textCursor().blockNumber(), 1);
    }

    void completes_data()
    {
        const Rows<QString, QString, QString> row("line", "typed", "completed"); // "\t" takes the first choice
        row("a field of the header and an instrument", "", "I\tlu\t", "I: Instrument: Lute of Ages");
        row("the field's instrument, by keys", "I:Instrument", ":vv\n", "I:Instrument:Lute of Ages");
        row("a key", "K:", "bb\t", "K:Bb");
        row("not in a comment", "% K:", "bb\t", "% K:bb\t");
        row("nothing fits any more", "K:", "bx\t", "K:bx\t");
        row("none is chosen", "K:", "A\n", "K:A\n");
        row("in a field within the music", "K:C\n[K:", "F#m\t", "K:C\n[K:F#mix");
        row("a decoration", "K:C\n!f!C ", "!tri\t", "K:C\n!f!C !trill!");
        const auto tune =
            QStringLiteral("X: 1\nT: Kite\nM: 4/4\nL: 1/8\nK: G\nz4 z2 GA | B2 BA GA Bc | d2 (3edc B4- |\n"
                           "B2 !trill!A2 [GB]4 | [K: D]Bc d>B c2 A2 |]\n");
        row("a tune as it is typed", "", tune, tune);
        row("nothing to complete", "K:C\nC!f!", "ff", "K:C\nC!f!ff");
    }

    void completes()
    {
        QFETCH(QString, line);
        QFETCH(QString, typed);
        EditorFixture editor;
        editor.window.setInstruments({QStringLiteral("Harp"), QStringLiteral("Lute of Ages")});
        editor.text->setPlainText(line);
        editor.show();
        QCoreApplication::processEvents(); // the first colouring waits for the event loop
        editor.text->setFocus();
        QTRY_VERIFY(editor.text->hasFocus());
        editor.text->moveCursor(QTextCursor::End);
        for (const auto key : typed) {
            auto *const target = QApplication::activePopupWidget() != nullptr ? QApplication::activePopupWidget()
                                                                              : static_cast<QWidget *>(editor.text);
            if (key == u'\t')
                QTest::keyClick(target, Qt::Key_Tab);
            else if (key == u'v')
                QTest::keyClick(target, Qt::Key_Down);
            else if (key == u'\n')
                QTest::keyClick(target, Qt::Key_Return);
            else
                QTest::keyClick(target, key.toLatin1());
        }
        QTEST(editor.plainText(), "completed");
    }

    void caretIsSeen()
    {
        for (const int length : {10, 100'000}) {
            EditorFixture editor(QString(length, u'C'));
            editor.show();
            editor.text->setFocus();
            QTRY_VERIFY(editor.text->hasFocus());
            const auto start = editor.window.document().reading().layout.bodyOffset;
            editor.select(start + 2, start + 2);
            const auto place = editor.text->cursorRect();
            editor.select(start + 5, start + 5);
            const auto without = editor.text->viewport()->grab(place).toImage();
            editor.select(start + 2, start + 2);
            QTRY_VERIFY(editor.text->viewport()->grab(place).toImage() != without); // it blinks
        }
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
    }

private:
    // What lies behind and below each character of the tune's first line.
    static QString lit(EditorFixture &editor)
    {
        QCoreApplication::processEvents();
        const auto &c = EditorColours::of(editor.text->palette());
        const std::pair<QColor, char> letters[] = {{c.caretNote, 'c'}, {c.selectedNote, 'S'},
                                                   {c.bracket, 'b'},   {c.soundingNote, 's'},
                                                   {c.found, 'f'},     {QColor(0, 0, 0, 0), ' '}};
        const auto image = editor.text->viewport()->grab().toImage();
        const auto block = editor.text->document()->findBlockByNumber(6);
        QString found;
        for (int column = 0; column < block.length() - 1; ++column) {
            QTextCursor cursor(block);
            cursor.movePosition(QTextCursor::Right, QTextCursor::MoveAnchor, column);
            const auto left = editor.text->cursorRect(cursor);
            cursor.movePosition(QTextCursor::Right);
            const auto x = (left.center().x() + editor.text->cursorRect(cursor).center().x()) / 2;
            const auto difference = [&](const QColor &colour) {
                QImage dot(1, 1, QImage::Format_RGB32);
                dot.fill(editor.text->palette().color(QPalette::Base));
                QPainter painter(&dot);
                if (block == editor.text->textCursor().block())
                    painter.fillRect(dot.rect(), c.currentLine);
                painter.fillRect(dot.rect(), colour);
                const QColor wanted(dot.pixel(0, 0)), seen(image.pixel(x, left.top() + 1));
                return std::abs(wanted.red() - seen.red()) + std::abs(wanted.green() - seen.green()) +
                       std::abs(wanted.blue() - seen.blue());
            };
            const auto *const best =
                std::min_element(std::begin(letters), std::end(letters), [&](const auto &a, const auto &b) {
                    return difference(a.first) < difference(b.first);
                });
            bool hasWave = false;
            for (int y = left.bottom() - 3; y <= left.bottom(); ++y) {
                const QColor colour(image.pixel(x, y));
                hasWave = hasWave || colour.red() - colour.green() > 60;
            }
            found += hasWave ? u'w' : QChar(QLatin1Char(best->second));
        }
        while (found.endsWith(u' '))
            found.chop(1);
        return found;
    }
};

QTEST_MAIN(TestEditorText)
#include "test_editor_text.moc"
