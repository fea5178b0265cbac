#include "import/standard/ChordName.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

namespace {

struct Quality
{
    std::u16string_view name;
    std::array<int, 3> steps; // semitones above the root; 0: none
};
constexpr Quality qualities[]{
    {u"", {4, 7}},          {u"maj", {4, 7}},      {u"M", {4, 7}},        {u"m", {3, 7}},       {u"min", {3, 7}},
    {u"-", {3, 7}},         {u"7", {4, 7, 10}},    {u"maj7", {4, 7, 11}}, {u"M7", {4, 7, 11}},  {u"m7", {3, 7, 10}},
    {u"min7", {3, 7, 10}},  {u"-7", {3, 7, 10}},   {u"dim", {3, 6}},      {u"o", {3, 6}},       {u"dim7", {3, 6, 9}},
    {u"o7", {3, 6, 9}},     {u"m7b5", {3, 6, 10}}, {u"aug", {4, 8}},      {u"+", {4, 8}},       {u"aug7", {4, 8, 10}},
    {u"+7", {4, 8, 10}},    {u"sus", {5, 7}},      {u"sus4", {5, 7}},     {u"sus2", {2, 7}},    {u"7sus4", {5, 7, 10}},
    {u"6", {4, 7, 9}},      {u"m6", {3, 7, 9}},    {u"min6", {3, 7, 9}},  {u"9", {4, 10, 14}},  {u"m9", {3, 10, 14}},
    {u"maj9", {4, 11, 14}}, {u"add9", {4, 7, 14}}, {u"11", {10, 14, 17}}, {u"13", {4, 10, 21}}, {u"5", {7}},
};

// Takes signs from the front of a text.
class Signs
{
public:
    explicit Signs(QStringView text) : rest_(text) {}

    QStringView rest() const { return rest_; }
    std::optional<QChar> takeIf(QStringView oneOf)
    {
        if (rest_.isEmpty() || std::find(oneOf.begin(), oneOf.end(), rest_.front()) == oneOf.end())
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
    const std::u16string_view text(name.utf16(), std::size_t(name.size()));
    const auto *const found = std::find_if(std::begin(qualities), std::end(qualities),
                                           [&](const Quality &known) { return text == known.name; });
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
    const auto rest = signs.rest();
    const auto *const sign = std::find(rest.begin(), rest.end(), u'/');
    const auto stroke = sign == rest.end() ? -1 : sign - rest.begin();
    const auto *const quality = qualityNamed(rest.left(stroke < 0 ? rest.size() : stroke));
    Signs behind(stroke < 0 ? QStringView() : rest.mid(stroke + 1));
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
