#include "ui/report/ImportWords.h"

#include <QCoreApplication>
#include <QStringList>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ImportWords)
};

// Of notes: behind their number. Of others: before it.
struct Words
{
    ImportFinding finding;
    bool isOfNotes;
    const char *inLine;
    const char *inRow;
};
constexpr Words table[] = {
    {ImportFinding::Restruck, true, QT_TRANSLATE_NOOP("ImportWords", "struck again and lost"),
     QT_TRANSLATE_NOOP("ImportWords", "Notes struck again and lost")},
    {ImportFinding::BelowVelocityGate, true, QT_TRANSLATE_NOOP("ImportWords", "too soft"),
     QT_TRANSLATE_NOOP("ImportWords", "Notes too soft")},
    {ImportFinding::OutOfRange, true, QT_TRANSLATE_NOOP("ImportWords", "out of range"),
     QT_TRANSLATE_NOOP("ImportWords", "Notes out of range")},
    {ImportFinding::Folded, true, QT_TRANSLATE_NOOP("ImportWords", "moved by octaves"),
     QT_TRANSLATE_NOOP("ImportWords", "Notes moved by octaves")},
    {ImportFinding::Unterminated, true, QT_TRANSLATE_NOOP("ImportWords", "never released"),
     QT_TRANSLATE_NOOP("ImportWords", "Notes never released")},
    {ImportFinding::BarLineSilence, false, QT_TRANSLATE_NOOP("ImportWords", "silences by bar lines"),
     QT_TRANSLATE_NOOP("ImportWords", "Silences by bar lines")},
    {ImportFinding::BarLineOverlap, false, QT_TRANSLATE_NOOP("ImportWords", "measures longer than the metre"),
     QT_TRANSLATE_NOOP("ImportWords", "Measures longer than the metre")},
    {ImportFinding::RepeatNotPlayed, false, QT_TRANSLATE_NOOP("ImportWords", "repeats not played"),
     QT_TRANSLATE_NOOP("ImportWords", "Repeats not played")},
    {ImportFinding::TieLost, false, QT_TRANSLATE_NOOP("ImportWords", "ties lost"),
     QT_TRANSLATE_NOOP("ImportWords", "Ties lost")},
    {ImportFinding::DefaultTempo, false, QT_TRANSLATE_NOOP("ImportWords", "tunes without a tempo"),
     QT_TRANSLATE_NOOP("ImportWords", "No tempo is written")},
    {ImportFinding::Unreadable, false, QT_TRANSLATE_NOOP("ImportWords", "signs and fields without a meaning"),
     QT_TRANSLATE_NOOP("ImportWords", "Signs and fields without a meaning")},
};
static_assert(std::size(table) == importFindingCount);

// Those that are there, and those that are not any more.
int notesOfSource(const PartReport &sum)
{
    return sum.notes + sum.count(ImportFinding::Restruck) + sum.count(ImportFinding::BelowVelocityGate) +
           sum.count(ImportFinding::OutOfRange);
}

QString phrase(const Words &words, const PartReport &sum, bool isFirst)
{
    const int count = sum.count(words.finding);
    const auto text = Texts::tr(words.inLine);
    if (!words.isOfNotes)
        return Texts::tr("%1: %2").arg(text).arg(count);
    return isFirst ? Texts::tr("%1 of %2 notes were %3").arg(count).arg(notesOfSource(sum)).arg(text)
                   : Texts::tr("%1 %2").arg(count).arg(text);
}

} // namespace

QString wordsOf(ImportFinding finding)
{
    for (const auto &words : table) {
        if (words.finding == finding)
            return Texts::tr(words.inRow);
    }
    return {};
}

QString lineOf(const PartReport &sum)
{
    QStringList phrases;
    for (const auto &words : table) {
        if (sum.count(words.finding) > 0)
            phrases.append(phrase(words, sum, phrases.isEmpty()));
    }
    if (sum.shifts.shiftedNotes > 0)
        phrases.append(Texts::tr("worst shift %1 ms").arg(qRound(sum.shifts.largestMs)));
    return phrases.join(QStringLiteral(", "));
}
