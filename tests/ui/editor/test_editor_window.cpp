#include "support/DescribeTrack.h"
#include "ui/EditorFixture.h"
#include "ui/editor/EditorPlayback.h"
#include "ui/editor/StepEntry.h"
#include "ui/roll/PianoRoll.h"
#include "ui/roll/RollActions.h"

#include <QDialogButtonBox>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>
#include <QSet>
#include <QSlider>
#include <QStatusBar>
#include <QTextBlock>
#include <QTimer>

#include <functional>

namespace {

// Gives a command, sets a property of a child of its dialog, and leaves the dialog by the button.
void perform(EditorFixture &editor, const char *command, QDialogButtonBox::StandardButton button, const char *child,
             const char *property, int value)
{
    QTimer::singleShot(0, qApp, [=] {
        auto *const dialog = QApplication::activeModalWidget();
        QVERIFY(dialog != nullptr);
        dialog->findChild<QWidget *>(QLatin1String(child))->setProperty(property, value);
        dialog->findChild<QDialogButtonBox *>()->button(button)->click();
    });
    editor.trigger(command);
}

} // namespace

class TestEditorWindow : public QObject
{
    Q_OBJECT

private slots:
    void shortcutsAreUnique()
    {
        EditorFixture editor;
        QStringList shortcuts;
        for (const auto *const action : editor.window.findChildren<QAction *>()) {
            if (!action->shortcut().isEmpty() && action->shortcutContext() == Qt::WindowShortcut)
                shortcuts += action->shortcut().toString();
        }
        QVERIFY(shortcuts.size() > 20);
        QCOMPARE(shortcuts.removeDuplicates(), 0);
    }

    void everyCommandIsInAMenu()
    {
        EditorFixture editor;
        QSet<QAction *> inMenus;
        for (const auto *const menu : editor.window.findChildren<QMenu *>()) {
            for (auto *const action : menu->actions()) {
                inMenus.insert(action);
                QVERIFY(action->isSeparator() || !action->text().isEmpty());
            }
        }
        for (auto *const action : editor.window.findChildren<QAction *>()) {
            if (action->objectName().startsWith(QStringLiteral("action")))
                QVERIFY2(inMenus.contains(action), qPrintable(action->objectName()));
        }
    }

    void selectsInBothViews()
    {
        EditorFixture editor("C D [EG] F\n");
        editor.show();
        auto &document = editor.window.document();
        editor.select(2, 8);
        QCOMPARE(document.selectedNotes(), (QVector<int>{1, 2, 3}));

        editor.trigger("actionShowRoll");
        auto *const roll = editor.child<PianoRoll>("pianoRoll");
        roll->setFocus();
        document.selectNotes({4});
        QCOMPARE(editor.selected(), QStringLiteral("F"));
        document.selectNotes({0, 1});
        QCOMPARE(editor.selected(), QStringLiteral("C D"));
        // What cannot be one selection of the text stays one of notes.
        document.selectNotes({0, 4});
        QVERIFY(!editor.text->textCursor().hasSelection());
        QCOMPARE(document.selectedNotes(), (QVector<int>{0, 4}));

        QTest::keyClick(roll, Qt::Key_Delete);
        QCOMPARE(editor.body(), QStringLiteral("z D [EG]\n"));
        QContextMenuEvent asked(QContextMenuEvent::Keyboard, {}, {});
        QCoreApplication::sendEvent(editor.text->viewport(), &asked);
        auto *const menu = editor.text->findChild<QMenu *>();
        QVERIFY(menu != nullptr);
        menu->actions().first()->trigger(); // it undoes notes, too
        menu->close();
        QCOMPARE(editor.body(), QStringLiteral("C D [EG] F\n"));
        document.setCaretTick(2 * ticksPerQuarter);
        QVERIFY(editor.plainText().mid(editor.text->textCursor().position()).startsWith(QStringLiteral("[EG]")));
    }

    void entersWhatIsPlayed_data()
    {
        const Rows<QString, QString, QString, QString, int> row("view", "body", "keys", "result", "caret");
        row("text: notes and a chord", "text", "C D\n", "60 64,60,67 61", "C D C [CEG] ^C\n", 3);
        row("text: what holds in the measure", "text", "^C D | E\n", "61 60 61", "^C D C =C ^C | E\n", 4);
        row("text: in the middle of a note", "text", "C2D2\n", "64 65", "C2 E FD2\n", 1);
        row("text: behind a comment", "text", "C % end", "64", "C % end\nE", 7);
        row("text: not of the instruments", "text", "C\n", "5 120", "C\n", 1);
        row("roll", "roll", "C D E F\n", "72 64,67", "[Cc] [DEG] E F\n", 0);
    }

