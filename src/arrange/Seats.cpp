#include "arrange/Seats.h"

#include "base/Interrupted.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace {

constexpr qint64 impossible = std::numeric_limits<qint64>::max() / 4;
constexpr int fewEnough = 32; // parts to compare all of with all
constexpr qint64 playerPrice = 1000;
constexpr int outOfRange = 100;

using Line = std::vector<const ArrangeNote *>; // in the order of all notes

// Voices that play what comes, the first that is free first.
class Pressure
{
public:
    explicit Pressure(int voices) : free_(size_t(voices), -1) {}

    void add(const ArrangeNote &note)
    {
        const auto first = std::min_element(free_.begin(), free_.end());
        if (*first <= note.start)
            *first = note.start + note.length - note.length / 4;
        else
            lost_ += note.weight;
    }
    qint64 lost() const { return lost_; }

private:
    std::vector<Ticks> free_;
    qint64 lost_ = 0;
};

qint64 lostOf(const Line &line, int voices)
{
    Pressure pressure(voices);
    for (const auto *const note : line)
        pressure.add(*note);
    return pressure.lost();
}

// As of the merged line, which is not made.
qint64 lostOf(const Line &a, const Line &b, int voices)
{
    Pressure pressure(voices);
    auto left = a.begin();
    auto right = b.begin();
    while (left != a.end() || right != b.end()) {
        const bool isLeft = right == b.end() || (left != a.end() && *left < *right); // all stand in one array
        pressure.add(**(isLeft ? left++ : right++));
    }
    return pressure.lost();
}

struct Group
{
    QVector<int> parts;
    Line line;
    int players = 1;
    bool isPercussion = false;
    qint64 lost = 0;

    int size() const { return int(line.size()); }
};

class SeatPlan
{
public:
    SeatPlan(const QVector<SourcePart> &parts, const ArrangeNotes &notes, const Lines &lines,
             const ArrangeOptions &options, const std::stop_token &stop);

    std::vector<Seat> make();

private:
    struct Pair
    {
        size_t a = 0;
        size_t b = 0;
        qint64 cost = impossible;
    };

    void dropDrums();
    bool mayMerge(const Group &a, const Group &b) const;
    bool holds(const Group &group, std::optional<int> part) const { return part && group.parts.contains(*part); }
    qint64 mergeCost(const Group &a, const Group &b) const;
    qint64 changeCost(const Group &a, const Group &b) const;
    void compareAll();
    void compare(size_t index);
    Pair cheapest() const;
    Pair cheapestFor(size_t index) const;
    Pair cheapestForSmallest() const;
    void merge(const Pair &pair);
    int players() const;
    std::pair<size_t, qint64> bestSplit() const;
    void addPlayerTo(size_t index);
    void spread();
    void exchange();
    std::vector<Seat> seats() const;
    void checkStop() const
    {
        if (stop_.stop_requested())
            throw Interrupted();
    }

    const QVector<SourcePart> &parts_;
    const Lines &lines_;
    const ArrangeOptions &options_;
    const std::stop_token &stop_;
    std::vector<Group> groups_;
    std::vector<std::vector<qint64>> costs_; // of merging the row's group with one before it
};

SeatPlan::SeatPlan(const QVector<SourcePart> &parts, const ArrangeNotes &notes, const Lines &lines,
                   const ArrangeOptions &options, const std::stop_token &stop)
    : parts_(parts), lines_(lines), options_(options), stop_(stop)
{
    groups_.resize(size_t(parts.size()));
    for (int i = 0; i < parts.size(); ++i) {
        groups_[size_t(i)].parts = {i};
        groups_[size_t(i)].isPercussion = parts[i].isPercussion;
    }
    for (const auto &note : notes)
        groups_[size_t(note.part)].line.push_back(&note);
    groups_.erase(std::remove_if(groups_.begin(), groups_.end(), [](const Group &group) { return group.line.empty(); }),
                  groups_.end());
    for (auto &group : groups_)
        group.lost = lostOf(group.line, options.voices);
}

// Melody and bass come first.
void SeatPlan::dropDrums()
{
    const auto isDrums = [](const Group &group) { return group.isPercussion; };
    const bool areMixed =
        std::any_of(groups_.begin(), groups_.end(), isDrums) && !std::all_of(groups_.begin(), groups_.end(), isDrums);
    if (areMixed && options_.players < 3)
        groups_.erase(std::remove_if(groups_.begin(), groups_.end(), isDrums), groups_.end());
}

bool SeatPlan::mayMerge(const Group &a, const Group &b) const
{
    const bool areLines =
        (holds(a, lines_.melody) && holds(b, lines_.bass)) || (holds(b, lines_.melody) && holds(a, lines_.bass));
    return a.isPercussion == b.isPercussion && a.players == 1 && b.players == 1 && (!areLines || options_.players == 1);
}

qint64 SeatPlan::changeCost(const Group &a, const Group &b) const
{
    const bool isSwapped = a.size() < b.size();
    const auto &larger = parts_[(isSwapped ? b : a).parts.first()];
    const auto &smaller = isSwapped ? a : b;
    qint64 cost = 0;
    if (larger.instrument != parts_[smaller.parts.first()].instrument)
        cost += qint64(ArrangeCost::otherPlayer) * smaller.size();
    for (const auto *const note : smaller.line)
        cost += larger.range.contains(note->pitch) ? 0 : outOfRange;
    return cost;
}

