#pragma once

#include "audio/AudioEngine.h"
#include "audio/fmod/FmodFailures.h"
#include "audio/fmod/FmodLibrary.h"

#include <map>

// The groups of an engine in the library, with their meters. One that the library refuses is asked for again when it is
// used next; until then its voices play in the master's. [audio]
class FmodGroups
{
public:
    // All must outlive it.
    FmodGroups(const fmodlib::Api &api, fmodlib::System &system, fmodlib::ChannelGroup &master, FmodFailures &failures);

    bool isFull() const { return groups_.size() >= maxGroups; }
    GroupId create(); // while it is not full
    // Its voices move to the master's group when the library releases one, so it is kept until they have ended.
    void close(GroupId group);
    bool isOpen(GroupId group) const;
    fmodlib::Result setLevel(GroupId group, GroupLevel level);

    // For a voice. The shift is that of its group's clock from the master's, by which voices are timed.
    struct Place
    {
        fmodlib::ChannelGroup *group; // null: the master's
        fmodlib::Clock shift;
    };
    fmodlib::Result place(GroupId group, Place &place);
    void addVoice(GroupId group) { ++groups_.at(group).voices; }
    void removeVoice(GroupId group) { --groups_.at(group).voices; }

    fmodlib::Result masterClock(fmodlib::Clock &clock) const;
    // To be called for each block.
    void readMeters();
    MeterReading meter(GroupId group); // the highest since it was asked for last
    void releaseEmpty();
    void releaseAll();

private:
    struct Group
    {
        fmodlib::ChannelGroup *handle = nullptr;
        fmodlib::Dsp *head = nullptr;
        bool isOpen = true;
        std::size_t voices = 0;
        GroupLevel level;
        MeterReading latest;
        MeterReading highest;
        bool isRead = true;
    };

    fmodlib::Result open(Group &group);
    fmodlib::Result applyLevel(const Group &group);
    void startMeter(Group &group);
    void readMeter(Group &group);

    const fmodlib::Api &api_;
    fmodlib::System &system_;
    FmodFailures &failures_;
    std::map<GroupId, Group> groups_;
    std::uint32_t lastNumber_ = 0;
};
