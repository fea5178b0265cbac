#include "core/AbcParser.h"

#include "core/AbcElement.h"
#include "core/AbcEvents.h"
#include "core/AbcListener.h"
#include "core/AbcNumbers.h"
#include "core/AbcTokenSource.h"
#include "core/HeaderFields.h"
#include "core/KeyTable.h"

#include <algorithm>

namespace {

class AbcParser
{
public:
    AbcParser(const QString &text, const std::stop_token &stop, AbcListener *listener)
        : text_(text), listener_(listener), source_(text, stop, listener), events_(listener)
    {
    }
    Track parse();

private:
    int readHeader();
    void applyHeader();
    void readBody();
    void bodyToken();
    void bodyField();
    void barLine();
    void beginTuplet();
    void readElement();
    AbcRatio applyBrokenRhythm();
    void readNote();
    void readRest();
    void readChord();
    void endChord();
    void finishElement();
    int accidental(int octave, int letter);

    const QString &text_;
    AbcListener *const listener_; // may be null
    AbcTokenSource source_;
    const AbcToken &token_ = source_.token();
    Track track_;
    AbcEvents events_;

    quint32 keyRow_ = neutralKeyRow;
    quint32 unitLength_ = 0;
    AbcPosition position_;
    MeasureAccidentals accidentals_;
    quint32 tupletNotesLeft_ = 0;
    AbcRatio tuplet_;
    AbcElement element_;   // read, but not sounded before what follows it is known
    int brokenRhythm_ = 0; // length of the mark behind the element, negative for "<"
};

Track AbcParser::parse()
{
    const auto bodyLine = readHeader();
    applyHeader();
    if (listener_ != nullptr)
        listener_->bodyBegins(bodyLine, keyRow_);
    readBody();
    track_.editEvents() = events_.take();
    track_.setAbc(text_);
    track_.normalize();
    return std::move(track_);
}

// Single-letter names, made once and shared by all tracks.
QString fieldName(QStringView letter)
{
    static const auto names = [] {
        std::array<QString, 128> result;
        for (size_t c = 0; c < result.size(); ++c)
            result[c] = QChar(ushort(c));
        return result;
    }();
    return names[letter[0].unicode() & 0x7F];
}

// Gives the line behind the header.
int AbcParser::readHeader()
{
    while (source_.nextInHeader()) {
        if (token_.type != AbcTokenType::FieldLine)
            continue;
        const auto name = fieldName(token_.part(AbcPart::Name));
        track_.appendHeaderField(name, token_.part(AbcPart::Value).trimmed().toString());
        if (name == u"K")
            return token_.line + 1;
    }
    return source_.line();
}

void AbcParser::applyHeader()
{
    using namespace HeaderFields;
    keyRow_ = parseKey(track_.headerField(fieldName(u"K"), fieldName(u"C"))).row;
    unitLength_ = parseUnitLength(track_.headerField(fieldName(u"L")));
    const auto metre = parseMetre(track_.headerField(fieldName(u"M")));
    position_.setMetre(metre);
    if (!metre.isNone())
        track_.setMetre(quint32(metre.measureTicks()), metre.numerator);
    track_.setTempo(headerTempo(track_.headerField(fieldName(u"Q")), unitLength_));
}

void AbcParser::readBody()
{
    // An upper bound, so that the list need not grow; what is not used is never touched.
    events_.reserve(std::count_if(text_.begin(), text_.end(), [](QChar c) {
        const auto lower = c.unicode() | 0x20;
        return lower >= u'a' && lower <= u'g';
    }));
    while (source_.nextInBody())
        bodyToken();
    finishElement();
}

void AbcParser::bodyToken()
{
    if (listener_ != nullptr)
        listener_->token(token_);
    switch (token_.type) {
    case AbcTokenType::Note:
    case AbcTokenType::Rest:
    case AbcTokenType::ChordStart:
        if (!source_.inGraceNotes())
            readElement();
        break;
    case AbcTokenType::BrokenRhythm:
        if (element_.present && brokenRhythm_ == 0)
            brokenRhythm_ = token_.text[0] == u'>' ? int(token_.text.size()) : -int(token_.text.size());
        break;
    case AbcTokenType::FieldLine:
    case AbcTokenType::InlineField:
        bodyField();
        break;
    case AbcTokenType::BarLine:
        barLine();
        break;
    case AbcTokenType::Tuplet:
        beginTuplet();
        break;
    default:
        break;
    }
}

void AbcParser::bodyField()
{
    finishElement();
    const auto value = token_.part(AbcPart::Value).trimmed();
    switch (token_.part(AbcPart::Name)[0].unicode()) {
    case u'K': {
        const auto key = HeaderFields::parseKey(value.toString());
        keyRow_ = key.row;
        events_.append(TrackEvent::key(position_.now(), key.row, key.mode));
        if (listener_ != nullptr)
            listener_->keyChange(token_, keyRow_);
        break;
    }
    case u'Q':
        events_.append(HeaderFields::inlineTempo(position_.now(), value, unitLength_));
        break;
    case u'M': {
        const auto metre = HeaderFields::parseMetre(value.toString());
        position_.setMetre(metre);
        events_.append(TrackEvent::metre(position_.now(), metre.numerator, metre.denominator));
        break;
    }
    default:
        break;
    }
}

void AbcParser::barLine()
{
    finishElement();
    accidentals_.clear();
    position_.barLine();
    if (listener_ != nullptr)
        listener_->barLine(token_, keyRow_, position_.now());
}

void AbcParser::beginTuplet()
{
    tuplet_ = writtenTuplet(token_, position_.isCompound());
    tupletNotesLeft_ = quint32(tuplet_.denominator);
}

// A broken rhythm counts between two elements that no bar line or field parts. Lengthens or shortens the element before
// it and gives the ratio of the one behind it.
AbcRatio AbcParser::applyBrokenRhythm()
{
    if (brokenRhythm_ == 0)
        return {};
    const auto whole = quint64(1) << std::abs(brokenRhythm_);
    AbcRatio before{2 * whole - 1, whole};
    AbcRatio behind{1, whole};
    if (brokenRhythm_ < 0)
        std::swap(before, behind);
    element_.scale(before);
    return behind;
}

void AbcParser::readElement()
{
    const bool isBroken = brokenRhythm_ != 0;
    const auto rhythm = applyBrokenRhythm();
    finishElement();
    if (listener_ != nullptr)
        listener_->elementBegins(token_, isBroken, tupletNotesLeft_ > 0);
    element_.present = true;
    if (token_.type == AbcTokenType::Note)
        readNote();
    else if (token_.type == AbcTokenType::Rest)
        readRest();
    else
        readChord();
    if (listener_ != nullptr)
        listener_->elementEnds(token_);

    if (tupletNotesLeft_ > 0) {
        --tupletNotesLeft_;
        element_.scale(tuplet_);
    }
    element_.scale(rhythm);
}

// The accidental that the current note token writes, or the one that holds for it.
int AbcParser::accidental(int octave, int letter)
{
    const auto written = token_.part(AbcPart::Accidental);
    if (written.isEmpty())
        return accidentals_.value(octave, letter, KeyTable::accidental(keyRow_, letter));
    const int size = int(written.size());
    const int value = written[0] == u'^' ? size : written[0] == u'_' ? -size : 0;
    accidentals_.set(octave, letter, value);
    return value;
}

void AbcParser::readNote()
{
    constexpr std::array<int, 7> semitones{0, 2, 4, 5, 7, 9, 11};
    const auto name = token_.part(AbcPart::Letter)[0].unicode();
    const int letter = ((name | 0x20) - u'c' + 7) % 7;
    const auto marks = token_.part(AbcPart::Octave);
    const int octaves = int(marks.size());
    const int octave = (name >= u'a' ? 1 : 0) + (octaves > 0 && marks[0] == u',' ? -octaves : octaves);
    const int inForce = accidental(octave, letter);
    const int pitch = 60 + 12 * octave + semitones[size_t(letter)] + inForce;
    if (listener_ != nullptr)
        listener_->note(token_, {octave * 7 + letter, inForce, pitch});

    const auto length = writtenLength(token_).of(unitLength_);
    element_.add(length);
    if (!isPlayable(pitch))
        return;
    element_.notes.push_back({quint32(pitch), length, token_.has(AbcPart::Staccato), token_.has(AbcPart::Tie),
                              quint32(token_.line), quint32(token_.column), quint32(token_.text.size())});
}

void AbcParser::readRest()
{
    const auto name = token_.part(AbcPart::Letter)[0];
    const auto length = writtenLength(token_);
    if (name == u'z' || name == u'x') {
        element_.add(length.of(unitLength_));
        return;
    }
    const auto measures = length.numerator;
    element_.add(scaled(position_.measureTicks(), measures, 1));
    position_.skipBarLines(measures);
}

void AbcParser::readChord()
{
    element_.isChord = true;
    while (source_.nextInChord(element_.notes.size())) {
        if (listener_ != nullptr)
            listener_->token(token_);
        switch (token_.type) {
        case AbcTokenType::Note:
            readNote();
            break;
        case AbcTokenType::Rest:
            readRest();
            break;
        case AbcTokenType::ChordEnd:
            endChord();
            return;
        default:
            break;
        }
    }
    source_.failBehindToken();
}

void AbcParser::endChord()
{
    if (element_.isEmpty)
        source_.refuse(AbcRefusal::EmptyChord);
    element_.chordLength = writtenLength(token_);
    element_.chordTied = token_.part(AbcPart::Tie).contains(u'-');
}

// Turns the element that was read last into events and moves on behind it.
void AbcParser::finishElement()
{
    brokenRhythm_ = 0;
    if (!element_.present)
        return;
    events_.sound(element_, position_.now());
    position_.advance(element_.length());
    element_.clear();
    if (listener_ != nullptr)
        listener_->elementSounds(position_.now());
}

} // namespace

Track parseAbc(const QString &text, const std::stop_token &stop, AbcListener *listener)
{
    return AbcParser(text, stop, listener).parse();
}
