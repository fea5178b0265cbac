// What Insert Measure and Delete Measures make of the tunes of ../shared/corpus/abc, or where it is missing of the
// examples: at measures taken at random, each time of the text as its composer wrote it. Ends with 1 when a share is
// below its gate.
//   bench_measure_edits [EDITS] [-v]     EDITS in all, -v prints what was declined or went wrong
//
// A measure is whole when the bar lines before and behind it stand where the metre wants them, and what is written
// between them fills it and no more. The others are counted apart: short, long, or without bar lines.
//
// Other notes are right when what stands before the place in the text sounds as before, and what stands behind it so
// much later or earlier; a note tied across the place is two then, or what is left of it. The text is right when
// nothing but ties and slurs differs before the place and behind it.
#include "core/AbcTokenizer.h"
#include "core/Measures.h"
#include "edit/AbcReading.h"
#include "edit/NoteLookup.h"
#include "edit/plan/MeasureChange.h"
#include "support/Figures.h"
#include "support/Share.h"
#include "support/Tunes.h"
#include "ui/document/EditorDocument.h"

#include <QApplication>
#include <QRandomGenerator>

#include <algorithm>
#include <array>
#include <cstdio>
#include <map>
#include <vector>

namespace {

enum class Shape { Whole, Short, Long, NoBarLines };
constexpr std::array shapeNames{"whole", "short", "long", "no bar lines"};
constexpr std::array obstacleNames{"", "no measure", "no bar line", "tuplet over a bar line", "overlap"};

struct Shares
{
    std::map<Shape, Share> done;
    std::map<std::pair<Shape, MeasureChange::Obstacle>, int> declined;
    Share notes, text, undone;
};

const AbcAccidentalMark *barLineAt(const AbcLayout &layout, Ticks tick)
{
    const auto found = std::find_if(layout.marks.begin() + 1, layout.marks.end(), [&](const AbcAccidentalMark &mark) {
        return mark.kind == AbcAccidentalMark::Kind::BarLine && mark.time == tick;
    });
    return found == layout.marks.end() ? nullptr : &*found;
}

Shape shapeOf(const AbcLayout &layout, const Measure &measure)
{
    const auto *const first = barLineAt(layout, measure.start);
    const auto *const last = barLineAt(layout, measure.end);
    if ((first == nullptr && measure.start > 0) || last == nullptr)
        return Shape::NoBarLines;
    const auto begin = first == nullptr ? layout.bodyOffset : first->offset;
    Ticks sum = 0;
    for (const auto &element : layout.elements) {
        if (element.range.offset >= begin && element.range.offset < last->offset)
            sum += element.advance;
    }
    const auto length = measure.end - measure.start;
    return sum == length ? Shape::Whole : sum < length ? Shape::Short : Shape::Long;
}

// Without what may differ outside the place: ties, slurs, and how a line goes on.
QString bare(const QString &text)
{
    QString result;
    for (const auto c : text) {
        if (!c.isSpace() && c != u'-' && c != u'(' && c != u')' && c != u'\\')
            result += c;
    }
    return result;
}

// What is no music and holds for more than its place.
QStringList fixedOf(const QString &text)
{
    QStringList fixed;
    AbcTokenizer tokens(text);
    AbcToken token;
    while (tokens.next(token)) {
        const bool isField = token.type == AbcTokenType::FieldLine || token.type == AbcTokenType::InlineField;
        const bool isState = isField && QStringLiteral("KLMQ").contains(token.part(AbcPart::Name)[0]);
        if ((isField && !isState) || token.type == AbcTokenType::Comment || token.type == AbcTokenType::Instruction)
            fixed += token.text.toString();
    }
    return fixed;
}

int behindBarLine(const QString &text, const AbcAccidentalMark &mark)
{
    AbcTokenizer tokens(QStringView(text).mid(mark.offset));
    AbcToken token;
    return tokens.next(token) ? mark.offset + int(token.text.size()) : mark.offset;
}

// Whether the notes before the place are as they were, and those behind it moved; where a tune's bar lines take no time
// back, ticks say which is which.
bool areRight(const Track &before, const Track &after, Ticks from, Ticks to, Ticks shift)
{
    std::vector<NoteSpec> wanted;
    for (const auto &event : before.events()) {
        if (!event.isNote())
            continue;
        const auto spec = specOf(event);
        const auto end = spec.start + spec.length;
        const bool isJoined = shift < 0 && spec.start < from && end > to;
        if (isJoined) {
            wanted.push_back({spec.start, spec.length + shift, spec.pitch});
            continue;
        }
        if (spec.start < from)
            wanted.push_back({spec.start, std::min(end, from) - spec.start, spec.pitch});
        if (end > to)
            wanted.push_back({std::max(spec.start, to) + shift, end - std::max(spec.start, to), spec.pitch});
    }
    std::vector<NoteSpec> found;
    for (const auto &event : after.events()) {
        if (event.isNote())
            found.push_back(specOf(event));
    }
    std::sort(wanted.begin(), wanted.end());
    std::sort(found.begin(), found.end());
    return wanted == found;
}

bool hasTimeTakenBack(const AbcLayout &layout)
{
    Ticks end = 0;
    for (const auto &element : layout.elements) {
        if (element.start < end)
            return true;
        end = element.end();
    }
    return false;
}

class Driver
{
public:
    explicit Driver(bool isVerbose) : isVerbose_(isVerbose) {}
    void run(QRandomGenerator &random, const QString &text, int edits);
    bool print() const;

private:
    void insert(const Measure &measure, Ticks length);
    void remove(const Measure &measure);
    void judge(Shares &shares, const Measure &measure, const MeasureChange::Result &result, Ticks to, Ticks shift);
    void say(const char *what, const Measure &measure, const QString &result) const;
    bool keepsText(Ticks from, Ticks to, const QString &result) const;
    bool isUndone(const QString &result) const;

