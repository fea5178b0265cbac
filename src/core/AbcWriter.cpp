#include "core/AbcWriter.h"

#include "core/HeaderFields.h"
#include "core/KeyTable.h"
#include "core/Track.h"

#include <algorithm>
#include <array>
#include <limits>
#include <numeric>

namespace {

// The text of a note length in the current unit: "", "/", "/3", "3", "3/", "3/4". Songs use few different lengths, so
// the texts are remembered, each in the slot that its length hashes to.
class LengthTexts
{
public:
    explicit LengthTexts(Ticks unitLength) : unitLength_(unitLength) {}

    const QString &of(Ticks length)
    {
        auto &slot = slots_[(quint64(length) * 0x9E3779B97F4A7C15U) >> 57];
        if (slot.length != length)
            slot = {length, written(length)};
        return slot.text;
    }

private:
    struct Slot
    {
        Ticks length = -1;
        QString text;
    };

    QString written(Ticks length) const
    {
        const auto divisor = std::gcd(length, unitLength_);
        const auto numerator = length / divisor;
        const auto denominator = unitLength_ / divisor;
        QString text;
        if (numerator != 1)
            text += QString::number(numerator);
        if (denominator != 1)
            text += u'/';
        if (denominator > 2)
            text += QString::number(denominator);
        return text;
    }

    Ticks unitLength_;
    std::array<Slot, 128> slots_;
};

// The accidental last written for each diatonic step of the tune.
class WrittenAccidentals
{
public:
    WrittenAccidentals() { accidentals_.fill(none); }

    // Whether the accidental must be written; from now on it is in force.
    bool change(int step, int accidental, int fromKey)
    {
        auto &written = accidentals_[size_t(step)];
        if (accidental == (written == none ? fromKey : written))
            return false;
        written = qint8(accidental);
        return true;
    }

private:
    static constexpr qint8 none = std::numeric_limits<qint8>::min();
    std::array<qint8, 1024> accidentals_{};
};

// Far above what any reader produces; keeps the steps within WrittenAccidentals.
constexpr quint32 highestPitch = 1199;

class AbcWriter
{
public:
    explicit AbcWriter(Track &track);
    QString write();

private:
    void addMissingFields();
    void writeHeader();
    void writeField(QStringView letter, QStringView value);
    void writeFieldOnOwnLine(const TrackEvent &event);
    qsizetype writeGroup(qsizetype first);
    void writeNote(TrackEvent &note);
    void writeRun(char16_t c, int count);
    void writeLength(Ticks length);
    void writeGap(Ticks start);
    void endLine();
    bool isLineFull();
    bool lineHoldsText() const { return text_.size() > lineBegin_; }

