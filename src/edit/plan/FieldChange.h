#pragma once

#include "edit/AbcReading.h"

#include <optional>

// A field of the header changed, and with it how the notes are written, but not what sounds. Bar lines, comments and
// all else that is no note stay to the byte. Nothing where rare notations make that impossible.
namespace FieldChange {

// key: the value of a K field. Notes behind a K field in the music stay as they are.
std::optional<QString> inKey(const QString &text, const AbcReading &reading, const QString &key);

// unitLength: a fraction. Tempos that count unit lengths get their beat written down.
std::optional<QString> inUnitLength(const QString &text, const AbcReading &reading, const QString &unitLength);

} // namespace FieldChange
