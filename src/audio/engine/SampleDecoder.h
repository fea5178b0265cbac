#pragma once

#include "audio/AudioEngine.h"

// As AudioEngine::decode(). Of a file that breaks off, what was read. Samples that are no numbers become 0, larger ones
// than 16 times full scale are limited. [any]
AudioResult decodeSample(std::span<const std::byte> bytes, Sound &sound);
