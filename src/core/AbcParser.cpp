#include "core/AbcParser.h"

#include "base/Interrupted.h"
#include "core/AbcElement.h"
#include "core/AbcListener.h"
#include "core/AbcTokenizer.h"
#include "core/HeaderFields.h"
#include "core/KeyTable.h"

#include <algorithm>

namespace {

// Many times the keys of a piano; a chord is held in memory beside the events until its end.
constexpr size_t largestChord = 10'000;

class AbcParser
{
public:
    AbcParser(const QString &text, const std::stop_token &stop, AbcListener *listener)
        : text_(text), stop_(stop), listener_(listener), tokens_(text)
    {
        accidentals_.clear();
    }
    Track parse();

private:
    int readHeader();
    void applyHeader();
    void readBody();
    bool isReadable();
    bool isChordReadable();
    bool isReadableInChord();
    void bodyToken();
    void bodyField();
    void barLine();
    void beginTuplet();
    void readElement();
    AbcRatio applyBrokenRhythm();
    void readNote();
    void readRest();
    void readChord();
    void addToElement(Ticks length);
    void finishElement();
    void sound(const WrittenNote &note);
    void finishChord(qsizetype firstEvent);
    void tieEventsFrom(qsizetype firstEvent);
    AbcRatio tokenLength() const;
    int accidental(int octave, int letter);
    bool goesOnBehind(AbcRefusal why, const AbcToken &last) const;
    bool refuse(AbcRefusal why) const;

    const QString &text_;
    const std::stop_token &stop_;
    AbcListener *const listener_; // may be null
    AbcTokenizer tokens_;
    AbcToken token_;
    Track track_;
    QVector<TrackEvent> events_;

    quint32 keyRow_ = neutralKeyRow;
    quint32 unitLength_ = 0;
    Ticks position_ = 0;
    Ticks measureBase_ = 0;   // where the metre in force began
    Ticks measureLength_ = 0; // 0 without a metre
    quint32 barCount_ = 0;    // since then
    bool compound_ = false;
    MeasureAccidentals accidentals_;

