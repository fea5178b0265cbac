#pragma once

#include "app/commands/ActionRow.h"
#include "app/commands/CommandContext.h"

#include <QCoreApplication>
#include <QVector>

class ImportQueue;
class QMenu;
class QMimeData;

// The commands that bring files and the clipboard into the song. On the interface thread.
class ImportCommands
{
    Q_DECLARE_TR_FUNCTIONS(ImportCommands)

public:
    ImportCommands(const CommandContext &context, ImportQueue &queue) : context_(context), queue_(queue) {}

    static QVector<ActionRow> actions();

    void openAbc();
    void importMidi();
    void importClipboard();
    // What is neither ABC nor MIDI by its name is skipped.
    void openFiles(const QStringList &paths);
    static bool acceptsDrop(const QMimeData &data);
    void takeDrop(const QMimeData &data);
    void fillRecentMenu(QMenu &menu);
    // Asks whether to read the files of these tracks again, which another program changed.
    void offerToReadAgain(const QStringList &ids);

private:
    CommandContext context_;
    ImportQueue &queue_;
};
