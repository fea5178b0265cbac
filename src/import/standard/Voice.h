#pragma once

#include "core/HeaderFields.h"
#include "import/standard/KeyField.h"
#include "import/standard/ScoreItem.h"

#include <QString>
#include <QVector>

#include <map>
#include <optional>

// How far an accidental before a note reaches: that note alone, the same pitch or the same letter to the bar line.
enum class AccidentalReach { Note, Pitch, Letter };

// A pitch as it is written.
struct WrittenPitch
{
    int letter = 0;                // C D E F G A B = 0..6
    int octave = 0;                // 0: from middle C upwards
    std::optional<int> accidental; // semitones; none where nothing is written
};

// What holds in a voice from some place on.
struct VoiceSettings
{
    KeySignature key;
    ClefShift shift;
    int playedTranspose = 0; // semitones, of play directives
    HeaderFields::Metre metre;
    Fraction unitLength = Fraction(ticksPerWholeNote, 8);
    AccidentalReach reach = AccidentalReach::Letter;
};

// One voice of a tune while it is read: it takes notes as they are written and keeps them as items with their sounding
// lengths. Lengths given to it are in unit notes.
class Voice
{
public:
    VoiceSettings settings;
    QString name;
    std::optional<int> program;         // of General MIDI, 0..127
    std::optional<int> channel;         // 1..16
    std::map<QString, int> decorations; // by name, how often

    void note(const WrittenPitch &pitch, const Fraction &units);
    void beginChord();
    void endChord(const Fraction &factor);
    bool isInChord() const { return chord_.has_value(); }
    void tie();
    void rest(const Fraction &units);
    void measureRest(int measures);
    void beginGraces() { isInGraces_ = true; }
    void endGraces() { isInGraces_ = false; }
    void tuplet(int count, int inTimeOf, int notes);
    // Positive: the note before is dotted and the next one cut, ">"; negative: the other way round; |dots| signs.
    void brokenRhythm(int dots);
    // Accidentals of the measure are none in the new key.
    void changeKey(const KeySignature &key);
    void bar();
    void overlay();
    void chordName(QStringView text);
    void append(const ScoreItem &item) { score_.items.append(item); }

    // So many characters of music are to come.
    void expect(qsizetype characters);

    const VoiceScore &score() const { return score_; }
    bool hasMusic() const { return hasMusic_; }

private:
    struct Tuplet
    {
        Fraction ratio;
        int notesLeft = 0;
    };
    struct SoundedStep
    {
        int step = 0;      // letter and octave
        int semitones = 0; // its accidental
    };
    void beginSound();
    int sounding(const WrittenPitch &pitch);
    ScoreNote scoreNote(const WrittenPitch &pitch, const Fraction &units);
    void addSound(const ScoreNotes &notes, const Fraction &duration);
    ScoreNotes notesFrom(quint32 begin) const { return {begin, quint32(score_.notes.size()) - begin}; }
    void stretch(ScoreItem &item, const Fraction &factor);

    VoiceScore score_;
    std::optional<quint32> chord_;       // where the notes of an open one begin
    std::vector<ScoreNote> graces_;      // before the next notes
    std::map<int, int> accidentals_;     // of this measure, by letter or by letter and octave
    std::map<int, int> tiedSemitones_;   // accidentals that ties carry, by letter and octave
    std::map<int, int> tiedOver_;        // those of them that crossed a bar line
    std::vector<SoundedStep> lastSteps_; // of the notes that a tie may follow
    Tuplet tuplet_;
    Fraction nextFactor_ = 1; // of broken rhythm
    qsizetype lastSound_ = -1;
    bool isInGraces_ = false;
    bool hasMusic_ = false;
};
