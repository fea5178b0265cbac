#include "core/AbcParser.h"
#include "support/DescribeTrack.h"
#include "ui/editor/BracketMatch.h"
#include "ui/editor/EditorColours.h"
#include "ui/editor/EditorFixture.h"
#include "ui/editor/EditorPlayback.h"
#include "ui/editor/FindBar.h"
#include "ui/editor/PianoRoll.h"
#include "ui/editor/ProblemList.h"

#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRandomGenerator>
#include <QSlider>
#include <QSpinBox>
#include <QTextBlock>
#include <QTextLayout>
#include <QTimer>

namespace {

const auto header = QStringLiteral("X: 1\nT: Test\nM: 4/4\nL: 1/4\nQ: 1/4=120\nK: C\n");

// Answers the next modal dialog.
template<typename Fill>
void answerDialog(QDialogButtonBox::StandardButton button, Fill fill)
{
    QTimer::singleShot(0, qApp, [=] {
        auto *const dialog = QApplication::activeModalWidget();
        QVERIFY(dialog != nullptr);
        fill(*dialog);
        dialog->findChild<QDialogButtonBox *>()->button(button)->click();
    });
}

} // namespace

class TestEditorWindow : public QObject
{
    Q_OBJECT

private slots:
    void everyCommandHasWords();
    void findsAndReplaces_data();
    void findsAndReplaces();
    void keepsFindSettings();
    void replacesAllInOneStep();
    void matchesBrackets();
    void coloursTokens_data();
    void coloursTokens();
    void selectsInBothViews();
    void marksProblemsAndGoesToThem();
    void statusTellsTheCaret();
    void transforms();
    void asksAboutPendingChanges();
    void transformsOfNothingChangeNothing();
    void closingAsks();
    void appliesAndReverts();
    void plays();
    void loopsWithoutASeam();
    void playsFromCaretInAnotherTempo();
    void soundsPreviewNotes();
    void goesToLines();
    void survivesRandomEvents();
};

void TestEditorWindow::everyCommandHasWords()
{
    EditorFixture editor;
    int commands = 0;
    QMultiMap<QKeySequence, QString> shortcuts;
    for (const auto *const menu : editor.window.menuBar()->findChildren<QMenu *>()) {
        for (const auto *const action : menu->actions()) {
            if (action->isSeparator() || action->menu() != nullptr)
                continue;
            ++commands;
            QVERIFY2(!action->toolTip().isEmpty() && action->toolTip() != action->text(), qPrintable(action->text()));
            if (!action->shortcut().isEmpty() && action->shortcutContext() == Qt::WindowShortcut)
                shortcuts.insert(action->shortcut(), action->text());
        }
    }
    QVERIFY(commands > 60);
    for (const auto &shortcut : shortcuts.uniqueKeys())
        QVERIFY2(shortcuts.count(shortcut) == 1, qPrintable(shortcut.toString()));
}

void TestEditorWindow::findsAndReplaces_data()
{
    QTest::addColumn<QString>("find");
    QTest::addColumn<QString>("replace");
    QTest::addColumn<QString>("flags"); // w whole words, c case, x extended, r regular expression
    QTest::addColumn<QString>("count");
    QTest::addColumn<QString>("result"); // of "C cc Cc|\nc4 (C)\n"
    const auto row = [](const char *name, const char *find, const char *replace, const char *flags, const char *count,
                        const char *result) {
        QTest::newRow(name) << QString::fromLatin1(find) << QString::fromLatin1(replace) << QString::fromLatin1(flags)
                            << QString::fromLatin1(count) << QString::fromLatin1(result);
    };
    row("plain", "c", "d", "", "7", "d dd dd|\nd4 (d)\n");
    row("case", "c", "d", "c", "4", "C dd Cd|\nd4 (C)\n");
    row("whole words", "c", "d", "w", "2", "d cc Cc|\nc4 (d)\n");
    row("plain takes signs as they are", "(C)", "\\1", "c", "1", "C cc Cc|\nc4 \\1\n");
    row("plain is no expression", ".", "d", "", "0", "C cc Cc|\nc4 (C)\n");
    row("extended", "|\\n", " ", "x", "1", "C cc Cc c4 (C)\n");
    row("extended code", "\\x28C\\x29", "e\\tf", "x", "1", "C cc Cc|\nc4 e\tf\n");
    row("expression", "([a-z])(\\d)", "$2\\1", "rc", "1", "C cc Cc|\n4c (C)\n");
    row("expression with line ends", "^c", "d", "rc", "1", "C cc Cc|\nd4 (C)\n");
    row("expression with an empty match", "x*", "d", "r", "0", "C cc Cc|\nc4 (C)\n");
    row("broken expression", "(", "d", "r", "-", "C cc Cc|\nc4 (C)\n");
}

