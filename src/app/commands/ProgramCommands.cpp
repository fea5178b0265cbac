#include "app/commands/ProgramCommands.h"

#include "app/commands/About.h"
#include "app/services/Playback.h"
#include "ui/Dialogs.h"
#include "ui/manual/ManualWindow.h"
#include "ui/preferences/FixedKeys.h"
#include "ui/preferences/PreferencesDialog.h"
#include "ui/preferences/ShortcutsDialog.h"

#include <QApplication>

QVector<ActionRow> ProgramCommands::actions()
{
    return {
        {"actionExit", tr("Exit"), "Alt+F4", tr("Exit Kelvarion Composer"), "exit", "close()"},
        {"actionPreferences", tr("Preferences..."), "", tr("Show preferences"), "preferences", "onPreferences()"},
        {"actionShortcuts", tr("Keyboard Shortcuts..."), "", tr("Show and change the keys of all commands"), "",
         "onShortcuts()"},
        {"actionManual", tr("Manual"), "F1", tr("How things are done, and what the game plays"), "", "onManual()"},
        {"actionCheck_for_updates", tr("Check for updates..."), "",
         tr("Check online for updates for Kelvarion Composer"), "", "onCheckUpdates()"},
        {"actionAbout_Kelvarion_Composer", tr("About Kelvarion Composer..."), "", {}, "about", "onAbout()"},
        {"actionDonate", tr("Donate"), "", {}, "donate", "onDonate()"},
        {"actionWebsite", tr("Website"), "", {}, "forum", "onWebsite()"},
    };
}

void ProgramCommands::editPreferences()
{
    PreferencesDialog(context_.settings, context_.dialogs, devices_, context_.playback.instruments(), &context_.window)
        .exec();
}

void ProgramCommands::editShortcuts(const QVector<KeyRow> &rows)
{
    ShortcutsDialog dialog(context_.settings, rows + fixedKeys(), &context_.window);
    context_.dialogs.run(dialog);
}

void ProgramCommands::openManual()
{
    auto *const focus = QApplication::focusWidget();
    openManualFor(focus != nullptr && focus->window() == &context_.window ? focus : &context_.window);
}

void ProgramCommands::showAbout()
{
    context_.dialogs.about(&context_.window, tr("About Kelvarion Composer"), aboutHtml());
}

void ProgramCommands::openDonationPage()
{
    context_.dialogs.openInBrowser(donationAddress());
}

void ProgramCommands::openWebsite()
{
    context_.dialogs.openInBrowser(websiteAddress());
}

void ProgramCommands::tellAboutUpdate(bool isAvailable, const QString &version, const QString &address)
{
    if (!isAvailable) {
        context_.dialogs.message(&context_.window, Dialogs::Severity::Information, tr("No updates"),
                                 tr("You are running the latest version of Kelvarion Composer."));
        return;
    }
    const auto question = tr("Kelvarion Composer v%1 is available.\nWould you like to download it now?").arg(version);
    if (context_.dialogs.ask(&context_.window, tr("Update available"), question) == Dialogs::Answer::Yes)
        context_.dialogs.openInBrowser(QUrl(address));
}

void ProgramCommands::tellUpdateFailure(const QString &error)
{
    context_.dialogs.message(&context_.window, Dialogs::Severity::Warning, tr("Updates check failed"),
                             tr("Failed to check for updates: %1").arg(error));
}
