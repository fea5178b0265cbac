#pragma once

#include "arguments/Arguments.h"

// The script that makes bash, zsh or fish complete this program's words, from the same tables as the help. Throws a
// WrongUsage for another shell.
int printCompletion(const Arguments &arguments);
