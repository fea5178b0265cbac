#pragma once

#include "song/journal/JournalFolder.h"
#include "song/journal/SongJournal.h"
#include "support/RandomSongs.h"
#include "support/TestFolder.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QThread>

#include <cstring>

// A process that edits a song at random until it is killed, and what its journal then holds. A program that uses it
// calls editUntilKilled() when its first argument is "edit".
namespace JournalKills {

inline qint64 now() // the same for all processes
{
    QElapsedTimer timer;
    timer.start();
    return timer.msecsSinceReference();
}

// One step of the same song by the same seed. Some are long, so that the journal is compacted.
inline void step(RandomSongs &random, Song &song)
{
    random.edit(song);
    if (!song.parts.isEmpty() && random.below(20) == 0)
        song.parts[0].abc = QString(random.below(400'000), QLatin1Char("ABCDEFG"[random.below(7)]));
}

// Writes down when each state was handed to the journal.
inline int editUntilKilled(const QStringList &arguments)
{
    const auto folder = arguments[2];
    const auto seed = arguments[3].toUInt();
    QFile stamps(folder + QStringLiteral("/stamps"));
    if (!stamps.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return 1;
    RandomSongs random(seed);
    RandomSongs pauses(seed + 1);
    auto song = random.song();
    SongJournal journal(folder);
    for (;;) {
        step(random, song);
        journal.record({song, {}, false});
        const auto at = now();
        stamps.write(reinterpret_cast<const char *>(&at), sizeof at);
        QThread::msleep(unsigned(pauses.below(6)));
    }
}

struct Kill
{
    QString problem;   // empty when all is well
    qint64 lostMs = 0; // how old the oldest state was that is not in the journal
    bool wasCompacting = false;
    int steps = 0;
};

inline QVector<qint64> stampsIn(const TestFolder &folder)
{
    const auto bytes = folder.read("stamps");
    QVector<qint64> stamps(bytes.size() / int(sizeof(qint64)));
    std::memcpy(stamps.data(), bytes.constData(), size_t(stamps.size()) * sizeof(qint64));
    return stamps;
}

inline int lastStepThatIs(const Song &recovered, unsigned seed, int steps)
{
    RandomSongs random(seed);
    auto song = random.song();
    int found = -1;
    for (int number = 0; number < steps; ++number) {
        step(random, song);
        if (song == recovered)
            found = number;
    }
    return found;
}

inline void check(Kill &kill, const TestFolder &folder, unsigned seed, qint64 killedAt)
{
    const auto stamps = stampsIn(folder);
    kill.steps = int(stamps.size());
    kill.wasCompacting = !folder.files().filter(QStringLiteral(".saving")).isEmpty();
    const auto songs = JournalFolder::recoverable(folder.path());
    int found = -1;
    if (songs.size() == 1 && songs[0].problem.isEmpty())
        found = lastStepThatIs(JournalFolder::recover(songs[0].journal).song, seed, kill.steps + 1);
    if (found + 1 < kill.steps)
        kill.lostMs = killedAt - stamps[found + 1];
    if (songs.size() > 1)
        kill.problem = QStringLiteral("there are several journals");
    else if (songs.size() == 1 && found < 0)
        kill.problem = songs[0].problem + QStringLiteral(" (no state that was)");
    else if (kill.lostMs > 1000)
        kill.problem = QStringLiteral("%1 ms are lost").arg(kill.lostMs);
}

inline Kill killAfter(int ms, unsigned seed)
{
    const TestFolder folder;
    QProcess editor;
    editor.start(QCoreApplication::applicationFilePath(),
                 {QStringLiteral("edit"), folder.path(), QString::number(seed)});
    Kill kill;
    if (!editor.waitForStarted())
        return {QStringLiteral("the editor does not start"), 0, false, 0};
    QThread::msleep(unsigned(ms));
    const auto killedAt = now();
    editor.kill();
    editor.waitForFinished();
    check(kill, folder, seed, killedAt);
    return kill;
}

} // namespace JournalKills
