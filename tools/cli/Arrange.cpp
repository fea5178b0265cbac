#include "Arrange.h"

#include "Instruments.h"
#include "arrange/Arrangement.h"
#include "assets/InstrumentGuess.h"
#include "assets/ProgramInstruments.h"
#include "base/ErrorText.h"
#include "base/FileBatch.h"
#include "import/ProgramNames.h"
#include "input/FileNames.h"
#include "input/Parts.h"
#include "song/SongParts.h"
#include "streams/Messages.h"
#include "summary/SongSummary.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>
#include <deque>
#include <utility>

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

struct NamedFigures
{
    QString name;
    PartFigures figures;
};

QJsonArray json(const QVector<NamedFigures> &parts)
{
    QJsonArray array;
    for (const auto &part : parts)
        array.append(json(part.name, part.figures));
    return array;
}

void printTable(const char *what, const QVector<NamedFigures> &parts)
{
    printLine(headLine(what));
    PartFigures sum;
    for (const auto &part : parts) {
        printLine(tableLine(part.name, part.figures));
        sum.add(part.figures);
    }
    printLine(tableLine(QStringLiteral("all"), sum));
}

// One input on its way to the files of its players.
struct ArrangedInput
{
    struct File
    {
        QString name; // without ending, and not yet its own
        QByteArray bytes;
    };

    QString path;
    QStringList failures; // why it, or some of it, could not be read or arranged
    QVector<NamedFigures> before = {};
    QVector<NamedFigures> after = {};
    QVector<File> files = {};
    QStringList written = {};
    bool hasFailed = false;   // to be written
    SongSummary summary = {}; // when one is wanted
};

// Inputs are arranged on all cores, and their files named in the order of the inputs, so that names do not depend on
// chance.
class SongArranger
{
public:
    explicit SongArranger(const Arguments &arguments)
        : arguments_(arguments), report_(arguments),
          saving_(arguments.force ? SafeFile::Existing::Replaced : SafeFile::Existing::Kept)
    {
    }
    int run();

private:
    ArrangedInput arranged(const QString &path) const;
    void arrangeParts(ArrangedInput &input, const Parts &parts) const;
    QVector<SourcePart> sourceParts(const Parts &parts) const;
    SourcePart sourcePart(const SongPart &part, const Track &track, const PartReport &report) const;
    QString instrumentOf(const SongPart &part, const Track &track, const PartReport &report) const;
    PitchRange rangeOf(const QString &instrument) const;
    ReadSong asSong(const Arrangement &arrangement, const QVector<SourcePart> &sources) const;
    void take(ArrangedInput input);
    void saveFiles(ArrangedInput &input);
    void saveFile(ArrangedInput &input, const QString &path, const QByteArray &bytes);
    void finish(ArrangedInput &input);
    void print(const ArrangedInput &input) const;
    void report(const ArrangedInput &input);

    const Arguments &arguments_;
    SongReport report_;
    InstrumentSet instruments_;
    FileNames names_;
    std::deque<ArrangedInput> inputs_;
    FileBatch saving_;
    bool failed_ = false;
};

int SongArranger::run()
{
    const auto scan = [this] { instruments_ = scanGame(arguments_); };
    if (!arguments_.game.isEmpty() && !runOrPrint(arguments_.game, scan))
        return 1;
    forEachInput<ArrangedInput>(
        arguments_, [this](const QString &path) { return arranged(path); },
        [this](const ArrangedInput &input) { take(input); });
    failed_ |= !runOrPrint(arguments_.output, [this] { saving_.finish(); });
    for (auto &input : inputs_)
        finish(input);
    failed_ |= !report_.finish(arguments_.output);
    return failed_ ? 1 : 0;
}

// On any thread.
ArrangedInput SongArranger::arranged(const QString &path) const
{
    const auto reading = readOne(path, arguments_);
    ArrangedInput input{path, reading.failures};
    if (!reading.failures.isEmpty() && reading.song.tracks.isEmpty())
        return input;
    try {
        arrangeParts(input, partsOf({{path, reading.song}}, arguments_));
    } catch (...) {
        input.failures.append(currentErrorText());
    }
    return input;
}

