#include "edit/plan/FieldChange.h"

#include "core/AbcNumbers.h"
#include "core/HeaderFields.h"
#include "edit/NoteSpelling.h"
#include "edit/plan/EditWriter.h"
#include "edit/plan/NoteEditPlan.h"

#include <algorithm>
#include <numeric>

namespace {

using Changes = QVector<TextChange>;

// Calls visit(token, offset, isInBody) for all tokens that are not part of grace notes.
template<typename Visit>
void forEachToken(const QString &text, const AbcLayout &layout, Visit visit)
{
    const auto lines = lineOffsets(text);
    AbcTokenizer tokens(text);
    AbcToken token;
    bool inGraceNotes = false;
    while (tokens.next(token)) {
        if (token.type == AbcTokenType::GraceStart || token.type == AbcTokenType::GraceEnd)
            inGraceNotes = token.type == AbcTokenType::GraceStart;
        const auto offset = lines[token.line] + token.column;
        if (!inGraceNotes)
            visit(token, offset, offset >= layout.bodyOffset);
    }
}

bool isField(const AbcToken &token, char16_t name)
{
    return (token.type == AbcTokenType::FieldLine || token.type == AbcTokenType::InlineField) &&
           token.part(AbcPart::Name).startsWith(name);
}

// Of a field, without blanks and comment.
TextRange valueOf(const AbcToken &token, int offset)
{
    const auto value = token.part(AbcPart::Value);
    const auto comment = value.indexOf(u'%');
    const auto shown = comment < 0 ? value : value.left(comment);
    const auto begin = int(shown.data() - token.text.data()) + int(shown.size() - shown.trimmed().size());
    const auto size = shown.trimmed().size();
    return {offset + (size == 0 ? int(shown.data() - token.text.data()) : begin), int(size)};
}

// A field of the header, or a new one before its K field.
class HeaderField
{
public:
    explicit HeaderField(char16_t name) : name_(name) {}

    void see(const AbcToken &token, int offset, bool isInBody)
    {
        if (isInBody)
            return;
        if (!value_ && isField(token, name_))
            value_ = valueOf(token, offset);
        if (isField(token, u'K'))
            keyOffset_ = offset;
    }

    TextChange become(const QString &value) const
    {
        if (value_)
            return {*value_, value};
        return {{keyOffset_, 0}, QString(QChar(name_)) + QStringLiteral(": ") + value + u'\n'};
    }

private:
    char16_t name_;
    std::optional<TextRange> value_;
    int keyOffset_ = 0;
};

std::optional<QString> checked(const QString &text, const AbcReading &before, Changes changes)
{
    std::stable_sort(changes.begin(), changes.end(),
                     [](const TextChange &a, const TextChange &b) { return a.range.offset < b.range.offset; });
    auto result = applyChanges(text, changes);
    const auto after = readAbc(result).track;
    const bool isSame =
        NoteEditPlan::haveSameEvents(after, before.track) && after.ticksPerMinute() == before.track.ticksPerMinute();
    return isSame ? std::optional(result) : std::nullopt;
}

QString fractionText(quint32 ticks)
{
    const auto divisor = std::gcd(ticks, quint32(ticksPerWholeNote));
    return QStringLiteral("%1/%2").arg(ticks / divisor).arg(quint32(ticksPerWholeNote) / divisor);
}

QString withBeat(const QString &tempo, Ticks unitLength)
{
    const auto read = HeaderFields::parseTempo(tempo);
    return fractionText(quint32(unitLength)) + u'=' + QString::number(read.readable ? read.bpm : 120);
}

// Up to the first key within the music.
void setKey(AbcLayout &layout, quint32 row)
{
    for (auto &mark : layout.marks) {
        if (mark.kind == AbcAccidentalMark::Kind::Key)
            return;
        mark.keyRow = row;
    }
}

int endOfFirstKey(const AbcLayout &layout)
{
    const auto key = std::find_if(layout.marks.begin(), layout.marks.end(), [](const AbcAccidentalMark &mark) {
        return mark.kind == AbcAccidentalMark::Kind::Key;
    });
    return key == layout.marks.end() ? std::numeric_limits<int>::max() : key->offset;
}

} // namespace

std::optional<QString> FieldChange::inKey(const QString &text, const AbcReading &reading, const QString &key)
{
    HeaderField field(u'K');
    forEachToken(text, reading.layout,
                 [&](const AbcToken &token, int offset, bool isInBody) { field.see(token, offset, isInBody); });
    auto respelled = reading;
    setKey(respelled.layout, HeaderFields::parseKey(key).row);
    NotePieces pieces(respelled, {}, EditReach::Notes);
    pieces.respellUpTo(endOfFirstKey(reading.layout));
    auto changes = EditWriter(text, respelled, pieces).write();
    changes.append(field.become(key));
    return checked(text, reading, changes);
}

std::optional<QString> FieldChange::inUnitLength(const QString &text, const AbcReading &reading,
                                                 const QString &unitLength)
{
    constexpr quint64 largestNumber = 0xFFFFFFFF;
    const auto newUnit = Ticks(HeaderFields::parseUnitLength(unitLength));
    HeaderField lengthField(u'L');
    HeaderField tempoField(u'Q');
    Changes changes;
    bool isPossible = true;
    forEachToken(text, reading.layout, [&](const AbcToken &token, int offset, bool isInBody) {
        lengthField.see(token, offset, isInBody);
        tempoField.see(token, offset, isInBody);
        if (!isInBody)
            return;
        const bool isNote = token.type == AbcTokenType::Note;
        const bool isRest = token.type == AbcTokenType::Rest && token.part(AbcPart::Letter)[0] >= u'x';
        if (isNote || isRest) {
            const auto length = writtenLength(token);
            const auto written = token.part(AbcPart::Length);
            isPossible = isPossible && length.numerator <= largestNumber && length.denominator <= largestNumber;
            changes.append({{offset + int(token.parts[size_t(AbcPart::Length)].begin), int(written.size())},
                            isPossible ? lengthText(Ticks(length.numerator) * reading.unitLength,
                                                    Ticks(length.denominator) * newUnit)
                                       : QString()});
        } else if (isField(token, u'Q')) {
            const auto value = valueOf(token, offset);
            const auto tempo = text.mid(value.offset, value.length);
            if (const auto read = HeaderFields::parseTempo(tempo); read.readable && !read.hasBeat())
                changes.append({value, withBeat(tempo, reading.unitLength)});
        }
    });
    if (!isPossible || reading.unitLength <= 0)
        return {};
    changes.prepend(lengthField.become(unitLength));
    if (const auto tempo = reading.track.headerField(QStringLiteral("Q")); !HeaderFields::parseTempo(tempo).hasBeat())
        changes.prepend(tempoField.become(withBeat(tempo, reading.unitLength)));
    return checked(text, reading, changes);
}
