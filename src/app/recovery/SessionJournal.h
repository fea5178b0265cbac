#pragma once

#include "app/services/SongSession.h"

#include <memory>

// Keeps the journal of the window's song: every state of it that is not saved is written down, and whatever is left of
// the journal when the song is left is what can be recovered. On the interface thread.
class SessionJournal : public QObject
{
    Q_OBJECT

public:
    // folder: of the journals; without one nothing is written. The session outlives this. Without left(), it is as if
    // the program had crashed.
    SessionJournal(SongSession &session, const QString &folder, QObject *parent = nullptr);
    ~SessionJournal() override;

    // The song comes from this journal, which goes once another holds it.
    void openRecovered(const OpenedSong &song, const QString &journal);

    // Whether all that is not saved is on the disk; waits for that, but not long.
    bool keep();
    // The journal that brings back what is not saved; empty when all is saved.
    QString path() const;

signals:
    void problemChanged(const QString &problem); // why nothing is written; empty when it is again

private:
    void recordSoon();
    void recordDue();
    void record();
    void begin();
    void end(SongJournal::Ending ending);

    SongSession &session_;
    QString folder_;
    QString recovered_; // the journal that the song comes from, while that is needed
    std::unique_ptr<SongJournal> journal_;
    bool isDue_ = false; // several changes of one step are one state
};
