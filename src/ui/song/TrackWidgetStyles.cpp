#include "ui/song/TrackWidgetStyles.h"

#include "ui/Icons.h"
#include "ui/Theme.h"

namespace TrackWidgetStyles {

namespace {

constexpr char normal[] = "TrackWidget { border: 1px solid black; border-radius: 4px; \tbackground: "
                          "qlineargradient(x1: 0, y1: 0, x2: 0, y2: 1, "
                          "stop: 0 #DADADA, stop: 0.4 #CDCDCD, stop: 0.5 #C8C8C8, stop: 1.0 #B0B0B0); }";
constexpr char selected[] = "TrackWidget { border: 1px solid black; border-radius: 4px; background: "
                            "qlineargradient(x1: 0, y1: 0, x2: 0, y2: 1, "
                            "stop: 0 #EAEA9A, stop: 0.4 #DDDD8D, stop: 0.5 #D8D888, stop: 1.0 #C0C070); }";
constexpr char normalDark[] = "TrackWidget { border: 1px solid black; border-radius: 4px; background: "
                              "qlineargradient(x1: 0, y1: 0, x2: 0, y2: 1, "
                              "stop: 0 #4A4D52, stop: 0.4 #424549, stop: 0.5 #3E4145, stop: 1.0 #33363A); }";
constexpr char selectedDark[] = "TrackWidget { border: 1px solid black; border-radius: 4px; background: "
                                "qlineargradient(x1: 0, y1: 0, x2: 0, y2: 1, "
                                "stop: 0 #77733A, stop: 0.4 #6B6732, stop: 0.5 #66622E, stop: 1.0 #545022); }";

} // namespace

QString row(Look look)
{
    if (isDarkTheme())
        return QLatin1String(look == Look::Selected ? selectedDark : normalDark);
    return QLatin1String(look == Look::Selected ? selected : normal);
}

QString visualizationFrame()
{
    return QStringLiteral(
        "QFrame#frVisContainer\n{\n\tborder: 2px solid black;\n\tborder-radius: 4px;\n\tbackground-color: black;\n}");
}

QString selectionBox()
{
    return QStringLiteral("QCheckBox\n{\n\tmargin: 0px;\n\tpadding: 0px;\n}\nQCheckBox::indicator\n{\n"
                          "\tsubcontrol-position: center center;\n\tsubcontrol-origin: margin;\n"
                          "\tposition: absolute;\n}");
}

QString muteBox()
{
    return QStringLiteral("QCheckBox::indicator\n{\n\tsubcontrol-position: center center;\n}\n"
                          "QCheckBox::indicator:checked\n{\n\timage: url(%1);\n}\n"
                          "QCheckBox::indicator:unchecked\n{\n\timage: url(%2);\n}")
        .arg(iconFile(QStringLiteral("mutectx")), iconFile(QStringLiteral("soundctx")));
}

// As the editor marks what is not applied.
QString draftMark()
{
    return QStringLiteral("QLabel { background: #E8A317; color: black; border-radius: 3px; padding: 0px 5px; }");
}

// In the colours of the row, so that it does not cry.
QString findingsMark()
{
    return QStringLiteral("QToolButton { color: palette(window-text); background: transparent; padding: 0px 5px;"
                          " border: 1px solid #E8A317; border-radius: 7px; }"
                          "QToolButton:hover, QToolButton:focus { background: #E8A317; color: black; }");
}

} // namespace TrackWidgetStyles