    // Keys of a chord are joined by commas.
    void entersWhatIsPlayed()
    {
        QFETCH(QString, view);
        QFETCH(QString, body);
        QFETCH(QString, keys);
        QFETCH(int, caret);
        EditorFixture editor(body);
        editor.show();
        auto &entry = editor.window.stepEntry();
        entry.press(60); // while it is off
        entry.release(60);
        editor.trigger("actionStepEntry");
        editor.trigger("actionShowRoll");
        editor.child<QWidget>(view == u"roll" ? "pianoRoll" : "abcText")->setFocus();
        editor.select(caret, caret);
        for (const auto &chord : keys.split(u' ')) {
            for (const auto &key : chord.split(u','))
                entry.press(key.toInt());
            for (const auto &key : chord.split(u','))
                entry.release(key.toInt());
        }
        QTEST(editor.body(), "result");
        for (int i = 0; i < keys.split(u' ').size(); ++i) // each is a step
            editor.trigger("actionUndo");
        QCOMPARE(editor.body(), body);
    }

    void commandsSayWhetherTheyCan()
    {
        EditorFixture editor("C D\n");
        editor.show();
        editor.text->setFocus();
        const auto enabled = [&] {
            QStringList names;
            for (const auto *const name : {"Apply", "Revert", "Undo", "Redo", "Cut", "Copy", "Stop"}) {
                if (editor.child<QAction>(qPrintable(QStringLiteral("action") + QLatin1String(name)))->isEnabled())
                    names += QLatin1String(name);
            }
            return names.join(u' ');
        };
        QCOMPARE(enabled(), QString());
        editor.insert("E ");
        QCOMPARE(enabled(), QStringLiteral("Apply Revert Undo"));
        editor.trigger("actionUndo");
        QCOMPARE(enabled(), QStringLiteral("Redo"));
        editor.trigger("actionRedo");
        QCOMPARE(editor.body(), QStringLiteral("E C D\n"));
        QVERIFY(editor.window.document().isCurrent());
        editor.trigger("actionApply");
        QCOMPARE(editor.window.statusBar()->currentMessage(), QStringLiteral("The changes are applied."));
        const QString tooLong(500, u'M');
        editor.window.statusBar()->showMessage(tooLong);
        QVERIFY(editor.window.statusBar()->currentMessage().endsWith(u'…'));
        editor.trigger("actionSelectAll");
        QCOMPARE(enabled(), QStringLiteral("Undo Cut Copy"));
        const auto all = editor.plainText();
        editor.trigger("actionCut");
        QCOMPARE(editor.plainText(), QString());
        editor.trigger("actionPaste");
        QCOMPARE(editor.plainText(), all);
        editor.select(0, 2);
        editor.trigger("actionCopy");
        editor.trigger("actionPaste");
        editor.trigger("actionPaste");
        QCOMPARE(editor.body(), QStringLiteral("E E C D\n"));
        editor.trigger("actionPlayFromStart");
        QVERIFY(enabled().endsWith(QStringLiteral("Stop")));
        editor.open("C\n"); // another tune: silence
        QCOMPARE(enabled(), QString());
    }

