#pragma once

#include "packages/Files.h"

#include <QVariant>

// A package in the game's current format. Its metadata values are doubles, booleans, quint64s, strings, lists and maps.
QByteArray currentPackage(const Files &files, const QVariantMap &metadata);
