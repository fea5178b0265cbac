// Bytes of any kind become tracks or errors, and the tunes of a text stand in it one after another, with nothing but
// blanks between them.
#include "base/TextDecoding.h"
#include "song/SongReader.h"

#include <cstdint>
#include <cstdlib>

namespace {

void checkTunes(const QString &text)
{
    qsizetype at = 0;
    for (const auto &tune : tunesOf(text)) {
        const auto begin = text.indexOf(tune.text, int(at));
        const bool followsBlanks = begin >= at && QStringView(text).mid(at, begin - at).trimmed().isEmpty();
        if (!followsBlanks || QStringView(text).left(begin).count(u'\n') + 1 != tune.line)
            std::abort();
        at = begin + tune.text.size();
    }
    if (at != text.size())
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), int(size));
    checkTunes(decodeText(bytes));
    ReadingOptions options;
    options.tracks = ReadingOptions::Tracks::ToBeShown;
    const auto song = readSource({SongSource::Kind::Bytes, {}, bytes}, options);
    if (song.tracks.isEmpty() && song.errors.isEmpty() && !song.report)
        std::abort();
    return 0;
}
