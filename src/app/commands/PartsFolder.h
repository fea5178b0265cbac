#pragma once

#include "app/commands/CommandContext.h"
#include "base/Task.h"

#include <QObject>
#include <QStringList>
#include <QVector>

#include <memory>

class Track;

// Saves all parts of the song into one folder, named after song and part. All files that are there already are asked
// about at once; all that could not be written are told at once. Beside the interface thread. [ui]
class PartsFolder : public QObject
{
    Q_OBJECT

public:
    explicit PartsFolder(const CommandContext &context) : context_(context) {}

    void save(); // asks for the folder; nothing while it runs
    bool isBusy() const { return task_.isRunning(); }

signals:
    void saving(const QString &folder);
    void saved(const QStringList &paths);
    void idle();

private:
    struct Part
    {
        QString id;
        std::shared_ptr<const Track> track;
        QString path;
        QString failure = {}; // why it could not be written
    };
    using Parts = QVector<Part>;

    Parts partsFor(const QString &folder) const;
    void consider(const Parts &parts);
    bool mayReplace(const QStringList &existing);
    void write(const Parts &parts);
    static Parts written(Parts parts);
    void take(const Parts &parts);
    void showFailure(const QString &text);

    CommandContext context_;
    Task task_;
};
