#pragma once

#include "audio/sound/Sound.h"

enum class Click { Beat, Accent };

// The sound of a click, computed: it is loud from its first frame on and gone within 40 ms. sampleRate: Hz, above 0.
// [any]
Sound clickSound(Click click, int sampleRate);
