#pragma once

#include "app/commands/ActionRow.h"
#include "app/commands/CommandContext.h"
#include "base/Task.h"

#include <QObject>
#include <QQueue>
#include <QStringList>
#include <QVector>

#include <functional>
#include <memory>
#include <optional>

class Track;

// The commands that save tracks as ABC files. No file loses without a question what another track of the list or
// another program has in it; what cannot be written is shown in one box at the end of a command. Files are looked at
// and written beside the interface thread, one after another; what is asked for meanwhile waits. On the interface
// thread.
class SaveCommands : public QObject
{
    Q_OBJECT

public:
    // Called at the end of a command, whether everything was written.
    using Then = std::function<void(bool isComplete)>;

    explicit SaveCommands(const CommandContext &context) : context_(context) {}

    static QVector<ActionRow> actions();

    void saveSelected();
    void saveAll(); // but what is in its file already
    void save(const QString &id) { save(QStringList(id)); }
    void save(const QStringList &ids, const Then &then = {});
    void saveAs(const QString &id);

    bool isBusy() const { return !jobs_.isEmpty(); }

signals:
    void saving(const QString &path);
    void saved(const QStringList &paths); // by one command, when there are any
    void idle();

private:
    // Where a track is to go, and what to say when that cannot be written.
    struct Target
    {
        QString path;
        QString failure;
    };
    enum class Where { InItsFile, AsChosen };
    struct Job
    {
        QStringList ids; // that are left
        Where where = Where::InItsFile;
        Then then;
        QStringList written = {};
        QStringList failures = {};
        bool isComplete = true;
    };

    void start(const Job &job);
    void next();
    void giveUp();
    void finish();
    void consider(const QString &id, const std::optional<Target> &target);
    void decide(const QString &id, const Target &target, const QString &objection);
    void write(const QString &id, const Target &target);
    void noteWritten(const QString &id, const QString &path, const std::shared_ptr<const Track> &track);
    void noteFailure(const QString &id, const Target &target, const QString &reason);
    std::optional<Target> targetOf(const QString &id);
    std::optional<Target> chosenTarget(const QString &id);
    QString rivalOf(const QString &id, const QString &path) const;
    bool isInItsFile(const QString &id) const;

    CommandContext context_;
    QQueue<Job> jobs_; // the first is under way
    Task task_;
};
