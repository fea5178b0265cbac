#include "edit/AbcLayout.h"

#include "core/AbcParser.h"
#include "edit/AbcReading.h"

#include <algorithm>
#include <array>

namespace {

// Keeps what the parser tells: the place and the time of everything, not only of the notes.
class LayoutMaker final : public AbcListener
{
public:
    LayoutMaker(const QString &text, const AbcRefusals &refusals)
        : text_(text), lines_(lineOffsets(text)), refusals_(refusals)
    {
    }
    AbcLayout layoutOf(const Track &track);

    void bodyBegins(int line, quint32 keyRow) override;
    void token(const AbcToken &token) override;
    void elementBegins(const AbcToken &first, bool isBroken, bool inTuplet) override;
    void note(const AbcToken &token, const AbcPitch &pitch) override;
    void elementEnds(const AbcToken &last) override;
    void elementSounds(Ticks end) override;
    void barLine(const AbcToken &token, quint32 keyRow, Ticks position) override;
    void keyChange(const AbcToken &token, quint32 keyRow) override;
    bool refused(AbcRefusal why, const AbcToken &first, const AbcToken &last) override;

private:
    void beginUnit(int offset);
    void continueTuplet();
    void addRest(const AbcToken &token);
    void addLength(const AbcRatio &length);
    void endChord(const AbcToken &bracket);
    void addGapBeforeBar(int barOffset, Ticks end);
    void addTail();
    void assignEvents(const QVector<TrackEvent> &events);
    int offsetOf(const AbcToken &token) const { return lines_[token.line] + token.column; }
    int endOf(const AbcToken &token) const { return offsetOf(token) + int(token.text.size()); }