    quint32 tupletNotesLeft_ = 0;
    AbcRatio tuplet_;
    bool inGraceNotes_ = false;
    AbcElement element_;   // read, but not sounded before what follows it is known
    int brokenRhythm_ = 0; // length of the mark behind the element, negative for "<"
    PendingTies ties_;
};

QString unexpectedInChord()
{
    return QStringLiteral("Unexpected token found in chord at line %1, column %2.");
}

// With room for a line and a column, as far as it tells them.
QString messageOf(AbcRefusal why, AbcTokenType type)
{
    switch (why) {
    case AbcRefusal::HeaderText:
        return QStringLiteral("Unexpected token found in ABC header: line %1, column %2.");
    case AbcRefusal::EmptyChord:
        return QStringLiteral("Empty chord");
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
    return QStringLiteral("Unknown token found in ABC body at line %1, column %2.");
}

QString at(const QString &message, int line, int column)
{
    return message.contains(u'%') ? message.arg(line + 1).arg(column + 1) : message;
}

// Of at most as many digits as a token has characters, 20.
quint64 number(QStringView digits)
{
    quint64 value = 0;
    for (const auto digit : digits)
        value = value * 10 + quint64(digit.unicode() - u'0');
    return value;
}

// Of a note or rest; no other token is long enough.
bool hasHugeNumber(const AbcToken &token)
{
    constexpr qsizetype fittingDigits = 9;
    constexpr quint64 largest = 0xFFFFFFFF;
    return token.text.size() > fittingDigits && (number(token.part(AbcPart::LengthNumerator)) > largest ||
                                                 number(token.part(AbcPart::LengthDenominator)) > largest);
}

// Whether a listener wants to hear what comes behind the refused: from the token at hand to the last.
bool AbcParser::goesOnBehind(AbcRefusal why, const AbcToken &last) const
{
    return listener_ != nullptr && listener_->refused(why, token_, last);
}

// Throws, or gives false, the answer to whether the token is read.
bool AbcParser::refuse(AbcRefusal why) const
{
    if (!goesOnBehind(why, token_))
        throw at(messageOf(why, token_.type), token_.line, token_.column);
    return false;
}

Track AbcParser::parse()
{
    const auto bodyLine = readHeader();
    applyHeader();
    if (listener_ != nullptr)
        listener_->bodyBegins(bodyLine, keyRow_);
    readBody();
    track_.editEvents() = std::move(events_);
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
    while (tokens_.next(token_)) {
        switch (token_.type) {
        case AbcTokenType::FieldLine: {
            const auto name = fieldName(token_.part(AbcPart::Name));
            track_.appendHeaderField(name, token_.part(AbcPart::Value).trimmed().toString());
            if (name == u"K")
                return token_.line + 1;
            break;
        }
        case AbcTokenType::Instruction:
        case AbcTokenType::WhiteSpace:
        case AbcTokenType::Comment:
            break;
        default:
            refuse(AbcRefusal::HeaderText);
            tokens_.skipLine();
        }
    }
    return tokens_.line();
}

void AbcParser::applyHeader()
{
    using namespace HeaderFields;
    keyRow_ = parseKey(track_.headerField(fieldName(u"K"), fieldName(u"C"))).row;
    unitLength_ = parseUnitLength(track_.headerField(fieldName(u"L")));
    const auto metre = parseMetre(track_.headerField(fieldName(u"M")));
    measureLength_ = metre.measureTicks();
    compound_ = metre.isCompound();
    if (!metre.isNone())
        track_.setMetre(quint32(measureLength_), metre.numerator);
    track_.setTempo(headerTempo(track_.headerField(fieldName(u"Q")), unitLength_));
}

void AbcParser::readBody()
{
    // An upper bound, so that the list need not grow; what is not used is never touched.
    events_.reserve(std::count_if(text_.begin(), text_.end(), [](QChar c) {
        const auto lower = c.unicode() | 0x20;
        return lower >= u'a' && lower <= u'g';
    }));
    while (tokens_.next(token_)) {
        throwIfStopped(stop_);
        if (isReadable())
            bodyToken();
    }
    finishElement();
    for (auto pitch = lowestPlayablePitch; pitch <= highestPlayablePitch; ++pitch)
        ties_.writeTo(events_, pitch);
}

bool AbcParser::isReadable()
{
    switch (token_.type) {
    case AbcTokenType::Character:
        return refuse(AbcRefusal::UnknownToken);
    case AbcTokenType::Note:
    case AbcTokenType::Rest:
        return inGraceNotes_ || !hasHugeNumber(token_) || refuse(AbcRefusal::HugeNumber);
    case AbcTokenType::ChordStart:
        return inGraceNotes_ || listener_ == nullptr || isChordReadable();
    default:
        return true;
    }
}

// What an open chord meets: its bracket is the mistake then, not all that follows.
bool endsOpenChord(AbcTokenType type)
{
    return type == AbcTokenType::BarLine || type == AbcTokenType::FieldLine || type == AbcTokenType::InlineField ||
           type == AbcTokenType::ChordStart || type == AbcTokenType::Comment;
}

// Looks ahead, so that the listener never hears of half a chord. Where it does not want to go on, readChord() throws.
bool AbcParser::isChordReadable()
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
    while (tokens_.next(token_) && token_.type != AbcTokenType::ChordEnd)
        isReadableInChord();
    return false;
}

bool AbcParser::isReadableInChord()
{
    switch (token_.type) {
    case AbcTokenType::WhiteSpace:
    case AbcTokenType::ChordEnd:
        return true;
    case AbcTokenType::Note:
        if (element_.notes.size() >= largestChord)
            return refuse(AbcRefusal::GiantChord);
        [[fallthrough]];
    case AbcTokenType::Rest:
        return !hasHugeNumber(token_) || refuse(AbcRefusal::HugeNumber);
    default:
        return refuse(AbcRefusal::ForeignInChord);
    }
}

void AbcParser::bodyToken()
{
    if (listener_ != nullptr)
        listener_->token(token_);
    switch (token_.type) {
    case AbcTokenType::Note:
    case AbcTokenType::Rest:
    case AbcTokenType::ChordStart:
        if (!inGraceNotes_)
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
    case AbcTokenType::GraceStart:
        inGraceNotes_ = true;
        break;
    case AbcTokenType::GraceEnd:
        inGraceNotes_ = false;
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
        events_.append(TrackEvent::key(position_, key.row, key.mode));
        if (listener_ != nullptr)
            listener_->keyChange(token_, keyRow_);
        break;
    }
    case u'Q':
        events_.append(HeaderFields::inlineTempo(position_, value, unitLength_));
        break;
    case u'M': {
        const auto metre = HeaderFields::parseMetre(value.toString());
        measureBase_ = position_;
        barCount_ = 0;
        measureLength_ = metre.measureTicks();
        compound_ = metre.isCompound();
        events_.append(TrackEvent::metre(position_, metre.numerator, metre.denominator));
        break;
    }
    default:
        break;
    }
}

// Puts the position back on the measure grid, even if the notes did not fill the measure.
void AbcParser::barLine()
{
    finishElement();
    accidentals_.clear();
    if (measureLength_ != 0) {
        ++barCount_;
        position_ = std::min(maxTicks, measureBase_ + scaled(measureLength_, barCount_, 1));
    }
    if (listener_ != nullptr)
        listener_->barLine(token_, keyRow_, position_);
}

