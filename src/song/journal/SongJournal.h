#pragma once

#include "song/journal/JournalRecords.h"

#include <QObject>

#include <memory>

// Keeps a song that is being worked on through a crash: every state that it is told of is in a file of its own within
// a second, and within another on the disk itself; JournalFolder finds the file when the program did not end in order.
// One object for each open song. All functions return at once, but waitUntilWritten(); the file is written on another
// thread. [ui]
class SongJournal : public QObject
{
    Q_OBJECT

public:
    enum class Ending {
        Saved,    // nothing is left to recover
        Discarded // recoverable for some days
    };

    // folder: of all journals of this user; made when it is missing. There is no file before the first record().
    explicit SongJournal(const QString &folder, QObject *parent = nullptr);
    ~SongJournal() override; // without end(): as if the program had crashed now

    // The song after each step and each pause of typing.
    void record(const JournalledSong &song);

    // Deletes a journal that was recovered from, as soon as this one holds its song.
    void replace(const QString &journal);

    // The last word; the file is written to its end even when this object is destroyed next.
    void end(Ending ending);

    // Until everything is on the disk. False when it was not possible in time.
    bool waitUntilWritten(int timeoutMs);

    const QString &path() const;

signals:
    void failed(const QString &message); // it cannot be written; tried again every other second
    void resumed();                      // it is written again, and whole

private:
    class Task;
    std::shared_ptr<Task> task_;
};
