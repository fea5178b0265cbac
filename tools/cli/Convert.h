#pragma once

#include "arguments/Arguments.h"

// Writes every track of the inputs as an ABC file, or every input as one file of another kind, and prints one line for
// each input. Gives the exit status.
int convert(const Arguments &arguments);
