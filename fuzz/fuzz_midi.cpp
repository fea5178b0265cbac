// A MIDI file of any bytes is read or refused, and what was read can be written.
#include "import/MidiImport.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size == 0)
        return 0;
    // The first byte chooses the options.
    const auto bit = [flags = data[0]](int n) { return (flags >> n & 1) != 0; };
    const MidiImportOptions options{bit(0), bit(1), bit(2), bit(3), bit(4)};
    const auto bytes = QByteArray::fromRawData(reinterpret_cast<const char *>(data + 1), int(size - 1));
    try {
        auto result = importMidi(bytes, options);
        for (auto &track : result.tracks)
            track.toAbc();
    } catch (const QString &) {
    }
    return 0;
}
