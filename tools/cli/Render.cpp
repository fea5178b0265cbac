#include "Render.h"

#include "Instruments.h"
#include "audio/engine/BuiltinEngine.h"
#include "audio/render/TrackRenderer.h"
#include "base/ErrorText.h"
#include "input/FileNames.h"
#include "input/Parts.h"
#include "streams/Messages.h"
#include "streams/PipedOutput.h"
#include "summary/PartInstruments.h"
#include "summary/SongSummary.h"

#include <QDir>
#include <QEventLoop>
#include <QFileInfo>
#include <QLoggingCategory>

#include <array>
#include <functional>

namespace {

// What is said of a song while it is rendered.
struct RenderVoice
{
    std::function<void(const QString &file, const QString &message)> remark;
    std::function<void(int done, int total)> progress;
};

// One song into its file or files, on so many cores; throws a QString. On the thread of its owner, of which several may
// be at work.
class Rendering
{
public:
    Rendering(const Arguments &arguments, const QString &output, const InstrumentSet &instruments, RenderVoice voice,
              std::size_t cores = ParallelJobs::allCores())
        : arguments_(arguments), output_(output), instruments_(instruments), voice_(std::move(voice)), cores_(cores)
    {
    }

    void refuseInputAsOutput() const;
    // The files that it wrote.
    QStringList render(const Parts &parts);
    // "wrote a.wav", behind which stands what is wrong with it.
    QString lineOf(const QStringList &files) const { return QStringLiteral("wrote ") + files.join(u", ") + clipping_; }

private:
    void refuseFilesThatAreThere(const RenderPlan &plan) const;
    SoundCoding coding() const;
    QStringList heardParts(const Parts &parts) const;
    RenderPlan planFor(const Parts &parts) const;
    Instrument instrumentFor(const PlayedPart &part) const;
    void addParts(TrackRenderer &renderer, const Parts &parts) const;
    std::unique_ptr<AudioEngine> makeEngine(const QString &waveFile) const;
    void showProgress(quint64 tick, quint64 total);

    static constexpr int wholeBar = 100;

