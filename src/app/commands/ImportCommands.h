#pragma once

#include "app/commands/ActionRow.h"
#include "app/commands/CommandContext.h"
#include "song/Song.h"
#include "song/SongSource.h"

#include <QCoreApplication>
#include <QVector>

class ImportQueue;
class SongCommands;
class QMenu;
class QMimeData;

// The commands that bring files and the clipboard into the song. On the interface thread.
class ImportCommands
{
    Q_DECLARE_TR_FUNCTIONS(ImportCommands)

public:
    ImportCommands(const CommandContext &context, ImportQueue &queue, SongCommands &songCommands)
        : context_(context), queue_(queue), songs_(songCommands)
    {
    }

    static QVector<ActionRow> actions();

    void openAbc();
    void importMidi();
    void importClipboard();
    // Reads a file or text that parts came from with other settings; what it gives takes their place.
    void importAgain();
    bool canImportAgain() const { return !importsToReadAgain().isEmpty(); }
    // A song file by itself takes the place of the song, among others its parts are added with their mix. What is
    // neither ABC nor MIDI nor a song by its name is skipped.
    void openFiles(const QStringList &paths);
    static bool acceptsDrop(const QMimeData &data);
    void takeDrop(const QMimeData &data);
    void fillRecentMenu(QMenu &menu);
    // Asks whether to read the files of these tracks again, which another program changed.
    void offerToReadAgain(const QStringList &ids);

private:
    QVector<SongImported> importsToReadAgain() const;
    void openRecent(const QString &entry);
    // Whether it was a song by itself, which is opened.
    bool openSong(const QVector<SongSource> &sources);

    CommandContext context_;
    ImportQueue &queue_;
    SongCommands &songs_;
};
