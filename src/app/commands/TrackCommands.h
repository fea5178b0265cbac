#pragma once

#include "app/commands/ActionRow.h"
#include "app/commands/CommandContext.h"
#include "base/Task.h"

#include <QObject>
#include <QVector>

class ImportQueue;
class Track;

// The commands that change the list of tracks. On the interface thread.
class TrackCommands : public QObject
{
    Q_OBJECT

public:
    TrackCommands(const CommandContext &context, ImportQueue &queue) : context_(context), queue_(queue) {}

    static QVector<ActionRow> actions();

    void addEmpty();
    void removeAll();
    void removeSelected();
    void duplicateSelected();
    void muteSelected();
    void moveBy(const QString &id, int places);

    // These two beside the interface thread, since a million notes take a while, and one at a time.
    void mergeSelected(); // the sources stay
    void cleanQuantiseSelected();
    bool isWorking() const { return work_.isRunning(); }
    void cancelWork();

signals:
    void workingChanged();

private:
    CommandContext context_;
    ImportQueue &queue_;
    Task work_;
};
