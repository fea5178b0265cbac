#pragma once

#include "app/commands/CommandContext.h"
#include "app/services/SongImport.h"

// The way of songs into the track list: they are read, and wait until the instruments' names are known and no dialog is
// open that may belong to a row. On the interface thread.
class ImportQueue : public QObject
{
    Q_OBJECT

public:
    explicit ImportQueue(const CommandContext &context);

    SongImport &reading() { return reading_; }
    bool isBusy() const { return reading_.isRunning() || !waiting_.isEmpty(); }

    // From here on songs become tracks.
    void open();

    void load(const ImportRequest &request); // without sources it does nothing
    void add(const ImportRequest &request, const ReadSong &song);

    // Asks when there are tracks.
    ExistingTracks askAboutExisting(const QString &title) const;

private:
    void take();
    void take(const ImportRequest &request, const ReadSong &song);

    CommandContext context_;
    SongImport reading_;
    QVector<std::pair<ImportRequest, ReadSong>> waiting_;
    bool isOpen_ = false;
};
