#include "app/GameLocation.h"
#include "app/RecentFiles.h"
#include "app/WindowFixture.h"
#include "audio/TempoMap.h"
#include "support/GatedEngine.h"
#include "ui/TrackVisualizationWidget.h"
#include "ui/editor/AbcEditorWindow.h"

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDial>
#include <QDialog>
#include <QDropEvent>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QPushButton>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTextDocument>
#include <QToolButton>
#include <QUndoView>

namespace {

const QString game = QStringLiteral(DEMO_GAME);
const QString songs = QStringLiteral(EXAMPLES);
const QString jig = songs + QStringLiteral("/harbour-jig.mid");
const QString hymn = songs + QStringLiteral("/winter-hymn.mid");

QByteArray abc(const char *title, const char *tempo = "1/4=120", const char *more = "")
{
    return QByteArray("X:1\nT:") + title + "\n" + more + "L:1/4\nQ:" + tempo + "\nK:C\nCDEF|GABc|\n";
}

} // namespace

class TestMainWindow : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void startsEmpty();
    void asksForTheGameAtTheFirstStart();
    void showsTracksOfAGameWithoutInstruments();
    void importsMidi();
    void asksBeforeASecondImport();
    void opensAbcFilesAndGoesOnAfterABadOne();
    void givesTracksTheInstrumentOfTheirHeader();
    void pastes_data();
    void pastes();
    void pastesFiles();
    void takesDrops_data();
    void takesDrops();
    void opensRecentFiles();

    void playsAndStops();
    void showsTheLoadingOfSamplesAndCancelsIt();
    void followsUndoWhilePlaying();
    void mutesAndSolosFromTheRows();
    void appliesInstruments();
    void mergesDuplicatesAndRemoves();
    void refusesToMergeTempos();
    void movesRows();
    void dragsRows();
    void makesOneStepOfADialDrag();

    void editsATrackInItsEditor();
    void savesAndKnowsWhatIsSaved();
    void stopsSavingWhenCancelled();
    void asksBeforeClosing_data();
    void asksBeforeClosing();
    void exportsWaves();
    void editsPreferences();
    void tellsAboutUpdates();

private:
    void import(const QString &file, int tracks);
    void dropFiles(const QStringList &paths);
    void drawEvents() { QCoreApplication::processEvents(); }

    std::unique_ptr<WindowFixture> fixture_;
};

void TestMainWindow::init()
{
    fixture_ = std::make_unique<WindowFixture>(game);
    QTRY_VERIFY(!fixture_->window().isLoading());
    drawEvents();
    WatchedApplication::takeLongestMs(); // the first show of a process loads fonts and plug-ins
}

void TestMainWindow::cleanup()
{
    drawEvents();
    const auto longest = WatchedApplication::takeLongestMs();
    fixture_.reset();
    QVERIFY2(longest < WatchedApplication::limitMs, qPrintable(QStringLiteral("blocked for %1 ms").arg(longest)));
}

void TestMainWindow::import(const QString &file, int tracks)
{
    fixture_->dialogs().files = QStringList(file);
    fixture_->trigger("actionImport_MIDI");
    QTRY_COMPARE(fixture_->tracks().song().size(), tracks);
    fixture_->dialogs().files.clear();
}

void TestMainWindow::startsEmpty()
{
    QVERIFY(fixture_->child<QWidget>("emptyHint")->isVisible());
    QVERIFY(fixture_->child<QComboBox>("instrumentList")->count() > 5);
    QVERIFY(!fixture_->action("actionPlay")->isEnabled());
    fixture_->trigger("actionNew_Track");
    QCOMPARE(fixture_->titles(), QStringList(QStringLiteral("Untitled")));
    QVERIFY(!fixture_->child<QWidget>("emptyHint")->isVisible());
    QCOMPARE(fixture_->row(0)->instrumentName(), fixture_->child<QComboBox>("instrumentList")->currentText());
}

void TestMainWindow::asksForTheGameAtTheFirstStart()
{
    auto &settings = fixture_->settings();
    settings.setValue(Settings::RootPath, QString());
    fixture_->dialogs().directories = QStringList{fixture_->path("."), game};
    QVERIFY(locateGame(settings, fixture_->dialogs(), {}));
    QCOMPARE(settings.value(Settings::RootPath).toString(), QDir(game).canonicalPath());
    fixture_->makeWindow();
    QTRY_VERIFY(fixture_->child<QComboBox>("instrumentList")->count() > 5);
}

