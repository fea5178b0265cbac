#include "edit/NoteEditPlan.h"
#include "edit/NoteSpelling.h"

#include <algorithm>
#include <map>
#include <vector>

namespace {

// Consecutive units that are written anew together.
struct Run
{
    int first = 0;
    int last = 0;
};

class Planner
{
public:
    Planner(const QString &text, const AbcReading &reading, const NoteEdit &edit)
        : text_(text), layout_(reading.layout), events_(reading.track.events()), edit_(edit),
          unitLength_(reading.unitLength), pitches_(events_.size(), 0), isGone_(events_.size(), false),
          isRewritten_(events_.size(), false), isDirty_(layout_.units.size(), false)
    {
    }

    std::optional<QVector<TextChange>> plan();

private:
    void sortEdit();
    int unitAt(Ticks tick) const;
    bool markDirtyUnits();
    bool spreadOverTies();
    void assignNotes();
    std::vector<Run> findRuns() const;
    bool absorbs(const Run &run, int next) const;
    void writeAll(const std::vector<Run> &runs);
    void passToken(const AbcNoteToken &token);
    void writeRun(const Run &run);
    QString runText(const Run &run, const QVector<NoteSpec> &notes);
    Ticks lineStart(const Run &run) const;
    QVector<NoteSpec> notesOf(const Run &run) const;

    const QString &text_;
    const AbcLayout &layout_;
    const QVector<TrackEvent> &events_;
    const NoteEdit &edit_;
    const Ticks unitLength_;

