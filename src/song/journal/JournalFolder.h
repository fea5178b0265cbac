#pragma once

#include "song/journal/JournalRecords.h"

#include <QDateTime>
#include <QString>
#include <QVector>

// A song that a journal kept.
struct RecoverableSong
{
    QString journal; // the journal's path
    QString title;   // or the name of its file, of what it was imported from or of its first part
    int partCount = 0;
    QString file;             // the song file that it belongs to; empty when it never had one
    QDateTime time;           // of the last change, UTC
    bool isDiscarded = false; // by the user; otherwise its program ended without being asked to
    QString problem;          // why it cannot be read; empty when it can
};

// The journals of one user in one folder. Journals of running programs, this one's too, are left alone. Whole files are
// read: not for the interface thread.
namespace JournalFolder {

// The last changed first. Deletes on the way what nobody can miss: journals of songs that were saved, discarded songs
// after 7 days or when there are more than 20, and leftovers of writing.
QVector<RecoverableSong> recoverable(const QString &folder, const QDateTime &now = QDateTime::currentDateTimeUtc());

// The song as it last was. Throws a QString when the journal cannot be read.
JournalledSong recover(const QString &journal);

// Whether it is there, and no running program owns it.
bool isLeft(const QString &journal);

// Throws a QString when a running program owns it or it cannot be deleted.
void remove(const QString &journal);

QString newPath(const QString &folder);
QString lockPath(const QString &journal);

} // namespace JournalFolder
