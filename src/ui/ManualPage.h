#pragma once

#include <QVariant>
#include <QWidget>

// Which page of docs/manual F1 opens in a window or dialog; the contents where nobody said.
inline constexpr const char *manualPageProperty = "manualPage";

inline void setManualPage(QWidget &window, const char *name)
{
    window.setProperty(manualPageProperty, QString(QLatin1String(name)));
}

inline QString manualPage(const QWidget &window)
{
    return window.property(manualPageProperty).toString();
}
