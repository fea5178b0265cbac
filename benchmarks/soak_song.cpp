// What a song survives: random songs through their file, and processes that are killed while they edit one. Fails when
// a song came back different, or a journal held something else than a state at most a second old.
// Usage: soak_song [SONGS [KILLS [FIRST_SEED]]]; a thousand kills take a good five minutes.
#include "song/SongFile.h"
#include "support/Figures.h"
#include "support/JournalKills.h"

#include <cstdio>

namespace {

int countChangedSongs(int songs)
{
    const auto folder = QStringLiteral("/songs");
    RandomSongs random(1);
    int changed = 0;
    for (int number = 0; number < songs; ++number) {
        const auto song = random.song();
        changed += SongFile::fromBytes(SongFile::toBytes(song, folder), folder) == song ? 0 : 1;
    }
    std::printf("%d songs, %d came back different\n", songs, changed);
    return changed;
}

int countLostSongs(int kills, unsigned firstSeed)
{
    std::mt19937 random(firstSeed);
    int lost = 0;
    int compacting = 0;
    qint64 steps = 0;
    qint64 mostLostMs = 0;
    for (int number = 0; number < kills; ++number) {
        const auto seed = firstSeed + unsigned(number);
        const auto kill = JournalKills::killAfter(int(20 + random() % 600), seed);
        steps += kill.steps;
        compacting += kill.wasCompacting ? 1 : 0;
        mostLostMs = std::max(mostLostMs, kill.lostMs);
        if (!kill.problem.isEmpty()) {
            std::printf("seed %u: %s\n", seed, qUtf8Printable(kill.problem));
            ++lost;
        }
    }
    std::printf("%d kills after %lld steps, %d of them while a whole file was written: %d lost, at most %lld ms old\n",
                kills, steps, compacting, lost, mostLostMs);
    return lost;
}

int argument(int number, int fallback)
{
    return QCoreApplication::arguments().value(number, QString::number(fallback)).toInt();
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    if (QCoreApplication::arguments().value(1) == u"edit")
        return JournalKills::editUntilKilled(QCoreApplication::arguments());
    const int changed = countChangedSongs(argument(1, 10'000));
    bool isGood = report({"Song files: songs that came back different", double(changed), 0, {}, Better::Less});
    const int lost = countLostSongs(argument(2, 200), unsigned(argument(3, 1)));
    isGood &= report({"Journals: songs that were lost in a kill", double(lost), 0, {}, Better::Less});
    return isGood ? 0 : 1;
}