    std::vector<quint32> pitches_; // that the events shall have; of notes only
    std::vector<bool> isGone_;     // from where it is written
    std::vector<bool> isRewritten_;
    std::vector<NoteSpec> loose_; // to be written somewhere
    std::vector<bool> isDirty_;
    bool isInOrder_ = true;
    std::map<int, QVector<NoteSpec>> notesOfUnit_;
    NoteSpelling spelling_;
    QVector<TextChange> changes_;
};

// A new pitch is written into the note's own characters; anything else moves time.
void Planner::sortEdit()
{
    for (int i = 0; i < events_.size(); ++i)
        pitches_[size_t(i)] = events_[i].pitch();
    for (const auto &change : edit_.changed) {
        const auto event = size_t(change.note);
        const auto &old = events_[change.note];
        if (old.start() == change.to.start && old.length() == change.to.length) {
            pitches_[event] = change.to.pitch;
        } else {
            isGone_[event] = true;
            loose_.push_back(change.to);
        }
    }
    for (const auto note : edit_.removed)
        isGone_[size_t(note)] = true;
    loose_.insert(loose_.end(), edit_.inserted.begin(), edit_.inserted.end());
}

// Where bar lines take time back, the last unit that holds the tick; -1 when there is none.
int Planner::unitAt(Ticks tick) const
{
    const auto &units = layout_.units;
    if (isInOrder_) {
        const auto behind = std::upper_bound(units.begin(), units.end(), tick,
                                             [](Ticks at, const AbcUnit &unit) { return at < unit.start; });
        for (auto i = int(behind - units.begin()) - 1; i >= 0 && units[i].end >= tick; --i) {
            if (units[i].end > tick)
                return i;
        }
        return -1;
    }
    for (int i = int(units.size()) - 1; i >= 0; --i) {
        if (units[i].start <= tick && tick < units[i].end)
            return i;
    }
    return -1;
}

bool Planner::markDirtyUnits()
{
    const auto &units = layout_.units;
    isInOrder_ = std::is_sorted(units.begin(), units.end(),
                                [](const AbcUnit &a, const AbcUnit &b) { return a.start < b.start; });
    for (const auto &token : layout_.tokens) {
        if (token.event >= 0 && isGone_[size_t(token.event)])
            isDirty_[size_t(token.unit)] = true;
    }
    for (const auto &note : loose_) {
        const auto unit = unitAt(note.start);
        if (unit < 0)
            return false;
        isDirty_[size_t(unit)] = true;
        notesOfUnit_[unit].append(note);
    }
    return spreadOverTies();
}

// What is written anew is written without ties, so a unit drags along all that its notes are tied to.
bool Planner::spreadOverTies()
{
    for (int pass = 0; pass < 50; ++pass) {
        bool changed = false;
        for (const auto &token : layout_.tokens) {
            if (token.event < 0)
                continue;
            const auto event = size_t(token.event);
            const auto unit = size_t(token.unit);
            if (isDirty_[unit] == isRewritten_[event])
                continue;
            isDirty_[unit] = isRewritten_[event] = changed = true;
        }
        if (!changed)
            return true;
    }
    return false;
}

void Planner::assignNotes()
{
    std::vector<bool> isAssigned(isRewritten_.size(), false);
    for (const auto &token : layout_.tokens) {
        if (token.event < 0)
            continue;
        const auto event = size_t(token.event);
        if (!isRewritten_[event] || isGone_[event] || isAssigned[event])
            continue;
        isAssigned[event] = true;
        const auto &old = events_[token.event];
        notesOfUnit_[token.unit].append({old.start(), old.length(), pitches_[event]});
    }
}

QVector<NoteSpec> Planner::notesOf(const Run &run) const
{
    QVector<NoteSpec> notes;
    for (auto unit = notesOfUnit_.lower_bound(run.first); unit != notesOfUnit_.end() && unit->first <= run.last; ++unit)
        notes += unit->second;
    std::sort(notes.begin(), notes.end());
    return notes;
}

// A rest behind the run joins it when the run's last note needs its time, and so does one behind a note that went.
bool Planner::absorbs(const Run &run, int next) const
{
    const auto &unit = layout_.units[next];
    if (!unit.joinsPrevious || !(unit.isRest() || unit.isGap))
        return false;
    const auto end = layout_.units[run.last].end;
    const auto notes = notesOf(run);
    Ticks covered = layout_.units[run.first].start;
    for (const auto &note : notes)
        covered = std::max(covered, note.start + note.length);
    const bool endedInNotes = !layout_.units[run.last].isRest() && !layout_.units[run.last].isGap;
    return covered > end || (covered < end && (unit.isGap || endedInNotes));
}

std::vector<Run> Planner::findRuns() const
{
    std::vector<Run> runs;
    for (int i = 0; i < layout_.units.size(); ++i) {
        if (!isDirty_[size_t(i)])
            continue;
        Run run{i, i};
        for (auto next = i + 1; next < layout_.units.size(); ++next) {
            const bool joins = isDirty_[size_t(next)] && layout_.units[next].joinsPrevious;
            if (!joins && !absorbs(run, next))
                break;
            run.last = next;
        }
        runs.push_back(run);
        i = run.last;
    }
    return runs;
}

Ticks Planner::lineStart(const Run &run) const
{
    const auto offset = layout_.units[run.first].range.offset;
    const auto line = offset == 0 ? 0 : text_.lastIndexOf(u'\n', offset - 1) + 1;
    const auto element = layout_.elementAt(int(line) - 1) + 1;
    return element < layout_.elements.size() ? layout_.elements[element].start : layout_.units[run.first].start;
}

// The notes as groups with rests between; a group that sounds beyond the start of the next is cut by a rest in its
// bracket. Behind the end of the music a line ends after each whole note, and no rest is left over.
QString Planner::runText(const Run &run, const QVector<NoteSpec> &notes)
{
    const auto &last = layout_.units[run.last];
    auto cursor = layout_.units[run.first].start;
    auto lineBegin = lineStart(run);
    QString text;
    const auto separate = [&] {
        if (last.end == maxTicks && cursor - lineBegin >= ticksPerWholeNote) {
            text += u'\n';
            lineBegin = cursor;
        } else if (!text.isEmpty()) {
            text += u' ';
        }
    };
    const auto rest = [&](Ticks until) {
        if (cursor >= until)
            return;
        separate();
        text += u'z' + lengthText(until - cursor, unitLength_);
        cursor = until;
    };
    for (int i = 0; i < notes.size();) {
        const auto start = notes[i].start;
        rest(start);
        separate();
        auto end = i;
        while (end < notes.size() && notes[end].start == start)
            ++end;
        const auto next = end < notes.size() ? notes[end].start : last.isGap ? maxTicks : last.end;
        const auto advance = std::min(notes[i].length, next - start);
        const bool isCut = advance < notes[i].length;
        QString group = isCut ? u'z' + lengthText(advance, unitLength_) : QString();
        const bool isChord = isCut || end - i > 1;
        for (; i < end; ++i)
            group += spelling_.write(notes[i].pitch) + lengthText(notes[i].length, unitLength_);
        text += isChord ? u'[' + group + u']' : group;
        cursor = start + advance;
    }
    if (!last.isGap)
        rest(last.end);
    return text;
}

void Planner::writeRun(const Run &run)
{
    TextRange range = layout_.units[run.first].range;
    range.length = layout_.units[run.last].range.end() - range.offset;
    auto text = runText(run, notesOf(run));
    const auto isBlankAt = [this](int offset) {
        return offset < 0 || offset >= text_.size() || text_[offset].isSpace();
    };
    if (text.isEmpty()) {
        while (range.offset > layout_.bodyOffset && text_[range.offset - 1] == u' ')
            --range.offset, ++range.length;
    } else if (range.isEmpty()) {
        if (run.last == layout_.units.size() - 1 && layout_.tailNeedsLine)
            text.prepend(u'\n');
        else if (!isBlankAt(range.offset - 1) && !text.startsWith(u'\n'))
            text.prepend(u' ');
    }
    if (!text.isEmpty() && layout_.units[run.last].isGap && !isBlankAt(range.end()))
        text.append(u' ');
    changes_.append({range, text});
}

// A note that stays: its own characters change when its pitch does, or when the accidentals before it did.
void Planner::passToken(const AbcNoteToken &token)
{
    const bool isMoved = token.event >= 0 && pitches_[size_t(token.event)] != events_[token.event].pitch();
    if (isMoved) {
        changes_.append({token.spelling, spelling_.write(pitches_[size_t(token.event)])});
    } else if (token.isExplicit) {
        spelling_.set(token.step, token.accidental);
    } else if (spelling_.inForce(token.step) != token.accidental) {
        changes_.append({{token.spelling.offset, 0}, NoteSpelling::accidentalText(token.accidental)});
        spelling_.set(token.step, token.accidental);
    }
}

void Planner::writeAll(const std::vector<Run> &runs)
{
    auto mark = layout_.marks.begin();
    spelling_.begin(mark->keyRow);
    ++mark;
    // A gap before a bar line stands at the same offset, and still in the measure.
    const auto passMarks = [&](int offset) {
        for (; mark != layout_.marks.end() && mark->offset < offset; ++mark) {
            if (mark->kind == AbcAccidentalMark::Kind::BarLine)
                spelling_.begin(mark->keyRow);
            else
                spelling_.setKey(mark->keyRow);
        }
    };
    auto run = runs.begin();
    const auto passRuns = [&](int unit) {
        for (; run != runs.end() && run->first <= unit; ++run) {
            passMarks(layout_.units[run->first].range.offset);
            writeRun(*run);
        }
    };
    for (const auto &token : layout_.tokens) {
        passRuns(token.unit);
        if (isDirty_[size_t(token.unit)])
            continue;
        passMarks(token.spelling.offset);
        passToken(token);
    }
    passRuns(int(layout_.units.size()));
}

std::optional<QVector<TextChange>> Planner::plan()
{
    sortEdit();
    if (!markDirtyUnits())
        return {};
    assignNotes();
    writeAll(findRuns());
    return std::move(changes_);
}

} // namespace

std::optional<QVector<TextChange>> NoteEditPlan::textChanges(const QString &text, const AbcReading &reading,
                                                             const NoteEdit &edit)
{
    return Planner(text, reading, edit).plan();
}
