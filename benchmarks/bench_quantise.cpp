// Clean quantising of a long performance: how many notes it takes a second to write down.
#include "import/quantise/CleanQuantise.h"
#include "support/Figures.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <random>
#include <stdexcept>

namespace {

constexpr int noteCount = 100'000;

// Chords and runs in changing grids, each note some milliseconds beside its place.
Track performance()
{
    std::mt19937 random(1);
    const auto below = [&random](int limit) { return Ticks(random() % unsigned(limit)); };
    Track track;
    Ticks at = 0;
    Ticks step = ticksPerQuarter / 2;
    for (int i = 0; i < noteCount; ++i) {
        if (i % 16 == 0)
            step = ticksPerQuarter / std::array<Ticks, 4>{1, 2, 3, 4}[size_t(below(4))];
        track.appendEvent(TrackEvent::note(quint32(36 + below(48)), at + below(300), step * (60 + below(60)) / 100));
        at += below(3) == 0 ? 0 : step;
    }
    track.normalize();
    return track;
}

double bestSeconds(const Track &track)
{
    double best = 1e9;
    for (int run = 0; run < 5; ++run) {
        const auto start = std::chrono::steady_clock::now();
        const auto written = cleanQuantised(track);
        const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
        if (written.noteCount() != noteCount)
            throw std::runtime_error("notes were lost");
        best = std::min(best, seconds.count());
    }
    return best;
}

} // namespace

int main()
{
    const auto seconds = bestSeconds(performance());
    const bool isGood = report({"clean quantising of 100,000 notes, seconds", seconds, 1, 0.2, Better::Less});
    return isGood ? 0 : 1;
}
