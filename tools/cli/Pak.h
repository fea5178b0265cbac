#pragma once

#include "arguments/Arguments.h"

// Prints the paths of a package's files, one a line. Gives the exit status.
int listPackage(const Arguments &arguments);

// Writes a file of a package to the output file, or to standard output. Gives the exit status.
int extractFromPackage(const Arguments &arguments);
