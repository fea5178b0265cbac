#include "app/commands/ProgramCommands.h"

#include "app/commands/About.h"
#include "app/services/Playback.h"
#include "ui/Dialogs.h"
#include "ui/manual/ManualWindow.h"
#include "ui/preferences/PreferencesDialog.h"

QVector<ActionRow> ProgramCommands::actions()
{
    return {
        {"actionExit", "Exit", "Alt+F4", "Exit Kelvarion Composer", "exit", "close()"},
        {"actionPreferences", "Preferences...", "", "Show preferences", "preferences", "onPreferences()"},
        {"actionManual", "Manual", "F1", "How things are done, and what the game plays", "", "onManual()"},
        {"actionCheck_for_updates", "Check for updates...", "", "Check online for updates for Kelvarion Composer", "",
         "onCheckUpdates()"},
        {"actionAbout_Kelvarion_Composer", "About Kelvarion Composer...", "", "", "about", "onAbout()"},
        {"actionDonate", "Donate", "", "", "donate", "onDonate()"},
        {"actionWebsite", "Website", "", "", "forum", "onWebsite()"},
    };
}

void ProgramCommands::editPreferences()
{
    PreferencesDialog(context_.settings, context_.dialogs, devices_, context_.playback.instruments(), &context_.window)
        .exec();
}

void ProgramCommands::openManual()
{
    openManualFor(&context_.window);
}

void ProgramCommands::showAbout()
{
    context_.dialogs.about(&context_.window, QStringLiteral("About Kelvarion Composer"), aboutHtml());
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
        context_.dialogs.message(&context_.window, Dialogs::Severity::Information, QStringLiteral("No updates"),
                                 QStringLiteral("You are running the latest version of Kelvarion Composer."));
        return;
    }
    const auto question =
        QStringLiteral("Kelvarion Composer v%1 is available.\nWould you like to download it now?").arg(version);
    if (context_.dialogs.ask(&context_.window, QStringLiteral("Update available"), question) == Dialogs::Answer::Yes)
        context_.dialogs.openInBrowser(QUrl(address));
}

void ProgramCommands::tellUpdateFailure(const QString &error)
{
    context_.dialogs.message(&context_.window, Dialogs::Severity::Warning, QStringLiteral("Updates check failed"),
                             QStringLiteral("Failed to check for updates: %1").arg(error));
}
