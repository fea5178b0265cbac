#include "import/midi/MidiParts.h"

#include "import/ProgramNames.h"

#include <algorithm>

namespace {

constexpr int percussionChannel = 9;

int programAt(const std::map<Ticks, int> &programs, Ticks time)
{
    const auto next = programs.upper_bound(time);
    return next != programs.begin() ? std::prev(next)->second : 0;
}

// The programs that notes are played with, each with its first note.
std::map<int, Ticks> firstNotes(const MidiChannel &channel)
{
    std::map<int, Ticks> first;
    for (const auto &event : channel.events) {
        if (!event.isNote())
            continue;
        auto &start = first.try_emplace(programAt(channel.programs, event.start()), event.start()).first->second;
        start = std::min(start, event.start());
    }
    return first;
}

QVector<MidiPart> emptyParts(const MidiChannel &channel, int number)
{
    QVector<MidiPart> parts;
    const auto first = firstNotes(channel);
    for (const auto &[program, start] : first)
        parts.append({number, program, {}});
    std::stable_sort(parts.begin(), parts.end(),
                     [&](const MidiPart &a, const MidiPart &b) { return first.at(a.program) < first.at(b.program); });
    return parts;
}

void describe(MidiPart &part)
{
    part.report.channel = part.channel + 1;
    part.report.program = part.program;
    part.report.isPercussion = part.channel == percussionChannel;
    part.report.notes = int(
        std::count_if(part.events.begin(), part.events.end(), [](const TrackEvent &event) { return event.isNote(); }));
}

void takeFindings(MidiChannel &channel, QVector<MidiPart> &parts)
{
    for (const auto &[program, found] : channel.found) {
        const auto isOwn = [program = program](const MidiPart &part) { return part.program == program; };
        const auto own = std::find_if(parts.begin(), parts.end(), isOwn);
        (own != parts.end() ? *own : parts.first()).report.add(found);
    }
    channel.found.clear();
}

void takeEvents(MidiChannel &channel, QVector<MidiPart> &parts)
{
    for (const auto &event : qAsConst(channel.events)) {
        const int program = programAt(channel.programs, event.start());
        for (auto &part : parts) {
            if (!event.isNote() || part.program == program)
                part.events.append(event);
        }
    }
}

} // namespace

void MidiChannel::add(ImportFinding finding, Ticks place)
{
    found[programAt(programs, place)].add(finding, place);
}

QVector<MidiPart> takeParts(MidiChannel &channel, int number, ProgramParts programs, ImportLimits &limits)
{
    const bool isSplit = programs == ProgramParts::Split && channel.programs.size() > 1 && number != percussionChannel;
    auto parts = isSplit ? emptyParts(channel, number) : QVector<MidiPart>{{number, channel.program, {}}};
    takeFindings(channel, parts);
    if (parts.size() == 1) {
        parts.first().events = std::move(channel.events);
    } else {
        limits.addCopies(channel.changesSeen * (parts.size() - 1));
        takeEvents(channel, parts);
    }
    std::for_each(parts.begin(), parts.end(), describe);
    return parts;
}

QString instrumentTitle(const MidiPart &part)
{
    return part.channel == percussionChannel ? QStringLiteral("Percussion") : programName(part.program);
}

int ChunkNames::addChunk()
{
    names_.append(QString());
    return current();
}

void ChunkNames::setName(const QString &name)
{
    constexpr int longest = 80;
    if (names_.last().isEmpty())
        names_.last() = name.simplified().left(longest);
}

QString ChunkNames::joined(const QVector<int> &chunks) const
{
    constexpr int longest = 160;
    QStringList names;
    int length = 0;
    for (const int chunk : chunks) {
        const auto &name = names_[chunk];
        if (!name.isEmpty() && !names.contains(name) && (length += int(name.size())) <= longest)
            names.append(name);
    }
    return names.join(QStringLiteral(", "));
}

QStringList ChunkNames::titles(const QVector<MidiPart> &parts, const std::array<MidiChannel, 16> &channels) const
{
    std::map<int, int> partCounts; // by chunk
    for (const auto &part : parts) {
        for (const int chunk : channels[size_t(part.channel)].sources)
            ++partCounts[chunk];
    }
    QStringList titles;
    for (const auto &part : parts) {
        const auto &chunks = channels[size_t(part.channel)].sources;
        auto title = joined(chunks);
        const auto isShared = [&](int chunk) { return partCounts[chunk] > 1; };
        if (!title.isEmpty() && std::any_of(chunks.begin(), chunks.end(), isShared))
            title += QStringLiteral(" - ") + instrumentTitle(part);
        titles.append(title);
    }
    return titles;
}
