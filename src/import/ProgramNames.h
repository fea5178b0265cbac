#pragma once

#include <QString>

// The General MIDI Level 1 name of a program, 0..127.
QString programName(int program);
