#pragma once

#include "core/Track.h"
#include "import/MidiImport.h"
#include "import/MmlImport.h"

#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>
#include <stop_token>

class QMimeData;
class Settings;

// What the user asked to read: a file or a text, and as what.
struct SongSource
{
    enum class Kind { AbcFile, MidiFile, AbcText, MmlText };
    Kind kind;
    QString content; // a path, or the text itself
};

// The settings that reading depends on, taken once.
struct ReadingOptions
{
    MidiImportOptions midi;
    MmlImportOptions mml;
};
ReadingOptions readingOptions(const Settings &settings);

struct ReadingError
{
    QString title;
    QString text;
};

struct ReadSong
{
    QVector<Track> tracks; // with their ABC texts made; a track of an ABC file has its path
    QVector<ReadingError> errors;
    QStringList readFiles; // whose tracks are there
};

// Reads the sources in their order; one that cannot be read is an error and the next is read. `step` is called with the
// number of each source before it is read. When it is stopped it ends soon, with the sources that were read until then.
// On any thread.
ReadSong readSong(const QVector<SongSource> &sources, const ReadingOptions &options, const std::stop_token &stop,
                  const std::function<void(int number)> &step);

// Which of the files the user may mean: pasted files may end in .abc, .mid and .midi, dropped ones in .abc and .mid.
enum class FileOrigin { Pasted, Dropped };
QVector<SongSource> sourcesOf(const QMimeData &data, FileOrigin origin);

// ABC text, one tune or several with empty lines between, and MML text by how it begins; nothing when it is neither.
QVector<SongSource> sourcesOf(const QString &text);
