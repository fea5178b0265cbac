#pragma once

#include "arguments/Arguments.h"

// Prints the tracks of an input and the report of its import as one JSON object. Gives the exit status.
int inspect(const Arguments &arguments);
