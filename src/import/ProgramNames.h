#pragma once

#include <QString>

// The General MIDI Level 1 name of a program, 0..127.
QString programName(int program);

// Such a name, or "Percussion", in the language of the window; other texts as they are.
QString translatedProgramName(const QString &name);
