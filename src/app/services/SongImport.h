#pragma once

#include "base/Task.h"
#include "song/SongReader.h"
#include "ui/tracks/TrackList.h"

#include <QObject>
#include <QQueue>

#include <optional>

class Settings;

// What happens to ABC that uses notation which the game reads otherwise; the values of the setting.
enum class ForeignAbc { Ask, Convert, OpenAsItIs };

// What one action of the user is to bring into the song.
struct ImportRequest
{
    QString step;   // its name in the history
    QString status; // while it runs
    QVector<SongSource> sources;
    ExistingTracks existing = ExistingTracks::Keep;
    QStringList replaced = {};                  // the tracks whose file is read again
    std::optional<ReadingOptions> options = {}; // where they are not those of the preferences; always to be shown
    enum class Preview { No, IfPreferred };
    Preview preview = Preview::No; // of parts that are not in the words of the game, to choose from
    enum class Tunes { All, Chosen };
    Tunes tunes = Tunes::All; // of a converted book
    QString readAgain = {};   // the id of the import whose parts are replaced
};

// Reads songs beside the interface thread, one request after another.
class SongImport : public QObject
{
    Q_OBJECT

public:
    explicit SongImport(const Settings &settings, QObject *parent = nullptr);

    void start(const ImportRequest &request);
    void cancel();                                                // all requests; nothing of them is delivered
    ReadingOptions optionsOf(const ImportRequest &request) const; // as it is read now
    ForeignAbc foreignAbc() const;                                // as it is preferred
    bool isRunning() const { return !requests_.isEmpty(); }

signals:
    void progress(const QString &status, int done, int total); // of the sources of one request
    void imported(const ImportRequest &request, const ReadSong &song);
    void idle();

private:
    void readNext();
    void leave(int number);

    const Settings &settings_;
    QQueue<ImportRequest> requests_; // the first is being read
    Task task_;
    int reading_ = 0; // number of the request that is being read
};