    const QString &text_;
    QVector<int> lines_;
    const AbcRefusals &refusals_;
    AbcLayout layout_;
    QVector<int> pitches_; // of layout_.tokens
    Ticks position_ = 0;
    int line_ = -1;         // of the last token
    int tupletOffset_ = -1; // of the tuplet that the next element begins
    bool unitIsOpen_ = false;
    bool measureHasUnits_ = false;
    bool inElement_ = false;
    bool elementIsEmpty_ = true;
    bool somethingBetween_ = true; // more than blanks since the last unit
    int tailOffset_ = 0;
};

void LayoutMaker::bodyBegins(int line, quint32 keyRow)
{
    layout_.bodyOffset = line < lines_.size() ? lines_[line] : int(text_.size());
    layout_.marks.append({layout_.bodyOffset, keyRow, 0});
    tailOffset_ = layout_.bodyOffset;
    layout_.tailNeedsLine = tailOffset_ == 0 || text_[tailOffset_ - 1] != u'\n';
}

void LayoutMaker::token(const AbcToken &token)
{
    somethingBetween_ |= token.line != line_;
    line_ = token.line;
    switch (token.type) {
    case AbcTokenType::WhiteSpace:
        return;
    case AbcTokenType::Tuplet:
        tupletOffset_ = offsetOf(token);
        break;
    case AbcTokenType::Rest:
        if (inElement_)
            addRest(token);
        break;
    case AbcTokenType::Note:
    case AbcTokenType::ChordStart:
    case AbcTokenType::BrokenRhythm:
        break;
    case AbcTokenType::FieldLine:
    case AbcTokenType::InlineField:
    case AbcTokenType::BarLine:
        unitIsOpen_ = false;
        [[fallthrough]];
    default:
        somethingBetween_ = true;
    }
    tailOffset_ = endOf(token);
    layout_.tailNeedsLine = token.type == AbcTokenType::FieldLine || token.type == AbcTokenType::Comment ||
                            token.type == AbcTokenType::Instruction;
}

void LayoutMaker::elementBegins(const AbcToken &first, bool isBroken, bool inTuplet)
{
    const bool beginsTuplet = tupletOffset_ >= 0;
    const bool continuesUnit = unitIsOpen_ && (isBroken || (inTuplet && !beginsTuplet));
    if (!continuesUnit)
        beginUnit(beginsTuplet ? tupletOffset_ : offsetOf(first));
    tupletOffset_ = -1;

    layout_.units.last().isCompound |= isBroken || inTuplet;
    if (inTuplet && !beginsTuplet && !continuesUnit)
        continueTuplet();

    AbcTextElement element;
    element.range.offset = offsetOf(first);
    element.start = position_;
    element.isChord = first.type == AbcTokenType::ChordStart;
    element.firstToken = int(layout_.tokens.size());
    layout_.elements.append(element);
    inElement_ = true;
    elementIsEmpty_ = true;
    if (first.type == AbcTokenType::Rest)
        addRest(first);
}

// Between its parts stand at most gaps.
void LayoutMaker::continueTuplet()
{
    auto &units = layout_.units;
    units.last().continuesTuplet = units.last().isCut = true;
    const auto before = std::find_if(units.rbegin() + 1, units.rend(), [](const AbcUnit &unit) { return !unit.isGap; });
    if (before != units.rend())
        before->isCut = true;
}

void LayoutMaker::addRest(const AbcToken &token)
{
    const auto letter = token.part(AbcPart::Letter)[0];
    layout_.elements.last().isMeasuresRest |= letter != u'z' && letter != u'x';
    addLength(writtenLength(token));
}

void LayoutMaker::addLength(const AbcRatio &length)
{
    auto &shortest = layout_.elements.last().written;
    if (elementIsEmpty_ || length.numerator * shortest.denominator < shortest.numerator * length.denominator)
        shortest = length;
    elementIsEmpty_ = false;
}

void LayoutMaker::beginUnit(int offset)
{
    AbcUnit unit;
    unit.range.offset = offset;
    unit.start = position_;
    unit.firstElement = int(layout_.elements.size());
    unit.firstToken = int(layout_.tokens.size());
    const bool isNext = !layout_.units.isEmpty() && layout_.units.last().end == position_;
    unit.joinsPrevious = isNext && !somethingBetween_;
    layout_.units.append(unit);
    unitIsOpen_ = measureHasUnits_ = true;
}

void LayoutMaker::note(const AbcToken &token, const AbcPitch &pitch)
{
    const auto accidental = token.part(AbcPart::Accidental).size();
    const auto spellingSize = accidental + token.part(AbcPart::Letter).size() + token.part(AbcPart::Octave).size();
    AbcNoteToken note;
    note.range = {offsetOf(token), int(token.text.size())};
    note.spelling = {offsetOf(token) + int(token.part(AbcPart::Staccato).size()), int(spellingSize)};
    note.unit = int(layout_.units.size()) - 1;
    note.step = pitch.step;
    note.accidental = pitch.accidental;
    note.isExplicit = accidental > 0;
    note.written = writtenLength(token);
    note.lengthText = {note.spelling.end(), int(token.part(AbcPart::Length).size())};
    note.isStaccato = token.has(AbcPart::Staccato);
    note.isTied = token.has(AbcPart::Tie);
    addLength(note.written);
    layout_.tokens.append(note);
    pitches_.append(pitch.pitch);
}

void LayoutMaker::elementEnds(const AbcToken &last)
{
    const auto end = endOf(last);
    auto &element = layout_.elements.last();
    element.range.length = end - element.range.offset;
    element.endToken = int(layout_.tokens.size());
    inElement_ = false;
    if (last.type == AbcTokenType::ChordEnd)
        endChord(last);
    auto &unit = layout_.units.last();
    unit.range.length = end - unit.range.offset;
    unit.endToken = int(layout_.tokens.size());
    unit.endElement = int(layout_.elements.size());
    somethingBetween_ = false;
}

void LayoutMaker::endChord(const AbcToken &bracket)
{
    auto &chord = layout_.elements.last();
    chord.chordLength = writtenLength(bracket);
    chord.chordLengthText = {offsetOf(bracket) + 1, int(bracket.part(AbcPart::Length).size())};
    chord.isTied = bracket.part(AbcPart::Tie).contains(u'-');
    for (int token = chord.firstToken; chord.isTied && token < chord.endToken; ++token)
        layout_.tokens[token].isTied = true;
}

void LayoutMaker::elementSounds(Ticks end)
{
    layout_.elements.last().advance = end - position_;
    layout_.units.last().end = end;
    position_ = end;
}

void LayoutMaker::barLine(const AbcToken &token, quint32 keyRow, Ticks position)
{
    if (position > position_)
        addGapBeforeBar(offsetOf(token), position);
    layout_.marks.append({offsetOf(token), keyRow, position});
    position_ = position;
    measureHasUnits_ = false;
}

void LayoutMaker::keyChange(const AbcToken &token, quint32 keyRow)
{
    layout_.marks.append({offsetOf(token), keyRow, position_, AbcAccidentalMark::Kind::Key});
}

bool LayoutMaker::refused(AbcRefusal why, const AbcToken &first, const AbcToken &last)
{
    refusals_(why, first, last);
    return true;
}

// The time that a bar line adds to what was written before it can be written in there.
void LayoutMaker::addGapBeforeBar(int barOffset, Ticks end)
{
    AbcUnit gap;
    gap.isGap = true;
    gap.joinsPrevious = measureHasUnits_;
    gap.range.offset = measureHasUnits_ ? layout_.units.last().range.end() : barOffset;
    gap.start = position_;
    gap.end = end;
    gap.firstToken = gap.endToken = int(layout_.tokens.size());
    gap.firstElement = gap.endElement = int(layout_.elements.size());
    layout_.units.append(gap);
}

void LayoutMaker::addTail()
{
    AbcUnit tail;
    tail.isGap = true;
    tail.range.offset = tailOffset_;
    tail.start = position_;
    tail.end = maxTicks;
    tail.firstToken = tail.endToken = int(layout_.tokens.size());
    tail.firstElement = tail.endElement = int(layout_.elements.size());
    tail.joinsPrevious = !layout_.units.isEmpty() && layout_.units.last().range.end() == tailOffset_;
    layout_.units.append(tail);
}

// A note without an event of its own continues the tied one of its pitch.
void LayoutMaker::assignEvents(const QVector<TrackEvent> &events)
{
    for (int i = 0; i < events.size(); ++i) {
        if (events[i].isNote())
            layout_.tokens[layout_.tokenAt(lines_[int(events[i].textLine())] + int(events[i].textColumn()))].event = i;
    }
    std::array<int, highestPlayablePitch + 1> lastEventOfPitch;
    lastEventOfPitch.fill(-1);
    for (int i = 0; i < layout_.tokens.size(); ++i) {
        if (!isPlayable(pitches_[i]))
            continue;
        auto &event = layout_.tokens[i].event;
        auto &last = lastEventOfPitch[size_t(pitches_[i])];
        if (event < 0)
            event = last;
        last = event;
    }
}

AbcLayout LayoutMaker::layoutOf(const Track &track)
{
    addTail();
    assignEvents(track.events());
    return std::move(layout_);
}

} // namespace

