#include "song/journal/SongJournal.h"

#include "base/JobPool.h"
#include "song/journal/JournalFolder.h"
#include "song/journal/JournalWriter.h"

#include <QDeadlineTimer>

#include <condition_variable>
#include <mutex>
#include <new>
#include <optional>
#include <utility>

namespace {

constexpr int syncPauseMs = 1000;
constexpr int retryPauseMs = 2000;

// Of its own, since the tasks of the global one may take seconds. The end of the process waits for it.
JobPool &writers()
{
    static JobPool pool(64);
    return pool;
}

} // namespace

// The writing of one journal. Runs on a thread of the pool only while there is something to do. The disk is waited for
// on another, since that may take seconds, and what is written survives the program without it. The mutex guards
// everything but the writer, which belongs to whoever runs.
class SongJournal::Task : public std::enable_shared_from_this<Task>
{
public:
    Task(SongJournal *owner, const QString &path) : path_(path), owner_(owner), writer_(path) {}

    const QString &path() const { return path_; }
    void record(const JournalledSong &song);
    void replace(const QString &journal);
    void end(Ending ending);
    void abandon();
    bool waitUntilWritten(int timeoutMs);

private:
    // These with the mutex held.
    void wake();
    void run();
    bool step(); // false when nothing is left to do
    bool write();
    void startSync();
    bool takeSyncProblem();
    void wait(bool isWanted);
    void removeFiles();
    void removeReplaced();
    bool isInHurry() const { return isHurried_ || owner_ == nullptr || isRemoved_ || mark_ != JournalMark::Open; }
    void report(const QString &problem);

    // What work() throws, with the mutex released meanwhile.
    template<typename Work>
    QString problemOf(Work work);

    const QString path_;
    std::mutex mutex_;
    std::condition_variable_any changed_;
    SongJournal *owner_; // null once it is gone
    std::optional<JournalledSong> pending_;
    std::optional<JournalledSong> written_;
    QString replaced_;
    JournalMark mark_ = JournalMark::Open;
    bool isRemoved_ = false;
    bool isHurried_ = false;
    bool isRunning_ = false;
    bool isFailing_ = false;
    bool isSyncing_ = false;
    QString syncProblem_;
    QDeadlineTimer retry_;
    QDeadlineTimer syncDue_;
    JournalWriter writer_;
};

void SongJournal::Task::wake()
{
    if (!isRunning_) {
        isRunning_ = true;
        writers().start([self = shared_from_this()] {
            const std::lock_guard locker(self->mutex_);
            self->run();
        });
    }
    changed_.notify_all();
}

void SongJournal::Task::record(const JournalledSong &song)
{
    const std::lock_guard locker(mutex_);
    pending_ = song;
    wake();
}

void SongJournal::Task::replace(const QString &journal)
{
    const std::lock_guard locker(mutex_);
    replaced_ = journal;
}

void SongJournal::Task::end(Ending ending)
{
    const std::lock_guard locker(mutex_);
    if (ending == Ending::Saved)
        isRemoved_ = true;
    else
        mark_ = JournalMark::Discarded;
    if (!pending_)
        pending_ = written_; // again, with the mark
    wake();
}

void SongJournal::Task::abandon()
{
    const std::lock_guard locker(mutex_);
    owner_ = nullptr;
    wake();
}

bool SongJournal::Task::waitUntilWritten(int timeoutMs)
{
    const std::lock_guard locker(mutex_);
    isHurried_ = true;
    wake();
    const QDeadlineTimer deadline(timeoutMs);
    while (isRunning_ && !deadline.hasExpired())
        changed_.wait_for(mutex_, deadline.remainingTimeAsDuration());
    return !isRunning_ && !pending_;
}

void SongJournal::Task::run()
{
    while (step()) {
    }
    isRunning_ = isHurried_ = false;
    changed_.notify_all();
}

