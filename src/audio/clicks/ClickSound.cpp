#include "audio/clicks/ClickSound.h"

#include <cmath>
#include <numbers>

// A struck wooden block: a tone and a higher one that is not in tune with it, which dies away sooner.
Sound clickSound(Click click, int sampleRate)
{
    constexpr double seconds = 0.04;
    const double pitch = click == Click::Accent ? 1760 : 1175; // Hz
    const double level = click == Click::Accent ? 0.6 : 0.4;
    const auto frames = std::size_t(seconds * sampleRate);
    const auto made = std::make_shared<SoundData>(1, frames, sampleRate);
    for (std::size_t frame = 0; frame < frames; ++frame) {
        const double time = double(frame) / sampleRate;
        const double angle = 2 * std::numbers::pi * pitch * time;
        const double left = 1 - time / seconds; // so that it ends in silence
        made->plane(0)[frame] = float(
            level * left *
            (0.7 * std::cos(angle) * std::exp(-time / 0.008) + 0.3 * std::cos(2.76 * angle) * std::exp(-time / 0.003)));
    }
    return made;
}
