#include "edit/plan/NotePieces.h"

#include "edit/NoteLookup.h"
#include "edit/plan/RhythmFit.h"

#include <algorithm>

namespace {

// New pieces go among those that are written already where their pitch belongs.
void insertInChord(std::vector<NotePiece> &pieces, const NotePiece &piece)
{
    const auto chord = std::partition_point(pieces.begin(), pieces.end(),
                                            [&](const NotePiece &other) { return other.start < piece.start; });
    const auto place = std::find_if(chord, pieces.end(), [&](const NotePiece &other) {
        return other.start > piece.start || other.pitch > piece.pitch;
    });
    pieces.insert(place, piece);
}

// The parts, by unit, of each tuplet that bar lines or fields cut.
std::vector<std::vector<int>> cutTuplets(const AbcLayout &layout)
{
    std::vector<std::vector<int>> tuplets;
    for (int unit = 0; unit < layout.units.size(); ++unit) {
        if (!layout.units[unit].isCut)
            continue;
        if (tuplets.empty() || !layout.units[unit].continuesTuplet)
            tuplets.emplace_back();
        tuplets.back().push_back(unit);
    }
    return tuplets;
}

} // namespace

NotePieces::NotePieces(const AbcReading &reading, const NoteEdit &edit, EditReach reach)
    : reading_(reading), layout_(reading.layout), reach_(reach), addsNotes_(!edit.inserted.isEmpty()),
      isNew_(size_t(reading.track.events().size()), false), isGone_(size_t(layout_.tokens.size()), false),
      tokensOf_(size_t(reading.track.events().size())), isDirty_(size_t(layout_.units.size()), false),
      isLoose_(isDirty_), ofUnit_(size_t(layout_.units.size()))
{
    isInOrder_ = std::is_sorted(layout_.units.begin(), layout_.units.end(),
                                [](const AbcUnit &a, const AbcUnit &b) { return a.start < b.start; });
    readTokens();
    findTokens(edit);
    for (const auto note : edit.removed) {
        isNew_[size_t(note)] = true;
        remove(tokensOf_[size_t(note)]);
    }
    for (const auto &each : edit.changed)
        isNew_[size_t(each.note)] = specOf(reading.track.events()[each.note]).start != each.to.start ||
                                    reading.track.events()[each.note].pitch() != each.to.pitch;
    for (const auto &each : edit.changed)
        change(each);
    for (const auto &note : edit.inserted)
        addNew({note.start, note.length, note.pitch});
    if (!isPossible_)
        return;
    settleTies();
    if (reach_ == EditReach::Measures)
        dirtyMeasures();
    assign();
    loosenTuplets();
}

void NotePieces::readTokens()
{
    ofToken_.resize(size_t(layout_.tokens.size()));
    for (const auto &element : layout_.elements) {
        for (auto i = element.firstToken; i < element.endToken; ++i) {
            const auto &token = layout_.tokens[i];
            auto &piece = ofToken_[size_t(i)];
            piece.start = element.start;
            piece.length = lengthOf(token, element);
            piece.pitch = token.event < 0 ? 0 : reading_.track.events()[token.event].pitch();
            piece.token = i;
            piece.keepsSpelling = true;
            piece.isStaccato = token.isStaccato;
            piece.isTied = token.isTied;
        }
    }
    lengthenTied();
}

// The length of a chord holds for all of a note that ends in it, also for what was written before.
void NotePieces::lengthenTied()
{
    std::vector<int> lastOf(isNew_.size(), -1);
    for (int token = 0; token < layout_.tokens.size(); ++token) {
        if (const auto event = layout_.tokens[token].event; event >= 0)
            lastOf[size_t(event)] = token;
    }
    for (size_t event = 0; event < lastOf.size(); ++event) {
        if (lastOf[event] < 0)
            continue;
        auto &piece = ofToken_[size_t(lastOf[event])];
        const auto &note = reading_.track.events()[int(event)];
        if (!piece.isStaccato && note.start() < piece.start)
            piece.length = std::max(piece.length, note.end() - piece.start);
    }
}

Ticks NotePieces::lengthOf(const AbcNoteToken &token, const AbcTextElement &element) const
{
    const auto &shortest = element.written;
    if (token.written.numerator * shortest.denominator == shortest.numerator * token.written.denominator)
        return element.advance;
    if (shortest.numerator == 0)
        return token.event < 0 ? 0 : reading_.track.events()[token.event].length();
    return scaled(token.written.of(element.advance), shortest.denominator, shortest.numerator);
}

void NotePieces::respellUpTo(int offset)
{
    for (int i = 0; i < layout_.tokens.size() && layout_.tokens[i].range.offset < offset; ++i) {
        if (layout_.tokens[i].event >= 0)
            ofToken_[size_t(i)].keepsSpelling = false;
    }
}

void NotePieces::findTokens(const NoteEdit &edit)
{
    std::vector<bool> isNamed(tokensOf_.size(), false);
    for (const auto note : edit.removed)
        isNamed[size_t(note)] = true;
    for (const auto &each : edit.changed)
        isNamed[size_t(each.note)] = true;
    for (int i = 0; i < layout_.tokens.size(); ++i) {
        const auto event = layout_.tokens[i].event;
        if (event >= 0 && isNamed[size_t(event)])
            tokensOf_[size_t(event)].push_back(i);
    }
}

void NotePieces::change(const NoteEdit::Change &change)
{
    const auto &old = reading_.track.events()[change.note];
    const auto &tokens = tokensOf_[size_t(change.note)];
    if (old.pitch() != change.to.pitch)
        repitch(tokens, change.to.pitch);
    if (old.start() != change.to.start)
        move(tokens, change.to);
    else if (old.length() != change.to.length)
        resize(tokens, change.to);
}

