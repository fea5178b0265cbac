#pragma once

#include <QByteArray>
#include <QString>

inline const QString demoGame = QStringLiteral(DEMO_GAME);
inline const QString songs = QStringLiteral(EXAMPLES);
inline const QString jig = songs + QStringLiteral("/harbour-jig.mid");
inline const QString hymn = songs + QStringLiteral("/winter-hymn.mid");

inline QByteArray abc(const char *title, const char *tempo = "1/4=120", const char *more = "")
{
    return QByteArray("X:1\nT:") + title + "\n" + more + "L:1/4\nQ:" + tempo + "\nK:C\nCDEF|GABc|\n";
}
