#pragma once

#include "song/TrackFiles.h"

#include <QMap>
#include <QObject>
#include <QSet>
#include <QUndoStack>

#include <functional>

// A track that is to be added.
struct NewTrack
{
    Track track; // with its file path when that file holds it as it is
    QString instrument;
    bool isMuted = false;
    int volume = 100; // as in SongTrack
    int pan = 0;
    QString import = {};    // as in SongTrack
    QString inPlaceOf = {}; // the id of a track that it replaces, whose mix it gets
};

// A track of a song that is opened.
enum class FileHolds { Track, Other };
struct OpenedTrack
{
    SongTrack track; // its id is its own in the song; the text is made
    QString path;    // of its file; may be empty
    FileHolds file = FileHolds::Other;
};

enum class ExistingTracks { Keep, Remove };

// The song of the window without its widgets. Every change is one step of the undo stack, and songChanged() tells the
// views what to follow; the selection, and which tracks are saved, are no part of the history. Names of tracks that are
// not there are ignored. On the interface thread.
class TrackList : public QObject
{
    Q_OBJECT

public:
    explicit TrackList(QObject *parent = nullptr);

    const SongTracks &song() const { return song_; }
    bool isEmpty() const { return song_.isEmpty(); }
    const SongTrack *find(const QString &id) const;
    // Whose measures and tempo are the song's: the first with notes; null in an empty song.
    std::shared_ptr<const SongTrack> leader() const;
    QStringList ids() const;
    QUndoStack &history() { return history_; }

    // Of the longest track; the scale that all overviews share.
    Ticks commonLength() const;

    // The track with the path of the file that it was read from or saved to.
    Track trackWithPath(const QString &id) const;

    bool isSelected(const QString &id) const { return selected_.contains(id); }
    QStringList selectedIds() const; // in display order
    // What a change of this track is for: all selected ones when it is one of them.
    QStringList withSelection(const QString &id) const;
    void setSelected(const QString &id, bool isSelected);
    void selectAll();
    void deselectAll();
    void invertSelection();

    // Another song in the place of this one, with a history of its own.
    void open(const QVector<OpenedTrack> &tracks);
    // Gives the identifiers of the new tracks.
    QStringList add(const QString &step, const QVector<NewTrack> &tracks,
                    ExistingTracks existing = ExistingTracks::Keep);
    void remove(const QString &step, const QStringList &ids);
    // Puts the tracks where the first of these is, and removes those that they do not take the place of. Gives the
    // identifiers of the tracks.
    QStringList replace(const QString &step, const QStringList &ids, const QVector<NewTrack> &tracks);
    void duplicate(const QStringList &ids);
    void move(const QString &id, int index);
    void setTrack(const QString &step, const QString &id, const Track &track);
    void setTracks(const QString &step, const QMap<QString, Track> &tracks); // by their ids
    void setInstrument(const QStringList &ids, const QString &instrument);
    void setVolume(const QStringList &ids, int percent);
    void setPan(const QStringList &ids, int pan);
    void setStartOffset(const QStringList &ids, int milliseconds);
    void setMuted(const QStringList &ids, bool isMuted);
    void toggleMuted(const QStringList &ids); // mutes all when one of them sounds
    void solo(const QStringList &ids);        // or unmutes all when they alone sound
    // The tracks that were chosen to sound alone, as long as they do.
    QSet<QString> soloed() const;

    // Whether a step that is done took it out; one whose coming was undone was not.
    bool wasRemoved(const QString &id) const { return !find(id) && removals_.value(id) > 0; }

    // As TrackFiles has it.
    bool isUnsaved(const QString &id) const;
    bool isUnsaved(const SongTrack &track) const { return files_.isUnsaved(track); } // of one that was removed, too
    QStringList unsavedIds() const;
    // Whether it has a file and does not differ from it.
    bool isFiled(const QString &id) const { return !filePath(id).isEmpty() && !isUnsaved(id); }
    QString filePath(const QString &id) const { return files_.path(id); }
    std::optional<QString> savedText(const QString &id) const { return files_.savedText(id); }
    void setFilePath(const QString &id, const QString &path);
    void markSaved(const QString &id, const QString &path);
    // The same for what the track was when it was written.
    void markSaved(const QString &id, const QString &path, const std::shared_ptr<const Track> &written);
    QStringList rivalsFor(const QString &path, const QString &id) const;

signals:
    void songChanged(const SongTracks &before, const SongTracks &after);
    void selectionChanged(const QString &id, bool isSelected);
    void filesChanged(); // where tracks are saved, or what is known of it

private:
    friend class TrackListStep;
    // Steps of one kind on one track that follow each other quickly are one step.
    enum class Merging { Never, Instrument, Volume, Pan };

    int indexOf(const QString &id) const;
    QString nextId() { return QStringLiteral("T%1").arg(++lastNumber_); }
    std::shared_ptr<const SongTrack> adopt(const NewTrack &track);
    std::shared_ptr<const SongTrack> successor(const SongTrack &old, const NewTrack &track);
    void change(const QString &step, const SongTracks &after, Merging merging = Merging::Never, const QString &id = {});
    void changeEach(const QString &step, const QStringList &ids, Merging merging,
                    const std::function<void(SongTrack &)> &edit);
    void countRemovals(const QSet<QString> &ids, int steps);
    void show(const SongTracks &song);

    SongTracks song_;
    QSet<QString> selected_;
    QSet<QString> soloed_; // at last
    TrackFiles files_;
    QHash<QString, int> removals_; // by how many steps that are done
    QUndoStack history_;
    int lastNumber_ = 0;
};
