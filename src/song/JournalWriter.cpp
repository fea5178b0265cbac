#include "song/JournalWriter.h"

#include "base/SafeFile.h"
#include "song/JournalFolder.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>

namespace {

constexpr qint64 longestChanges = 8 << 20; // bytes after the beginning

qint64 now()
{
    return QDateTime::currentMSecsSinceEpoch();
}

} // namespace

JournalWriter::JournalWriter(const QString &path) : file_(path), lock_(JournalFolder::lockPath(path))
{
    lock_.setStaleLockTime(0); // a lock ends with its process, however long that runs
}

void JournalWriter::own()
{
    if (lock_.isLocked())
        return;
    QDir().mkpath(QFileInfo(file_.fileName()).path());
    if (!lock_.tryLock(0))
        throw QCoreApplication::translate("SongJournal", "Could not lock %1.").arg(file_.fileName());
}

void JournalWriter::write(const JournalledSong &song, JournalMark mark)
{
    own();
    if (file_.isOpen())
        append(song, mark);
    else
        begin(song, mark);
    last_ = song;
    if (size_ > beginningSize_ + longestChanges)
        begin(song, mark);
}

void JournalWriter::begin(const JournalledSong &song, JournalMark mark)
{
    const auto bytes = JournalRecords::beginning(song, mark, now());
    file_.close();
    needsSync_ = false;
    const bool isNew = !file_.exists(); // then there is nothing to lose, and no step waits for the disk
    (isNew ? SafeFile::writeUnsynchronised : SafeFile::write)(file_.fileName(), bytes);
    if (!file_.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered))
        throw file_.errorString();
    needsSync_ = isNew;
    last_ = song;
    beginningSize_ = size_ = bytes.size();
}

void JournalWriter::append(const JournalledSong &song, JournalMark mark)
{
    const auto bytes = JournalRecords::change(*last_, song, mark, now());
    needsSync_ = true;
    if (file_.write(bytes) != bytes.size()) {
        const auto why = file_.errorString();
        if (!file_.resize(size_))
            file_.close(); // what would follow the damage could not be read
        throw why;
    }
    size_ += bytes.size();
}

void JournalWriter::sync()
{
    if (!needsSync_)
        return;
    try {
        synchronisation()();
    } catch (const QString &) {
        startAnew();
        throw;
    }
}

std::function<void()> JournalWriter::synchronisation()
{
    needsSync_ = false;
    return [path = file_.fileName()] {
        QFile file(path);
        if (!file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly | QIODevice::Unbuffered))
            throw file.errorString();
        SafeFile::synchronise(file);
        SafeFile::synchroniseFolder(path);
    };
}

// Nobody knows what of the file is on the disk.
void JournalWriter::startAnew()
{
    file_.close();
    needsSync_ = false;
}

void JournalWriter::remove()
{
    if (!lock_.isLocked())
        return;
    file_.remove();
    close();
}

void JournalWriter::close()
{
    file_.close();
    lock_.unlock();
}
