// What edits of single notes leave of a text: random ones in the tunes of ../shared/corpus/abc, or where it is missing
// in the examples, and in tunes made up of ties, tuplets, broken rhythms and staccato. Each edit begins with the text
// as its composer wrote it. Ends with 1 when a share is below its gate.
//   bench_note_edits [EDITS] [-v]     EDITS in all, -v prints what an edit lost
//
// Edits of a few notes at once must leave all that is no note as it was.
//
// Minimal: nothing differs but notes, rests and rhythm in the measures that the note sounds in, before and after.
// A tie is a place where one note is written in two. Those of the elements that the edit touches are kept when the
// notes behind it are still joined there: all of other notes, and of the edited one those up to its new end. Where the
// note was moved its own ties are gone with its places; there, where it was tied, it must be tied over the bar lines
// that it crosses. No tie can be asked for where another note of the same pitch begins behind its beginning and before
// its end or there.
#include "core/AbcParser.h"
#include "core/AbcTokenizer.h"
#include "edit/AbcReading.h"
#include "edit/NoteLookup.h"
#include "edit/plan/NoteEditPlan.h"
#include "support/Figures.h"
#include "support/Share.h"
#include "support/Tunes.h"
#include "ui/document/EditorDocument.h"

#include <QApplication>
#include <QRandomGenerator>
#include <QStringList>

#include <algorithm>
#include <array>
#include <cstdio>
#include <map>
#include <set>

