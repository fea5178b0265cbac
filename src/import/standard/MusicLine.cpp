#include "import/standard/MusicLine.h"

#include <QSet>
#include <QString>

#include <algorithm>
#include <array>

namespace {

constexpr qint64 largestNumber = 10'000;

// Names between exclamation marks; of others the marks may be old line breaks with notes between them.
bool isDecoration(const QString &name)
{
    static const QSet<QString> names = [] {
        const auto list = QStringLiteral(
            "trill trill( trill) lowermordent uppermordent mordent pralltriller roll turn turnx invertedturn "
            "invertedturnx arpeggio > accent emphasis fermata invertedfermata tenuto 0 1 2 3 4 5 + plus snap slide "
            "wedge "
            "upbow downbow open thumb breath pppp ppp pp p mp mf f ff fff ffff sfz crescendo( <( crescendo) <) "
            "diminuendo( >( diminuendo) >) segno coda D.S. D.C. D.S.alcoda D.S.alfine D.C.alcoda D.C.alfine dacoda "
            "dacapo fine shortphrase mediumphrase longphrase staccato ped ped-up tremolo / // /// //// -8va( -8va) "
            "8va( 8va) 15ma( 15ma) xstem editorial courtesy ^ marcato repeatbar repeatbar2 beambr1 beambr2 cresc dim "
            "trem1 trem2 trem3 trem4 sfp sf fp invertedmordent");
        const auto words = list.split(u' ');
        return QSet<QString>(words.begin(), words.end());
    }();
    return names.contains(name);
}

bool areNotes(QStringView text)
{
    const auto letters = QStringLiteral("CDEFGABcdefgab");
    const auto others = QStringLiteral("^_=,'/0123456789- ");
    const auto isLetter = [&](QChar c) { return letters.contains(c); };
    return std::any_of(text.begin(), text.end(), isLetter) &&
           std::all_of(text.begin(), text.end(), [&](QChar c) { return isLetter(c) || others.contains(c); });
}

class MusicLineReader
{
public:
    MusicLineReader(QStringView line, MusicLineListener &listener) : line_(line), listener_(listener) {}

    void read()
    {
        while (at_ < line_.size())
            readNext();
    }

private:
    QChar peek(qsizetype ahead = 0) const { return at_ + ahead < line_.size() ? line_.at(at_ + ahead) : QChar(); }
    bool take(QChar c)
    {
        const bool isThere = peek() == c;
        at_ += isThere ? 1 : 0;
        return isThere;
    }
    Voice &voice() { return listener_.voice(); }

    void readNext();
    bool readSkipped();
    bool readMarked(QChar mark);
    bool readGrouping();
    bool readBracket();
    bool readBarLine();
    void readEnding();
    void closeChord();
    bool readNote();
    bool readRest();
    void readTuplet();
    void readBrokenRhythm();
    std::optional<int> readAccidental();
    Fraction readLength();
    std::optional<int> readNumber();
    bool isBarLineHere() const;
    void skipBehind(QChar end);
    qsizetype indexOf(QChar c, qsizetype from) const;

