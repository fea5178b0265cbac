// Saves pictures of the windows into a folder, to be looked at: window_pictures GAME FOLDER SONG…
// QT_SCALE_FACTOR=2 makes them twice as large.

#include "app/About.h"
#include "app/PreferencesDialog.h"
#include "app/Theme.h"
#include "app/WindowFixture.h"

#include <QDockWidget>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>

namespace {

QString folder;
QString suffix;

void take(QWidget &widget, const char *name)
{
    widget.show();
    QTest::qWait(100);
    widget.grab().save(QStringLiteral("%1/%2%3.png").arg(folder, QLatin1String(name), suffix));
}

void takeMenus(MainWindow &window)
{
    for (auto *const menu : window.findChildren<QMenu *>()) {
        if (menu->objectName().startsWith(QStringLiteral("menu")) && !menu->actions().isEmpty()) {
            menu->popup({0, 0});
            take(*menu, qPrintable(menu->objectName()));
            menu->close();
        }
    }
}

void takePreferences(WindowFixture &fixture)
{
    PreferencesDialog dialog(fixture.settings(), fixture.dialogs());
    auto *const selector = dialog.findChild<QListWidget *>(QStringLiteral("propertySelector"));
    for (int row = 0; row < selector->count(); ++row) {
        selector->setCurrentRow(row);
        take(dialog, qPrintable(QStringLiteral("preferences-%1").arg(row)));
    }
}

void takeMessages()
{
    QMessageBox question(QMessageBox::Question, QStringLiteral("Import MIDI"),
                         QStringLiteral("Would you like to remove the existing tracks first?"),
                         QMessageBox::Yes | QMessageBox::No);
    take(question, "question");
    QMessageBox closing(QMessageBox::Warning, QStringLiteral("Kelvarion Composer"),
                        QStringLiteral("3 tracks are not saved yet.\nWould you like to save them?"),
                        QMessageBox::SaveAll | QMessageBox::Discard | QMessageBox::Cancel);
    take(closing, "closing");
    QMessageBox about(QMessageBox::NoIcon, QStringLiteral("About Kelvarion Composer"), aboutHtml());
    about.setIconPixmap(QPixmap(QStringLiteral(":/icons/appicon.png")));
    take(about, "about");
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
    takeMenus(window);
    fixture.tracks().setSelected(fixture.tracks().ids().value(1), true);
    fixture.tracks().setMuted({fixture.tracks().ids().value(2)}, true);
    window.onPlay();
    QTest::qWait(300); // the silent engine runs faster than time
    take(window, "playing");
    fixture.child<QDockWidget>("dockHistory")->show();
    take(window, "history");
    window.onStopAll();
    takePreferences(fixture);
    takeMessages();
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
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
