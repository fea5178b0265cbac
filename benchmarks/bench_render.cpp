// The export of a whole song as the program does it, from tracks and sample files to the finished wave file, against
// fluidsynth playing the same notes of the same samples on the same core, dry. Items are voice-seconds: one voice
// sounding for one second.
#include "audio/SampleFiles.h"
#include "audio/engine/BuiltinEngine.h"
#include "audio/render/RenderWorker.h"
#include "support/DenseSong.h"
#include "support/Fluidsynth.h"
#include "support/Ratios.h"

#include <algorithm>
#include <cmath>
#include <sched.h>
#include <stdexcept>

namespace {

// Where the samples of an export come from.
enum class Source {
    Files, // wave files, decoded each time
    Memory // decoded beforehand
};

// Its sample files hold nothing but the number of a decoded sound.
class PreparedEngine : public BuiltinEngine
{
public:
    using BuiltinEngine::BuiltinEngine;

    AudioResult makeSound(std::span<const std::byte> bytes, std::size_t /*mostFrames*/, Sound &sound) const override
    {
        const auto number = QByteArray(reinterpret_cast<const char *>(bytes.data()), int(bytes.size())).toUInt();
        sound = sounds()[number];
        return AudioResult::Ok;
    }

private:
    static const std::vector<Sound> &sounds()
    {
        static const auto decoded = [] {
            std::vector<Sound> all;
            for (const auto &values : DenseSamples::get()) {
                const auto sound = std::make_shared<SoundData>(1, values.size(), DenseSamples::sampleRate);
                std::transform(values.begin(), values.end(), sound->plane(0),
                               [](short value) { return float(value) / 32768; });
                all.push_back(sound);
            }
            return all;
        }();
        return decoded;
    }
};

std::unique_ptr<AudioEngine> waveEngine(const QString &path, Source source)
{
    if (source == Source::Memory)
        return std::make_unique<PreparedEngine>(EngineOutput::WavFile, path.toStdU16String());
    return std::make_unique<BuiltinEngine>(EngineOutput::WavFile, path.toStdU16String());
}

// The song's instruments, with a file for each sample.
class Samples
{
public:
    explicit Samples(Source source) : source_(source)
    {
        for (int number = 0; number < DenseSong::instruments; ++number)
            instruments_.push_back(make(number));
    }

    static const Samples &of(Source source)
    {
        static const Samples files(Source::Files), memory(Source::Memory);
        return source == Source::Files ? files : memory;
    }

    QString path(const QString &name) const { return files_.path(name); }
    const std::vector<Instrument> &instruments() const { return instruments_; }

private:
    Instrument make(int number) const
    {
        Instrument instrument;
        instrument.tuning.fadeout = DenseSong::fade / 1000.0;
        for (int key = DenseSong::lowestKey; key <= DenseSong::highestKey; ++key) {
            const auto root = DenseSamples::rootOf(key);
            const auto name = QStringLiteral("%1-%2.wav").arg(number).arg(root);
            if (key == root)
                files_.write(name, sampleFile(DenseSamples::indexOf(number, key)));
            instrument.tuning.notes.insert(quint32(key), {{files_.path(name)}, std::exp2((key - root) / 12.0), 440});
        }
        return instrument;
    }

    QByteArray sampleFile(int index) const
    {
        const auto &values = DenseSamples::get()[std::size_t(index)];
        return source_ == Source::Memory
                   ? QByteArray::number(index)
                   : waveBytes(QVector<qint16>(values.begin(), values.end()), DenseSamples::sampleRate);
    }

    Source source_;
    SampleFiles files_;
    std::vector<Instrument> instruments_;
};

std::vector<Track> tracksOf(const DenseSong &song)
{
    std::vector<QVector<TrackEvent>> events(std::size_t(song.tracks));
    for (const auto &note : song.notes)
        events[std::size_t(note.track)].append(TrackEvent::note(quint32(note.key), note.start, note.length, 0.1F));
    std::vector<Track> tracks;
    constexpr qint64 millisecondsPerMinute = 60'000;
    for (const auto &track : events)
        tracks.push_back(trackOf(track, millisecondsPerMinute));
    return tracks;
}

void render(const std::vector<Track> &tracks, Source source, std::size_t cores)
{
    const auto &samples = Samples::of(source);
    const auto file = samples.path(QStringLiteral("song.wav"));
    RenderWorker worker(
        RenderPlan::wave(file), [source](const QString &path) { return waveEngine(path, source); }, cores);
    for (std::size_t i = 0; i < tracks.size(); ++i)
        worker.addTrack(tracks[i], samples.instruments()[i % DenseSong::instruments], {});
    worker.__render();
    if (!QFile::remove(file))
        throw std::runtime_error("there is no wave file");
}

void Export(benchmark::State &state, int voices)
{
    const DenseSong song(voices, 300);
    const auto tracks = tracksOf(song);
    Samples::of(Source::Memory);
    for (auto _ : state)
        render(tracks, Source::Memory, 1);
    state.SetItemsProcessed(int64_t(double(state.iterations()) * song.voiceSeconds));
}

// What the user waits for.
void ExportFiles(benchmark::State &state, int voices, int cores)
{
    cpu_set_t pinned, some;
    sched_getaffinity(0, sizeof pinned, &pinned);
    CPU_ZERO(&some);
    for (int core = 0; core < cores; ++core)
        CPU_SET(std::size_t(core), &some);
    sched_setaffinity(0, sizeof some, &some);
    const DenseSong song(voices, 300);
    const auto tracks = tracksOf(song);
    Samples::of(Source::Files);
    for (auto _ : state)
        render(tracks, Source::Files, std::size_t(cores));
    sched_setaffinity(0, sizeof pinned, &pinned);
    state.SetItemsProcessed(int64_t(double(state.iterations()) * song.voiceSeconds));
}

void Decode(benchmark::State &state)
{
    const BuiltinEngine engine(EngineOutput::Silent);
    for (auto _ : state) {
        SampleCache cache(engine, 48000, [](const QString &) {});
        for (const auto &instrument : Samples::of(Source::Files).instruments()) {
            for (const auto &note : instrument.tuning.notes)
                benchmark::DoNotOptimize(cache.find(note, 48000));
        }
    }
}

} // namespace

int main(int argc, char **argv)
{
    const auto add = [](const std::string &name, auto function, auto... argument) {
        return benchmark::RegisterBenchmark(name.c_str(), function, argument...)->Unit(benchmark::kMillisecond);
    };
    std::vector<Ratio> ratios;
    add("Decode", Decode);
    for (const int voices : {64, 256}) {
        const auto count = std::to_string(voices);
        add("Export" + count, Export, voices)->MeasureProcessCPUTime();
        add("Fluidsynth" + count, playDenseSong, voices);
        add("ExportFilesOneCore" + count, ExportFiles, voices, 1)->UseRealTime();
        add("ExportFilesTwoCores" + count, ExportFiles, voices, 2)->UseRealTime();
        ratios.push_back({"Export" + count, "Fluidsynth" + count, voices == 256 ? 25.0 : 0.0, 40});
        ratios.push_back({"ExportFilesTwoCores" + count, "ExportFilesOneCore" + count, 0, 2});
    }
    return runBenchmarks(argc, argv, ratios);
}
