#include "song/JournalFolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLockFile>
#include <QUuid>

#include <algorithm>

namespace {

constexpr int mostDiscarded = 20;
constexpr int daysOfDiscarded = 7;

const auto ending = QStringLiteral(".journal");

// Holds a journal for as long as it is looked at.
class Hold
{
public:
    explicit Hold(const QString &journal) : lock_(JournalFolder::lockPath(journal))
    {
        lock_.setStaleLockTime(0);
        // A folder that cannot be written has journals without owners.
        isFree_ = lock_.tryLock(0) || lock_.error() != QLockFile::LockFailedError;
    }
    bool isFree() const { return isFree_; }

private:
    QLockFile lock_;
    bool isFree_ = false;
};

QByteArray readFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw file.errorString();
    if (file.size() > JournalRecords::largestFile)
        throw QCoreApplication::translate("SongJournal", "The journal is too large.");
    return file.readAll();
}

struct Found
{
    RecoverableSong song;
    bool isNeeded = true;
};

Found look(const QString &journal)
{
    Found found;
    found.song.journal = journal;
    found.song.time = QFileInfo(journal).lastModified().toUTC();
    try {
        const auto contents = JournalRecords::read(readFile(journal));
        const auto &[song, file, isSaved] = contents.last;
        found.song.title = song.title;
        found.song.partCount = int(song.parts.size());
        found.song.file = file;
        found.song.time = QDateTime::fromMSecsSinceEpoch(contents.time, Qt::UTC);
        found.song.isDiscarded = contents.mark == JournalMark::Discarded;
        found.isNeeded = found.song.isDiscarded || !isSaved;
    } catch (const QString &problem) {
        found.song.problem = problem;
    }
    return found;
}

// The journal of the killed program may be whole beside it, so only what stands for nothing goes.
void removeLeftovers(const QDir &folder)
{
    const auto unfinished = QStringLiteral(".saving"); // as SafeFile names what stands beside
    const auto lock = JournalFolder::lockPath(ending);
    for (const auto &name : folder.entryList({u'*' + ending + u'*' + unfinished, u'*' + lock}, QDir::Files)) {
        const auto journal = folder.filePath(name.left(name.lastIndexOf(ending)) + ending);
        const Hold hold(journal);
        if (hold.isFree() && name.endsWith(unfinished))
            QFile::remove(folder.filePath(name));
    }
}

} // namespace

namespace JournalFolder {

QString newPath(const QString &folder)
{
    return QDir(folder).filePath(QUuid::createUuid().toString(QUuid::WithoutBraces) + ending);
}

QString lockPath(const QString &journal)
{
    return journal + QStringLiteral(".lock");
}

QVector<RecoverableSong> recoverable(const QString &folder, const QDateTime &now)
{
    const QDir directory(folder);
    removeLeftovers(directory);
    QVector<RecoverableSong> songs;
    for (const auto &name : directory.entryList({u'*' + ending}, QDir::Files)) {
        const auto journal = directory.filePath(name);
        const Hold hold(journal);
        if (!hold.isFree())
            continue;
        const auto found = look(journal);
        if (found.isNeeded)
            songs.append(found.song);
        else
            QFile::remove(journal);
    }
    std::sort(songs.begin(), songs.end(), [](const auto &a, const auto &b) { return a.time > b.time; });
    int discarded = 0;
    const auto isOver = [&](const RecoverableSong &song) {
        return song.isDiscarded && (++discarded > mostDiscarded || song.time.addDays(daysOfDiscarded) < now);
    };
    const auto kept =
        std::stable_partition(songs.begin(), songs.end(), [&](const auto &song) { return !isOver(song); });
    std::for_each(kept, songs.end(), [](const auto &song) { QFile::remove(song.journal); });
    songs.erase(kept, songs.end());
    return songs;
}

JournalledSong recover(const QString &journal)
{
    return JournalRecords::read(readFile(journal)).last;
}

void remove(const QString &journal)
{
    const Hold hold(journal);
    if (!hold.isFree())
        throw QCoreApplication::translate("SongJournal", "Another program has the song open.");
    QFile file(journal);
    if (file.exists() && !file.remove())
        throw file.errorString();
}

} // namespace JournalFolder
