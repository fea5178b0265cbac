#pragma once

#include "app/commands/ActionRow.h"
#include "app/commands/CommandContext.h"
#include "arrange/Arrangement.h"
#include "audio/player/PlayerWorker.h"
#include "base/Task.h"
#include "song/SongTrack.h"

#include <QObject>
#include <QVector>

#include <functional>

// The commands that change all parts of the song together. Each is one step of the history; the work is done beside the
// interface thread, and its result left when the song was changed meanwhile. [ui]
class SongTools : public QObject
{
    Q_OBJECT

public:
    SongTools(const CommandContext &context, EngineFactory makeEngine); // of what is heard of an arrangement

    static QVector<ActionRow> actions();

    void arrangeForPlayers(); // the parts that are not muted
    void transposeSong();     // drums only where that is wanted
    void giveOneTempo();
    void trimSilence();
    void padParts();

    bool isWorking() const { return work_.isRunning(); }
    void cancelWork() { work_.cancel(); }

private:
    using Edit = std::function<QVector<Track>(const QVector<Track> &)>;

    QVector<Track> allTracks() const;
    SourcePart sourceOf(const SongTrack &track) const;
    void takeArrangement(const QStringList &ids, const Arrangement &arrangement);
    void edit(const QString &step, const QString &nothingToDo, const Edit &edit);
    void take(const QString &step, const QString &nothingToDo, const SongTracks &before, const QVector<Track> &edited);
    void tell(const QString &step, const QString &text);

    CommandContext context_;
    EngineFactory makeEngine_;
    Task work_;
};
