#pragma once

#include "base/SafeFile.h"

#include <QHash>
#include <QSet>

// Gives every title file names of its own, one after another; names that differ only in case are one on some file
// systems.
class FileNames
{
public:
    QString nextFor(const QString &title, const QString &ending)
    {
        const auto clean = SafeFile::cleanName(title);
        auto &number = numbers_[clean.toLower()];
        QString name;
        do {
            ++number;
            name = number == 1 ? clean : QStringLiteral("%1 (%2)").arg(clean).arg(number);
        } while (taken_.contains(name.toLower()));
        taken_.insert(name.toLower());
        return name + ending;
    }

private:
    QSet<QString> taken_;
    QHash<QString, int> numbers_; // the last that each title was given
};
