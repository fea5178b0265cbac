#include "song/journal/JournalWriter.h"

#include "base/SafeFile.h"
#include "song/journal/JournalFolder.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>

#include <atomic>
#include <utility>

namespace {

constexpr qint64 longestChanges = 8 << 20; // bytes after the beginning

qint64 now()
{
    return QDateTime::currentMSecsSinceEpoch();
}

} // namespace

// The file beside that begins with a later state, so that it need not tell of all changes before.
class JournalWriter::ShortFile
{
public:
    ShortFile(const QString &path, const JournalledSong &song) : replacement_(path), song_(song) {}

    // On the disk when this returns. [any]
    void prepare()
    {
        const auto bytes = JournalRecords::beginning(song_, JournalMark::Open, now());
        append(bytes);
        size_ = bytes.size();
        isReady_ = true;
    }
    bool isReady() const { return isReady_; }
    qint64 size() const { return size_; } // bytes of the beginning

    // In the place of the long one, with what has changed meanwhile. Gives the size of that, in bytes.
    qint64 take(const JournalledSong &last)
    {
        const auto bytes = JournalRecords::change(song_, last, JournalMark::Open, now());
        append(bytes);
        replacement_.commitUnsynchronised();
        return bytes.size();
    }

private:
    void append(const QByteArray &bytes)
    {
        QFile file(replacement_.path());
        if (!file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered) ||
            file.write(bytes) != bytes.size())
            throw file.errorString();
        if (!isReady_)
            SafeFile::synchronise(file);
    }

    SafeFile::Replacement replacement_;
    JournalledSong song_;
    qint64 size_ = 0;
    std::atomic<bool> isReady_ = false;
};

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
    if (short_ && short_->isReady())
        takeShortFile();
    if (file_.isOpen())
        append(song, mark);
    else
        begin(song, mark);
    last_ = song;
}

void JournalWriter::takeShortFile()
{
    const auto taken = std::exchange(short_, nullptr);
    file_.close(); // a whole file is begun when this fails
    const auto changes = taken->take(*last_);
    openToAppend();
    needsSync_ = true;
    beginningSize_ = taken->size();
    size_ = beginningSize_ + changes;
}

void JournalWriter::openToAppend()
{
    if (!file_.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered))
        throw file_.errorString();
}

void JournalWriter::begin(const JournalledSong &song, JournalMark mark)
{
    const auto bytes = JournalRecords::beginning(song, mark, now());
    file_.close();
    needsSync_ = false;
    const bool isNew = !file_.exists(); // then there is nothing to lose, and no step waits for the disk
    (isNew ? SafeFile::writeUnsynchronised : SafeFile::write)(file_.fileName(), bytes);
    openToAppend();
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
    const bool isLong = size_ > beginningSize_ + longestChanges && !short_;
    if (isLong)
        short_ = std::make_shared<ShortFile>(file_.fileName(), *last_);
    return [path = file_.fileName(), shorter = isLong ? short_ : nullptr] {
        QFile file(path);
        if (!file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly | QIODevice::Unbuffered))
            throw file.errorString();
        SafeFile::synchronise(file);
        SafeFile::synchroniseFolder(path);
        if (shorter)
            shorter->prepare();
    };
}

// Nobody knows what of the file is on the disk.
void JournalWriter::startAnew()
{
    file_.close();
    short_.reset();
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
    short_.reset();
    lock_.unlock();
}
