#pragma once

#include "midi/MidiInput.h"

// What is plugged into this computer, through RtMidi.
std::unique_ptr<MidiInput> systemMidiInput();
