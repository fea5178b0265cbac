#include "core/KeyTable.h"

namespace {

using Tonics = std::array<const char *, modeCount>;

constexpr std::array<Tonics, keyRowCount> tonics{{
    {"C#", "A#", "G#", "D#", "E#", "F#", "B#"},
    {"F#", "D#", "C#", "G#", "A#", "B", "E#"},
    {"B", "G#", "F#", "C#", "D#", "E", "A#"},
    {"E", "C#", "B", "F#", "G#", "A", "D#"},
    {"A", "F#", "E", "B", "C#", "D", "G#"},
    {"D", "B", "A", "E", "F#", "G", "C#"},
    {"G", "E", "D", "A", "B", "C", "F#"},
    {"C", "A", "G", "D", "E", "F", "B"},
    {"F", "D", "C", "G", "A", "Bb", "E"},
    {"Bb", "G", "F", "C", "D", "Eb", "A"},
    {"Eb", "C", "Bb", "F", "G", "Ab", "D"},
    {"Ab", "F", "Eb", "Bb", "C", "Db", "G"},
    {"Db", "Bb", "Ab", "Eb", "F", "Gb", "C"},
    {"Gb", "Eb", "Db", "Ab", "Bb", "Cb", "F"},
    {"Cb", "Ab", "Gb", "Db", "Eb", "Fb", "Bb"},
}};

constexpr std::array<const char *, modeCount> modeSuffixes{"", "m", "mix", "dor", "phr", "lyd", "loc"};

struct KeyRow
{
    std::array<qint8, 7> accidentals{};
    std::array<Spelling, 12> spellings{};
};

// Sharps come in the order F C G D A E B, flats in the reverse.
constexpr std::array<int, 7> sharpOrder{3, 0, 4, 1, 5, 2, 6};

// The pitch classes are the major scale of the key and, between its steps, the raised lower step - except that the step
// below the seventh is the lowered seventh.
struct Degree
{
    int step;
    int alteration;
};
constexpr std::array<Degree, 12> degrees{
    {{0, 0}, {0, 1}, {1, 0}, {1, 1}, {2, 0}, {3, 0}, {3, 1}, {4, 0}, {4, 1}, {5, 0}, {6, -1}, {6, 0}}};

constexpr int floorMod(int value, int modulus)
{
    return (value % modulus + modulus) % modulus;
}

constexpr KeyRow makeRow(int row)
{
    constexpr std::array<int, 7> naturalPitchClass{0, 2, 4, 5, 7, 9, 11};
    KeyRow result;
    const int sharps = int(neutralKeyRow) - row;
    for (int i = 0; i < sharps; ++i)
        result.accidentals[size_t(sharpOrder[size_t(i)])] = 1;
    for (int i = 0; i < -sharps; ++i)
        result.accidentals[size_t(sharpOrder[size_t(6 - i)])] = -1;

    const int tonicLetter = floorMod(4 * sharps, 7); // each sharp moves the tonic up a fifth, four letters
    for (const auto &degree : degrees) {
        const int letter = (tonicLetter + degree.step) % 7;
        const int accidental = result.accidentals[size_t(letter)] + degree.alteration;
        const int pitch = naturalPitchClass[size_t(letter)] + accidental;
        const int pitchClass = floorMod(pitch, 12);
        result.spellings[size_t(pitchClass)] = {qint8(letter), qint8(accidental), qint8((pitchClass - pitch) / 12)};
    }
    return result;
}

constexpr auto makeRows()
{
    std::array<KeyRow, keyRowCount> rows;
    for (size_t row = 0; row < rows.size(); ++row)
        rows[row] = makeRow(int(row));
    return rows;
}

constexpr auto keyRows = makeRows();

} // namespace

namespace KeyTable {

int accidental(quint32 row, int letter)
{
    return keyRows[row].accidentals[size_t(letter)];
}

const Spelling &spelling(quint32 row, quint32 pitchClass)
{
    return keyRows[row].spellings[pitchClass];
}

QLatin1String tonic(quint32 row, quint32 mode)
{
    return QLatin1String(tonics[row][mode]);
}

QLatin1String modeSuffix(quint32 mode)
{
    return QLatin1String(modeSuffixes[mode]);
}

QString keyName(quint32 row, quint32 mode)
{
    return tonic(row, mode) + modeSuffix(mode);
}

quint32 rowOfTonic(const QString &name, quint32 mode)
{
    quint32 row = 0;
    while (row < keyRowCount && name.compare(tonic(row, mode), Qt::CaseInsensitive) != 0)
        ++row;
    return row;
}

} // namespace KeyTable
