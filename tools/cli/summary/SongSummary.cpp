#include "summary/SongSummary.h"

#include "audio/TempoMap.h"
#include "base/SafeFile.h"
#include "streams/Messages.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>

#include <algorithm>

namespace {

constexpr int ticksOfClock = 48000; // a second

QString key(const char *name)
{
    return QLatin1String(name);
}

SongSummary::Part partOf(const CheckedPart &checked)
{
    SongSummary::Part part{checked.name, checked.instrument, checked.track.noteCount()};
    part.seconds = double(TempoMap(checked.track, ticksOfClock).samplesAt(checked.length)) / ticksOfClock;
    part.findings.add(checked.findings);
    return part;
}

QJsonObject jsonOf(const SongSummary::Part &part)
{
    auto object = part.findings.json();
    object[key("name")] = part.name;
    object[key("instrument")] = part.instrument;
    object[key("noteCount")] = part.noteCount;
    object[key("seconds")] = part.seconds;
    if (!part.file.isEmpty())
        object[key("file")] = part.file;
    return object;
}

QString timeText(double seconds)
{
    const auto whole = qint64(seconds + 0.5);
    return QStringLiteral("%1:%2").arg(whole / 60).arg(whole % 60, 2, 10, QLatin1Char('0'));
}

using Row = QStringList;

Row rowOf(const QString &name, int parts, const QString &time, const FindingCounts &findings, int failures)
{
    return {name,
            QString::number(parts),
            time,
            QString::number(findings.errors + failures),
            QString::number(findings.warnings),
            QString::number(findings.notes)};
}

// The first column to the left, the others to the right.
void printRows(const QVector<Row> &rows)
{
    QVector<int> widths(rows.first().size());
    for (const auto &row : rows) {
        for (int i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], int(row[i].size()));
    }
    for (const auto &row : rows) {
        auto line = row.first().leftJustified(widths.first());
        for (int i = 1; i < row.size(); ++i)
            line += QStringLiteral("  ") + row[i].rightJustified(widths[i]);
        printLine(line);
    }
}

} // namespace

double SongSummary::seconds() const
{
    double longest = 0;
    for (const auto &part : parts)
        longest = std::max(longest, part.seconds);
    return longest;
}

int SongSummary::players() const
{
    return int(std::count_if(parts.begin(), parts.end(), [](const Part &part) { return part.noteCount > 0; }));
}

FindingCounts SongSummary::findings() const
{
    FindingCounts sum;
    for (const auto &part : parts)
        sum.add(part.findings);
    return sum;
}

QJsonObject SongSummary::json() const
{
    QJsonArray partArray;
    for (const auto &part : parts)
        partArray.append(jsonOf(part));
    auto object = more;
    const auto counts = findings().json();
    for (auto count = counts.begin(); count != counts.end(); ++count)
        object[count.key()] = count.value();
    object[key("input")] = path;
    object[key("title")] = title;
    object[key("seconds")] = seconds();
    object[key("players")] = players();
    object[key("parts")] = partArray;
    if (!files.isEmpty())
        object[key("files")] = QJsonArray::fromStringList(files);
    if (!failures.isEmpty())
        object[key("failures")] = QJsonArray::fromStringList(failures);
    return object;
}

QString songName(const QString &path, const ReadSong &song)
{
    if (song.song && !song.song->title.isEmpty())
        return song.song->title;
    if (path == u"-")
        return song.tracks.isEmpty() ? QString() : song.tracks.first().title();
    return QFileInfo(path).completeBaseName();
}

SongSummary summaryOf(const QString &path, const ReadSong &song, const QVector<CheckedPart> &parts)
{
    SongSummary summary{path, songName(path, song), {}};
    for (const auto &part : parts)
        summary.parts.append(partOf(part));
    return summary;
}

bool SongReport::finish(const QString &folder) const
{
    const bool isWritten = !arguments_.manifest || runOrPrint(folder, [&] { writeManifest(folder); });
    if (arguments_.json) {
        return isWritten && runOrPrint(QStringLiteral("standard output"), [this] {
                   StandardOutput out;
                   out.device().write(json());
                   out.finish();
               });
    }
    if (arguments_.summary)
        printTable();
    return isWritten;
}

QByteArray SongReport::json() const
{
    QJsonArray songs;
    for (const auto &song : songs_)
        songs.append(song.json());
    return QJsonDocument(QJsonObject{{key("songs"), songs}}).toJson();
}

void SongReport::writeManifest(const QString &folder) const
{
    const auto path = QDir(folder).filePath(QStringLiteral("manifest.json"));
    if (arguments_.force)
        SafeFile::write(path, json());
    else if (!SafeFile::writeNew(path, json()))
        throw QStringLiteral("manifest.json exists; --force writes over it.");
}

void SongReport::printTable() const
{
    QVector<Row> rows{{QStringLiteral("INPUT"), QStringLiteral("PARTS"), QStringLiteral("LENGTH"),
                       QStringLiteral("ERRORS"), QStringLiteral("WARNINGS"), QStringLiteral("NOTES")}};
    FindingCounts sum;
    int parts = 0;
    int failures = 0;
    double seconds = 0;
    for (const auto &song : songs_) {
        const auto findings = song.findings();
        rows.append(
            rowOf(song.path, int(song.parts.size()), timeText(song.seconds()), findings, int(song.failures.size())));
        sum.add(findings);
        parts += int(song.parts.size());
        failures += int(song.failures.size());
        seconds += song.seconds();
    }
    rows.append(rowOf(QStringLiteral("%1 songs").arg(songs_.size()), parts, timeText(seconds), sum, failures));
    printRows(rows);
}
