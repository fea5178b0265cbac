#include "song/preview/PartPreview.h"

#include "assets/InstrumentGuess.h"
#include "core/AbcParser.h"
#include "core/HeaderFields.h"
#include "import/ProgramNames.h"
#include "song/preview/OctaveShift.h"

#include <queue>

#include <algorithm>
#include <functional>
#include <vector>

namespace {

int mostAtOnceOf(const Track &track)
{
    std::priority_queue<Ticks, std::vector<Ticks>, std::greater<>> ends;
    size_t most = 0;
    for (const auto &event : track.events()) {
        while (!ends.empty() && ends.top() <= event.start())
            ends.pop();
        if (event.isNote())
            ends.push(event.end());
        most = std::max(most, ends.size());
    }
    return int(most);
}

} // namespace

PartPreview::PartPreview(const Track &asRead, const PartReport &report)
    : asRead_(asRead), report_(report), pitchCounts_(asRead.pitchCounts()), notes_(asRead.noteCount()),
      mostAtOnce_(mostAtOnceOf(asRead)), track_(asRead)
{
    characters_ = int(track_.toAbc().size());
}

QString keyOf(const Track &track, const PartReport &report)
{
    return report.channel ? QStringLiteral("%1/%2").arg(*report.channel).arg(report.program.value_or(-1))
                          : track.title();
}

std::optional<int> PartPreview::program() const
{
    return report_.isPercussion ? ProgramInstruments::percussion : report_.program;
}

QString PartPreview::programName() const
{
    if (report_.isPercussion)
        return QStringLiteral("Percussion");
    return report_.program ? ::programName(*report_.program) : QString();
}

QString PartPreview::proposedInstrument(const ProposalBasis &basis) const
{
    const auto named = HeaderFields::instrumentName(asRead_.headerFields(QStringLiteral("I")));
    const auto chosen = program() ? basis.remembered.instrument(*program()) : QString();
    for (const auto &name : {named, chosen}) {
        if (basis.instruments.contains(name))
            return name;
    }
    const auto titles = QStringList(programName()) + asRead_.headerFields(QStringLiteral("T"));
    const auto guess = guessInstrument(titles, pitchCounts_, basis.instruments);
    return guess ? guess->name : basis.fallback;
}

void PartPreview::settle(const PartChoice &choice, const ProposalBasis &basis)
{
    instrument_ = choice.instrument ? *choice.instrument : proposedInstrument(basis);
    const auto tuning =
        basis.instruments.contains(instrument_) ? basis.instruments.instrument(instrument_).tuning : Tuning();
    const bool mayMove = !report_.isPercussion; // where each key is a drum of its own
    const int octaves = choice.octaves ? *choice.octaves : mayMove ? proposedOctaves(pitchCounts_, tuning) : 0;
    if (octaves != octaves_) {
        octaves_ = octaves;
        track_ = octaves == 0 ? asRead_ : shiftedByOctaves(asRead_, octaves);
        characters_ = int(track_.toAbc().size());
        droppedNotes_ = notes_ - track_.noteCount();
    }
    silentNotes_ = notes_ - droppedNotes_ - playableNotes(pitchCounts_, tuning, octaves_);
}

std::optional<std::pair<quint32, quint32>> PartPreview::range() const
{
    const auto moved = [this](quint32 pitch) {
        const auto where = qint64(pitch) + qint64(octaves_) * 12;
        return quint32(std::clamp<qint64>(where, lowestPlayablePitch, highestPlayablePitch));
    };
    if (pitchCounts_.isEmpty() || droppedNotes_ == notes_)
        return std::nullopt;
    return std::pair(moved(pitchCounts_.firstKey()), moved(pitchCounts_.lastKey()));
}

int PartPreview::lostNotes() const
{
    return report_.count(ImportFinding::BelowVelocityGate) + report_.count(ImportFinding::Restruck) +
           report_.count(ImportFinding::OutOfRange) + droppedNotes_ + silentNotes_;
}