    const Arguments &arguments_;
    const QString output_;
    const InstrumentSet &instruments_;
    const RenderVoice voice_;
    const std::size_t cores_;
    QString clipping_;
    int shownProgress_ = -1;
};

void Rendering::refuseInputAsOutput() const
{
    const auto output = QFileInfo(output_).canonicalFilePath(); // empty for a new file
    for (const auto &input : arguments_.inputs) {
        if (!output.isEmpty() && QFileInfo(input).canonicalFilePath() == output)
            throw QStringLiteral("The wave file would replace the song.");
    }
}

// Names that the program made up itself are no wish to replace what has them.
void Rendering::refuseFilesThatAreThere(const RenderPlan &plan) const
{
    for (const auto &file : plan.files) {
        if (file.track && !arguments_.force && QFileInfo::exists(file.path))
            throw QStringLiteral("\"%1\" exists; --force writes over it.").arg(QFileInfo(file.path).fileName());
    }
}

// By the ending; a file without one is a wave file.
SoundCoding Rendering::coding() const
{
    const auto ending = QFileInfo(output_).suffix().toLower();
    bool isKnown = ending.isEmpty();
    for (const auto &format : soundFormats()) {
        const bool isItsEnding = QLatin1String(format.ending) == (ending.isEmpty() ? QStringLiteral("wav") : ending);
        isKnown |= isItsEnding;
        const bool hasLosses = format.bits == 0;
        if (isItsEnding &&
            (hasLosses ? !arguments_.bits : format.bits == arguments_.bits.value_or(16) && !arguments_.quality))
            return format.coding;
    }
    if (!isKnown)
        throw QStringLiteral("The ending \"%1\" is none of wav, flac, ogg, opus, mp3.").arg(ending);
    throw QStringLiteral("%1 files have no such %2.")
        .arg(ending.toUpper(), arguments_.bits ? QStringLiteral("bits") : QStringLiteral("quality"));
}

QStringList Rendering::heardParts(const Parts &parts) const
{
    QStringList names;
    for (const auto &part : parts.song.parts) {
        if (!part.isMuted)
            names.append(part.name);
    }
    return names;
}

RenderPlan Rendering::planFor(const Parts &parts) const
{
    const auto &song = parts.song;
    const auto title = song.title.isEmpty() ? QFileInfo(output_).completeBaseName() : song.title;
    auto plan = planOf({output_, title, heardParts(parts), arguments_.files});
    plan.coding = coding();
    plan.quality = arguments_.quality.value_or(plan.quality);
    plan.isNormalised = arguments_.normalise;
    if (arguments_.loop && !song.loop)
        throw QStringLiteral("The song has no loop.");
    if (arguments_.loop)
        plan.range = TickRange{song.loop->begin, song.loop->end};
    // As wave files have always been.
    return plan.isPlainWave() ? RenderPlan::wave(output_) : plan;
}

// A guess that is more than the first of the catalogue is printed.
Instrument Rendering::instrumentFor(const PlayedPart &part) const
{
    const auto &named = part.song.instrument;
    const auto choice = instrumentOf(part, arguments_, instruments_);
    if (!named.isEmpty() && choice.name != named)
        voice_.remark(part.song.name, QStringLiteral("Instrument '%1' not found; playing %2.").arg(named, choice.name));
    constexpr std::array reasons{"its name", "its kind", "its range"};
    const auto guess = choice.guess;
    if (guess && (*guess != GuessBasis::Range || choice.name != instruments_.names().first()))
        voice_.remark(part.song.name, QStringLiteral("No instrument is given; playing %1, chosen by %2.")
                                          .arg(choice.name, QLatin1String(reasons[size_t(*guess)])));
    return instruments_.instrument(choice.name);
}

void Rendering::addParts(TrackRenderer &renderer, const Parts &parts) const
{
    for (int i = 0; i < parts.tracks.size(); ++i) {
        const auto &part = parts.song.parts[i];
        const float volume = float(part.volume * parts.song.masterVolume) / 10'000;
        if (!part.isMuted)
            renderer.addTrack(parts.tracks[i], instrumentFor({part, parts.tracks[i], parts.reports[i]}),
                              {volume, float(part.pan) / 100}, arguments_.startOffsets ? part.startOffset : 0);
    }
}

// Who asks for a library is not given another engine in its place.
std::unique_ptr<AudioEngine> Rendering::makeEngine(const QString &waveFile) const
{
    if (arguments_.engine.kind == EngineKind::Builtin)
        return std::make_unique<BuiltinEngine>(EngineOutput::WavFile, waveFile.toStdU16String());
    if (waveFile.isEmpty())
        throw QStringLiteral("FMOD writes all parts into one WAV of 16 bit, and nothing else.");
    auto wish = arguments_.engine;
    wish.gameFolder = arguments_.game;
    return makeFmodEngine(wish, waveFile);
}

QStringList Rendering::render(const Parts &parts)
{
    const auto plan = planFor(parts);
    refuseFilesThatAreThere(plan);
    TrackRenderer renderer(
        plan, [this](const QString &path) { return makeEngine(path); }, cores_);
    addParts(renderer, parts);

    QEventLoop loop;
    QString failure;
    QObject::connect(&renderer, &TrackRenderer::renderProgress, &loop,
                     [this](quint64 tick, quint64 total) { showProgress(tick, total); });
    QObject::connect(&renderer, &TrackRenderer::renderFailed, &loop,
                     [&failure](const QString &message) { failure = message; });
    QObject::connect(&renderer, &TrackRenderer::samplesClipped, &loop, [this](quint64 clipped, quint64 samples) {
        clipping_ = QStringLiteral("; ") + clippingText(clipped, samples);
    });
    QObject::connect(&renderer, &TrackRenderer::renderFinished, &loop, &QEventLoop::quit);
    renderer.render();
    loop.exec();
    if (!failure.isEmpty())
        throw failure;
    showProgress(1, 1);
    QStringList paths;
    for (const auto &file : plan.files)
        paths.append(file.path);
    return paths;
}

void Rendering::showProgress(quint64 tick, quint64 total)
{
    const auto progress = total > 0 ? int(double(tick) / double(total) * wholeBar) : 0;
    if (progress == shownProgress_ && tick < total)
        return;
    shownProgress_ = progress;
    voice_.progress(progress, wholeBar);
}

InstrumentSet instrumentsFor(const Arguments &arguments)
{
    auto instruments = scanGame(arguments);
    if (!arguments.instrument.isEmpty())
        instruments.instrument(arguments.instrument); // throws for a name that is not there
    return instruments;
}

SongSummary summaryOf(const QString &path, const Parts &parts, const Arguments &arguments,
                      const InstrumentSet &instruments)
{
    const auto song = readSongOf(parts);
    return summaryOf(path, song, checkReadSong(song, arguments, instruments));
}

// Standard output may be the sound, among which no line may stand.
void renderToPipe(const Arguments &arguments, const InstrumentSet &instruments, const Parts &parts)
{
    if (arguments.files != RenderFiles::Mix)
        throw QStringLiteral("Only one file goes there: --files mix.");
    const PipedOutput output(arguments.output, arguments.format);
    Rendering(arguments, output.path(), instruments, {printFailure, printProgress}).render(parts);
    output.send();
}

// All inputs are one song.
int renderOne(const Arguments &arguments)
{
    bool failed = false;
    const auto parts = readParts(arguments, failed);
    if (failed && parts.tracks.isEmpty())
        return 1;
    InstrumentSet instruments;
    SongReport report(arguments);
    const auto scan = [&] { instruments = instrumentsFor(arguments); };
    const auto write = [&] {
        if (PipedOutput::isNeeded(arguments.output))
            return renderToPipe(arguments, instruments, parts);
        Rendering rendering(arguments, arguments.output, instruments, {printFailure, printProgress});
        rendering.refuseInputAsOutput();
        const auto files = rendering.render(parts);
        if (!report.isInsteadOfLines())
            printLine(rendering.lineOf(files));
        if (!report.isWanted())
            return;
        auto summary = summaryOf(arguments.inputs.join(QStringLiteral(", ")), parts, arguments, instruments);
        summary.files = files;
        report.add(summary);
    };
    const bool isDone = runOrPrint(arguments.game, scan) && runOrPrint(arguments.output, write) &&
                        report.finish(QFileInfo(arguments.output).path());
    return isDone && !failed ? 0 : 1;
}

// Each input is a song, with a file in the output folder.
class FolderRendering
{
public:
    explicit FolderRendering(const Arguments &arguments) : arguments_(arguments), report_(arguments) {}