namespace {

using Random = QRandomGenerator;

template<size_t size>
QString anyOf(Random &random, const std::array<const char *, size> &choices)
{
    return QLatin1String(choices[random.bounded(quint32(size))]);
}

QString anyNote(Random &random)
{
    return anyOf<5>(random, {"", "", "", "^", "_"}) + QLatin1Char("CDEFGABcdefgab"[random.bounded(14)]);
}

// Measures of four quarters, of groups of two.
QString madeUpTune(Random &random)
{
    auto tune =
        QStringLiteral("X: 1\nT: Made up\nM: 4/4\nL: 1/4\nK: %1\n").arg(anyOf<4>(random, {"C", "G", "Bb", "Am"}));
    for (int half = 0; half < 16; ++half) {
        const auto note = [&] { return anyNote(random); };
        const auto tied = QString(QLatin1Char("CDEFGAB"[random.bounded(7)]));
        switch (random.bounded(9)) {
        case 0:
            tune += QStringLiteral("(3%1%2%3 ").arg(note(), note(), note());
            break;
        case 1:
            tune += QStringLiteral("%1%2%3 ").arg(note(), anyOf<2>(random, {">", "<"}), note());
            break;
        case 2:
            tune += half % 2 == 0 ? QStringLiteral("%1-%1/%2/ ").arg(tied, note())
                                  : QStringLiteral("%1/.%2 %3/ ").arg(note(), note(), note());
            break;
        case 3:
            tune += QStringLiteral("%1 %2-%3").arg(note(), tied, half % 2 == 1 ? QStringLiteral("|\n") : QString()) +
                    tied + QStringLiteral(" %1 ").arg(note());
            ++half;
            if (half % 2 == 1)
                break;
            continue;
        case 4:
            tune += QStringLiteral(".%1 .%2 ").arg(note(), note());
            break;
        case 5:
            tune += QStringLiteral("[%1-%2]%1 ").arg(tied, anyOf<4>(random, {"d", "f", "_a", "^g"}));
            break;
        case 6:
            tune += QStringLiteral("[%1/%2/]2-[%1/%2/]2 ").arg(tied, anyOf<4>(random, {"d", "f", "_a", "^g"}));
            break;
        case 7:
            tune += QStringLiteral("\"Am\"%1 z ").arg(note());
            break;
        default:
            tune += QStringLiteral("%1/%2/!f!%3 ").arg(note(), note(), note());
        }
        if (half % 2 == 1)
            tune += half % 8 == 7 ? QStringLiteral("|\n") : QStringLiteral("| ");
    }
    return tune;
}

enum class Kind { Insert, Remove, Transpose, Move, Resize };

struct Case
{
    Kind kind = Kind::Insert;
    NoteEdit edit;
    std::optional<NoteSpec> before;
    std::optional<NoteSpec> after;
    int event = -1;
};

QVector<int> notesOf(const Track &track)
{
    QVector<int> notes;
    for (int i = 0; i < track.events().size(); ++i) {
        if (track.events()[i].isNote())
            notes.append(i);
    }
    return notes;
}

Case anyCase(Random &random, const AbcReading &reading)
{
    const auto notes = notesOf(reading.track);
    Case made;
    made.event = notes[random.bounded(int(notes.size()))];
    const auto step = std::max<Ticks>(1, reading.unitLength / (1 << random.bounded(2)));
    auto spec = specOf(reading.track.events()[made.event]);
    made.before = spec;
    made.kind = Kind(random.bounded(5));
    switch (made.kind) {
    case Kind::Insert:
        spec.start = random.bounded(int((reading.track.length() + ticksPerWholeNote) / step)) * step;
        spec.length = (1 + random.bounded(4)) * step;
        spec.pitch = quint32(int(spec.pitch) + random.bounded(-7, 8));
        made.before.reset();
        made.event = -1;
        made.edit.inserted = {spec};
        break;
    case Kind::Remove:
        made.edit.removed = {made.event};
        return made;
    case Kind::Transpose:
        spec.pitch = quint32(int(spec.pitch) + random.bounded(-12, 13));
        break;
    case Kind::Move:
        spec.start = std::max<Ticks>(0, spec.start + random.bounded(-8, 9) * step);
        spec.pitch = quint32(int(spec.pitch) + random.bounded(-2, 3));
        break;
    case Kind::Resize:
        spec.length = std::max(std::min(step, spec.length), spec.length + random.bounded(-4, 5) * step);
        break;
    }
    if (made.before)
        made.edit.changed.append({made.event, spec});
    made.after = spec;
    return made;
}

// Of a few notes that follow each other.
NoteEdit anyBatch(Random &random, const AbcReading &reading)
{
    const auto notes = notesOf(reading.track);
    const auto first = int(random.bounded(int(notes.size())));
    const auto some = notes.mid(first, 2 + random.bounded(11));
    const auto kind = random.bounded(4);
    const auto semitones = random.bounded(-12, 13);
    const auto step = std::max<Ticks>(1, reading.unitLength / (1 << random.bounded(2)));
    const auto shift = std::max(random.bounded(-8, 9) * step, -reading.track.events()[some.first()].start());
    NoteEdit edit;
    for (const auto note : some) {
        auto spec = specOf(reading.track.events()[note]);
        if (kind == 0)
            spec.pitch = quint32(int(spec.pitch) + semitones);
        else if (kind == 1)
            spec.start += shift;
        else if (kind == 2)
            spec.length *= 2;
        if (kind == 3)
            edit.removed.append(note);
        else
            edit.changed.append({note, spec});
    }
    return edit;
}

// Whether the note would come to lie on another.
bool collides(const Track &track, const Case &made)
{
    if (!made.after)
        return false;
    const auto notes = notesOf(track);
    return std::any_of(notes.begin(), notes.end(), [&](int note) {
        const auto &event = track.events()[note];
        return note != made.event && event.start() == made.after->start && event.pitch() == made.after->pitch;
    });
}

// A text as what is not notes, and what stands between its bar lines and fields.
struct Anatomy
{
    QStringList fixed;
    QVector<int> cuts; // where each part begins
    QStringList parts;
    std::map<AbcTokenType, int> counts;
    int staccatos = 0;
};

bool cuts(AbcTokenType type)
{
    return type == AbcTokenType::BarLine;
}

bool isMusic(AbcTokenType type)
{
    return type == AbcTokenType::Note || type == AbcTokenType::Rest || type == AbcTokenType::WhiteSpace ||
           type == AbcTokenType::Tuplet || type == AbcTokenType::ChordStart || type == AbcTokenType::ChordEnd ||
           type == AbcTokenType::BrokenRhythm;
}

Anatomy anatomyOf(const QString &text)
{
    Anatomy found;
    const auto lines = lineOffsets(text);
    AbcTokenizer tokens(text);
    AbcToken token;
    bool inGrace = false;
    int begin = 0;
    const auto endPart = [&](int offset) {
        found.cuts.append(begin);
        found.parts += text.mid(begin, offset - begin).simplified();
        begin = offset;
    };
    while (tokens.next(token)) {
        inGrace = token.type == AbcTokenType::GraceStart || (inGrace && token.type != AbcTokenType::GraceEnd);
        ++found.counts[token.type];
        found.staccatos += token.type == AbcTokenType::Note && token.has(AbcPart::Staccato) ? 1 : 0;
        if (inGrace || !isMusic(token.type))
            found.fixed += token.text.toString();
        if (cuts(token.type))
            endPart(lines[token.line] + token.column);
    }
    endPart(int(text.size()));
    return found;
}

int partAt(const Anatomy &anatomy, int offset, bool isGap)
{
    const auto behind = isGap ? std::lower_bound(anatomy.cuts.begin(), anatomy.cuts.end(), offset)
                              : std::upper_bound(anatomy.cuts.begin(), anatomy.cuts.end(), offset);
    return std::max(0, int(behind - anatomy.cuts.begin()) - 1);
}

bool overlaps(const AbcUnit &unit, const std::optional<NoteSpec> &note)
{
    return note && unit.start < note->start + note->length && note->start < unit.end;
}

// A note of the same pitch that sounds at the same time: a tie between its parts would take the new note in.
bool sharesPitch(const TrackEvent &event, const std::optional<NoteSpec> &note)
{
    return note && event.isNote() && event.pitch() == note->pitch && event.start() <= note->start + note->length &&
           note->start <= event.end();
}

// A place where a note is written in two.
struct Join
{
    int event = -1;
    Ticks from = 0; // where what it joins begins
    Ticks at = 0;
    int firstUnit = 0;
    int lastUnit = 0;
};

std::vector<Ticks> startsOfTokens(const AbcLayout &layout)
{
    std::vector<Ticks> starts(size_t(layout.tokens.size()), 0);
    for (const auto &element : layout.elements)
        std::fill(starts.begin() + element.firstToken, starts.begin() + element.endToken, element.start);
    return starts;
}

std::vector<Join> joinsOf(const AbcReading &reading)
{
    const auto &tokens = reading.layout.tokens;
    const auto starts = startsOfTokens(reading.layout);
    std::vector<int> lastOfEvent(size_t(reading.track.events().size()), -1);
    std::vector<Join> joins;
    for (int i = 0; i < tokens.size(); ++i) {
        if (tokens[i].event < 0)
            continue;
        auto &last = lastOfEvent[size_t(tokens[i].event)];
        if (last >= 0)
            joins.push_back(
                {tokens[i].event, starts[size_t(last)], starts[size_t(i)], tokens[last].unit, tokens[i].unit});
        last = i;
    }
    return joins;
}

// Whether the reader would join the two; see PendingTies.
bool isPossible(const Join &join, quint32 pitch, const Track &track)
{
    const auto &events = track.events();
    return std::none_of(events.begin(), events.end(), [&](const TrackEvent &event) {
        return event.isNote() && event.pitch() == pitch && event.start() > join.from && event.start() <= join.at;
    });
}

bool endsBehind(const AbcReading &reading, const std::optional<NoteSpec> &note)
{
    return note && note->start + note->length > reading.layout.units.last().start;
}

// What is no note is as it was; what is written behind the end of the music has bar lines of its own.
bool keepsFixed(const Anatomy &before, const Anatomy &after, bool growsBehind)
{
    if (!growsBehind)
        return before.fixed == after.fixed;
    const auto own = before.fixed.size();
    return after.fixed.mid(0, own) == before.fixed &&
           std::all_of(after.fixed.begin() + own, after.fixed.end(),
                       [](const QString &added) { return added == QLatin1String("|"); });
}

// Nothing differs but the notes of the measures in which the note sounds, before and after.
bool isMinimal(const Anatomy &before, const Anatomy &after, const AbcReading &reading, const Case &made)
{
    if (!keepsFixed(before, after, endsBehind(reading, made.after)))
        return false;
    std::set<int> mayDiffer;
    for (const auto &unit : reading.layout.units) {
        if (overlaps(unit, made.before) || overlaps(unit, made.after))
            mayDiffer.insert(partAt(before, unit.range.offset, unit.isGap));
    }
    for (const auto &token : reading.layout.tokens) {
        const bool isOwn = made.event >= 0 && token.event == made.event;
        if (isOwn || (token.event >= 0 && sharesPitch(reading.track.events()[token.event], made.after)))
            mayDiffer.insert(partAt(before, token.range.offset, false));
    }
    for (int part = 0; part < before.parts.size(); ++part) {
        if (before.parts[part] != after.parts[part] && mayDiffer.count(part) == 0)
            return false;
    }
    return true;
}

struct Shares
{
    Share minimal, inPlace, batchInPlace, batchRight, right, undone, tuplets, broken, ties, staccato;
};

// The units that the edit reaches into.
QVector<int> unitsOf(const AbcReading &reading, const Case &made)
{
    QVector<int> units;
    for (const auto &token : reading.layout.tokens) {
        if (made.event >= 0 && token.event == made.event)
            units.append(token.unit);
    }
    for (int i = 0; i < reading.layout.units.size(); ++i) {
        const auto &unit = reading.layout.units[i];
        if (made.after && !unit.isGap && unit.start <= made.after->start && made.after->start < unit.end)
            units.append(i);
    }
    return units;
}

// Where a tied note that was moved crosses bar lines now.
std::vector<Join> ownJoinsBehindMove(const AbcReading &reading, const Case &made)
{
    const auto joins = joinsOf(reading);
    const bool wasTied =
        std::any_of(joins.begin(), joins.end(), [&](const Join &join) { return join.event == made.event; });
    if (!wasTied || !made.after || made.after->start == made.before->start)
        return {};
    std::vector<Join> found;
    auto from = made.after->start;
    for (const auto &mark : reading.layout.marks) {
        if (mark.kind != AbcAccidentalMark::Kind::BarLine || mark.time <= from ||
            mark.time >= made.after->start + made.after->length)
            continue;
        found.push_back({made.event, from, mark.time, 0, 0});
        from = mark.time;
    }
    return found;
}

QVector<Ticks> boundariesOf(const AbcReading &reading, const AbcUnit &unit)
{
    QVector<Ticks> boundaries;
    for (const auto &element : reading.layout.elements) {
        if (element.range.offset >= unit.range.offset && element.range.end() <= unit.range.end())
            boundaries.append(element.start);
    }
    return boundaries;
}

// Whether the notes in a group of elements still begin and end where its elements do; what they sound beyond their
// successor's start, or beyond the group, can be written.
bool fits(const Track &track, const AbcUnit &unit, const QVector<Ticks> &boundaries)
{
    std::map<Ticks, Ticks> ends; // of the shortest that begins there
    for (const auto note : notesOf(track)) {
        const auto spec = specOf(track.events()[note]);
        if (spec.start >= unit.start && spec.start < unit.end) {
            const auto end = ends.try_emplace(spec.start, spec.start + spec.length).first;
            end->second = std::min(end->second, spec.start + spec.length);
        }
    }
    for (auto group = ends.begin(); group != ends.end(); ++group) {
        const auto next = std::next(group) == ends.end() ? unit.end : std::next(group)->first;
        if (!boundaries.contains(group->first) || (group->second < next && !boundaries.contains(group->second)))
            return false;
    }
    return !ends.empty();
}

class Driver
{
public:
    explicit Driver(bool isVerbose) : isVerbose_(isVerbose) {}
    void run(Random &random, const QString &text, int edits, Shares &shares) const;

private:
    void judge(const QString &text, const AbcReading &reading, const Case &made, Shares &shares) const;
    void judgeGroups(const QString &text, const AbcReading &reading, const Case &made, const QString &result,
                     const Track &wanted, Shares &shares) const;
    void judgeBatch(const QString &text, const AbcReading &reading, const NoteEdit &edit, Shares &shares) const;
    void judgeTies(const QString &text, const AbcReading &reading, const Case &made, const QString &result,
                   const Track &wanted, Shares &shares) const;
    void judgeUndo(const QString &text, const Case &made, Shares &shares) const;
    bool said(const char *what, bool isGood, const QString &text, const QString &result, const Case &made) const;

