#pragma once

#include "audio/AudioEngine.h"

#include <stop_token>

// Plays a scale of two seconds on an engine that is not in use otherwise, and waits for its end. Throws a QString when
// it cannot be played, an Interrupted when it is asked to stop. [any]
void playScale(AudioEngine &engine, const std::stop_token &stop);