    void commandsOfTheView()
    {
        EditorFixture editor("C D\n");
        editor.show();
        const struct
        {
            const char *command;
            std::function<bool()> isOn;
        } switches[] = {
            {"actionShowRoll", [&] { return editor.child<PianoRoll>("pianoRoll")->isVisible(); }},
            {"actionShowProblems", [&] { return editor.child<QWidget>("problemList")->isVisible(); }},
            {"actionWrapLines", [&] { return editor.text->lineWrapMode() == QPlainTextEdit::WidgetWidth; }},
        };
        for (const auto &change : switches) {
            auto *const action = editor.child<QAction>(change.command);
            for (int i = 0; i < 3; ++i) {
                QCOMPARE(change.isOn(), action->isChecked());
                action->trigger();
            }
        }
        auto *const follow = editor.child<QAction>("actionFollow");
        auto *const followOfRoll = editor.child<PianoRoll>("pianoRoll")->actions().action(RollActions::Follow);
        for (auto *const action : {follow, followOfRoll}) { // is the same by both keys
            QVERIFY(follow->isChecked() && followOfRoll->isChecked());
            action->trigger();
            QVERIFY(!follow->isChecked() && !followOfRoll->isChecked());
            action->trigger();
        }
        if (editor.child<QAction>("actionShowRoll")->isChecked())
            editor.trigger("actionShowRoll");
        QVERIFY(!editor.settings.value(Settings::PianoRollVisible).toBool());
        auto *const roll = editor.child<PianoRoll>("pianoRoll");
        QTRY_VERIFY(editor.text->hasFocus());
        editor.trigger("actionSwitchView");
        QVERIFY(roll->isVisible() && roll->hasFocus() && editor.settings.value(Settings::PianoRollVisible).toBool());
        editor.trigger("actionSwitchView");
        QVERIFY(roll->isVisible() && editor.text->hasFocus());

        auto *const tempo = editor.child<QSlider>("sldTempo");
        QStringList tempos;
        for (const auto *const command : {"actionFaster", "actionFaster", "actionNormalTempo", "actionSlower"}) {
            editor.trigger(command);
            tempos += QString::number(tempo->value());
        }
        QCOMPARE(tempos.join(u' '), QStringLiteral("105 110 100 95"));
    }

    void beginsWithTheRollAsItWas()
    {
        EditorFixture editor;
        for (const bool isVisible : {true, false}) {
            editor.settings.setValue(Settings::PianoRollVisible, isVisible);
            AbcEditorWindow other(editor.settings, editor.dialogs, editor.player);
            QCOMPARE(other.findChild<PianoRoll *>()->isVisibleTo(&other), isVisible);
            QCOMPARE(other.findChild<QAction *>(QStringLiteral("actionShowRoll"))->isChecked(), isVisible);
        }
    }

    void transforms()
    {
        EditorFixture editor("C D/ ^F2 | % end\n");
        for (const auto setting : {Settings::RealignTriplets, Settings::RealignQuintuplets, Settings::RealignSeptuplets,
                                   Settings::RealignNonuplets})
            editor.settings.setValue(setting, 0);
        for (const auto &[command, child] :
             {std::pair("actionChangeUnitLength", "cboUnitLength"), {"actionChangeKey", "cboAccidentals"}}) {
            perform(editor, command, QDialogButtonBox::Ok, child, "toolTip", 0);
            QCOMPARE(editor.body(), QStringLiteral("C D/ ^F2 | % end\n")); // it begins with what the tune has
            QVERIFY(!editor.window.document().canUndo());
        }
        QSignalSpy applied(&editor.window, &AbcEditorWindow::applied);
        const auto start = editor.plainText();
        const struct
        {
            const char *command, *child, *property;
            int value;
            const char *body;
        } steps[] = {{"actionTranspose", "spTranspose", "value", 12, "c d/ ^f2 | % end\n"},
                     {"actionChangeUnitLength", "cboUnitLength", "currentIndex", 3, "c2 d ^f4 | % end\n"},
                     {"actionChangeKey", "cboAccidentals", "currentIndex", 6, "c2 d f4 | % end\n"},
                     {"actionRealignNotes", "dlRegular", "value", 2, "c2 [d2f4] | % end\n"}};
        editor.select(3, 3);
        const auto line = [&] { return editor.text->textCursor().blockNumber(); };
        const auto ownLine = line();
        for (const auto &step : steps) {
            const auto before = editor.plainText();
            perform(editor, step.command, QDialogButtonBox::Cancel, step.child, step.property, step.value);
            QCOMPARE(editor.plainText(), before);
            perform(editor, step.command, QDialogButtonBox::Ok, step.child, step.property, step.value);
            QCOMPARE(editor.body(), QLatin1String(step.body));
            QCOMPARE(line(), ownLine);
        }
        QCOMPARE(editor.window.document().track().headerField(QStringLiteral("K")), QStringLiteral("G"));
        QCOMPARE(applied.size(), 4);
        QVERIFY(editor.window.document().isApplied());
        for (int i = 0; i < 4; ++i) {
            editor.trigger("actionUndo");
            QCOMPARE(line(), ownLine);
        }
        QCOMPARE(editor.plainText(), start);
    }

