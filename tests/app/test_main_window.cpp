// What the window does with the tracks that it has.
#include "app/ExampleSongs.h"
#include "app/WindowFixture.h"
#include "core/AbcParser.h"
#include "song/SongFile.h"
#include "support/MidiBytes.h"
#include "ui/editor/AbcEditorWindow.h"
#include "ui/editor/EditorPlayback.h"
#include "ui/manual/ManualWindow.h"
#include "ui/song/DragHandle.h"
#include "ui/song/TrackRows.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDial>
#include <QDialog>
#include <QDockWidget>
#include <QDragEnterEvent>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QPushButton>
#include <QScreen>
#include <QTcpServer>
#include <QTcpSocket>
#include <QToolBar>
#include <QToolButton>
#include <QUndoView>

#include <atomic>

class TestMainWindow : public QObject
{
    Q_OBJECT

    std::unique_ptr<WindowFixture> fixture_;

private slots:
    void init()
    {
        fixture_ = std::make_unique<WindowFixture>(demoGame);
        QVERIFY(fixture_->waitUntilLoaded());
    }

    void cleanup() { fixture_.reset(); }

    void startsEmpty()
    {
        QVERIFY(fixture_->child<QWidget>("emptyHint")->isVisible());
        QVERIFY(fixture_->child<QComboBox>("instrumentList")->count() > 5);
        QVERIFY(fixture_->child<QComboBox>("instrumentList")->isVisible());
        QVERIFY(!fixture_->action("actionPlay")->isEnabled());
        for (const auto *const button : {"btnHintImport", "btnHintOpen"})
            fixture_->child<QPushButton>(button)->click();
        QCOMPARE(fixture_->dialogs().takeAsked().join(u' ').count(QStringLiteral("Choose ")), 2);
        fixture_->trigger("actionManual");
        QVERIFY(fixture_->window().findChild<ManualWindow *>());
        fixture_->trigger("actionNew_Track");
        QCOMPARE(fixture_->titles(), QStringList(QStringLiteral("Untitled")));
        QVERIFY(!fixture_->child<QWidget>("emptyHint")->isVisible());
        QCOMPARE(fixture_->row(0)->instrumentName(), fixture_->child<QComboBox>("instrumentList")->currentText());
    }

    void newTracksHaveTheMetreOfTheSong()
    {
        const auto metre = [this] { return fixture_->tracks().song().last()->track->headerField(QStringLiteral("M")); };
        fixture_->trigger("actionNew_Track");
        QCOMPARE(metre(), QStringLiteral("4/4"));
        fixture_->tracks().remove({}, fixture_->tracks().ids());
        fixture_->tracks().add({}, {{parseAbc(QStringLiteral("X:1\nM:3/4\nK:C\nC")), {}}});
        fixture_->trigger("actionNew_Track");
        QCOMPARE(metre(), QStringLiteral("3/4"));
    }

    void barsHoldTheirControls()
    {
        const auto &screen = *fixture_->window().screen();
        QVERIFY(QRect(QPoint(), screen.availableSize()).contains({QPoint(), fixture_->window().size()}));
        fixture_->window().resize(1180, 760);
        QCoreApplication::processEvents();
        for (const auto &[bar, control] :
             {std::pair("tbInstrument", "instrumentList"), {"tbVU", "masterMeter"}, {"tbVU", "slMasterVolume"}}) {
            auto *const widget = fixture_->child<QWidget>(control);
            QVERIFY(fixture_->child<QWidget>(bar)->isAncestorOf(widget) && widget->isVisible());
        }
        fixture_->window().resize(800, 600);
        QCoreApplication::processEvents();
        const auto *const playback = fixture_->child<QToolBar>("tbPlayback");
        QTRY_VERIFY(playback->widgetForAction(fixture_->action("actionStop"))->isVisible());
        QCOMPARE(fixture_->window().width(), 800);
    }

    void panelsTakeTheKeyboard()
    {
        for (const auto &[dock, view] : {std::pair("dockFindings", "findings"), std::pair("dockHistory", "historyView"),
                                         std::pair("dockImportReport", "importReport")}) {
            fixture_->child<QDockWidget>(dock)->toggleViewAction()->trigger();
            QCOMPARE(fixture_->window().focusWidget()->objectName(), QString::fromLatin1(view));
        }
    }

