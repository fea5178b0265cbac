#include "import/standard/Voice.h"

#include "import/standard/ChordName.h"

#include <utility>

namespace {

constexpr std::array<int, 7> naturalPitchClass{0, 2, 4, 5, 7, 9, 11};
constexpr int middleC = 60;

int stepOf(const WrittenPitch &pitch)
{
    return 7 * pitch.octave + pitch.letter;
}

} // namespace

// Notes take two or three characters with what stands between them.
void Voice::expect(qsizetype characters)
{
    constexpr qsizetype most = 4096;
    score_.items.reserve(int(std::min(most, characters / 2)));
    score_.notes.reserve(std::size_t(std::min(most, characters / 3)));
}

// An accidental holds as far as the reach says; one that a tie brings over a bar line is for the tied note alone.
int Voice::sounding(const WrittenPitch &pitch)
{
    const int step = stepOf(pitch);
    const int place = settings.reach == AccidentalReach::Letter ? pitch.letter : step;
    int semitones = settings.key.accidentals[size_t(pitch.letter)];
    if (const auto running = accidentals_.find(place); running != accidentals_.end())
        semitones = running->second;
    if (const auto tied = tiedOver_.find(step); tied != tiedOver_.end() && !isInGraces_) {
        semitones = tied->second;
        tiedOver_.erase(tied);
    }
    if (pitch.accidental) {
        semitones = *pitch.accidental;
        if (settings.reach != AccidentalReach::Note)
            accidentals_[place] = semitones;
    }
    if (!isInGraces_)
        lastSteps_.push_back({step, semitones});
    return middleC + 12 * pitch.octave + naturalPitchClass[size_t(pitch.letter)] + semitones +
           settings.shift.semitones() + settings.playedTranspose;
}

ScoreNote Voice::scoreNote(const WrittenPitch &pitch, const Fraction &units)
{
    return {sounding(pitch), units * settings.unitLength, false};
}

void Voice::note(const WrittenPitch &pitch, const Fraction &units)
{
    if (isInGraces_) {
        graces_.push_back(scoreNote(pitch, units));
        return;
    }
    if (!chord_)
        beginSound();
    const auto written = scoreNote(pitch, units);
    score_.notes.push_back(written);
    if (!chord_)
        addSound({quint32(score_.notes.size()) - 1, 1}, written.length);
}

void Voice::beginChord()
{
    score_.notes.resize(chord_.value_or(quint32(score_.notes.size())));
    chord_ = quint32(score_.notes.size());
    if (!isInGraces_)
        beginSound();
}

// Ties speak of the sound before.
void Voice::beginSound()
{
    if (settings.reach == AccidentalReach::Note)
        tiedOver_.insert(tiedSemitones_.begin(), tiedSemitones_.end());
    tiedSemitones_.clear();
    lastSteps_.clear();
}

// The first note says how far time moves on; each keeps its own length.
void Voice::endChord(const Fraction &factor)
{
    if (!chord_)
        return;
    const auto notes = notesFrom(*std::exchange(chord_, std::nullopt));
    if (isInGraces_)
        score_.notes.resize(notes.begin);
    if (notes.count == 0 || isInGraces_)
        return;
    for (auto &note : score_.in(notes))
        note.length = note.length * factor;
    addSound(notes, score_.notes[notes.begin].length);
}

// In a chord it ties the note before it, behind the chord all of them.
void Voice::tie()
{
    const auto remember = [this](const SoundedStep &last) { tiedSemitones_[last.step] = last.semitones; };
    if (isInGraces_)
        return;
    if (chord_) {
        if (notesFrom(*chord_).count == 0)
            return;
        score_.notes.back().isTied = true;
        if (!lastSteps_.empty())
            remember(lastSteps_.back());
        return;
    }
    if (lastSound_ < 0)
        return;
    for (auto &note : score_.in(score_.items[int(lastSound_)].notes))
        note.isTied = true;
    for (const auto &last : lastSteps_)
        remember(last);
}

void Voice::rest(const Fraction &units)
{
    if (chord_ || isInGraces_)
        return;
    beginSound();
    addSound({}, units * settings.unitLength);
}

void Voice::measureRest(int measures)
{
    const auto measure = settings.metre.isNone() ? ticksPerWholeNote : settings.metre.measureTicks();
    ScoreItem item;
    item.duration = Fraction(std::min<Ticks>(measure, 100 * ticksPerWholeNote) * measures);
    item.first = quint32(measures - 1);
    score_.items.append(item);
    lastSound_ = -1;
    hasMusic_ = true;
}

void Voice::stretch(ScoreItem &item, const Fraction &factor)
{
    if (factor == Fraction(1))
        return;
    item.duration = item.duration * factor;
    for (auto &note : score_.in(item.notes))
        note.length = note.length * factor;
}

void Voice::addSound(const ScoreNotes &notes, const Fraction &duration)
{
    ScoreItem item;
    item.duration = duration;
    item.notes = notes;
    if (!graces_.empty()) {
        const auto begin = quint32(score_.notes.size());
        score_.notes.insert(score_.notes.end(), graces_.begin(), graces_.end());
        item.graces = notesFrom(begin);
        graces_.clear();
    }
    if (tuplet_.notesLeft > 0) {
        --tuplet_.notesLeft;
        stretch(item, tuplet_.ratio);
    }
    stretch(item, nextFactor_);
    nextFactor_ = 1;
    lastSound_ = score_.items.size();
    score_.items.append(item);
    hasMusic_ = true;
    tiedOver_.clear();
}

void Voice::tuplet(int count, int inTimeOf, int notes)
{
    tuplet_ = {Fraction(inTimeOf, count), notes};
}

void Voice::brokenRhythm(int dots)
{
    if (lastSound_ < 0)
        return;
    const int power = 1 << std::min(qAbs(dots), 8);
    const Fraction shorter(1, power);
    const Fraction longer(2 * power - 1, power);
    stretch(score_.items[int(lastSound_)], dots > 0 ? longer : shorter);
    nextFactor_ = dots > 0 ? shorter : longer;
}

// Strings that name no chord say something to people.
void Voice::chordName(QStringView text)
{
    ScoreItem item;
    item.kind = ScoreItem::Kind::ChordName;
    item.first = quint32(settings.shift.transpose.value_or(0) + settings.playedTranspose);
    item.text = text.trimmed();
    if (!chordPitches(text).isEmpty())
        score_.items.append(item);
}

void Voice::changeKey(const KeySignature &key)
{
    settings.key = key;
    accidentals_.clear();
}

void Voice::bar()
{
    accidentals_.clear();
    tiedOver_ = tiedSemitones_;
    tiedSemitones_.clear();
    ScoreItem item;
    item.kind = ScoreItem::Kind::Bar;
    score_.items.append(item);
}

void Voice::overlay()
{
    accidentals_.clear();
    ScoreItem item;
    item.kind = ScoreItem::Kind::Overlay;
    score_.items.append(item);
}