    void limitsOfThePreferencesHold()
    {
        EditorFixture editor("[CEG] D\n");
        auto *const list = editor.child<QListWidget>("problemList");
        const auto shows = [&](const char *text) { return !list->findItems(Text(text), Qt::MatchContains).isEmpty(); };
        editor.settings.setValue(Settings::CheckNotesAtOnce, 2);
        QTRY_VERIFY(shows("3 notes sound at once; the limit is 2"));
        editor.settings.setValue(Settings::CheckNotesAtOnce, 0);
        QTRY_VERIFY(shows("No problems"));
        editor.settings.setValue(Settings::CheckCharacters, 10);
        QTRY_VERIFY(shows("the limit is 10"));
    }

    void quantises()
    {
        EditorFixture editor("C65/64 D63/64 E F\n");
        editor.trigger("actionCleanQuantise");
        QCOMPARE(editor.body(), QStringLiteral("C D E F\n"));
    }

    void transformsTheSelection()
    {
        EditorFixture editor("C D % keep\nE F|\n");
        editor.select(0, 3);
        perform(editor, "actionTranspose", QDialogButtonBox::Ok, "spTranspose", "value", 12);
        QCOMPARE(editor.body(), QStringLiteral("c d % keep\nE F|\n"));
        QCOMPARE(editor.window.document().selectedNotes().size(), 2);
        // The caret stays on its line, also when the step is taken back.
        editor.select(1, 1);
        editor.window.document().selectNotes({});
        editor.child<QAction>("actionQuickRealign")->trigger();
        perform(editor, "actionTranspose", QDialogButtonBox::Ok, "spTranspose", "value", -12);
        const auto line = [&] { return editor.text->textCursor().block().text(); };
        QCOMPARE(line(), QStringLiteral("C D % keep"));
        editor.trigger("actionUndo");
        QCOMPARE(line(), QStringLiteral("c d % keep"));
    }

    void asksAboutPendingChanges()
    {
        EditorFixture editor("C4/7 D\n");
        editor.insert("E ");
        const auto changed = editor.plainText();
        const auto realignWith = [&editor](std::optional<Dialogs::Answer> answer) {
            editor.dialogs.answerOrCancel = answer;
            editor.trigger("actionQuickRealign");
        };
        realignWith(std::nullopt);
        QCOMPARE(editor.dialogs.takeAsked().join(u'\n'),
                 QStringLiteral("ABC Editor|There are unapplied changes. Would you like to apply these first?"));
        QCOMPARE(editor.plainText(), changed);
        realignWith(Dialogs::Answer::No);
        QCOMPARE(editor.window.document().track().events().size(), 2);
        editor.trigger("actionUndo");
        QCOMPARE(editor.plainText(), changed);
        realignWith(Dialogs::Answer::Yes);
        QCOMPARE(editor.window.document().track().events().size(), 3);

        // What cannot be applied stops the command.
        editor.insert("?");
        const auto broken = editor.plainText();
        editor.trigger("actionQuickRealign");
        QCOMPARE(editor.dialogs.takeMessages().size(), 1);
        QCOMPARE(editor.plainText(), broken);
    }

    void closingAsks()
    {
        EditorFixture editor("C D\n");
        QSignalSpy applied(&editor.window, &AbcEditorWindow::applied);
        const auto closesWith = [&editor](std::optional<Dialogs::Answer> answer) {
            editor.show();
            editor.dialogs.answerOrCancel = answer;
            return editor.window.close();
        };
        editor.insert("E");
        QVERIFY(editor.window.isWindowModified());
        QCOMPARE(editor.label("lblState"), QStringLiteral("Unapplied changes"));
        QVERIFY(!closesWith(std::nullopt));
        QVERIFY(closesWith(Dialogs::Answer::No));
        QVERIFY(applied.isEmpty());
        QVERIFY(closesWith(Dialogs::Answer::Yes));
        QCOMPARE(applied.size(), 1);
        QCOMPARE(editor.dialogs.takeAsked().size(), 3);
        QVERIFY(closesWith(std::nullopt)); // nothing is left to ask about
        QVERIFY(editor.dialogs.takeAsked().isEmpty());
    }

