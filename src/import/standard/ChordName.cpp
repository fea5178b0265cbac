#include "import/standard/ChordName.h"

#include <QRegularExpression>
#include <QString>

#include <algorithm>
#include <array>

namespace {

struct Quality
{
    const char *name;
    std::array<int, 3> steps; // semitones above the root; 0: none
};
constexpr Quality qualities[]{
    {"", {4, 7}},          {"maj", {4, 7}},      {"M", {4, 7}},        {"m", {3, 7}},       {"min", {3, 7}},
    {"-", {3, 7}},         {"7", {4, 7, 10}},    {"maj7", {4, 7, 11}}, {"M7", {4, 7, 11}},  {"m7", {3, 7, 10}},
    {"min7", {3, 7, 10}},  {"-7", {3, 7, 10}},   {"dim", {3, 6}},      {"o", {3, 6}},       {"dim7", {3, 6, 9}},
    {"o7", {3, 6, 9}},     {"m7b5", {3, 6, 10}}, {"aug", {4, 8}},      {"+", {4, 8}},       {"aug7", {4, 8, 10}},
    {"+7", {4, 8, 10}},    {"sus", {5, 7}},      {"sus4", {5, 7}},     {"sus2", {2, 7}},    {"7sus4", {5, 7, 10}},
    {"6", {4, 7, 9}},      {"m6", {3, 7, 9}},    {"min6", {3, 7, 9}},  {"9", {4, 10, 14}},  {"m9", {3, 10, 14}},
    {"maj9", {4, 11, 14}}, {"add9", {4, 7, 14}}, {"11", {10, 14, 17}}, {"13", {4, 10, 21}}, {"5", {7}},
};

// Semitones above C; a flat is "b", a sharp "#" or, in old texts, "+".
int pitchClass(const QString &letter, const QString &accidental)
{
    constexpr std::array<int, 7> fromA{9, 11, 0, 2, 4, 5, 7};
    const int natural = fromA[size_t(letter.at(0).toUpper().unicode() - u'A')];
    const int shift = accidental.isEmpty() ? 0 : accidental == u"b" ? 11 : 1;
    return (natural + shift) % 12;
}

// The lowest note of that pitch class from `lowest` upwards.
int pitchFrom(int lowest, int pitchClass)
{
    return lowest + (pitchClass + 12 - lowest % 12) % 12;
}

} // namespace

std::vector<int> chordPitches(QStringView name)
{
    constexpr int lowestBass = 43;
    constexpr int lowestRoot = 55;
    static const QRegularExpression chord(
        QStringLiteral("^\\(?([A-G])([#b]?)([^/()\\s]*)(?:/([A-Ga-g])([#b+]?))?\\)?$"));
    const auto match = chord.match(name.trimmed().toString());
    const auto *const quality = std::find_if(std::begin(qualities), std::end(qualities), [&](const Quality &known) {
        return match.captured(3) == QLatin1String(known.name);
    });
    if (!match.hasMatch() || quality == std::end(qualities))
        return {};
    const int root = pitchClass(match.captured(1), match.captured(2));
    const int bass = match.captured(4).isEmpty() ? root : pitchClass(match.captured(4), match.captured(5));
    std::vector<int> pitches{pitchFrom(lowestBass, bass), pitchFrom(lowestRoot, root)};
    for (const int step : quality->steps) {
        if (step > 0)
            pitches.push_back(pitches[1] + step);
    }
    return pitches;
}
