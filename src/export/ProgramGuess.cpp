#include "export/ProgramGuess.h"

#include "assets/InstrumentGuess.h"
#include "import/ProgramNames.h"

#include <algorithm>

namespace {

constexpr int programCount = 128;

std::optional<int> chosenFor(const QString &instrument, const ProgramInstruments &chosen)
{
    const auto &all = chosen.all();
    for (auto program = all.begin(); program != all.end(); ++program) {
        if (program.value() == instrument)
            return program.key();
    }
    return std::nullopt;
}

// "Violin" and "Track 3 - Violin" are, and "Violin" is no "Violin Ensemble".
bool isNamed(const QString &text, const QString &program)
{
    return text.compare(program, Qt::CaseInsensitive) == 0 ||
           text.endsWith(QStringLiteral(" - ") + program, Qt::CaseInsensitive);
}

std::optional<int> programNamed(const QString &text)
{
    if (isNamed(text, QStringLiteral("Percussion")))
        return ProgramInstruments::percussion;
    for (int program = 0; program < programCount; ++program) {
        if (isNamed(text, programName(program)))
            return program;
    }
    return std::nullopt;
}

// A title of an import, which may be older than the instrument.
std::optional<int> programOf(const QString &title, std::optional<int> usual)
{
    const bool isOfItsKind = !usual || usualProgram(title) == usual;
    return isOfItsKind ? programNamed(title) : std::nullopt;
}

} // namespace

std::optional<int> guessProgram(const QString &instrument, const QStringList &titles, const ProgramInstruments &chosen)
{
    auto program = instrument.isEmpty() ? std::nullopt : chosenFor(instrument, chosen);
    if (!program)
        program = programNamed(instrument);
    const auto usual = usualProgram(instrument);
    for (auto title = titles.begin(); !program && title != titles.end(); ++title)
        program = programOf(*title, usual);
    if (!program)
        program = usual;
    for (auto title = titles.begin(); !program && title != titles.end(); ++title)
        program = usualProgram(*title);
    return program;
}
