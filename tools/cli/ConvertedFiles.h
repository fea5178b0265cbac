#pragma once

#include "summary/SongSummary.h"

#include <optional>
#include <utility>

// One input on its way into files.
struct ConvertedInput
{
    struct File
    {
        QString name; // without ending, and not yet its own
        QString ending;
        QByteArray bytes;
        QString failure = {}; // why there are no bytes
    };

    QString path;
    ReadSong song;
    QStringList failures = {};               // why it, or some of it, could not be read or transformed
    QVector<File> files = {};                // to be written
    QStringList written = {};                // paths
    int trackCount = 0;                      // as it was read
    std::optional<SongSummary> summary = {}; // when one is wanted
    QString remark = {};                     // on what could not be written as it is

    bool isReadable() const { return failures.isEmpty() || trackCount > 0; }

    // Of thousands of inputs no more is kept than there is to say.
    void forgetMusic()
    {
        ReadSong said;
        said.report = std::move(song.report);
        said.remark = std::move(song.remark);
        song = std::move(said);
    }
};

// What the tracks of an input become: those of its song, or what they were merged into. [any]
enum class Merged { No, Yes };
void makeFiles(ConvertedInput &input, const QVector<Track> &tracks, Merged merged, const Arguments &arguments);

// "wrote a.abc; notes: 3 too soft", or why nothing was written. mergedInto: where all inputs went; empty otherwise.
QString lineOf(const ConvertedInput &input, const QString &mergedInto = {});
