#pragma once

#include "song/Song.h"

#include <QByteArray>

// A song as the window has it at one moment.
struct JournalledSong
{
    Song song;
    QString file;           // the song file that it belongs to, absolute; empty when it never had one
    bool isSaved = false;   // nothing would be lost if it were closed
    QString fileStamp = {}; // of the song file when it was read or written last; empty where that is not known
};

// What happens to a journal when its song is closed.
enum class JournalMark { Open, Discarded };

// The bytes of a journal: a beginning with the whole song, and one record for each change since. Each record carries
// its length and a checksum, so that one that was not written to its end is noticed.
namespace JournalRecords {

constexpr qint64 largestFile = 640 << 20; // bytes

// time: milliseconds since 1970, UTC. Throws a QString for a song that is larger than a song file may be.
QByteArray beginning(const JournalledSong &song, JournalMark mark, qint64 time);
QByteArray change(const JournalledSong &before, const JournalledSong &after, JournalMark mark, qint64 time);

struct Contents
{
    JournalledSong last;
    JournalMark mark = JournalMark::Open;
    qint64 time = 0;      // of the last change
    qint64 wholeSize = 0; // bytes up to the first record that is damaged, or the end
};

// The state after the last whole record. Throws a QString when not even the beginning is whole.
Contents read(const QByteArray &bytes);

// A record of any payload.
QByteArray framed(const QByteArray &payload);

} // namespace JournalRecords
