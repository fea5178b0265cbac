#include "import/quantise/NoteLengths.h"

#include <algorithm>
#include <limits>

namespace {

constexpr double shortestToleranceMs = 25;
constexpr double tolerance = 0.2; // of a note's length
constexpr Ticks finestStep = ticksPerWholeNote / 64;
constexpr double unaffordable = std::numeric_limits<double>::max() / 1e10;

struct Choice
{
    Ticks length = 0;
    double price = unaffordable;

    void offer(Ticks other, double otherPrice)
    {
        if (otherPrice < price)
            *this = {other, otherPrice};
    }
};

// The best lengths of a note: of all, of those that reach the next onset, and the one that just reaches it.
struct Choices
{
    Choice any;
    Choice longEnough;
    Choice exact;
};

class LengthChooser
{
public:
    LengthChooser(const std::vector<PlacedOnset> &places, LengthPrices &prices) : places_(places), prices_(prices) {}

    void chooseFor(const LooseNote *begin, const LooseNote *end, std::vector<Ticks> &lengths);

private:
    Choices choicesOf(const LooseNote &note);
    void offer(const LooseNote &note, Ticks length, Choices &choices);
    void offerMultiples(const LooseNote &note, Ticks step, Choices &choices);
    void offerOnsets(const LooseNote &note, Choices &choices);
    double priceOfGap(Ticks shortest, bool isChord);
    void appendTouching(std::vector<Ticks> &lengths) const;

    const std::vector<PlacedOnset> &places_;
    LengthPrices &prices_;
    Ticks start_ = 0;
    size_t next_ = 0;  // the first place behind the start
    Ticks toNext_ = 0; // 0 behind the last
    std::vector<Choices> choices_;
};

void LengthChooser::offer(const LooseNote &note, Ticks length, Choices &choices)
{
    if (length <= 0 || length > note.longest)
        return;
    const auto ms = [&](Ticks ticks) { return double(ticks) * note.msPerTick; };
    const auto allowed = std::max(shortestToleranceMs, tolerance * ms(note.playedLength));
    const auto shift = ms(start_ + length - note.playedEnd) / allowed;
    const auto price = shift * shift + prices_.of(length);
    choices.any.offer(length, price);
    if (length >= toNext_)
        choices.longEnough.offer(length, price);
    if (length == toNext_)
        choices.exact.offer(length, price);
}

void LengthChooser::offerMultiples(const LooseNote &note, Ticks step, Choices &choices)
{
    if (step == 0)
        return;
    const auto shorter = std::max(Ticks(0), note.playedEnd - start_) / step * step;
    offer(note, shorter, choices);
    offer(note, shorter + step, choices);
}

void LengthChooser::offerOnsets(const LooseNote &note, Choices &choices)
{
    const auto isBefore = [](const PlacedOnset &place, Ticks time) { return place.time < time; };
    const auto from = places_.begin() + qsizetype(next_);
    const auto behind = std::lower_bound(from, places_.end(), note.playedEnd, isBefore);
    if (behind != places_.end())
        offer(note, behind->time - start_, choices);
    if (behind != from)
        offer(note, std::prev(behind)->time - start_, choices);
    offer(note, toNext_, choices);
}

Choices LengthChooser::choicesOf(const LooseNote &note)
{
    Choices choices;
    const auto &place = places_[note.onset];
    offerOnsets(note, choices);
    for (const auto step : {place.step, place.secondStep, prices_.unit(), 2 * prices_.unit()})
        offerMultiples(note, step, choices);
    auto step = place.step; // as fine as a short note needs it
    while (step > finestStep && 2 * step > note.playedLength)
        step /= 2;
    offerMultiples(note, step, choices);
    offerMultiples(note, 2 * step, choices);
    if (choices.any.length == 0 || note.playedEnd - start_ > note.longest)
        offer(note, note.longest, choices);
    return choices;
}

// The text beside the notes themselves when the shortest does not end where the next notes start.
double LengthChooser::priceOfGap(Ticks shortest, bool isChord)
{
    if (toNext_ == 0 || shortest == toNext_)
        return 0;
    if (shortest < toNext_)
        return 2 + prices_.of(toNext_ - shortest);  // the rest and a blank
    return (isChord ? 1 : 3) + prices_.of(toNext_); // the rest, and brackets around a single note
}

// All reach the next notes; the one for which that costs least beyond its own choice touches them.
void LengthChooser::appendTouching(std::vector<Ticks> &lengths) const
{
    const auto extra = [](const Choices &choices) { return choices.exact.price - choices.longEnough.price; };
    const auto touching = std::min_element(choices_.begin(), choices_.end(),
                                           [&](const Choices &a, const Choices &b) { return extra(a) < extra(b); });
    for (auto choices = choices_.begin(); choices != choices_.end(); ++choices)
        lengths.push_back(choices == touching ? choices->exact.length : choices->longEnough.length);
}

void LengthChooser::chooseFor(const LooseNote *begin, const LooseNote *end, std::vector<Ticks> &lengths)
{
    start_ = places_[begin->onset].time;
    for (next_ = std::max(next_, begin->onset); next_ < places_.size() && places_[next_].time == start_;)
        ++next_;
    toNext_ = next_ < places_.size() ? places_[next_].time - start_ : 0;
    choices_.clear();
    double loose = 0;
    double touching = 0;
    auto leastExtra = unaffordable;
    auto shortest = maxTicks;
    for (const auto *note = begin; note != end; ++note) {
        const auto &choices = choices_.emplace_back(choicesOf(*note));
        loose += choices.any.price;
        touching += choices.longEnough.price;
        leastExtra = std::min(leastExtra, choices.exact.price - choices.longEnough.price);
        shortest = std::min(shortest, choices.any.length);
    }
    if (toNext_ > 0 && touching + leastExtra <= loose + priceOfGap(shortest, end - begin > 1)) {
        appendTouching(lengths);
        return;
    }
    for (const auto &choices : choices_)
        lengths.push_back(choices.any.length);
}

} // namespace

std::vector<Ticks> chooseLengths(const std::vector<LooseNote> &notes, const std::vector<PlacedOnset> &places,
                                 LengthPrices &prices)
{
    std::vector<Ticks> lengths;
    lengths.reserve(notes.size());
    LengthChooser chooser(places, prices);
    for (size_t begin = 0; begin < notes.size();) {
        auto end = begin;
        while (end < notes.size() && places[notes[end].onset].time == places[notes[begin].onset].time)
            ++end;
        chooser.chooseFor(notes.data() + begin, notes.data() + end, lengths);
        begin = end;
    }
    return lengths;
}
