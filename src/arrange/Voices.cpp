#include "arrange/Voices.h"

#include "arrange/Assignment.h"
#include "base/Interrupted.h"

#include <algorithm>

namespace {

constexpr int farthest = 24; // semitones that count

struct Voice
{
    int seat = 0;
    int last = 0;   // pitch
    int middle = 0; // of what it is meant for
    ArrangeNote *note = nullptr;

    bool sounds(Ticks at) const { return note && note->end > at; }
};

// The pitch below which so many of each thousand notes of the parts lie.
class Register
{
public:
    Register(const ArrangeNotes &notes, const Seat &seat)
    {
        for (const auto &note : notes) {
            if (seat.isHomeOf(note.part))
                ++counts_[foldedInto(seat.range, note.pitch).value_or(note.pitch)];
        }
    }

    int pitchAt(int perMille) const
    {
        qint64 sum = 0;
        for (const auto count : counts_)
            sum += count;
        qint64 below = 0;
        size_t pitch = 0;
        while (pitch + 1 < counts_.size() && (below += counts_[pitch]) * 1000 <= sum * perMille)
            ++pitch;
        return int(pitch);
    }

private:
    std::array<qint64, 128> counts_{};
};

class VoiceLeader
{
public:
    VoiceLeader(ArrangeNotes &notes, int parts, const std::vector<Seat> &seats, const Lines &lines,
                const ArrangeOptions &options);

    void run(const std::stop_token &stop);

private:
    using Iterator = ArrangeNotes::iterator;

    void addVoices(int seat, const ArrangeNotes &notes, int count);
    void addVisitCosts(int part);
    int seatOfLine(std::optional<int> part, bool isBottom) const;
    void place(Iterator begin, Iterator end);
    void fillCosts(Iterator begin, Iterator end);
    qint64 cost(const ArrangeNote &note, const Voice &voice) const;
    qint64 seatCost(const ArrangeNote &note, int seat) const;
    qint64 cutCost(const ArrangeNote &note, const ArrangeNote &sounding) const;
    bool soundsElsewhere(quint32 pitch, Ticks at, const Voice &voice) const;
    std::optional<quint32> playedBy(const ArrangeNote &note, const Seat &seat) const;
    bool isHome(const ArrangeNote &note, int seat) const;
    bool beginsTwice(const ArrangeNote &note, const Voice &voice, quint32 played) const;
    void sound(ArrangeNote &note, Voice &voice);
    void drop(ArrangeNote &note) const;

