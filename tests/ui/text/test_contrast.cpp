// Contrast ratios by the Web Content Accessibility Guidelines 2.1: 4.5 for text, 3 for signs.
#include "ui/Theme.h"
#include "ui/text/EditorColours.h"

#include <QApplication>
#include <QPalette>
#include <QtTest>

#include <algorithm>
#include <cmath>

namespace {

double luminance(const QColor &colour)
{
    const auto linear = [](double value) {
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

double contrast(const QColor &a, const QColor &b)
{
    const auto [dark, light] = std::minmax({luminance(a), luminance(b)});
    return (light + 0.05) / (dark + 0.05);
}

QColor over(const QColor &ground, const QColor &film)
{
    const auto mixed = [&](double below, double above) { return below + double(film.alphaF()) * (above - below); };
    return QColor::fromRgbF(mixed(ground.redF(), film.redF()), mixed(ground.greenF(), film.greenF()),
                            mixed(ground.blueF(), film.blueF()));
}

} // namespace

class TestContrast : public QObject
{
    Q_OBJECT

private slots:
    void isEnough_data()
    {
        QTest::addColumn<QColor>("colour");
        QTest::addColumn<QColor>("ground");
        QTest::addColumn<double>("least");
        for (const auto theme : {Theme::Light, Theme::Dark}) {
            applyTheme(theme);
            const auto row = [&](const char *name, const QColor &colour, const QColor &ground, double least) {
                QTest::addRow("%s %s", theme == Theme::Dark ? "dark" : "light", name) << colour << ground << least;
            };
            const auto palette = QApplication::palette();
            const auto window = palette.window().color(), base = palette.base().color();
            row("window", palette.windowText().color(), window, 4.5);
            row("button", palette.buttonText().color(), palette.button().color(), 4.5);
            row("input", palette.text().color(), base, 4.5);
            row("tip", palette.toolTipText().color(), palette.toolTipBase().color(), 4.5);
            row("link", palette.link().color(), base, 4.5);
            row("focus", palette.highlight().color(), base, 3);
            const auto &colours = EditorColours::of(palette);
            const auto line = over(base, colours.currentLine);
            for (const auto &[name, colour] : {std::pair("field", colours.field),
                                               {"note", colours.note},
                                               {"accidental", colours.accidental},
                                               {"length", colours.length},
                                               {"rest", colours.rest},
                                               {"bar", colours.bar},
                                               {"chord", colours.chord},
                                               {"tuplet", colours.tuplet},
                                               {"decoration", colours.decoration},
                                               {"text", colours.text},
                                               {"comment", colours.comment},
                                               {"tie", colours.tie},
                                               {"line number", colours.lineNumber}})
                row(name, colour, line, 4.5);
            row("problem", colours.problem, line, 3);
            row("warning", colours.warning, line, 3);
        }
    }

    void isEnough()
    {
        QFETCH(QColor, colour);
        QFETCH(QColor, ground);
        QFETCH(double, least);
        const auto ratio = contrast(colour, ground);
        QVERIFY2(ratio >= least, qPrintable(QString::number(ratio)));
    }
};

QTEST_MAIN(TestContrast)
#include "test_contrast.moc"
