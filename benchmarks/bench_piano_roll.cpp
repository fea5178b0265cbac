// What it takes the piano roll to paint a track of 100,000 notes into an offscreen window of 1920 × 1080: whole frames
// at every zoom, scrolling and a moving position. Ends with 1 when the 99th percentile of one of them is above 16 ms of
// the thread's own time; the clock's time, which other programs disturb, is printed beside it.
#include "settings/Settings.h"
#include "support/Figures.h"
#include "ui/roll/PianoRoll.h"

#include <QApplication>
#include <QScrollBar>
#include <QTemporaryDir>

#include <cstdio>
#include <ctime>
#include <functional>
#include <random>

namespace {

constexpr int noteCount = 100'000;
constexpr int frameCount = 200;

enum class Texture { Chords, Runs };

// Chords of eight, or one voice in sixteenths, over six octaves, with a note that sounds from start to end.
Track track(Texture texture)
{
    std::mt19937 random(7);
    Track track;
    const auto chord = texture == Texture::Chords ? 8 : 1;
    const auto step = ticksPerWholeNote / (texture == Texture::Chords ? 8 : 16);
    for (int note = 0; note < noteCount - 1; ++note) {
        const auto pitch = 28 + note % chord * 9 + int(random() % (chord == 1 ? 72 : 9));
        track.appendEvent(TrackEvent::note(quint32(pitch), note / chord * step, step));
    }
    track.appendEvent(TrackEvent::note(24, 0, noteCount / chord * step));
    track.normalize();
    track.toAbc();
    return track;
}

double milliseconds(clockid_t clock)
{
    timespec time{};
    clock_gettime(clock, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
}

double percentile99(QVector<double> times)
{
    std::sort(times.begin(), times.end());
    return times[times.size() * 99 / 100 - 1];
}

// Of all frames that were measured.
struct Frames
{
    double longest = 0; // 99th percentile in milliseconds

    // A frame is what prepare(frame) does and the painting that follows from it.
    void measure(const QString &name, const std::function<void(int)> &prepare)
    {
        QVector<double> own;
        QVector<double> passed;
        for (int frame = 0; frame < frameCount; ++frame) {
            const auto ownBegin = milliseconds(CLOCK_THREAD_CPUTIME_ID);
            const auto begin = milliseconds(CLOCK_MONOTONIC);
            prepare(frame);
            QCoreApplication::processEvents();
            own.append(milliseconds(CLOCK_THREAD_CPUTIME_ID) - ownBegin);
            passed.append(milliseconds(CLOCK_MONOTONIC) - begin);
        }
        const auto p99 = percentile99(own);
        std::printf("%-36s p99 %6.2f ms   (by the clock %6.2f ms)\n", qPrintable(name), p99, percentile99(passed));
        longest = std::max(longest, p99);
    }
};

bool measureTexture(const QString &name, Texture texture, Settings &settings)
{
    Frames frames;
    EditorDocument document;
    document.setTrack(track(texture));
    PianoRoll roll(document, settings);
    roll.resize(1920, 1080);
    roll.show();
    QCoreApplication::processEvents();
    std::mt19937 random(11);
    auto *bar = roll.horizontalScrollBar();
    for (const auto hScale : {-10, -6, -3, 0, 4, 8}) {
        roll.zoomTime(hScale - roll.state().geometry.hScale());
        for (const auto vScale : {-1, 2, 6}) {
            roll.zoomPitch(vScale - roll.state().geometry.vScale());
            frames.measure(QStringLiteral("%1, frame, zoom %2/%3").arg(name).arg(hScale).arg(vScale), [&](int) {
                bar->setValue(int(random() % unsigned(bar->maximum() + 1)));
                roll.viewport()->update();
            });
        }
    }
    roll.zoomNormal();
    frames.measure(name + QStringLiteral(", scrolling by 16 pixels"), [&](int frame) { bar->setValue(frame * 16); });
    frames.measure(name + QStringLiteral(", position moves"),
                   [&](int frame) { document.setPlayPosition(frame * ticksPerWholeNote / 192); });
    document.setPlayPosition(-1);
    roll.commands().selectAll();
    frames.measure(name + QStringLiteral(", everything selected"), [&](int) { roll.viewport()->update(); });
    return report({"Piano roll, " + name.toStdString() + ": ms a frame", frames.longest, 16, {}, Better::Less});
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const QTemporaryDir folder;
    Settings settings(folder.filePath(QStringLiteral("settings.cfg")));
    bool isGood = measureTexture(QStringLiteral("chords"), Texture::Chords, settings);
    isGood &= measureTexture(QStringLiteral("runs"), Texture::Runs, settings);
    return isGood ? 0 : 1;
}
