#pragma once

#include "song/journal/JournalRecords.h"

#include <QFile>
#include <QLockFile>

#include <functional>
#include <memory>
#include <optional>

// One journal's file. It appears with the first write, and is locked until this object ends, so that other processes
// let it be. On one thread at a time.
class JournalWriter
{
public:
    explicit JournalWriter(const QString &path); // touches nothing yet
    JournalWriter(const JournalWriter &) = delete;
    JournalWriter &operator=(const JournalWriter &) = delete;

    // Both throw a QString when it cannot be done. The file then still holds an earlier state, and the next write()
    // makes up for it.
    void write(const JournalledSong &song, JournalMark mark = JournalMark::Open);
    void sync();
    // The same in two halves: what it gives puts all that is written by now on the disk, on any thread, while more is
    // written here. Of a file that has grown long it also writes a short one, whose turn comes with a later write().
    // When that throws, startAnew() before the next write().
    std::function<void()> synchronisation();
    void startAnew();

    bool needsSync() const { return needsSync_; }

    // Nothing more will be written: others may have the file, or it is gone.
    void close();
    void remove();

private:
    class ShortFile;

    void begin(const JournalledSong &song, JournalMark mark);
    void append(const JournalledSong &song, JournalMark mark);
    void takeShortFile();
    void openToAppend();
    void own();

    QFile file_; // open once there is a journal that can be continued
    QLockFile lock_;
    std::shared_ptr<ShortFile> short_; // from when the file has grown long until the short one takes its place
    std::optional<JournalledSong> last_;
    qint64 beginningSize_ = 0; // bytes
    qint64 size_ = 0;          // bytes of whole records
    bool needsSync_ = false;
};
