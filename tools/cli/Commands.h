#pragma once

#include "Arguments.h"

const std::vector<Command> &allCommands();
