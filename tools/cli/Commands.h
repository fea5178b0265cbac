#pragma once

#include "arguments/Arguments.h"

const std::vector<Command> &allCommands();