std::pair<Track, AbcLayout> parseWithLayout(const QString &text, const AbcRefusals &refusals)
{
    LayoutMaker maker(text, refusals);
    auto track = parseAbc(text, {}, &maker);
    auto layout = maker.layoutOf(track);
    return {std::move(track), std::move(layout)};
}

const AbcTextElement *AbcLayout::measuresRest(const AbcUnit &unit) const
{
    const auto end = elements.begin() + unit.endElement;
    const auto found = std::find_if(elements.begin() + unit.firstElement, end,
                                    [](const AbcTextElement &element) { return element.isMeasuresRest; });
    return found == end ? nullptr : &*found;
}

int AbcLayout::tokenAt(int offset) const
{
    const auto behind = std::upper_bound(tokens.begin(), tokens.end(), offset,
                                         [](int at, const AbcNoteToken &token) { return at < token.range.offset; });
    return int(behind - tokens.begin()) - 1;
}

int AbcLayout::elementAt(int offset) const
{
    const auto behind =
        std::upper_bound(elements.begin(), elements.end(), offset,
                         [](int at, const AbcTextElement &element) { return at < element.range.offset; });
    return int(behind - elements.begin()) - 1;
}

// Bar lines can take time back, so the elements are not always in the order of time; the last one that holds the tick
// is what the ear follows.
int AbcLayout::elementAtTick(Ticks tick) const
{
    int nearest = -1;
    for (int i = int(elements.size()) - 1; i >= 0; --i) {
        if (elements[i].start <= tick && tick < elements[i].end())
            return i;
        if (nearest < 0 && elements[i].start <= tick)
            nearest = i;
    }
    return nearest;
}
