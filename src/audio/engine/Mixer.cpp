#include "audio/engine/Mixer.h"

#include <bit>

namespace {

constexpr std::size_t stopFrames = 240; // 5 ms at 48 kHz: what a stopped group takes to fade without a click

std::uint64_t packed(SideGains gains)
{
    return std::uint64_t(std::bit_cast<std::uint32_t>(gains.right)) << 32 | std::bit_cast<std::uint32_t>(gains.left);
}

SideGains unpacked(std::uint64_t pair)
{
    return {std::bit_cast<float>(std::uint32_t(pair)), std::bit_cast<float>(std::uint32_t(pair >> 32))};
}

} // namespace

Mixer::Mixer()
{
    LiveKernel::table(); // built here, not in the first callback
    for (auto &group : groups_)
        group.wanted.store(packed({}), std::memory_order_relaxed);
}

bool Mixer::play(std::uint32_t slot, GroupId group, const VoiceShape &shape)
{
    return commands_.push({Command::Kind::Play, slot, group, 0, shape});
}

bool Mixer::fadeOut(std::uint32_t slot, std::uint64_t frames)
{
    return commands_.push({Command::Kind::FadeOut, slot, {}, frames, {}});
}

bool Mixer::stopGroup(GroupId group)
{
    return commands_.push({Command::Kind::StopGroup, none, group, 0, {}});
}

bool Mixer::takeFinished(std::uint32_t &slot)
{
    return finished_.pop(slot);
}

void Mixer::openGroup(GroupId group)
{
    const auto index = std::size_t(group);
    groups_[index].meter.reset();
    setGains(group, {});
    if (index >= groupsInUse_.load(std::memory_order_relaxed))
        groupsInUse_.store(index + 1, std::memory_order_release);
}

void Mixer::setGains(GroupId group, SideGains gains)
{
    groups_[std::size_t(group)].wanted.store(packed(gains), std::memory_order_release);
}

MeterReading Mixer::meter(GroupId group)
{
    return groups_[std::size_t(group)].meter.read();
}

void Mixer::mix(float *stereo, std::size_t frames)
{
    while (frames > 0) {
        const auto block = std::min(frames, mixerBlockFrames);
        mixBlock(stereo, block);
        stereo += 2 * block;
        frames -= block;
    }
}

void Mixer::skip(std::size_t frames)
{
    now_ += frames;
    clock_.store(now_, std::memory_order_release);
}

void Mixer::mixBlock(float *stereo, std::size_t frames)
{
    Command command;
    while (commands_.pop(command))
        obey(command);

    const auto groups = groupsInUse_.load(std::memory_order_acquire);
    masterBus_.begin(now_, frames);
    for (std::size_t index = 1; index < groups; ++index) {
        if (index + 1 < groups && groups_[index + 1].first != none)
            masterBus_.prefetch(voices_[groups_[index + 1].first].shape);
        mixGroup(groups_[index], frames);
    }
    auto &master = groups_[std::size_t(masterGroup)];
    addVoices(master, masterBus_);
    const auto [first, last] = nextGains(master, masterBus_);
    masterBus_.output(stereo, first, last);
    master.meter.addBlock(masterBus_.measure(last), frames);

    const auto next = now_ + frames;
    dropFinished(master, next);
    for (std::size_t index = 1; index < groups; ++index) {
        dropFinished(groups_[index], next);
        // Its number may be another group's by the next block.
        groups_[index].sounded = groups_[index].sounded && groups_[index].first != none;
    }
    skip(frames);
}

void Mixer::mixGroup(Group &group, std::size_t frames)
{
    groupBus_.begin(now_, frames);
    addVoices(group, groupBus_);
    const auto [first, last] = nextGains(group, groupBus_);
    if (!groupBus_.silent())
        groupBus_.mixInto(masterBus_.sides(), first, last);
    group.meter.addBlock(groupBus_.measure(last), frames);
}

void Mixer::addVoices(Group &group, GroupBus &bus)
{
    for (Slot slot = group.first; slot != none; slot = voices_[slot].next) {
        if (voices_[slot].next != none)
            bus.prefetch(voices_[voices_[slot].next].shape);
        bus.add(voices_[slot].shape);
    }
}

std::pair<SideGains, SideGains> Mixer::nextGains(Group &group, const GroupBus &bus)
{
    const auto last = unpacked(group.wanted.load(std::memory_order_acquire));
    const auto first = group.sounded ? group.gains : last;
    group.gains = last;
    group.sounded = !bus.silent();
    return {first, last};
}

void Mixer::dropFinished(Group &group, DspClock next)
{
    Slot *link = &group.first;
    Slot last = none;
    while (*link != none) {
        const Slot slot = *link;
        Voice &voice = voices_[slot];
        if (voice.shape.stop() > next) {
            last = slot;
            link = &voice.next;
            continue;
        }
        voice.active = false;
        *link = voice.next;
        finished_.push(slot);
    }
    group.last = last;
}

void Mixer::obey(const Command &command)
{
    switch (command.kind) {
    case Command::Kind::Play:
        append(command);
        return;
    case Command::Kind::FadeOut:
        // A voice that ended meanwhile is on its way back.
        if (voices_[command.slot].active)
            voices_[command.slot].shape.fadeFrom(now_, command.frames);
        return;
    case Command::Kind::StopGroup:
        for (Slot slot = groups_[std::size_t(command.group)].first; slot != none; slot = voices_[slot].next)
            voices_[slot].shape.fadeFrom(now_, stopFrames);
        return;
    }
}

void Mixer::append(const Command &command)
{
    Group &group = groups_[std::size_t(command.group)];
    Voice &voice = voices_[command.slot];
    voice = {command.shape, none, true};
    voice.shape.enter(now_);
    (group.first == none ? group.first : voices_[group.last].next) = command.slot;
    group.last = command.slot;
}
