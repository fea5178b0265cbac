// Songs for a number of players: how long 100,000 notes take, whether what is promised holds for a thousand random
// songs, and, where a collection of MIDI files is there, what is kept of them, beside the naive way: the first parts,
// and in them the first notes.
#include "arrange/Arrangement.h"
#include "assets/InstrumentGuess.h"
#include "assets/ProgramInstruments.h"
#include "import/ProgramNames.h"
#include "song/SongReader.h"
#include "support/ArrangePromises.h"
#include "support/Figures.h"

#include <QDir>

#include <chrono>
#include <cstdio>

namespace {

constexpr int noteCount = 100'000;
constexpr unsigned randomSongs = 1000;

// Sixteen parts, some with chords, in the manner of a MIDI file.
QVector<SourcePart> bigSong()
{
    std::mt19937 random(1);
    QVector<SourcePart> parts;
    for (int i = 0; i < 16; ++i) {
        SourcePart part{ArrangePromises::randomTrack(random, noteCount / 16), QStringLiteral("Part %1").arg(i)};
        part.instrument = QStringLiteral("Instrument %1").arg(i % 6);
        part.isPercussion = i == 9;
        parts.append(part);
    }
    return parts;
}

double bestSeconds(const QVector<SourcePart> &parts)
{
    double best = 1e9;
    for (int run = 0; run < 3; ++run) {
        const auto start = std::chrono::steady_clock::now();
        const auto arrangement = arrange(parts, {8, 3});
        const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
        best = arrangement.parts.size() == 8 ? std::min(best, seconds.count()) : 1e9;
    }
    return best;
}

int brokenSongs()
{
    int broken = 0;
    for (unsigned seed = 0; seed < randomSongs; ++seed) {
        const auto made = ArrangePromises::randomCase(seed);
        const auto arrangement = arrange(made.parts, made.options);
        auto wrong = ArrangePromises::broken(arrangement, made);
        if (wrong.isEmpty())
            wrong = ArrangePromises::brokenByUndo(arrangement, made);
        if (!wrong.isEmpty())
            std::printf("random song %u: %s\n", seed, qPrintable(wrong));
        broken += wrong.isEmpty() ? 0 : 1;
    }
    return broken;
}

QVector<SourcePart> readParts(const QString &path)
{
    const auto options = readingOptions([](auto setting) { return SettingsTable::defaultValue(setting); });
    const auto song = readSource(sourceOf(path), options);
    QVector<SourcePart> parts;
    for (int i = 0; i < song.tracks.size(); ++i) {
        const auto &report = song.parts[i];
        const auto program = report.program ? programName(*report.program) : QString();
        parts.append({song.tracks[i], song.tracks[i].title(), program, {}, report.isPercussion});
    }
    return parts;
}

struct Sum
{
    int songs = 0;
    PartFigures figures = {};
    int naive = 0;
    int naiveNoPlayer = 0; // notes of the parts behind the first
    int naiveNoVoice = 0;
    int line = 0; // notes of the melody's top line
    int naiveLine = 0;
};

// The first of a part's notes, as many as may sound at once.
QVector<ArrangePromises::Sounding> firstNotes(const Track &track, int voices)
{
    QVector<ArrangePromises::Sounding> kept;
    std::vector<Ticks> ends(size_t(voices), 0);
    for (const auto &note : ArrangePromises::notesOf(track, track.ticksPerMinute())) {
        const auto free = std::min_element(ends.begin(), ends.end());
        if (*free > note.start || note.end == note.start)
            continue;
        *free = note.end;
        kept.append(note);
    }
    return kept;
}

void addNaive(Sum &sum, const QVector<SourcePart> &parts, const ArrangeOptions &options, std::optional<int> melody)
{
    for (int i = 0; i < parts.size(); ++i) {
        const bool hasPlayer = i < options.players;
        const auto kept = hasPlayer ? firstNotes(parts[i].track, options.voices) : QVector<ArrangePromises::Sounding>();
        sum.naive += int(kept.size());
        (hasPlayer ? sum.naiveNoVoice : sum.naiveNoPlayer) += parts[i].track.noteCount() - int(kept.size());
        if (i != melody)
            continue;
        for (const auto &note :
             ArrangePromises::topLine(ArrangePromises::notesOf(parts[i].track, parts[i].track.ticksPerMinute()))) {
            ++sum.line;
            sum.naiveLine +=
                std::any_of(kept.begin(), kept.end(),
                            [&](const auto &other) { return other.start == note.start && other.pitch == note.pitch; })
                    ? 1
                    : 0;
        }
    }
}

double percent(int part, int whole)
{
    return 100.0 * part / std::max(1, whole);
}

void printRow(const ArrangeOptions &options, const Sum &sum)
{
    const auto &all = sum.figures;
    std::printf("%7d %6d %7d %6.1f %%", options.players, options.voices, all.notes,
                percent(all.notes - all.droppedInAll(), all.notes));
    for (int reason = 0; reason < dropReasonCount; ++reason)
        std::printf(" %7d", all.dropped[size_t(reason)]);
    std::printf(" %7d %9d %6d | %5.1f %% %8d %7d %9.1f %%\n", all.folded, all.shortened, all.lent,
                percent(sum.naive, all.notes), sum.naiveNoPlayer, sum.naiveNoVoice, percent(sum.naiveLine, sum.line));
}

void tabulate(const QVector<QVector<SourcePart>> &songs, const ArrangeOptions &options)
{
    Sum sum;
    for (const auto &parts : songs) {
        const auto arrangement = arrange(parts, options);
        sum.figures.add(arrangement.sumBefore());
        addNaive(sum, parts, options, arrangement.melody);
    }
    printRow(options, sum);
}

void tabulateCollection(const QDir &folder)
{
    QVector<QVector<SourcePart>> songs;
    for (const auto &file : folder.entryList({QStringLiteral("*.mid")}, QDir::Files, QDir::Name))
        songs.append(readParts(folder.filePath(file)));
    if (songs.isEmpty())
        return;
    std::printf("%d songs\nplayers voices   notes     kept doubled noVoice noRange noDrums nothing octaves shortened   "
                "lent | naive   noPlayer noVoice  its melody\n",
                int(songs.size()));
    for (const int players : {4, 8}) {
        for (const int voices : {1, 3})
            tabulate(songs, {players, voices});
    }
}

} // namespace

int main(int argc, char **argv)
{
    tabulateCollection(
        QDir(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral(COMPOSER_SOURCE_DIR "/../shared/corpus/mid")));
    const bool isFast =
        report({"100,000 notes arranged for 8 players, seconds", bestSeconds(bigSong()), 1, 0.3, Better::Less});
    const bool isRight =
        report({"random songs of 1,000 that an arrangement breaks", double(brokenSongs()), 0, 0, Better::Less});
    return isFast && isRight ? 0 : 1;
}
