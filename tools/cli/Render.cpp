#include "Render.h"

#include "Instruments.h"
#include "Messages.h"
#include "PartInstruments.h"
#include "Parts.h"
#include "audio/engine/BuiltinEngine.h"
#include "audio/render/TrackRenderer.h"

#include <QEventLoop>
#include <QFileInfo>
#include <QLoggingCategory>

#include <array>

namespace {

class Rendering
{
public:
    explicit Rendering(const Arguments &arguments) : arguments_(arguments) {}
    int run();

private:
    void refuseInputAsOutput() const;
    void refuseFilesThatAreThere(const RenderPlan &plan) const;
    SoundCoding coding() const;
    QStringList heardParts(const Parts &parts) const;
    RenderPlan planFor(const Parts &parts) const;
    Instrument instrumentFor(const PlayedPart &part, const InstrumentSet &instruments) const;
    void addParts(TrackRenderer &renderer, const Parts &parts, const InstrumentSet &instruments) const;
    void renderParts(const Parts &parts, const InstrumentSet &instruments);
    void showProgress(quint64 tick, quint64 total);

    static constexpr int wholeBar = 100;

    const Arguments &arguments_;
    bool failed_ = false;
    int shownProgress_ = -1;
};

int Rendering::run()
{
    const auto parts = readParts(arguments_, failed_);
    if (failed_ && parts.tracks.isEmpty())
        return 1;
    InstrumentSet instruments;
    const auto scan = [&] {
        instruments = scanGame(arguments_);
        if (!arguments_.instrument.isEmpty())
            instruments.instrument(arguments_.instrument); // throws for a name that is not there
    };
    const auto write = [&] {
        refuseInputAsOutput();
        renderParts(parts, instruments);
    };
    const bool isDone = runOrPrint(arguments_.game, scan) && runOrPrint(arguments_.output, write);
    return isDone && !failed_ ? 0 : 1;
}

void Rendering::refuseInputAsOutput() const
{
    const auto output = QFileInfo(arguments_.output).canonicalFilePath(); // empty for a new file
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
    const auto ending = QFileInfo(arguments_.output).suffix().toLower();
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
    const auto title = song.title.isEmpty() ? QFileInfo(arguments_.output).completeBaseName() : song.title;
    auto plan = planOf({arguments_.output, title, heardParts(parts), arguments_.files});
    plan.coding = coding();
    plan.quality = arguments_.quality.value_or(plan.quality);
    plan.isNormalised = arguments_.normalise;
    if (arguments_.loop && !song.loop)
        throw QStringLiteral("The song has no loop.");
    if (arguments_.loop)
        plan.range = TickRange{song.loop->begin, song.loop->end};
    // As wave files have always been.
    return plan.isPlainWave() ? RenderPlan::wave(arguments_.output) : plan;
}

// A guess that is more than the first of the catalogue is printed.
Instrument Rendering::instrumentFor(const PlayedPart &part, const InstrumentSet &instruments) const
{
    const auto &named = part.song.instrument;
    const auto choice = instrumentOf(part, arguments_, instruments);
    if (!named.isEmpty() && choice.name != named)
        printFailure(part.song.name, QStringLiteral("Instrument '%1' not found; playing %2.").arg(named, choice.name));
    constexpr std::array reasons{"its name", "its kind", "its range"};
    const auto guess = choice.guess;
    if (guess && (*guess != GuessBasis::Range || choice.name != instruments.names().first()))
        printFailure(part.song.name, QStringLiteral("No instrument is given; playing %1, chosen by %2.")
                                         .arg(choice.name, QLatin1String(reasons[size_t(*guess)])));
    return instruments.instrument(choice.name);
}

void Rendering::addParts(TrackRenderer &renderer, const Parts &parts, const InstrumentSet &instruments) const
{
    for (int i = 0; i < parts.tracks.size(); ++i) {
        const auto &part = parts.song.parts[i];
        const float volume = float(part.volume * parts.song.masterVolume) / 10'000;
        if (!part.isMuted)
            renderer.addTrack(parts.tracks[i], instrumentFor({part, parts.tracks[i], parts.reports[i]}, instruments),
                              {volume, float(part.pan) / 100}, arguments_.startOffsets ? part.startOffset : 0);
    }
}

void Rendering::renderParts(const Parts &parts, const InstrumentSet &instruments)
{
    const auto plan = planFor(parts);
    refuseFilesThatAreThere(plan);
    TrackRenderer renderer(plan, [](const QString &path) {
        return std::make_unique<BuiltinEngine>(EngineOutput::WavFile, path.toStdU16String());
    });
    addParts(renderer, parts, instruments);

    QEventLoop loop;
    QString failure;
    QObject::connect(&renderer, &TrackRenderer::renderProgress, &loop,
                     [this](quint64 tick, quint64 total) { showProgress(tick, total); });
    QObject::connect(&renderer, &TrackRenderer::renderFailed, &loop,
                     [&failure](const QString &message) { failure = message; });
    QString clipping;
    QObject::connect(&renderer, &TrackRenderer::samplesClipped, &loop,
                     [&clipping](quint64 clipped, quint64 samples) { clipping = clippingText(clipped, samples); });
    QObject::connect(&renderer, &TrackRenderer::renderFinished, &loop, &QEventLoop::quit);
    renderer.render();
    loop.exec();
    if (!failure.isEmpty())
        throw failure;
    showProgress(1, 1);
    QStringList paths;
    for (const auto &file : plan.files)
        paths.append(file.path);
    const auto remark = clipping.isEmpty() ? clipping : QStringLiteral("; ") + clipping;
    printLine(QStringLiteral("wrote %1%2").arg(paths.join(QStringLiteral(", ")), remark));
}

void Rendering::showProgress(quint64 tick, quint64 total)
{
    const auto progress = total > 0 ? int(double(tick) / double(total) * wholeBar) : 0;
    if (progress == shownProgress_ && tick < total)
        return;
    shownProgress_ = progress;
    printProgress(progress, wholeBar);
}

} // namespace

int render(const Arguments &arguments)
{
    // A sample that cannot sound is worth a line.
    QLoggingCategory::setFilterRules(QStringLiteral("kelvarion.*=false\nkelvarion.audio.warning=true"));
    return Rendering(arguments).run();
}
