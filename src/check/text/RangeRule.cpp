#include "check/text/RangeRule.h"

#include "core/AbcParser.h"
#include "core/KeyTable.h"
#include "edit/NoteSpelling.h"

namespace {

constexpr int semitonesOfOctave = 12;
constexpr int stepsOfOctave = 7;

// By how many octaves, up or down, a note comes into the range.
int octavesInto(int pitch)
{
    const int below = int(lowestPlayablePitch) - pitch;
    const int above = pitch - int(highestPlayablePitch);
    return below > 0 ? (below + semitonesOfOctave - 1) / semitonesOfOctave
                     : -((above + semitonesOfOctave - 1) / semitonesOfOctave);
}

int octaveOf(int step)
{
    return (step >= 0 ? step : step - stepsOfOctave + 1) / stepsOfOctave;
}

} // namespace

void RangeRule::note(const AbcToken &token, const AbcPitch &pitch)
{
    if (isPlayable(pitch.pitch) || !out_.hasRoomFor(FindingKind::OutOfRange))
        return;
    out_.add(
        {FindingKind::OutOfRange, out_.rangeOf(token), out_.position, {token.text.toString()}, {folded(token, pitch)}});
}

// An accidental that holds from earlier in the measure does so only in its own octave.
TextChange RangeRule::folded(const AbcToken &token, const AbcPitch &pitch) const
{
    const auto letter = pitch.step - octaveOf(pitch.step) * stepsOfOctave;
    const auto octave = octaveOf(pitch.step) + octavesInto(pitch.pitch);
    const auto written = token.part(AbcPart::Accidental);
    QString text = written.toString();
    if (written.isEmpty() && pitch.accidental != KeyTable::accidental(keyRow_, letter))
        text = NoteSpelling::accidentalText(pitch.accidental);
    const QChar name(QLatin1Char("CDEFGAB"[letter]));
    text += octave > 0 ? name.toLower() + QString(octave - 1, u'\'') : name + QString(-octave, u',');
    const auto spelling = written.size() + token.part(AbcPart::Letter).size() + token.part(AbcPart::Octave).size();
    const auto begin = out_.rangeOf(token).offset + int(token.part(AbcPart::Staccato).size());
    return {{begin, int(spelling)}, text};
}
