#include "core/AbcNumbers.h"

quint64 number(QStringView digits)
{
    quint64 value = 0;
    for (const auto digit : digits)
        value = value * 10 + quint64(digit.unicode() - u'0');
    return value;
}

bool hasHugeNumber(const AbcToken &token)
{
    constexpr qsizetype fittingDigits = 9;
    constexpr quint64 largest = 0xFFFFFFFF;
    return token.text.size() > fittingDigits && (number(token.part(AbcPart::LengthNumerator)) > largest ||
                                                 number(token.part(AbcPart::LengthDenominator)) > largest);
}

AbcRatio writtenLength(const AbcToken &token)
{
    AbcRatio length;
    if (token.part(AbcPart::Length).isEmpty())
        return length;
    if (token.has(AbcPart::LengthNumerator))
        length.numerator = number(token.part(AbcPart::LengthNumerator));
    const auto slashes = token.part(AbcPart::LengthSlashes).size();
    if (token.has(AbcPart::LengthDenominator))
        length.denominator = std::max<quint64>(1, number(token.part(AbcPart::LengthDenominator))) << (slashes - 1);
    else
        length.denominator = quint64(1) << slashes;
    return length;
}

AbcRatio writtenTuplet(const AbcToken &token, bool inCompoundMetre)
{
    constexpr std::array<quint32, 8> simple{3, 2, 3, 2, 2, 2, 3, 2};
    constexpr std::array<quint32, 8> compound{3, 2, 3, 3, 2, 3, 3, 3};
    const auto p = quint32(number(token.part(AbcPart::TupletP)));
    auto q = p;
    if (token.has(AbcPart::TupletQ))
        q = quint32(number(token.part(AbcPart::TupletQ)));
    else if (p >= 2 && p <= 9)
        q = (inCompoundMetre ? compound : simple)[p - 2];
    return {q, p};
}
