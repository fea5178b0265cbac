#pragma once

#include "ui/Shortcuts.h"

#include <QVector>

// The keys that belong to controls and to the text, for the table of keys: nobody changes them. On the interface
// thread.
QVector<KeyRow> fixedKeys();
