#include "song/SongReader.h"

#include "base/Interrupted.h"
#include "base/TextDecoding.h"
#include "core/AbcListener.h"
#include "core/AbcParser.h"
#include "import/EachTrack.h"
#include "import/GameAbc.h"
#include "import/ImportLimits.h"
#include "import/quantise/CleanQuantise.h"
#include "import/standard/ForeignNotation.h"
#include "song/SongFile.h"
#include "song/SongMembers.h"
#include "song/SongParts.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <new>
#include <utility>

namespace {

using Kind = SongSource::Kind;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(SongReader)
};

bool isFile(Kind kind)
{
    return kind == Kind::AbcFile || kind == Kind::MidiFile || kind == Kind::TextFile || kind == Kind::SongFile;
}

QString errorTitle(Kind kind)
{
    switch (kind) {
    case Kind::MidiFile:
        return Texts::tr("Error while reading MIDI file");
    case Kind::AbcFile:
    case Kind::TextFile:
        return Texts::tr("Error while reading ABC file");
    case Kind::SongFile:
        return Texts::tr("Error while reading song file");
    case Kind::AbcText:
    case Kind::MmlText:
    case Kind::Bytes:
        break;
    }
    return Texts::tr("Import from clipboard");
}

QByteArray readFile(const QString &path, qint64 longest = largestSource)
{
    const QFileInfo info(path);
    if (info.exists() && !info.isFile()) // opening a pipe would wait for its writer
        throw Texts::tr("Not a regular file.");
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw Texts::tr("Could not open file: %1.").arg(file.errorString());
    return readBytes(file, longest);
}

// One text for all tunes or parts of a source that could not be read: a book of thousands may have thousands of faults.
class TuneErrors
{
public:
    void add(const QString &text)
    {
        if (++count_ <= mostShown)
            texts_.append(text);
    }

    void throwIfAny() const
    {
        if (count_ > mostShown)
            throw texts_.join(u'\n') + u'\n' + Texts::tr("%1 more tunes could not be read.").arg(count_ - mostShown);
        if (count_ > 0)
            throw texts_.join(u'\n');
    }

private:
    static constexpr int mostShown = 5;

    QStringList texts_;
    int count_ = 0;
};

class PassingOver final : public AbcListener
{
public:
    void bodyBegins(int, quint32) override {}
    void token(const AbcToken &) override {}
    void elementBegins(const AbcToken &, bool, bool) override {}
    void note(const AbcToken &, const AbcPitch &) override {}
    void elementEnds(const AbcToken &) override {}
    void elementSounds(Ticks) override {}
    void barLine(const AbcToken &, quint32, Ticks) override {}
    void keyChange(const AbcToken &, quint32) override {}
    bool refused(AbcRefusal, const AbcToken &, const AbcToken &) override { return true; }
};

class SourceReader
{
public:
    SourceReader(const SongSource &source, const ReadingOptions &options, const std::stop_token &stop)
        : source_(source), options_(options), stop_(stop)
    {
    }

    ReadSong read();

private:
    void attempt(const std::function<void()> &work);
    void readContent();
    void writeTexts();
    void readByText(const QString &text);
    void readAbc(const QString &text);
    void readGameAbc(const QString &text);
    QVector<StandardTune> standardTunes(const QString &text);
    bool readStandardAbc(const QString &text);
    void takeStandard(const QVector<StandardTune> &tunes, const QStringList &differences);
    void readTune(const QString &text);
    void readSong(const QByteArray &bytes, const QString &folder);
    void readBytes(const QByteArray &bytes);
    void take(ImportResult result);
    void add(Track track, const PartReport &report, int tune = -1);
    bool passesOver() const { return options_.refused == ReadingOptions::Refused::IsPassedOver; }
    Track parsePassingOver(const QString &text) const;
    bool areToBeShown() const { return options_.tracks == ReadingOptions::Tracks::ToBeShown; }
    void readMidi(const QByteArray &bytes)
    {
        take((options_.cleanQuantise ? importMidiCleanly : importMidi)(bytes, options_.midi, stop_));
    }
    void readMml(const QString &text);
    void fail(const QString &text)
    {
        song_.errors.append({errorTitle(source_.kind), text, isFile(source_.kind) ? source_.content : QString()});
    }

    const SongSource &source_;
    const ReadingOptions &options_;
    const std::stop_token &stop_;
    ReadSong song_;
};

