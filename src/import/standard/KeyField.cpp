#include "import/standard/KeyField.h"

#include "core/KeyTable.h"

#include <QString>
#include <QStringList>
#include <QStringView>

namespace {

constexpr std::array<int, 7> sharpOrder{3, 0, 4, 1, 5, 2, 6};   // F C G D A E B
constexpr std::array<int, 7> majorSharps{0, 2, 4, -1, 1, 3, 5}; // of the keys C D E F G A B

struct Mode
{
    const char *name;
    int sharps; // more than the major key of the same tonic has
    quint32 mode;
};
// Mixolydian is written as the major key of the same signature: "mix" is also read as a minor key with a tail.
constexpr std::array<Mode, 9> modes{{{"maj", 0, Major},
                                     {"ion", 0, Major},
                                     {"lyd", 1, Lydian},
                                     {"mix", -1, Mixolydian},
                                     {"dor", -2, Dorian},
                                     {"min", -3, Minor},
                                     {"aeo", -3, Minor},
                                     {"phr", -4, Phrygian},
                                     {"loc", -5, Locrian}}};

int letterOf(QChar c)
{
    return int(QStringLiteral("CDEFGAB").indexOf(c.toUpper()));
}

KeySignature signatureOf(int sharps, quint32 mode)
{
    KeySignature signature;
    for (int i = 0; i < qAbs(sharps); ++i) {
        const auto place = size_t(sharps > 0 ? i % 7 : 6 - i % 7);
        signature.accidentals[size_t(sharpOrder[place])] += sharps > 0 ? 1 : -1;
    }
    const int spelled = sharps > 7 ? sharps - 12 : sharps < -7 ? sharps + 12 : sharps;
    signature.row = quint32(qBound(0, int(neutralKeyRow) - spelled, int(keyRowCount) - 1));
    signature.mode = mode == Mixolydian ? quint32(Major) : mode;
    return signature;
}

bool isClef(const QString &word)
{
    static const QStringList clefs{QStringLiteral("clef="), QStringLiteral("treble"), QStringLiteral("bass"),
                                   QStringLiteral("alto"),  QStringLiteral("tenor"),  QStringLiteral("perc")};
    return std::any_of(clefs.begin(), clefs.end(), [&](const QString &clef) { return word.startsWith(clef); });
}

// "^f", "_b_e", "=c": the letters that sound otherwise than the signature says.
bool takeAccidentals(QStringView word, KeySignature &signature)
{
    int accidental = 0;
    bool isNatural = false;
    for (const auto c : word) {
        if (c == u'^' || c == u'_') {
            accidental += c == u'^' ? 1 : -1;
        } else if (c == u'=') {
            isNatural = true;
        } else if (const int letter = letterOf(c); letter >= 0 && (isNatural || accidental != 0)) {
            signature.accidentals[size_t(letter)] = isNatural ? 0 : qBound(-2, accidental, 2);
            accidental = 0;
            isNatural = false;
        } else {
            return false;
        }
    }
    return true;
}

class KeyFieldReader
{
public:
    explicit KeyFieldReader(QStringView text) : words_(text.toString().simplified().split(u' ', Qt::SkipEmptyParts)) {}

    KeyField read()
    {
        readTonic();
        for (; next_ < words_.size(); ++next_)
            readWord(words_[next_]);
        return field_;
    }

private:
    void readTonic();
    void readMode(const QString &text);
    void readWord(const QString &word);

    QStringList words_;
    int next_ = 0;
    int sharps_ = 0;
    KeyField field_;
};

void KeyFieldReader::readTonic()
{
    if (words_.isEmpty() || words_.first().compare(QLatin1String("none"), Qt::CaseInsensitive) == 0) {
        field_.signature = KeySignature();
        next_ = 1;
        return;
    }
    const auto &word = words_.first();
    if (word == u"HP" || word == u"Hp") { // the Highland bagpipe plays F and C sharp whatever is printed
        field_.signature = signatureOf(2, Major);
        next_ = 1;
        return;
    }
    if (word.startsWith(u"exp")) { // nothing but the accidentals behind it
        field_.signature = KeySignature();
        return;
    }
    const int letter = isClef(word) || word.contains(u'=') ? -1 : letterOf(word.at(0));
    if (letter < 0)
        return;
    sharps_ = majorSharps[size_t(letter)];
    int end = 1;
    if (word.size() > 1 && (word.at(1) == u'#' || word.at(1) == u'b'))
        sharps_ += word.at(end++) == u'#' ? 7 : -7;
    next_ = 1;
    field_.signature = signatureOf(sharps_, Major);
    if (end < word.size())
        readMode(word.mid(end));
    else if (next_ < words_.size() && words_[next_].at(0).isLetter() && !isClef(words_[next_]) &&
             !words_[next_].contains(u'=') && !words_[next_].startsWith(u"exp"))
        readMode(words_[next_++]);
}

void KeyFieldReader::readMode(const QString &text)
{
    const auto lower = text.toLower();
    if (lower == u"m") {
        field_.signature = signatureOf(sharps_ - 3, Minor);
        return;
    }
    for (const auto &mode : modes) {
        if (lower.startsWith(QLatin1String(mode.name))) {
            field_.signature = signatureOf(sharps_ + mode.sharps, mode.mode);
            return;
        }
    }
    field_.isReadable = takeAccidentals(text, *field_.signature);
}

void KeyFieldReader::readWord(const QString &word)
{
    if (word == u"exp") {
        if (field_.signature)
            field_.signature->accidentals = {};
        return;
    }
    if (word.startsWith(u'^') || word.startsWith(u'_') || (word.startsWith(u'=') && word.size() > 1)) {
        if (!field_.signature)
            field_.signature = KeySignature();
        field_.isReadable &= takeAccidentals(word, *field_.signature);
        return;
    }
    const auto shift = readClefShift(word);
    field_.shift.take(shift);
    const bool isKnown = isClef(word) || word.contains(u'=') || shift.clef;
    field_.isReadable &= isKnown;
}

std::optional<int> smallNumber(const QString &text)
{
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    return isNumber && qAbs(number) <= 48 ? std::optional(number) : std::nullopt;
}

} // namespace

void ClefShift::take(const ClefShift &later)
{
    clef = later.clef ? later.clef : clef;
    octave = later.octave ? later.octave : octave;
    transpose = later.transpose ? later.transpose : transpose;
}

int ClefShift::semitones() const
{
    const int octaves = clef.value_or(0) != 0 ? *clef : 12 * octave.value_or(0);
    return octaves + transpose.value_or(0);
}

KeyField readKeyField(QStringView text)
{
    return KeyFieldReader(text).read();
}

ClefShift readClefShift(QStringView parameters)
{
    ClefShift shift;
    const auto words = parameters.toString().simplified().split(u' ', Qt::SkipEmptyParts);
    for (const auto &word : words) {
        if (word.startsWith(u"octave="))
            shift.octave = smallNumber(word.mid(7));
        else if (word.startsWith(u"transpose="))
            shift.transpose = smallNumber(word.mid(10));
        else if (isClef(word)) {
            const int sign = word.contains(u'+') ? 1 : word.contains(u'-') ? -1 : 0;
            shift.clef = sign * (word.endsWith(u"15") ? 24 : word.endsWith(u'8') ? 12 : 0);
        }
    }
    return shift;
}
