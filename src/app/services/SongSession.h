#pragma once

#include "base/ComparedTexts.h"
#include "song/journal/JournalRecords.h"
#include "song/journal/SongJournal.h"
#include "ui/tracks/TrackList.h"

#include <QHash>
#include <QObject>
#include <QSet>

#include <optional>

// A song that is to take the place of the one in the window.
struct OpenedSong
{
    Song song;
    QVector<Track> tracks; // of its parts, in their order
    QSet<QString> inFiles; // ids of the parts whose files hold them as they are
    QString file;          // its song file, absolute; empty when it never had one
    // Whether the file holds it as it is; what was recovered is not saved anywhere.
    enum class Origin { File, Recovered };
    Origin origin = Origin::File;
    QString fileStamp = {}; // of the song file when it held the song, or what the song came from
};

// The window's song as one document: what is saved of it, where, and whether it is.
//
// The parts' notes and mix, their order and the history are the TrackList's. This adds what is no part of the history:
// the master volume, drafts of editors, where the song was imported from, what a song file had that this program does
// not show, and the song file itself; and the title, whose changes are steps of the history. song() composes all of it;
// the parts' texts are shared, so that it costs little.
//
// - Whoever keeps something of every state (the journal) listens to changed(), and takes journalled().
// - Whoever edits a part's text calls setDraft() while the text is not applied, and again with nothing when it is; a
//   new editor begins with draft(). Listeners of aboutToSave() apply what can be applied, before they return.
// - left() ends a song: the next changed() is of another one, or the window closes.
//
// On the interface thread.
class SongSession : public QObject
{
    Q_OBJECT

public:
    explicit SongSession(TrackList &tracks, QObject *parent = nullptr); // the list outlives it

    Song song() const;
    JournalledSong journalled() const { return {song(), file_, !isUnsaved(), fileStamp_}; }
    // The song file, absolute; empty while there is none.
    const QString &file() const { return file_; }
    // The song file's stamp when it was read or written last; empty where that is not known.
    const QString &fileStamp() const { return fileStamp_; }
    // For people: its title, or the name of its file or of what its parts were imported from; or else "Untitled".
    QString name() const;
    // Whether something would be lost now. A song without a song file is saved when all its parts are in their files,
    // none was removed that was not (that its coming was undone is no matter), and their mix, order and instruments are
    // as they came.
    bool isUnsaved() const;
    // Whether it would be saved when its parts were written to the files that they have.
    bool isSavedByPartsAlone() const;
    // The song file holds parts, and none of them is in the window any more: another song has taken their place.
    bool hasReplacedAllParts() const;
    // Nothing is in it, and nothing would be lost.
    bool isBlank() const;

    // One step that no undo crosses. Tells left() of the song before.
    void open(const OpenedSong &opened);
    void startNew();
    // The window goes.
    void leave();
    // Lets editors hand in what they hold of these parts.
    void takeEdits(const QStringList &partIds) { emit aboutToSave(partIds); }
    // The same for all; then the song is as it is to be written.
    Song songToSave();
    // The file holds this song, which is the window's as it was when it was written.
    void markSaved(const Song &written, const QString &file, const QString &stamp = {});

    const QString &title() const { return rest_.title; }    // may be empty; name() is not
    void setTitle(const QString &title);                    // a step of the history
    int masterVolume() const { return rest_.masterVolume; } // percent
    void setMasterVolume(int percent);
    // These are no steps of the history, either.
    const std::optional<SongLoop> &loop() const { return rest_.loop; }
    void setLoop(const std::optional<SongLoop> &loop);
    int tempoFactor() const { return rest_.tempoFactor; } // percent, 25 … 200
    void setTempoFactor(int percent);
    const QVector<SongImported> &imports() const { return rest_.imports; }
    QStringList partsOf(const QString &import) const; // ids of tracks
    QString addImport(SongImported imported);         // gives its id
    void setImportSettings(const QString &id, const QJsonObject &settings);
    std::optional<QString> draft(const QString &partId) const;
    void setDraft(const QString &partId, const std::optional<QString> &text);

signals:
    void changed(); // song(), file() or isUnsaved(), after each step of the history too
    void opened();  // another song is in the window
    void left(SongJournal::Ending ending);
    void aboutToSave(const QStringList &partIds);

private:
    friend class TitleStep;
    // How a part came into the window, and how it last was there.
    struct Seen
    {
        int number = 0; // in the order of coming
        std::shared_ptr<const SongTrack> first;
        std::shared_ptr<const SongTrack> last;
    };
    // What a song file says of a part and no track has.
    struct Kept
    {
        QString name;
        QString title; // of its track then: a part that is renamed loses its other name
        QJsonObject others;
    };

    void follow(const SongTracks &before, const SongTracks &after);
    void see(const std::shared_ptr<const SongTrack> &track);
    void reset();
    void take(const OpenedSong &opened);
    void showTitle(const QString &title);
    SongPart partOf(const SongTrack &track) const;
    bool isAsSaved() const;
    bool isAsItCame() const;
    bool hasLostParts() const;

    TrackList &tracks_;
    Song rest_; // all but the parts
    QHash<QString, Kept> kept_;
    QHash<QString, QString> drafts_;
    QHash<QString, Seen> seen_; // of removed parts, too
    QString file_;
    QString fileStamp_;
    std::optional<Song> saved_; // what the song file holds
    mutable ComparedTexts compared_;
    bool isRecovered_ = false;
    bool isOpening_ = false;
};