    void closingKeepsWhatHasErrors()
    {
        EditorFixture editor("C D\n");
        using Draft = std::optional<QString>;
        QVector<Draft> closing;
        connect(&editor.window, &AbcEditorWindow::closing, this, [&](const Draft &draft) { closing.append(draft); });
        const auto closesWith = [&editor](Dialogs::DraftAnswer answer) {
            editor.show();
            editor.dialogs.draftAnswer = answer;
            return editor.window.close();
        };
        editor.insert("? ");
        const auto broken = editor.plainText();
        QVERIFY(!closesWith(Dialogs::DraftAnswer::Fix));
        QVERIFY(closing.isEmpty());
        QVERIFY(closesWith(Dialogs::DraftAnswer::KeepAsDraft));
        editor.insert("? ");
        QVERIFY(closesWith(Dialogs::DraftAnswer::Discard));
        QCOMPARE(editor.dialogs.takeAsked().size(), 3);
        QCOMPARE(closing, (QVector<Draft>{broken, std::nullopt}));
    }

    void savesWhatIsApplied()
    {
        EditorFixture editor("C D\n");
        QSignalSpy applied(&editor.window, &AbcEditorWindow::applied);
        QSignalSpy wanted(&editor.window, &AbcEditorWindow::saveRequested);
        editor.insert("E ");
        editor.trigger("actionSave");
        QCOMPARE(applied.size(), 1);
        editor.insert("? ");
        editor.trigger("actionSave");
        QCOMPARE(applied.size(), 1);
        QCOMPARE(wanted.size(), 2);
        QVERIFY(editor.window.isWindowModified());
    }

    void appliesAndReverts()
    {
        EditorFixture editor("C D\n");
        editor.show();
        QSignalSpy applied(&editor.window, &AbcEditorWindow::applied);
        QCOMPARE(editor.window.windowTitle(), QStringLiteral("Test[*] – ABC Editor"));
        editor.insert("E ");
        editor.text->setFocus();
        QTest::keyClick(editor.text, Qt::Key_Return, Qt::ControlModifier);
        QCOMPARE(applied.size(), 1);
        QVERIFY(!editor.window.isWindowModified());
        QCOMPARE(describe(applied.first().first().value<Track>()),
                 QStringLiteral("64@0+10080 60@10080+10080 62@20160+10080"));
        emit qobject_cast<QMenu *>(editor.window.menuBar()->actions()[1]->menu())->aboutToShow();
        QCOMPARE(editor.child<QAction>("actionUndo")->text(), QStringLiteral("&Undo Typing"));
        editor.trigger("actionUndo");
        QVERIFY(editor.window.isWindowModified());
        QCOMPARE(editor.body(), QStringLiteral("C D\n"));
        editor.trigger("actionRevert");
        QCOMPARE(editor.body(), QStringLiteral("E C D\n"));
        QVERIFY(!editor.window.isWindowModified());
    }