void TestEditorWindow::findsAndReplaces()
{
    QFETCH(QString, find);
    QFETCH(QString, replace);
    QFETCH(QString, flags);
    QFETCH(QString, count);
    SearchOptions options{find, replace};
    options.wholeWords = flags.contains(u'w');
    options.matchCase = flags.contains(u'c');
    options.mode = flags.contains(u'x')   ? SearchOptions::Extended
                   : flags.contains(u'r') ? SearchOptions::RegularExpression
                                          : SearchOptions::Plain;
    QString text = QStringLiteral("C cc Cc|\nc4 (C)\n");
    const auto pattern = TextSearch::pattern(options);
    QCOMPARE(pattern.isValid(), count != u"-");
    const auto matches = TextSearch::findAll(pattern, text);
    QCOMPARE(matches.size(), count.toInt());
    const auto original = text;
    for (auto match = matches.rbegin(); match != matches.rend(); ++match)
        text.replace(match->offset, match->length, TextSearch::replacement(options, pattern, original, *match));
    QTEST(text, "result");
}

void TestEditorWindow::keepsFindSettings()
{
    EditorFixture editor;
    editor.open(header + QStringLiteral("c d c d c\n"));
    editor.show();
    auto *const bar = editor.child<FindBar>("findBar");
    QVERIFY(!bar->isVisible());
    editor.trigger("actionFind");
    QVERIFY(bar->isVisible());
    QTest::keyClicks(editor.child<QLineEdit>("txtFind"), QStringLiteral("c d"));
    QCOMPARE(bar->countText(), QStringLiteral("2 matches"));
    QTest::keyClick(editor.child<QLineEdit>("txtFind"), Qt::Key_Return);
    QCOMPARE(editor.text->textCursor().selectedText(), QStringLiteral("c d"));
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

void TestEditorWindow::replacesAllInOneStep()
{
    EditorFixture editor;
    editor.open(header + QStringLiteral("c d c d c\n"));
    const auto before = editor.plainText();
    editor.settings.setValue(Settings::FindString, QStringLiteral("c"));
    editor.settings.setValue(Settings::ReplaceString, QStringLiteral("cc"));
    editor.settings.setValue(Settings::MatchCase, true);
    FindBar bar(*editor.text, editor.settings);
    bar.replaceAll();
    QCOMPARE(editor.body(), QStringLiteral("cc d cc d cc\n"));
    editor.trigger("actionUndo");
    QCOMPARE(editor.plainText(), before);
    editor.select(int(before.indexOf(QStringLiteral("c d"))), int(before.indexOf(QStringLiteral("c d"))) + 1);
    bar.replace();
    QCOMPARE(editor.body(), QStringLiteral("cc d c d c\n"));
    QCOMPARE(editor.text->textCursor().selectedText(), QStringLiteral("c"));
}

void TestEditorWindow::matchesBrackets()
{
    QTextDocument text(QStringLiteral("[K:G] (3abc (d [eg]) {ab}\n(c\nd) [1 x"));
    const auto partner = [&](int caret) { return matchBracket(text, caret); };
    QCOMPARE(partner(0), std::make_pair(0, 4));
    QCOMPARE(partner(6), std::make_pair(-1, -1));
    QCOMPARE(partner(12), std::make_pair(12, 19));
    QCOMPARE(partner(15), std::make_pair(15, 18));
    QCOMPARE(partner(20), std::make_pair(12, 19));
    QCOMPARE(partner(21), std::make_pair(21, 24));
    QCOMPARE(partner(26), std::make_pair(26, 30));
    QCOMPARE(partner(32), std::make_pair(-1, -1));
}

void TestEditorWindow::coloursTokens_data()
{
    QTest::addColumn<QString>("music");
    QTest::addColumn<QString>("colours"); // a letter for each character, a blank for the text's own colour
    QTest::newRow("note") << QStringLiteral("^c'3/2-") << QStringLiteral("ANNLLLT");
    QTest::newRow("rest and bar") << QStringLiteral("z4|:") << QStringLiteral("RRBB");
    QTest::newRow("chord") << QStringLiteral("[CE]2") << QStringLiteral("[NN[[");
    QTest::newRow("tuplet") << QStringLiteral("(3C>D") << QStringLiteral("33N3N");
    QTest::newRow("words") << QStringLiteral("\"Am\"!f!C%x") << QStringLiteral("\"\"\"\"DDDN%%");
    QTest::newRow("error") << QStringLiteral("C#") << QStringLiteral("NE");
    QTest::newRow("dollar means nothing") << QStringLiteral("$") << QStringLiteral("E");
    QTest::newRow("dollar breaks lines") << QStringLiteral("I:linebreak $\n$") << QStringLiteral("$");
}

void TestEditorWindow::coloursTokens()
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

void TestEditorWindow::selectsInBothViews()
{
    EditorFixture editor;
    editor.open(header + QStringLiteral("C D [EG] F\n"));
    editor.show();
    auto &document = editor.window.document();
    const auto body = document.reading().layout.bodyOffset;

    editor.select(body + 2, body + 8);
    QCOMPARE(document.selectedNotes(), (QVector<int>{1, 2, 3}));

    editor.trigger("actionShowRoll");
    auto *const roll = editor.child<PianoRoll>("pianoRoll");
    roll->setFocus();
    document.selectNotes({4});
    QCOMPARE(editor.text->textCursor().selectedText(), QStringLiteral("F"));
    document.selectNotes({0, 1});
    QCOMPARE(editor.text->textCursor().selectedText(), QStringLiteral("C D"));
    // What cannot be one selection of the text stays one of notes.
    document.selectNotes({0, 4});
    QVERIFY(!editor.text->textCursor().hasSelection());
    QCOMPARE(document.selectedNotes(), (QVector<int>{0, 4}));

    QTest::keyClick(roll, Qt::Key_Delete);
    QCOMPARE(editor.body(), QStringLiteral("z D [EG]\n"));
    editor.trigger("actionUndo");
    QCOMPARE(editor.body(), QStringLiteral("C D [EG] F\n"));
    document.setCaretTick(2 * ticksPerQuarter);
    QCOMPARE(editor.text->textCursor().position(), body + 4);
}

void TestEditorWindow::marksProblemsAndGoesToThem()
{
    EditorFixture editor;
    editor.open(header + QStringLiteral("C D\nE F\n"));
    editor.show();
    auto *const list = editor.child<ProblemList>("problemList");
    QVERIFY(!list->isVisible());
    auto cursor = editor.text->textCursor();
    cursor.movePosition(QTextCursor::End);
    editor.text->setTextCursor(cursor);
    for (const auto *const line : {"c ?", "[eg"}) {
        QTest::keyClicks(editor.text, QLatin1String(line));
        QTest::keyClick(editor.text, Qt::Key_Return);
    }
    QVERIFY(list->count() == 1);
    QTRY_COMPARE(list->count(), 2);
    QVERIFY(list->isVisible());
    QCOMPARE(editor.child<QLabel>("lblProblems")->text(), QStringLiteral("2 problems"));
    QVERIFY(editor.dialogs.messages.isEmpty());

    const auto place = list->visualItemRect(list->item(1)).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
    QCOMPARE(editor.text->textCursor().selectedText(), QStringLiteral("["));
    editor.trigger("actionPreviousProblem");
    QCOMPARE(editor.text->textCursor().selectedText(), QStringLiteral("?"));
    editor.trigger("actionPreviousProblem");
    QCOMPARE(editor.text->textCursor().selectedText(), QStringLiteral("["));
    QVERIFY(editor.text->problemAtLine(editor.text->cursorRect().center().y()).contains(QStringLiteral("not closed")));

    editor.trigger("actionApply");
    QVERIFY(editor.dialogs.takeMessages().value(0).contains(QStringLiteral("line 9, column 3")));
    QVERIFY(!editor.window.document().isApplied());
}

void TestEditorWindow::statusTellsTheCaret()
{
    EditorFixture editor;
    editor.open(header + QStringLiteral("C4 | ^F2 z\n"));
    const auto body = editor.window.document().reading().layout.bodyOffset;
    editor.select(body + 6, body + 6);
    QCOMPARE(editor.child<QLabel>("lblPlace")->text(), QStringLiteral("Line 7, column 7"));
    QCOMPARE(editor.child<QLabel>("lblTime")->text(), QStringLiteral("Measure 2, beat 1, tick 40320"));
    QCOMPARE(editor.child<QLabel>("lblNote")->text(), QStringLiteral("F♯4, 1/2"));
    editor.select(body + 9, body + 9);
    QCOMPARE(editor.child<QLabel>("lblTime")->text(), QStringLiteral("Measure 2, beat 3, tick 60480"));
    QCOMPARE(editor.child<QLabel>("lblNote")->text(), QString());
}

void TestEditorWindow::transforms()
{
    EditorFixture editor;
    editor.open(header + QStringLiteral("C D/ ^F2\n"));
    QSignalSpy applied(&editor.window, &AbcEditorWindow::applied);
    const auto start = editor.plainText();

    answerDialog(QDialogButtonBox::Ok, [](QWidget &dialog) { dialog.findChild<QSpinBox *>()->setValue(12); });
    editor.trigger("actionTranspose");
    QCOMPARE(editor.body(), QStringLiteral("c d/ ^f2 \n"));

    answerDialog(QDialogButtonBox::Ok, [](QWidget &dialog) { dialog.findChild<QComboBox *>()->setCurrentIndex(3); });
    editor.trigger("actionChangeUnitLength");
    QCOMPARE(editor.body(), QStringLiteral("c2 d ^f4 \n"));

    answerDialog(QDialogButtonBox::Ok, [](QWidget &dialog) {
        dialog.findChild<QComboBox *>(QStringLiteral("cboAccidentals"))->setCurrentIndex(6);
    });
    editor.trigger("actionChangeKey");
    QCOMPARE(editor.body(), QStringLiteral("c2 d f4 \n"));
    QCOMPARE(editor.window.document().track().headerField(QStringLiteral("K")), QStringLiteral("G"));

    answerDialog(QDialogButtonBox::Ok, [](QWidget &dialog) {
        dialog.findChild<QWidget *>(QStringLiteral("dlRegular"))->setProperty("value", 2);
    });
    editor.settings.setValue(Settings::RealignTriplets, 0);
    for (const auto setting : {Settings::RealignQuintuplets, Settings::RealignSeptuplets, Settings::RealignNonuplets})
        editor.settings.setValue(setting, 0);
    editor.trigger("actionRealignNotes");
    QCOMPARE(editor.body(), QStringLiteral("c2 [d2f4] \n"));
    QCOMPARE(applied.size(), 4);
    QVERIFY(editor.window.document().isApplied());
    for (int i = 0; i < 4; ++i)
        editor.trigger("actionUndo");
    QCOMPARE(editor.plainText(), start);
}

void TestEditorWindow::asksAboutPendingChanges()
{
    EditorFixture editor;
    editor.open(header + QStringLiteral("C4/7 D\n"));
    editor.text->insertPlainText(QStringLiteral("E "));
    const auto changed = editor.plainText();

    editor.trigger("actionQuickRealign");
    QCOMPARE(
        editor.dialogs.takeAsked(),
        QStringList{QStringLiteral("ABC Editor|There are unapplied changes. Would you like to apply these first?")});
    QCOMPARE(editor.plainText(), changed);

    editor.dialogs.answerOrCancel = Dialogs::Answer::No;
    editor.trigger("actionQuickRealign");
    QCOMPARE(editor.window.document().track().events().size(), 2);
    editor.trigger("actionUndo");
    QCOMPARE(editor.plainText(), changed);

    editor.dialogs.answerOrCancel = Dialogs::Answer::Yes;
    editor.trigger("actionQuickRealign");
    QCOMPARE(editor.window.document().track().events().size(), 3);

    // What cannot be applied stops the command.
    editor.text->insertPlainText(QStringLiteral("?"));
    const auto broken = editor.plainText();
    editor.trigger("actionQuickRealign");
    QCOMPARE(editor.dialogs.takeMessages().size(), 1);
    QCOMPARE(editor.plainText(), broken);
}

void TestEditorWindow::transformsOfNothingChangeNothing()
{
    EditorFixture editor;
    editor.open(header + QStringLiteral("C D\n"));
    const auto start = editor.plainText();
    for (const auto *const command :
         {"actionTranspose", "actionChangeUnitLength", "actionChangeKey", "actionRealignNotes"}) {
        answerDialog(QDialogButtonBox::Cancel, [](QWidget &) {});
        editor.trigger(command);
    }
    QCOMPARE(editor.plainText(), start);
    QVERIFY(editor.window.document().isApplied());
}

void TestEditorWindow::closingAsks()
{
    EditorFixture editor;
    editor.open(header + QStringLiteral("C D\n"));
    editor.show();
    QSignalSpy applied(&editor.window, &AbcEditorWindow::applied);
    editor.text->insertPlainText(QStringLiteral("E"));
    QVERIFY(editor.window.isWindowModified());
    QCOMPARE(editor.child<QLabel>("lblState")->text(), QStringLiteral("Unapplied changes"));
    QVERIFY(!editor.window.close());
    editor.dialogs.answerOrCancel = Dialogs::Answer::No;
    QVERIFY(editor.window.close());
    QVERIFY(applied.isEmpty());
    editor.show();
    editor.dialogs.answerOrCancel = Dialogs::Answer::Yes;
    QVERIFY(editor.window.close());
    QCOMPARE(applied.size(), 1);
    QCOMPARE(editor.dialogs.takeAsked().size(), 3);
    editor.show();
    QVERIFY(editor.window.close());
    QVERIFY(editor.dialogs.takeAsked().isEmpty());
}

void TestEditorWindow::appliesAndReverts()
{
    EditorFixture editor;
    const auto start = header + QStringLiteral("C D\n");
    editor.open(start);
    editor.show();
    QSignalSpy applied(&editor.window, &AbcEditorWindow::applied);
    editor.text->insertPlainText(QStringLiteral("E "));
    editor.text->setFocus();
    QTest::keyClick(editor.text, Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(applied.size(), 1);
    QVERIFY(!editor.window.isWindowModified());
    QCOMPARE(describe(applied.first().first().value<Track>()),
             QStringLiteral("64@0+10080 60@10080+10080 62@20160+10080"));
    editor.trigger("actionUndo");
    QVERIFY(editor.window.isWindowModified());
    QCOMPARE(editor.plainText(), start);
    editor.trigger("actionRevert");
    QCOMPARE(editor.body(), QStringLiteral("E C D\n"));
    QVERIFY(!editor.window.isWindowModified());
}

void TestEditorWindow::plays()
{
    EditorFixture editor;
    editor.open(header + QStringLiteral("C D E F| G4\n"));
    auto &document = editor.window.document();
    auto &playback = editor.window.playback();
    QStringList sounding;
    Ticks furthest = -1;
    connect(&document, &EditorDocument::soundingNotesChanged, this, [&] {
        for (const auto note : document.soundingNotes())
            sounding += QString::number(document.track().events()[note].pitch());
    });
    connect(&document, &EditorDocument::playPositionChanged, this,
            [&](Ticks tick) { furthest = std::max(furthest, tick); });
    editor.trigger("actionPlayFromStart");
    QVERIFY(playback.isPlaying());
    QVERIFY(editor.child<QAction>("actionStop")->isEnabled());
    QTRY_VERIFY_WITH_TIMEOUT(!playback.isPlaying(), 20000);
    sounding.removeDuplicates();
    QCOMPARE(sounding.join(u' '), QStringLiteral("60 62 64 65 67"));
    QVERIFY(furthest > 4 * ticksPerQuarter);
    QCOMPARE(document.playPosition(), Ticks(-1));
    QVERIFY(document.soundingNotes().isEmpty());

    editor.trigger("actionPlayFromStart");
    editor.trigger("actionStop");
    QVERIFY(!playback.isPlaying());
    QCOMPARE(document.playPosition(), Ticks(-1));
}

void TestEditorWindow::loopsWithoutASeam()
{
    const auto source = parseAbc(header + QStringLiteral("C2 D2 [Q:1/4=60] E2 F4\n"));
    const auto q = ticksPerQuarter;
    const PreviewTrack loop(source, {.from = 2 * q, .to = 7 * q, .tempoPercent = 50, .loops = true});
    const auto text = describe(loop.track());
    // The note that sounds beyond the end is cut, and each round begins in the tempo of its first note.
    QVERIFY2(text.startsWith(QStringLiteral("62@0+20160 Q302400@20160 64@20160+20160 65@40320+10080 Q604800@50400 "
                                            "62@50400+20160 Q302400@70560")),
             qPrintable(text.left(200)));
    QCOMPARE(loop.track().ticksPerMinute(), 604800);
    QCOMPARE(loop.sourceTick(0), 2 * q);
    QCOMPARE(loop.sourceTick(50400 + 100), 2 * q + 100);
    QCOMPARE(loop.sourceNote(5), (NoteSpec{2 * q, 2 * q, 62}));
    QCOMPARE(loop.sourceNote(3), (NoteSpec{6 * q, 4 * q, 65}));
    QCOMPARE(loop.sourceNote(1).length, Ticks(0));
    QVERIFY(loop.track().length() > 100 * 50400);
    QVERIFY(PreviewTrack(source, {.from = 20 * q}).isEmpty());
    QVERIFY(PreviewTrack({}, {.loops = true}).isEmpty());
}

void TestEditorWindow::playsFromCaretInAnotherTempo()
{
    EditorFixture editor;
    editor.open(header + QStringLiteral("C4 | D4 | E4 | F4\n"));
    auto &document = editor.window.document();
    const auto body = document.reading().layout.bodyOffset;
    editor.select(body + 5, body + 5);
    editor.child<QSlider>("sldTempo")->setValue(200);
    QTRY_COMPARE(editor.window.playback().tempoPercent(), 200);
    editor.child<QSlider>("sldTempo")->setValue(10);
    QCOMPARE(editor.child<QSlider>("sldTempo")->value(), 25);
    QVector<Ticks> positions;
    connect(&document, &EditorDocument::playPositionChanged, this, [&](Ticks tick) { positions.append(tick); });
    editor.trigger("actionPlayFromCaret");
    QCOMPARE(positions, QVector<Ticks>{ticksPerWholeNote});
    QTRY_VERIFY(positions.size() > 5);
    QVERIFY(std::is_sorted(positions.begin(), positions.end()));
    const auto before = document.playPosition();
    editor.window.playback().setTempoPercent(100);
    QVERIFY(document.playPosition() >= before);

    // Looping plays what is selected, as long as one likes.
    document.selectNotes({1});
    editor.trigger("actionLoopSelection");
    positions.clear();
    QTRY_VERIFY_WITH_TIMEOUT(!std::is_sorted(positions.begin(), positions.end()), 20000);
    QVERIFY(*std::max_element(positions.begin(), positions.end()) < 2 * ticksPerWholeNote);
    QVERIFY(*std::min_element(positions.begin(), positions.end()) >= ticksPerWholeNote);
    QVERIFY(editor.window.playback().isLooping());
    QVERIFY(document.isApplied());
}

void TestEditorWindow::soundsPreviewNotes()
{
    EditorFixture editor;
    QSignalSpy loading(&editor.player, &TrackPlayer::loadingSample);
    editor.window.document().playPreviewNote(60);
    QVERIFY(loading.wait());
    editor.window.document().stopPreviewNote();
}

void TestEditorWindow::goesToLines()
{
    EditorFixture editor;
    editor.open(header + QStringLiteral("C\n").repeated(300));
    editor.show();
    editor.dialogs.enteredText = QStringLiteral("250");
    editor.trigger("actionGoToLine");
    QCOMPARE(editor.text->textCursor().blockNumber(), 249);
    QVERIFY(editor.text->viewport()->rect().contains(editor.text->cursorRect()));
    editor.dialogs.enteredText = QStringLiteral("99999999999");
    editor.trigger("actionGoToLine");
    QCOMPARE(editor.text->textCursor().blockNumber(), 249);
    editor.dialogs.enteredText = QStringLiteral("5000");
    editor.trigger("actionGoToLine");
    QCOMPARE(editor.text->textCursor().blockNumber(), editor.text->blockCount() - 1);
    const auto size = editor.text->font().pointSizeF();
    editor.trigger("actionZoomIn");
    QVERIFY(editor.text->font().pointSizeF() > size);
    editor.trigger("actionZoomNormal");
    QCOMPARE(editor.text->font().pointSizeF(), size);
}

namespace {

// Keys, commands, clicks, drags, wheels and pastes, as a person in a hurry does them. Whatever opens is closed again.
class RandomUser
{
public:
    explicit RandomUser(EditorFixture &editor, quint32 seed) : editor_(editor), random_(seed)
    {
        for (auto *const action : editor_.window.findChildren<QAction *>()) {
            if (!action->objectName().contains(QStringLiteral("Close")) && action->menu() == nullptr)
                actions_.append(action);
        }
        editor_.dialogs.answerOrCancel = Dialogs::Answer::Yes;
        editor_.dialogs.enteredText = QStringLiteral("3");
    }

    void act()
    {
        auto *const roll = editor_.window.findChild<PianoRoll *>();
        auto *const view = random_.bounded(2) == 0 ? static_cast<QAbstractScrollArea *>(editor_.text) : roll;
        switch (random_.bounded(8)) {
        case 0:
        case 1:
            QTest::keyClick(editor_.text, letters_[random_.bounded(int(letters_.size()))].toLatin1());
            break;
        case 2:
            QTest::keyClick(view, keys_[random_.bounded(int(keys_.size()))], modifiers());
            break;
        case 3:
            runAction();
            break;
        case 4:
            QTest::mouseClick(view->viewport(), Qt::LeftButton, modifiers(), place(view));
            break;
        case 5:
            QTest::mousePress(view->viewport(), Qt::LeftButton, modifiers(), place(view));
            QTest::mouseMove(view->viewport(), place(view));
            QTest::mouseRelease(view->viewport(), Qt::LeftButton, modifiers(), place(view));
            break;
        case 6:
            QGuiApplication::clipboard()->setText(letters_.mid(random_.bounded(20), random_.bounded(30)));
            break;
        case 7:
            editor_.window.resize(300 + random_.bounded(900), 200 + random_.bounded(700));
            QCoreApplication::processEvents();
            break;
        }
    }

private:
    void runAction()
    {
        QTimer closer;
        QObject::connect(&closer, &QTimer::timeout, [] {
            if (auto *const dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget()))
                dialog->done(QDialog::Accepted);
            else if (auto *const popup = QApplication::activePopupWidget())
                popup->close();
        });
        closer.start(5);
        actions_[random_.bounded(int(actions_.size()))]->trigger();
    }
    Qt::KeyboardModifiers modifiers()
    {
        const Qt::KeyboardModifiers all[]{Qt::NoModifier, Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier,
                                          Qt::AltModifier};
        return all[random_.bounded(5)];
    }
    QPoint place(const QAbstractScrollArea *view)
    {
        const auto size = view->viewport()->size();
        return {random_.bounded(std::max(1, size.width())), random_.bounded(std::max(1, size.height()))};
    }

    EditorFixture &editor_;
    QRandomGenerator random_;
    QVector<QAction *> actions_;
    const QString letters_ = QStringLiteral("CDEFGABcdefgabzxZ|[](){}<>-/0123456789^_=,'!+.\"~%:KQML #?\\$");
    const QVector<Qt::Key> keys_{Qt::Key_Return, Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_Left,  Qt::Key_Right,
                                 Qt::Key_Up,     Qt::Key_Down,      Qt::Key_Home,   Qt::Key_End,   Qt::Key_PageDown,
                                 Qt::Key_Insert, Qt::Key_D,         Qt::Key_S,      Qt::Key_Z,     Qt::Key_A,
                                 Qt::Key_X,      Qt::Key_V,         Qt::Key_C,      Qt::Key_Escape};
};

} // namespace

// COMPOSER_RANDOM_EVENTS sets their number.
void TestEditorWindow::survivesRandomEvents()
{
    bool isSet = false;
    const auto wanted = qEnvironmentVariableIntValue("COMPOSER_RANDOM_EVENTS", &isSet);
    const auto events = isSet ? wanted : 400;
    EditorFixture editor;
    const auto start = header + QStringLiteral("C D [EG]2 | (3abc d>e | z4 | F4- | F4 |\n").repeated(4);
    editor.open(start);
    editor.show();
    editor.trigger("actionShowRoll");
    RandomUser user(editor, 11);
    for (int i = 0; i < events; ++i) {
        user.act();
        if (i % 50 == 0)
            QCoreApplication::processEvents();
        // Replacing all of all by more of all grows without end.
        if (editor.plainText().size() > 20000)
            editor.open(start);
    }
    QVERIFY(QApplication::activeModalWidget() == nullptr);
    auto &document = editor.window.document();
    document.update();
    if (!document.hasErrors())
        QCOMPARE(describe(document.track()), describe(parseAbc(document.text()->toPlainText())));
}

QTEST_MAIN(TestEditorWindow)
#include "test_editor_window.moc"