    void comesBackWithItsSizeAndBars()
    {
        fixture_->window().resize(760, 540);
        fixture_->child<QWidget>("tbPlayback")->hide();
        fixture_->child<QWidget>("dockHistory")->show();
        QCoreApplication::processEvents();
        const auto size = fixture_->window().size();
        QVERIFY(fixture_->window().close());
        fixture_->makeWindow();
        QCOMPARE(fixture_->window().size(), size);
        QVERIFY(!fixture_->child<QWidget>("tbPlayback")->isVisible());
        QVERIFY(fixture_->child<QWidget>("dockHistory")->isVisible());
        QVERIFY(Settings(fixture_->path("Composer.cfg")).contains(Settings::WindowGeometry));
    }

    void tellsOfTheSoundDevice()
    {
        const auto text = [this](const char *name) {
            const auto *const notice = fixture_->child<QLabel>(name);
            return notice->isVisible() ? notice->text() : QString();
        };
        auto &output = *fixture_->output;
        output.tellOpened("Headset", 40);
        QTRY_VERIFY(text("missingDevice").contains(QStringLiteral("Headset")));
        QVERIFY(text("underruns").isEmpty());
        output.tellUnderruns(2);
        QTRY_VERIFY(text("underruns").contains(u'2'));
        fixture_->settings().setValue(Settings::SoundDevice, QStringLiteral("Speakers"));
        fixture_->settings().setValue(Settings::SoundBlock, 512);
        QCOMPARE(output.choice(), (OutputChoice{"Speakers", 512}));
        QTRY_VERIFY(text("missingDevice").isEmpty());
    }

    void commandsSayWhetherTheyCan()
    {
        const auto enabled = [this] {
            QString flags;
            for (const auto *const name :
                 {"New_Track", "Open", "Play", "Clear_Tracks", "Save_All", "Export_to_Wav", "Save_Parts", "Select_All",
                  "Merge_Selected", "Remove_Selected", "Save_Selected", "Stop", "Undo", "Redo"})
                flags += fixture_->action(qPrintable(QStringLiteral("action") + QLatin1String(name)))->isEnabled()
                             ? u'x'
                             : u'-';
            return flags;
        };
        QCOMPARE(enabled(), QStringLiteral("xx------------"));
        QVERIFY(fixture_->import(jig, 3));
        QCOMPARE(enabled(), QStringLiteral("xxxxxxxx----x-"));
        fixture_->tracks().setSelected(fixture_->tracks().ids().first(), true);
        QCOMPARE(enabled(), QStringLiteral("xxxxxxxxxxx-x-"));
        fixture_->trigger("actionMerge_Selected");
        QCOMPARE(enabled(), QStringLiteral("xxxxxxxx-xx-x-"));
        QTRY_COMPARE(fixture_->tracks().song().size(), 4);
        fixture_->trigger("actionPlay");
        fixture_->trigger("actionUndo");
        QCOMPARE(enabled(), QStringLiteral("xxxxxxxxxxxxxx"));
    }

    void everyCommandIsInAMenu()
    {
        QSet<QAction *> inMenus;
        for (const auto *const menu : fixture_->window().findChildren<QMenu *>()) {
            for (auto *const action : menu->actions())
                inMenus.insert(action);
        }
        for (auto *const action : fixture_->window().findChildren<QAction *>()) {
            if (action->objectName().startsWith(QStringLiteral("action")))
                QVERIFY2(inMenus.contains(action), qPrintable(action->objectName()));
        }
        const auto *const save = fixture_->action("actionSave_Song");
        QVERIFY(!save->statusTip().isEmpty() && save->toolTip().startsWith(save->statusTip()));
    }

    void opensPagesAndTellsOfItself()
    {
        for (const auto *const action : {"actionWebsite", "actionDonate"})
            fixture_->trigger(action);
        const auto &opened = fixture_->dialogs().opened;
        QVERIFY(opened.size() == 2 && opened[0].scheme() == u"https" && opened[0].path() == u"/");
        QCOMPARE(opened[1], opened[0].resolved(QUrl(QStringLiteral("donate"))));
        fixture_->trigger("actionAbout_Kelvarion_Composer");
        QVERIFY(fixture_->dialogs().messages.join(u' ').contains(QStringLiteral(COMPOSER_VERSION)));
    }

