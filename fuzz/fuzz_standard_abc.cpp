// Any text: the standard's reading ends, and what it writes for the game reads as what it understood.
#include "core/AbcParser.h"
#include "import/standard/StandardAbc.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const auto text = QString::fromUtf8(reinterpret_cast<const char *>(data), int(size));
    for (const auto &tune : importStandardAbc(text)) {
        for (auto voice : tune.voices) {
            const int understood = voice.track.noteCount();
            if (parseAbc(voice.track.toAbc()).noteCount() != understood)
                std::abort();
        }
    }
    return 0;
}
