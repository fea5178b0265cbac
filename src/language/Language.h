#pragma once

#include <QLocale>
#include <QString>
#include <QVector>

// The language that the window speaks. The texts of the sources are English; a translation that is installed stands in
// for them wherever tr() or QCoreApplication::translate() is asked.
namespace Language {

struct Choice
{
    QString code; // of ISO 639: "de"
    QString name; // as those call it who speak it
};

QVector<Choice> choices();

// The first choice among the languages that the user's system names, in its order ("en-GB", "de"); English when it
// names none that is here. [any]
QString best(const QStringList &systemLanguages);

// Installs the texts of the language, Qt's own too, and makes its numbers and dates the usual ones. Nothing that has
// made its texts before will change them. code: of a choice; with any other the system decides. Once, before the first
// window. [ui]
void start(const QString &code);

} // namespace Language
