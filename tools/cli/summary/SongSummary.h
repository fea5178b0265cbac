#pragma once

#include "summary/SongChecker.h"

#include <QJsonArray>

// One song in a row of a table, and in a manifest.
struct SongSummary
{
    struct Part
    {
        QString name;
        QString instrument;
        int noteCount = 0;
        double seconds = 0;
        FindingCounts findings = {};
        QString file = {}; // that it was written to; empty when it has none of its own
    };

    QString path; // of the input
    QString title;
    QVector<Part> parts;
    QStringList files = {};
    QStringList failures = {};
    QJsonObject more = {}; // members that a command adds

    double seconds() const; // of the longest part
    int players() const;    // parts with notes
    FindingCounts findings() const;
    QJsonObject json() const;
};

// What people call all of an input: the title of a song file, or the name of the file.
QString songName(const QString &path, const ReadSong &song);

// [any]
SongSummary summaryOf(const QString &path, const ReadSong &song, const QVector<CheckedPart> &parts);

// What --summary, --json and --manifest ask for: the songs in their order, as a table after the lines, as JSON instead
// of them, and as a file beside the results.
class SongReport
{
public:
    explicit SongReport(const Arguments &arguments) : arguments_(arguments) {}

    bool isWanted() const { return arguments_.json || arguments_.summary || arguments_.manifest; }
    bool isInsteadOfLines() const { return arguments_.json; }

    void add(const SongSummary &song) { songs_.append(song); }

    void printTable() const;
    // Prints, and writes a manifest into the folder; what fails is printed. Gives whether nothing did.
    bool finish(const QString &folder) const;

private:
    void writeManifest(const QString &folder) const;
    QByteArray json() const;

    const Arguments &arguments_;
    QVector<SongSummary> songs_;
};
