#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

class QMimeData;
struct SongImported;

// Something to read tracks from, and as what.
struct SongSource
{
    enum class Kind {
        AbcFile,
        MidiFile,
        TextFile, // ABC when its text begins with "X:", MML when it begins with "MML@" or looks like it
        AbcText,
        MmlText,
        SongFile,
        Bytes, // MIDI when they begin with "MThd", a song file with "{", else by the text like a text file
    };
    Kind kind = Kind::AbcText;
    QString content;       // a file's path, or the text itself; for bytes a name for people
    QByteArray bytes = {}; // only for bytes
};

// A file by its ending, whose case does not matter: .abc, .mid, .midi, .kvsong, and text for every other.
SongSource sourceOf(const QString &path);

// What was imported, once more.
SongSource sourceOf(const SongImported &imported);

// Which of the files the user may mean: pasted files may end in .abc, .mid and .midi, dropped ones in .abc and
// .mid; songs in .kvsong.
enum class FileOrigin { Pasted, Dropped };
QVector<SongSource> sourcesOf(const QMimeData &data, FileOrigin origin);

// A text that begins as ABC or MML does, or is MML by what is in it; nothing when it is neither.
QVector<SongSource> sourcesOf(const QString &text);

// One tune of a text.
struct Tune
{
    QString text;
    int line = 1; // of the whole text, where the tune begins
};

// The tunes of an ABC text: each begins with an "X:" line, and an empty line parts it from the one before. What stands
// before the first belongs to it, and the empty lines between belong to none. A text without such lines is one tune.
QVector<Tune> tunesOf(const QString &text);
