#pragma once

#include "midi/MidiInput.h"

#include <RtMidi.h>
#include <functional>
#include <memory>

// Begins to look for devices; what comes from the one that is opened goes to `receive` with `input`. Null: there is
// nothing to look in. (RtMidi lets nobody delete it but through the classes that it is of.)
using RtMidiStarter = std::function<std::shared_ptr<RtMidi>(RtMidiIn::RtMidiCallback receive, void *input)>;

// Devices that RtMidi shows.
std::unique_ptr<MidiInput> rtMidiInput(RtMidiStarter start);
