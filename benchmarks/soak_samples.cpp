// A song whose samples need far more memory than there is for them: sixteen instruments of fifteen stereo samples of
// ten seconds, and a part for each that goes through them in notes of four seconds, played in real time on the paced
// output. Fails when a note is missing, when the program needs more than 400 MB, or when the first note is late. Usage:
// soak_samples [NOTES]
#include "audio/SampleFiles.h"
#include "audio/engine/BuiltinEngine.h"
#include "audio/player/TrackPlayer.h"
#include "support/Figures.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <array>
#include <cmath>
#include <cstdio>
#include <numbers>
#include <sndfile.h>
#include <vector>

namespace {

constexpr int instruments = 16;
constexpr int samples = 15;
constexpr int sampleSeconds = 10;
constexpr int rate = 48000;

// Ogg Vorbis, as games have them.
void writeSample(const QString &path, int number)
{
    std::vector<float> stereo(std::size_t(2 * sampleSeconds * rate));
    for (int i = 0; i < sampleSeconds * rate; ++i) {
        const double phase = 2 * std::numbers::pi * (110 + 20 * number) * i / rate;
        stereo[std::size_t(2 * i)] = float(0.2 * std::sin(phase));
        stereo[std::size_t(2 * i + 1)] = float(0.2 * std::sin(phase * 1.01));
    }
    SF_INFO info{};
    info.samplerate = rate;
    info.channels = 2;
    info.format = SF_FORMAT_OGG | SF_FORMAT_VORBIS;
    auto *const file = sf_open(QFile::encodeName(path).constData(), SFM_WRITE, &info);
    if (!file)
        qFatal("cannot write a sample");
    for (int second = 0; second < sampleSeconds; ++second)
        sf_writef_float(file, stereo.data() + 2 * second * rate, rate);
    sf_close(file);
}

// Every instrument has files of its own.
std::vector<Instrument> makeInstruments(const SampleFiles &files)
{
    std::vector<Instrument> made(instruments);
    for (int sample = 0; sample < samples; ++sample) {
        const auto original = files.path(QStringLiteral("%1.ogg").arg(sample));
        writeSample(original, sample);
        for (int i = 0; i < instruments; ++i) {
            const auto path = files.path(QStringLiteral("%1-%2.ogg").arg(i).arg(sample));
            QFile::copy(original, path);
            made[std::size_t(i)].tuning.fadeout = 0.3;
            made[std::size_t(i)].tuning.notes.insert(quint32(40 + sample), {{path}, 1.01 + 0.01 * i, 440});
        }
    }
    return made;
}

Track part(int number, int notes)
{
    constexpr Ticks length = defaultTicksPerMinute * 4 / 60; // four seconds
    QVector<TrackEvent> events;
    for (int i = 0; i < notes; ++i)
        events.append(TrackEvent::note(quint32(40 + (i + number) % samples), i * length, length, 0.2F));
    return trackOf(events);
}

// The most that the program ever held, in MB.
double peakMemory()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const auto &line : status.readAll().split('\n')) {
        if (line.startsWith("VmHWM:"))
            return line.mid(6).trimmed().split(' ').first().toDouble() / 1024;
    }
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    const int notes = argc > 1 ? QByteArray(argv[1]).toInt() : 13;
    if (notes <= 0) {
        std::fputs("usage: soak_samples [NOTES]\n", stderr);
        return 2;
    }
    const SampleFiles files;
    const auto sounding = makeInstruments(files);
    TrackPlayer player([] { return std::make_unique<BuiltinEngine>(HeardOutput::Paced); });
    QVector<PlayRequest> requests;
    for (int i = 0; i < instruments; ++i)
        requests.append({.trackId = QString::number(i),
                         .track = part(i, notes),
                         .instrument = sounding[std::size_t(i)],
                         .syncGroup = QStringLiteral("Main")});
    int pressed = 0, stopped = 0;
    double firstNote = 0;
    QElapsedTimer time;
    QObject::connect(&player, &TrackPlayer::notePressed, &application, [&] {
        if (pressed++ == 0)
            firstNote = double(time.elapsed()) / 1000;
    });
    QObject::connect(&player, &TrackPlayer::trackStopped, &application, [&] {
        if (++stopped == instruments)
            QCoreApplication::quit();
    });
    QObject::connect(&player, &TrackPlayer::warned, &application,
                     [](const QString &text) { qWarning("%s", qUtf8Printable(text)); });
    time.start();
    player.playTracks(requests);
    QCoreApplication::exec();

    const int expected = instruments * notes;
    const auto memory = peakMemory();
    std::printf("%d of %d notes, the first after %.2f s; %.0f MB at most\n", pressed, expected, firstNote, memory);
    bool isGood = report({"More samples than memory: missing notes", double(expected - pressed), 0, {}, Better::Less});
    isGood = report({"More samples than memory: MB", memory, 400, {}, Better::Less}) && isGood;
    isGood = report({"More samples than memory: seconds to the first note", firstNote, 3, 1, Better::Less}) && isGood;
    return isGood ? 0 : 1;
}
