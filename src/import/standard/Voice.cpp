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
    if (chord_)
        chord_->push_back(written);
    else
        addSound({written}, written.length);
}

void Voice::beginChord()
{
    chord_.emplace();
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
    auto notes = chord_.value_or(std::vector<ScoreNote>());
    chord_.reset();
    if (notes.empty())
        return;
    for (auto &note : notes)
        note.length = note.length * factor;
    if (isInGraces_)
        return;
    const auto duration = notes.front().length;
    addSound(std::move(notes), duration);
}

// In a chord it ties the note before it, behind the chord all of them.
void Voice::tie()
{
    const auto remember = [this](const SoundedStep &last) { tiedSemitones_[last.step] = last.semitones; };
    if (isInGraces_)
        return;
    if (chord_) {
        if (chord_->empty())
            return;
        chord_->back().isTied = true;
        if (!lastSteps_.empty())
            remember(lastSteps_.back());
        return;
    }
    if (lastSound_ < 0)
        return;
    for (auto &note : items_[int(lastSound_)].notes)
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
    items_.append(item);
    lastSound_ = -1;
    hasMusic_ = true;
}

void Voice::stretch(ScoreItem &item, const Fraction &factor)
{
    item.duration = item.duration * factor;
    for (auto &note : item.notes)
        note.length = note.length * factor;
}

void Voice::addSound(std::vector<ScoreNote> notes, Fraction duration)
{
    ScoreItem item;
    item.duration = duration;
    item.notes = std::move(notes);
    item.graces = std::exchange(graces_, {});
    if (tuplet_.notesLeft > 0) {
        --tuplet_.notesLeft;
        stretch(item, tuplet_.ratio);
    }
    stretch(item, nextFactor_);
    nextFactor_ = 1;
    lastSound_ = items_.size();
    items_.append(std::move(item));
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
    stretch(items_[int(lastSound_)], dots > 0 ? longer : shorter);
    nextFactor_ = dots > 0 ? shorter : longer;
}

// Strings that name no chord say something to people.
void Voice::chordName(QStringView text)
{
    ScoreItem item;
    item.kind = ScoreItem::Kind::ChordName;
    const int transposed = settings.shift.transpose.value_or(0) + settings.playedTranspose;
    for (const int pitch : chordPitches(text))
        item.notes.push_back({pitch + transposed, {}, false});
    item.text = text.trimmed().toString();
    if (!item.notes.empty())
        items_.append(item);
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
    items_.append(item);
}

void Voice::overlay()
{
    accidentals_.clear();
    ScoreItem item;
    item.kind = ScoreItem::Kind::Overlay;
    items_.append(item);
}
