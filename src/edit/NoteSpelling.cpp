#include "edit/NoteSpelling.h"

#include "core/KeyTable.h"

#include <numeric>

void NoteSpelling::begin(quint32 keyRow)
{
    keyRow_ = keyRow;
    accidentals_.clear();
}

int NoteSpelling::inForce(int step) const
{
    const auto held = accidentals_.find(step);
    return held != accidentals_.end() ? held->second : KeyTable::accidental(keyRow_, (step % 7 + 7) % 7);
}

QString NoteSpelling::accidentalText(int accidental)
{
    if (accidental == 0)
        return QStringLiteral("=");
    return QString(std::abs(accidental), QLatin1Char(accidental > 0 ? '^' : '_'));
}

QString NoteSpelling::write(quint32 pitch)
{
    const auto &spelling = KeyTable::spelling(keyRow_, pitch % 12);
    const int octave = int(pitch / 12) - 5 + spelling.octaveCorrection;
    const int step = octave * 7 + spelling.letter;
    QString text;
    if (inForce(step) != spelling.accidental) {
        text = accidentalText(spelling.accidental);
        set(step, spelling.accidental);
    }
    const auto letter = QLatin1Char("CDEFGAB"[spelling.letter]);
    text += octave >= 1 ? QChar(letter).toLower() : QChar(letter);
    text += QString(std::max(0, octave - 1), u'\'');
    return text + QString(std::max(0, -octave), u',');
}

QString lengthText(Ticks length, Ticks unitLength)
{
    const auto divisor = std::gcd(length, unitLength);
    const auto numerator = length / divisor;
    const auto denominator = unitLength / divisor;
    QString text;
    if (numerator != 1)
        text = QString::number(numerator);
    if (denominator != 1)
        text += u'/';
    if (denominator > 2)
        text += QString::number(denominator);
    return text;
}
