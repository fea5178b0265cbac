#include "import/standard/TimeFields.h"

#include <QRegularExpression>

#include <cmath>

namespace {

// A whole number from 1 up to what a musician would write; nothing otherwise.
std::optional<quint32> count(const QString &text)
{
    bool isNumber = false;
    const auto number = text.trimmed().toUInt(&isNumber);
    return isNumber && number > 0 && number <= 100'000 ? std::optional(number) : std::nullopt;
}

std::optional<Fraction> wholeNotes(const QString &text)
{
    const auto parts = text.split(u'/');
    const auto numerator = count(parts.value(0));
    const auto denominator = parts.size() > 1 ? count(parts.value(1)) : 1U;
    if (parts.size() > 2 || !numerator || !denominator)
        return {};
    return Fraction(*numerator, *denominator);
}

struct NamedTempo
{
    const char *name;
    quint32 bpm;
};
// In quarters a minute, as metronomes have them.
constexpr NamedTempo namedTempos[]{{"larghetto", 66}, {"largo", 56},   {"adagio", 59},    {"lento", 62},
                                   {"andantino", 96}, {"andante", 88}, {"moderato", 104}, {"allegretto", 112},
                                   {"allegro", 120},  {"vivace", 168}, {"vivo", 180},     {"prestissimo", 240},
                                   {"presto", 192}};

std::optional<TempoValue> namedTempo(const QString &text)
{
    for (const auto &tempo : namedTempos) {
        if (text.contains(QLatin1String(tempo.name), Qt::CaseInsensitive))
            return TempoValue{1, 4, tempo.bpm};
    }
    return {};
}

// "C", "C3", "C/2": multiples of the unit; "1/4 3/8": their sum.
std::optional<Fraction> beatOf(const QString &text, const Fraction &unitInWholeNotes)
{
    if (text.startsWith(u'C', Qt::CaseInsensitive)) {
        const auto factor = text.mid(1).trimmed();
        if (factor.isEmpty())
            return unitInWholeNotes;
        const auto multiple = wholeNotes(factor.startsWith(u'/') ? QStringLiteral("1") + factor : factor);
        return multiple ? std::optional(unitInWholeNotes * *multiple) : std::nullopt;
    }
    Fraction sum;
    for (const auto &part : text.split(u' ', Qt::SkipEmptyParts)) {
        const auto beat = wholeNotes(part);
        if (!beat)
            return {};
        sum = sum + *beat;
    }
    return sum.isZero() ? std::nullopt : std::optional(sum);
}

std::optional<TempoValue> tempoOf(const Fraction &beat, double perMinute)
{
    TempoValue tempo{quint32(beat.numerator()), quint32(beat.denominator()), 0};
    // Fractions of a beat a minute become whole numbers of smaller beats.
    for (int i = 0; i < 4 && std::abs(perMinute - std::round(perMinute)) > 1e-6 && tempo.beatDenominator < 4096; ++i) {
        perMinute *= 2;
        tempo.beatDenominator *= 2;
    }
    if (!(perMinute >= 1 && perMinute <= 100'000))
        return {};
    tempo.bpm = quint32(std::lround(perMinute));
    return tempo;
}

} // namespace

HeaderFields::Metre readMetreField(QStringView text)
{
    auto compact = text.toString().remove(u' ').remove(u'(').remove(u')');
    if (compact == u"C" || compact == u"c")
        return {4, 4};
    if (compact == u"C|" || compact == u"c|")
        return {2, 2};
    const auto slash = compact.indexOf(u'/');
    const auto denominator = slash > 0 ? count(compact.mid(slash + 1)) : std::nullopt;
    quint32 numerator = 0;
    for (const auto &part : compact.left(qMax(0, int(slash))).split(u'+'))
        numerator += count(part).value_or(0);
    return denominator && numerator > 0 ? HeaderFields::Metre{numerator, *denominator} : HeaderFields::Metre();
}

std::optional<Fraction> readUnitLengthField(QStringView text)
{
    const auto length = wholeNotes(text.toString().remove(u' '));
    return length ? std::optional(*length * Fraction(ticksPerWholeNote)) : std::nullopt;
}

Fraction defaultUnitLength(const HeaderFields::Metre &metre)
{
    const bool isShort = !metre.isNone() && metre.numerator * 4 < metre.denominator * 3;
    return Fraction(ticksPerWholeNote, isShort ? 16 : 8);
}

std::optional<TempoValue> readTempoField(QStringView text, const Fraction &unitLength, BareTempo bareTempo)
{
    static const QRegularExpression quoted(QStringLiteral("\"[^\"]*\"?"));
    static const QRegularExpression number(QStringLiteral("^\\s*([0-9]+(?:\\.[0-9]+)?)"));
    const auto whole = text.toString();
    const auto plain = QString(whole).remove(quoted).simplified();
    if (plain.isEmpty())
        return namedTempo(whole);
    const auto unit = unitLength * Fraction(1, ticksPerWholeNote);
    const auto equals = plain.indexOf(u'=');
    const auto perMinute = number.match(equals < 0 ? plain : plain.mid(equals + 1));
    if (!perMinute.hasMatch())
        return namedTempo(whole);
    const auto beat = equals >= 0 ? beatOf(plain.left(equals).trimmed(), unit)
                                  : std::optional(bareTempo == BareTempo::Quarters ? Fraction(1, 4) : unit);
    return beat ? tempoOf(*beat, perMinute.captured(1).toDouble()) : std::nullopt;
}