    bool isVerbose_;
    QString text_;
    AbcReading reading_;
    Shares inserted_;
    Shares removed_;
};

void Driver::say(const char *what, const Measure &measure, const QString &result) const
{
    if (!isVerbose_)
        return;
    const auto *const bar = barLineAt(reading_.layout, measure.start);
    const auto offset = bar == nullptr ? reading_.layout.bodyOffset : bar->offset;
    const auto around = std::max(0, offset - 40);
    std::printf("%s, measure %d, %s\n  was  %s\n  is   %s\n", what, int(measure.number),
                qPrintable(reading_.track.title()), qPrintable(text_.mid(around, 120)),
                qPrintable(result.mid(around, 120)));
}

// Up to the bar line at one tick, and from behind the one at the other, where there are any.
bool Driver::keepsText(Ticks from, Ticks to, const QString &result) const
{
    const auto *const first = barLineAt(reading_.layout, from);
    const auto *const last = barLineAt(reading_.layout, to);
    const auto begin = first == nullptr ? reading_.layout.bodyOffset : first->offset;
    const auto end = last == nullptr ? int(text_.size()) : behindBarLine(text_, *last);
    return fixedOf(result) == fixedOf(text_) && bare(result).startsWith(bare(text_.left(begin))) &&
           bare(result).endsWith(bare(text_.mid(end)));
}

bool Driver::isUndone(const QString &result) const
{
    EditorDocument document;
    document.setDraft(text_);
    document.replaceText(result, QStringLiteral("Measures"));
    document.undo();
    return document.text()->toPlainText() == text_;
}

void Driver::judge(Shares &shares, const Measure &measure, const MeasureChange::Result &result, Ticks to, Ticks shift)
{
    const auto shape = shapeOf(reading_.layout, measure);
    shares.done[shape].add(result.isDone());
    if (!result.isDone()) {
        ++shares.declined[{shape, result.obstacle}];
        say((std::string(shift > 0 ? "insert" : "delete") + " declined, " + shapeNames[size_t(shape)] + ", " +
             obstacleNames[size_t(result.obstacle)])
                .c_str(),
            measure, {});
        return;
    }
    if (!hasTimeTakenBack(reading_.layout)) {
        const bool isRight = areRight(reading_.track, readAbc(result.text).track, measure.start, to, shift);
        shares.notes.add(isRight);
        if (!isRight)
            say("other notes", measure, result.text);
    }
    const bool isKept = keepsText(measure.start, to, result.text);
    shares.text.add(isKept);
    if (!isKept)
        say("other text", measure, result.text);
    if (shares.text.all % 10 == 0) {
        const bool undone = isUndone(result.text);
        shares.undone.add(undone);
        if (!undone)
            say("not undone", measure, result.text);
    }
}

void Driver::insert(const Measure &measure, Ticks length)
{
    judge(inserted_, measure, MeasureChange::inserted(text_, reading_, measure.start, length), measure.start, length);
}

void Driver::remove(const Measure &measure)
{
    judge(removed_, measure, MeasureChange::removed(text_, reading_, measure.start, measure.end), measure.end,
          measure.start - measure.end);
}

void Driver::run(QRandomGenerator &random, const QString &text, int edits)
{
    text_ = text;
    reading_ = readAbc(text);
    if (reading_.track.noteCount() == 0 || reading_.unitLength <= 0)
        return;
    const Measures measures(reading_.track);
    for (int i = 0; i < edits; ++i) {
        const auto length = std::clamp<Ticks>(reading_.layout.units.last().start, 1, 1 << 30);
        const auto measure = measures.at(random.bounded(int(length)));
        insert(measure, measures.sectionAt(std::max(Ticks(0), measure.start - 1)).measure);
        remove(measure);
    }
}

bool print(const char *command, const Shares &shares)
{
    const auto say = [command](const std::string &what, const Share &share, std::optional<double> gate) {
        std::printf("%s: %-28s %9.4f %% of %d\n", command, what.c_str(), share.percent(), share.all);
        return !gate || report({std::string(command) + ": " + what + ", %", share.percent(), *gate, {}, Better::More});
    };
    bool isGood = true;
    for (const auto &[shape, share] : shares.done)
        isGood &= say(std::string("done, ") + shapeNames[size_t(shape)], share,
                      shape == Shape::Whole ? std::optional(97.0) : std::nullopt);
    for (const auto &[cause, count] : shares.declined)
        std::printf("  declined %d: %s, %s\n", count, shapeNames[size_t(cause.first)],
                    obstacleNames[size_t(cause.second)]);
    isGood &= say("no other note changed", shares.notes, 100);
    isGood &= say("no other text changed", shares.text, 100);
    isGood &= say("undone to the byte", shares.undone, 100);
    return isGood;
}

bool Driver::print() const
{
    const bool isGood = ::print("Insert Measure", inserted_);
    return ::print("Delete Measures", removed_) && isGood;
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    int edits = 6'000;
    bool isVerbose = false;
    for (int i = 1; i < argc; ++i) {
        if (QLatin1String(argv[i]) == QLatin1String("-v"))
            isVerbose = true;
        else
            edits = std::max(1, QByteArray(argv[i]).toInt());
    }
    Driver driver(isVerbose);
    QRandomGenerator random(2026);
    const auto tunes = realTunes();
    for (const auto &tune : tunes)
        driver.run(random, tune, std::max(1, edits / int(tunes.size())));
    return driver.print() ? 0 : 1;
}
