#pragma once

#include "base/ByteReader.h"

#include <QVariant>

// Reads the metadata of a package: a count, then that many pairs of key and value. Values are null, double, bool,
// unsigned 64-bit integer, string, list or map. Pairs that the bytes do not hold whole are left out, the later of two
// with one key counts, and a type that is not known is a null and a logged warning. Throws when lists and maps are
// nested more than 64 deep.
QVariantMap readMetadata(ByteReader &in);