    int run()
    {
        const auto prepare = [this] {
            instruments_ = instrumentsFor(arguments_);
            if (!QDir(arguments_.output).mkpath(QStringLiteral(".")))
                throw QStringLiteral("Could not create the directory.");
        };
        if (!runOrPrint(arguments_.output, prepare))
            return 1;
        nameFiles();
        forEachInput<Rendered>(
            arguments_, [this](const QString &path) { return rendered(path); },
            [this](const Rendered &song) { take(song); }, songsAtOnce());
        failed_ |= !report_.finish(arguments_.output);
        return failed_ ? 1 : 0;
    }

private:
    struct Rendered
    {
        QString path;
        QString line; // empty when nothing was written
        QVector<QPair<QString, QString>> remarks = {};
        QStringList failures = {};
        SongSummary summary = {}; // when one is wanted
    };

    std::size_t songsAtOnce() const;
    std::size_t coresOfEach() const;
    void nameFiles();
    Rendered rendered(const QString &path) const;
    void render(Rendered &song, const Parts &parts) const;
    void take(const Rendered &song);

    const Arguments &arguments_;
    SongReport report_;
    InstrumentSet instruments_;
    QHash<QString, QString> outputs_; // by input
    bool failed_ = false;
};

std::size_t FolderRendering::songsAtOnce() const
{
    const auto all = ParallelJobs::allCores();
    return arguments_.engine.kind == EngineKind::Fmod ? std::min(all, mostFmodEngines) : all;
}

// Songs beside each other need not wait for each other, as the spans of one do.
std::size_t FolderRendering::coresOfEach() const
{
    const auto together = std::min(songsAtOnce(), std::size_t(outputs_.size()));
    return std::max<std::size_t>(1, ParallelJobs::allCores() / std::max<std::size_t>(1, together));
}

// In the order of the inputs, whatever is done first.
void FolderRendering::nameFiles()
{
    FileNames names;
    const QDir folder(arguments_.output);
    for (const auto &path : inputFiles(arguments_.inputs))
        outputs_[path] = folder.filePath(names.nextFor(QFileInfo(path).completeBaseName(), u'.' + arguments_.format));
}

// On any thread.
FolderRendering::Rendered FolderRendering::rendered(const QString &path) const
{
    const auto reading = readOne(path, arguments_);
    Rendered song{path, {}, {}, reading.failures};
    if (!reading.failures.isEmpty() && reading.song.tracks.isEmpty())
        return song;
    try {
        render(song, partsOf({{path, reading.song}}, arguments_));
    } catch (...) {
        song.failures.append(currentErrorText());
    }
    return song;
}

void FolderRendering::render(Rendered &song, const Parts &parts) const
{
    const auto output = outputs_[song.path];
    if (!arguments_.force && QFileInfo::exists(output))
        throw QStringLiteral("\"%1\" exists; --force writes over it.").arg(output);
    const auto remark = [&song](const QString &file, const QString &text) { song.remarks.append({file, text}); };
    Rendering rendering(arguments_, output, instruments_, {remark, [](int, int) {}}, coresOfEach());
    const auto files = rendering.render(parts);
    song.line = rendering.lineOf(files);
    if (!report_.isWanted())
        return;
    song.summary = summaryOf(song.path, parts, arguments_, instruments_);
    song.summary.files = files;
}

void FolderRendering::take(const Rendered &song)
{
    for (const auto &[file, text] : song.remarks)
        printFailure(song.path + QStringLiteral(": ") + file, text);
    for (const auto &failure : song.failures)
        printFailure(song.path, failure);
    failed_ |= !song.failures.isEmpty();
    if (!song.line.isEmpty() && !report_.isInsteadOfLines())
        printLine(song.path + QStringLiteral(": ") + song.line);
    auto summary = song.summary;
    summary.path = song.path;
    summary.failures = song.failures;
    report_.add(summary);
}

bool isFolder(const QString &output)
{
    return output.endsWith(u'/') || QFileInfo(output).isDir();
}

} // namespace

int render(const Arguments &arguments)
{
    // A sample that cannot sound is worth a line.
    QLoggingCategory::setFilterRules(QStringLiteral("kelvarion.*=false\nkelvarion.audio.warning=true"));
    return isFolder(arguments.output) ? FolderRendering(arguments).run() : renderOne(arguments);
}
