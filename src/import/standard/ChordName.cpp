#include "import/standard/ChordName.h"

#include <algorithm>
#include <array>
#include <optional>

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

// Takes signs from the front of a text.
class Signs
{
public:
    explicit Signs(QStringView text) : rest_(text) {}

    QStringView rest() const { return rest_; }
    std::optional<QChar> takeIf(QStringView oneOf)
    {
        if (rest_.isEmpty() || !oneOf.contains(rest_.front()))
            return {};
        const auto sign = rest_.front();
        rest_ = rest_.mid(1);
        return sign;
    }
    // Semitones above C; nothing where no note stands. A flat is "b".
    std::optional<int> takeNote(QStringView letters, QStringView accidentals)
    {
        constexpr std::array<int, 7> fromA{9, 11, 0, 2, 4, 5, 7};
        const auto letter = takeIf(letters);
        if (!letter)
            return {};
        const auto accidental = takeIf(accidentals);
        const int shift = !accidental ? 0 : *accidental == u'b' ? 11 : 1;
        return (fromA[size_t(letter->toUpper().unicode() - u'A')] + shift) % 12;
    }

private:
    QStringView rest_;
};

const Quality *qualityNamed(QStringView name)
{
    const auto *const found = std::find_if(std::begin(qualities), std::end(qualities),
                                           [&](const Quality &known) { return name == QLatin1String(known.name); });
    return found == std::end(qualities) ? nullptr : found;
}

// The lowest note of that pitch class from `lowest` upwards.
int pitchFrom(int lowest, int pitchClass)
{
    return lowest + (pitchClass + 12 - lowest % 12) % 12;
}

} // namespace

// A root, a quality and, behind a stroke, a bass, which old texts sharpen with "+".
QVarLengthArray<int, 5> chordPitches(QStringView name)
{
    constexpr int lowestBass = 43;
    constexpr int lowestRoot = 55;
    auto text = name.trimmed();
    if (text.startsWith(u'('))
        text = text.mid(1);
    if (text.endsWith(u')'))
        text.chop(1);
    Signs signs(text);
    const auto root = signs.takeNote(u"ABCDEFG", u"#b");
    const auto stroke = signs.rest().indexOf(u'/');
    const auto *const quality = qualityNamed(signs.rest().left(stroke < 0 ? signs.rest().size() : stroke));
    Signs behind(stroke < 0 ? QStringView() : signs.rest().mid(stroke + 1));
    const auto bass = stroke < 0 ? root : behind.takeNote(u"ABCDEFGabcdefg", u"#b+");
    if (!root || !quality || !bass || !behind.rest().isEmpty())
        return {};
    QVarLengthArray<int, 5> pitches;
    pitches.append(pitchFrom(lowestBass, *bass));
    pitches.append(pitchFrom(lowestRoot, *root));
    for (const int step : quality->steps) {
        if (step > 0)
            pitches.append(pitches[1] + step);
    }
    return pitches;
}
