#pragma once

#include <QLatin1String>
#include <QString>

#include <array>

// The fifteen key signatures, from seven sharps (row 0) over none (row 7) to seven flats (row 14), and the seven modes
// (columns) in which each has a tonic. Letters are counted C D E F G A B = 0..6; accidentals are signed, +1 for each
// sharp, -1 for each flat.
constexpr quint32 keyRowCount = 15;
constexpr quint32 neutralKeyRow = 7;
constexpr quint32 modeCount = 7;
enum KeyMode : quint32 { Major, Minor, Mixolydian, Dorian, Phrygian, Lydian, Locrian };

// How a key writes one of the twelve pitch classes. The octave counts from the written letter: B# sounds in the octave
// above the one it is written in (correction -1), Cb in the one below (+1).
struct Spelling
{
    qint8 letter = 0;
    qint8 accidental = 0;
    qint8 octaveCorrection = 0;
};

namespace KeyTable {

// The accidental that the key signature gives a letter.
int accidental(quint32 row, int letter);

const Spelling &spelling(quint32 row, quint32 pitchClass);

// As musicians write it: "Bb", "F#".
QLatin1String tonic(quint32 row, quint32 mode);

// "", "m", "mix", "dor", "phr", "lyd", "loc".
QLatin1String modeSuffix(quint32 mode);

// Tonic and suffix, for example "F#m".
QString keyName(quint32 row, quint32 mode);

// The row whose tonic in the mode is the given one, ignoring case; keyRowCount when there is none.
quint32 rowOfTonic(const QString &tonic, quint32 mode);

} // namespace KeyTable
