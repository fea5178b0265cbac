#include "core/HeaderFields.h"

#include "core/KeyTable.h"
#include "core/Logging.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <optional>

namespace {

bool isDigit(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

bool isLetter(QChar c)
{
    const auto lower = c.unicode() | 0x20;
    return lower >= 'a' && lower <= 'z';
}

bool isSpace(QChar c)
{
    return c == QLatin1Char(' ') || (c.unicode() >= '\t' && c.unicode() <= '\r');
}

qsizetype skipWhile(QStringView text, qsizetype from, bool (*matches)(QChar))
{
    while (from < text.size() && matches(text[from]))
        ++from;
    return from;
}

qsizetype firstDigit(QStringView text)
{
    return skipWhile(text, 0, [](QChar c) { return !isDigit(c); });
}

bool hasCharAt(QStringView text, qsizetype at, char c)
{
    return at < text.size() && text[at] == QLatin1Char(c);
}

// A run of digits and where it ends. No value when there are no digits; a number that does not fit sets tooLarge.
struct Number
{
    std::optional<quint32> value;
    qsizetype end = 0;
    bool tooLarge = false;
};

Number readNumber(QStringView text, qsizetype from)
{
    Number number{{}, skipWhile(text, from, isDigit), false};
    quint64 value = 0;
    for (auto i = from; i < number.end; ++i) {
        value = value * 10 + quint64(text[i].unicode() - u'0');
        if (value > 0xFFFFFFFF) {
            number.tooLarge = true;
            return number;
        }
    }
    if (number.end > from)
        number.value = quint32(value);
    return number;
}

// "num" or "num/den" from the first digit of the text on.
struct Fraction
{
    std::optional<quint32> numerator;
    std::optional<quint32> denominator;
};

Fraction readFraction(QStringView text)
{
    const auto numerator = readNumber(text, firstDigit(text));
    if (!numerator.value || !hasCharAt(text, numerator.end, '/'))
        return {numerator.value, {}};
    const auto denominator = readNumber(text, numerator.end + 1);
    if (denominator.tooLarge)
        return {};
    return {numerator.value, denominator.value};
}

// Upper-cased mode texts; "ion" and "aeo" are read as words but name no mode, so both are major.
struct ModeName
{
    const char *text;
    quint32 mode;
};
constexpr std::array<ModeName, 7> modeNames{{{"MAJ", Major},
                                             {"MIN", Minor},
                                             {"MIX", Mixolydian},
                                             {"DOR", Dorian},
                                             {"PHR", Phrygian},
                                             {"LYD", Lydian},
                                             {"LOC", Locrian}}};

quint32 readMode(QStringView text)
{
    for (const auto &name : modeNames) {
        if (text.startsWith(QLatin1String(name.text), Qt::CaseInsensitive))
            return name.mode;
    }
    return text.startsWith(QLatin1Char('M'), Qt::CaseInsensitive) ? Minor : Major;
}

} // namespace

namespace HeaderFields {

std::optional<Key> findKey(const QString &text)
{
    const QStringView view(text);
    const auto tonicStart = skipWhile(view, 0, [](QChar c) { return !isLetter(c); });
    if (tonicStart == view.size()) {
        qCWarning(notationLog) << "Could not parse key:" << text;
        return {};
    }
    auto tonicEnd = tonicStart + 1;
    if (hasCharAt(view, tonicEnd, '#') || hasCharAt(view, tonicEnd, 'b') || hasCharAt(view, tonicEnd, 'B'))
        ++tonicEnd;
    const auto mode = readMode(view.mid(skipWhile(view, tonicEnd, isSpace)));
    const auto tonic = view.mid(tonicStart, tonicEnd - tonicStart).toString().toUpper();
    const auto row = KeyTable::rowOfTonic(tonic, mode);
    if (row == keyRowCount) {
        qCWarning(notationLog) << "Invalid tonic:" << tonic;
        return {};
    }
    return Key{row, mode};
}

Key parseKey(const QString &text)
{
    return findKey(text).value_or(Key());
}

std::optional<quint32> findUnitLength(QStringView text)
{
    const auto fraction = readFraction(text);
    const auto denominator = fraction.denominator.value_or(1);
    if (!fraction.numerator || denominator == 0)
        return {};
    const quint32 unitLength = *fraction.numerator * quint32(ticksPerWholeNote) / denominator;
    return unitLength != 0 ? std::optional(unitLength) : std::nullopt;
}

quint32 parseUnitLength(QStringView text)
{
    return findUnitLength(text).value_or(quint32(ticksPerQuarter));
}

bool Metre::isCompound() const
{
    return denominator == 8 && (numerator == 6 || numerator == 9 || numerator == 12);
}

Ticks Metre::measureTicks() const
{
    return isNone() ? 0 : scaled(numerator, quint64(ticksPerWholeNote), denominator);
}

Metre parseMetre(const QString &text)
{
    const auto lower = text.toLower();
    if (lower == QLatin1String("c"))
        return {4, 4};
    if (lower == QLatin1String("c|"))
        return {2, 4};
    const auto fraction = readFraction(lower);
    if (fraction.numerator.value_or(0) == 0 || fraction.denominator.value_or(0) == 0)
        return {};
    return {*fraction.numerator, *fraction.denominator};
}

Tempo parseTempo(QStringView text)
{
    const auto start = firstDigit(text);
    const auto first = readNumber(text, start);
    // Bare "120", and whatever is no whole "1/4=120", is the number of unit lengths.
    const Tempo bare{0, 0, first.value.value_or(0), first.value.has_value()};
    if (!hasCharAt(text, first.end, '/'))
        return bare;
    const auto second = readNumber(text, first.end + 1);
    const bool hasDenominator = second.end > first.end + 1;
    if (!hasDenominator || !hasCharAt(text, second.end, '='))
        return bare;
    const auto bpm = readNumber(text, second.end + 1);
    if (bpm.end == second.end + 1)
        return bare;
    if (first.tooLarge || second.tooLarge || bpm.tooLarge)
        return {};
    return {*first.value, *second.value, *bpm.value, true};
}

qint64 headerTempo(QStringView text, quint32 unitLength)
{
    const auto tempo = parseTempo(text);
    if (!tempo.readable)
        return scaled(unitLength, 120, 1);
    if (!tempo.hasBeat())
        return scaled(unitLength, tempo.bpm, 1);
    return scaled(scaled(tempo.bpm, tempo.beatNumerator, 1), quint64(ticksPerWholeNote), tempo.beatDenominator);
}

TrackEvent inlineTempo(Ticks start, QStringView text, quint32 unitLength)
{
    const auto tempo = parseTempo(text);
    if (tempo.hasBeat())
        return TrackEvent::tempo(start, tempo.beatNumerator, tempo.beatDenominator, tempo.bpm);
    const auto divisor = std::gcd(unitLength, quint32(ticksPerWholeNote));
    const auto numerator = unitLength / divisor;
    const auto denominator = quint32(ticksPerWholeNote) / divisor;
    if (numerator != 1)
        qCWarning(notationLog) << "Bad unit length: %1/%2" << numerator << "/" << denominator;
    return TrackEvent::tempo(start, numerator, denominator, tempo.bpm);
}

QString instrumentName(const QStringList &values)
{
    const auto prefix = QStringLiteral("Instrument:");
    for (const auto &value : values) {
        if (const auto at = value.indexOf(prefix); at >= 0)
            return value.mid(at + prefix.size()).trimmed();
    }
    return {};
}

} // namespace HeaderFields
