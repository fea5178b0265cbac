#pragma once

#include "core/HeaderFields.h"
#include "core/Track.h"

#include <optional>

enum class MajorQualifier { Omit, Include };

// The K value of a key-table row (0 = seven sharps … 14 = seven flats) and mode (0..6): "Am", "Dmix"; major is "C", or
// "Cmaj" with its qualifier.
QString keyText(quint32 row, quint32 mode, MajorQualifier major);

// The row and mode of a K value; nothing when the text holds no key.
std::optional<HeaderFields::Key> keyPosition(const QString &keyText);

// The track with a new K field and the same notes, its text to be written anew.
Track changeKey(const Track &track, const QString &keyText);
