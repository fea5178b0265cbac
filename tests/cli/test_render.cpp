#include "Program.h"
#include "audio/SampleFiles.h"
#include "audio/WaveFile.h"
#include "support/MidiBytes.h"

#include <csignal>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

// kelvarion-composer-cli render. Each instrument has one sample, a click of a level of its own.
class TestRender : public QObject
{
    Q_OBJECT

    const TestFolder folder_;
    const QString wav_ = folder_.path("out.wav");

    Outcome render(const QByteArray &abc, const QString &words = {}) const
    {
        folder_.write("tune.abc", abc);
        return run(folder_, QStringLiteral("render tune.abc --game game --output out.wav ") + words);
    }

    // The level of the only click, and the frame where it is.
    std::pair<int, int> click() const
    {
        const WaveFile wave(wav_);
        for (std::size_t i = 0; i < wave.left.size(); ++i) {
            if (wave.left[i] != 0)
                return {wave.left[i], int(i)};
        }
        return {0, -1};
    }

private slots:
    void initTestCase()
    {
        for (const auto &[name, level] : {std::pair("bell", 10000), {"lute", 20000}}) {
            const auto directory = QStringLiteral("game/assets/sfx/instruments/%1/").arg(QLatin1String(name));
            folder_.write(QStringLiteral("game/assets/items/instruments/%1.instrument").arg(QLatin1String(name)),
                          QByteArray(R"({"shortdescription": "NAME", "kind": "NAME"})").replace("NAME", name));
            folder_.write(directory + QStringLiteral("tuning.config"),
                          R"({"fadeout": 0, "mapping": {"60": {"file": "click.wav", "f": 261.6}}})");
            folder_.write(directory + QStringLiteral("click.wav"), waveBytes({qint16(level)}));
        }
        folder_.write("game/linux64/kelvarion", "x");
        folder_.write("g - Untitled.wav", "x");
    }

    void init() { QFile::remove(wav_); }

    void instruments_data()
    {
        const Rows<QByteArray, QString, int, QByteArray> row("name", "options", "level", "warning");
        const auto lute = QStringLiteral("--instrument lute");
        row("the first", "", "", 10000, "");
        row("the default one", "", lute, 20000, "");
        row("the track's own", "lute", "", 20000, "");
        row("the track's own first", "bell", lute, 10000, "");
        row("unknown", "kazoo", lute, 20000,
            "kelvarion-composer-cli: Tune: Instrument 'kazoo' not found; playing lute.\n");
    }
    void instruments()
    {
        QFETCH(const QByteArray, name);
        QFETCH(const QString, options);
        QFETCH(const int, level);
        QFETCH(const QByteArray, warning);
        const auto field = name.isEmpty() ? "" : "I:Instrument:" + name + "\n";
        const auto [status, out, error] = render("X:1\nT:Tune\n" + field + "L:1/4\nQ:1/4=60\nK:C\nzC\n", options);
        QCOMPARE(status, 0);
        QCOMPARE(error, warning);
        QCOMPARE(out, QByteArray("wrote out.wav\n"));
        QCOMPARE(click(), std::pair(int(std::lround(level * std::sqrt(0.5))), 48000));
    }

    void rendersFolders()
    {
        for (const char *name : {"pack/a.abc", "pack/b/a.abc"})
            folder_.write(name, "X:1\nI:Instrument:lute\nL:1/4\nK:C\nC\n");
        const auto render = [this](const char *words) {
            return run(folder_, QStringLiteral("render pack --game game --output sounds/ ") + QLatin1String(words));
        };
        QCOMPARE(render("").out, QByteArray("pack/a.abc: wrote sounds/a.wav\npack/b/a.abc: wrote sounds/a (2).wav\n"));
        QCOMPARE(folder_.read("sounds/a.wav"), folder_.read("sounds/a (2).wav"));
        QCOMPARE(render("").status, 1);
        QCOMPARE(render("--format flac").status, 0);
        QCOMPARE(folder_.files("sounds").join(u'|'), QStringLiteral("a (2).flac|a (2).wav|a.flac|a.wav"));
        const auto table = render("--force --summary --manifest").out.split('\n');
        QCOMPARE(table[4], QByteArray("pack/b/a.abc      1    0:01       0         0      0"));
        QCOMPARE(render("--force --json").out, folder_.read("sounds/manifest.json"));
    }

    void guessesInstruments()
    {
        const auto [status, out, error] = render("X:1\nT:Track 2 - Lute\nL:1/4\nQ:1/4=60\nK:C\nzC\n");
        QCOMPARE(status, 0);
        QCOMPARE(error,
                 QByteArray("kelvarion-composer-cli: Track 2 - Lute: No instrument is given; playing lute, chosen "
                            "by its name.\n"));
        QCOMPARE(click().first, int(std::lround(20000 * std::sqrt(0.5))));
    }