    QStringView line_;
    MusicLineListener &listener_;
    qsizetype at_ = 0;
    bool isOldChord_ = false; // between the signs of "+CEG+"
};

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

bool isAsciiLetter(QChar c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

void MusicLineReader::readNext()
{
    if (readNote() || readSkipped() || readGrouping() || readBracket() || readBarLine() || readRest())
        return;
    // Letters that stand for decorations, as the standard and the user have them.
    const auto c = peek();
    const bool isSymbol = isAsciiLetter(c) || QStringLiteral(".~,'/\\*;?@#]").contains(c);
    if (isSymbol)
        listener_.decoration(line_.mid(at_, 1));
    else
        listener_.unreadable(line_.mid(at_, 1));
    ++at_;
}

// -1 where it does not come.
qsizetype MusicLineReader::indexOf(QChar c, qsizetype from) const
{
    const auto *const found = std::find(line_.begin() + std::min(from, line_.size()), line_.end(), c);
    return found == line_.end() ? -1 : found - line_.begin();
}

// To the end of the line where it does not come.
void MusicLineReader::skipBehind(QChar end)
{
    const auto found = indexOf(end, at_);
    at_ = found < 0 ? line_.size() : found + 1;
}

bool MusicLineReader::readSkipped()
{
    const auto c = peek();
    if (c.isSpace() || c == u'`' || c == u'$') {
        ++at_;
        return true;
    }
    if (c == u'"') {
        const auto begin = ++at_;
        skipBehind(u'"');
        const bool isClosed = at_ > begin && line_.at(at_ - 1) == u'"';
        voice().chordName(line_.mid(begin, at_ - begin - (isClosed ? 1 : 0)));
        return true;
    }
    return (c == u'!' || c == u'+') && readMarked(c);
}

// A decoration; a chord in the signs of old texts, "+CEG+"; or a sign alone, which is a line break or nothing.
bool MusicLineReader::readMarked(QChar mark)
{
    if (mark == u'+' && voice().isInChord() && isOldChord_) {
        ++at_;
        isOldChord_ = false;
        voice().endChord(readLength());
        return true;
    }
    const auto end = indexOf(mark, at_ + 1);
    const auto name = end > at_ ? line_.mid(at_ + 1, end - at_ - 1) : QStringView();
    const bool isName = isDecoration(name.toString());
    at_ = isName ? end + 1 : at_ + 1;
    if (isName)
        listener_.decoration(name);
    if (!isName && mark == u'+' && !voice().isInChord() && areNotes(name)) {
        isOldChord_ = true;
        voice().beginChord();
    }
    return true;
}

bool MusicLineReader::readGrouping()
{
    switch (peek().unicode()) {
    case u'(':
        ++at_;
        if (isDigit(peek())) {
            closeChord();
            readTuplet();
        }
        return true;
    case u')':
        ++at_;
        return true;
    case u'{':
        ++at_;
        take(u'/');
        voice().beginGraces();
        return true;
    case u'}':
        ++at_;
        voice().endGraces();
        return true;
    case u'-':
        ++at_;
        voice().tie();
        return true;
    case u'<':
    case u'>':
        readBrokenRhythm();
        return true;
    case u'&':
        ++at_;
        if (voice().isInChord())
            return true;
        voice().overlay();
        return true;
    default:
        return false;
    }
}

bool MusicLineReader::readBracket()
{
    if (peek() == u']' && voice().isInChord()) {
        ++at_;
        voice().endChord(readLength());
        return true;
    }
    if (peek() != u'[')
        return false;
    if (isAsciiLetter(peek(1)) && peek(2) == u':' && peek(3) != u'|') {
        const auto letter = peek(1);
        const auto begin = at_ + 3;
        skipBehind(u']');
        const bool isClosed = line_.at(at_ - 1) == u']';
        listener_.inlineField(letter, line_.mid(begin, at_ - begin - (isClosed ? 1 : 0)).trimmed());
        return true;
    }
    if (isDigit(peek(1))) {
        ++at_;
        readEnding();
        return true;
    }
    if (peek(1) == u'|')
        return readBarLine();
    ++at_;
    voice().beginChord();
    return true;
}

// A chord that was forgotten to end ends at the latest where none can go on: with its measure, or before a tuplet.
void MusicLineReader::closeChord()
{
    isOldChord_ = false;
    if (voice().isInChord())
        voice().endChord(1);
}

bool MusicLineReader::isBarLineHere() const
{
    return peek() == u'|' || peek() == u':' || (peek() == u'[' && peek(1) == u'|');
}

// Bar lines of any shape: colons in front end a repeat, colons behind begin one, thick and double lines end an ending.
bool MusicLineReader::readBarLine()
{
    if (!isBarLineHere())
        return false;
    int before = 0;
    int after = 0;
    int strokes = 0;
    bool isThick = false;
    while (isBarLineHere() || (strokes > 0 && peek() == u']')) {
        if (peek() == u':') {
            ++(strokes > 0 ? after : before);
        } else if (peek() == u'|') {
            if (after > 0) // the next bar line follows at once
                break;
            ++strokes;
        } else {
            isThick = true;
        }
        ++at_;
    }
    if (strokes == 0 && before == 1) // a colon alone
        return true;
    if (strokes == 0)
        after = 1; // "::"
    closeChord();
    auto &voice = this->voice();
    voice.bar();
    ScoreItem item;
    if (before > 0) {
        item.kind = ScoreItem::Kind::RepeatEnd;
        item.passes = quint64(strokes == 0 ? 2 : std::min(before, 8) + 1);
        voice.append(item);
    } else if (isThick || strokes > 1) {
        item.kind = ScoreItem::Kind::EndingStop;
        voice.append(item);
    }
    if (after > 0) {
        item.kind = ScoreItem::Kind::RepeatStart;
        voice.append(item);
    }
    if (isDigit(peek()))
        readEnding();
    return true;
}

// "1", "1,3", "1-2": the passes that the music from here on belongs to.
void MusicLineReader::readEnding()
{
    ScoreItem item;
    item.kind = ScoreItem::Kind::Ending;
    int previous = 0;
    bool isRange = false;
    while (const auto number = readNumber()) {
        const int pass = std::clamp(*number, 1, 63);
        for (int i = isRange ? previous : pass; i <= pass; ++i)
            item.passes |= quint64(1) << i;
        previous = pass;
        isRange = peek() == u'-';
        if (!(isRange || peek() == u',' || peek() == u'.') || !isDigit(peek(1)))
            break;
        ++at_;
    }
    voice().append(item);
}

std::optional<int> MusicLineReader::readNumber()
{
    if (!isDigit(peek()))
        return {};
    qint64 number = 0;
    for (; isDigit(peek()); ++at_)
        number = std::min(largestNumber, 10 * number + peek().unicode() - u'0');
    return int(number);
}

// "3", "3/2", "/", "//", "/4": in unit notes.
Fraction MusicLineReader::readLength()
{
    const auto numerator = readNumber().value_or(1);
    int denominator = 1;
    while (take(u'/'))
        denominator = std::min(int(largestNumber), denominator * std::max(1, readNumber().value_or(2)));
    return {numerator > 0 ? numerator : 1, denominator};
}

void MusicLineReader::readTuplet()
{
    const int count = readNumber().value_or(1);
    std::optional<int> inTimeOf;
    std::optional<int> notes;
    if (take(u':')) {
        inTimeOf = readNumber();
        if (take(u':'))
            notes = readNumber();
    }
    const int byMetre = voice().settings.metre.isCompound() ? 3 : 2;
    constexpr std::array<int, 10> table{0, 0, 3, 2, 3, 0, 2, 0, 3, 0};
    const int usual = count < int(table.size()) && table[size_t(count)] > 0 ? table[size_t(count)] : byMetre;
    if (count < 2 || count > 64)
        return;
    voice().tuplet(count, std::clamp(inTimeOf.value_or(usual), 1, 64), notes.value_or(count));
}

void MusicLineReader::readBrokenRhythm()
{
    const auto sign = peek();
    int dots = 0;
    while (take(sign))
        ++dots;
    voice().brokenRhythm(sign == u'>' ? dots : -dots);
}

std::optional<int> MusicLineReader::readAccidental()
{
    if (peek() == u'=') {
        ++at_;
        return 0;
    }
    const auto sign = peek();
    if (sign != u'^' && sign != u'_')
        return {};
    int semitones = 0;
    while (take(sign))
        semitones = std::min(2, semitones + 1);
    // Quarter tones, "^/" and "^3/2": to the nearest semitone above nothing.
    if (const auto count = readNumber())
        semitones = std::min(2, *count);
    if (take(u'/')) {
        const auto parts = readNumber().value_or(2);
        semitones = std::max(1, semitones / std::max(1, parts));
    }
    return sign == u'^' ? semitones : -semitones;
}

bool MusicLineReader::readNote()
{
    const auto begin = at_;
    WrittenPitch pitch;
    pitch.accidental = readAccidental();
    const auto letter = peek();
    const bool isLow = letter >= u'A' && letter <= u'G';
    if (!isLow && !(letter >= u'a' && letter <= u'g')) {
        if (at_ == begin)
            return false;
        listener_.unreadable(line_.mid(begin, at_ - begin));
        return true;
    }
    ++at_;
    constexpr std::array<int, 7> fromA{5, 6, 0, 1, 2, 3, 4};
    pitch.letter = fromA[size_t(letter.unicode() - (isLow ? u'A' : u'a'))];
    pitch.octave = isLow ? 0 : 1;
    for (; peek() == u',' || peek() == u'\''; ++at_)
        pitch.octave = std::clamp(pitch.octave + (peek() == u',' ? -1 : 1), -9, 9);
    voice().note(pitch, readLength());
    return true;
}

bool MusicLineReader::readRest()
{
    const auto c = peek();
    if (c == u'z' || c == u'x') {
        ++at_;
        voice().rest(readLength());
    } else if (c == u'Z' || c == u'X') {
        ++at_;
        voice().measureRest(std::max(1, readNumber().value_or(1)));
    } else if (c == u'y') { // a gap in print
        ++at_;
        readLength();
    } else {
        return false;
    }
    return true;
}

} // namespace

void readMusicLine(QStringView line, MusicLineListener &listener)
{
    MusicLineReader(line, listener).read();
}
