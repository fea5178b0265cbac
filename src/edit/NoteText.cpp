#include "edit/NoteText.h"

#include "core/KeyTable.h"
#include "core/Measures.h"

#include <QCoreApplication>

#include <numeric>

namespace NoteText {

QString pitch(int pitch, quint32 keyRow)
{
    auto spelling = KeyTable::spelling(keyRow, quint32(pitch % 12));
    const auto &natural = KeyTable::spelling(neutralKeyRow, quint32(pitch % 12));
    // A white key is called E♯ or F♭ only where the key itself has that note.
    if (natural.accidental == 0 && spelling.accidental != KeyTable::accidental(keyRow, spelling.letter))
        spelling = natural;
    QString name(QLatin1Char("CDEFGAB"[spelling.letter]));
    const QChar sign = spelling.accidental > 0 ? QChar(u'♯') : QChar(u'♭');
    name += QString(std::abs(spelling.accidental), sign);
    return name + QString::number(pitch / 12 - 1 + spelling.octaveCorrection);
}

QString length(Ticks length)
{
    const auto divisor = std::max(Ticks(1), std::gcd(length, ticksPerWholeNote));
    const auto whole = QString::number(length / divisor);
    const auto denominator = ticksPerWholeNote / divisor;
    return length == 0 || denominator == 1 ? whole : whole + QLatin1Char('/') + QString::number(denominator);
}

QString position(Ticks tick, const Measures &measures)
{
    const auto measure = measures.at(tick);
    const auto inMeasure = tick - measure.start;
    auto text = QCoreApplication::translate("NoteText", "Measure %1, beat %2")
                    .arg(measure.number)
                    .arg(inMeasure / measure.beat + 1);
    if (const auto rest = inMeasure % measure.beat; rest != 0)
        text += QStringLiteral(" + ") + length(rest);
    return text;
}

} // namespace NoteText
