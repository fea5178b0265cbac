#include "edit/plan/RewriteLoss.h"

#include "core/AbcTokenizer.h"

RewriteLoss lostInRewriting(const QString &text)
{
    RewriteLoss loss;
    AbcTokenizer tokens(text);
    AbcToken token;
    while (tokens.next(token)) {
        switch (token.type) {
        case AbcTokenType::BarLine:
            ++loss.barLines;
            break;
        case AbcTokenType::Comment:
        case AbcTokenType::Instruction:
            ++loss.comments;
            break;
        case AbcTokenType::ChordSymbol:
        case AbcTokenType::Annotation:
            ++loss.chordSymbols;
            break;
        case AbcTokenType::BangDecoration:
        case AbcTokenType::PlusDecoration:
        case AbcTokenType::LetterDecoration:
        case AbcTokenType::GraceStart:
        case AbcTokenType::SlurStart:
        case AbcTokenType::VariantEnding:
            ++loss.decorations;
            break;
        default:
            break;
        }
    }
    return loss;
}
