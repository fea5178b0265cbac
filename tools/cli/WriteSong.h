#pragma once

#include "arguments/Arguments.h"

// Writes the inputs as one song file. Gives the exit status.
int writeSong(const Arguments &arguments);
