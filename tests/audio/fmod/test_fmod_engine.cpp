// FMOD's engine in the player and in renders, with libraries of ours in FMOD's place: finding them, what happens when a
// call fails, and how a song compares with the built-in engine's.
#include "StandIn.h"
#include "audio/LoggedLines.h"
#include "audio/SampleFiles.h"
#include "audio/WaveFile.h"
#include "audio/choice/EngineChoice.h"
#include "audio/choice/ScaleTest.h"
#include "audio/engine/BuiltinEngine.h"
#include "audio/fmod/FmodEngine.h"
#include "audio/player/PlayerWorker.h"
#include "audio/render/TrackRenderer.h"
#include "cli/Program.h"
#include "support/TestFolder.h"
#include "support/Thrown.h"

#include <QSignalSpy>

#include <algorithm>
#include <cmath>

namespace {

constexpr Ticks quarter = ticksPerQuarter; // 24000 samples

Track eighths(int count)
{
    QVector<TrackEvent> events;
    for (int i = 0; i < count; ++i)
        events.append(TrackEvent::note(60 + quint32(i) % 12, i * quarter / 2, quarter / 4));
    return trackOf(events);
}

std::vector<std::size_t> onsets(const WaveFile &file)
{
    std::vector<std::size_t> found;
    for (std::size_t i = 0; i < file.left.size(); ++i) {
        if (file.left[i] != 0 && (i == 0 || file.left[i - 1] == 0))
            found.push_back(i);
    }
    return found;
}

double decibels(const std::vector<qint16> &samples)
{
    double energy = 0;
    for (const auto sample : samples)
        energy += double(sample) * sample;
    return 10 * std::log10(energy);
}

// How far two samples of the same frame are apart at most.
int distance(const std::vector<qint16> &some, const std::vector<qint16> &others)
{
    int most = 0;
    for (std::size_t i = 0; i < std::min(some.size(), others.size()); ++i)
        most = std::max(most, std::abs(some[i] - others[i]));
    return most;
}

} // namespace

class TestFmodEngine : public QObject
{
    Q_OBJECT

    const TestFolder folder_;
    const SampleFiles files_;

    EngineWish wishFor(int kind) const { return {EngineKind::Fmod, StandIn::fileOf(kind), {}}; }

private slots:
    void findsLibraries_data()
    {
        const Rows<QString, QString, QString> row("chosen", "game", "says");
        row("one argument", StandIn::fileOf(1), "", "FMOD 1.10.20: ");
        row("two arguments", StandIn::fileOf(2), "", "FMOD 2.02.15: ");
        row("its very version", StandIn::fileOf(3), "", "FMOD 2.03.09: ");
        const auto library = folder_.path("game/linux64/libfmod.so.13");
        QDir().mkpath(folder_.path("game/linux64"));
        QFile::copy(StandIn::fileOf(2), library);
        row("in the game's folder", "", folder_.path("game"), QStringLiteral("FMOD 2.02.15: ") + library);
        row("no file", folder_.path("nothing.so"), "",
            QStringLiteral("There is no file ") + folder_.path("nothing.so"));
        row("no library", folder_.write("text.so", "no library"), "", "text.so");
        row("another library", QStringLiteral("libm.so.6"), "", "libm.so.6 is no FMOD library");
    }

    void findsLibraries()
    {
        QFETCH(QString, chosen);
        QFETCH(QString, game);
        QFETCH(QString, says);
        QString said;
        const auto failure = thrownBy([&] { said = describeFmod({EngineKind::Fmod, chosen, game}); });
        QVERIFY2((said + failure).contains(says), qPrintable(said + failure));
    }

    // The built-in engine plays where the library cannot, and says why.
    void hasAnEngineInItsPlace()
    {
        EngineChoice choice([] { return std::make_unique<BuiltinEngine>(EngineOutput::Silent); });
        choice.wish({EngineKind::Fmod, folder_.path("nothing.so"), {}});
        const MadeEngine instead[] = {choice.make(), choice.makeForFile(folder_.path("a.wav"))};
        for (const auto &made : instead) {
            QCOMPARE(QByteArray(made.engine->name()), QByteArray("Audio"));
            QVERIFY(made.warning.contains(QStringLiteral("nothing.so")));
        }
        QVERIFY(choice.makeForFile({}).warning.isEmpty());
        choice.wish(wishFor(3));
        QCOMPARE(QByteArray(choice.make().engine->name()), QByteArray("FMOD"));
        QCOMPARE(QByteArray(choice.makeForFile(folder_.path("a.wav")).engine->name()), QByteArray("FMOD"));
        QCOMPARE(QByteArray(choice.makeForFile({}).engine->name()), QByteArray("Audio"));
    }

