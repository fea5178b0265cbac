// Saves pictures of the windows into a folder, to be looked at: window_pictures GAME FOLDER SONG…
// QT_SCALE_FACTOR=2 makes them twice as large, LANGUAGE=de in German.

#include "app/WindowFixture.h"
#include "app/commands/About.h"
#include "app/recovery/RecoveryDialog.h"
#include "core/AbcParser.h"
#include "language/Language.h"
#include "support/GatedEngine.h"
#include "support/MidiBytes.h"
#include "ui/InstrumentComboBox.h"
#include "ui/Theme.h"
#include "ui/editor/AbcEditorWindow.h"
#include "ui/editor/EditorTransforms.h"
#include "ui/manual/ManualWindow.h"
#include "ui/preferences/PreferencesDialog.h"
#include "ui/preferences/SoundPage.h"
#include "ui/transform/KeyDialog.h"
#include "ui/transform/RealignNotesDialog.h"
#include "ui/transform/TransposeDialog.h"
#include "ui/transform/UnitLengthDialog.h"

#include <QAbstractButton>
#include <QDockWidget>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>
#include <QMouseEvent>
#include <QProgressDialog>
#include <QTableView>

namespace {

QString folder;
QString suffix;

void take(QWidget &widget, const char *name)
{
    widget.show();
    QTest::qWait(100);
    widget.grab().save(QStringLiteral("%1/%2%3.png").arg(folder, QLatin1String(name), suffix));
}

void takeMenu(QMenu &menu, const QString &name)
{
    menu.popup({0, 0});
    menu.setActiveAction(menu.actions().first());
    take(menu, qPrintable(name));
    menu.close();
}

void takeMenus(const QWidget &window, const QString &prefix)
{
    int number = 0;
    for (auto *const menu : window.findChildren<QMenu *>()) {
        const auto name = menu->objectName().isEmpty() ? QString::number(++number) : menu->objectName();
        if (!menu->actions().isEmpty())
            takeMenu(*menu, prefix + name);
    }
}

void takePreferences(WindowFixture &fixture)
{
    fixture.settings().setValue(Settings::ProgramInstrument, QStringLiteral("0=Grand piano\n40=Violin\n128=Drums"));
    const auto *const model = fixture.inRow<InstrumentComboBox>(0, "cboInstrument")->model();
    PreferencesDialog dialog(fixture.settings(), fixture.dialogs(), SoundDevices{*fixture.output},
                             static_cast<const InstrumentSetModel *>(model)->instruments());
    auto *const selector = dialog.findChild<QListWidget *>(QStringLiteral("propertySelector"));
    for (int row = 0; row < selector->count(); ++row) {
        selector->setCurrentRow(row);
        take(dialog, qPrintable(QStringLiteral("preferences-%1").arg(row)));
    }
}

void takeImport(WindowFixture &fixture, const QString &midi)
{
    fixture.settings().setValue(Settings::ChooseParts, true);
    fixture.dialogs().files = QStringList(midi);
    fixture.dialogs().answerOrCancel = Dialogs::Answer::No;
    fixture.dialogs().inDialog = [](QDialog &dialog) {
        QTest::qWait(500);
        take(dialog, "import");
        auto *const table = dialog.findChild<QTableView *>();
        table->model()->setData(table->model()->index(1, 0), Qt::Unchecked, Qt::CheckStateRole);
        table->setCurrentIndex(table->model()->index(0, 1));
        table->edit(table->currentIndex());
        QTest::qWait(100);
        if (auto *const choices = QApplication::activePopupWidget())
            take(*choices, "import-instruments");
        take(dialog, "import-choosing");
        dialog.resize(900, 420);
        take(dialog, "import-small");
        dialog.reject();
    };
    fixture.trigger("actionImport_MIDI");
    QTest::qWait(1000);
}

void takePractice(WindowFixture &fixture)
{
    fixture.dialogs().inDialog = [](QDialog &dialog) {
        take(dialog, "rehearsal");
        dialog.findChild<QAbstractButton *>(QStringLiteral("btnDice"))->click();
        take(dialog, "rehearsal-typed");
        dialog.accept();
    };
    fixture.trigger("actionRehearsal_Offsets");
    fixture.trigger("actionMetronome");
    fixture.tracks().setStartOffset({fixture.tracks().ids().value(0)}, -45);
    take(fixture.window(), "practice");
    fixture.trigger("actionMetronome");
    fixture.tracks().history().undo();
    fixture.dialogs().inDialog = [](QDialog &dialog) {
        take(dialog, "export-audio");
        dialog.reject();
    };
    fixture.trigger("actionExport_Audio");
}

void takeSongTools(WindowFixture &fixture)
{
    fixture.dialogs().inDialog = [](QDialog &dialog) {
        QTest::qWait(800);
        take(dialog, qPrintable(QStringLiteral("song-") + QString(dialog.windowTitle()).replace(u' ', u'-')));
        dialog.reject();
    };
    for (const auto *const action : {"actionArrange", "actionTranspose_Song", "actionOne_Tempo"})
        fixture.trigger(action);
    fixture.trigger("actionListen_to_Source");
    QTest::qWait(500);
    take(fixture.window(), "song-source");
    fixture.trigger("actionListen_to_Source");
}

// Everything of the window while the samples of the song are being loaded.
void takeLoading(WindowFixture &fixture, const QStringList &songs)
{
    const auto gate = GatedEngine::makeGate(false);
    fixture.makeEngine = [gate] { return std::make_unique<GatedEngine>(EngineOutput::Silent, gate); };
    fixture.makeWindow();
    fixture.window().openFiles(songs);
    while (fixture.window().isLoading())
        QTest::qWait(50);
    fixture.window().onPlay();
    QTest::qWait(1000);
    take(fixture.window(), "loading");
    GatedEngine::open(gate);
}

void takeDrag(WindowFixture &fixture)
{
    auto *const handle = fixture.inRow<QWidget>(0, "dragHandle");
    QTest::mousePress(handle, Qt::LeftButton);
    const QPoint place(5, fixture.row(0)->height() * 2);
    QMouseEvent move(QEvent::MouseMove, place, handle->mapToGlobal(place), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(handle, &move);
    take(fixture.window(), "dragging");
    QTest::keyClick(handle, Qt::Key_Escape);
}

void takeEditorDialogs(WindowFixture &fixture)
{
    KeyDialog key(fixture.dialogs());
    take(key, "editor-key");
    RealignNotesDialog realign(fixture.settings());
    take(realign, "editor-realign");
    TransposeDialog transpose;
    take(transpose, "editor-transpose");
    UnitLengthDialog unitLength;
    take(unitLength, "editor-unit-length");
}

void takeEditor(WindowFixture &fixture)
{
    fixture.inRow<QAbstractButton>(0, "btnEdit")->click();
    auto &editor = *fixture.window().findChild<AbcEditorWindow *>();
    const auto trigger = [&](const char *name) { editor.findChild<QAction *>(QLatin1String(name))->trigger(); };
    take(editor, "editor");
    takeMenus(editor, QStringLiteral("editor-menu-"));
    trigger("actionReplace");
    take(editor, "editor-replace");
    if (!editor.findChild<QAction *>(QStringLiteral("actionShowRoll"))->isChecked())
        trigger("actionShowRoll");
    trigger("actionPlayFromStart");
    take(editor, "editor-roll");
    trigger("actionStop");
    auto broken = editor.document().appliedTrack();
    editor.document().replaceText(broken.toAbc() + QStringLiteral("\n§ c9 ] [eg] || G- A | Z\n"),
                                  QStringLiteral("Break"));
    QTest::qWait(500);
    trigger("actionShowProblems");
    take(editor, "editor-problems");
    trigger("actionShowProblems");
    trigger("actionRevert");
    takeEditorDialogs(fixture);
}

void takeMessages()
{
    QProgressDialog progress(QStringLiteral("Rendering to wav..."), QStringLiteral("Cancel"), 0, 100);
    progress.setWindowTitle(QStringLiteral("Kelvarion Composer"));
    progress.setValue(40);
    take(progress, "export");
    QMessageBox question(QMessageBox::Question, QStringLiteral("Import MIDI"),
                         QStringLiteral("Would you like to remove the existing tracks first?"),
                         QMessageBox::Yes | QMessageBox::No);
    take(question, "question");
    QMessageBox closing(QMessageBox::Warning, QStringLiteral("Kelvarion Composer"),
                        QStringLiteral("The song 'harbour-jig' is not saved yet.\nWould you like to save it?"),
                        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
    take(closing, "closing");
    QMessageBox about(QMessageBox::NoIcon, QStringLiteral("About Kelvarion Composer"), aboutHtml());
    about.setIconPixmap(QPixmap(QStringLiteral(":/icons/appicon.png")));
    take(about, "about");
}

RecoverableSong lostSong(const char *title, int parts, int hoursAgo, const char *problem = "")
{
    RecoverableSong song;
    song.title = QString::fromUtf8(title);
    song.partCount = parts;
    song.time = QDateTime::currentDateTimeUtc().addSecs(-3600 * hoursAgo);
    song.problem = QString::fromUtf8(problem);
    return song;
}

void takeRecovery(MainWindow &window)
{
    QVector<RecoverableSong> lost{lostSong("Winter Hymn", 4, 0), lostSong("A tune for the harbour festival", 12, 30),
                                  lostSong("", 0, 50, "The beginning of the journal is damaged.")};
    RecoveryDialog start(RecoveryDialog::Occasion::Start, &window);
    start.setSongs(lost);
    take(start, "recovery-start");
    lost[1].isDiscarded = true;
    RecoveryDialog command(RecoveryDialog::Occasion::Command, &window);
    command.setSongs(lost);
    take(command, "recovery-command");
}

void takeDraft(WindowFixture &fixture)
{
    fixture.inRow<QAbstractButton>(1, "btnEdit")->click();
    auto &editor = *fixture.window().findChildren<AbcEditorWindow *>().last();
    const auto text = editor.document().text()->toPlainText();
    editor.document().replaceText(text + QStringLiteral("[c9 ?\n"), QStringLiteral("Break"));
    QTest::qWait(500);
    take(fixture.window(), "draft");
    QTimer::singleShot(0, &editor, [] {
        take(*QApplication::activeModalWidget(), "draft-question");
        QApplication::activeModalWidget()->close();
    });
    QString error;
    editor.document().apply(&error);
    DesktopDialogs().askAboutDraft(&editor, EditorTransforms::tr("ABC Editor"),
                                   EditorTransforms::questionAboutErrors(error));
    editor.document().setTrack(editor.document().appliedTrack());
    editor.close();
}

// What an import lost, and what is asked before one.
void takeImports(WindowFixture &fixture)
{
    using namespace MidiBytes;
    QByteArray lossy = midiEvent(0, {0xC0, 40});
    for (int note = 0; note < 40; ++note) {
        const int pitch = 60 + note * 5 % 12;
        lossy += noteOn(97, pitch) + noteOn(90, pitch) + noteOff(100, pitch) + noteOn(0, 110, 90, 9) +
                 noteOff(9, 110, 9) + noteOn(0, 40, 90, 9) + noteOff(30, 40, 9) + noteOn(0, 50, 3);
    }
    auto &dialogs = fixture.dialogs();
    fixture.settings().setValue(Settings::ChooseParts, false);
    dialogs.answerOrCancel = Dialogs::Answer::Yes;
    fixture.import(fixture.write("lossy.mid", file({lossy + endOfTrack()})), 2);
    fixture.child<QDockWidget>("dockImportReport")->show();
    take(fixture.window(), "import-report");

    dialogs.inDialog = [](QDialog &dialog) {
        take(dialog, "import-again");
        dialog.reject();
    };
    fixture.trigger("actionImport_Again");
    const QByteArray tune("M:4/4\nL:1/4\nK:C\n|:CDEF:|\n");
    dialogs.files = QStringList(fixture.write("book.abc", "X:1\nT:The Mill\n" + tune + "\nX:2\nT:The Weir\n" + tune));
    dialogs.foreignAnswer = Dialogs::ForeignAnswer::Convert;
    dialogs.inDialog = [](QDialog &dialog) {
        take(dialog, "choose-tunes");
        dialog.accept();
    };
    fixture.trigger("actionOpen");
    while (fixture.window().isLoading())
        QTest::qWait(50);
    QTest::qWait(200);
    take(fixture.window(), "import-report-abc");
    QTimer::singleShot(0, qApp, [] {
        take(*QApplication::activeModalWidget(), "foreign-question");
        QApplication::activeModalWidget()->close();
    });
    DesktopDialogs().askAboutForeign(
        &fixture.window(), QStringLiteral("Open Tracks"),
        QStringLiteral(
            "book.abc uses notation that the game reads otherwise: repeats, tempo.\n\nConverted for the game, "
            "it sounds as it is written. Opened as it is, it stays the same text and file."));
}

// What the game would not play, at the rows and in the panel.
void takeFindings(WindowFixture &fixture)
{
    const auto part = [](const char *title, const char *body) {
        const auto head = QStringLiteral("X:1\nT:%1\nM:4/4\nL:1/4\nK:C\n").arg(QLatin1String(title));
        return NewTrack{parseAbc(head + QLatin1String(body)), QString()};
    };
    fixture.tracks().add(QStringLiteral("Add"),
                         {part("Melody", "|:CEFG||C4|d''''4"), part("Second", "G|CEGc|C5|E4|"), part("Silent", "z4|")});
    QTest::qWait(1500);
    fixture.child<QDockWidget>("dockFindings")->show();
    take(fixture.window(), "findings");
    fixture.child<QDockWidget>("dockFindings")->hide();
}

void takeManual(MainWindow &window)
{
    auto *const manual = new ManualWindow(&window);
    manual->showPage(QStringLiteral("first-song.md"));
    take(*manual, "manual");
    manual->resize(500, 600);
    take(*manual, "manual-narrow");
    manual->close();
}

void takeAll(const QString &game, const QStringList &songs)
{
    WindowFixture fixture(game);
    auto &window = fixture.window();
    while (window.isLoading())
        QTest::qWait(50);
    take(window, "empty");
    window.openFiles(songs);
    while (window.isLoading())
        QTest::qWait(50);
    takeMenus(window, {});
    takeMenu(*fixture.row(0)->contextMenu(), QStringLiteral("row-menu"));
    fixture.row(0)->onTransposeUp(); // so that it differs from its file
    fixture.tracks().setSelected(fixture.tracks().ids().value(1), true);
    fixture.tracks().setMuted({fixture.tracks().ids().value(2)}, true);
    window.onPlay();
    QTest::qWait(300); // the silent engine runs faster than time
    take(window, "playing");
    fixture.child<QDockWidget>("dockHistory")->show();
    take(window, "history");
    window.onStopAll();
    window.onStopAll();
    fixture.child<QDockWidget>("dockHistory")->hide();
    for (int i = 0; i < 5; ++i)
        window.onZoomIn();
    window.onMeasureForward();
    window.onLoop(true);
    take(window, "zoomed");
    window.onLoop(false);
    window.resize(800, 600);
    take(window, "800x600");
    window.onZoomWhole();
    window.resize(820, 500);
    take(window, "small");
    takePractice(fixture);
    takeDrag(fixture);
    takePreferences(fixture);
    if (const auto midi = songs.filter(QStringLiteral(".mid")); !midi.isEmpty())
        takeImport(fixture, midi.first());
    takeMessages();
    takeManual(window);
    takeEditor(fixture);
    takeSongTools(fixture);
    takeRecovery(window);
    takeDraft(fixture);
    takeFindings(fixture);
    takeLoading(fixture, songs);
    takeImports(fixture);
}

} // namespace

int main(int argc, char *argv[])
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
#endif
    QApplication application(argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    Language::start({});
    const auto arguments = QCoreApplication::arguments();
    if (arguments.size() < 4)
        return 1;
    folder = arguments[2];
    QDir().mkpath(folder);
    for (const bool isDark : {false, true}) {
        applyTheme(isDark ? Theme::Dark : Theme::Light);
        suffix = isDark ? QStringLiteral("-dark") : QString();
        takeAll(arguments[1], arguments.mid(3));
    }
    return 0;
}
