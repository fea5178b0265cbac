// Whatever a MIDI device sends, keys are in range, and none goes up that is not down; how the bytes are cut is no
// matter.
#include "midi/KeyStream.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    KeyStream whole, cut;
    std::vector<KeyEvent> pieces;
    const std::span<const std::uint8_t> bytes(data, size);
    auto events = whole.take(bytes);
    for (size_t at = 0; at < size; ++at) {
        const auto piece = cut.take(bytes.subspan(at, 1));
        pieces.insert(pieces.end(), piece.begin(), piece.end());
    }
    if (events != pieces)
        std::abort();
    const auto rest = whole.end();
    events.insert(events.end(), rest.begin(), rest.end());
    std::bitset<128> held;
    for (const auto &[pitch, velocity] : events) {
        if (pitch > 127 || velocity > 127 || (velocity == 0 && !held[pitch]))
            std::abort();
        held[pitch] = velocity > 0;
    }
    if (held.any())
        std::abort();
    return 0;
}