    // Beside the other parts of the song, which are not muted, and not while another editor plays.
    void playsInEditors()
    {
        struct CountingEngine : BuiltinEngine
        {
            explicit CountingEngine(std::atomic<int> &groups) : BuiltinEngine(EngineOutput::Silent), groups_(groups) {}
            AudioResult createGroup(GroupId &group) override
            {
                ++groups_;
                return BuiltinEngine::createGroup(group);
            }
            std::atomic<int> &groups_;
        };
        std::atomic<int> groups = 0;
        fixture_->makeEngine = [&groups] { return std::make_unique<CountingEngine>(groups); };
        fixture_->makeWindow();
        QVERIFY(fixture_->waitUntilLoaded() && fixture_->import(hymn, 4));
        fixture_->tracks().setMuted({fixture_->tracks().ids().last()}, true);
        QVector<AbcEditorWindow *> editors;
        for (const int row : {0, 1}) {
            fixture_->inRow<QToolButton>(row, "btnEdit")->click();
            editors.append(fixture_->window().findChildren<AbcEditorWindow *>().last());
            groups = 0;
            if (row == 1)
                editors[row]->findChild<QAction *>(QStringLiteral("actionWithSong"))->trigger();
            editors[row]->findChild<QAction *>(QStringLiteral("actionPlayFromStart"))->trigger();
            QTRY_COMPARE(groups.load(), row == 0 ? 1 : 3);
        }
        QVERIFY(!editors[0]->playback().isPlaying() && editors[1]->playback().isPlaying());
        fixture_.reset();
    }

    void showsTracksOfAGameWithoutInstruments()
    {
        const QTemporaryDir game;
        QVERIFY(QDir(game.path()).mkpath(QStringLiteral("assets")));
        WindowFixture bare(game.path());
        bare.window().onNewTrack();
        QTRY_COMPARE(bare.tracks().ids().size(), 1);
        bare.trigger("actionPlay");
        QVERIFY(bare.dialogs().messages.isEmpty()); // there is nothing to hear
        bare.dialogs().answerOrCancel = Dialogs::Answer::Yes;
        QVERIFY(bare.import(jig, 3));
        bare.trigger("actionPlay");
        QVERIFY(bare.dialogs().takeMessages().join(u' ').contains(QStringLiteral("nothing can be heard")));
        QTRY_VERIFY(!bare.action("actionStop")->isEnabled());
    }

    void mutesAndSolosFromTheRows()
    {
        QVERIFY(fixture_->import(jig, 3));
        const auto muted = [this] {
            QString flags;
            for (int row = 0; row < 3; ++row)
                flags += fixture_->row(row)->isMuted() ? u'm' : u'-';
            return flags;
        };
        emit fixture_->row(1)->trackSolo();
        QCOMPARE(muted(), QStringLiteral("m-m"));
        emit fixture_->row(1)->trackSolo();
        fixture_->inRow<QCheckBox>(1, "btnMute")->click();
        QCOMPARE(muted(), QStringLiteral("-m-"));
        fixture_->trigger("actionSelect_All");
        fixture_->inRow<QCheckBox>(2, "chkSelect")->click();
        fixture_->trigger("actionMute_Selected");
        QCOMPARE(muted(), QStringLiteral("mm-"));
        fixture_->trigger("actionInvert_Selection");
        QVERIFY(!fixture_->row(0)->isSelected() && fixture_->row(2)->isSelected());
        fixture_->tracks().history().setIndex(1);
        QCOMPARE(muted(), QStringLiteral("---"));
    }

    // What is done in one ticked row is done in all of them, in one step.
    void changesAllTickedRows()
    {
        QVERIFY(fixture_->import(hymn, 4));
        QTest::mouseClick(fixture_->row(1), Qt::LeftButton, Qt::ControlModifier, {3, 3});
        QTest::mouseClick(fixture_->row(3), Qt::LeftButton, Qt::ShiftModifier, {3, 3});
        QTest::mouseClick(fixture_->row(2), Qt::LeftButton, Qt::ControlModifier, {3, 3});
        auto &tracks = fixture_->tracks();
        const auto ids = tracks.ids();
        QCOMPARE(tracks.selectedIds(), QStringList({ids[1], ids[3]}));

        const auto &history = tracks.history();
        const auto start = history.count();
        const auto pitch = [&](int row) {
            const auto &events = tracks.song()[row]->track->events();
            return std::find_if(events.begin(), events.end(), [](const auto &event) { return event.isNote(); })
                ->pitch();
        };
        const auto first = pitch(3);
        auto *const instrument = fixture_->inRow<QComboBox>(3, "cboInstrument");
        const auto other = instrument->itemText(instrument->currentIndex() == 0 ? 1 : 0);
        fixture_->inRow<QDial>(1, "dlVolume")->setValue(40);
        fixture_->inRow<QDial>(1, "dlPan")->setValue(-30);
        fixture_->inRow<QCheckBox>(3, "btnMute")->click();
        fixture_->inRow<QToolButton>(1, "btnSolo")->click();
        instrument->setCurrentText(other);
        fixture_->row(3)->onTransposeUp();
        QTRY_COMPARE(history.count(), start + 6);
        for (const int row : {1, 3}) {
            const auto &track = *tracks.song()[row];
            QVERIFY(track.volume == 40 && track.pan == -30 && !track.isMuted && track.instrument == other);
            QVERIFY(fixture_->inRow<QToolButton>(row, "btnSolo")->isChecked());
        }
        QCOMPARE(pitch(3), first + 12);
        QVERIFY(tracks.song()[0]->isMuted && tracks.song()[0]->volume == 100);
        QVERIFY(!fixture_->inRow<QToolButton>(0, "btnSolo")->isChecked());
        fixture_->inRow<QDial>(2, "dlVolume")->setValue(7); // is not ticked
        QVERIFY(tracks.song()[2]->volume == 7 && tracks.song()[1]->volume == 40);
        fixture_->trigger("actionUndo");
        fixture_->trigger("actionUndo");
        QCOMPARE(pitch(3), first);
    }

