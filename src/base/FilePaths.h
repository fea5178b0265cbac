#pragma once

#include <QString>
#include <QStringList>

// Whether a path, which need not exist, is within a directory when "." and ".." are followed.
bool isInside(const QString &directory, const QString &path);

// Whether symbolic links lead from a path to somewhere outside of a directory. Both are looked up on disk; what is not
// there leads nowhere.
bool leadsOutOf(const QString &directory, const QString &path);

// The files and folders that "*" and "?" in the last part of a path stand for, by their names, whatever their case, as
// shells have it but for those of Windows. The path itself where there are none, or it exists.
QStringList expandedWildcards(const QString &path);
