// Saves the pictures of docs/manual into a folder: manual_pictures FOLDER. They show the demo game and the example
// songs, in English and in light colours, so that they look alike whoever makes them.

#include "app/ExampleSongs.h"
#include "app/WindowFixture.h"
#include "language/Language.h"
#include "support/MidiBytes.h"
#include "ui/Theme.h"
#include "ui/editor/AbcEditorWindow.h"

#include <QAbstractButton>
#include <QDockWidget>
#include <QStatusBar>

namespace {

constexpr QSize windowSize(900, 600);
constexpr QSize dialogSize(900, 470);
constexpr int widthWithPanel = 1120; // so that whole rows are seen beside it
constexpr int harp = 3;              // the row with the most to be seen
QString folder;

// Wide enough to be read, and not wider than the manual's window.
void take(QWidget &widget, const char *name, QSize size = {})
{
    widget.show();
    if (size.isValid())
        widget.resize(size);
    QTest::qWait(300);
    widget.grab().save(QStringLiteral("%1/%2.png").arg(folder, QLatin1String(name)));
}

class Pictures
{
public:
    Pictures() : fixture_(demoGame)
    {
        fixture_.makeEngine = [] { return std::make_unique<BuiltinEngine>(HeardOutput::Paced); };
        fixture_.makeWindow();
        open(QDir(songs + QStringLiteral("/songs/lanterns-on-the-water")).entryInfoList({QStringLiteral("*.abc")}));
    }

    void takeAll()
    {
        takeWindow();
        takeEditor();
        takeDialogs();
        takeArranging();
        takeChecks();
        takeImport();
        takeReport();
    }

private:
    MainWindow &window() { return fixture_.window(); }

    void open(const QFileInfoList &files)
    {
        QStringList paths;
        for (const auto &file : files)
            paths.append(file.filePath());
        window().openFiles(paths);
        while (window().isLoading())
            QTest::qWait(50);
    }

    // Without what it tells for a moment, such as names of files.
    void takeMain(const char *name, QSize size = windowSize)
    {
        window().statusBar()->clearMessage();
        take(window(), name, size);
    }

    void takeWindow()
    {
        window().resize(windowSize);
        for (int measure = 0; measure < 18; ++measure)
            window().onMeasureForward();
        window().onPlay();
        QTest::qWait(4000); // so that the meters have something to show
        takeMain("window");
        window().onStopAll();
        for (int step = 0; step < 5; ++step)
            window().onZoomIn();
        window().onLoop(true);
        takeMain("loop", {900, 360});
        window().onLoop(false);
        window().onZoomWhole();
    }

    void takeEditor()
    {
        fixture_.inRow<QAbstractButton>(harp, "btnEdit")->click();
        auto &editor = *window().findChild<AbcEditorWindow *>();
        const auto trigger = [&](const char *name) { editor.findChild<QAction *>(QLatin1String(name))->trigger(); };
        if (!editor.findChild<QAction *>(QStringLiteral("actionShowRoll"))->isChecked())
            trigger("actionShowRoll");
        take(editor, "editor", {900, 640});
        const auto text = editor.document().text()->toPlainText();
        editor.document().replaceText(text + QStringLiteral("\nG2 A2 [eg | d2- c2 d |\n"), QStringLiteral("Break"));
        trigger("actionShowProblems");
        editor.findChild<QAction *>(QStringLiteral("actionShowRoll"))->trigger();
        editor.resize(900, 420);
        QTest::qWait(500);
        trigger("actionNextProblem");
        take(editor, "problems");
        trigger("actionRevert");
        editor.close();
    }

    void takeInDialog(const char *action, const char *name, QSize size = {})
    {
        fixture_.dialogs().inDialog = [name, size](QDialog &dialog) {
            QTest::qWait(800);
            take(dialog, name, size);
            dialog.reject();
        };
        fixture_.trigger(action);
        QTest::qWait(500);
    }

    void takeDialogs()
    {
        takeInDialog("actionExport_Audio", "export");
        takeInDialog("actionRehearsal_Offsets", "rehearsal");
    }

    void takeArranging() { takeInDialog("actionArrange", "arrange", dialogSize); }

    void takeChecks()
    {
        fixture_.dialogs().answerOrCancel = Dialogs::Answer::No; // the song stays
        open({QFileInfo(fixture_.write("second-flute.abc", "X:1\nT:Second Flute\nI:Instrument:Flute\nM:3/4\nL:1/4\n"
                                                           "Q:1/4=90\nK:D\nd2 f|a2 f3|e'''d'2|\n"))});
        QTest::qWait(1500);
        fixture_.child<QDockWidget>("dockFindings")->show();
        takeMain("checks", {widthWithPanel, 600});
        fixture_.child<QDockWidget>("dockFindings")->hide();
        fixture_.tracks().history().undo();
    }

    void takeImport()
    {
        fixture_.settings().setValue(Settings::ChooseParts, true);
        fixture_.dialogs().files = QStringList(jig);
        fixture_.dialogs().answerOrCancel = Dialogs::Answer::No;
        takeInDialog("actionImport_MIDI", "import", dialogSize);
    }

    // A fiddle whose player struck notes again before they ended, some of them out of range.
    void takeReport()
    {
        using namespace MidiBytes;
        QByteArray notes = midiEvent(0, {0xC0, 40});
        for (int note = 0; note < 60; ++note) {
            const int pitch = 60 + note * 5 % 12;
            notes += noteOn(97, pitch) + noteOn(90, pitch) + noteOff(100, pitch) + noteOn(0, 14, 90) + noteOff(9, 14);
        }
        fixture_.settings().setValue(Settings::ChooseParts, false);
        fixture_.dialogs().answerOrCancel = Dialogs::Answer::Yes;
        fixture_.import(fixture_.write("fiddle.mid", file({notes + endOfTrack()})), 1);
        fixture_.child<QDockWidget>("dockImportReport")->show();
        takeMain("report", {widthWithPanel, 360});
    }

    WindowFixture fixture_;
};

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    Language::start(QStringLiteral("en"));
    applyTheme(Theme::Light);
    folder = QCoreApplication::arguments().value(1);
    if (folder.isEmpty() || !QDir().mkpath(folder))
        return 1;
    Pictures().takeAll();
    return 0;
}
