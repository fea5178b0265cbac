#pragma once

#include "arguments/Arguments.h"

// The manual page, from the same tables as the help; see man-pages(7) and groff_man(7).
int printManual(const Arguments &arguments);
