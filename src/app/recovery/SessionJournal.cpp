#include "app/recovery/SessionJournal.h"

#include <utility>

SessionJournal::SessionJournal(SongSession &session, const QString &folder, QObject *parent)
    : QObject(parent), session_(session), folder_(folder)
{
    if (folder_.isEmpty())
        return;
    connect(&session_, &SongSession::changed, this, &SessionJournal::recordSoon);
    connect(&session_, &SongSession::left, this, &SessionJournal::end);
}

SessionJournal::~SessionJournal() = default;

// With the next events, whatever keeps the thread busy besides; timers may come late.
void SessionJournal::recordSoon()
{
    if (!std::exchange(isDue_, true))
        QMetaObject::invokeMethod(this, &SessionJournal::recordDue, Qt::QueuedConnection);
}

void SessionJournal::recordDue()
{
    if (std::exchange(isDue_, false))
        record();
}

void SessionJournal::record()
{
    const auto song = session_.journalled();
    if (!journal_ && song.isSaved && recovered_.isEmpty())
        return; // there is nothing to lose yet
    if (!journal_)
        begin();
    journal_->record(song);
}

void SessionJournal::begin()
{
    journal_ = std::make_unique<SongJournal>(folder_);
    connect(journal_.get(), &SongJournal::failed, this, &SessionJournal::problemChanged);
    connect(journal_.get(), &SongJournal::resumed, this, [this] { emit problemChanged({}); });
    if (!recovered_.isEmpty())
        journal_->replace(std::exchange(recovered_, {}));
}

void SessionJournal::end(SongJournal::Ending ending)
{
    recordDue();
    if (!journal_)
        return;
    journal_->end(ending);
    journal_.reset();
    emit problemChanged({});
}

bool SessionJournal::keep()
{
    constexpr int patienceMs = 2000;
    recordDue();
    return !session_.isUnsaved() || (journal_ && journal_->waitUntilWritten(patienceMs));
}

QString SessionJournal::path() const
{
    return journal_ && session_.isUnsaved() ? journal_->path() : QString();
}

void SessionJournal::openRecovered(const OpenedSong &song, const QString &journal)
{
    session_.open(song);
    recovered_ = journal;
}
