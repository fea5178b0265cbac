#include "arrange/Arrangement.h"

#include "arrange/ArrangeFigures.h"
#include "arrange/OneTempo.h"
#include "arrange/Voices.h"
#include "base/Interrupted.h"

#include <algorithm>
#include <numeric>

namespace {

class Arranger
{
public:
    Arranger(const QVector<SourcePart> &parts, const ArrangeOptions &options, const std::stop_token &stop);

    Arrangement make();

private:
    void unifyTempos();
    void seatParts();
    void takeParts();
    ArrangedPart emptyPart(const Seat &seat) const;
    QString nameOf(const Seat &seat) const;
    void addNote(const ArrangeNote &note);
    void measureAll();

    QVector<SourcePart> parts_;
    ArrangeOptions options_;
    const std::stop_token &stop_;
    ArrangeNotes notes_;
    std::vector<Seat> seats_;
    Arrangement result_;
};

Arranger::Arranger(const QVector<SourcePart> &parts, const ArrangeOptions &options, const std::stop_token &stop)
    : parts_(parts), options_(options), stop_(stop)
{
    options_.players = std::clamp(options.players, 1, ArrangeOptions::mostPlayers);
    options_.voices = std::clamp(options.voices, 1, ArrangeOptions::mostVoices);
    result_.before.resize(parts.size());
}

void Arranger::unifyTempos()
{
    const auto isShorter = [](const SourcePart &a, const SourcePart &b) { return a.track.length() < b.track.length(); };
    const auto longest = std::max_element(parts_.cbegin(), parts_.cend(), isShorter);
    if (longest == parts_.cend())
        return;
    const auto leader = longest->track;
    for (auto &part : parts_) {
        if (stop_.stop_requested())
            throw Interrupted();
        part.track = inTempoOf(part.track, leader);
    }
}

void Arranger::seatParts()
{
    notes_ = collectNotes(parts_, result_.before);
    const auto lines = findLines(parts_, notes_, options_);
    result_.melody = lines.melody;
    result_.bass = lines.bass;
    giveRoles(notes_, parts_, lines);
    seats_ = seatsFor(parts_, notes_, lines, options_, stop_);
    std::stable_sort(seats_.begin(), seats_.end(),
                     [](const Seat &a, const Seat &b) { return a.parts.first() < b.parts.first(); });
    giveVoices(notes_, int(parts_.size()), seats_, lines, options_, stop_);
}

QString Arranger::nameOf(const Seat &seat) const
{
    constexpr int mostNames = 3;
    QStringList names;
    for (const int part : seat.parts)
        names.append(parts_[part].name);
    const auto others = names.size() - mostNames;
    auto name = QStringList(names.mid(0, mostNames)).join(QStringLiteral(" + "));
    if (others > 0)
        name += QStringLiteral(" + %1").arg(others);
    return seat.sharers > 1 ? QStringLiteral("%1 (%2)").arg(name).arg(seat.number + 1) : name;
}

ArrangedPart Arranger::emptyPart(const Seat &seat) const
{
    ArrangedPart part{parts_[seat.parts.first()].track, nameOf(seat), seat.parts, {}};
    auto &events = part.track.editEvents();
    const auto isNote = [](const TrackEvent &event) { return event.isNote(); };
    events.erase(std::remove_if(events.begin(), events.end(), isNote), events.end());
    part.track.setHeaderField(QStringLiteral("T"), part.name);
    return part;
}

void Arranger::addNote(const ArrangeNote &note)
{
    auto &before = result_.before[note.part];
    if (note.seat < 0) {
        ++before.dropped[size_t(note.reason)];
        return;
    }
    auto &part = result_.parts[note.seat];
    part.track.appendEvent(TrackEvent::note(note.played, note.start, note.end - note.start, note.velocity));
    PartFigures one;
    one.notes = 1;
    one.folded = note.played != note.pitch ? 1 : 0;
    one.shortened = note.end - note.start != note.length ? 1 : 0;
    one.lent = seats_[size_t(note.seat)].isHomeOf(note.part) ? 0 : 1;
    part.figures.add(one);
    one.notes = 0; // they are counted already
    before.add(one);
}

void Arranger::takeParts()
{
    for (const auto &seat : seats_)
        result_.parts.append(emptyPart(seat));
    std::sort(notes_.begin(), notes_.end(), [](const ArrangeNote &a, const ArrangeNote &b) {
        return std::make_pair(a.start, a.played) < std::make_pair(b.start, b.played);
    });
    for (const auto &note : notes_)
        addNote(note);
    measureAll();
    const auto isEmpty = [](const ArrangedPart &part) { return part.figures.notes == 0; };
    result_.parts.erase(std::remove_if(result_.parts.begin(), result_.parts.end(), isEmpty), result_.parts.end());
    int number = 0;
    for (auto &part : result_.parts)
        part.track.setHeaderField(QStringLiteral("X"), QString::number(++number));
}

void Arranger::measureAll()
{
    std::vector<MeasuredPart> before;
    for (int i = 0; i < parts_.size(); ++i)
        before.push_back({parts_[i].track, parts_[i].isPercussion, result_.before[i]});
    measure(before);
    std::vector<MeasuredPart> after;
    for (int i = 0; i < result_.parts.size(); ++i) {
        auto &part = result_.parts[i];
        part.track.normalize();
        after.push_back({part.track, seats_[size_t(i)].isPercussion, part.figures});
    }
    measure(after);
}

Arrangement Arranger::make()
{
    unifyTempos();
    seatParts();
    takeParts();
    return std::move(result_);
}

template<typename Parts, typename FiguresOf>
PartFigures sumOf(const Parts &parts, FiguresOf figuresOf)
{
    PartFigures sum;
    for (const auto &part : parts)
        sum.add(figuresOf(part));
    return sum;
}

} // namespace

int PartFigures::droppedInAll() const
{
    return std::accumulate(dropped.begin(), dropped.end(), 0);
}

void PartFigures::add(const PartFigures &other)
{
    notes += other.notes;
    for (size_t i = 0; i < dropped.size(); ++i)
        dropped[i] += other.dropped[i];
    folded += other.folded;
    shortened += other.shortened;
    lent += other.lent;
    if (span && other.span)
        span = {std::min(span->lowest, other.span->lowest), std::max(span->highest, other.span->highest)};
    else if (other.span)
        span = other.span;
    mostAtOnce = std::max(mostAtOnce, other.mostAtOnce);
    crossings += other.crossings;
}

PartFigures Arrangement::sumBefore() const
{
    return sumOf(before, [](const PartFigures &figures) { return figures; });
}

PartFigures Arrangement::sumAfter() const
{
    return sumOf(parts, [](const ArrangedPart &part) { return part.figures; });
}

Arrangement arrange(const QVector<SourcePart> &parts, const ArrangeOptions &options, const std::stop_token &stop)
{
    return Arranger(parts, options, stop).make();
}
