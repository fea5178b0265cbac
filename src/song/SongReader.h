#pragma once

#include "import/ImportReport.h"
#include "song/ReadingOptions.h"
#include "song/Song.h"
#include "song/SongSource.h"

#include <QHash>
#include <QStringList>

#include <functional>
#include <optional>
#include <stop_token>

class QIODevice;

struct ReadingError
{
    QString title;
    QString text;
    QString path = {}; // of the file; empty when there is none
};

// An ABC source that was read as the standard has it.
struct ConvertedAbc
{
    int source = 0;          // its number among those that were asked for
    QStringList differences; // what the game reads otherwise
    QStringList tunes;       // names for people
};

struct ReadSong
{
    QVector<Track> tracks; // the only one of an ABC file has its path; of several tunes none is the file
    QVector<ReadingError> errors;
    QStringList readFiles;                   // whose tracks are there
    std::optional<ImportReport> report = {}; // of a source that was imported by itself: MIDI, MML, standard ABC
    std::optional<Song> song = {};           // of a song file that was read by itself; its parts are the tracks
    QString remark = {};                     // for people: that ABC was read as the standard has it, and why
    QVector<PartReport> parts = {};          // of the tracks, one each
    PartReport elsewhere = {};               // what was found where no note became part of a track
    QHash<int, SongPart> songParts = {};     // of those tracks that are parts of a song file
    QVector<int> sources = {};               // of the tracks, by their number among those that were asked for
    QVector<ConvertedAbc> converted = {};    // those of the sources
    QVector<int> tunes = {};                 // of the tracks, by their number in a converted source; -1 in others
};

// No file and no input may be longer, in bytes; song files have a bound of their own.
constexpr qint64 largestSource = qint64(64) << 20;

// Reads everything, but throws a QString when it is longer than that.
QByteArray readBytes(QIODevice &device, qint64 longest = largestSource);

// Several tunes in one ABC text, and the parts of a song, are several tracks; one that cannot be read does not stop the
// others. A part that cannot be read is there without notes. Whatever cannot
// be read, for want of memory too, becomes an error. Throws only Interrupted, soon after a stop. On any thread.
ReadSong readSource(const SongSource &source, const ReadingOptions &options, const std::stop_token &stop = {});

// Reads the sources in their order; `step` is called with the number of each before it is read. When it is stopped it
// ends soon, with the sources that were read until then. On any thread.
ReadSong readSong(const QVector<SongSource> &sources, const ReadingOptions &options, const std::stop_token &stop,
                  const std::function<void(int number)> &step);
