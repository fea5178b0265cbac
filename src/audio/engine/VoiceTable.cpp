#include "audio/engine/VoiceTable.h"

#include <algorithm>

VoiceTable::VoiceTable() : voices_(maxVoices), groups_(maxGroups)
{
    for (Slot slot = 0; slot < maxVoices; ++slot)
        free_.push_back(slot);
    groups_[std::size_t(masterGroup)].open = true;
}

std::optional<VoiceTable::Slot> VoiceTable::take(Sound sound, GroupId group)
{
    if (free_.empty())
        return {};
    const Slot slot = free_.front();
    free_.pop_front();
    voices_[slot] = {std::move(sound), group, voices_[slot].uses + 1};
    ++groups_[std::size_t(group)].voices;
    return slot;
}

void VoiceTable::giveBack(Slot slot)
{
    voices_[slot].sound.reset();
    --groups_[std::size_t(voices_[slot].group)].voices;
    free_.push_back(slot);
}

VoiceId VoiceTable::idOf(Slot slot) const
{
    return VoiceId(voices_[slot].uses * maxVoices + slot);
}

std::optional<VoiceTable::Slot> VoiceTable::find(VoiceId voice) const
{
    const auto slot = Slot(std::uint64_t(voice) % maxVoices);
    if (idOf(slot) != voice || !voices_[slot].sound)
        return {};
    return slot;
}

std::optional<GroupId> VoiceTable::openGroup()
{
    const auto unused = std::find_if(groups_.begin(), groups_.end(),
                                     [](const Group &group) { return !group.open && group.voices == 0; });
    if (unused == groups_.end())
        return {};
    unused->open = true;
    return GroupId(unused - groups_.begin());
}
