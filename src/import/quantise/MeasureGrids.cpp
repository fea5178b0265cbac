#include "import/quantise/MeasureGrids.h"

#include "base/Interrupted.h"
#include "import/Realign.h"

#include <cmath>
#include <cstdlib>
#include <limits>

namespace {

enum class Kind { Straight, Triplet, Mixed };

struct Grid
{
    Kind kind;
    Ticks step;
    Ticks secondStep; // 0 for none
    double price;     // of each measure, in characters
};

constexpr Ticks part(int denominator)
{
    return ticksPerWholeNote / denominator;
}

constexpr std::array grids{
    Grid{Kind::Straight, part(4), 0, 0},      Grid{Kind::Straight, part(8), 0, 0},
    Grid{Kind::Straight, part(16), 0, 0},     Grid{Kind::Straight, part(32), 0, 0.5},
    Grid{Kind::Straight, part(64), 0, 1},     Grid{Kind::Straight, part(128), 0, 2},
    Grid{Kind::Triplet, part(6), 0, 1},       Grid{Kind::Triplet, part(12), 0, 0.5},
    Grid{Kind::Triplet, part(24), 0, 0.5},    Grid{Kind::Triplet, part(48), 0, 1},
    Grid{Kind::Triplet, part(96), 0, 2},      Grid{Kind::Mixed, part(8), part(12), 2},
    Grid{Kind::Mixed, part(16), part(12), 2}, Grid{Kind::Mixed, part(16), part(24), 2.5},
    Grid{Kind::Mixed, part(32), part(24), 3}, Grid{Kind::Mixed, part(16), part(20), 3},
    Grid{Kind::Mixed, part(16), part(28), 4},
};

constexpr Ticks finestStep = part(128);
constexpr Ticks lastStep = part(384); // in tempos that are so slow that no step of the quick grid is fine enough
constexpr double msOfOneCharacter = 12;
constexpr double priceOfException = 1;

double priceOfChange(const Grid &from, const Grid &to)
{
    if (&from == &to)
        return 0;
    return from.kind == to.kind ? 1 : 3;
}

Ticks nearest(Ticks time, Ticks step)
{
    return (time + step / 2) / step * step;
}

Ticks nearest(Ticks time, Ticks step, Ticks secondStep)
{
    const auto first = nearest(time, step);
    if (secondStep == 0)
        return first;
    const auto second = nearest(time, secondStep);
    return std::abs(second - time) < std::abs(first - time) ? second : first;
}

// The onsets of one measure.
struct Span
{
    Measure measure;
    const Onset *begin;
    const Onset *end;
};

std::vector<Span> spansOf(const std::vector<Onset> &onsets, const Measures &measures)
{
    std::vector<Span> spans;
    const auto *const end = onsets.data() + onsets.size();
    for (const auto *onset = onsets.data(); onset != end;) {
        Span span{measures.at(onset->time), onset, onset + 1};
        while (span.end != end && span.end->time < span.measure.end)
            ++span.end;
        onset = span.end;
        spans.push_back(span);
    }
    return spans;
}

struct Place
{
    Ticks time; // since the measure began
    double price;
};

Place placeAt(Ticks from, Ticks to, double msPerTick)
{
    const double shift = double(std::abs(to - from)) * msPerTick / msOfOneCharacter;
    return {to, shift * shift};
}

Place placeBetween(const Grid &grid, Ticks time, double msPerTick)
{
    const auto farthest = farthestShiftMs / msPerTick;
    for (int halves = 2; grid.step / halves >= finestStep; halves *= 2) {
        const auto finer = nearest(time, grid.step / halves, grid.secondStep / halves);
        if (double(std::abs(finer - time)) <= farthest) {
            auto place = placeAt(time, finer, msPerTick);
            place.price += priceOfException;
            return place;
        }
    }
    const auto quick = SnapGrid::quick().snap(time);
    const bool isNear = double(std::abs(quick - time)) <= farthest;
    auto place = placeAt(time, isNear ? quick : nearest(time, lastStep), msPerTick);
    place.price += priceOfException;
    return place;
}

Place placeOn(const Grid &grid, Ticks time, double msPerTick, Ticks measureLength)
{
    const auto near = std::min(nearest(time, grid.step, grid.secondStep), measureLength);
    if (double(std::abs(near - time)) * msPerTick <= farthestShiftMs)
        return placeAt(time, near, msPerTick);
    auto place = placeBetween(grid, time, msPerTick);
    place.time = std::min(place.time, measureLength);
    return place;
}

template<typename Visit>
double placeAll(const Span &span, const Grid &grid, LengthPrices &prices, Visit visit)
{
    const auto length = span.measure.end - span.measure.start;
    double price = grid.price;
    Ticks previous = 0;
    for (const auto *onset = span.begin; onset != span.end; ++onset) {
        const auto place = placeOn(grid, onset->time - span.measure.start, onset->msPerTick, length);
        const auto time = std::max(place.time, previous);
        price += place.price + prices.of(time - previous);
        previous = time;
        visit(time);
    }
    return price + prices.of(length - previous);
}

// The cheapest way through the measures so far that ends with each grid.
class Line
{
public:
    void extend(const Span &span, LengthPrices &prices)
    {
        std::array<double, grids.size()> next{};
        auto &came = from_.emplace_back();
        for (size_t to = 0; to < grids.size(); ++to) {
            const auto best = cheapestBefore(grids[to]);
            came[to] = quint8(best);
            next[to] =
                costs_[best] + priceOfChange(grids[best], grids[to]) + placeAll(span, grids[to], prices, [](Ticks) {});
        }
        costs_ = next;
    }

    // A grid for each measure.
    std::vector<const Grid *> best() const
    {
        std::vector<const Grid *> line(from_.size());
        auto at = size_t(std::min_element(costs_.begin(), costs_.end()) - costs_.begin());
        for (auto i = from_.size(); i-- > 0; at = from_[i][at])
            line[i] = &grids[at];
        return line;
    }

private:
    size_t cheapestBefore(const Grid &to) const
    {
        if (from_.size() == 1) // nothing comes before the first measure
            return size_t(&to - grids.data());
        size_t best = 0;
        auto bestCost = std::numeric_limits<double>::max();
        for (size_t from = 0; from < grids.size(); ++from) {
            const auto cost = costs_[from] + priceOfChange(grids[from], to);
            if (cost < bestCost) {
                best = from;
                bestCost = cost;
            }
        }
        return best;
    }

    std::array<double, grids.size()> costs_{};
    std::vector<std::array<quint8, grids.size()>> from_; // by measure and grid: the grid of the measure before
};

} // namespace

std::vector<PlacedOnset> placeOnsets(const std::vector<Onset> &onsets, const Measures &measures, LengthPrices &prices,
                                     const std::stop_token &stop)
{
    const auto spans = spansOf(onsets, measures);
    Line line;
    for (const auto &span : spans) {
        throwIfStopped(stop);
        line.extend(span, prices);
    }
    std::vector<PlacedOnset> placed;
    placed.reserve(onsets.size());
    const auto chosen = line.best();
    for (size_t i = 0; i < spans.size(); ++i) {
        const auto &grid = *chosen[i];
        placeAll(spans[i], grid, prices, [&](Ticks time) {
            placed.push_back({spans[i].measure.start + time, grid.step, grid.secondStep});
        });
    }
    if (!spans.empty())
        placed.push_back({spans.back().measure.end, 0, 0});
    return placed;
}
