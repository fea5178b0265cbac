#pragma once

#include "arguments/Arguments.h"

// Arranges each input, a song, for so many players, writes a file for each of them, and prints what became of the
// notes. Gives the exit status.
int arrangeSongs(const Arguments &arguments);
