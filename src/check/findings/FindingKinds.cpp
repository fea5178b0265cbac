#include "check/findings/FindingKinds.h"

#include "edit/NoteText.h"

#include <QCoreApplication>
#include <QLocale>

#include <array>
#include <cmath>

namespace {

struct Row
{
    const char *name;
    Severity severity;
    const char *title;
    const char *sentence; // with the finding's values
    const char *fix;
};

// In the order of FindingKind.
constexpr std::array<Row, findingKindCount> rows{{
    {"refused-text", Severity::Error, QT_TRANSLATE_NOOP("Finding", "Text that the game cannot read"), "%1.", ""},
    {"out-of-range", Severity::Error, QT_TRANSLATE_NOOP("Finding", "Notes out of range"),
     QT_TRANSLATE_NOOP("Finding", "“%1” is outside the notes that instruments play, and stays silent."),
     QT_TRANSLATE_NOOP("Finding", "Move by octaves into the range")},
    {"empty-measure", Severity::Warning, QT_TRANSLATE_NOOP("Finding", "Empty measures"),
     QT_TRANSLATE_NOOP("Finding", "The bar line “%1” makes an empty measure: the game is silent for it."),
     QT_TRANSLATE_NOOP("Finding", "Remove the bar line")},
    {"pick-up", Severity::Warning, QT_TRANSLATE_NOOP("Finding", "Pick-ups with a gap behind them"),
     QT_TRANSLATE_NOOP("Finding",
                       "The first measure is short by %1: the game is silent for as long behind it, not before it."),
     QT_TRANSLATE_NOOP("Finding", "Begin with a rest")},
    {"bar-line-silence", Severity::Warning, QT_TRANSLATE_NOOP("Finding", "Measures that are too short"),
     QT_TRANSLATE_NOOP("Finding", "The measure is short by %1: at its bar line the game is silent for as long."), ""},
    {"bar-line-overlap", Severity::Error, QT_TRANSLATE_NOOP("Finding", "Measures that are too long"),
     QT_TRANSLATE_NOOP("Finding", "The measure is long by %1: what follows its bar line begins before it ends."), ""},
    {"long-text", Severity::Warning, QT_TRANSLATE_NOOP("Finding", "Texts that are too long"),
     QT_TRANSLATE_NOOP("Finding", "The text has %1 characters; the limit is %2.%3"),
     QT_TRANSLATE_NOOP("Finding", "Write it with another unit length")},
    {"open-grace-notes", Severity::Error, QT_TRANSLATE_NOOP("Finding", "Grace notes that are not closed"),
     QT_TRANSLATE_NOOP("Finding", "The grace notes are not closed: the game plays nothing behind them."), ""},
    {"stray-sign", Severity::Warning, QT_TRANSLATE_NOOP("Finding", "Signs that belong to nothing"),
     QT_TRANSLATE_NOOP("Finding", "“%1” belongs to nothing here: the game passes over it."),
     QT_TRANSLATE_NOOP("Finding", "Remove the sign")},
    {"lost-tie", Severity::Warning, QT_TRANSLATE_NOOP("Finding", "Ties that lead nowhere"),
     QT_TRANSLATE_NOOP("Finding", "The tie leads nowhere: no note of the same pitch follows at once."),
     QT_TRANSLATE_NOOP("Finding", "Remove the tie")},
    {"unreadable-field", Severity::Error, QT_TRANSLATE_NOOP("Finding", "Fields that the game cannot read"),
     QT_TRANSLATE_NOOP("Finding", "The game cannot read “%1”; it would read %2, for example."), ""},
    {"ignored-field", Severity::Warning, QT_TRANSLATE_NOOP("Finding", "Fields that change nothing"),
     QT_TRANSLATE_NOOP("Finding", "“%1” changes nothing: the game takes the unit length from the header alone."), ""},
    {"second-tune", Severity::Warning, QT_TRANSLATE_NOOP("Finding", "Second tunes"),
     QT_TRANSLATE_NOOP("Finding", "A second tune begins here: the game plays it on as part of the first."), ""},
    {"empty-part", Severity::Warning, QT_TRANSLATE_NOOP("Finding", "Empty parts"),
     QT_TRANSLATE_NOOP("Finding", "The part has no notes."), ""},
    {"many-notes", Severity::Warning, QT_TRANSLATE_NOOP("Finding", "Too many notes at once"),
     QT_TRANSLATE_NOOP("Finding", "%1 notes sound at once; the limit is %2."), ""},
    {"unknown-instrument", Severity::Error, QT_TRANSLATE_NOOP("Finding", "Unknown instruments"),
     QT_TRANSLATE_NOOP("Finding", "The game has no instrument “%1”.%2"),
     QT_TRANSLATE_NOOP("Finding", "Name the instrument that is meant")},
    {"no-sample", Severity::Error, QT_TRANSLATE_NOOP("Finding", "Notes without a sample"),
     QT_TRANSLATE_NOOP("Finding", "%2 has no sample for %1: the note stays silent."),
     QT_TRANSLATE_NOOP("Finding", "Move by octaves to a sample")},
    {"far-from-sample", Severity::Warning, QT_TRANSLATE_NOOP("Finding", "Notes far from their sample"),
     QT_TRANSLATE_NOOP("Finding", "%1 is %2 semitones from its sample, and will not sound natural."), ""},
    {"tempo-differs", Severity::Error, QT_TRANSLATE_NOOP("Finding", "Tempos that differ"),
     QT_TRANSLATE_NOOP("Finding", "The part plays %1 quarter notes a minute here, most others %2."),
     QT_TRANSLATE_NOOP("Finding", "Give it the tempo of the others")},
    {"start-differs", Severity::Note, QT_TRANSLATE_NOOP("Finding", "Starts that differ"),
     QT_TRANSLATE_NOOP("Finding", "The part's first note comes %1 later than the song's."), ""},
    {"length-differs", Severity::Note, QT_TRANSLATE_NOOP("Finding", "Lengths that differ"),
     QT_TRANSLATE_NOOP("Finding", "The part ends %1 before the longest one."),
     QT_TRANSLATE_NOOP("Finding", "End with rests")},
}};

const Row &rowOf(FindingKind kind)
{
    return rows[size_t(kind)];
}

QString translated(const char *text)
{
    return *text == '\0' ? QString() : QCoreApplication::translate("Finding", text);
}

} // namespace