    void playsAScale()
    {
        const auto path = folder_.path("scale.wav");
        QElapsedTimer time;
        time.start();
        playScale(*makeFmodEngine(wishFor(1), path), {});
        QVERIFY(time.elapsed() < 9000); // not its limit
        const WaveFile file(path);
        QVERIFY(file.isValid && file.left.size() > 96'000);
        QVERIFY(std::abs(decibels(file.left) - decibels(file.right)) < 0.01 && decibels(file.left) > 60);
        FmodEngine nowhere(StandIn(1).open(), FmodOutput::WavFile, "/nowhere/a.wav");
        QCOMPARE(nowhere.initialize(), AudioResult::CannotWrite);
        QVERIFY(thrownBy([&] { playScale(nowhere, {}); }).startsWith(QStringLiteral("FMOD Error: ")));
    }

    void goesOnWithoutADevice()
    {
        StandIn library(1);
        library.setDevice(false);
        FmodEngine engine(library.open(), FmodOutput::Device);
        QCOMPARE(engine.initialize(), AudioResult::NoDevice);
        QCOMPARE(engine.outputState(), OutputState::NoDevice);
        QTRY_VERIFY(engine.update() == AudioResult::Ok && engine.clock() > 2000);
        library.fail("System_Update", 38);
        QVERIFY(engine.update() != AudioResult::Ok);
        QCOMPARE(engine.release(), AudioResult::Ok);
        library.setDevice(true);
    }

    void everyCallFailsOnce_data()
    {
        const Rows<QString, bool> row("function", "early");
        const fmodlib::Api api;
        fmodlib::visitFunctions(api, [&row](const char *name, const auto &) {
            row(qPrintable(QStringLiteral("at first: %1").arg(QLatin1String(name))), name, true);
            row(qPrintable(QStringLiteral("later: %1").arg(QLatin1String(name))), name, false);
        });
    }

    // No crash, a message, and the song goes on to its last note.
    void everyCallFailsOnce()
    {
        QFETCH(QString, function);
        QFETCH(bool, early);
        StandIn library(2);
        EngineChoice choice([] { return std::make_unique<BuiltinEngine>(EngineOutput::Silent); });
        choice.wish(wishFor(2));
        const auto path = folder_.path("failing.wav");
        int pressed = 0;
        const LoggedLines logged;
        {
            AudioEngine *engine = nullptr;
            PlayerWorker worker(
                [&] {
                    auto made = choice.makeForFile(path);
                    engine = made.engine.get();
                    return made;
                },
                [&engine] { return engine != nullptr ? qint64(engine->clock() / 48) : 0; }, 0);
            connect(&worker, &PlayerWorker::notePressed, this, [&pressed] { ++pressed; });
            const auto until = [&](DspClock clock) {
                for (int i = 0; i < 1000 && engine->clock() < clock; ++i)
                    worker.update();
            };
            if (early)
                library.fail(qPrintable(function), 38);
            worker.initialize();
            until(5000);
            worker.setMasterVolume(0.9F);
            worker.playTracks({{.trackId = QStringLiteral("a"),
                                .track = eighths(8),
                                .instrument = instrumentOf(files_.level(8000, 20'000), 0.05),
                                .level = {1, -0.5F}},
                               {QStringLiteral("b"), eighths(8), instrumentOf(files_.click())}});
            worker.playPreviewNote(instrumentOf(files_.level(1000, 300'000), 0.01, 1.5), 60);
            until(20'000);
            if (!early)
                library.fail(qPrintable(function), 38);
            worker.stopPreviewNote();
            worker.setVolume(QStringLiteral("a"), 0.7F);
            until(30'000);
            worker.playPreviewNote(instrumentOf(files_.level(1000, 300'000), 0.01, 1.5), 60);
            until(50'000);
            worker.stopTrack(QStringLiteral("b")); // with what is scheduled
            until(140'000);
            worker.terminate();
        }
        const bool isOfTheStart = !early && !library.hasFailed();
        library.fail("nothing", 0);
        if (isOfTheStart)
            QSKIP("It is called at the start only.");
        QVERIFY2(logged.count("FMOD Error: out of memory or resources (38)") >= 1, qPrintable(function));
        QVERIFY(logged.count("FMOD Error: ") <= 2);
        QVERIFY(pressed >= 8);
        const WaveFile file(path);
        if (file.isValid) // not, when it was the release that failed
            QVERIFY(
                std::any_of(file.left.begin() + 90'000, file.left.end(), [](qint16 sample) { return sample != 0; }));
    }

    void songsAreTheBuiltInEngines_data()
    {
        const Rows<int> row("kind");
        for (const int kind : {1, 2, 3})
            row(qPrintable(QString::number(kind)), kind);
    }

    void songsAreTheBuiltInEngines()
    {
        QFETCH(int, kind);
        const int systemsBefore = StandIn(kind).systemsAlive();
        const auto render = [&](const QString &path, const FileEngineFactory &makeEngine) {
            TrackRenderer renderer(path, makeEngine);
            renderer.addTrack(eighths(20), instrumentOf(files_.level(8000, 20'000), 0.05), {0.8F, -0.3F});
            renderer.addTrack(eighths(12), instrumentOf(files_.level(3000, 4'000), 0.2, 1.31), {0.5F, 1});
            QSignalSpy finished(&renderer, &TrackRenderer::renderFinished);
            connect(&renderer, &TrackRenderer::renderFailed, this, [](const QString &text) { qWarning() << text; });
            renderer.render();
            QVERIFY(finished.wait(20'000));
        };
        const auto builtinPath = folder_.path("builtin.wav"), fmodPath = folder_.path("fmod.wav");
        render(builtinPath, [](const QString &file) {
            return std::make_unique<BuiltinEngine>(EngineOutput::WavFile, file.toStdU16String());
        });
        render(fmodPath, [&](const QString &file) { return makeFmodEngine(wishFor(kind), file); });
        const WaveFile builtin(builtinPath), other(fmodPath);
        QVERIFY(builtin.isValid && other.isValid);
        QCOMPARE(onsets(other).size(), std::size_t(20));
        QCOMPARE(onsets(other), onsets(builtin));
        QVERIFY(std::abs(decibels(other.left) - decibels(builtin.left)) < 0.1);
        QVERIFY(std::abs(decibels(other.right) - decibels(builtin.right)) < 0.1);
        QCOMPARE(StandIn(kind).systemsAlive(), systemsBefore);
    }

    void demoSongsAreTheBuiltInEngines_data()
    {
        const Rows<QString, int> row("song", "kind");
        row("one argument", "lanterns-on-the-water", 1);
        row("two arguments", "night-market", 2);
        row("its very version", "the-millers-wager", 3);
    }

    // As the command line writes them, but for the rounding of samples.
    void demoSongsAreTheBuiltInEngines()
    {
        QFETCH(QString, song);
        QFETCH(int, kind);
        const auto render = [&](const QString &engine, const QString &file) {
            const auto line = QStringLiteral("render %1/songs/%2 --game %3 --mods --force --engine %4 --output %5");
            const auto outcome =
                run(folder_, line.arg(QStringLiteral(EXAMPLES), song, QStringLiteral(DEMO_GAME), engine, file));
            QVERIFY2(outcome.status == 0, outcome.error.constData());
        };
        render(QStringLiteral("builtin"), QStringLiteral("builtin.wav"));
        render(QStringLiteral("fmod:") + StandIn::fileOf(kind), QStringLiteral("fmod.wav"));
        const WaveFile builtin(folder_.path("builtin.wav")), other(folder_.path("fmod.wav"));
        QVERIFY(builtin.isValid && other.isValid && decibels(builtin.left) > 80 && decibels(builtin.right) > 80);
        QVERIFY(distance(builtin.left, other.left) <= 1 && distance(builtin.right, other.right) <= 1);
        QVERIFY(std::abs(qint64(builtin.left.size()) - qint64(other.left.size())) < 1024); // it has larger blocks
    }
};

QTEST_GUILESS_MAIN(TestFmodEngine)
#include "test_fmod_engine.moc"