    void appliesInstruments()
    {
        QVERIFY(fixture_->import(jig, 3));
        auto *const list = fixture_->child<QComboBox>("instrumentList");
        const auto before = list->currentText();
        list->setCurrentIndex(2);
        QCOMPARE(fixture_->settings().value(Settings::DefaultInstrument).toString(), list->currentText());
        fixture_->trigger("actionNew_Track");
        QCOMPARE(fixture_->row(3)->instrumentName(), list->currentText());
        fixture_->inRow<QCheckBox>(1, "chkSelect")->click();
        fixture_->trigger("actionApplyInstrument");
        QCOMPARE(fixture_->row(0)->instrumentName(), before);
        QCOMPARE(fixture_->row(1)->instrumentName(), list->currentText());
        fixture_->trigger("actionDeselect_All");
        fixture_->trigger("actionApplyInstrument");
        QCOMPARE(fixture_->row(2)->instrumentName(), list->currentText());
        fixture_->trigger("actionUndo");
        QCOMPARE(fixture_->row(2)->instrumentName(), before);
    }

    void beginsWithTheInstrumentThatWasChosenLast()
    {
        fixture_->child<QComboBox>("instrumentList")->setCurrentIndex(2);
        const auto chosen = fixture_->child<QComboBox>("instrumentList")->currentText();
        fixture_->makeWindow();
        QVERIFY(fixture_->waitUntilLoaded() && fixture_->import(jig, 3));
        QCOMPARE(fixture_->row(0)->instrumentName(), chosen);
    }

    void mergesDuplicatesAndRemoves()
    {
        QVERIFY(fixture_->import(jig, 3));
        fixture_->window().resize(fixture_->window().minimumSizeHint());
        fixture_->inRow<QCheckBox>(0, "chkSelect")->click();
        fixture_->inRow<QCheckBox>(1, "chkSelect")->click();
        fixture_->trigger("actionMerge_Selected");
        QTRY_COMPARE(fixture_->tracks().song().size(), 4);
        QCOMPARE(fixture_->row(3)->shown()->track->noteCount(),
                 fixture_->row(0)->shown()->track->noteCount() + fixture_->row(1)->shown()->track->noteCount());
        QCOMPARE(fixture_->action("actionUndo")->text(), QStringLiteral("Undo Merge Tracks"));
        fixture_->trigger("actionDuplicate_Selected");
        QCOMPARE(fixture_->tracks().song().size(), 6);
        QTRY_VERIFY(!fixture_->row(4)->visibleRegion().isEmpty());
        fixture_->trigger("actionRemove_Selected");
        QCOMPARE(fixture_->tracks().song().size(), 4);
        fixture_->trigger("actionClear_Tracks");
        QVERIFY(fixture_->tracks().isEmpty() && fixture_->dialogs().asked.size() == 1);
        QCOMPARE(fixture_->child<QUndoView>("historyView")->model()->rowCount(), 6); // and the start
        fixture_->tracks().history().setIndex(1);
        QCOMPARE(fixture_->tracks().song().size(), 3);
        QVERIFY(fixture_->row(0)->isSelected());
    }

    void refusesToMergeTempos()
    {
        fixture_->dialogs().files =
            QStringList{fixture_->write("one.abc", abc("One")), fixture_->write("two.abc", abc("Two", "1/4=90"))};
        fixture_->trigger("actionOpen");
        QTRY_COMPARE(fixture_->tracks().song().size(), 2);
        fixture_->trigger("actionSelect_All");
        fixture_->trigger("actionMerge_Selected");
        QTRY_COMPARE(fixture_->dialogs().messages,
                     QStringList(QStringLiteral(
                         "Merge Tracks|Could not merge tracks: Cannot merge tracks with different tempos")));
        QCOMPARE(fixture_->tracks().song().size(), 2);
    }

