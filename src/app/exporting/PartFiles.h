#pragma once

#include "app/commands/ActionRow.h"
#include "app/commands/CommandContext.h"

#include <QStringList>
#include <QVector>

#include <memory>

class QMimeData;

// Parts as other programs take them from a drag or the clipboard: ABC files that are named as Save Parts to Folder
// names them, and their text. The files are not written before somebody asks for them, into a folder that goes with the
// program. [ui]
class PartFiles
{
public:
    explicit PartFiles(const CommandContext &context);

    static QVector<ActionRow> actions();

    // The parts as they are now, in the order of the song.
    std::unique_ptr<QMimeData> dataOf(const QStringList &ids);
    void copy(const QStringList &ids); // to the clipboard

private:
    class Data;
    struct Folder;

    CommandContext context_;
    std::shared_ptr<Folder> folder_; // the clipboard's, too
};
