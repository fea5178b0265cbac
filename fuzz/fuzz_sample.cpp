// Any bytes are decoded to a sound that keeps its promises, or refused.
#include "audio/sound/SampleDecoder.h"

#include <cmath>
#include <cstdlib>

// libsndfile 1.2.0 forgets this of a Vorbis file with a damaged header; LeakSanitizer asks for the list by that name.
extern "C" const char *__lsan_default_suppressions();
extern "C" const char *__lsan_default_suppressions()
{
    return "leak:vorbis_info_init";
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    Sound sound;
    if (decodeSample(std::as_bytes(std::span(data, size)), wholeSample, sound) != AudioResult::Ok)
        return 0;
    Sound part;
    if (decodeSample(std::as_bytes(std::span(data, size)), 1000, part) == AudioResult::Ok && part->frames() > 1000)
        std::abort();
    for (int channel = 0; channel < sound->channels(); ++channel) {
        for (size_t i = 0; i < sound->frames(); ++i) {
            if (!(std::abs(sound->plane(channel)[i]) <= 16))
                std::abort();
        }
    }
    return 0;
}
