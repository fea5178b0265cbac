#include "core/AbcTokenSource.h"

#include "base/Interrupted.h"
#include "core/AbcNumbers.h"

#include <QCoreApplication>

namespace {

// Many times the keys of a piano; a chord is held in memory beside the events until its end.
constexpr size_t largestChord = 10'000;

QString unexpectedInChord()
{
    return QCoreApplication::translate("AbcParser", "Unexpected token found in chord at line %1, column %2.");
}

// With room for a line and a column, as far as it tells them.
QString messageOf(AbcRefusal why, AbcTokenType type)
{
    switch (why) {
    case AbcRefusal::HeaderText:
        return QCoreApplication::translate("AbcParser", "Unexpected token found in ABC header: line %1, column %2.");
    case AbcRefusal::EmptyChord:
        return QCoreApplication::translate("AbcParser", "Empty chord");
    case AbcRefusal::OpenChord:
    case AbcRefusal::GiantChord:
        return unexpectedInChord();
    case AbcRefusal::ForeignInChord:
        if (type != AbcTokenType::Character)
            return unexpectedInChord();
        break;
    case AbcRefusal::UnknownToken:
    case AbcRefusal::HugeNumber:
        break;
    }
    return QCoreApplication::translate("AbcParser", "Unknown token found in ABC body at line %1, column %2.");
}

QString at(const QString &message, int line, int column)
{
    return message.contains(u'%') ? message.arg(line + 1).arg(column + 1) : message;
}

// What an open chord meets: its bracket is the mistake then, not all that follows.
bool endsOpenChord(AbcTokenType type)
{
    return type == AbcTokenType::BarLine || type == AbcTokenType::FieldLine || type == AbcTokenType::InlineField ||
           type == AbcTokenType::ChordStart || type == AbcTokenType::Comment;
}

} // namespace

// Whether the listener wants to hear what comes behind the refused: from the token at hand to the last.
bool AbcTokenSource::goesOnBehind(AbcRefusal why, const AbcToken &last) const
{
    return listener_ != nullptr && listener_->refused(why, token_, last);
}

bool AbcTokenSource::refuse(AbcRefusal why) const
{
    if (!goesOnBehind(why, token_))
        throw at(messageOf(why, token_.type), token_.line, token_.column);
    return false;
}

void AbcTokenSource::failBehindToken() const
{
    throw at(unexpectedInChord(), token_.line, token_.column + int(token_.text.size()));
}

bool AbcTokenSource::nextInHeader()
{
    while (tokens_.next(token_)) {
        if (isReadableInHeader())
            return true;
    }
    return false;
}

bool AbcTokenSource::nextInBody()
{
    while (tokens_.next(token_)) {
        throwIfStopped(stop_);
        if (isReadableInBody())
            return true;
    }
    return false;
}

bool AbcTokenSource::nextInChord(size_t notesBefore)
{
    while (tokens_.next(token_)) {
        if (isReadableInChord(notesBefore))
            return true;
    }
    return false;
}

bool AbcTokenSource::isReadableInHeader()
{
    switch (token_.type) {
    case AbcTokenType::FieldLine:
    case AbcTokenType::Instruction:
    case AbcTokenType::WhiteSpace:
    case AbcTokenType::Comment:
        return true;
    default:
        refuse(AbcRefusal::HeaderText);
        tokens_.skipLine();
        return false;
    }
}

bool AbcTokenSource::isReadableInBody()
{
    switch (token_.type) {
    case AbcTokenType::Character:
        return refuse(AbcRefusal::UnknownToken);
    case AbcTokenType::Note:
    case AbcTokenType::Rest:
        return inGraceNotes_ || !hasHugeNumber(token_) || refuse(AbcRefusal::HugeNumber);
    case AbcTokenType::ChordStart:
        return inGraceNotes_ || listener_ == nullptr || isChordReadable();
    case AbcTokenType::GraceStart:
    case AbcTokenType::GraceEnd:
        inGraceNotes_ = token_.type == AbcTokenType::GraceStart;
        return true;
    default:
        return true;
    }
}

// Looks ahead, so that the listener never hears of half a chord. Where it does not want to go on, the chord's reader
// will find the same.
bool AbcTokenSource::isChordReadable()
{
    auto ahead = tokens_;
    AbcToken last;
    bool holdsMusic = false;
    do {
        if (!ahead.next(last) || endsOpenChord(last.type))
            return !goesOnBehind(AbcRefusal::OpenChord, token_);
        holdsMusic |= (last.type == AbcTokenType::Note || last.type == AbcTokenType::Rest) && !hasHugeNumber(last);
    } while (last.type != AbcTokenType::ChordEnd);
    if (holdsMusic || !goesOnBehind(AbcRefusal::EmptyChord, last))
        return true;
    while (nextInChord(0) && token_.type != AbcTokenType::ChordEnd) {
    }
    return false;
}

bool AbcTokenSource::isReadableInChord(size_t notesBefore)
{
    switch (token_.type) {
    case AbcTokenType::WhiteSpace:
    case AbcTokenType::ChordEnd:
        return true;
    case AbcTokenType::Note:
        if (notesBefore >= largestChord)
            return refuse(AbcRefusal::GiantChord);
        [[fallthrough]];
    case AbcTokenType::Rest:
        return !hasHugeNumber(token_) || refuse(AbcRefusal::HugeNumber);
    default:
        return refuse(AbcRefusal::ForeignInChord);
    }
}
