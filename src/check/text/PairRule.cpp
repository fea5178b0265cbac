#include "check/text/PairRule.h"

#include <utility>

void PairRule::token(const AbcToken &token)
{
    switch (token.type) {
    case AbcTokenType::ChordStart:
        hasChord_ = true;
        break;
    case AbcTokenType::ChordEnd:
        if (!std::exchange(hasChord_, false) && !std::exchange(missesChord_, false))
            addStray(token);
        break;
    case AbcTokenType::SlurStart:
        ++slurs_;
        break;
    case AbcTokenType::SlurEnd:
        if (slurs_ == 0)
            addStray(token);
        else
            --slurs_;
        break;
    case AbcTokenType::GraceStart:
        if (!graceNotes_)
            graceNotes_ = Finding{FindingKind::OpenGraceNotes, out_.rangeOf(token), out_.position};
        break;
    case AbcTokenType::GraceEnd:
        if (!graceNotes_)
            addStray(token);
        graceNotes_.reset();
        break;
    case AbcTokenType::Tie:
        addStray(token, {});
        break;
    default:
        break;
    }
}

void PairRule::refused(AbcRefusal why, const AbcToken &, const AbcToken &)
{
    missesChord_ |= why == AbcRefusal::OpenChord;
}

void PairRule::addStray(const AbcToken &token, QVector<TextChange> fix)
{
    if (out_.hasRoomFor(FindingKind::StraySign))
        out_.addBehindElement(
            {FindingKind::StraySign, out_.rangeOf(token), -1, {token.text.toString()}, std::move(fix)});
}

void PairRule::textEnds(const Track &)
{
    if (graceNotes_)
        out_.add(*std::exchange(graceNotes_, {}));
}
