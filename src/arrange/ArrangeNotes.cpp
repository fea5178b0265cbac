#include "arrange/ArrangeNotes.h"

#include <QRegularExpression>

#include <algorithm>
#include <tuple>

namespace {

constexpr quint32 pitches = 128;

bool comesBefore(const ArrangeNote &a, const ArrangeNote &b)
{
    const auto rank = [](const ArrangeNote &note) {
        return std::make_tuple(note.start, -note.weight, -qint64(note.pitch), note.part, -note.length);
    };
    return rank(a) < rank(b);
}

// What tells a melody from other parts, in whole numbers.
struct PartShape
{
    qint64 notes = 0;
    qint64 pitchSum = 0;
    qint64 alone = 0; // notes that begin while no other of the part sounds
    Ticks sounding = 0;
    Ticks end = 0;

    qint64 meanPitch() const { return pitchSum / std::max(qint64(1), notes); }
    qint64 alonePercent() const { return alone * 100 / std::max(qint64(1), notes); }

    void add(const ArrangeNote &note)
    {
        ++notes;
        pitchSum += note.pitch;
        alone += note.start >= end - note.length / 4 ? 1 : 0; // legato is no chord
        sounding += std::max(Ticks(0), note.start + note.length - std::max(note.start, end));
        end = std::max(end, note.start + note.length);
    }
};

std::vector<PartShape> shapesOf(int parts, const ArrangeNotes &notes)
{
    std::vector<PartShape> shapes(static_cast<size_t>(parts));
    for (const auto &note : notes)
        shapes[size_t(note.part)].add(note);
    return shapes;
}

qint64 percentOf(Ticks part, Ticks whole)
{
    return whole > 0 ? qint64(double(part) * 100 / double(whole)) : 0;
}

// A MIDI program is the choice of a sound, and says little about what is played with it.
const QRegularExpression &soundOfLead()
{
    static const QRegularExpression names(QStringLiteral("\\bLead \\d \\([^)]*\\)|\\bVoice Oohs\\b|\\bSynth Voice\\b"));
    return names;
}

bool isNamed(const SourcePart &part, const QString &words)
{
    const QRegularExpression pattern(QStringLiteral("\\b(?:%1)\\b").arg(words),
                                     QRegularExpression::CaseInsensitiveOption);
    return pattern.match(QString(part.name).remove(soundOfLead())).hasMatch();
}

// The part of the highest score; the first of equals.
template<typename Score>
std::optional<int> bestPart(const QVector<SourcePart> &parts, const std::vector<PartShape> &shapes, Score score)
{
    std::optional<int> best;
    qint64 highest = 0;
    for (int i = 0; i < parts.size(); ++i) {
        if (parts[i].isPercussion || shapes[size_t(i)].notes == 0)
            continue;
        if (const qint64 value = score(i); !best || value > highest) {
            best = i;
            highest = value;
        }
    }
    return best;
}

// Which notes are the highest of a part when they begin, or the lowest.
class LineFinder
{
public:
    enum class Edge { Top, Bottom };
    LineFinder(int part, Edge edge, NoteRole role) : part_(part), edge_(edge), role_(role) { ends_.fill(-1); }

    template<typename Iterator>
    void visit(Iterator begin, Iterator end)
    {
        ArrangeNote *outermost = nullptr;
        for (auto note = begin; note != end; ++note) {
            if (note->part == part_ && note->role != NoteRole::Drum && (!outermost || isBeyond(*note, *outermost)))
                outermost = &*note;
        }
        if (outermost && !isCovered(*outermost) && outermost->role < role_)
            outermost->role = role_;
        for (auto note = begin; note != end; ++note) {
            if (note->part == part_)
                ends_[note->pitch] = std::max(ends_[note->pitch], note->start + note->length);
        }
    }

private:
    // Of two of one pitch the first is meant, which is the longer.
    bool isBeyond(const ArrangeNote &a, const ArrangeNote &b) const
    {
        return edge_ == Edge::Top ? a.pitch > b.pitch : a.pitch < b.pitch;
    }

    bool isCovered(const ArrangeNote &note) const
    {
        const auto at = ends_.begin() + note.pitch;
        const auto sounds = [&note](Ticks end) { return end > note.start; };
        return edge_ == Edge::Top ? std::any_of(at + 1, ends_.end(), sounds) : std::any_of(ends_.begin(), at, sounds);
    }