ReadSong SourceReader::read()
{
    attempt([this] { readContent(); });
    if (areToBeShown())
        attempt([this] { writeTexts(); });
    if (isFile(source_.kind) && (song_.errors.isEmpty() || !song_.tracks.isEmpty()))
        song_.readFiles.append(source_.content);
    return std::move(song_);
}

void SourceReader::attempt(const std::function<void()> &work)
{
    try {
        work();
    } catch (const QString &message) {
        fail(message);
    } catch (const std::bad_alloc &) {
        song_ = {};
        fail(isFile(source_.kind) ? Texts::tr("Not enough memory to read %1.").arg(source_.content)
                                  : Texts::tr("Not enough memory to read the text."));
    }
}

void SourceReader::writeTexts()
{
    auto *const tracks = song_.tracks.data();
    forEachTrack(song_.tracks, stop_, [tracks](int number) { tracks[number].toAbc(); });
}

void SourceReader::readContent()
{
    switch (source_.kind) {
    case Kind::AbcFile:
        return readAbc(decodeText(readFile(source_.content)));
    case Kind::MidiFile:
        return readMidi(readFile(source_.content));
    case Kind::TextFile:
        return readByText(decodeText(readFile(source_.content)));
    case Kind::AbcText:
        return readAbc(source_.content);
    case Kind::MmlText:
        return readMml(source_.content);
    case Kind::SongFile:
        return readSong(readFile(source_.content, SongJson::largestSong), QFileInfo(source_.content).absolutePath());
    case Kind::Bytes:
        return readBytes(source_.bytes);
    }
}

void SourceReader::readBytes(const QByteArray &bytes)
{
    if (bytes.startsWith("MThd"))
        readMidi(bytes);
    else if (bytes.startsWith('{'))
        readSong(bytes, QDir::currentPath());
    else
        readByText(decodeText(bytes));
}

void SourceReader::readByText(const QString &text)
{
    const auto sources = sourcesOf(text);
    if (sources.isEmpty())
        throw Texts::tr("Unknown file type.");
    if (sources.first().kind == Kind::MmlText)
        readMml(text);
    else
        readAbc(text);
}

void SourceReader::readAbc(const QString &text)
{
    const bool mayBeForeign = options_.abc == AbcDialect::Auto && !isWrittenForTheGame(text);
    const bool isStandard = options_.abc == AbcDialect::Standard || mayBeForeign;
    if (!isStandard || !readStandardAbc(text))
        readGameAbc(text);
}

// What the standard cannot read at all is left to the game, unless it is asked for.
QVector<StandardTune> SourceReader::standardTunes(const QString &text)
{
    try {
        return importStandardAbc(text, options_.standardAbc, stop_);
    } catch (const QString &) {
        if (options_.abc == AbcDialect::Standard)
            throw;
        return {};
    }
}

// Whether the text was read: left alone, it means the same to the game.
bool SourceReader::readStandardAbc(const QString &text)
{
    const auto tunes = standardTunes(text);
    QVector<GameReading> ofTheGame;
    for (const auto &tune : tunesOf(text)) {
        GameReading reading;
        try {
            reading.track = parseAbcWithReport(tune.text, reading.report, stop_);
        } catch (const QString &) { // the standard allows more
        }
        ofTheGame.append(reading);
    }
    const auto differences = differencesFromTheGame(tunes, ofTheGame);
    if (tunes.isEmpty() || (options_.abc == AbcDialect::Auto && differences.isEmpty()))
        return false;
    takeStandard(tunes, differences);
    return true;
}

void SourceReader::takeStandard(const QVector<StandardTune> &tunes, const QStringList &differences)
{
    song_.report.emplace();
    song_.remark = Texts::tr("read as standard ABC");
    if (!differences.isEmpty())
        song_.remark += Texts::tr(" for its %1").arg(differences.join(QStringLiteral(", ")));
    TuneErrors errors;
    ConvertedAbc converted{0, differences, {}};
    for (const auto &tune : tunes) {
        const auto number = int(converted.tunes.size());
        converted.tunes.append(Texts::tr("%1. %2").arg(tune.number, tune.title));
        if (!tune.error.isEmpty())
            errors.add(Texts::tr("Tune %1: %2").arg(tune.number, tune.error));
        song_.report->outOfRange += tune.outOfRange;
        song_.elsewhere.add(tune.silent);
        for (const auto &voice : tune.voices)
            add(voice.track, voice.report, number);
    }
    song_.converted.append(converted);
    errors.throwIfAny();
}

