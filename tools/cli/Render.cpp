#include "Render.h"

#include "Input.h"
#include "Instruments.h"
#include "Messages.h"
#include "audio/TrackRenderer.h"
#include "audio/engine/BuiltinEngine.h"
#include "core/HeaderFields.h"

#include <QEventLoop>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QTimer>

#include <csignal>

namespace {

volatile std::sig_atomic_t interrupted = 0;

// The first Ctrl+C ends the render in an orderly way, a second one the program.
extern "C" void onInterrupt(int signal)
{
    interrupted = 1;
    std::signal(signal, SIG_DFL);
}

class Rendering
{
public:
    explicit Rendering(const Arguments &arguments) : arguments_(arguments) {}
    int run();

private:
    QVector<Track> readTracks();
    void refuseInputAsOutput() const;
    Instrument instrumentFor(const Track &track, const InstrumentSet &instruments) const;
    void renderTracks(const QVector<Track> &tracks, const InstrumentSet &instruments);
    void showProgress(quint64 tick, quint64 total);

    static constexpr int wholeBar = 100;

    const Arguments &arguments_;
    bool failed_ = false;
    int shownProgress_ = -1;
};

int Rendering::run()
{
    const auto tracks = readTracks();
    if (failed_ && tracks.isEmpty())
        return 1;
    InstrumentSet instruments;
    const auto scan = [&] {
        instruments = scanGame(arguments_);
        if (!arguments_.instrument.isEmpty())
            instruments.instrument(arguments_.instrument); // throws for a name that is not there
    };
    const auto write = [&] {
        refuseInputAsOutput();
        renderTracks(tracks, instruments);
    };
    const bool isDone = runOrPrint(arguments_.game, scan) && runOrPrint(arguments_.output, write);
    return isDone && !failed_ ? 0 : 1;
}

QVector<Track> Rendering::readTracks()
{
    QVector<Track> tracks;
    for (const auto &named : readInputs(arguments_, failed_))
        tracks += named.song.tracks;
    const bool isDone = runOrPrint(arguments_.inputs.join(QStringLiteral(", ")), [&] {
        for (const auto &transform : arguments_.transforms)
            tracks = transform(tracks);
    });
    failed_ |= !isDone;
    return isDone ? tracks : QVector<Track>();
}

void Rendering::refuseInputAsOutput() const
{
    const auto output = QFileInfo(arguments_.output).canonicalFilePath(); // empty for a new file
    for (const auto &input : arguments_.inputs) {
        if (!output.isEmpty() && QFileInfo(input).canonicalFilePath() == output)
            throw QStringLiteral("The wave file would replace the song.");
    }
}

Instrument Rendering::instrumentFor(const Track &track, const InstrumentSet &instruments) const
{
    const auto fallback = arguments_.instrument.isEmpty() ? instruments.names().value(0) : arguments_.instrument;
    const auto name = HeaderFields::instrumentName(track.headerFields(QStringLiteral("I")));
    if (instruments.contains(name))
        return instruments.instrument(name);
    if (!name.isEmpty()) {
        const auto warning = QStringLiteral("Instrument '%1' not found; playing %2.").arg(name, fallback);
        printFailure(track.title(), warning);
    }
    return instruments.instrument(fallback);
}

void Rendering::renderTracks(const QVector<Track> &tracks, const InstrumentSet &instruments)
{
    TrackRenderer renderer(arguments_.output, [](const QString &path) {
        return std::make_unique<BuiltinEngine>(EngineOutput::WavFile, path.toStdU16String());
    });
    for (const auto &track : tracks)
        renderer.addTrack(track, instrumentFor(track, instruments));

    QEventLoop loop;
    QString failure;
    QObject::connect(&renderer, &TrackRenderer::renderProgress, &loop,
                     [this](quint64 tick, quint64 total) { showProgress(tick, total); });
    QObject::connect(&renderer, &TrackRenderer::renderFailed, &loop,
                     [&failure](const QString &message) { failure = message; });
    QObject::connect(&renderer, &TrackRenderer::renderCancelled, &loop,
                     [&failure] { failure = QStringLiteral("Cancelled."); });
    QObject::connect(&renderer, &TrackRenderer::renderFinished, &loop, &QEventLoop::quit);
    QTimer interruptions;
    QObject::connect(&interruptions, &QTimer::timeout, &loop, [&renderer] {
        if (interrupted != 0)
            renderer.cancel();
    });
    interruptions.start(20);
    const auto previous = std::signal(SIGINT, onInterrupt);
    renderer.render();
    loop.exec();
    std::signal(SIGINT, previous);
    if (!failure.isEmpty())
        throw failure;
    showProgress(1, 1);
    printLine(QStringLiteral("wrote %1").arg(arguments_.output));
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
