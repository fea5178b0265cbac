// A MIDI file of any bytes is read or refused, and what was read can be written.
#include "import/quantise/CleanQuantise.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size == 0)
        return 0;
    // The first byte chooses the options.
    const auto bit = [flags = data[0]](int n) { return (flags >> n & 1) != 0; };
    MidiImportOptions options;
    options.mergeChannels = bit(0);
    options.autoRealign = bit(1);
    options.pitchBend = bit(2);
    options.autoDetectUnitLength = bit(3);
    options.processVolume = bit(4);
    options.endRestruck = options.sustainPedal = options.foldOctaves = bit(5);
    options.splitPrograms = options.trackNames = options.exactTempo = bit(6);
    options.readAllChunks = options.mergedUnitLength = bit(7);
    const auto bytes = QByteArray::fromRawData(reinterpret_cast<const char *>(data + 1), int(size - 1));
    try {
        auto result = (bit(7) ? importMidiCleanly : importMidi)(bytes, options, {});
        for (auto &track : result.tracks)
            track.toAbc();
    } catch (const QString &) {
    }
    return 0;
}
