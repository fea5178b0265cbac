#include "ui/roll/RollSnap.h"

#include "edit/NoteText.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>

namespace {

// A part of a whole note. A triplet's is two thirds of the length that names it.
struct Length
{
    int denominator;
    bool isTriplet = false;

    Ticks ticks() const { return ticksPerWholeNote / denominator * (isTriplet ? 2 : 3) / 3; }
};

constexpr std::array lengths{Length{1},       Length{2},       Length{4},        Length{8},
                             Length{16},      Length{32},      Length{64},       Length{2, true},
                             Length{4, true}, Length{8, true}, Length{16, true}, Length{32, true}};

bool isPlain(Ticks ticks)
{
    return std::any_of(lengths.begin(), lengths.end(),
                       [ticks](const Length &length) { return !length.isTriplet && length.ticks() == ticks; });
}

// Times the ratio, or divided by it where that gives a plain length.
Ticks toggled(Ticks length, Ticks numerator, Ticks denominator)
{
    const auto plain = length * denominator / numerator;
    return std::max(Ticks(1), isPlain(plain) ? plain : length * numerator / denominator);
}

} // namespace

namespace RollLengths {

int count()
{
    return int(lengths.size());
}

Ticks ticks(int choice)
{
    return lengths[size_t(choice)].ticks();
}

QString label(int choice)
{
    const auto &length = lengths[size_t(choice)];
    const auto name = QStringLiteral("1/%1").arg(length.denominator);
    return length.isTriplet ? QCoreApplication::translate("RollSnap", "%1 triplet").arg(name) : name;
}

QString labelOf(Ticks length)
{
    for (int choice = 0; choice < count(); ++choice) {
        if (ticks(choice) == length)
            return label(choice);
    }
    return isDotted(length)
               ? QCoreApplication::translate("RollSnap", "%1 dotted").arg(NoteText::length(withDotToggled(length)))
               : NoteText::length(length);
}

bool isDotted(Ticks length)
{
    return isPlain(length * 2 / 3) && length % 3 == 0;
}

bool isTriplet(Ticks length)
{
    return length % 2 == 0 && isPlain(length / 2 * 3);
}

Ticks withDotToggled(Ticks length)
{
    return toggled(length, 3, 2);
}

Ticks withTripletToggled(Ticks length)
{
    return toggled(length, 2, 3);
}

int atMost(Ticks length)
{
    int choice = 0;
    while (lengths[size_t(choice)].ticks() > length && !lengths[size_t(choice) + 1].isTriplet)
        ++choice;
    return choice;
}

} // namespace RollLengths

void RollSnap::setChoice(int choice)
{
    choice_ = choice;
    isChosen_ = true;
}

void RollSnap::setUnit(Ticks unit)
{
    if (!isChosen_)
        choice_ = RollLengths::atMost(unit);
}

QString RollSnap::label(int choice)
{
    return choice < RollLengths::count() ? RollLengths::label(choice) : QCoreApplication::translate("RollSnap", "Off");
}

Ticks RollSnap::floor(Ticks tick, const Measures &measures) const
{
    const auto start = measures.at(tick).start;
    return start + (tick - start) / step() * step();
}

Ticks RollSnap::nearest(Ticks tick, const Measures &measures) const
{
    const auto before = floor(tick, measures);
    const auto after = std::min(before + step(), measures.at(tick).end);
    return tick - before < after - tick ? before : after;
}
