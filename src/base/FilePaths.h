#pragma once

#include <QString>

// Whether a path, which need not exist, is within a directory when "." and ".." are followed.
bool isInside(const QString &directory, const QString &path);