void TestMainWindow::showsTracksOfAGameWithoutInstruments()
{
    const QTemporaryDir game;
    QVERIFY(QDir(game.path()).mkpath(QStringLiteral("assets")));
    WindowFixture bare(game.path());
    bare.window().onNewTrack();
    QTRY_COMPARE(bare.tracks().ids().size(), 1);
    bare.trigger("actionPlay");
    QTRY_VERIFY(!bare.window().isLoading());
}

void TestMainWindow::importsMidi()
{
    import(jig, 3);
    QCOMPARE(fixture_->dialogs().takeAsked(),
             QStringList(QStringLiteral("Choose MIDI file to import...|MIDI files (*.mid)")));
    QCOMPARE(fixture_->settings().value(Settings::MidiOpenDir).toString(), songs);
    QCOMPARE(fixture_->tracks().history().undoText(), QStringLiteral("Import MIDI"));
    QCOMPARE(fixture_->row(0)->instrumentName(), fixture_->child<QComboBox>("instrumentList")->currentText());
    fixture_->trigger("actionUndo");
    QVERIFY(fixture_->tracks().isEmpty());
    fixture_->trigger("actionRedo");
    QCOMPARE(fixture_->tracks().song().size(), 3);

    fixture_->dialogs().files = QStringList(fixture_->write("broken.mid", "MThd"));
    fixture_->trigger("actionImport_MIDI");
    QTRY_COMPARE(fixture_->dialogs().messages.size(), 1);
    QVERIFY(fixture_->dialogs().messages.first().startsWith(QStringLiteral("Error while reading MIDI file|")));
}

void TestMainWindow::asksBeforeASecondImport()
{
    import(jig, 3);
    const int hymnTracks = int(importMidi(WindowFixture::read(hymn), {}).tracks.size());
    fixture_->dialogs().takeAsked();
    import(hymn, 3 + hymnTracks); // No
    QCOMPARE(fixture_->dialogs().takeAsked().value(1),
             QStringLiteral("Import MIDI|Would you like to remove the existing tracks first?"));
    fixture_->dialogs().answer = Dialogs::Answer::Yes;
    import(hymn, hymnTracks);
}

void TestMainWindow::opensAbcFilesAndGoesOnAfterABadOne()
{
    fixture_->dialogs().files = QStringList{fixture_->write("one.abc", abc("One")), fixture_->path("missing.abc"),
                                            fixture_->write("two.abc", abc("Two"))};
    fixture_->trigger("actionOpen");
    QTRY_COMPARE(fixture_->titles(), (QStringList{QStringLiteral("One"), QStringLiteral("Two")}));
    QCOMPARE(fixture_->dialogs().messages,
             QStringList(QStringLiteral("Error while reading ABC file|Could not open file.")));
    QCOMPARE(fixture_->dialogs().asked, QStringList(QStringLiteral("Choose ABC file(s) to open|ABC files (*.abc)")));
    QCOMPARE(fixture_->row(0)->track().filePath(), fixture_->path("one.abc"));
    QVERIFY(fixture_->tracks().unsavedIds().isEmpty());
}

void TestMainWindow::givesTracksTheInstrumentOfTheirHeader()
{
    const auto last = fixture_->child<QComboBox>("instrumentList")->itemText(3);
    QGuiApplication::clipboard()->setText(
        QString::fromUtf8(abc("Named", "1/4=120", qPrintable(QStringLiteral("I:Instrument:%1\n").arg(last)))));
    fixture_->trigger("actionImport_from_Clipboard");
    QTRY_COMPARE(fixture_->tracks().song().size(), 1);
    QCOMPARE(fixture_->row(0)->instrumentName(), last);

    QTest::ignoreMessage(QtWarningMsg, "Unknown: there is no instrument 'Kazoo'");
    QGuiApplication::clipboard()->setText(QString::fromUtf8(abc("Unknown", "1/4=120", "I:Instrument:Kazoo\n")));
    fixture_->trigger("actionImport_from_Clipboard");
    QTRY_COMPARE(fixture_->tracks().song().size(), 2);
    QCOMPARE(fixture_->row(1)->instrumentName(), fixture_->child<QComboBox>("instrumentList")->currentText());
}

