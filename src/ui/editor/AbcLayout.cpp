#include "ui/editor/AbcLayout.h"

#include "core/AbcParser.h"
#include "core/AbcTokenizer.h"
#include "core/HeaderFields.h"
#include "core/KeyTable.h"
#include "ui/editor/AbcReading.h"

#include <algorithm>
#include <array>
#include <map>
#include <unordered_map>

namespace {

struct Ratio
{
    quint64 numerator = 1;
    quint64 denominator = 1;

    Ticks of(Ticks length) const { return scaled(length, numerator, denominator); }
};

// Walks the body as the parser does and keeps the time of everything, not only of the notes.
class LayoutMaker
{
public:
    LayoutMaker(const QString &text, const Track &track);
    AbcLayout make();

private:
    void readHeader();
    void bodyToken();
    void bodyField();
    void barLine();
    void beginTuplet();
    void readElement();
    void readNote();
    Ticks restLength();
    void readChord();
    void addLength(Ticks length);
    Ratio tokenLength() const;
    quint32 number(AbcPart part) const { return quint32(token_.part(part).toString().toULongLong()); }
    int eventOf(int offset, int pitch);
    void finishElement();
    void addGapBeforeBar();
    void addTail();
    int offset() const { return lines_[token_.line] + token_.column; }

    const Track &track_;
    QVector<int> lines_;
    const QString &text_;
    AbcTokenizer tokens_;
    AbcToken token_;
    AbcLayout layout_;

    quint32 keyRow_ = neutralKeyRow;
    Ticks unitLength_ = 0;
    Ticks position_ = 0;
    Ticks measureBase_ = 0;
    Ticks measureLength_ = 0;
    quint32 barCount_ = 0;
    bool compound_ = false;
    bool inGraceNotes_ = false;
    std::map<int, int> accidentals_; // of the measure, by step

    std::unordered_map<int, int> eventsByOffset_;
    std::array<int, highestPlayablePitch + 1> lastEventOfPitch_{};

