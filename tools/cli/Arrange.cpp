#include "Arrange.h"

#include "Instruments.h"
#include "Messages.h"
#include "Parts.h"
#include "arrange/Arrangement.h"
#include "assets/InstrumentGuess.h"
#include "assets/ProgramInstruments.h"
#include "base/SafeFile.h"
#include "import/ProgramNames.h"
#include "song/SongParts.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

struct Column
{
    const char *name; // of the table, and of the member of JSON
    int (*of)(const PartFigures &figures);
};

constexpr Column columns[] = {
    {"notes", [](const PartFigures &figures) { return figures.notes; }},
    {"kept", [](const PartFigures &figures) { return figures.notes - figures.droppedInAll(); }},
    {"doubled", [](const PartFigures &figures) { return figures.count(DropReason::Doubled); }},
    {"noVoice", [](const PartFigures &figures) { return figures.count(DropReason::NoVoice); }},
    {"outOfRange", [](const PartFigures &figures) { return figures.count(DropReason::OutOfRange); }},
    {"noDrummer", [](const PartFigures &figures) { return figures.count(DropReason::NoDrummer); }},
    {"noLength", [](const PartFigures &figures) { return figures.count(DropReason::NoLength); }},
    {"octaves", [](const PartFigures &figures) { return figures.folded; }},
    {"shortened", [](const PartFigures &figures) { return figures.shortened; }},
    {"lent", [](const PartFigures &figures) { return figures.lent; }},
    {"atOnce", [](const PartFigures &figures) { return figures.mostAtOnce; }},
    {"crossings", [](const PartFigures &figures) { return figures.crossings; }},
};

QJsonObject json(const QString &name, const PartFigures &figures)
{
    QJsonObject object{{QStringLiteral("name"), name}};
    for (const auto &column : columns)
        object.insert(QLatin1String(column.name), column.of(figures));
    if (figures.span) {
        object.insert(QStringLiteral("lowest"), int(figures.span->lowest));
        object.insert(QStringLiteral("highest"), int(figures.span->highest));
    }
    return object;
}

QString spanText(const PartFigures &figures)
{
    return figures.span ? QStringLiteral("%1-%2").arg(figures.span->lowest).arg(figures.span->highest)
                        : QStringLiteral("-");
}

QString tableLine(const QString &name, const PartFigures &figures)
{
    auto line = QStringLiteral("  ") + name.leftJustified(24, u' ', true);
    for (const auto &column : columns)
        line += u' ' + QString::number(column.of(figures)).rightJustified(int(qstrlen(column.name)));
    return line + u' ' + spanText(figures).rightJustified(7);
}

QString headLine(const char *what)
{
    auto line = QStringLiteral("  ") + QString(QLatin1String(what)).leftJustified(24);
    for (const auto &column : columns)
        line += u' ' + QLatin1String(column.name);
    return line + QStringLiteral("    span");
}

class SongArranger
{
public:
    explicit SongArranger(const Arguments &arguments) : arguments_(arguments) {}
    int run();

private:
    void arrangeInput(const QString &input);
    QVector<SourcePart> sourceParts(const Parts &parts) const;
    SourcePart sourcePart(const SongPart &part, const Track &track, const PartReport &report) const;
    QString instrumentOf(const SongPart &part, const Track &track, const PartReport &report) const;
    PitchRange rangeOf(const QString &instrument) const;
    QStringList write(Arrangement &arrangement, const QString &songName) const;
    void print(const QString &input, const QVector<SourcePart> &sources, const Arrangement &arrangement,
               const QStringList &written);

    const Arguments &arguments_;
    InstrumentSet instruments_;
    QJsonArray songs_;
    bool failed_ = false;
};

int SongArranger::run()
{
    const auto scan = [this] { instruments_ = scanGame(arguments_); };
    if (!arguments_.game.isEmpty() && !runOrPrint(arguments_.game, scan))
        return 1;
    for (const auto &input : arguments_.inputs)
        failed_ |= !runOrPrint(input, [&] { arrangeInput(input); });
    if (arguments_.json)
        printLine(QString::fromUtf8(
            QJsonDocument(QJsonObject{{QStringLiteral("songs"), songs_}}).toJson(QJsonDocument::Compact)));
    return failed_ ? 1 : 0;
}

