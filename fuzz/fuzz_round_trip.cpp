// Text that the writer made is read back to the same notes, and writing those again gives the same text.
#include "core/AbcParser.h"
#include "import/midi/MidiImport.h"

#include <QStringList>

#include <cstdlib>

namespace {

// Numbers of more than so many digits no longer fit what the reader looks at for one note.
constexpr Ticks longestReadable = Ticks(100'000) * ticksPerWholeNote;

// What may differ: the generator line is a new field at first, and one in the order of the letters once it was read;
// and the blanks around a title are lost.
QStringList comparableLines(const QString &abc)
{
    QStringList lines;
    for (const auto &line : abc.split(u'\n')) {
        if (!line.startsWith(u"Z:"))
            lines.append(line.simplified());
    }
    return lines;
}

void check(Track track)
{
    const auto text = track.toAbc();
    auto parsed = parseAbc(text);
    parsed.clearAbc();
    if (comparableLines(parsed.toAbc()) != comparableLines(text))
        std::abort();
}

bool isReadable(const Track &track)
{
    for (const auto &event : track.events()) {
        if (event.isNote() && !isPlayable(event.pitch()))
            return false;
        if (event.kind() == TrackEvent::Metre && event.numerator() == 0) // reads as no metre
            return false;
    }
    return track.length() < longestReadable;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const auto bytes = QByteArray::fromRawData(reinterpret_cast<const char *>(data), int(size));
    try {
        const auto result = importMidi(bytes, {});
        for (const auto &track : result.tracks) {
            if (isReadable(track))
                check(track);
        }
    } catch (const QString &message) {
        if (message.contains(QStringLiteral("ABC")))
            std::abort();
    }
    return 0;
}