    ArrangeNotes &notes_;
    const std::vector<Seat> &seats_;
    std::vector<Voice> voices_;   // seat by seat
    std::vector<int> visitCosts_; // of notes that are not at home, by part and seat
    int voicesOfSeat_;
    int melodySeat_;
    int bassSeat_;
    Assignment assignment_;
    std::vector<qint64> costs_;
    std::vector<qint64> dropCosts_;
};

VoiceLeader::VoiceLeader(ArrangeNotes &notes, int parts, const std::vector<Seat> &seats, const Lines &lines,
                         const ArrangeOptions &options)
    : notes_(notes), seats_(seats), voicesOfSeat_(options.voices), melodySeat_(seatOfLine(lines.melody, false)),
      bassSeat_(seatOfLine(lines.bass, true))
{
    for (int seat = 0; seat < int(seats.size()); ++seat)
        addVoices(seat, notes, options.voices);
    for (int part = 0; part < parts; ++part)
        addVisitCosts(part);
}

// From the top to the bottom of what the sharers of the parts have to play.
void VoiceLeader::addVoices(int number, const ArrangeNotes &notes, int count)
{
    const auto &seat = seats_[size_t(number)];
    const Register pitches(notes, seat);
    const int all = count * seat.sharers;
    for (int i = 0; i < count; ++i) {
        const int fromTop = seat.number * count + i;
        const int pitch = pitches.pitchAt(1000 - (2 * fromTop + 1) * 500 / all);
        voices_.push_back({number, pitch, pitch});
    }
}

void VoiceLeader::addVisitCosts(int part)
{
    for (const auto &seat : seats_) {
        const bool isSame = std::any_of(seats_.begin(), seats_.end(), [&](const Seat &home) {
            return home.isHomeOf(part) && home.instrument == seat.instrument;
        });
        visitCosts_.push_back(isSame ? ArrangeCost::sameInstrument : ArrangeCost::otherPlayer);
    }
}

int VoiceLeader::seatOfLine(std::optional<int> part, bool isBottom) const
{
    int found = -1;
    for (int seat = 0; part && seat < int(seats_.size()); ++seat) {
        if (seats_[size_t(seat)].isHomeOf(*part) && (found < 0 || isBottom))
            found = seat;
    }
    return found;
}

void VoiceLeader::run(const std::stop_token &stop)
{
    forEachStart(notes_.begin(), notes_.end(), [&](auto begin, auto end) {
        if (stop.stop_requested())
            throw Interrupted();
        // No more can be played; the weightiest come first.
        const auto last = begin + std::min(end - begin, std::ptrdiff_t(voices_.size()));
        place(begin, last);
        std::for_each(last, end, [this](ArrangeNote &note) { drop(note); });
    });
}

void VoiceLeader::place(Iterator begin, Iterator end)
{
    fillCosts(begin, end);
    const auto &columns = assignment_.solve(costs_, dropCosts_, int(voices_.size()));
    for (auto note = begin; note != end; ++note) {
        const int column = columns[size_t(note - begin)];
        const bool isPlayed =
            column >= 0 && costs_[size_t(note - begin) * voices_.size() + size_t(column)] < Assignment::never / 4;
        if (isPlayed)
            sound(*note, voices_[size_t(column)]);
        else
            drop(*note);
    }
}

void VoiceLeader::fillCosts(Iterator begin, Iterator end)
{
    costs_.clear();
    dropCosts_.clear();
    for (auto note = begin; note != end; ++note) {
        for (const auto &voice : voices_)
            costs_.push_back(cost(*note, voice));
        dropCosts_.push_back(note->weight);
    }
}

qint64 VoiceLeader::cost(const ArrangeNote &note, const Voice &voice) const
{
    constexpr auto forbidden = Assignment::never / 4;
    const auto &seat = seats_[size_t(voice.seat)];
    const auto played = playedBy(note, seat);
    if (!played || soundsElsewhere(*played, note.start, voice))
        return forbidden;
    auto sum = seatCost(note, voice.seat);
    if (voice.sounds(note.start)) {
        const auto cut = cutCost(note, *voice.note);
        if (cut >= forbidden)
            return forbidden;
        sum += cut;
    }
    if (seat.isPercussion)
        return sum;
    sum += ArrangeCost::octave * (std::abs(int(*played) - int(note.pitch)) / 12);
    return sum + 2 * std::min(std::abs(int(*played) - voice.last), farthest) +
           std::min(std::abs(int(*played) - voice.middle), farthest);
}

bool VoiceLeader::isHome(const ArrangeNote &note, int seat) const
{
    if (note.role == NoteRole::Melody)
        return seat == melodySeat_;
    return note.role == NoteRole::Bass ? seat == bassSeat_ : seats_[size_t(seat)].isHomeOf(note.part);
}

qint64 VoiceLeader::seatCost(const ArrangeNote &note, int seat) const
{
    if (isHome(note, seat))
        return 0;
    if (note.role == NoteRole::Melody)
        return ArrangeCost::otherForMelody;
    return note.role == NoteRole::Bass ? ArrangeCost::otherForBass
                                       : visitCosts_[size_t(note.part) * seats_.size() + size_t(seat)];
}

qint64 VoiceLeader::cutCost(const ArrangeNote &note, const ArrangeNote &sounding) const
{
    const auto share = double(sounding.end - note.start) / double(sounding.length); // of both exact numbers
    if (sounding.isLine() && sounding.role == note.role)
        return qint64(ArrangeCost::lineCut * share);
    if (sounding.isLine() && note.role < sounding.role)
        return Assignment::never;
    return qint64(2 * sounding.weight * share);
}

// The game cannot tell a pitch from itself.
bool VoiceLeader::soundsElsewhere(quint32 pitch, Ticks at, const Voice &voice) const
{
    const auto first = voices_.begin() + voice.seat * voicesOfSeat_;
    return std::any_of(first, first + voicesOfSeat_, [&](const Voice &other) {
        return &other != &voice && other.sounds(at) && other.note->played == pitch;
    });
}

std::optional<quint32> VoiceLeader::playedBy(const ArrangeNote &note, const Seat &seat) const
{
    if (seat.isPercussion != (note.role == NoteRole::Drum))
        return std::nullopt;
    if (!seat.isPercussion)
        return foldedInto(seat.range, note.pitch);
    return seat.range.contains(note.pitch) ? std::optional(note.pitch) : std::nullopt;
}

// Whether another note of this start has that pitch at the same player already.
bool VoiceLeader::beginsTwice(const ArrangeNote &note, const Voice &voice, quint32 played) const
{
    const auto first = voices_.begin() + voice.seat * voicesOfSeat_;
    return std::any_of(first, first + voicesOfSeat_, [&](const Voice &other) {
        return other.note && other.note->start == note.start && other.note->played == played;
    });
}

void VoiceLeader::sound(ArrangeNote &note, Voice &voice)
{
    const auto played = *playedBy(note, seats_[size_t(voice.seat)]);
    if (beginsTwice(note, voice, played)) {
        note.reason = DropReason::Doubled;
        return;
    }
    if (voice.sounds(note.start))
        voice.note->end = note.start;
    note.played = played;
    note.seat = voice.seat;
    voice.note = &note;
    voice.last = int(played);
}

void VoiceLeader::drop(ArrangeNote &note) const
{
    const auto isPlayable = [&](const Seat &seat) { return playedBy(note, seat).has_value(); };
    const auto isDrummer = [](const Seat &seat) { return seat.isPercussion; };
    if (note.role == NoteRole::Drum && std::none_of(seats_.begin(), seats_.end(), isDrummer))
        note.reason = DropReason::NoDrummer;
    else if (std::none_of(seats_.begin(), seats_.end(), isPlayable))
        note.reason = DropReason::OutOfRange;
    else
        note.reason = note.role == NoteRole::Doubled ? DropReason::Doubled : DropReason::NoVoice;
}

} // namespace

void giveVoices(ArrangeNotes &notes, int parts, const std::vector<Seat> &seats, const Lines &lines,
                const ArrangeOptions &options, const std::stop_token &stop)
{
    VoiceLeader(notes, parts, seats, lines, options).run(stop);
}