    void plays()
    {
        EditorFixture editor("C D E F| G4\n");
        auto &document = editor.window.document();
        auto &playback = editor.window.playback();
        QStringList sounding;
        Ticks furthest = -1;
        connect(&document, &EditorDocument::soundingNotesChanged, this, [&] {
            for (const auto note : document.playback().notes())
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
        QVERIFY(furthest > 4 * ticksPerQuarter && furthest < document.track().length());
        QCOMPARE(document.playback().position(), Ticks(-1));
        QVERIFY(document.playback().notes().isEmpty());

        editor.trigger("actionPlayFromStart");
        editor.trigger("actionStop");
        QVERIFY(!playback.isPlaying());
        QCOMPARE(document.playback().position(), Ticks(-1));
    }

    // In the middle of a loop, which goes on; and beside the other parts of a song.
    void hearsEditsAndTheSong()
    {
        EditorFixture editor("CDEF\n");
        editor.show();
        auto &document = editor.window.document();
        auto &playback = editor.window.playback();
        QSet<quint32> heard;
        connect(&document, &EditorDocument::soundingNotesChanged, this, [&] {
            for (const auto note : document.playback().notes())
                heard.insert(document.track().events()[note].pitch());
        });
        QSignalSpy stopped(&editor.player, &TrackPlayer::trackStopped);
        QSignalSpy pressed(&editor.player, &TrackPlayer::notePressed);
        const auto hasPressed = [&pressed](const QString &part) {
            return std::any_of(pressed.begin(), pressed.end(),
                               [&](const auto &note) { return note[0].toString().endsWith(part); });
        };
        const auto other = QStringLiteral("/T2");
        playback.setCompanions([&editor] {
            const auto track = parseAbc(QStringLiteral("L:1/8\nK:C\nCDEFGABc\n"));
            return Companions{{},
                              0,
                              {{.trackId = QStringLiteral("T2"),
                                .track = track,
                                .instrument = instrumentOf(editor.samples.click())}}};
        });
        editor.trigger("actionLoopSelection");
        QTRY_VERIFY(heard.contains(65));
        editor.select(4, 4);
        editor.insert("G"); // the loop becomes longer
        QTRY_VERIFY(heard.contains(67));
        heard.clear();
        QTRY_VERIFY(heard.contains(60) && heard.contains(67));
        QVERIFY(stopped.isEmpty() && playback.isLooping() && !hasPressed(other));
        editor.trigger("actionWithSong");
        QTRY_VERIFY(hasPressed(other));
        editor.trigger("actionWithSong");
        QTRY_COMPARE(stopped.size(), 1);
        QVERIFY(stopped[0][0].toString().endsWith(other) && playback.isPlaying());

        QTest::keyClick(editor.text, Qt::Key_Space, Qt::ControlModifier);
        QVERIFY(!playback.isPlaying());
        editor.trigger("actionWithSong");
        pressed.clear();
        editor.select(0, 0);
        QTest::keyClick(editor.text, Qt::Key_Space, Qt::ControlModifier);
        QVERIFY(playback.isPlaying() && !playback.isLooping());
        QTRY_VERIFY(hasPressed(other));
    }

    void playsFromCaretInAnotherTempo()
    {
        EditorFixture editor("C4 | D4 | E4 | F4\n");
        auto &document = editor.window.document();
        auto &playback = editor.window.playback();
        editor.select(5, 5);
        auto *const tempo = editor.child<QSlider>("sldTempo");
        tempo->setValue(200);
        QTRY_COMPARE(playback.tempoPercent(), 200);
        tempo->setValue(10);
        QCOMPARE(tempo->value(), 25);
        QVector<Ticks> positions;
        connect(&document, &EditorDocument::playPositionChanged, this, [&](Ticks tick) { positions.append(tick); });
        editor.trigger("actionPlayFromCaret");
        QCOMPARE(positions, QVector<Ticks>{ticksPerWholeNote});
        QTRY_VERIFY(positions.size() > 5);
        QVERIFY(std::is_sorted(positions.begin(), positions.end()));
        playback.setTempoPercent(100);
        QVERIFY(playback.isPlaying());

        // Looping plays what is selected, as long as one likes.
        document.selectNotes({1});
        editor.trigger("actionLoopSelection");
        positions.clear();
        QTRY_VERIFY_WITH_TIMEOUT(!std::is_sorted(positions.begin(), positions.end()), 20000);
        const auto [first, last] = std::minmax_element(positions.begin(), positions.end());
        QVERIFY(*first >= ticksPerWholeNote && *last < 2 * ticksPerWholeNote);
        QVERIFY(playback.isLooping());
        QVERIFY(document.isApplied());
    }

    // Whatever begins to sound ends when it is told to, long before its sample does.
    void endsWhatSounds_data()
    {
        const Rows<bool, QString> row("isPreview", "ending");
        row("preview", true, "stop");
        row("stop", false, "actionStop");
        row("another tune", false, "open");
        row("closed", false, "actionClose");
    }

    void endsWhatSounds()
    {
        QFETCH(bool, isPreview);
        QFETCH(QString, ending);
        EditorFixture editor("C400\n");
        editor.show();
        double level = -1;
        connect(&editor.player, &TrackPlayer::masterMeter, this, [&](float left) { level = double(left); });
        editor.window.setInstrument(instrumentOf(editor.samples.level(16384, 4'800'000)));
        if (isPreview)
            editor.window.document().playPreviewNote(60);
        else
            editor.trigger("actionPlayFromStart");
        QTRY_VERIFY(level > 0);
        if (isPreview)
            editor.window.document().stopPreviewNote();
        else if (ending == u"open")
            editor.open("C\n");
        else
            editor.trigger(qPrintable(ending));
        QTRY_COMPARE_WITH_TIMEOUT(level, 0.0, 3000);
    }

    void playsAnotherInstrumentAtOnce()
    {
        EditorFixture editor(QStringLiteral("C").repeated(400));
        QSignalSpy loading(&editor.player, &TrackPlayer::loadingSample);
        editor.trigger("actionPlayFromStart");
        QVERIFY(loading.wait());
        editor.window.setInstrument(instrumentOf(editor.samples.level(16384, 100)));
        QTRY_VERIFY(loading.last().first().toString().endsWith(QStringLiteral("level-16384-100.wav")));
    }
};

QTEST_MAIN(TestEditorWindow)
#include "test_editor_window.moc"
