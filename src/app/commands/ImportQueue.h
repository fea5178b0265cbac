#pragma once

#include "app/commands/CommandContext.h"
#include "app/services/SongImport.h"
#include "audio/player/PlayerWorker.h"

#include <QHash>

// The way of songs into the track list: they are read, wait until the instruments' names are known and no dialog is
// open that may belong to a row, and are chosen from where that is wanted. On the interface thread.
class ImportQueue : public QObject
{
    Q_OBJECT

public:
    ImportQueue(const CommandContext &context, EngineFactory makeEngine); // of what is heard before it is imported

    SongImport &reading() { return reading_; }
    bool isBusy() const { return reading_.isRunning() || !waiting_.isEmpty(); }

    // From here on songs become tracks.
    void open();

    void load(const ImportRequest &request); // without sources it does nothing
    // Asks first, when there are tracks, whether they are to be removed; the user may cancel the import.
    void askAndLoad(const QString &title, ImportRequest request);
    void add(const ImportRequest &request, const ReadSong &song);

signals:
    void added(const ImportRequest &request, const ReadSong &song, const QStringList &trackIds); // to the song

private:
    void take();
    void take(const ImportRequest &request, const ReadSong &song);
    bool isChosenFrom(const ImportRequest &request, const ReadSong &song) const;
    void choose(ImportRequest request, const ReadSong &song);
    bool mayConvert(const ImportRequest &request, const ReadSong &song);
    std::optional<ReadSong> chooseTunes(const ImportRequest &request, ReadSong song);
    void addTracks(const ImportRequest &request, const ReadSong &song, const QStringList &instruments = {});
    NewTrack newTrack(const Track &track, const SongPart &part, const QString &chosen) const;
    void readAgain(const ImportRequest &request, const ReadSong &song);
    QHash<int, QString> noteImports(const ImportRequest &request, const ReadSong &song);
    void replace(const ImportRequest &request, const Track &track);
    void showErrors();

    CommandContext context_;
    EngineFactory makeEngine_;
    SongImport reading_;
    QVector<std::pair<ImportRequest, ReadSong>> waiting_;
    QVector<ReadingError> errors_; // to be shown in one box when nothing is read any more
    bool isOpen_ = false;
};