    void quantisesTheSelectedTracks()
    {
        QByteArray played;
        for (int note = 0; note < 8; ++note)
            played += MidiBytes::noteOn(note == 0 ? 1 : 4 + (note % 2 == 0 ? 1 : -1), 60) + MidiBytes::noteOff(92, 60);
        played += MidiBytes::endOfTrack();
        fixture_->settings().setValue(Settings::MidiAutoRealign, false);
        fixture_->settings().setValue(Settings::MidiMergeChannels, false);
        QVERIFY(fixture_->import(fixture_->write("played.mid", MidiBytes::file({played, played})), 2));
        const auto before = fixture_->tracks().song();
        fixture_->trigger("actionSelect_All");
        fixture_->trigger("actionClean_Quantise");
        QTRY_COMPARE(fixture_->tracks().history().undoText(), QStringLiteral("Clean Quantise"));
        for (const auto &track : fixture_->tracks().song())
            QCOMPARE(track->track->events()[2].start(), 2 * ticksPerQuarter);
        fixture_->trigger("actionUndo");
        QCOMPARE(fixture_->tracks().song(), before);
        fixture_->trigger("actionClean_Quantise");
        fixture_->tracks().setSelected(fixture_->tracks().ids().first(), false);
        fixture_->row(0)->onTransposeUp(); // meanwhile
        QTRY_COMPARE(fixture_->tracks().history().undoText(), QStringLiteral("Clean Quantise"));
        QVERIFY(fixture_->tracks().song()[0]->track->events()[2].start() != 2 * ticksPerQuarter);
        QCOMPARE(fixture_->tracks().song()[1]->track->events()[2].start(), 2 * ticksPerQuarter);
    }

    // More than a window shows, and with changes before all rows are there.
    void manyRowsComeLittleByLittle()
    {
        auto &tracks = fixture_->tracks();
        tracks.add(QStringLiteral("Import"), QVector<NewTrack>(40));
        QVERIFY(fixture_->row(0) && !fixture_->row(39));
        tracks.move(tracks.ids()[39], 0);
        tracks.setVolume({tracks.ids()[38]}, 3);
        fixture_->trigger("actionSelect_All");
        const auto isComplete = [&] {
            bool isSo = true;
            for (int i = 0; i < 40; ++i)
                isSo = isSo && fixture_->row(i) && fixture_->row(i)->isSelected() &&
                       (i == 0 || fixture_->row(i - 1)->y() < fixture_->row(i)->y());
            return isSo;
        };
        QTRY_VERIFY(isComplete());
        QCOMPARE(fixture_->row(38)->volumePercent(), 3);
        fixture_->trigger("actionDeselect_All");
        QTRY_VERIFY(!fixture_->row(39)->isSelected());
        fixture_->trigger("actionUndo");
        fixture_->trigger("actionUndo");
        fixture_->trigger("actionUndo");
        QVERIFY(tracks.isEmpty() && fixture_->child<QWidget>("emptyHint")->isVisible());
    }

