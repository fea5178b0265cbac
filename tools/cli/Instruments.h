#pragma once

#include "arguments/Arguments.h"
#include "assets/InstrumentSet.h"

// Prints the instruments of a game installation, one a line or as one JSON object. Gives the exit status.
int listInstruments(const Arguments &arguments);

// The instruments of the installation that --game names, with a bar meanwhile. Throws a QString when there is none.
InstrumentSet scanGame(const Arguments &arguments);
