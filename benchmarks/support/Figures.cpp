#include "support/Figures.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iomanip>
#include <sstream>

namespace {

std::string text(double value)
{
    std::ostringstream stream;
    stream << std::setprecision(3) << value;
    return stream.str();
}

} // namespace

bool report(const Figure &figure)
{
    const auto value = text(figure.value);
    const auto gate = (figure.better == Better::More ? ">= " : "<= ") + text(figure.gate);
    const auto aim = figure.aim ? text(*figure.aim) : "-";
    std::printf("%s: %s (gate %s, aim %s)\n", figure.name.c_str(), value.c_str(), gate.c_str(), aim.c_str());
    if (const auto *const path = std::getenv("COMPOSER_FIGURES")) {
        std::ofstream(path, std::ios::app) << figure.name << '\t' << value << '\t' << gate << '\t' << aim << '\t'
                                           << (figure.isGood() ? "yes" : "NO") << '\n';
    }
    return figure.isGood();
}