qint64 SeatPlan::mergeCost(const Group &a, const Group &b) const
{
    if (!mayMerge(a, b))
        return impossible;
    checkStop();
    return lostOf(a.line, b.line, options_.voices) - a.lost - b.lost + changeCost(a, b);
}

void SeatPlan::compareAll()
{
    costs_.resize(groups_.size());
    for (size_t row = 0; row < groups_.size(); ++row) {
        costs_[row].resize(row);
        for (size_t column = 0; column < row; ++column)
            costs_[row][column] = mergeCost(groups_[row], groups_[column]);
    }
}

void SeatPlan::compare(size_t index)
{
    for (size_t other = 0; other < groups_.size(); ++other) {
        if (other != index)
            costs_[std::max(index, other)][std::min(index, other)] = mergeCost(groups_[index], groups_[other]);
    }
}

SeatPlan::Pair SeatPlan::cheapest() const
{
    Pair best;
    for (size_t row = 0; row < costs_.size(); ++row) {
        for (size_t column = 0; column < row; ++column) {
            if (costs_[row][column] < best.cost)
                best = {column, row, costs_[row][column]};
        }
    }
    return best;
}

SeatPlan::Pair SeatPlan::cheapestFor(size_t index) const
{
    Pair best;
    for (size_t other = 0; other < groups_.size(); ++other) {
        const auto cost = other == index ? impossible : mergeCost(groups_[index], groups_[other]);
        if (cost < best.cost)
            best = {std::min(index, other), std::max(index, other), cost};
    }
    return best;
}

SeatPlan::Pair SeatPlan::cheapestForSmallest() const
{
    std::vector<size_t> bySize(groups_.size());
    std::iota(bySize.begin(), bySize.end(), size_t(0));
    std::stable_sort(bySize.begin(), bySize.end(),
                     [this](size_t a, size_t b) { return groups_[a].size() < groups_[b].size(); });
    for (const auto index : bySize) {
        if (const auto pair = cheapestFor(index); pair.cost < impossible)
            return pair;
    }
    return {};
}

// The part with more notes, or the melody or bass, leads.
void SeatPlan::merge(const Pair &pair)
{
    auto &a = groups_[pair.a];
    auto &b = groups_[pair.b];
    const auto rank = [this](const Group &group) {
        return std::make_pair(holds(group, lines_.melody) || holds(group, lines_.bass), group.size());
    };
    a.parts = rank(a) < rank(b) ? b.parts + a.parts : a.parts + b.parts;
    Line line;
    line.reserve(a.line.size() + b.line.size());
    std::merge(a.line.begin(), a.line.end(), b.line.begin(), b.line.end(), std::back_inserter(line));
    a.line = std::move(line);
    a.lost = lostOf(a.line, options_.voices);
    groups_.erase(groups_.begin() + qsizetype(pair.b));
    if (costs_.empty())
        return;
    costs_.erase(costs_.begin() + qsizetype(pair.b));
    for (auto row = pair.b; row < costs_.size(); ++row)
        costs_[row].erase(costs_[row].begin() + qsizetype(pair.b));
    compare(pair.a);
}

int SeatPlan::players() const
{
    int players = 0;
    for (const auto &group : groups_)
        players += group.players;
    return players;
}

std::pair<size_t, qint64> SeatPlan::bestSplit() const
{
    std::pair<size_t, qint64> best{0, 0};
    for (size_t i = 0; i < groups_.size(); ++i) {
        const auto &group = groups_[i];
        if (group.lost == 0)
            continue;
        checkStop();
        const auto gain = group.lost - lostOf(group.line, (group.players + 1) * options_.voices) - playerPrice;
        if (gain > best.second)
            best = {i, gain};
    }
    return best;
}

void SeatPlan::addPlayerTo(size_t index)
{
    auto &group = groups_[index];
    ++group.players;
    group.lost = lostOf(group.line, group.players * options_.voices);
    compare(index);
}

void SeatPlan::spread()
{
    while (players() < options_.players) {
        const auto [index, gain] = bestSplit();
        if (gain == 0)
            break;
        addPlayerTo(index);
    }
}

// A merge may take the group that gains; then it is not worth it.
void SeatPlan::exchange()
{
    for (int round = 0; round < options_.players && players() == options_.players; ++round) {
        const auto [index, gain] = bestSplit();
        const auto pair = cheapest();
        if (gain <= pair.cost || index == pair.a || index == pair.b)
            break;
        addPlayerTo(index);
        merge(pair);
    }
}

std::vector<Seat> SeatPlan::make()
{
    dropDrums();
    while (groups_.size() > fewEnough && players() > options_.players)
        merge(cheapestForSmallest());
    compareAll();
    while (players() > options_.players)
        merge(cheapest());
    spread();
    exchange();
    return seats();
}

std::vector<Seat> SeatPlan::seats() const
{
    std::vector<Seat> seats;
    for (const auto &group : groups_) {
        const auto &leader = parts_[group.parts.first()];
        for (int number = 0; number < group.players; ++number)
            seats.push_back({group.parts, leader.instrument, leader.range, group.isPercussion, number, group.players});
    }
    return seats;
}

} // namespace

std::vector<Seat> seatsFor(const QVector<SourcePart> &parts, const ArrangeNotes &notes, const Lines &lines,
                           const ArrangeOptions &options, const std::stop_token &stop)
{
    return SeatPlan(parts, notes, lines, options, stop).make();
}