    Track &track_;
    QString text_;
    TrackEvent *events_;
    qsizetype eventCount_;
    LengthTexts lengthTexts_;
    WrittenAccidentals accidentals_;
    quint32 keyRow_;
    quint32 line_ = 0;
    qsizetype lineBegin_ = 0;
    Ticks cursor_ = 0;    // music is written up to here
    Ticks lineStart_ = 0; // where the current line of music began
    int barLinesPassed_ = 0;
};

AbcWriter::AbcWriter(Track &track)
    : track_(track), events_(track.editEvents().data()), eventCount_(track.events().size()),
      lengthTexts_(HeaderFields::parseUnitLength(track.headerField(QStringLiteral("L")))),
      keyRow_(HeaderFields::parseKey(track.headerField(QStringLiteral("K"), QStringLiteral("C"))).row)
{
}

void AbcWriter::addMissingFields()
{
    const auto setDefault = [this](const QString &letter, const QString &value) {
        if (!track_.hasHeaderField(letter))
            track_.setHeaderField(letter, value);
    };
    setDefault(QStringLiteral("X"), QStringLiteral("1"));
    setDefault(QStringLiteral("L"), QStringLiteral("1/4"));
    setDefault(QStringLiteral("K"), QStringLiteral("C"));
}

void AbcWriter::writeRun(char16_t c, int count)
{
    for (; count > 0; --count)
        text_ += c;
}

void AbcWriter::writeLength(Ticks length)
{
    for (const auto c : lengthTexts_.of(length)) // two or three, which is faster one by one
        text_ += c;
}

void AbcWriter::endLine()
{
    text_ += u'\n';
    lineBegin_ = text_.size();
    ++line_;
}

// If it is, the next one begins here. Where bar lines stand far apart lines do not wait for them.
bool AbcWriter::isLineFull()
{
    constexpr int longestLine = 4; // whole notes
    const auto &barLines = track_.barLines();
    auto begin = barLines.isEmpty() || cursor_ - lineStart_ >= longestLine * ticksPerWholeNote ? cursor_ : lineStart_;
    for (; barLinesPassed_ < barLines.size() && barLines[barLinesPassed_] <= cursor_; ++barLinesPassed_)
        begin = std::max(begin, barLines[barLinesPassed_]);
    if (begin - lineStart_ < ticksPerWholeNote)
        return false;
    lineStart_ = begin;
    return true;
}

void AbcWriter::writeField(QStringView letter, QStringView value)
{
    text_.append(letter).append(QStringLiteral(": ")).append(value);
    endLine();
}

void AbcWriter::writeHeader()
{
    addMissingFields();
    writeField(u"X", track_.headerField(QStringLiteral("X")));

    const auto titles = track_.headerFields(QStringLiteral("T"));
    for (const auto &title : titles.isEmpty() ? QStringList(track_.title()) : titles)
        writeField(u"T", title);

    const auto generator = QStringLiteral("Kelvarion Composer");
    if (track_.headerFields(QStringLiteral("Z")).filter(generator).isEmpty())
        writeField(u"Z", QStringLiteral("ABC Generated by %1 v" COMPOSER_VERSION).arg(generator));

    const auto &fields = track_.headerFields();
    for (auto field = fields.begin(); field != fields.end(); ++field) {
        if (field.key() == u"X" || field.key() == u"K" || field.key() == u"T")
            continue;
        for (const auto &value : field.value())
            writeField(field.key(), value);
    }
    writeField(u"K", track_.headerField(QStringLiteral("K")));
}

void AbcWriter::writeNote(TrackEvent &note)
{
    const auto begin = text_.size();

    const auto pitch = std::min(note.pitch(), highestPitch);
    const auto &spelling = KeyTable::spelling(keyRow_, pitch % 12);
    const int octave = int(pitch / 12) - 5 + spelling.octaveCorrection;
    const int step = (octave + 6) * 7 + spelling.letter; // never negative: the lowest octave is -6
    if (accidentals_.change(step, spelling.accidental, KeyTable::accidental(keyRow_, spelling.letter))) {
        if (spelling.accidental == 0)
            text_ += u'=';
        writeRun(u'^', spelling.accidental);
        writeRun(u'_', -spelling.accidental);
    }
    text_ += (octave >= 1 ? u"cdefgab" : u"CDEFGAB")[spelling.letter];
    writeRun(u'\'', octave - 1);
    writeRun(u',', -octave);
    writeLength(note.length());

    note.setTextPosition(line_, quint32(begin - lineBegin_), quint32(text_.size() - begin));
}

// Writes the notes that start together from the first one on and gives the index behind them. A group advances by its
// shortest note; where the next event comes sooner, a leading rest in the bracket makes it advance by just that much
// while the notes keep their lengths.
qsizetype AbcWriter::writeGroup(qsizetype first)
{
    const auto start = events_[first].start();
    auto shortest = events_[first].length();
    auto last = first + 1;
    for (; last < eventCount_ && events_[last].isNote() && events_[last].start() == start; ++last)
        shortest = std::min(shortest, events_[last].length());

    auto advance = shortest;
    if (last < eventCount_)
        advance = std::min(advance, events_[last].start() - cursor_);
    const bool isCut = advance < shortest;

    const bool hasBracket = isCut || last - first > 1;
    if (hasBracket)
        text_ += u'[';
    if (isCut) {
        text_ += u'z';
        writeLength(advance);
    }
    for (auto i = first; i < last; ++i)
        writeNote(events_[i]);
    if (hasBracket)
        text_ += u']';
    text_ += u' ';

    cursor_ += advance;
    return last;
}

void AbcWriter::writeFieldOnOwnLine(const TrackEvent &event)
{
    if (lineHoldsText())
        endLine();
    const auto fraction = QStringLiteral("%1/%2").arg(event.numerator()).arg(event.denominator());
    switch (event.kind()) {
    case TrackEvent::Tempo: {
        const auto bpm = QString::number(event.bpm());
        const bool hasBeat = event.numerator() != 0 && event.denominator() != 0;
        writeField(u"Q", hasBeat ? fraction + u'=' + bpm : bpm);
        break;
    }
    case TrackEvent::Key:
        writeField(u"K", KeyTable::keyName(event.keyIndex(), event.keyMode()));
        keyRow_ = event.keyIndex();
        break;
    case TrackEvent::UnitLength:
        writeField(u"L", fraction);
        break;
    case TrackEvent::Metre:
        writeField(u"M", fraction);
        break;
    case TrackEvent::None:
    case TrackEvent::Note:
        break;
    }
}

void AbcWriter::writeGap(Ticks start)
{
    if (start <= cursor_)
        return;
    text_ += u'z';
    writeLength(start - cursor_);
    text_ += u' ';
    cursor_ = start;
}

QString AbcWriter::write()
{
    text_.reserve(512 + 6 * int(eventCount_));
    writeHeader();
    for (qsizetype i = 0; i < eventCount_;) {
        writeGap(events_[i].start());
        if (isLineFull())
            endLine();
        if (events_[i].isNote()) {
            i = writeGroup(i);
        } else {
            writeFieldOnOwnLine(events_[i]);
            ++i;
        }
    }
    if (lineHoldsText())
        endLine();
    return text_;
}

} // namespace

QString writeAbc(Track &track)
{
    return AbcWriter(track).write();
}