void TestMainWindow::pastes_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("tracks");
    QTest::newRow("abc") << QString::fromUtf8(abc("Pasted")) << 1;
    QTest::newRow("two tunes") << QString::fromUtf8(abc("A") + "\n" + abc("B")) << 2;
    QTest::newRow("lower case") << QStringLiteral("x:1\nK:C\nCDE\n") << 0;
    QTest::newRow("mml") << QStringLiteral("MML@cdefg,c2e2;") << 2;
    QTest::newRow("lower-case mml") << QStringLiteral("mml@cdefg;") << 0;
    QTest::newRow("prose") << QStringLiteral("Dear diary") << 0;
}

void TestMainWindow::pastes()
{
    QFETCH(QString, text);
    QGuiApplication::clipboard()->setText(text);
    fixture_->trigger("actionImport_from_Clipboard");
    QTRY_VERIFY(!fixture_->window().isLoading());
    QTEST(int(fixture_->tracks().song().size()), "tracks");
    QVERIFY(fixture_->dialogs().asked.isEmpty() && fixture_->dialogs().messages.isEmpty());
}

void TestMainWindow::pastesFiles()
{
    const auto midi = fixture_->path("song.MIDI");
    QVERIFY(QFile::copy(jig, midi));
    auto *const urls = new QMimeData;
    urls->setUrls({QUrl::fromLocalFile(midi), QUrl(QStringLiteral("https://example.org/a.mid"))});
    QGuiApplication::clipboard()->setMimeData(urls);
    fixture_->trigger("actionImport_from_Clipboard");
    QTRY_COMPARE(fixture_->tracks().song().size(), 3);
    fixture_->trigger("actionImport_from_Clipboard");
    QTRY_COMPARE(fixture_->tracks().song().size(), 6);
    QCOMPARE(fixture_->dialogs().takeAsked(),
             QStringList(QStringLiteral("Import from clipboard|Would you like to remove the existing tracks first?")));
    QGuiApplication::clipboard()->setMimeData(new QMimeData);
    fixture_->trigger("actionImport_from_Clipboard");
    QCOMPARE(fixture_->dialogs().messages,
             QStringList(QStringLiteral("Import from clipboard|The clipboard does not contain anything to import.")));
}

void TestMainWindow::takesDrops_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("tracks");
    QTest::newRow("midi") << QStringLiteral("song.mid") << 3;
    QTest::newRow("upper case") << QStringLiteral("SONG.MID") << 3;
    QTest::newRow("long suffix") << QStringLiteral("song.midi") << 0;
    QTest::newRow("other") << QStringLiteral("song.txt") << 0;
}

