#pragma once

#include "arguments/Arguments.h"

// Renders the tracks of all inputs into one wave file, with the instruments of a game installation. Ctrl+C ends it and
// leaves no file. Gives the exit status.
int render(const Arguments &arguments);
