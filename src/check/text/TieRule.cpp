#include "check/text/TieRule.h"

void TieRule::elementBegins(const AbcToken &)
{
    ++element_;
    pitches_.clear();
}

void TieRule::note(const AbcToken &token, const AbcPitch &pitch)
{
    if (!isPlayable(pitch.pitch))
        return;
    pitches_.push_back(quint32(pitch.pitch));
    if (token.has(AbcPart::Tie))
        add(quint32(pitch.pitch), token, false);
}

void TieRule::token(const AbcToken &token)
{
    if (token.type != AbcTokenType::ChordEnd || !token.part(AbcPart::Tie).contains(u'-'))
        return;
    for (const auto pitch : pitches_)
        add(pitch, token, true);
}

void TieRule::add(quint32 pitch, const AbcToken &token, bool isOfChord)
{
    auto &ties = ties_[pitch];
    if (ties.last.element != element_)
        ties.before = ties.last;
    const auto &span = token.parts[size_t(AbcPart::Tie)];
    ties.last = {element_, {out_.rangeOf(token).offset + span.begin, span.end - span.begin}, isOfChord};
}

// It is a note of the element that sounds just now that does not continue the tie, or the text ends.
void TieRule::tieLost(const TrackEvent &note)
{
    const auto &ties = ties_[note.pitch()];
    const auto &tie = ties.last.element == element_ && sounded_ != element_ ? ties.before : ties.last;
    if (tie.element == 0 || !out_.hasRoomFor(FindingKind::LostTie))
        return;
    Finding finding{FindingKind::LostTie, tie.range, note.end()};
    if (!tie.isOfChord) // whose other notes may go on
        finding.fix = {{tie.range, {}}};
    out_.add(finding);
}
