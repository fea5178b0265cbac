#include "check/text/FoldRule.h"

#include "core/KeyTable.h"
#include "edit/NoteSpelling.h"

#include <algorithm>

namespace {

constexpr int semitonesOfOctave = 12;
constexpr int stepsOfOctave = 7;

int octaveOf(int step)
{
    return (step >= 0 ? step : step - stepsOfOctave + 1) / stepsOfOctave;
}

int letterOf(int step)
{
    return step - octaveOf(step) * stepsOfOctave;
}

QString nameOf(int step)
{
    const auto octave = octaveOf(step);
    const QChar name(QLatin1Char("CDEFGAB"[letterOf(step)]));
    return octave > 0 ? name.toLower() + QString(octave - 1, u'\'') : name + QString(-octave, u',');
}

int octavesIntoRange(int pitch)
{
    const int below = int(lowestPlayablePitch) - pitch;
    const int above = pitch - int(highestPlayablePitch);
    return below > 0 ? (below + semitonesOfOctave - 1) / semitonesOfOctave
                     : -((above + semitonesOfOctave - 1) / semitonesOfOctave);
}

} // namespace

FoldRule::FoldRule(TextFindings &out, const OctaveMoves &moves)
    : TextRule(out), moves_(moves), room_{out.mostFindings(), out.mostFindings()}
{
}

FoldRule::OfStep &FoldRule::use(int step)
{
    const auto last = int(steps_.size()) - 1;
    auto &used = steps_[size_t(std::clamp(step + octavesOfSteps / 2 * stepsOfOctave, 0, last))];
    used_.push_back(&used);
    return used;
}

void FoldRule::barLine(const AbcToken &, Ticks)
{
    for (auto *const step : used_)
        *step = {};
    used_.clear();
}

// A chord's tie stands behind it.
void FoldRule::token(const AbcToken &token)
{
    if (!ofElement_.empty() && token.type == AbcTokenType::ChordEnd && token.part(AbcPart::Tie).contains(u'-'))
        ties_.insert(ties_.end(), ofElement_.begin(), ofElement_.end());
}

// There are no more fixes than findings.
int FoldRule::octavesOf(int pitch)
{
    const bool isInRange = isPlayable(pitch);
    const int octaves = isInRange ? moves_[size_t(pitch)] : octavesIntoRange(pitch);
    return octaves != 0 && room_[isInRange ? 1 : 0]-- > 0 ? octaves : 0;
}

// One that is tied to a note that moved has no finding of its own, unless it is out of range.
std::optional<FoldRule::Move> FoldRule::moveOf(const AbcToken &token, int pitch)
{
    const auto tie =
        std::find_if(ties_.begin(), ties_.end(), [pitch](const Move &move) { return move.pitch == pitch; });
    if (tie != ties_.end()) {
        const auto move = *tie;
        ties_.erase(tie);
        if (isPlayable(pitch))
            return move;
    }
    const auto octaves = octavesOf(pitch);
    if (octaves == 0)
        return {};
    fixes_.push_back({out_.rangeOf(token).offset, {}});
    return Move{pitch, octaves, fixes_.size() - 1};
}

void FoldRule::note(const AbcToken &token, const AbcPitch &pitch)
{
    const bool isWritten = !token.part(AbcPart::Accidental).isEmpty();
    const auto found = moveOf(token, pitch.pitch);
    if (!found && !isWritten && used_.empty())
        return;
    auto &here = use(pitch.step);
    if (found)
        move(token, pitch, *found);
    else
        keepAccidental(token, pitch, here);
    if (isWritten)
        here.written = qint8(pitch.accidental);
}

// Whether or not those before it are moved, too, it sounds the same.
void FoldRule::move(const AbcToken &token, const AbcPitch &pitch, const Move &move)
{
    const auto step = pitch.step + move.octaves * stepsOfOctave;
    auto &there = use(step);
    const int inForce = there.written != none ? there.written : KeyTable::accidental(keyRow_, letterOf(step));
    const bool isClear = inForce == pitch.accidental && (there.moved == none || there.moved == pitch.accidental);
    const auto written = token.part(AbcPart::Accidental);
    auto text = written.toString();
    if (text.isEmpty() && !isClear)
        text = NoteSpelling::accidentalText(pitch.accidental);
    if (!text.isEmpty()) {
        there.moved = qint8(pitch.accidental);
        there.fix = move.fix + 1;
    }
    const auto size = written.size() + token.part(AbcPart::Letter).size() + token.part(AbcPart::Octave).size();
    const auto begin = out_.rangeOf(token).offset + int(token.part(AbcPart::Staccato).size());
    fixes_[move.fix].changes.append({{begin, int(size)}, text + nameOf(step)});
    if (token.has(AbcPart::Tie))
        ties_.push_back(move);
    ofElement_.push_back(move);
}

void FoldRule::keepAccidental(const AbcToken &token, const AbcPitch &pitch, OfStep &here)
{
    if (here.moved == none)
        return;
    if (token.part(AbcPart::Accidental).isEmpty() && here.moved != pitch.accidental) {
        const auto begin = out_.rangeOf(token).offset + int(token.part(AbcPart::Staccato).size());
        fixes_[here.fix - 1].changes.append({{begin, 0}, NoteSpelling::accidentalText(pitch.accidental)});
    }
    here.moved = none;
}
