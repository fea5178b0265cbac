#pragma once

#include <cstdio>

// What the command line asks of the operating system, without Qt; a source for each system.
namespace System {

// Makes the standard streams give and take bytes as they are, and text in UTF-8, as it is elsewhere from the start.
void prepareStreams();

// Whether a person looks at the stream.
bool isTerminal(std::FILE *stream);

// From now on SIGINT, SIGTERM and SIGHUP, or what Windows has in their place, end the program after beforeEnd(), which
// may lock and allocate: with 128 + their number, as shells expect it, or as Windows ends programs. Before other
// threads begin.
void endAtSignals(void (*beforeEnd)());

} // namespace System
