#pragma once

#include <QIcon>

// The program's own drawing of that name, for every scale.
inline QIcon icon(const char *name)
{
    return QIcon(QStringLiteral(":/icons/%1.png").arg(QLatin1String(name)));
}