    int part_;
    Edge edge_;
    NoteRole role_;
    std::array<Ticks, pitches> ends_; // of what sounds, by pitch
};

// Of the notes of one pitch class that begin together, all but the longest are doubled.
template<typename Iterator>
void findDoubled(Iterator begin, Iterator end)
{
    std::array<ArrangeNote *, 12> leaders{};
    const auto leads = [](const ArrangeNote &a, const ArrangeNote &b) {
        return std::make_tuple(a.isLine(), a.length) > std::make_tuple(b.isLine(), b.length);
    };
    for (auto note = begin; note != end; ++note) {
        auto *&leader = leaders[note->pitch % 12];
        if (note->role != NoteRole::Drum && (!leader || leads(*note, *leader)))
            leader = &*note;
    }
    for (auto note = begin; note != end; ++note) {
        const auto *const leader = leaders[note->pitch % 12];
        if (note->role == NoteRole::Inner && leader != &*note && note->length <= leader->length)
            note->role = NoteRole::Doubled;
    }
}

int weightOf(const ArrangeNote &note)
{
    constexpr auto half = ticksPerWholeNote / 2;
    switch (note.role) {
    case NoteRole::Melody:
        return ArrangeCost::melody;
    case NoteRole::Bass:
        return ArrangeCost::bass;
    case NoteRole::Doubled:
        return ArrangeCost::doubled;
    case NoteRole::Inner:
    case NoteRole::Drum:
        break;
    }
    return ArrangeCost::inner + int(ArrangeCost::inner * std::min(note.length, half) / half);
}

} // namespace

ArrangeNotes collectNotes(const QVector<SourcePart> &parts, QVector<PartFigures> &figures)
{
    ArrangeNotes notes;
    for (int part = 0; part < parts.size(); ++part) {
        for (const auto &event : parts[part].track.events()) {
            if (!event.isNote())
                continue;
            ++figures[part].notes;
            if (event.length() <= 0)
                ++figures[part].dropped[size_t(DropReason::NoLength)];
            else if (event.pitch() >= pitches)
                ++figures[part].dropped[size_t(DropReason::OutOfRange)];
            else
                notes.push_back(
                    {event.start(), event.end(), event.length(), event.pitch(), event.pitch(), event.velocity(), part});
        }
    }
    std::sort(notes.begin(), notes.end(), comesBefore);
    return notes;
}

Lines findLines(const QVector<SourcePart> &parts, const ArrangeNotes &notes, const ArrangeOptions &options)
{
    const auto shapes = shapesOf(int(parts.size()), notes);
    Ticks end = 0;
    for (const auto &shape : shapes)
        end = std::max(end, shape.end);
    constexpr int named = 1000;
    auto lines = Lines{options.melody, options.bass};
    if (!lines.melody) {
        lines.melody = bestPart(parts, shapes, [&](int i) {
            const auto &shape = shapes[size_t(i)];
            const auto name = isNamed(parts[i], QStringLiteral("melody|lead|vocals?|voice|solo|tune"));
            const auto sound = parts[i].name.contains(soundOfLead());
            return shape.meanPitch() + percentOf(shape.sounding, end) / 3 + shape.alonePercent() / 3 +
                   (name ? named : 0) + (sound ? 12 : 0);
        });
    }
    if (!lines.bass) {
        lines.bass = bestPart(parts, shapes, [&](int i) {
            const auto &shape = shapes[size_t(i)];
            const bool isRare = percentOf(shape.sounding, end) < 10;
            const auto name = isNamed(parts[i], QStringLiteral("bass|contrabass|tuba|cello"));
            return (name ? 12 : 0) - shape.meanPitch() - (isRare ? 200 : 0) - (i == lines.melody ? named : 0);
        });
    }
    return lines;
}

void giveRoles(ArrangeNotes &notes, const QVector<SourcePart> &parts, const Lines &lines)
{
    for (auto &note : notes)
        note.role = parts[note.part].isPercussion ? NoteRole::Drum : NoteRole::Inner;
    LineFinder melody(lines.melody.value_or(-1), LineFinder::Edge::Top, NoteRole::Melody);
    LineFinder bass(lines.bass.value_or(-1), LineFinder::Edge::Bottom, NoteRole::Bass);
    forEachStart(notes.begin(), notes.end(), [&](auto begin, auto end) {
        melody.visit(begin, end);
        bass.visit(begin, end);
        findDoubled(begin, end);
        for (auto note = begin; note != end; ++note)
            note->weight = weightOf(*note);
        std::sort(begin, end, comesBefore);
    });
}

std::optional<quint32> foldedInto(const PitchRange &range, quint32 pitch)
{
    auto folded = qint64(pitch);
    while (folded > range.highest)
        folded -= 12;
    while (folded < range.lowest)
        folded += 12;
    return folded <= range.highest ? std::optional(quint32(folded)) : std::nullopt;
}
