#include "summary/PartInstruments.h"

#include "assets/ProgramInstruments.h"
#include "import/ProgramNames.h"

namespace {

std::optional<int> programOf(const PartReport &report)
{
    return report.isPercussion ? ProgramInstruments::percussion : report.program;
}

QString nameOf(const PartReport &report)
{
    return report.isPercussion ? QStringLiteral("Percussion")
           : report.program    ? programName(*report.program)
                               : QString();
}

std::optional<InstrumentGuess> guessFor(const PlayedPart &part, const InstrumentSet &instruments)
{
    const auto titles = QStringList{nameOf(part.report), part.song.name} + part.track.headerFields(QStringLiteral("T"));
    return guessInstrument(titles, part.track.pitchCounts(), instruments);
}

} // namespace

InstrumentChoice instrumentOf(const PlayedPart &part, const Arguments &arguments, const InstrumentSet &instruments)
{
    if (instruments.contains(part.song.instrument))
        return {part.song.instrument, {}};
    if (!arguments.instrument.isEmpty())
        return {arguments.instrument, {}};
    const ProgramInstruments chosen(arguments.setting(SettingsTable::ProgramInstrument).toString());
    const auto program = programOf(part.report);
    if (const auto name = program ? chosen.instrument(*program) : QString(); instruments.contains(name))
        return {name, {}};
    if (const auto guess = part.song.instrument.isEmpty() ? guessFor(part, instruments) : std::nullopt)
        return {guess->name, guess->basis};
    return {instruments.names().value(0), {}};
}
