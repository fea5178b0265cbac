// MML text of any bytes becomes tracks that can be written.
#include "base/TextDecoding.h"
#include "import/MmlImport.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), int(size));
    try {
        auto result = importMml(decodeText(bytes), {size % 2 == 0});
        for (auto &track : result.tracks)
            track.toAbc();
    } catch (const QString &) {
    }
    return 0;
}
