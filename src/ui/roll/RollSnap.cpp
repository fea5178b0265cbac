#include "ui/roll/RollSnap.h"

#include "edit/NoteText.h"

#include <QCoreApplication>

#include <array>

namespace {

// A step as a part of the unit length. A triplet's is two thirds of the length that names it.
struct Part
{
    int numerator;
    int denominator;
    bool isTriplet;
};

constexpr std::array parts{Part{4, 1, false}, Part{2, 1, false}, Part{1, 1, false},
                           Part{1, 2, false}, Part{1, 4, false}, Part{1, 8, false},
                           Part{2, 1, true},  Part{1, 1, true},  Part{1, 2, true}};

} // namespace

int RollSnap::choiceCount()
{
    return int(parts.size()) + 1;
}

Ticks RollSnap::stepOf(int choice) const
{
    if (choice >= int(parts.size()))
        return 1;
    const auto &part = parts[size_t(choice)];
    const auto named = scaled(unit_, quint64(part.numerator), quint64(part.denominator));
    return std::max(Ticks(1), part.isTriplet ? scaled(named, 2, 3) : named);
}

QString RollSnap::label(int choice) const
{
    if (choice >= int(parts.size()))
        return QCoreApplication::translate("RollSnap", "Off");
    const auto &part = parts[size_t(choice)];
    const auto name = NoteText::length(scaled(unit_, quint64(part.numerator), quint64(part.denominator)));
    return part.isTriplet ? QCoreApplication::translate("RollSnap", "%1 triplet").arg(name) : name;
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
