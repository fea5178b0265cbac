#pragma once

#include "audio/sound/AudioResult.h"
#include "audio/sound/Sound.h"

#include <cstddef>
#include <span>

// Decodes a whole sample file; more than two channels become the first two. Of a file that breaks off, what was read.
// Samples that are no numbers become 0, larger ones than 16 times full scale are limited. [any]
AudioResult decodeSample(std::span<const std::byte> bytes, Sound &sound);
