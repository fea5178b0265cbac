// What the track list costs while it plays: 64 tracks of 20,000 notes each whose lines move 50 times a second, as a
// share of one core; and how long pictures and scrolling take. Every update moves every line by a whole pixel, which is
// far more than a real song does. QT_QPA_PLATFORM chooses the platform, offscreen when there is none; QT_SCALE_FACTOR
// the scale.
#include "assets/InstrumentSetModel.h"
#include "settings/Settings.h"
#include "support/Figures.h"
#include "ui/Dialogs.h"
#include "ui/song/NotePicture.h"
#include "ui/song/TrackWidget.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QScrollArea>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTimer>
#include <QVBoxLayout>

#include <benchmark/benchmark.h>
#include <ctime>
#include <random>

namespace {

constexpr int trackCount = 64;
constexpr int notesPerTrack = 20000;
constexpr Ticks songLength = 2000 * ticksPerWholeNote;
constexpr double updatesPerSecond = 50.0;

bool isGood = true;

Track makeTrack(unsigned seed)
{
    std::mt19937 random(seed);
    Track track;
    for (int i = 0; i < notesPerTrack; ++i)
        track.appendEvent(TrackEvent::note(36 + random() % 60, Ticks(random()) % songLength,
                                           ticksPerQuarter / Ticks(1 + random() % 4)));
    track.normalize();
    return track;
}

double cpuSeconds()
{
    return double(std::clock()) / CLOCKS_PER_SEC; // of all threads
}

// The list in its window, high enough for so many rows.
class TrackListWindow
{
public:
    explicit TrackListWindow(int visibleRows)
        : settings_(folder_.filePath(QStringLiteral("settings.cfg"))), instruments_(InstrumentSet())
    {
        auto *const column = new QWidget;
        auto *const layout = new QVBoxLayout(column);
        layout->setSpacing(2);
        for (unsigned i = 0; i < trackCount; ++i) {
            const auto track = std::make_shared<const Track>(makeTrack(i));
            rows_.append(new TrackWidget(std::make_shared<SongTrack>(SongTrack{QString::number(i), track, {}}),
                                         instruments_, settings_, dialogs_));
            rows_.last()->setSpan({0, songLength});
            layout->addWidget(rows_.last());
        }
        area_.setWidget(column);
        area_.setWidgetResizable(true);
        area_.resize(1400, visibleRows * (rows_.first()->sizeHint().height() + 2));
        area_.show();
        settle();
    }

    void moveLines()
    {
        pixel_ = (pixel_ + 1) % 800;
        for (auto *const row : std::as_const(rows_))
            row->setPosition(songLength * pixel_ / 800);
    }

    // What the player sends beside the position.
    void moveTheRest()
    {
        note_ = (note_ + 1) % notesPerTrack;
        const float level = float(note_ % 10) / 10.0F;
        for (auto *const row : std::as_const(rows_)) {
            row->noteReleased(note_ > 0 ? note_ - 1 : notesPerTrack - 1);
            row->notePressed(note_);
            row->setLevels(level, level, level, level);
        }
    }

    void scroll()
    {
        auto *const bar = area_.verticalScrollBar();
        scrollStep_ =
            bar->value() + scrollStep_ > bar->maximum() || bar->value() + scrollStep_ < 0 ? -scrollStep_ : scrollStep_;
        bar->setValue(bar->value() + scrollStep_);
    }

    void repaintAll()
    {
        for (auto *const widget : area_.findChildren<QWidget *>())
            widget->update();
    }

    static void settle()
    {
        for (int i = 0; i < 5; ++i)
            QCoreApplication::processEvents();
    }

private:
    QTemporaryDir folder_;
    Settings settings_;
    InstrumentSetModel instruments_;
    DesktopDialogs dialogs_;
    QScrollArea area_;
    QVector<TrackWidget *> rows_;
    int pixel_ = 0;
    int note_ = 0;
    int scrollStep_ = 40;
};

enum class Moving { Lines, Everything };

// Five seconds as they are.
void playing(benchmark::State &state, Moving moving)
{
    TrackListWindow window(int(state.range(0)));
    double percent = 0;
    for (auto _ : state) {
        const auto cpuBefore = cpuSeconds();
        QElapsedTimer clock;
        clock.start();
        QEventLoop loop;
        QTimer updates;
        updates.setTimerType(Qt::PreciseTimer);
        QObject::connect(&updates, &QTimer::timeout, &loop, [&] {
            window.moveLines();
            if (moving == Moving::Everything)
                window.moveTheRest();
        });
        updates.start(int(1000 / updatesPerSecond));
        QTimer::singleShot(5000, &loop, &QEventLoop::quit);
        loop.exec();
        percent = (cpuSeconds() - cpuBefore) / (double(clock.elapsed()) / 1000.0) * 100.0;
    }
    state.counters["percent_of_a_core"] = percent;
    if (moving == Moving::Lines) {
        const auto rows = std::to_string(state.range(0));
        isGood &= report({"Lines playing in " + rows + " rows: % of a core", percent, 10, {}, Better::Less});
    }
}

void frames(benchmark::State &state, void (TrackListWindow::*change)())
{
    TrackListWindow window(12);
    for (auto _ : state) {
        (window.*change)();
        QCoreApplication::processEvents();
    }
}

void picture(benchmark::State &state)
{
    const auto track = makeTrack(1);
    const double ratio = double(state.range(0));
    for (auto _ : state) {
        const NoteLayout layout(track, {0, songLength}, QSize(800, 72) * ratio, ratio);
        benchmark::DoNotOptimize(drawNotePicture(track, layout, {QColor(32, 96, 255), true, true}));
    }
}

BENCHMARK_CAPTURE(playing, lines, Moving::Lines)->Arg(12)->Arg(64)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(playing, everything, Moving::Everything)
    ->Arg(12)
    ->Arg(64)
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(frames, lines, &TrackListWindow::moveLines)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(frames, scroll, &TrackListWindow::scroll)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(frames, repaint, &TrackListWindow::repaintAll)->Unit(benchmark::kMicrosecond);
BENCHMARK(picture)->Arg(1)->Arg(2)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return isGood ? 0 : 1;
}
