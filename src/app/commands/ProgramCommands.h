#pragma once

#include "app/commands/ActionRow.h"
#include "app/commands/CommandContext.h"
#include "audio/OutputControl.h"

#include <QCoreApplication>
#include <QVector>

// The commands about the program itself: preferences, updates, what it is. On the interface thread.
class ProgramCommands
{
    Q_DECLARE_TR_FUNCTIONS(ProgramCommands)

public:
    // output: outlives it.
    ProgramCommands(const CommandContext &context, OutputControl &output) : context_(context), output_(output) {}

    static QVector<ActionRow> actions();

    void editPreferences();
    void showAbout();
    void openDonationPage();
    void openWebsite();
    void tellAboutUpdate(bool isAvailable, const QString &version, const QString &address);
    void tellUpdateFailure(const QString &error);

private:
    CommandContext context_;
    OutputControl &output_;
};
