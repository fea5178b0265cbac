// A journal of any bytes is read or refused, and what was read is written and comes back equal. When the first byte is
// not 0 the others are payloads parted by zeros, which get true checksums.
#include "song/journal/JournalRecords.h"

#include <cstdlib>

namespace {

QByteArray journalOf(const QByteArray &data)
{
    if (!data.startsWith('\1') && !data.startsWith('\2'))
        return data.mid(1);
    auto journal = JournalRecords::beginning({}, JournalMark::Open, 0);
    if (data.startsWith('\2'))
        journal.truncate(journal.indexOf('\n') + 1); // the first payload has the song
    for (const auto &payload : data.mid(1).split('\0'))
        journal += JournalRecords::framed(payload);
    return journal;
}

void require(bool isTrue)
{
    if (!isTrue)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const auto journal = journalOf(QByteArray(reinterpret_cast<const char *>(data), int(size)));
    try {
        const auto contents = JournalRecords::read(journal);
        require(contents.wholeSize <= journal.size());
        const auto whole = JournalRecords::beginning(contents.last, contents.mark, 1);
        require(JournalRecords::read(whole).last.song == contents.last.song);
        const auto built = JournalRecords::beginning({}, JournalMark::Open, 0) +
                           JournalRecords::change({}, contents.last, contents.mark, 1);
        require(JournalRecords::read(built).last.song == contents.last.song);
    } catch (const QString &) {
    }
    return 0;
}