void TestMainWindow::dropFiles(const QStringList &paths)
{
    QMimeData data;
    QList<QUrl> urls;
    for (const auto &path : paths)
        urls.append(QUrl::fromLocalFile(path));
    data.setUrls(urls);
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QCoreApplication::sendEvent(&fixture_->window(), &enter);
    QDropEvent drop(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    if (enter.isAccepted())
        QCoreApplication::sendEvent(&fixture_->window(), &drop);
}

void TestMainWindow::takesDrops()
{
    QFETCH(QString, name);
    const auto copy = fixture_->path(qPrintable(name));
    QVERIFY(QFile::copy(jig, copy));
    dropFiles({copy});
    QTRY_VERIFY(!fixture_->window().isLoading());
    QTEST(int(fixture_->tracks().song().size()), "tracks");
    if (fixture_->tracks().isEmpty())
        return;
    fixture_->dialogs().answer = Dialogs::Answer::Yes;
    dropFiles({fixture_->write("one.abc", abc("One")), copy});
    QTRY_COMPARE(fixture_->tracks().song().size(), 4);
    QCOMPARE(fixture_->dialogs().asked,
             QStringList(QStringLiteral("Import Files|Would you like to remove the existing tracks first?")));
}

void TestMainWindow::opensRecentFiles()
{
    import(jig, 3);
    fixture_->trigger("actionClear_Tracks");
    auto *const menu = fixture_->child<QMenu>("menuRecent");
    emit menu->aboutToShow();
    QCOMPARE(menu->actions().size(), 1);
    QCOMPARE(menu->actions().first()->text(), QStringLiteral("harbour-jig.mid"));
    menu->actions().first()->trigger();
    QTRY_COMPARE(fixture_->tracks().song().size(), 3);
    RecentFiles::add(fixture_->settings(), fixture_->path("gone.abc"));
    fixture_->window().openFiles({fixture_->path("gone.abc")});
    QTRY_COMPARE(fixture_->dialogs().messages.size(), 1);
    QCOMPARE(RecentFiles::list(fixture_->settings()), QStringList(jig));
}

void TestMainWindow::playsAndStops()
{
    import(jig, 3);
    auto *const overview = fixture_->inRow<TrackVisualizationWidget>(0, "wVis");
    fixture_->trigger("actionPlay");
    QTRY_VERIFY(overview->position() > 40320);
    QVERIFY(fixture_->action("actionStop")->isEnabled());
    emit overview->seek(0);
    QTRY_VERIFY(overview->position() < 40320);
    fixture_->trigger("actionStop");
    QTRY_VERIFY(!fixture_->action("actionStop")->isEnabled());
    QCOMPARE(overview->position(), Ticks(0));

    fixture_->trigger("actionPlay"); // to its end
    QTRY_VERIFY(fixture_->action("actionStop")->isEnabled());
    QTRY_VERIFY_WITH_TIMEOUT(!fixture_->action("actionStop")->isEnabled(), 60'000);
}

void TestMainWindow::showsTheLoadingOfSamplesAndCancelsIt()
{
    const auto gate = GatedEngine::makeGate(false);
    const auto opener = qScopeGuard([&] { GatedEngine::open(gate); }); // also when the test fails
    fixture_->makeEngine = [gate] { return std::make_unique<GatedEngine>(EngineOutput::Silent, gate); };
    fixture_->makeWindow();
    QTRY_VERIFY(!fixture_->window().isLoading());
    import(hymn, 4);
    fixture_->window().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&fixture_->window()));
    auto *const busy = fixture_->child<QWidget>("samplesIndicator");
    fixture_->trigger("actionPlay");
    QVERIFY(!busy->isVisible());
    QTRY_VERIFY(busy->isVisible());
    QCOMPARE(busy->findChild<QLabel *>()->text(), QStringLiteral("Loading samples, track 1 of 4..."));
    QTest::keyClick(&fixture_->window(), Qt::Key_Escape);
    QTRY_VERIFY(!busy->isVisible());
    QVERIFY(!fixture_->action("actionStop")->isEnabled());

    fixture_->trigger("actionPlay");
    fixture_->tracks().setVolume(fixture_->tracks().ids().first(), 50); // a change while it loads
    QTRY_VERIFY(busy->isVisible());
    QVERIFY(fixture_->action("actionStop")->isEnabled());
    GatedEngine::open(gate);
    QTRY_VERIFY(!busy->isVisible());
    QTRY_VERIFY(fixture_->inRow<TrackVisualizationWidget>(0, "wVis")->position() > 0);
    fixture_->trigger("actionStop");
    QTRY_VERIFY(!fixture_->action("actionStop")->isEnabled());
}

void TestMainWindow::followsUndoWhilePlaying()
{
    import(jig, 3);
    fixture_->trigger("actionPlay");
    const auto first = [this] { return fixture_->inRow<TrackVisualizationWidget>(0, "wVis"); };
    QTRY_VERIFY(first()->position() > 40320);
    QSignalSpy stopped(fixture_->window().findChild<TrackPlayer *>(), &TrackPlayer::trackStopped);
    fixture_->inRow<QToolButton>(0, "btnDelete")->click();
    QTRY_COMPARE(stopped.count(), 1);
    QCOMPARE(stopped[0][0].toString(), QStringLiteral("T1"));
    fixture_->trigger("actionUndo");
    QTRY_VERIFY(first()->position() > 40320); // it goes on with the others
    fixture_->row(0)->onTransposeUp();
    QCOMPARE(fixture_->tracks().history().undoText(), fixture_->row(0)->changeName());
    QTRY_COMPARE(stopped.count(), 2);
    QTRY_VERIFY(first()->position() > 40320);
    fixture_->trigger("actionStop");
    QTRY_VERIFY(!fixture_->action("actionStop")->isEnabled());
}