    void programs_data()
    {
        const Rows<QString, int, QByteArray> row("options", "level", "warning");
        row("guessed", "", 10000,
            "kelvarion-composer-cli: Track 1 - Tubular Bells: No instrument is given; playing bell, chosen by its "
            "name.\n");
        row("chosen", "--set instruments/forPrograms=14=lute", 20000, "");
        row("chosen for others", "--set instruments/forPrograms=15=lute --instrument bell", 10000, "");
    }
    void programs()
    {
        QFETCH(const QString, options);
        QFETCH(const int, level);
        const auto notes = MidiBytes::noteOn(96, 60) + MidiBytes::noteOff(96, 60) + MidiBytes::endOfTrack();
        folder_.write("bells.mid", MidiBytes::file({QByteArray("\x00\xC0\x0E", 3) + notes}));
        const auto outcome = run(folder_, QStringLiteral("render bells.mid --game game --output out.wav ") + options);
        QCOMPARE(click().first, int(std::lround(level * std::sqrt(0.5))));
        QTEST(outcome.error, "warning");
    }

    // A song's parts sound as the window has them.
    void songs()
    {
        folder_.write("mix.kvsong", R"({"format": "kelvarion-song", "version": 1, "masterVolume": 50, "parts": [
            {"id": "T1", "instrument": "lute", "volume": 80, "pan": -100,
             "abc": ["X:1", "I:Instrument:bell", "L:1/4", "Q:1/4=60", "K:C", "zC"]},
            {"id": "T2", "muted": true, "abc": ["X:1", "L:1/4", "Q:1/4=60", "K:C", "C"]}]})");
        const auto [status, out, error] = run(folder_, "render mix.kvsong --game game --output out.wav");
        QCOMPARE(status, 0);
        QCOMPARE(error, QByteArray());
        QCOMPARE(click(), std::pair(int(std::lround(20000 * 0.4 * std::sqrt(0.5))), 48000));
        QCOMPARE(WaveFile(wav_).right[48000], 0);
    }

    void writesToStandardOutputAndPipes()
    {
        const auto music = QByteArrayLiteral("X:1\nL:1/4\nQ:1/4=60\nK:C\nzzC\n");
        QCOMPARE(render(music).status, 0);
        const auto wave = folder_.read("out.wav");
        const auto [status, out, error] = render(music, QStringLiteral("--output -"));
        QCOMPARE(error, QByteArray());
        QCOMPARE(status, 0);
        QVERIFY(out == wave);
#ifdef Q_OS_UNIX
        QCOMPARE(::mkfifo(QFile::encodeName(folder_.path("pipe")).constData(), 0600), 0);
        QProcess reader;
        reader.setStandardOutputFile(folder_.path("read.wav"));
        reader.start(QStringLiteral("cat"), {folder_.path("pipe")});
        QCOMPARE(render(music, QStringLiteral("--output pipe")).status, 0);
        QVERIFY(reader.waitForFinished());
        QVERIFY(folder_.read("read.wav") == wave);
#endif
        QCOMPARE(render(music, QStringLiteral("--output - --files parts")).error,
                 QByteArray("kelvarion-composer-cli: -: Only one file goes there: --files mix.\n"));
    }

    void inputsThatFailAreLeftOut()
    {
        const auto [status, out, error] = render("X:1\nL:1/4\nQ:1/4=60\nK:C\nzzC\n", QStringLiteral("missing.abc"));
        QCOMPARE(status, 1);
        QCOMPARE(error,
                 QByteArray("kelvarion-composer-cli: missing.abc: Could not open file: No such file or directory.\n"));
        QCOMPARE(click().second, 96000);
    }

    void startOffsets()
    {
        folder_.write("late.kvsong",
                      R"({"format": "kelvarion-song", "version": 1, "parts": [{"id": "T1", "instrument": "lute",
            "startOffset": 250, "abc": ["X:1", "L:1/4", "Q:1/4=60", "K:C", "C"]}]})");
        for (const char *option : {"", " --start-offsets"}) {
            const auto line = QStringLiteral("render late.kvsong --game game --output out.wav") + QLatin1String(option);
            QCOMPARE(run(folder_, line).status, 0);
            QCOMPARE(click().second, *option == 0 ? 0 : 12000);
        }
    }

    void formats_data()
    {
        const Rows<QString, QString, QByteArray> row("options", "files", "begins");
        row("FLAC", "--output o.flac --bits 24", "o.flac", "fLaC");
        row("Vorbis", "--output o.ogg --quality 3", "o.ogg", "OggS");
        row("24 bit", "--output o.WAV --bits 24 --normalise", "o.WAV", "RIFF");
        row("no ending", "--output o", "o", "RIFF");
        row("parts", "two.abc --output o.wav --files parts", "o - Tune.wav, o - Two.wav", "RIFF");
        row("both", "two.abc --output sub/o.flac --files both", "sub/o.flac, sub/o - Tune.flac, sub/o - Two.flac",
            "fLaC");
    }
    void formats()
    {
        QFETCH(const QString, options);
        QFETCH(const QString, files);
        QFETCH(const QByteArray, begins);
        folder_.write("two.abc", "X:1\nT:Two\nK:C\nE\n");
        folder_.write("sub/here", "");
        const auto [status, out, error] =
            render("X:1\nT:Tune\nK:C\nC\n", QStringLiteral("--instrument lute ") + options);
        QCOMPARE(error, QByteArray());
        QCOMPARE(out, QByteArray("wrote " + files.toUtf8() + "\n"));
        for (const auto &file : files.split(QStringLiteral(", ")))
            QVERIFY(folder_.read(file).startsWith(begins));
    }

    void loops()
    {
        folder_.write("loop.kvsong",
                      R"({"format": "kelvarion-song", "version": 1, "loop": {"begin": 10080, "end": 20160},
            "parts": [{"id": "T1", "instrument": "lute", "abc": ["X:1", "L:1/4", "Q:1/4=60", "K:C", "CDC"]}]})");
        QCOMPARE(run(folder_, "render loop.kvsong --game game --output out.wav --loop").status, 0);
        const auto bytes = QFileInfo(wav_).size() - 48000 * 4;
        QVERIFY(bytes >= 44 && bytes < 500); // header and tags
    }

    void tellsWhatIsClipped()
    {
        folder_.write("chord.abc", "X:1\nT:Tune\nK:C\n[C8C8C8C8]\n");
        const auto [status, out, error] =
            run(folder_, "render chord.abc --game game --instrument lute --output out.wav");
        QCOMPARE(out, QByteArray("wrote out.wav; 0.2 % of the samples are clipped\n"));
    }

    void refusals_data()
    {
        const Rows<QByteArray, QString, QByteArray> row("abc", "options", "message");
        const QByteArray tune = "X:1\nK:C\nC\n";
        row("too long", "X:1\nL:1/1\nQ:1/4=1\nK:C\nz100C\n", "", "out.wav: The song is longer than 6 hours.");
        row("no game", tune, "--game .", "No Kelvarion installation was found at the specified directory.");
        row("instrument", tune, "--instrument kazoo", "Instrument 'kazoo' not found.");
        row("no folder", tune, "--output nowhere/out.wav", "nowhere/out.wav: The folder does not exist.");
        row("ending", tune, "--output out.xyz", "out.xyz: The ending \"xyz\" is none of wav, flac, ogg, opus, mp3.");
        row("bits", tune, "--output out.mp3 --bits 24", "out.mp3: MP3 files have no such bits.");
        row("quality", tune, "--quality 3", "out.wav: WAV files have no such quality.");
        row("a library's mix", tune, "--engine fmod --normalise",
            "out.wav: FMOD writes all parts into one WAV of 16 bit, and nothing else.");
        row("no library", tune, "--engine fmod:tune.abc", "file too short)");
        row("no loop", tune, "--loop", "out.wav: The song has no loop.");
        row("a part's file", tune, "--files parts --output g.wav",
            "g.wav: \"g - Untitled.wav\" exists; --force writes over it.");
        row("the song", tune, "--output tune.abc", "tune.abc: The wave file would replace the song.");
    }
    void refusals()
    {
        QFETCH(const QByteArray, abc);
        QFETCH(const QString, options);
        QFETCH(const QByteArray, message);
        const auto [status, out, error] = render(abc, options);
        QCOMPARE(status, 1);
        QVERIFY2(error.endsWith(message + "\n") && error.count('\n') == 1, error.constData());
        QVERIFY(!QFile::exists(wav_));
    }

#ifdef Q_OS_UNIX
    void endsAtSignals_data()
    {
        const Rows<int> row("signal");
        row("Ctrl+C", SIGINT);
        row("kill", SIGTERM);
        row("the terminal is closed", SIGHUP);
    }
    void endsAtSignals()
    {
        QFETCH(const int, signal);
        folder_.write("long.abc", "X:1\nL:1/4\nQ:1/4=60\nK:C\n" + QByteArray("CDEFGABc CDEFGABc\n").repeated(1000));
        QProcess program;
        start(program, folder_, "render long.abc --game game --output out.wav");
        const auto isBeside = [this] { return !folder_.files().filter(QStringLiteral(".saving")).isEmpty(); };
        QTRY_VERIFY(isBeside() || program.state() == QProcess::NotRunning);
        ::kill(pid_t(program.processId()), signal);
        QCOMPARE(outcomeOf(program).status, 128 + signal);
        QVERIFY(!QFile::exists(wav_) && !isBeside());
    }
#endif
};

QTEST_GUILESS_MAIN(TestRender)
#include "test_render.moc"