void AbcParser::beginTuplet()
{
    constexpr std::array<quint32, 8> simple{3, 2, 3, 2, 2, 2, 3, 2};
    constexpr std::array<quint32, 8> compound{3, 2, 3, 3, 2, 3, 3, 3};
    const auto p = quint32(number(token_.part(AbcPart::TupletP)));
    auto q = p;
    if (token_.has(AbcPart::TupletQ))
        q = quint32(number(token_.part(AbcPart::TupletQ)));
    else if (p >= 2 && p <= 9)
        q = (compound_ ? compound : simple)[p - 2];
    tupletNotesLeft_ = p;
    tuplet_ = {q, p};
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

// "3/4" as it stands; each "/" without a number halves, and a denominator of 0 counts as 1.
AbcRatio AbcParser::tokenLength() const
{
    AbcRatio length;
    if (token_.part(AbcPart::Length).isEmpty())
        return length;
    if (token_.has(AbcPart::LengthNumerator))
        length.numerator = number(token_.part(AbcPart::LengthNumerator));
    const auto slashes = token_.part(AbcPart::LengthSlashes).size();
    if (token_.has(AbcPart::LengthDenominator))
        length.denominator = std::max<quint64>(1, number(token_.part(AbcPart::LengthDenominator))) << (slashes - 1);
    else
        length.denominator = quint64(1) << slashes;
    return length;
}

void AbcParser::addToElement(Ticks length)
{
    element_.advance = element_.isEmpty ? length : std::min(element_.advance, length);
    element_.isEmpty = false;
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

    const auto length = tokenLength().of(unitLength_);
    addToElement(length);
    if (!isPlayable(pitch))
        return;
    element_.notes.push_back({quint32(pitch), length, token_.has(AbcPart::Staccato), token_.has(AbcPart::Tie),
                              quint32(token_.line), quint32(token_.column), quint32(token_.text.size())});
}

void AbcParser::readRest()
{
    const auto name = token_.part(AbcPart::Letter)[0];
    if (name == u'z' || name == u'x') {
        addToElement(tokenLength().of(unitLength_));
        return;
    }
    const auto measures = tokenLength().numerator;
    addToElement(scaled(measureLength_ != 0 ? measureLength_ : ticksPerWholeNote, measures, 1));
    // The next bar line counts for the last of the measures.
    if (measures > 0)
        barCount_ += quint32(measures - 1);
}

void AbcParser::readChord()
{
    element_.isChord = true;
    while (tokens_.next(token_)) {
        if (!isReadableInChord())
            continue;
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
            if (element_.isEmpty)
                refuse(AbcRefusal::EmptyChord);
            element_.chordLength = tokenLength();
            element_.chordTied = token_.part(AbcPart::Tie).contains(u'-');
            return;
        default:
            break;
        }
    }
    throw at(unexpectedInChord(), token_.line, token_.column + int(token_.text.size()));
}

// Turns the element that was read last into events and moves on behind it.
void AbcParser::finishElement()
{
    brokenRhythm_ = 0;
    if (!element_.present)
        return;
    for (const auto &note : element_.notes) {
        if (ties_.isEmpty())
            break;
        const auto *const pending = ties_.find(note.pitch);
        if (pending != nullptr && pending->end() != position_)
            ties_.writeTo(events_, note.pitch);
    }
    const auto firstEvent = events_.size();
    for (const auto &note : element_.notes)
        sound(note);
    if (element_.isChord)
        finishChord(firstEvent);
    position_ = std::min(maxTicks, position_ + element_.chordLength.of(element_.advance));
    element_.clear();
    if (listener_ != nullptr)
        listener_->elementSounds(position_);
}

void AbcParser::sound(const WrittenNote &note)
{
    const auto length = note.staccato ? note.length / 2 : note.length;
    if (auto *const pending = ties_.find(note.pitch); pending != nullptr && pending->end() == position_) {
        pending->setLength(std::min(maxTicks, pending->length() + length));
        if (!note.tied)
            ties_.writeTo(events_, note.pitch);
        return;
    }
    ties_.writeTo(events_, note.pitch);
    auto event = TrackEvent::note(note.pitch, position_, length);
    event.setTextPosition(note.textLine, note.textColumn, note.textLength);
    if (note.tied)
        ties_.put(event);
    else
        appendInPlace(events_, event);
}

// The chord's own length and tie reach the notes that it appended and those of its notes that are tied.
void AbcParser::finishChord(qsizetype firstEvent)
{
    if (!element_.chordLength.isOne()) {
        for (auto event = events_.begin() + firstEvent; event != events_.end(); ++event)
            event->setLength(element_.chordLength.of(event->length()));
        for (auto pitch = lowestPlayablePitch; pitch <= highestPlayablePitch; ++pitch) {
            auto *const pending = ties_.find(pitch);
            if (pending != nullptr && pending->start() == position_)
                pending->setLength(element_.chordLength.of(pending->length()));
        }
    }
    if (element_.chordTied)
        tieEventsFrom(firstEvent);
}

void AbcParser::tieEventsFrom(qsizetype firstEvent)
{
    const auto tied = events_.mid(firstEvent);
    events_.resize(firstEvent);
    for (const auto &event : tied) {
        ties_.writeTo(events_, event.pitch());
        ties_.put(event);
    }
}

} // namespace

Track parseAbc(const QString &text, const std::stop_token &stop, AbcListener *listener)
{
    return AbcParser(text, stop, listener).parse();
}
