#pragma once

#include "audio/AudioEngine.h"

#include <deque>
#include <optional>

// What the engine's owner knows of its voices and groups: which slots are taken, which sounds they keep alive, which
// group numbers are in use. [audio]
class VoiceTable
{
public:
    using Slot = std::uint32_t;

    VoiceTable();

    // A free slot, which holds the sound until giveBack(); none when all are taken.
    std::optional<Slot> take(Sound sound, GroupId group);
    void giveBack(Slot slot);
    VoiceId idOf(Slot slot) const;
    // The slot of a voice that was not given back.
    std::optional<Slot> find(VoiceId voice) const;
    std::size_t taken() const { return maxVoices - free_.size(); }

    // The lowest number that neither a group nor a voice that a released group left uses.
    std::optional<GroupId> openGroup();
    void closeGroup(GroupId group) { groups_[std::size_t(group)].open = false; }
    bool isOpen(GroupId group) const { return std::size_t(group) < maxGroups && groups_[std::size_t(group)].open; }

private:
    struct Voice
    {
        Sound sound;
        GroupId group{};
        std::uint64_t uses = 0; // how often the slot was taken, so that no id comes twice
    };
    struct Group
    {
        bool open = false;
        std::size_t voices = 0;
    };

    std::vector<Voice> voices_;
    std::vector<Group> groups_;
    std::deque<Slot> free_;
};
