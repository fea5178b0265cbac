#pragma once

#include "core/Ticks.h"

#include <QJsonObject>
#include <QString>
#include <QVector>

#include <optional>

constexpr int mostStartOffset = 10'000; // milliseconds, sooner or later

// One instrument's part of a song, with everything that is kept of it. Texts part their lines at "\n" and are kept
// character by character.
struct SongPart
{
    QString id;                   // never empty, and its own in its song; "T1", "T2", …
    QString name;                 // what people call the part
    QString abc;                  // what is played
    std::optional<QString> draft; // what an editor holds that cannot be played yet
    QString instrument;           // a name of the catalogue; empty for the default one
    int volume = 100;             // percent, 0 … 100
    int pan = 0;                  // -100 left … 100 right
    bool isMuted = false;
    int startOffset = 0;     // milliseconds by which it sounds later than it is written, or sooner; to mostStartOffset
    QVector<Ticks> barLines; // where lines of a text made anew may begin, as in Track
    QString path;            // of the ABC file that it was read from or saved to, absolute and clean; may be empty
    QString import;          // the id of the import that it came from; empty, or that of none, when it is not known
    QJsonObject others;      // members of the song file that only a newer version knows

    bool operator==(const SongPart &) const = default;
};

// The part of the song that is played over and over, in ticks; 0 <= begin < end <= 2^53.
struct SongLoop
{
    Ticks begin = 0;
    Ticks end = 0;
    QJsonObject others; // as in SongPart

    bool operator==(const SongLoop &) const = default;
};

// What parts were imported from, a file or a text, and the settings that it was read with, by their keys.
struct SongImported
{
    QString path; // absolute and clean; empty for the clipboard
    QJsonObject settings;
    QJsonObject others; // as in SongPart
    QString id = {};    // its own in its song, "I1", "I2", …; older songs have none
    QString text = {};  // of the clipboard

    bool operator==(const SongImported &) const = default;
};

// Everything that is saved of a song. A value; copies share their texts until one is changed, so that it can be handed
// around for nothing.
struct Song
{
    QString title;
    int masterVolume = 100; // percent, 0 … 100
    int tempoFactor = 100;  // percent of the written tempo, 25 … 200
    std::optional<SongLoop> loop;
    QVector<SongImported> imports;
    QVector<SongPart> parts; // in display order
    QJsonObject others;      // as in SongPart

    bool operator==(const Song &) const = default;
};
