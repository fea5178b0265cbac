#include "song/journal/JournalFolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLockFile>
#include <QUuid>

#include <algorithm>
#include <mutex>
#include <optional>

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

// As the window names a song that has no title.
QString titleOf(const Song &song, const QString &file)
{
    if (!song.title.isEmpty() || !file.isEmpty())
        return song.title.isEmpty() ? QFileInfo(file).completeBaseName() : song.title;
    if (!song.imports.isEmpty() && !song.imports.first().path.isEmpty())
        return QFileInfo(song.imports.first().path).completeBaseName();
    return song.parts.isEmpty() ? QString() : song.parts.first().name;
}

RecoverableSong describe(const QString &journal, const JournalRecords::Contents &contents)
{
    const auto &[song, file, isSaved, fileStamp] = contents.last;
    return {journal,
            titleOf(song, file),
            int(song.parts.size()),
            file,
            QDateTime::fromMSecsSinceEpoch(contents.time, Qt::UTC),
            contents.mark == JournalMark::Discarded,
            {}};
}

// Nothing for a journal that a running program owns, or whose song was saved; the latter is removed.
std::optional<RecoverableSong> lookIfFree(const QString &journal)
{
    const Hold hold(journal);
    if (!hold.isFree())
        return {};
    try {
        const auto contents = JournalRecords::read(readFile(journal));
        if (contents.mark == JournalMark::Discarded || !contents.last.isSaved)
            return describe(journal, contents);
        QFile::remove(journal);
        return {};
    } catch (const QString &problem) {
        return RecoverableSong{journal, {}, 0, {}, QFileInfo(journal).lastModified().toUTC(), false, problem};
    }
}

// The songs begin with the last one.
void removeOldDiscarded(QVector<RecoverableSong> &songs, const QDateTime &now)
{
    int discarded = 0;
    const auto isOver = [&](const RecoverableSong &song) {
        if (!song.isDiscarded)
            return false;
        const bool isOld = ++discarded > mostDiscarded || song.time.addDays(daysOfDiscarded) < now;
        return isOld && QFile::remove(song.journal);
    };
    songs.erase(std::remove_if(songs.begin(), songs.end(), isOver), songs.end());
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
    static std::mutex oneAtATime; // a journal that another thread looks at would seem to be in use
    const std::lock_guard lock(oneAtATime);
    const QDir directory(folder);
    removeLeftovers(directory);
    QVector<RecoverableSong> songs;
    for (const auto &name : directory.entryList({u'*' + ending}, QDir::Files)) {
        if (const auto found = lookIfFree(directory.filePath(name)))
            songs.append(*found);
    }
    std::sort(songs.begin(), songs.end(), [](const auto &a, const auto &b) { return a.time > b.time; });
    removeOldDiscarded(songs, now);
    return songs;
}

JournalledSong recover(const QString &journal)
{
    return JournalRecords::read(readFile(journal)).last;
}

bool isLeft(const QString &journal)
{
    return QFile::exists(journal) && Hold(journal).isFree();
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
