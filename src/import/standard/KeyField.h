#pragma once

#include <QtGlobal>

#include <array>
#include <optional>

QT_BEGIN_NAMESPACE
class QStringView;
QT_END_NAMESPACE

// A key signature of the ABC standard: what each letter (C D E F G A B = 0..6) sounds like without an accidental, and
// the key of our table that is nearest to it.
struct KeySignature
{
    std::array<int, 7> accidentals{}; // +1 for each sharp, -1 for each flat
    quint32 row = 7;                  // of KeyTable
    quint32 mode = 0;                 // KeyMode; only one that every reader of our texts understands alike
};

// What a clef and its companions do to the sound, each where it was given.
struct ClefShift
{
    std::optional<int> clef;      // semitones of a clef with an octave mark, "treble-8"
    std::optional<int> octave;    // octaves of "octave=-1"
    std::optional<int> transpose; // semitones of "transpose=-2"

    void take(const ClefShift &later);
    int semitones() const;
};

struct KeyField
{
    std::optional<KeySignature> signature; // none where the text names only a clef
    ClefShift shift;
    bool isReadable = true;
};

// The value of a K: field (ABC standard 2.1, section 4.6).
KeyField readKeyField(QStringView text);

// The clef and its companions among the parameters of a V: or K: field.
ClefShift readClefShift(QStringView parameters);
