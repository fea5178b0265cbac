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

// Whether the rest of a note can stand there in a chord, without cutting what is written.
bool NotePieces::takes(int unit, const NotePiece &rest) const
{
    const auto &own = layout_.units[unit];
    if (own.isGap || own.isRest())
        return !own.isCompound;
    return own.start == rest.start && rest.length >= layout_.elements[own.firstElement].advance;
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

std::bitset<128> NotePieces::newPitches() const
{
    std::bitset<128> pitches;
    for (const auto &added : ofUnit_) {
        for (const auto &piece : added)
            pitches.set(piece.pitch % 128);
    }
    for (size_t token = 0; token < ofToken_.size(); ++token) {
        if (!isGone_[token] && !ofToken_[token].keepsSpelling)
            pitches.set(ofToken_[token].pitch % 128);
    }
    return pitches;
}

std::vector<NoteBegin> NotePieces::beginsOf(const std::bitset<128> &pitches) const
{
    std::vector<NoteBegin> begins;
    for (const auto &added : ofUnit_) {
        for (const auto &piece : added) {
            if (!piece.isContinuation)
                begins.push_back({piece.pitch, piece.start});
        }
    }
    for (int token = 0; token < layout_.tokens.size(); ++token) {
        const auto &piece = ofToken_[size_t(token)];
        const auto event = layout_.tokens[token].event;
        if (event >= 0 && !isGone_[size_t(token)] && pitches[piece.pitch % 128])
            begins.push_back({piece.pitch, piece.start, event});
    }
    std::sort(begins.begin(), begins.end(), [](const NoteBegin &a, const NoteBegin &b) {
        return std::tie(a.pitch, a.start) < std::tie(b.pitch, b.start);
    });
    return begins;
}

// A tie joins the next note of its pitch that begins at its end, and none when another began before. What is new in its
// way parts what was tied.
void NotePieces::settleTies()
{
    const auto pitches = newPitches();
    const auto hasTie = std::any_of(ofToken_.begin(), ofToken_.end(),
                                    [&](const NotePiece &piece) { return piece.isTied && pitches[piece.pitch % 128]; });
    if (!hasTie)
        return;
    const auto begins = beginsOf(pitches);
    std::vector<int> nextOfEvent(isNew_.size(), -1);
    for (int token = int(layout_.tokens.size()) - 1; token >= 0; --token) {
        const auto event = layout_.tokens[token].event;
        if (event < 0 || isGone_[size_t(token)])
            continue;
        if (const auto &piece = ofToken_[size_t(token)]; piece.isTied && pitches[piece.pitch % 128])
            settleTie(token, nextOfEvent[size_t(event)], begins);
        nextOfEvent[size_t(event)] = token;
    }
}

void NotePieces::settleTie(int token, int continuation, const std::vector<NoteBegin> &begins)
{
    auto &piece = ofToken_[size_t(token)];
    const auto event = layout_.tokens[token].event;
    auto begin = std::partition_point(begins.begin(), begins.end(), [&](const NoteBegin &other) {
        return std::tie(other.pitch, other.start) <= std::tie(piece.pitch, piece.start);
    });
    for (; begin != begins.end() && begin->pitch == piece.pitch && begin->start <= piece.end(); ++begin) {
        const bool isNew = begin->event < 0 || isNew_[size_t(begin->event)] || isNew_[size_t(event)];
        if (begin->event == event || !isNew)
            continue;
        if (continuation >= 0) {
            joinTied(event);
            return;
        }
        if (begin->start == piece.end()) {
            piece.isTied = false;
            piece.isAltered = true;
            setDirty(layout_.tokens[token].unit);
            return;
        }
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
