// A song file of any bytes is read or refused; what was read is written and comes back equal.
#include "song/SongFile.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const auto folder = QStringLiteral("/songs");
    const auto bytes = QByteArray::fromRawData(reinterpret_cast<const char *>(data), int(size));
    try {
        const auto song = SongFile::fromBytes(bytes, folder);
        const auto written = SongFile::toBytes(song, folder); // never refuses what was read
        const auto again = SongFile::fromBytes(written, folder);
        if (!(again == song) || SongFile::toBytes(again, folder) != written)
            std::abort();
    } catch (const QString &) {
    }
    return 0;
}