void SongArranger::arrangeParts(ArrangedInput &input, const Parts &parts) const
{
    const auto sources = sourceParts(parts);
    auto arrangement = arrange(sources, {arguments_.players, arguments_.voices});
    if (arrangement.parts.isEmpty())
        throw QStringLiteral("There are no notes that could be played.");
    for (int i = 0; i < sources.size(); ++i)
        input.before.append({sources[i].name, arrangement.before[i]});
    Song song;
    for (auto &part : arrangement.parts) {
        input.after.append({part.name, part.figures});
        song.parts.append(SongPart());
        song.parts.last().name = part.name;
        part.track.toAbc();
    }
    const bool isNamed = !parts.song.title.isEmpty();
    const auto title = isNamed              ? parts.song.title
                       : input.path == u"-" ? sources.first().name
                                            : QFileInfo(input.path).completeBaseName();
    const auto names = SongParts::fileNames(song, title);
    for (int i = 0; i < names.size(); ++i)
        input.files.append({QFileInfo(names[i]).completeBaseName(), arrangement.parts[i].track.toAbc().toUtf8()});
    if (!report_.isWanted())
        return;
    const auto played = asSong(arrangement, sources);
    input.summary = summaryOf(input.path, played, checkReadSong(played, arguments_, instruments_));
    input.summary.title = title;
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

// As the game will have it.
ReadSong SongArranger::asSong(const Arrangement &arrangement, const QVector<SourcePart> &sources) const
{
    ReadSong song;
    song.parts.resize(arrangement.parts.size());
    for (const auto &part : arrangement.parts) {
        const auto &instrument = sources[part.sources.first()].instrument;
        SongPart played;
        played.name = part.name;
        played.instrument = instruments_.contains(instrument) ? instrument : QString();
        song.songParts.insert(int(song.tracks.size()), played);
        song.tracks.append(part.track);
    }
    return song;
}

void SongArranger::take(ArrangedInput input)
{
    for (const auto &failure : qAsConst(input.failures))
        printFailure(input.path, failure);
    failed_ |= !input.failures.isEmpty();
    inputs_.push_back(std::move(input));
    auto &kept = inputs_.back();
    if (!kept.files.isEmpty())
        kept.hasFailed = !runOrPrint(kept.path, [this, &kept] { saveFiles(kept); });
}

void SongArranger::saveFiles(ArrangedInput &input)
{
    const auto files = std::exchange(input.files, {});
    const QDir directory(arguments_.output);
    if (!directory.mkpath(QStringLiteral(".")))
        throw QStringLiteral("Could not create the directory.");
    for (const auto &file : files)
        saveFile(input, directory.filePath(names_.nextFor(file.name, QStringLiteral(".abc"))), file.bytes);
}

void SongArranger::saveFile(ArrangedInput &input, const QString &path, const QByteArray &bytes)
{
    const auto onlyPath = [path, isFirst = true]() mutable {
        if (!std::exchange(isFirst, false))
            throw QStringLiteral("\"%1\" exists; --force writes over it.").arg(QFileInfo(path).fileName());
        return path;
    };
    saving_.add(onlyPath, bytes, [&input](const QString &written, const QString &failure) {
        if (failure.isEmpty())
            return input.written.append(written);
        printFailure(input.path, failure);
        input.hasFailed = true;
    });
}

void SongArranger::finish(ArrangedInput &input)
{
    failed_ |= input.hasFailed;
    if (report_.isWanted())
        report(input);
    if (!input.hasFailed && !input.written.isEmpty() && !report_.isInsteadOfLines())
        print(input);
}

void SongArranger::print(const ArrangedInput &input) const
{
    printLine(QStringLiteral("%1: wrote %2").arg(input.path, input.written.join(QStringLiteral(", "))));
    printTable("before", input.before);
    printTable("after", input.after);
}

void SongArranger::report(const ArrangedInput &input)
{
    auto summary = input.summary;
    summary.path = input.path;
    summary.files = input.written;
    summary.failures = input.failures;
    for (int i = 0; i < std::min(summary.parts.size(), input.written.size()); ++i)
        summary.parts[i].file = input.written[i];
    summary.more = {{QStringLiteral("file"), input.path},
                    {QStringLiteral("before"), json(input.before)},
                    {QStringLiteral("after"), json(input.after)},
                    {QStringLiteral("written"), QJsonArray::fromStringList(input.written)}};
    report_.add(summary);
}

} // namespace

int arrangeSongs(const Arguments &arguments)
{
    return SongArranger(arguments).run();
}