    void movesRows()
    {
        QVERIFY(fixture_->import(jig, 3));
        const auto names = fixture_->titles();
        fixture_->inRow<QToolButton>(2, "btnUp")->click();
        QCOMPARE(fixture_->titles(), (QStringList{names[0], names[2], names[1]}));
        QCoreApplication::processEvents();
        QVERIFY(fixture_->child<TrackRows>("scrollAreaWidgetContents")->updatesEnabled());
        QVERIFY(fixture_->row(1)->y() < fixture_->row(2)->y() && fixture_->row(0)->y() < fixture_->row(1)->y());
        fixture_->window().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&fixture_->window()));
        fixture_->inRow<QToolButton>(0, "btnDown")->setFocus();
        QTest::keyClick(&fixture_->window(), Qt::Key_Tab); // goes by what the user sees
        QCOMPARE(QApplication::focusWidget(), fixture_->inRow<QWidget>(1, "chkSelect"));
        fixture_->inRow<QToolButton>(0, "btnUp")->click();
        QCOMPARE(fixture_->tracks().history().count(), 2);
        fixture_->inRow<QToolButton>(0, "btnDown")->click();
        QCOMPARE(fixture_->titles(), (QStringList{names[2], names[0], names[1]}));
    }

    void dragsRows()
    {
        QVERIFY(fixture_->import(jig, 3));
        QCoreApplication::processEvents();
        const auto names = fixture_->titles();
        const auto *const mark = fixture_->child<QWidget>("dropMark");
        // Drags a row until the mouse is so far down another one.
        QPoint mouse;
        const auto drag = [&](int from, int to, double share) {
            auto *const handle = fixture_->inRow<QWidget>(from, "dragHandle");
            const auto *const target = fixture_->row(to);
            const auto place = target->mapToGlobal(QPoint(5, int(target->height() * share)));
            mouse = handle->mapFromGlobal(place);
            QTest::mousePress(handle, Qt::LeftButton);
            QMouseEvent move(QEvent::MouseMove, mouse, place, Qt::NoButton, Qt::LeftButton, {});
            QApplication::sendEvent(handle, &move);
            return handle;
        };
        const auto drop = [&](int from, int to, double share) {
            auto *const handle = drag(from, to, share);
            const bool isMarked = mark->isVisible();
            QTest::mouseRelease(handle, Qt::LeftButton, {}, mouse);
            QCoreApplication::processEvents();
            return isMarked && !mark->isVisible();
        };
        QVERIFY(drop(0, 2, 0.8));
        QCOMPARE(fixture_->titles(), (QStringList{names[1], names[2], names[0]}));
        QVERIFY(drop(2, 1, 0.2));
        QCOMPARE(fixture_->titles(), (QStringList{names[1], names[0], names[2]}));
        QCOMPARE(fixture_->tracks().history().undoText(), QStringLiteral("Move Track"));
        QVERIFY(drop(1, 0, 0.8)); // where it is
        QVERIFY(drop(1, 2, 0.2));
        auto *const held = drag(0, 2, 0.8);
        QSignalSpy dragged(fixture_->row(0)->dragHandle(), &DragHandle::dragged);
        QTRY_VERIFY(dragged.size() > 2);                       // so that the list scrolls on
        QTest::mouseRelease(held, Qt::RightButton, {}, mouse); // which did not begin it
        QVERIFY(mark->isVisible());
        QTest::keyClick(held, Qt::Key_Escape);
        QVERIFY(!mark->isVisible());
        QEvent deactivated(QEvent::WindowDeactivate);
        QCoreApplication::sendEvent(drag(0, 2, 0.8), &deactivated);
        QVERIFY(!mark->isVisible());
        dragged.clear();
        QTest::qWait(100);
        QCOMPARE(dragged.size(), 0);
        QTest::mousePress(held, Qt::LeftButton, {}, {5, 5});
        QTest::mouseMove(held, {6, 6}); // hardly
        QTest::mouseRelease(held, Qt::LeftButton, {}, {6, 6});
        QMimeData foreign;
        QDragEnterEvent entered(mouse, Qt::CopyAction, &foreign, Qt::LeftButton, {});
        QCoreApplication::sendEvent(fixture_->window().findChild<TrackRows *>(), &entered);
        QVERIFY(!entered.isAccepted());
        QCOMPARE(fixture_->tracks().history().count(), 3);
        fixture_->trigger("actionUndo");
        fixture_->trigger("actionUndo");
        QCOMPARE(fixture_->titles(), names);
        drag(0, 2, 0.8);
        fixture_->trigger("actionUndo"); // takes the row away under the mouse
        QVERIFY(fixture_->tracks().isEmpty() && !mark->isVisible());
    }

    void editsATrackInItsEditor()
    {
        QVERIFY(fixture_->import(jig, 3));
        fixture_->inRow<QToolButton>(1, "btnEdit")->click();
        fixture_->inRow<QToolButton>(1, "btnEdit")->click(); // shows the same again
        const auto editors = fixture_->window().findChildren<AbcEditorWindow *>();
        QVERIFY(editors.size() == 1 && editors.first()->isVisible());
        auto &document = editors.first()->document();
        const auto before = document.text()->toPlainText();
        QCOMPARE(document.track().events().size(), fixture_->row(1)->shown()->track->events().size());
        const auto other = fixture_->child<QComboBox>("instrumentList")->itemText(3);
        QVERIFY(document.instrument().name != other);
        fixture_->tracks().setInstrument({fixture_->tracks().ids()[1]}, other);
        QCOMPARE(document.instrument().name, other);
        fixture_->trigger("actionUndo");
        document.replaceText(QString::fromUtf8(abc("Edited")), QStringLiteral("Type"));
        QCOMPARE(fixture_->titles().count(QStringLiteral("Edited")), 0);
        QVERIFY(document.apply());
        QCOMPARE(fixture_->titles().value(1), QStringLiteral("Edited"));
        QCOMPARE(fixture_->row(1)->shown()->track->noteCount(), 8);
        fixture_->trigger("actionUndo");
        QVERIFY(fixture_->row(1)->shown()->track->noteCount() != 8);
        QCOMPARE(document.text()->toPlainText(), before); // follows, as nothing in it waits to be applied

        document.replaceText(QString::fromUtf8(abc("Edited")), QStringLiteral("Type"));
        fixture_->inRow<QToolButton>(1, "btnDelete")->click();
        QVERIFY(document.apply()); // the track is gone: its edit is not
        QCOMPARE(fixture_->titles().last(), QStringLiteral("Edited"));
        document.replaceText(QString::fromUtf8(abc("Edited again")), QStringLiteral("Type"));
        QVERIFY(document.apply());
        QCOMPARE(fixture_->titles().size(), 3);
        QCOMPARE(fixture_->titles().last(), QStringLiteral("Edited again"));
        QVERIFY(editors.first()->close());
    }

    void keepsDrafts()
    {
        QVERIFY(fixture_->import(jig, 3));
        const auto open = [&]() -> AbcEditorWindow & {
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            fixture_->inRow<QToolButton>(0, "btnEdit")->click();
            return *fixture_->window().findChild<AbcEditorWindow *>();
        };
        auto &first = open();
        const auto applied = first.document().text()->toPlainText();
        const auto broken = applied + QStringLiteral("?\n");
        first.document().replaceText(broken, QStringLiteral("Type"));
        QTRY_VERIFY(fixture_->inRow<QLabel>(0, "lblDraft")->isVisible());
        fixture_->dialogs().draftAnswer = Dialogs::DraftAnswer::KeepAsDraft;
        QVERIFY(first.close());
        QVERIFY(fixture_->inRow<QLabel>(0, "lblDraft")->isVisible());
        fixture_->inRow<QToolButton>(0, "btnDelete")->click();
        fixture_->trigger("actionUndo");
        QTRY_VERIFY(fixture_->inRow<QLabel>(0, "lblDraft")->isVisible());

        auto &second = open();
        QCOMPARE(second.document().text()->toPlainText(), broken);
        QVERIFY(second.isWindowModified());
        second.document().undo();
        QCOMPARE(second.document().text()->toPlainText(), applied);
        QTRY_VERIFY(!fixture_->inRow<QLabel>(0, "lblDraft")->isVisible());
        second.document().redo();
        fixture_->dialogs().draftAnswer = Dialogs::DraftAnswer::Discard;
        QVERIFY(second.close());
        QVERIFY(!fixture_->inRow<QLabel>(0, "lblDraft")->isVisible());
        QCOMPARE(open().document().text()->toPlainText(), applied);
    }

    // One editor holds a tune, the other one something that cannot be read.
    void savesWhatEditorsHold()
    {
        QVERIFY(fixture_->import(jig, 3));
        const auto &session = fixture_->window().session();
        const auto ids = fixture_->tracks().ids();
        const auto broken = fixture_->tracks().song()[1]->track->title() + QStringLiteral("\n[c9 ?\n");
        const QStringList texts{QString::fromUtf8(abc("Edited")), broken};
        for (const int row : {0, 1}) {
            fixture_->inRow<QToolButton>(row, "btnEdit")->click();
            fixture_->window().findChildren<AbcEditorWindow *>().last()->document().replaceText(texts[row],
                                                                                                QStringLiteral("Type"));
        }
        const auto file = fixture_->path("song.kvsong");
        fixture_->dialogs().files = QStringList(file);
        fixture_->dialogs().closeAnswer = Dialogs::CloseAnswer::Save;
        fixture_->dialogs().takeAsked();
        QVERIFY(!fixture_->window().close()); // it closes when the song is written
        QTRY_VERIFY(!fixture_->window().isVisible());
        QCOMPARE(fixture_->dialogs().takeAsked().size(), 2); // whether to save, and where
        const auto saved = SongFile::fromBytes(WindowFixture::read(file), fixture_->path(""));
        QCOMPARE(saved.parts[0].abc, texts[0]);
        QVERIFY(!saved.parts[0].draft);
        QCOMPARE(saved.parts[1].draft, std::optional(broken));
        QCOMPARE(session.draft(ids[1]), std::optional(broken));
        QVERIFY(!session.isUnsaved());
    }

    // Their files hold what was there before the edits.
    void closesWithEditsOfRemovedTracks()
    {
        fixture_->dialogs().files =
            QStringList{fixture_->write("one.abc", abc("One")), fixture_->write("two.abc", abc("Two"))};
        fixture_->trigger("actionOpen");
        QTRY_COMPARE(fixture_->tracks().song().size(), 2);
        for (int row = 0; row < 2; ++row)
            fixture_->inRow<QToolButton>(row, "btnEdit")->click();
        for (auto *const editor : fixture_->window().findChildren<AbcEditorWindow *>())
            editor->document().replaceText(QString::fromUtf8(abc("Edited")), QStringLiteral("Type"));
        fixture_->trigger("actionClear_Tracks");
        fixture_->dialogs().closeAnswer = Dialogs::CloseAnswer::Discard;
        QVERIFY(!fixture_->window().close()); // an editor's question is not answered
        fixture_->dialogs().answerOrCancel = Dialogs::Answer::Yes;
        fixture_->dialogs().closeAnswer = Dialogs::CloseAnswer::Cancel;
        QVERIFY(!fixture_->window().close());
        QCOMPARE(fixture_->titles(), QStringList({QStringLiteral("Edited"), QStringLiteral("Edited")}));
        QCOMPARE(fixture_->tracks().unsavedIds().size(), 2);
    }

    void editsPreferences()
    {
        const auto light = QApplication::palette().color(QPalette::Window);
        QTimer::singleShot(0, this, [] {
            auto *const dialog = QApplication::activeModalWidget();
            dialog->findChild<QCheckBox *>(QStringLiteral("chkDarkPalette"))->click();
            qobject_cast<QDialog *>(dialog)->accept();
        });
        fixture_->action("actionPreferences")->trigger();
        QVERIFY(QApplication::palette().color(QPalette::Window).lightness() < light.lightness() / 2);
        fixture_->settings().setValue(Settings::DarkPalette, false);
        QVERIFY(QApplication::palette().color(QPalette::Window).lightness() > 200);

        QVERIFY(fixture_->settings().save() && QFile::remove(fixture_->path("Composer.cfg")));
        QVERIFY(QDir().mkdir(fixture_->path("Composer.cfg"))); // is in the way
        fixture_->settings().setValue(Settings::LoadMods, true);
        auto *const problem = fixture_->child<QLabel>("settingsProblem");
        QTRY_VERIFY(problem->isVisible() && problem->text().startsWith(QStringLiteral("The settings are not saved")));
        QVERIFY(QDir().rmdir(fixture_->path("Composer.cfg")));
        fixture_->settings().setValue(Settings::LoadMods, false);
        QTRY_VERIFY(!problem->isVisible());
    }

    void tellsAboutUpdates()
    {
        QTcpServer server;
        QVERIFY(server.listen(QHostAddress::LocalHost));
        QByteArray version = "[0, 8, 7, 0]";
        connect(&server, &QTcpServer::newConnection, this, [&] {
            auto *const socket = server.nextPendingConnection();
            connect(socket, &QTcpSocket::readyRead, socket, [=, &version] {
                socket->write("HTTP/1.0 200 OK\r\n\r\n{\"version\":" + version +
                              ",\"versionString\":\"1.2\",\"url\":\"https://example.org/new\"}");
                socket->disconnectFromHost();
            });
        });
        fixture_->makeWindow(QUrl(QStringLiteral("http://127.0.0.1:%1/").arg(server.serverPort())));
        auto &dialogs = fixture_->dialogs();
        fixture_->trigger("actionCheck_for_updates");
        QTRY_COMPARE(dialogs.messages, QStringList(QStringLiteral(
                                           "No updates|You are running the latest version of Kelvarion Composer.")));
        dialogs.messages.clear();
        version = "[1, 2, 0, 0]";
        dialogs.answer = Dialogs::Answer::Yes;
        fixture_->trigger("actionCheck_for_updates");
        QTRY_COMPARE(dialogs.opened, QList<QUrl>{QUrl(QStringLiteral("https://example.org/new"))});
        QCOMPARE(dialogs.asked,
                 QStringList(QStringLiteral("Update available|Kelvarion Composer v1.2 is available.\nWould "
                                            "you like to download it now?")));
        version = "[]";
        fixture_->trigger("actionCheck_for_updates");
        QTRY_COMPARE(dialogs.messages, QStringList(QStringLiteral(
                                           "Updates check failed|Failed to check for updates: Could not read update "
                                           "information")));
    }
};

QTEST_MAIN(TestMainWindow)
#include "test_main_window.moc"
