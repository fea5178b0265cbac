// What it takes to check a song of 64 parts of 20,000 notes each beside the interface thread, on all cores: all of it,
// and again after an edit of one part.
#include "check/CheckedSong.h"
#include "core/AbcParser.h"
#include "support/Figures.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <algorithm>
#include <random>

namespace {

constexpr int partCount = 64;
constexpr int notesPerPart = 20000;
constexpr int runs = 7; // of which the median counts

// With chords, accidentals and bar lines, as an import writes it.
std::shared_ptr<const Track> makePart(unsigned seed)
{
    std::mt19937 random(seed);
    Track track;
    Ticks at = 0;
    for (int i = 0; i < notesPerPart; ++i) {
        const auto length = ticksPerQuarter / (Ticks(1) << random() % 3);
        track.appendEvent(TrackEvent::note(36 + random() % 60, at, length));
        at += random() % 3 == 0 ? 0 : length;
    }
    track.normalize();
    return std::make_shared<const Track>(parseAbc(track.toAbc()));
}

InstrumentSet instruments()
{
    Instrument lute;
    lute.name = QStringLiteral("Lute");
    for (quint32 pitch = 21; pitch <= 90; ++pitch)
        lute.tuning.notes[pitch] = {{QStringLiteral("c.ogg")}, 1, 0};
    InstrumentSet set;
    set.add(lute);
    return set;
}

template<typename Work>
double medianMs(Work work)
{
    std::vector<double> times;
    for (int i = 0; i < runs; ++i) {
        QElapsedTimer timer;
        timer.start();
        work();
        times.push_back(double(timer.nsecsElapsed()) / 1e6);
    }
    std::nth_element(times.begin(), times.begin() + runs / 2, times.end());
    return times[runs / 2];
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QVector<CheckedSong::Part> parts;
    for (unsigned i = 0; i < partCount; ++i)
        parts.append({QString::number(i), makePart(i), QStringLiteral("Lute")});
    const auto catalogue = instruments();

    int found = 0;
    const auto all = medianMs([&] { found += CheckedSong().updated(parts, catalogue, {}).findingCount(); });
    const auto checked = CheckedSong().updated(parts, catalogue, {});
    auto edited = parts;
    edited[7].track = makePart(1000);
    const auto one = medianMs([&] { found += checked.updated(edited, catalogue, {}).findingCount(); });
    std::printf("%d findings\n", found);

    bool isGood = report({"check: 64 parts of 20,000 notes, ms", all, 200, {}, Better::Less});
    isGood &= report({"check: again after an edit of one part, ms", one, 200.0 / partCount * 4, {}, Better::Less});
    return isGood ? 0 : 1;
}
