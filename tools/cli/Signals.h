#pragma once

// From now on SIGINT, SIGTERM and SIGHUP end the program with 128 + their number, as shells expect it, and without
// files that are half written. Before other threads begin. Not on Windows, where the system ends it.
void endAtSignals();
