#pragma once

#include "app/commands/ActionRow.h"
#include "app/commands/CommandContext.h"
#include "app/recovery/RecoveryDialog.h"
#include "base/Task.h"

#include <QPointer>

#include <functional>

class SessionJournal;

// Offers the songs that journals kept, and opens the one that is chosen. Journals are read and deleted beside the
// interface thread, on which all of this is called.
class SongRecovery : public QObject
{
    Q_OBJECT

public:
    // Asks what is to become of the window's song, and goes on when another may take its place.
    using LeaveFor = std::function<void(const std::function<void()> &then)>;

    // folder: of the journals; empty: there are none. The journal outlives this.
    SongRecovery(const CommandContext &context, SessionJournal &journal, const QString &folder, LeaveFor leaveFor);

    static QVector<ActionRow> actions();

    void offerAtStart(); // shows nothing when no program crashed
    void open();
    // Brings the song of this journal back into a window without one, and asks nothing. `otherwise`: when it cannot, as
    // another program may have taken the song.
    void restore(const QString &journal, const std::function<void()> &otherwise);

private:
    void look(RecoveryDialog::Occasion occasion);
    void show(RecoveryDialog::Occasion occasion, const QVector<RecoverableSong> &songs);
    void recover(const QString &journal);
    void read(const QString &journal);
    void remove(RecoveryDialog::Occasion occasion, const QStringList &journals);
    void fail(const QString &error);

    CommandContext context_;
    SessionJournal &journal_;
    QString folder_;
    LeaveFor leaveFor_;
    Task task_;
    QPointer<RecoveryDialog> dialog_;
};