    quint32 tupletLeft_ = 0;
    Ratio tuplet_;
    int tupletOffset_ = -1; // of the tuplet that the next element begins
    bool unitIsOpen_ = false;
    bool elementIsOpen_ = false;
    bool elementIsEmpty_ = true;
    Ticks advance_ = 0;
    int brokenRhythm_ = 0;
    int tailOffset_ = 0;
    bool somethingBetween_ = true; // more than blanks since the last unit
};

LayoutMaker::LayoutMaker(const QString &text, const Track &track)
    : track_(track), lines_(lineOffsets(text)), text_(text), tokens_(text)
{
    const auto &events = track.events();
    for (int i = 0; i < events.size(); ++i) {
        if (events[i].isNote())
            eventsByOffset_[lines_[int(events[i].textLine())] + int(events[i].textColumn())] = i;
    }
    lastEventOfPitch_.fill(-1);
}

void LayoutMaker::readHeader()
{
    layout_.bodyOffset = int(text_.size());
    while (tokens_.next(token_)) {
        if (token_.type == AbcTokenType::FieldLine && token_.part(AbcPart::Name) == u"K") {
            if (token_.line + 1 < lines_.size())
                layout_.bodyOffset = lines_[token_.line + 1];
            break;
        }
    }
    const auto field = [this](const char *letter) { return track_.headerField(QLatin1String(letter)); };
    keyRow_ = HeaderFields::parseKey(track_.headerField(QStringLiteral("K"), QStringLiteral("C")),
                                     HeaderFields::ModeReading::WholeWord)
                  .row;
    unitLength_ = HeaderFields::parseUnitLength(field("L"));
    const auto metre = HeaderFields::parseMetre(field("M"));
    measureLength_ = metre.measureTicks();
    compound_ = metre.isCompound();
    layout_.marks.append({layout_.bodyOffset, keyRow_});
}

Ratio LayoutMaker::tokenLength() const
{
    Ratio length;
    if (token_.has(AbcPart::LengthNumerator))
        length.numerator = number(AbcPart::LengthNumerator);
    const auto slashes = token_.part(AbcPart::LengthSlashes).size();
    if (token_.has(AbcPart::LengthDenominator))
        length.denominator = quint64(std::max(1U, number(AbcPart::LengthDenominator))) << (slashes - 1);
    else
        length.denominator = quint64(1) << slashes;
    return length;
}

void LayoutMaker::addLength(Ticks length)
{
    advance_ = elementIsEmpty_ ? length : std::min(advance_, length);
    elementIsEmpty_ = false;
}

// A note without an event of its own continues the tied one of its pitch.
int LayoutMaker::eventOf(int noteOffset, int pitch)
{
    if (!isPlayable(pitch))
        return -1;
    auto &last = lastEventOfPitch_[size_t(pitch)];
    if (const auto own = eventsByOffset_.find(noteOffset); own != eventsByOffset_.end())
        last = own->second;
    return last;
}

void LayoutMaker::readNote()
{
    constexpr std::array<int, 7> semitones{0, 2, 4, 5, 7, 9, 11};
    const auto name = token_.part(AbcPart::Letter)[0].unicode();
    const int letter = ((name | 0x20) - u'c' + 7) % 7;
    const auto marks = token_.part(AbcPart::Octave);
    const int octaves = int(marks.size());
    const int octave = (name >= u'a' ? 1 : 0) + (octaves > 0 && marks[0] == u',' ? -octaves : octaves);

    AbcNoteToken note;
    note.step = octave * 7 + letter;
    const auto written = token_.part(AbcPart::Accidental);
    note.isExplicit = !written.isEmpty();
    if (note.isExplicit) {
        note.accidental = written[0] == u'^' ? int(written.size()) : written[0] == u'_' ? -int(written.size()) : 0;
        accidentals_[note.step] = note.accidental;
    } else {
        const auto held = accidentals_.find(note.step);
        note.accidental = held != accidentals_.end() ? held->second : KeyTable::accidental(keyRow_, letter);
    }
    const int staccato = int(token_.part(AbcPart::Staccato).size());
    note.range = {offset(), int(token_.text.size())};
    note.spelling = {offset() + staccato, int(written.size() + 1 + marks.size())};
    note.event = eventOf(offset(), 60 + 12 * octave + semitones[size_t(letter)] + note.accidental);
    note.unit = int(layout_.units.size()) - 1;
    layout_.tokens.append(note);
    addLength(tokenLength().of(unitLength_));
}

Ticks LayoutMaker::restLength()
{
    const auto name = token_.part(AbcPart::Letter)[0];
    if (name == u'z' || name == u'x')
        return tokenLength().of(unitLength_);
    const auto measures = tokenLength().numerator;
    if (measures > 0)
        barCount_ += quint32(measures - 1);
    return scaled(measureLength_ != 0 ? measureLength_ : ticksPerWholeNote, measures, 1);
}

void LayoutMaker::readChord()
{
    while (tokens_.next(token_) && token_.type != AbcTokenType::ChordEnd) {
        if (token_.type == AbcTokenType::Note)
            readNote();
        else if (token_.type == AbcTokenType::Rest)
            addLength(restLength());
    }
    advance_ = tokenLength().of(advance_);
}

void LayoutMaker::readElement()
{
    Ratio behind;
    const bool isBroken = brokenRhythm_ != 0;
    if (isBroken) {
        const auto whole = quint64(1) << std::min(std::abs(brokenRhythm_), 30);
        Ratio before{2 * whole - 1, whole};
        behind = {1, whole};
        if (brokenRhythm_ < 0)
            std::swap(before, behind);
        advance_ = before.of(advance_);
    }
    const bool inTuplet = tupletLeft_ > 0;
    const bool beginsTuplet = tupletOffset_ >= 0;
    finishElement();

    const bool continuesUnit = unitIsOpen_ && (isBroken || (inTuplet && !beginsTuplet));
    if (!continuesUnit) {
        AbcUnit unit;
        unit.range.offset = beginsTuplet ? tupletOffset_ : offset();
        unit.start = position_;
        unit.firstToken = int(layout_.tokens.size());
        const bool isNext = !layout_.units.isEmpty() && layout_.units.last().end == position_;
        unit.joinsPrevious = isNext && !somethingBetween_;
        layout_.units.append(unit);
    }
    tupletOffset_ = -1;
    unitIsOpen_ = true;
    somethingBetween_ = false;

    elementIsOpen_ = elementIsEmpty_ = true;
    advance_ = 0;
    AbcTextElement element;
    element.range.offset = offset();
    element.start = position_;
    if (token_.type == AbcTokenType::Note)
        readNote();
    else if (token_.type == AbcTokenType::Rest)
        addLength(restLength());
    else
        readChord();
    element.range.length = offset() + int(token_.text.size()) - element.range.offset;
    layout_.elements.append(element);

    if (inTuplet) {
        --tupletLeft_;
        advance_ = tuplet_.of(advance_);
    }
    advance_ = behind.of(advance_);
    auto &unit = layout_.units.last();
    unit.range.length = element.range.end() - unit.range.offset;
    unit.endToken = int(layout_.tokens.size());
}

void LayoutMaker::finishElement()
{
    brokenRhythm_ = 0;
    if (!elementIsOpen_)
        return;
    elementIsOpen_ = false;
    layout_.elements.last().advance = advance_;
    position_ = std::min(maxTicks, position_ + advance_);
    layout_.units.last().end = position_;
}

// The time that a bar line adds to what was written before it can be written in there.
void LayoutMaker::addGapBeforeBar()
{
    const auto &last = layout_.units.last();
    if (position_ <= last.end)
        return;
    AbcUnit gap;
    gap.isGap = gap.joinsPrevious = true;
    gap.range.offset = last.range.end();
    gap.start = last.end;
    gap.end = position_;
    gap.firstToken = gap.endToken = int(layout_.tokens.size());
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
    tail.joinsPrevious = !layout_.units.isEmpty() && layout_.units.last().range.end() == tailOffset_;
    layout_.units.append(tail);
}

void LayoutMaker::barLine()
{
    finishElement();
    unitIsOpen_ = false;
    somethingBetween_ = true;
    accidentals_.clear();
    layout_.marks.append({offset(), keyRow_});
    if (measureLength_ == 0)
        return;
    ++barCount_;
    position_ = std::min(maxTicks, measureBase_ + scaled(measureLength_, barCount_, 1));
    if (!layout_.units.isEmpty())
        addGapBeforeBar();
}

void LayoutMaker::beginTuplet()
{
    constexpr std::array<quint32, 8> simple{3, 2, 3, 2, 2, 2, 3, 2};
    constexpr std::array<quint32, 8> compound{3, 2, 3, 3, 2, 3, 3, 3};
    const auto p = number(AbcPart::TupletP);
    auto q = p;
    if (token_.has(AbcPart::TupletQ))
        q = number(AbcPart::TupletQ);
    else if (p >= 2 && p <= 9)
        q = (compound_ ? compound : simple)[p - 2];
    tupletLeft_ = p;
    tuplet_ = {q, std::max(1U, p)};
    tupletOffset_ = offset();
}

void LayoutMaker::bodyField()
{
    finishElement();
    unitIsOpen_ = false;
    somethingBetween_ = true;
    const auto value = token_.part(AbcPart::Value).trimmed().toString();
    const auto name = token_.part(AbcPart::Name);
    if (name == u"K") {
        keyRow_ = HeaderFields::parseKey(value, HeaderFields::ModeReading::WholeWord).row;
        layout_.marks.append({offset(), keyRow_});
    } else if (name == u"M") {
        const auto metre = HeaderFields::parseMetre(value);
        measureBase_ = position_;
        barCount_ = 0;
        measureLength_ = metre.measureTicks();
        compound_ = metre.isCompound();
    }
}

void LayoutMaker::bodyToken()
{
    switch (token_.type) {
    case AbcTokenType::Note:
    case AbcTokenType::Rest:
    case AbcTokenType::ChordStart:
        if (!inGraceNotes_)
            readElement();
        return;
    case AbcTokenType::BrokenRhythm:
        if (elementIsOpen_ && brokenRhythm_ == 0)
            brokenRhythm_ = token_.text[0] == u'>' ? int(token_.text.size()) : -int(token_.text.size());
        return;
    case AbcTokenType::FieldLine:
    case AbcTokenType::InlineField:
        bodyField();
        return;
    case AbcTokenType::BarLine:
        barLine();
        return;
    case AbcTokenType::Tuplet:
        beginTuplet();
        return;
    case AbcTokenType::WhiteSpace:
        return;
    case AbcTokenType::GraceStart:
        inGraceNotes_ = true;
        break;
    case AbcTokenType::GraceEnd:
        inGraceNotes_ = false;
        break;
    default:
        break;
    }
    somethingBetween_ = true;
}

AbcLayout LayoutMaker::make()
{
    readHeader();
    tailOffset_ = layout_.bodyOffset;
    layout_.tailNeedsLine = text_.isEmpty() || (tailOffset_ > 0 && text_[tailOffset_ - 1] != u'\n');
    for (int line = -1; tokens_.next(token_); line = token_.line) {
        somethingBetween_ |= token_.line != line;
        bodyToken();
        if (token_.type == AbcTokenType::WhiteSpace)
            continue;
        tailOffset_ = offset() + int(token_.text.size());
        layout_.tailNeedsLine = token_.type == AbcTokenType::FieldLine || token_.type == AbcTokenType::Comment ||
                                token_.type == AbcTokenType::Instruction;
    }
    finishElement();
    addTail();
    return std::move(layout_);
}

} // namespace

AbcLayout layOutAbc(const QString &text, const Track &track)
{
    return LayoutMaker(text, track).make();
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
