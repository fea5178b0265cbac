#pragma once

#include "base/Task.h"

#include <QHash>
#include <QStringList>

class TrackList;

// Looks beside the interface thread for files that another program changed. On the interface thread.
class ChangedFiles : public QObject
{
    Q_OBJECT

public:
    // Those of the tracks that are in their files; nothing while the check before still runs.
    void check(const TrackList &tracks);

signals:
    // Tracks whose files hold another text; each change of a file is told once.
    void found(const QStringList &ids);

private:
    QHash<QString, QString> known_; // by path: the file's size and time as of the last check
    Task task_;
};
