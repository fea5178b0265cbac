#pragma once

#include "app/commands/CommandContext.h"
#include "base/Task.h"

#include <QObject>
#include <QQueue>

#include <functional>
#include <optional>

// Saves the window's song as a song file. Its bytes are made and written beside the interface thread, one save after
// another. A file that another program changed, or that is protected, is replaced only when the user wants it. [ui]
class SongSaving : public QObject
{
    Q_OBJECT

public:
    using Then = std::function<void(bool isSaved)>; // not when the user cancelled, either

    explicit SongSaving(const CommandContext &context) : context_(context) {}

    void save(const Then &then = {}); // asks for a file when there is none
    void saveAs(const Then &then = {});
    bool isBusy() const { return !jobs_.isEmpty(); }

signals:
    void saving(const QString &path);
    void saved(const QStringList &paths);
    void idle();

private:
    enum class Where { InItsFile, AsChosen };
    struct Job
    {
        Where where;
        Then then;
    };

    void start(const Job &job);
    void begin();
    void finish(bool isSaved);
    QString chosenPath();
    void consider(const QString &path);
    void decide(const QString &path, const QString &objection);
    void write(const QString &path);

    CommandContext context_;
    QQueue<Job> jobs_; // the first is under way
    Task task_;
};
