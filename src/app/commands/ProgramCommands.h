#pragma once

#include "app/commands/ActionRow.h"
#include "app/commands/CommandContext.h"
#include "ui/Shortcuts.h"
#include "ui/preferences/SoundPage.h"

#include <QCoreApplication>
#include <QVector>

// The commands about the program itself: preferences, updates, what it is. On the interface thread.
class ProgramCommands
{
    Q_DECLARE_TR_FUNCTIONS(ProgramCommands)

public:
    ProgramCommands(const CommandContext &context, const SoundDevices &devices) : context_(context), devices_(devices)
    {
    }

    static QVector<ActionRow> actions();

    void editPreferences();
    void editShortcuts(const QVector<KeyRow> &rows); // what commands there are
    void openManual();
    void showAbout();
    void openDonationPage();
    void openWebsite();
    void tellAboutUpdate(bool isAvailable, const QString &version, const QString &address);
    void tellUpdateFailure(const QString &error);

private:
    CommandContext context_;
    SoundDevices devices_;
};
