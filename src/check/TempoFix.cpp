#include "check/TempoFix.h"

#include "core/AbcTokenizer.h"
#include "edit/AbcReading.h"
#include "edit/NoteSpelling.h"
#include "import/WrittenTempo.h"

#include <algorithm>
#include <optional>
#include <tuple>

namespace {

using Tempo = PartFacts::Tempo;

QString fieldOf(const Tempo &tempo)
{
    return QStringLiteral("[Q:%1]").arg(tempoText(tempo.ticksPerMinute));
}

// The Q: fields behind the header, each with its line where it has one of its own.
QVector<TextChange> withoutFields(const QString &text, int bodyOffset)
{
    const auto lines = lineOffsets(text);
    QVector<TextChange> changes;
    AbcTokenizer tokens(text);
    for (AbcToken token; tokens.next(token);) {
        const bool isLine = token.type == AbcTokenType::FieldLine;
        const int offset = lines[token.line] + token.column;
        const bool isTempo = (isLine || token.type == AbcTokenType::InlineField) && token.part(AbcPart::Name) == u"Q";
        if (!isTempo || offset < bodyOffset)
            continue;
        const int next = isLine ? lines.value(token.line + 1, int(text.size())) : offset + int(token.text.size());
        changes.append(TextChange{{offset, next - offset}, {}});
    }
    return changes;
}

// Writes tempos between the elements of a text, and into them.
class TempoWriter
{
public:
    TempoWriter(const QString &text, const AbcReading &reading)
        : text_(text), layout_(reading.layout), unitLength_(reading.unitLength)
    {
    }

    // first, end: of the tempos from this element's start to its end. False where they cannot be written.
    template<typename Iterator>
    bool write(const AbcUnit &unit, const AbcTextElement &element, Iterator first, Iterator end)
    {
        if (first != end && first->from == element.start) {
            const bool isJoined = unit.isCompound && &element != &layout_.elements[unit.firstElement];
            if (isJoined || unit.continuesTuplet)
                return false;
            replace({unit.isCompound ? unit.range.offset : element.range.offset, 0}, fieldOf(*first++));
        }
        return first == end || (isCuttable(unit, element) && cut(element, first, end));
    }
    QVector<TextChange> take() { return std::move(changes_); }

private:
    static bool isCuttable(const AbcUnit &unit, const AbcTextElement &element)
    {
        return !unit.isCompound && !element.isMeasuresRest && element.chordLengthText.isEmpty();
    }

    // A chord lasts as long as its shortest member, and its other notes sound on: with a short rest in it a note has
    // the same length as before, and what follows it comes earlier.
    template<typename Iterator>
    bool cut(const AbcTextElement &element, Iterator first, Iterator end)
    {
        const auto rest = [this](Ticks length) { return u'z' + lengthText(length, unitLength_); };
        const auto shortRest = rest(first->from - element.start);
        QString behind;
        for (auto tempo = first; tempo != end; ++tempo) {
            const auto next = tempo + 1 == end ? element.end() : (tempo + 1)->from;
            behind += fieldOf(*tempo) + rest(next - tempo->from);
        }
        const int offset = noteOffset(element);
        if (offset < 0)
            return false;
        const bool isRest = text_[offset] == u'z' || text_[offset] == u'x';
        if (isRest) {
            replace({offset, element.range.end() - offset}, shortRest + behind);
            return true;
        }
        const int place = element.isChord ? offset + 1 : offset;
        replace({place, 0}, element.isChord ? shortRest : u'[' + shortRest);
        replace({element.range.end(), 0}, element.isChord ? behind : u']' + behind);
        return true;
    }

    // Behind what decorates it; -1 where that cannot be told.
    int noteOffset(const AbcTextElement &element) const
    {
        const auto begin = text_[element.range.offset];
        const bool isPlain = begin.isLetter() || QStringLiteral("[^_=").contains(begin);
        return isPlain && !element.isTied ? element.range.offset : -1;
    }

    void replace(TextRange range, const QString &text) { changes_.append(TextChange{range, text}); }

    const QString &text_;
    const AbcLayout &layout_;
    Ticks unitLength_;
    QVector<TextChange> changes_;
};

std::optional<QVector<TextChange>> writtenTempos(const QString &text, const AbcReading &reading,
                                                 const std::vector<Tempo> &tempos, Ticks length)
{
    TempoWriter writer(text, reading);
    const auto isEarlier = [](const Tempo &tempo, Ticks tick) { return tempo.from < tick; };
    auto next = tempos.begin() + 1; // the first is the header's
    const auto last = std::lower_bound(next, tempos.end(), length, isEarlier);
    for (const auto &unit : reading.layout.units) {
        for (int i = unit.firstElement; i < unit.endElement && !unit.isGap; ++i) {
            const auto &element = reading.layout.elements[i];
            const auto end = std::lower_bound(next, last, element.end(), isEarlier);
            if (next != end && (next->from < element.start || !writer.write(unit, element, next, end)))
                return std::nullopt;
            next = end;
        }
    }
    return next == last ? std::optional(writer.take()) : std::nullopt;
}

// Grace notes, decorations and ties can make of a cut what was not meant.
bool hasSameNotes(const AbcReading &fixed, const AbcReading &reading)
{
    const auto notesOf = [](const AbcReading &each) {
        std::vector<std::tuple<Ticks, Ticks, quint32>> notes;
        for (const auto &event : each.track.events()) {
            if (event.isNote())
                notes.emplace_back(event.start(), event.length(), event.pitch());
        }
        return notes;
    };
    return fixed.problems.isEmpty() && notesOf(fixed) == notesOf(reading);
}

} // namespace

std::optional<QVector<TextChange>> tempoFix(const QString &text, const std::vector<Tempo> &tempos, Ticks length)
{
    const auto reading = readAbc(text);
    if (!reading.problems.isEmpty())
        return {};
    const auto written = writtenTempos(text, reading, tempos, length);
    if (!written)
        return {};
    auto changes = withoutFields(text, reading.layout.bodyOffset) + *written;
    std::stable_sort(changes.begin(), changes.end(),
                     [](const auto &a, const auto &b) { return a.range.offset < b.range.offset; });
    if (!hasSameNotes(readAbc(applyChanges(text, changes)), reading))
        return {};
    return changes;
}
