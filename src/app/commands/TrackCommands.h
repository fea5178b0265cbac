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

    // Beside the interface thread, since a million notes take a while. The sources stay.
    void mergeSelected();
    bool isMerging() const { return merging_.isRunning(); }
    void cancelMerging();

signals:
    void mergingChanged();

private:
    CommandContext context_;
    ImportQueue &queue_;
    Task merging_;
};
