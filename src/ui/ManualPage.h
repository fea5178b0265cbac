#pragma once

#include <QVariant>
#include <QWidget>

// Which page of docs/manual F1 opens in a window or dialog; where nobody said, that of the window it belongs to.
inline constexpr const char *manualPageProperty = "manualPage";

inline void setManualPage(QWidget &window, const char *name)
{
    window.setProperty(manualPageProperty, QString(QLatin1String(name)));
}

// Empty where no window on the way up has one.
inline QString manualPage(const QWidget &window)
{
    for (const QWidget *widget = &window; widget != nullptr; widget = widget->parentWidget()) {
        if (const auto page = widget->property(manualPageProperty).toString(); !page.isEmpty())
            return page;
    }
    return {};
}
