#pragma once

#include "app/commands/ActionRow.h"
#include "app/commands/CommandContext.h"
#include "settings/SettingsTable.h"

#include <QCoreApplication>
#include <QVector>

class QMenu;

// What a musician hears beside the song; it is the person's and not the song's. On the interface thread.
class PracticeCommands
{
    Q_DECLARE_TR_FUNCTIONS(PracticeCommands)

public:
    // Begins with what was chosen last.
    explicit PracticeCommands(const CommandContext &context);

    static QVector<ActionRow> actions();

    void switchMetronome(bool isOn);
    void switchRehearsal(bool isOn);
    // False when nothing was chosen; else the rehearsal is on.
    bool chooseRehearsal();
    // The measures that are counted in, and how loud the clicks are. This outlives the menu.
    void fillMenu(QMenu &menu);

private:
    struct Choice
    {
        QString text;
        int value = 0;
    };
    void addChoices(QMenu &menu, const QString &title, SettingsTable::Setting setting, const QVector<Choice> &choices);
    void set(SettingsTable::Setting setting, const QVariant &value);
    void apply();

    CommandContext context_;
};