void SongArranger::arrangeInput(const QString &input)
{
    auto one = arguments_;
    one.inputs = QStringList(input);
    const auto parts = readParts(one, failed_);
    if (parts.tracks.isEmpty() && failed_)
        return;
    const auto sources = sourceParts(parts);
    auto arrangement = arrange(sources, {arguments_.players, arguments_.voices});
    if (arrangement.parts.isEmpty())
        throw QStringLiteral("There are no notes that could be played.");
    const auto name = parts.song.title.isEmpty() ? QFileInfo(input).completeBaseName() : parts.song.title;
    const auto written = write(arrangement, input == u"-" ? sources.first().name : name);
    print(input, sources, arrangement, written);
}

QVector<SourcePart> SongArranger::sourceParts(const Parts &parts) const
{
    QVector<SourcePart> sources;
    for (int i = 0; i < parts.tracks.size(); ++i)
        sources.append(sourcePart(parts.song.parts[i], parts.tracks[i], parts.reports.value(i)));
    return sources;
}

SourcePart SongArranger::sourcePart(const SongPart &part, const Track &track, const PartReport &report) const
{
    const auto instrument = instrumentOf(part, track, report);
    const bool isPercussion = report.isPercussion || usualProgram(instrument) == ProgramInstruments::percussion ||
                              (instrument.isEmpty() && usualProgram(part.name) == ProgramInstruments::percussion);
    return {track, part.name, instrument, rangeOf(instrument), isPercussion};
}

// Without a game, programs tell instruments apart.
QString SongArranger::instrumentOf(const SongPart &part, const Track &track, const PartReport &report) const
{
    const auto program = report.program ? programName(*report.program) : QString();
    if (!part.instrument.isEmpty() || instruments_.isEmpty())
        return part.instrument.isEmpty() ? program : part.instrument;
    const auto titles = QStringList{program, part.name} + track.headerFields(QStringLiteral("T"));
    const auto guess = guessInstrument(titles, track.pitchCounts(), instruments_);
    return guess ? guess->name : program;
}

PitchRange SongArranger::rangeOf(const QString &instrument) const
{
    if (!instruments_.contains(instrument))
        return {};
    const auto &notes = instruments_.instrument(instrument).tuning.notes;
    return notes.isEmpty() ? PitchRange() : PitchRange{notes.firstKey(), notes.lastKey()};
}

QStringList SongArranger::write(Arrangement &arrangement, const QString &songName) const
{
    Song song;
    for (const auto &part : arrangement.parts) {
        song.parts.append(SongPart());
        song.parts.last().name = part.name;
    }
    const QDir directory(arguments_.output);
    if (!directory.mkpath(QStringLiteral(".")))
        throw QStringLiteral("Could not create the directory.");
    QStringList written;
    const auto names = SongParts::fileNames(song, songName);
    for (int i = 0; i < names.size(); ++i) {
        const auto path = directory.filePath(names[i]);
        const auto bytes = arrangement.parts[i].track.toAbc().toUtf8();
        if (arguments_.force)
            SafeFile::write(path, bytes);
        else if (!SafeFile::writeNew(path, bytes))
            throw QStringLiteral("\"%1\" exists; --force writes over it.").arg(names[i]);
        written.append(path);
    }
    return written;
}

void SongArranger::print(const QString &input, const QVector<SourcePart> &sources, const Arrangement &arrangement,
                         const QStringList &written)
{
    if (arguments_.json) {
        QJsonArray before;
        for (int i = 0; i < sources.size(); ++i)
            before.append(json(sources[i].name, arrangement.before[i]));
        QJsonArray after;
        for (const auto &part : arrangement.parts)
            after.append(json(part.name, part.figures));
        songs_.append(QJsonObject{{QStringLiteral("file"), input},
                                  {QStringLiteral("before"), before},
                                  {QStringLiteral("after"), after},
                                  {QStringLiteral("written"), QJsonArray::fromStringList(written)}});
        return;
    }
    printLine(QStringLiteral("%1: wrote %2").arg(input, written.join(QStringLiteral(", "))));
    printLine(headLine("before"));
    for (int i = 0; i < sources.size(); ++i)
        printLine(tableLine(sources[i].name, arrangement.before[i]));
    printLine(tableLine(QStringLiteral("all"), arrangement.sumBefore()));
    printLine(headLine("after"));
    for (const auto &part : arrangement.parts)
        printLine(tableLine(part.name, part.figures));
    printLine(tableLine(QStringLiteral("all"), arrangement.sumAfter()));
}

} // namespace

int arrangeSongs(const Arguments &arguments)
{
    return SongArranger(arguments).run();
}
