#include "edit/plan/NotePieces.h"

#include <algorithm>
#include <tuple>

namespace {

// Of a rest that are written out for one note.
constexpr quint64 mostMeasures = 1000;

} // namespace

// Ties the piece to the rest of it that belongs to another place.
std::optional<NotePiece> NotePieces::cutOff(NotePiece &piece, int unit) const
{
    const auto end = endOfPlace(piece, unit);
    if (piece.isStaccato || end <= piece.start || end >= piece.end())
        return {};
    NotePiece rest{end, piece.end() - end, piece.pitch};
    rest.isContinuation = true;
    const auto place = unitAt(end);
    const bool isInRest = place == unit && layout_.measuresRest(layout_.units[unit]) != nullptr;
    if ((place <= unit && !isInRest) || !takes(place, rest) || meetsItsPitch(piece, end))
        return {};
    piece.length = end - piece.start;
    piece.isTied = true;
    return rest;
}

// Whether the rest of a note can stand there, without taking a rhythm apart.
bool NotePieces::takes(int unit, const NotePiece &rest) const
{
    const auto &own = layout_.units[unit];
    if (!own.isCompound)
        return own.start == rest.start || isSilent(unit);
    return own.start == rest.start && !isSilent(unit) && rest.length >= layout_.elements[own.firstElement].advance;
}

bool NotePieces::isSilent(int unit) const
{
    const auto &own = layout_.units[unit];
    return std::all_of(isGone_.begin() + own.firstToken, isGone_.begin() + own.endToken,
                       [](bool isGone) { return isGone; });
}

// A note of its pitch that begins before its end would end a tie.
bool NotePieces::meetsItsPitch(const NotePiece &piece, Ticks until) const
{
    const auto &events = reading_.track.events();
    for (auto i = reading_.track.firstEventAtOrAfter(piece.start + 1); i < events.size(); ++i) {
        if (events[i].start() > until)
            return false;
        if (events[i].isNote() && events[i].pitch() == piece.pitch && !isNew_[size_t(i)])
            return true;
    }
    return false;
}

// Where what is written of the piece ends at the latest; behind its end where nothing is in its way.
Ticks NotePieces::endOfPlace(const NotePiece &piece, int unit) const
{
    const auto barLine = nextBarLine(piece, unit);
    const auto &own = layout_.units[unit];
    if (reach_ != EditReach::Notes || !own.isCompound || unit + 1 == layout_.units.size())
        return barLine;
    const auto &next = layout_.units[unit + 1];
    const bool isFree = next.start == own.end && !next.isCompound && (next.isGap || next.isRest());
    return isFree ? std::min(barLine, own.end) : barLine;
}

Ticks NotePieces::nextBarLine(const NotePiece &piece, int unit) const
{
    const auto &own = layout_.units[unit];
    if (reach_ != EditReach::Notes)
        return piece.end();
    if (const auto *measures = layout_.measuresRest(own)) {
        const auto length = measures->written.numerator <= mostMeasures ? measures->measureOfRest() : 0;
        if (length > 0 && piece.start + length < own.end)
            return own.start + ((piece.start - own.start) / length + 1) * length;
    }
    // The first mark is the beginning of the body.
    const auto mark = std::find_if(
        std::lower_bound(layout_.marks.begin() + 1, layout_.marks.end(), own.range.offset,
                         [](const AbcAccidentalMark &at, int offset) { return at.offset < offset; }),
        layout_.marks.end(), [](const AbcAccidentalMark &at) { return at.kind == AbcAccidentalMark::Kind::BarLine; });
    return mark == layout_.marks.end() ? piece.end() : mark->time;
}

// Of all that begins or goes.
std::bitset<128> NotePieces::changedPitches() const
{
    std::bitset<128> pitches;
    for (const auto &added : ofUnit_) {
        for (const auto &piece : added)
            pitches.set(piece.pitch % 128);
    }
    for (size_t event = 0; event < tokensOf_.size(); ++event) {
        if (tokensOf_[event].empty())
            continue;
        pitches.set(reading_.track.events()[int(event)].pitch() % 128);
        pitches.set(ofToken_[size_t(tokensOf_[event].front())].pitch % 128);
    }
    return pitches;
}

std::vector<NoteBegin> NotePieces::beginsOf(const std::bitset<128> &pitches) const
{
    std::vector<NoteBegin> begins;
    for (int token = 0; token < layout_.tokens.size(); ++token) {
        const auto &piece = ofToken_[size_t(token)];
        if (layout_.tokens[token].event >= 0 && !isGone_[size_t(token)] && pitches[piece.pitch % 128])
            begins.push_back({piece.pitch, layout_.tokens[token].unit, piece.start, token});
    }
    for (size_t unit = 0; unit < ofUnit_.size(); ++unit) {
        for (const auto &piece : ofUnit_[unit])
            begins.push_back({piece.pitch, int(unit), piece.start});
    }
    std::stable_sort(begins.begin(), begins.end(), [](const NoteBegin &a, const NoteBegin &b) {
        return std::tie(a.pitch, a.unit, a.start) < std::tie(b.pitch, b.unit, b.start);
    });
    return begins;
}

// A tie joins the next note of its pitch in the text when that begins at its end, and else none. What is new in its way
// parts what was tied, and what goes lets it join what it did not.
void NotePieces::settleTies()
{
    const auto pitches = changedPitches();
    const auto hasTie = std::any_of(ofToken_.begin(), ofToken_.end(),
                                    [&](const NotePiece &piece) { return piece.isTied && pitches[piece.pitch % 128]; });
    if (!hasTie)
        return;
    const auto begins = beginsOf(pitches);
    std::vector<int> nextOfEvent(isNew_.size(), -1);
    const NoteBegin *next = nullptr;
    for (auto begin = begins.rbegin(); begin != begins.rend(); next = &*begin++) {
        if (begin->token < 0)
            continue;
        auto &nextOfOwn = nextOfEvent[size_t(layout_.tokens[begin->token].event)];
        if (ofToken_[size_t(begin->token)].isTied)
            settleTie(begin->token, nextOfOwn, next != nullptr && next->pitch == begin->pitch ? next : nullptr);
        nextOfOwn = begin->token;
    }
}

void NotePieces::settleTie(int token, int continuation, const NoteBegin *next)
{
    auto &piece = ofToken_[size_t(token)];
    const auto end = piece.isStaccato ? piece.start + piece.length / 2 : piece.end();
    if (continuation >= 0) {
        if (next == nullptr || next->token != continuation)
            joinTied(layout_.tokens[token].event);
    } else if (!piece.isAltered && next != nullptr && next->start == end) { // the edit's own tie leads to what is new
        piece.isTied = false;
        piece.isAltered = true;
        setDirty(layout_.tokens[token].unit);
    }
}

// As one note, whose length says what ties said.
void NotePieces::joinTied(int event)
{
    NotePiece *first = nullptr;
    for (int token = 0; token < layout_.tokens.size(); ++token) {
        if (layout_.tokens[token].event != event || isGone_[size_t(token)])
            continue;
        auto &piece = ofToken_[size_t(token)];
        setDirty(layout_.tokens[token].unit);
        if (first == nullptr) {
            first = &piece;
            continue;
        }
        first->length = piece.end() - first->start;
        isGone_[size_t(token)] = true;
    }
    if (first == nullptr)
        return;
    first->isTied = false;
    first->isAltered = true;
}