void SourceReader::readGameAbc(const QString &text)
{
    const auto tunes = tunesOf(text);
    if (tunes.size() == 1) {
        readTune(text);
        song_.tracks.last().setFilePath(isFile(source_.kind) ? source_.content : QString());
        return;
    }
    ImportLimits limits(text.size());
    TuneErrors errors;
    for (int i = 0; i < tunes.size(); ++i) {
        try {
            limits.addTrack();
            readTune(tunes[i].text);
        } catch (const QString &message) {
            errors.add(Texts::tr("Tune %1, which begins in line %2: %3").arg(i + 1).arg(tunes[i].line).arg(message));
        }
    }
    errors.throwIfAny();
}

Track SourceReader::parsePassingOver(const QString &text) const
{
    PassingOver listener;
    return parseAbc(text, stop_, &listener);
}

void SourceReader::readTune(const QString &text)
{
    PartReport report;
    auto track = passesOver()     ? parsePassingOver(text)
                 : areToBeShown() ? parseAbcWithReport(text, report, stop_)
                                  : parseAbc(text, stop_);
    add(std::move(track), report);
}

void SourceReader::readSong(const QByteArray &bytes, const QString &folder)
{
    song_.song = SongFile::fromBytes(bytes, folder);
    TuneErrors errors;
    for (const auto &part : qAsConst(song_.song->parts)) {
        try {
            add(passesOver() ? parsePassingOver(part.abc) : SongParts::trackOf(part, stop_), {});
        } catch (const QString &message) {
            add(SongParts::silentTrackOf(part), {});
            errors.add(message);
        }
        song_.songParts.insert(int(song_.tracks.size()) - 1, part);
    }
    errors.throwIfAny();
}

// MML has no names.
void SourceReader::readMml(const QString &text)
{
    auto result = importMml(text, options_.mml, stop_);
    for (int i = 0; i < result.tracks.size(); ++i)
        result.tracks[i].setHeaderField(QStringLiteral("T"), QStringLiteral("Part %1").arg(i + 1));
    take(std::move(result));
}

void SourceReader::take(ImportResult result)
{
    song_.report = result.report;
    song_.elsewhere = result.elsewhere;
    for (int i = 0; i < result.tracks.size(); ++i) {
        auto &track = result.tracks[i];
        if (track.noteCount() > 0 || !areToBeShown())
            add(std::move(track), result.parts[i]);
        else
            song_.elsewhere.add(result.parts[i]);
    }
    if (areToBeShown() && song_.tracks.isEmpty())
        throw Texts::tr("There are no notes in it.");
}

void SourceReader::add(Track track, const PartReport &report, int tune)
{
    throwIfStopped(stop_);
    song_.tracks.append(std::move(track));
    song_.parts.append(report);
    song_.sources.append(0);
    song_.tunes.append(tune);
}

void append(ReadSong &song, const ReadSong &read, int number)
{
    for (auto part = read.songParts.begin(); part != read.songParts.end(); ++part)
        song.songParts.insert(int(song.tracks.size()) + part.key(), *part);
    song.tracks += read.tracks;
    song.errors += read.errors;
    song.readFiles += read.readFiles;
    song.parts += read.parts;
    song.elsewhere.add(read.elsewhere);
    if (song.remark.isEmpty())
        song.remark = read.remark;
    song.sources += QVector<int>(read.tracks.size(), number);
    song.tunes += read.tunes;
    for (auto converted : read.converted) {
        converted.source = number;
        song.converted.append(converted);
    }
}

} // namespace

QByteArray readBytes(QIODevice &device, qint64 longest)
{
    constexpr qint64 blockSize = qint64(1) << 20;
    QByteArray bytes;
    bytes.reserve(int(std::min(device.size(), longest)));
    while (bytes.size() <= longest) {
        const auto block = device.read(blockSize);
        if (block.isEmpty())
            return bytes;
        bytes += block;
    }
    throw Texts::tr("The file is too large.");
}

ReadSong readSource(const SongSource &source, const ReadingOptions &options, const std::stop_token &stop)
{
    return SourceReader(source, options, stop).read();
}

ReadSong readSong(const QVector<SongSource> &sources, const ReadingOptions &options, const std::stop_token &stop,
                  const std::function<void(int number)> &step)
{
    ReadSong song;
    try {
        for (int number = 0; number < sources.size(); ++number) {
            step(number);
            append(song, readSource(sources[number], options, stop), number);
        }
    } catch (const Interrupted &) {
    }
    return song;
}