bool SongJournal::Task::step()
{
    if (isRemoved_ && !isSyncing_) {
        removeFiles();
        return false;
    }
    if (!syncProblem_.isEmpty())
        return takeSyncProblem();
    const bool isWanted = pending_.has_value() && !isRemoved_;
    const bool needsSync = writer_.needsSync() || isSyncing_;
    if (isWanted && (retry_.hasExpired() || isInHurry()))
        return write() || !isInHurry();
    if (needsSync && !isSyncing_ && (syncDue_.hasExpired() || isInHurry()))
        startSync();
    else if (isWanted || needsSync)
        wait(isWanted);
    else if (mark_ != JournalMark::Open)
        writer_.close();
    return isWanted || needsSync;
}

// For the next thing to do, or for news.
void SongJournal::Task::wait(bool isWanted)
{
    if (isSyncing_ && !isWanted)
        changed_.wait(mutex_);
    else
        changed_.wait_for(mutex_, (isWanted ? retry_ : syncDue_).remainingTimeAsDuration());
}

template<typename Work>
QString SongJournal::Task::problemOf(Work work)
{
    mutex_.unlock();
    QString problem;
    try {
        work();
    } catch (const QString &message) {
        problem = message;
    } catch (const std::bad_alloc &) {
        problem = tr("There is not enough memory.");
    }
    mutex_.lock();
    return problem;
}

bool SongJournal::Task::write()
{
    const auto song = *std::exchange(pending_, std::nullopt);
    const auto mark = mark_;
    const auto problem = problemOf([&] { writer_.write(song, mark); });
    written_ = song;
    if (problem.isEmpty() && !writer_.needsSync())
        removeReplaced();
    const bool isDone = problem.isEmpty() && mark == mark_; // the end may have come meanwhile
    if (!isDone && !pending_)
        pending_ = song;
    if (!writer_.needsSync())
        syncDue_.setRemainingTime(syncPauseMs);
    report(problem);
    return problem.isEmpty();
}

void SongJournal::Task::startSync()
{
    isSyncing_ = true;
    writers().start([self = shared_from_this(), synchronise = writer_.synchronisation()] {
        const std::lock_guard locker(self->mutex_);
        const auto problem = self->problemOf(synchronise);
        if (problem.isEmpty())
            self->removeReplaced();
        self->syncProblem_ = problem;
        self->isSyncing_ = false;
        self->syncDue_.setRemainingTime(syncPauseMs);
        self->changed_.notify_all();
    });
}

bool SongJournal::Task::takeSyncProblem()
{
    writer_.startAnew();
    if (!pending_)
        pending_ = written_;
    report(std::exchange(syncProblem_, {}));
    return !isInHurry();
}

// One that stays is listed once more.
void SongJournal::Task::removeReplaced()
{
    if (!replaced_.isEmpty())
        problemOf([journal = std::exchange(replaced_, {})] { JournalFolder::remove(journal); });
}

void SongJournal::Task::removeFiles()
{
    pending_.reset();
    written_.reset();
    problemOf([this] { writer_.remove(); });
    removeReplaced();
}

void SongJournal::Task::report(const QString &problem)
{
    if (!problem.isEmpty())
        retry_.setRemainingTime(retryPauseMs);
    if (isFailing_ == !problem.isEmpty())
        return;
    isFailing_ = !isFailing_;
    if (owner_ == nullptr)
        return;
    const auto tell = [owner = owner_, problem] {
        if (problem.isEmpty())
            emit owner->resumed();
        else
            emit owner->failed(problem);
    };
    QMetaObject::invokeMethod(owner_, tell, Qt::QueuedConnection);
}

SongJournal::SongJournal(const QString &folder, QObject *parent)
    : QObject(parent), task_(std::make_shared<Task>(this, JournalFolder::newPath(folder)))
{
}

SongJournal::~SongJournal()
{
    task_->abandon();
}

void SongJournal::record(const JournalledSong &song)
{
    task_->record(song);
}

void SongJournal::replace(const QString &journal)
{
    task_->replace(journal);
}

void SongJournal::end(Ending ending)
{
    task_->end(ending);
}

bool SongJournal::waitUntilWritten(int timeoutMs)
{
    return task_->waitUntilWritten(timeoutMs);
}

const QString &SongJournal::path() const
{
    return task_->path();
}