    bool isVerbose_;
};

bool Driver::said(const char *what, bool isGood, const QString &text, const QString &result, const Case &made) const
{
    if (isVerbose_ && !isGood) {
        const auto change = difference(text, result);
        const auto spec = [](const std::optional<NoteSpec> &note) {
            return note ? QStringLiteral("%1+%2:%3").arg(note->start).arg(note->length).arg(note->pitch)
                        : QStringLiteral("-");
        };
        const auto around = std::max(0, change.range.offset - 40);
        std::printf("%s, kind %d, %s -> %s\n  was  %s\n  is   %s\n", what, int(made.kind),
                    qPrintable(spec(made.before)), qPrintable(spec(made.after)),
                    qPrintable(text.mid(around, change.range.length + 80)),
                    qPrintable(result.mid(around, std::min(400, int(change.text.size()) + 80))));
    }
    return isGood;
}

void Driver::judge(const QString &text, const AbcReading &reading, const Case &made, Shares &shares) const
{
    const auto plan = NoteEditPlan::plan(text, reading, made.edit);
    if (!plan)
        return;
    const auto result = applyChanges(text, plan->changes);
    const auto wanted = NoteEditPlan::editedTrack(reading.track, NoteEditPlan::cleaned(reading.track, made.edit));
    const bool isRight = NoteEditPlan::haveSameEvents(readAbc(result).track, wanted);
    shares.right.add(said("other notes", isRight, text, result, made));
    const auto before = anatomyOf(text);
    const auto after = anatomyOf(result);
    shares.minimal.add(said("not minimal", isMinimal(before, after, reading, made), text, result, made));
    shares.inPlace.add(said("all written anew", !plan->rewritesAll, text, result, made));
    judgeGroups(text, reading, made, result, wanted, shares);
    judgeTies(text, reading, made, result, wanted, shares);
}

// That nothing but notes differs, and those as they should.
void Driver::judgeBatch(const QString &text, const AbcReading &reading, const NoteEdit &edit, Shares &shares) const
{
    const auto plan = NoteEditPlan::plan(text, reading, edit);
    if (!plan)
        return;
    const auto result = applyChanges(text, plan->changes);
    const auto wanted = NoteEditPlan::editedTrack(reading.track, NoteEditPlan::cleaned(reading.track, edit));
    const bool isRight = NoteEditPlan::haveSameEvents(readAbc(result).track, wanted);
    shares.batchRight.add(said("batch: other notes", isRight, text, result, {}));
    const bool isInPlace = keepsFixed(anatomyOf(text), anatomyOf(result), true);
    shares.batchInPlace.add(said("batch: not in place", isInPlace, text, result, {}));
}

void Driver::judgeTies(const QString &text, const AbcReading &reading, const Case &made, const QString &result,
                       const Track &wanted, Shares &shares) const
{
    const auto units = unitsOf(reading, made);
    std::vector<std::pair<NoteSpec, Ticks>> expected; // the note behind the edit, and where it is joined
    for (const auto &join : joinsOf(reading)) {
        if (!units.contains(join.firstUnit) && !units.contains(join.lastUnit))
            continue;
        const bool isOwn = join.event == made.event;
        if (isOwn && !made.after)
            continue;
        const auto spec = isOwn ? *made.after : specOf(reading.track.events()[join.event]);
        const bool isInReach = !isOwn || (spec.start == made.before->start && join.at < spec.start + spec.length);
        if (isInReach && isPossible(join, spec.pitch, wanted))
            expected.emplace_back(spec, join.at);
    }
    for (const auto &join : ownJoinsBehindMove(reading, made)) {
        if (isPossible(join, made.after->pitch, wanted))
            expected.emplace_back(*made.after, join.at);
    }
    if (expected.empty())
        return;
    const auto after = readAbc(result);
    std::set<std::pair<NoteSpec, Ticks>> found;
    for (const auto &join : joinsOf(after))
        found.emplace(specOf(after.track.events()[join.event]), join.at);
    const bool areKept =
        std::all_of(expected.begin(), expected.end(), [&](const auto &join) { return found.count(join) != 0; });
    shares.ties.add(said("tie lost", areKept, text, result, made));
}

void Driver::judgeUndo(const QString &text, const Case &made, Shares &shares) const
{
    EditorDocument document;
    document.setDraft(text);
    if (!document.edit(made.edit, QStringLiteral("Edit")))
        return;
    document.undo();
    const auto undone = document.text()->toPlainText();
    shares.undone.add(said("not undone", undone == text, text, undone, made));
}

void Driver::judgeGroups(const QString &text, const AbcReading &reading, const Case &made, const QString &result,
                         const Track &wanted, Shares &shares) const
{
    const auto before = anatomyOf(text);
    const auto after = anatomyOf(result);
    const auto count = [](const Anatomy &anatomy, AbcTokenType type) {
        const auto found = anatomy.counts.find(type);
        return found == anatomy.counts.end() ? 0 : found->second;
    };
    bool hasTuplet = false;
    bool hasBroken = false;
    bool doFit = true;
    bool hasDot = false;
    for (const auto number : unitsOf(reading, made)) {
        const auto &unit = reading.layout.units[number];
        const auto own = anatomyOf(text.mid(unit.range.offset, unit.range.length));
        hasTuplet |= count(own, AbcTokenType::Tuplet) > 0;
        hasBroken |= count(own, AbcTokenType::BrokenRhythm) > 0;
        if (count(own, AbcTokenType::Tuplet) + count(own, AbcTokenType::BrokenRhythm) > 0)
            doFit &= fits(wanted, unit, boundariesOf(reading, unit));
        hasDot |= own.staccatos > 0;
    }
    bool isOwnDot = false;
    for (const auto &token : reading.layout.tokens) {
        if (made.event >= 0 && token.event == made.event)
            isOwnDot |= token.isStaccato;
    }
    const bool staysDotted = !isOwnDot || made.kind == Kind::Transpose;
    if (hasTuplet && doFit)
        shares.tuplets.add(said("tuplet lost",
                                count(after, AbcTokenType::Tuplet) >= count(before, AbcTokenType::Tuplet), text, result,
                                made));
    if (hasBroken && doFit)
        shares.broken.add(said("broken rhythm lost",
                               count(after, AbcTokenType::BrokenRhythm) >= count(before, AbcTokenType::BrokenRhythm),
                               text, result, made));
    if (hasDot && staysDotted)
        shares.staccato.add(said("staccato lost", after.staccatos >= before.staccatos, text, result, made));
}

void Driver::run(Random &random, const QString &text, int edits, Shares &shares) const
{
    const auto reading = readAbc(text);
    if (notesOf(reading.track).isEmpty() || reading.unitLength <= 0)
        return;
    for (int i = 0; i < edits; ++i) {
        const auto made = anyCase(random, reading);
        const bool isPossible = !made.after || isPlayable(made.after->pitch);
        if (!isPossible || collides(reading.track, made))
            continue;
        judge(text, reading, made, shares);
        if (i % 4 == 0)
            judgeBatch(text, reading, anyBatch(random, reading), shares);
        if (i == 0)
            judgeUndo(text, made, shares);
    }
}

bool print(const char *tunes, const Shares &shares)
{
    const auto say = [tunes](const char *what, const Share &share, double gate) {
        std::printf("%s: %-28s %9.4f %% of %d\n", tunes, what, share.percent(), share.all);
        return report({std::string(tunes) + ": " + what + ", %", share.percent(), gate, {}, Better::More});
    };
    bool isGood = say("no other note changed", shares.right, 100);
    isGood &= say("minimal", shares.minimal, 99.99);
    isGood &= say("not written anew as a whole", shares.inPlace, 99.99);
    isGood &= say("batches: no other note changed", shares.batchRight, 100);
    isGood &= say("batches: in place", shares.batchInPlace, 99.9);
    isGood &= say("undone to the byte", shares.undone, 100);
    isGood &= say("tuplets kept", shares.tuplets, 99);
    isGood &= say("broken rhythms kept", shares.broken, 99);
    isGood &= say("ties kept", shares.ties, 99);
    isGood &= say("staccato kept", shares.staccato, 99);
    return isGood;
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    int edits = 40'000;
    bool isVerbose = false;
    for (int i = 1; i < argc; ++i) {
        if (QLatin1String(argv[i]) == QLatin1String("-v"))
            isVerbose = true;
        else
            edits = std::max(1, QByteArray(argv[i]).toInt());
    }
    const Driver driver(isVerbose);
    Random random(2026);
    const auto tunes = realTunes();
    Shares real;
    for (const auto &tune : tunes)
        driver.run(random, tune, std::max(1, edits / int(tunes.size())), real);
    bool isGood = print("Real tunes", real);
    Shares madeUp;
    for (int i = 0; i < edits / 20; ++i)
        driver.run(random, madeUpTune(random), 5, madeUp);
    isGood &= print("Made-up tunes", madeUp);
    return isGood ? 0 : 1;
}
