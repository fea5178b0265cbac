#pragma once

#include "app/commands/ActionRow.h"
#include "app/commands/CommandContext.h"

#include <QCoreApplication>
#include <QStringList>
#include <QVector>

class TrackRows;

// The commands that save tracks as ABC files. On the interface thread.
class SaveCommands
{
    Q_DECLARE_TR_FUNCTIONS(SaveCommands)

public:
    SaveCommands(const CommandContext &context, const TrackRows &rows) : context_(context), rows_(rows) {}

    static QVector<ActionRow> actions();

    void saveSelected();
    void saveAll();
    // Asks about tracks that are not saved; false when the window is to stay.
    bool mayClose();
    // A track of the list was written to this file.
    void noteSaved(const QString &id, const QString &path);

private:
    bool save(const QStringList &ids); // whether all were written

    CommandContext context_;
    const TrackRows &rows_;
};
