#include "ui/roll/RollColours.h"

namespace {

// From one colour, at 0, to another, at 1.
QColor mixed(const QColor &from, const QColor &to, qreal part)
{
    const auto channel = [part](int a, int b) { return qRound(a + (b - a) * part); };
    return {channel(from.red(), to.red()), channel(from.green(), to.green()), channel(from.blue(), to.blue())};
}

QColor withAlpha(QColor colour, int alpha)
{
    colour.setAlpha(alpha);
    return colour;
}

// How bright the eye sees it, 0 to 255.
int brightness(const QColor &colour)
{
    return (colour.red() * 299 + colour.green() * 587 + colour.blue() * 114) / 1000;
}

RollColours::Note noteColours(const QColor &fill)
{
    const bool isBright = brightness(fill) > 140;
    return {fill, mixed(fill, Qt::black, 0.38), isBright ? QColor(24, 24, 28) : QColor(Qt::white)};
}

} // namespace

RollColours::RollColours(const QPalette &palette, const QColor &noteColour)
{
    const auto base = palette.color(QPalette::Base);
    const auto ink = palette.color(QPalette::Text);
    const bool isDark = brightness(base) < brightness(ink);

    whiteRow = base;
    blackRow = mixed(base, isDark ? QColor(Qt::black) : ink, isDark ? 0.22 : 0.045);
    rowLine = mixed(base, ink, 0.07);
    octaveLine = mixed(base, ink, 0.26);
    snapLine = mixed(base, ink, 0.06);
    beatLine = mixed(base, ink, 0.14);
    measureLine = mixed(base, ink, 0.38);
    unplayable = withAlpha(isDark ? QColor(Qt::black) : ink, isDark ? 110 : 38);
    silent = withAlpha(isDark ? QColor(255, 150, 110) : QColor(190, 60, 30), isDark ? 56 : 64);
    afterEnd = withAlpha(isDark ? QColor(Qt::black) : ink, isDark ? 44 : 10);

    whiteKey = isDark ? QColor(222, 222, 226) : QColor(253, 253, 254);
    blackKey = isDark ? QColor(38, 39, 43) : QColor(58, 60, 66);
    keyLine = isDark ? QColor(120, 120, 126) : QColor(188, 190, 196);
    keyText = QColor(70, 72, 80);
    ruler = palette.color(QPalette::Window);
    rulerText = palette.color(QPalette::WindowText);
    rulerMark = mixed(ruler, rulerText, 0.35);

    error = isDark ? QColor(255, 107, 94) : QColor(217, 45, 32);
    warning = isDark ? QColor(242, 180, 60) : QColor(214, 138, 0);
    cursor = isDark ? QColor(120, 200, 255) : QColor(0, 110, 190);
    playing = isDark ? QColor(255, 96, 96) : QColor(216, 36, 52);
    band = palette.color(QPalette::Highlight);

    const auto fill = isDark ? mixed(noteColour, Qt::white, 0.22) : noteColour;
    note = noteColours(fill);
    selected = noteColours(isDark ? QColor(255, 184, 64) : QColor(250, 158, 20));
    sounding = noteColours(isDark ? QColor(255, 120, 120) : QColor(236, 64, 80));
    const auto shade = mixed(base, ink, isDark ? 0.28 : 0.2);
    ghost = {shade, mixed(base, ink, isDark ? 0.38 : 0.3), mixed(base, ink, 0.6)};
    faded = {mixed(base, fill, 0.25), mixed(base, fill, 0.4), withAlpha(ink, 120)};
}
