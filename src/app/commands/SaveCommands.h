#pragma once

#include "app/commands/ActionRow.h"
#include "app/commands/CommandContext.h"

#include <QCoreApplication>
#include <QStringList>
#include <QVector>

#include <optional>

// The commands that save tracks as ABC files. No file loses without a question what another track of the list or
// another program has in it; what cannot be written is shown in one box at the end of a command. On the interface
// thread.
class SaveCommands
{
    Q_DECLARE_TR_FUNCTIONS(SaveCommands)

public:
    explicit SaveCommands(const CommandContext &context) : context_(context) {}

    static QVector<ActionRow> actions();

    void saveSelected();
    void saveAll(); // but what is in its file already
    void save(const QString &id) { save(QStringList(id)); }
    void saveAs(const QString &id);
    // Asks about tracks that are not saved; false when the window is to stay.
    bool mayClose();

private:
    // Where a track is to go, and what to say when that cannot be written.
    struct Target
    {
        QString path;
        QString failure;
    };
    bool save(const QStringList &ids); // whether all were written
    bool saveTo(const QString &id, const Target &target, QStringList &failures);
    std::optional<Target> targetOf(const QString &id);
    std::optional<Target> chosenTarget(const QString &id);
    std::optional<Target> agreedTarget(const QString &id, std::optional<Target> target);
    QString objectionTo(const QString &id, const QString &path) const;
    void showFailures(const QStringList &failures);
    bool isInItsFile(const QString &id) const;

    CommandContext context_;
};