namespace FindingKinds {

QString name(FindingKind kind)
{
    return QLatin1String(rowOf(kind).name);
}

Severity severity(FindingKind kind)
{
    return rowOf(kind).severity;
}

QString severityName(Severity severity)
{
    constexpr std::array names{"note", "warning", "error"};
    return QLatin1String(names[size_t(severity)]);
}

QString title(FindingKind kind)
{
    return translated(rowOf(kind).title);
}

QString fixText(FindingKind kind)
{
    return translated(rowOf(kind).fix);
}

} // namespace FindingKinds

QString lengthInWords(Ticks length)
{
    if (length < ticksPerWholeNote)
        return QCoreApplication::translate("Finding", "%1 note").arg(NoteText::length(length));
    if (length == ticksPerWholeNote)
        return QCoreApplication::translate("Finding", "a whole note");
    const auto hundredths = std::round(100.0 * double(length) / ticksPerWholeNote);
    return QCoreApplication::translate("Finding", "%1 whole notes")
        .arg(QLocale().toString(hundredths / 100, 'g', QLocale::FloatingPointShortest));
}

QString sentenceOf(const Finding &finding)
{
    auto sentence = translated(rowOf(finding.kind).sentence);
    for (int i = int(finding.values.size()); i > 0; --i) // what a value holds is no place for another one
        sentence.replace(u'%' + QString::number(i), finding.values[i - 1]);
    return sentence;
}
