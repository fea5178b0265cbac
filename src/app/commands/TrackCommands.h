#pragma once

#include "app/commands/ActionRow.h"
#include "app/commands/CommandContext.h"
#include "base/Task.h"
#include "import/Transpose.h"

#include <QMap>
#include <QObject>
#include <QVector>

#include <functional>
#include <memory>
#include <optional>

class ImportQueue;
class Track;

// The commands that change the list of tracks. On the interface thread.
class TrackCommands : public QObject
{
    Q_OBJECT

public:
    using Sources = QMap<QString, std::shared_ptr<const Track>>; // by the tracks' ids
    using Edit = std::function<Track(const Track &track, const std::stop_token &stop)>;

    TrackCommands(const CommandContext &context, ImportQueue &queue) : context_(context), queue_(queue) {}

    static QVector<ActionRow> actions();

    void addEmpty();
    void removeAll();
    void removeSelected();
    void duplicateSelected();
    void muteSelected();
    void moveBy(const QString &id, int places);
    // With Shift all tracks from the one that was selected or deselected last.
    void select(const QString &id, bool isSelected, Qt::KeyboardModifiers modifiers);

    // These two beside the interface thread, since a million notes take a while, and one at a time.
    void mergeSelected(); // the sources stay
    void cleanQuantiseSelected();
    // The track, and the selected ones when it is one of them; short ones at once.
    void transpose(const QString &id, int semitones);
    bool isWorking() const { return work_.isRunning(); }
    void cancelWork();

signals:
    void workingChanged();

private:
    Sources sourcesOf(const QStringList &ids) const;
    std::optional<BeyondRange> askBeyondRange(const QString &step, const Sources &sources, int semitones);
    void editBeside(const QString &step, const Sources &sources, const Edit &edit);

    CommandContext context_;
    ImportQueue &queue_;
    Task work_;
    QString lastSelected_; // or deselected
};
