#pragma once

#include <optional>
#include <string>

enum class Better { More, Less };

// What a benchmark program answers for: a measured value, the worst that is good enough, and what we would like.
struct Figure
{
    std::string name;
    double value;
    double gate;
    std::optional<double> aim;
    Better better = Better::More;

    bool isGood() const { return better == Better::More ? value >= gate : value <= gate; }
};

// Prints the figure, and adds it as a row (name, value, gate, aim, "yes" or "NO", with tabs between) to the file that
// COMPOSER_FIGURES names, from which ./bench makes its table. Returns whether it is good.
bool report(const Figure &figure);
