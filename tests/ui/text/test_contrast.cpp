// Contrast ratios by the Web Content Accessibility Guidelines 2.1: 4.5 for text, 3 for signs.
#include "ui/Icons.h"
#include "ui/Theme.h"
#include "ui/roll/RollColours.h"
#include "ui/song/TrackWidgetStyles.h"
#include "ui/text/EditorColours.h"

#include <QApplication>
#include <QDir>
#include <QPalette>
#include <QRegularExpression>
#include <QtTest>

#include <algorithm>
#include <cmath>
#include <vector>

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

// What half of the ink of a drawing has at least; the rest are edges and fillings.
double contrastOf(const QImage &drawing, const QColor &ground)
{
    std::vector<double> ratios;
    for (int i = 0; i < drawing.width() * drawing.height(); ++i) {
        const auto ink = drawing.pixelColor(i % drawing.width(), i / drawing.width());
        if (ink.alpha() > 204)
            ratios.push_back(contrast(ink, ground));
    }
    if (ratios.empty())
        return 0;
    std::sort(ratios.begin(), ratios.end());
    return ratios[ratios.size() / 2];
}

// Of a row from its top to its bottom.
QVector<QColor> groundsOf(TrackWidgetStyles::Look look)
{
    static const QRegularExpression colour(QStringLiteral("stop: \\S+ (#[0-9A-F]{6})"));
    QVector<QColor> grounds;
    for (auto match = colour.globalMatch(TrackWidgetStyles::row(look)); match.hasNext();)
        grounds.append(QColor(match.next().captured(1)));
    return grounds;
}

} // namespace

class TestContrast : public QObject
{
    Q_OBJECT

private slots:
    void isEnough_data()
    {
        QTest::addColumn<double>("ratio");
        QTest::addColumn<double>("least");
        for (const auto theme : {Theme::Light, Theme::Dark}) {
            applyTheme(theme);
            const auto row = [&](const QString &name, const QColor &colour, const QColor &ground, double least) {
                QTest::addRow("%s %s", theme == Theme::Dark ? "dark" : "light", qPrintable(name))
                    << contrast(colour, ground) << least;
            };
            const auto sign = [&](const QString &name, const QColor &ground) {
                QTest::addRow("%s drawing %s on %s", theme == Theme::Dark ? "dark" : "light", qPrintable(name),
                              qPrintable(ground.name()))
                    << contrastOf(QImage(iconFile(name)), ground) << 3.0;
            };
            const auto palette = QApplication::palette();
            const auto window = palette.window().color(), base = palette.base().color();
            row(QStringLiteral("window"), palette.windowText().color(), window, 4.5);
            row(QStringLiteral("button"), palette.buttonText().color(), palette.button().color(), 4.5);
            row(QStringLiteral("input"), palette.text().color(), base, 4.5);
            row(QStringLiteral("tip"), palette.toolTipText().color(), palette.toolTipBase().color(), 4.5);
            row(QStringLiteral("link"), palette.link().color(), base, 4.5);
            row(QStringLiteral("focus"), palette.highlight().color(), base, 3);
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
                row(QLatin1String(name), colour, line, 4.5);
            row(QStringLiteral("ring"), focusColour(), window, 3);
            for (const auto look : {TrackWidgetStyles::Look::Normal, TrackWidgetStyles::Look::Selected}) {
                for (const auto &ground : groundsOf(look)) {
                    row(QStringLiteral("ring on ") + ground.name(), focusColour(), ground, 3);
                    for (const auto *const name : {"speaker-volume", "speaker-panning", "soundctx", "mutectx", "solo",
                                                   "edittrack", "deletetrack", "moveup", "movedown"})
                        sign(QLatin1String(name), ground);
                }
            }
            for (const auto &file : QDir(QStringLiteral(":/icons")).entryList({QStringLiteral("*.png")})) {
                const auto name = file.section(u'.', 0, 0);
                if (!name.endsWith(u"@2x") && name != u"appicon" && name != u"color-swatch") // a sign on its ground
                    sign(name, window);
            }
            const RollColours roll(palette, QColor(70, 130, 220));
            for (const auto &[name, note] : {std::pair("note", roll.note),
                                             {"selected note", roll.selected},
                                             {"sounding note", roll.sounding},
                                             {"faded note", roll.faded},
                                             {"ghost", roll.ghost}}) {
                row(QStringLiteral("text of ") + QLatin1String(name), over(note.fill, note.text), note.fill, 2);
                row(QStringLiteral("edge of ") + QLatin1String(name), note.edge, note.fill, 1.1);
                row(QLatin1String(name), note.fill, roll.whiteRow, 1.2);
            }
            for (const auto &[name, film] :
                 {std::pair("row", QColor(0, 0, 0, 0)), {"unplayable", roll.unplayable}, {"end", roll.afterEnd}})
                row(QStringLiteral("text over ") + QLatin1String(name), roll.rulerText, over(roll.whiteRow, film), 4.5);
            for (const auto &[name, colour] : {std::pair("error", roll.error),
                                               {"warning", roll.warning},
                                               {"cursor", roll.cursor},
                                               {"position", roll.playing},
                                               {"number", roll.rulerText}})
                row(QStringLiteral("ruler's ") + QLatin1String(name), colour, roll.ruler, 2);
            row(QStringLiteral("key's name"), roll.keyText, roll.whiteKey, 4.5);
            row(QStringLiteral("black key"), roll.blackKey, roll.whiteKey, 4.5);
            row(QStringLiteral("problem"), colours.problem, line, 3);
            row(QStringLiteral("warning"), colours.warning, line, 3);
        }
    }

    void isEnough()
    {
        QFETCH(double, ratio);
        QFETCH(double, least);
        QVERIFY2(ratio >= least, qPrintable(QString::number(ratio)));
    }
};

QTEST_MAIN(TestContrast)
#include "test_contrast.moc"