void NotePieces::repitch(const std::vector<int> &tokens, quint32 pitch)
{
    for (const auto token : tokens) {
        ofToken_[size_t(token)].pitch = pitch;
        ofToken_[size_t(token)].keepsSpelling = false;
    }
}

// The ties up to the new end stay.
void NotePieces::resize(const std::vector<int> &tokens, const NoteSpec &to)
{
    const auto end = to.start + to.length;
    auto last = tokens.begin();
    while (last + 1 != tokens.end() && ofToken_[size_t(*(last + 1))].start < end)
        ++last;
    remove({last + 1, tokens.end()});
    auto &piece = ofToken_[size_t(*last)];
    piece.length = end - piece.start;
    piece.isAltered = true;
    piece.isStaccato = piece.isTied = false;
    const auto unit = layout_.tokens[*last].unit;
    setDirty(unit);
    if (const auto rest = cutOff(piece, unit))
        addNew(*rest);
}

void NotePieces::remove(const std::vector<int> &tokens)
{
    for (const auto token : tokens) {
        isGone_[size_t(token)] = true;
        setDirty(layout_.tokens[token].unit);
    }
}

// A staccato note stays one.
void NotePieces::move(const std::vector<int> &tokens, const NoteSpec &to)
{
    remove(tokens);
    NotePiece piece{to.start, to.length, to.pitch};
    const auto &old = ofToken_[size_t(tokens.front())];
    piece.isStaccato = tokens.size() == 1 && old.isStaccato && old.length / 2 == to.length;
    if (piece.isStaccato)
        piece.length = old.length;
    addNew(piece);
}

void NotePieces::addNew(NotePiece piece)
{
    for (std::optional<NotePiece> next = piece; next;) {
        piece = *next;
        piece.isAltered = true;
        const auto unit = unitAt(piece.start);
        if (unit < 0) {
            isPossible_ = false;
            return;
        }
        setDirty(unit);
        next = cutOff(piece, unit);
        insertInChord(ofUnit_[size_t(unit)], piece);
    }
}

// Where bar lines take time back, the last unit that holds the tick; -1 when there is none.
int NotePieces::unitAt(Ticks tick) const
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

// Where a part is not written with its elements, no part can be.
void NotePieces::loosenTuplets()
{
    for (const auto &tuplet : cutTuplets(layout_)) {
        const bool fits = std::all_of(tuplet.begin(), tuplet.end(), [this](int unit) {
            return !isDirty(unit) || (keepsForms() && fitsElements(layout_, layout_.units[unit], of(unit)));
        });
        const bool isSilent =
            std::all_of(tuplet.begin(), tuplet.end(), [this](int unit) { return isDirty(unit) && of(unit).empty(); });
        for (size_t part = 0; (isSilent || !fits) && part < tuplet.size(); ++part)
            loosen(tuplet[part]);
    }
}

void NotePieces::loosen(int unit)
{
    isLoose_[size_t(unit)] = true;
    if (isDirty(unit))
        return;
    setDirty(unit);
    assignTokens(unit);
}

void NotePieces::dirtyMeasures()
{
    const auto &marks = layout_.marks;
    auto mark = marks.begin();
    int first = 0; // of the measure
    bool isReached = false;
    const auto endMeasure = [&](int end) {
        std::fill(isDirty_.begin() + first, isDirty_.begin() + end, isReached);
        first = end;
        isReached = false;
    };
    for (int unit = 0; unit < layout_.units.size(); ++unit) {
        for (; mark != marks.end() && mark->offset < layout_.units[unit].range.offset; ++mark) {
            if (mark->kind == AbcAccidentalMark::Kind::BarLine)
                endMeasure(unit);
        }
        isReached = isReached || isDirty(unit);
    }
    endMeasure(int(layout_.units.size()));
}

void NotePieces::assign()
{
    for (int unit = 0; unit < layout_.units.size(); ++unit) {
        if (isDirty(unit))
            assignTokens(unit);
    }
    for (int unit = 0; unit < layout_.units.size(); ++unit) {
        if (isDirty(unit))
            dirtyBefore(unit);
    }
}

void NotePieces::assignTokens(int unit)
{
    auto added = std::move(ofUnit_[size_t(unit)]);
    auto &pieces = ofUnit_[size_t(unit)];
    pieces.clear();
    for (auto token = layout_.units[unit].firstToken; token < layout_.units[unit].endToken; ++token) {
        if (!isGone_[size_t(token)])
            pieces.push_back(ofToken_[size_t(token)]);
    }
    for (const auto &piece : added)
        insertInChord(pieces, piece);
}

bool NotePieces::sounds(int unit) const
{
    const auto &pieces = of(unit);
    return !pieces.empty() && pieces.front().start == layout_.units[unit].start;
}

bool NotePieces::soundsBeyond(int unit) const
{
    const auto &own = layout_.units[unit];
    return std::any_of(ofToken_.begin() + own.firstToken, ofToken_.begin() + own.endToken,
                       [&](const NotePiece &piece) { return piece.end() > own.end; });
}

// Silence joins the rests before it, and lets a note before it sound without a rest in its bracket.
void NotePieces::dirtyBefore(int unit)
{
    while (unit > 0 && layout_.units[unit].joinsPrevious && !sounds(unit)) {
        const auto &before = layout_.units[--unit];
        const bool isPlain = !before.isGap && !before.isCompound && layout_.measuresRest(before) == nullptr;
        if (isDirty(unit) || !isPlain || !(before.isRest() || soundsBeyond(unit)))
            return;
        setDirty(unit);
        assignTokens(unit);
    }
}