void TestMainWindow::mutesAndSolosFromTheRows()
{
    import(jig, 3);
    const auto muted = [this] {
        QString flags;
        for (const auto &track : fixture_->tracks().song())
            flags += track->isMuted ? u'm' : u'-';
        return flags;
    };
    fixture_->inRow<QCheckBox>(1, "btnMute")->click();
    QCOMPARE(muted(), QStringLiteral("-m-"));
    emit fixture_->row(1)->trackSolo();
    QCOMPARE(muted(), QStringLiteral("m-m"));
    QVERIFY(fixture_->row(0)->isMuted() && !fixture_->row(1)->isMuted());
    emit fixture_->row(1)->trackSolo();
    QCOMPARE(muted(), QStringLiteral("---"));
    fixture_->trigger("actionSelect_All");
    fixture_->inRow<QCheckBox>(2, "chkSelect")->click();
    fixture_->trigger("actionMute_Selected");
    QCOMPARE(muted(), QStringLiteral("mm-"));
    fixture_->trigger("actionInvert_Selection");
    QVERIFY(!fixture_->row(0)->isSelected() && fixture_->row(2)->isSelected());
    fixture_->tracks().history().setIndex(1);
    QCOMPARE(muted(), QStringLiteral("---"));
}

void TestMainWindow::appliesInstruments()
{
    import(jig, 3);
    auto *const list = fixture_->child<QComboBox>("instrumentList");
    const auto before = list->currentText();
    list->setCurrentIndex(2);
    QCOMPARE(fixture_->settings().value(Settings::DefaultInstrument).toString(), list->currentText());
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

void TestMainWindow::mergesDuplicatesAndRemoves()
{
    import(jig, 3);
    fixture_->inRow<QCheckBox>(0, "chkSelect")->click();
    fixture_->inRow<QCheckBox>(1, "chkSelect")->click();
    fixture_->trigger("actionMerge_Selected");
    QCOMPARE(fixture_->tracks().song().size(), 4);
    QCOMPARE(fixture_->row(3)->track().noteCount(),
             fixture_->row(0)->track().noteCount() + fixture_->row(1)->track().noteCount());
    QCOMPARE(fixture_->action("actionUndo")->text(), QStringLiteral("Undo Merge Tracks"));
    fixture_->trigger("actionDuplicate_Selected");
    QCOMPARE(fixture_->tracks().song().size(), 6);
    fixture_->trigger("actionRemove_Selected");
    QCOMPARE(fixture_->tracks().song().size(), 4);
    fixture_->trigger("actionClear_Tracks");
    QVERIFY(fixture_->tracks().isEmpty() && fixture_->dialogs().asked.size() == 1);
    QCOMPARE(fixture_->child<QUndoView>("historyView")->model()->rowCount(), 6); // and the start
    fixture_->tracks().history().setIndex(1);
    QCOMPARE(fixture_->tracks().song().size(), 3);
    QVERIFY(fixture_->row(0)->isSelected());
}

void TestMainWindow::refusesToMergeTempos()
{
    fixture_->dialogs().files =
        QStringList{fixture_->write("one.abc", abc("One")), fixture_->write("two.abc", abc("Two", "1/4=90"))};
    fixture_->trigger("actionOpen");
    QTRY_COMPARE(fixture_->tracks().song().size(), 2);
    fixture_->trigger("actionSelect_All");
    fixture_->trigger("actionMerge_Selected");
    QCOMPARE(
        fixture_->dialogs().messages,
        QStringList(QStringLiteral("Merge Tracks|Could not merge tracks: Cannot merge tracks with different tempos")));
    QCOMPARE(fixture_->tracks().song().size(), 2);
}

void TestMainWindow::movesRows()
{
    import(jig, 3);
    const auto names = fixture_->titles();
    fixture_->inRow<QToolButton>(2, "btnUp")->click();
    QCOMPARE(fixture_->titles(), (QStringList{names[0], names[2], names[1]}));
    drawEvents();
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

void TestMainWindow::dragsRows()
{
    import(jig, 3);
    drawEvents();
    const auto names = fixture_->titles();
    const auto *const mark = fixture_->child<QWidget>("dropMark");
    // Drags a row until the mouse is so far down another one.
    QPoint mouse;
    const auto drag = [&](int from, int to, double share) {
        auto *const handle = fixture_->inRow<QWidget>(from, "dragHandle");
        const auto *const target = fixture_->row(to);
        const auto place = target->mapToGlobal({5, int(target->height() * share)});
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
        drawEvents();
        return isMarked && !mark->isVisible();
    };
    QVERIFY(drop(0, 2, 0.8));
    QCOMPARE(fixture_->titles(), (QStringList{names[1], names[2], names[0]}));
    QVERIFY(drop(2, 1, 0.2));
    QCOMPARE(fixture_->titles(), (QStringList{names[1], names[0], names[2]}));
    QCOMPARE(fixture_->tracks().history().undoText(), QStringLiteral("Move Track"));
    QVERIFY(drop(1, 0, 0.8)); // where it is
    QVERIFY(drop(1, 2, 0.2));
    QTest::keyClick(drag(0, 2, 0.8), Qt::Key_Escape);
    QVERIFY(!mark->isVisible());
    QCOMPARE(fixture_->tracks().history().count(), 3);
    fixture_->trigger("actionUndo");
    fixture_->trigger("actionUndo");
    QCOMPARE(fixture_->titles(), names);
    drag(0, 2, 0.8);
    fixture_->trigger("actionUndo"); // takes the row away under the mouse
    QVERIFY(fixture_->tracks().isEmpty() && !mark->isVisible());
}

void TestMainWindow::makesOneStepOfADialDrag()
{
    import(jig, 3);
    for (int percent = 90; percent > 60; --percent)
        fixture_->inRow<QDial>(0, "dlVolume")->setValue(percent);
    fixture_->inRow<QDial>(0, "dlPan")->setValue(-30);
    QCOMPARE(fixture_->tracks().history().count(), 3);
    fixture_->trigger("actionUndo");
    fixture_->trigger("actionUndo");
    QCOMPARE(fixture_->inRow<QDial>(0, "dlVolume")->value(), 100);
    QCOMPARE(fixture_->inRow<QDial>(0, "dlPan")->value(), 0);
}

void TestMainWindow::editsATrackInItsEditor()
{
    import(jig, 3);
    fixture_->inRow<QToolButton>(1, "btnEdit")->click();
    fixture_->inRow<QToolButton>(1, "btnEdit")->click(); // shows the same again
    const auto editors = fixture_->window().findChildren<AbcEditorWindow *>();
    QCOMPARE(editors.size(), 1);
    auto &document = editors.first()->document();
    const auto before = document.text()->toPlainText();
    QCOMPARE(document.track().events().size(), fixture_->row(1)->track().events().size());
    document.replaceText(QString::fromUtf8(abc("Edited")), QStringLiteral("Type"));
    QCOMPARE(fixture_->titles().count(QStringLiteral("Edited")), 0);
    QVERIFY(document.apply());
    QCOMPARE(fixture_->titles().value(1), QStringLiteral("Edited"));
    QCOMPARE(fixture_->row(1)->track().noteCount(), 8);
    fixture_->trigger("actionUndo");
    QVERIFY(fixture_->row(1)->track().noteCount() != 8);
    QCOMPARE(document.text()->toPlainText(), before); // follows, as nothing in it waits to be applied

    document.replaceText(QString::fromUtf8(abc("Edited")), QStringLiteral("Type"));
    fixture_->inRow<QToolButton>(1, "btnDelete")->click();
    QVERIFY(document.apply()); // the track is gone: its edit is not
    QCOMPARE(fixture_->titles().last(), QStringLiteral("Edited"));
    QVERIFY(editors.first()->close());
}

void TestMainWindow::savesAndKnowsWhatIsSaved()
{
    import(jig, 3);
    QCOMPARE(fixture_->tracks().unsavedIds().size(), 3);
    fixture_->dialogs().files = QStringList{fixture_->path("1.abc"), fixture_->path("2.abc"), fixture_->path("3.abc")};
    fixture_->trigger("actionSave_All");
    QVERIFY(fixture_->tracks().unsavedIds().isEmpty());
    auto second = *fixture_->tracks().song()[1]->track;
    QCOMPARE(QString::fromUtf8(WindowFixture::read(fixture_->path("2.abc"))), second.toAbc());

    fixture_->row(1)->onTransposeDown();
    QCOMPARE(fixture_->tracks().unsavedIds(), QStringList(QStringLiteral("T2")));
    fixture_->dialogs().takeAsked();
    fixture_->inRow<QCheckBox>(1, "chkSelect")->click();
    fixture_->trigger("actionSave_Selected"); // without a dialog
    QVERIFY(fixture_->dialogs().takeAsked().isEmpty());
    QVERIFY(fixture_->tracks().unsavedIds().isEmpty());
    second = *fixture_->tracks().song()[1]->track;
    QCOMPARE(QString::fromUtf8(WindowFixture::read(fixture_->path("2.abc"))), second.toAbc());
}

void TestMainWindow::stopsSavingWhenCancelled()
{
    import(jig, 3);
    fixture_->dialogs().takeAsked();
    fixture_->dialogs().files = QStringList{fixture_->path("1.abc")};
    fixture_->trigger("actionSave_All");
    QCOMPARE(fixture_->dialogs().asked.size(), 2); // the second was cancelled
    QCOMPARE(fixture_->tracks().unsavedIds().size(), 2);
}

void TestMainWindow::asksBeforeClosing_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<bool>("canSave");
    QTest::addColumn<bool>("closes");
    QTest::newRow("cancel") << int(Dialogs::CloseAnswer::Cancel) << true << false;
    QTest::newRow("discard") << int(Dialogs::CloseAnswer::Discard) << true << true;
    QTest::newRow("save") << int(Dialogs::CloseAnswer::SaveAll) << true << true;
    QTest::newRow("save, then cancel") << int(Dialogs::CloseAnswer::SaveAll) << false << false;
}

void TestMainWindow::asksBeforeClosing()
{
    QFETCH(int, answer);
    QFETCH(bool, canSave);
    QVERIFY(fixture_->window().close()); // nothing is unsaved
    fixture_->window().show();
    QGuiApplication::clipboard()->setText(QString::fromUtf8(abc("Pasted")));
    fixture_->trigger("actionImport_from_Clipboard");
    QTRY_COMPARE(fixture_->tracks().song().size(), 1);
    fixture_->dialogs().closeAnswer = Dialogs::CloseAnswer(answer);
    if (canSave)
        fixture_->dialogs().files = QStringList(fixture_->path("pasted.abc"));
    fixture_->trigger("actionExit");
    QTEST(!fixture_->window().isVisible(), "closes");
    QVERIFY(fixture_->dialogs().asked.first().startsWith(QStringLiteral("Kelvarion Composer|")));
    const bool isSaved = canSave && Dialogs::CloseAnswer(answer) == Dialogs::CloseAnswer::SaveAll;
    QCOMPARE(QFile::exists(fixture_->path("pasted.abc")), isSaved);
}

void TestMainWindow::exportsWaves()
{
    import(jig, 3);
    fixture_->dialogs().takeAsked();
    fixture_->inRow<QCheckBox>(1, "btnMute")->click();
    const auto wave = fixture_->path("jig.wav");
    fixture_->dialogs().files = QStringList(wave);
    fixture_->trigger("actionExport_to_Wav");
    fixture_->trigger("actionExport_to_Wav"); // while it runs
    QCOMPARE(fixture_->dialogs().takeMessages(),
             QStringList(QStringLiteral("Renderer in use|You are already rendering to wav, please wait for it to "
                                        "finish and try again.")));
    QCOMPARE(fixture_->dialogs().asked, QStringList(QStringLiteral("Export tracks to wav...|Wave file (*.wav)")));
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(wave), 30'000);
    QTRY_VERIFY(!fixture_->child<QDialog>("exportProgress"));
    QVERIFY(WindowFixture::read(wave).startsWith("RIFF"));
    const auto frames = (QFileInfo(wave).size() - 44) / 4;
    const auto &track = *fixture_->tracks().song()[0]->track;
    const auto written = qint64(TempoMap(track, 48000).samplesAt(track.length()));
    QVERIFY(frames >= written && frames < written + 3 * 48000); // the last notes fade out
    QVERIFY(fixture_->dialogs().messages.isEmpty());
}

void TestMainWindow::editsPreferences()
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
}

void TestMainWindow::tellsAboutUpdates()
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
    QTRY_COMPARE(dialogs.messages,
                 QStringList(QStringLiteral("No updates|You are running the latest version of Kelvarion Composer.")));
    dialogs.messages.clear();
    version = "[1, 2, 0, 0]";
    dialogs.answer = Dialogs::Answer::Yes;
    fixture_->trigger("actionCheck_for_updates");
    QTRY_COMPARE(dialogs.opened, QList<QUrl>{QUrl(QStringLiteral("https://example.org/new"))});
    QCOMPARE(dialogs.asked, QStringList(QStringLiteral("Update available|Kelvarion Composer v1.2 is available.\nWould "
                                                       "you like to download it now?")));
    version = "[]";
    fixture_->trigger("actionCheck_for_updates");
    QTRY_COMPARE(dialogs.messages,
                 QStringList(QStringLiteral("Updates check failed|Failed to check for updates: Could not read update "
                                            "information")));
}

int main(int argc, char *argv[])
{
    WatchedApplication application(argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    TestMainWindow test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_main_window.moc"
