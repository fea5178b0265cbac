#pragma once

#include "Arguments.h"

// Writes the inputs as one song file. Gives the exit status.
int writeSong(const Arguments &arguments);
