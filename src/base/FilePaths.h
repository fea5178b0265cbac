#pragma once

#include <QString>

// Whether a path, which need not exist, is within a directory when "." and ".." are followed.
bool isInside(const QString &directory, const QString &path);

// Whether symbolic links lead from a path to somewhere outside of a directory. Both are looked up on disk; what is not
// there leads nowhere.
bool leadsOutOf(const QString &directory, const QString &path);
