#pragma once

#include "arguments/Arguments.h"

// Says what is wrong with each input, which is a song. Gives the exit status: 1 when anything is.
int check(const Arguments &arguments);
