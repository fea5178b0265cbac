#include "audio/fmod/FmodGroups.h"

#include <algorithm>

FmodGroups::FmodGroups(const fmodlib::Api &api, fmodlib::System &system, fmodlib::ChannelGroup &master,
                       FmodFailures &failures)
    : api_(api), system_(system), failures_(failures)
{
    auto &group = groups_[masterGroup];
    group.handle = &master;
    startMeter(group);
}

GroupId FmodGroups::create()
{
    const GroupId id{++lastNumber_};
    failures_.note(open(groups_[id]));
    return id;
}

fmodlib::Result FmodGroups::open(Group &group)
{
    if (group.handle != nullptr)
        return 0;
    const auto result = api_.systemCreateChannelGroup(&system_, "track", &group.handle);
    if (result != 0) {
        group.handle = nullptr;
        return result;
    }
    startMeter(group);
    return applyLevel(group);
}

// Without one, the group reads 0.
void FmodGroups::startMeter(Group &group)
{
    if (!failures_.note(api_.groupGetDsp(group.handle, fmodlib::dspHead, &group.head)) ||
        !failures_.note(api_.dspSetMeteringEnabled(group.head, 0, 1)))
        group.head = nullptr;
}

void FmodGroups::close(GroupId group)
{
    groups_.at(group).isOpen = false;
}

bool FmodGroups::isOpen(GroupId group) const
{
    const auto found = groups_.find(group);
    return found != groups_.end() && found->second.isOpen;
}

fmodlib::Result FmodGroups::setLevel(GroupId id, GroupLevel level)
{
    auto &group = groups_.at(id);
    group.level = level;
    return group.handle != nullptr ? applyLevel(group) : open(group);
}

fmodlib::Result FmodGroups::applyLevel(const Group &group)
{
    const auto volume = api_.groupSetVolume(group.handle, group.level.volume);
    const auto pan = api_.groupSetPan(group.handle, group.level.pan);
    return volume != 0 ? volume : pan;
}

fmodlib::Result FmodGroups::place(GroupId id, Place &place)
{
    place = {};
    if (id == masterGroup)
        return 0;
    auto &group = groups_.at(id);
    failures_.note(open(group));
    if (group.handle == nullptr)
        return 0;
    fmodlib::Clock own = 0, parent = 0;
    if (const auto result = api_.groupGetDspClock(group.handle, &own, &parent); result != 0)
        return result;
    place = {group.handle, own - parent};
    return 0;
}

// The own one, since nobody knows what the clock of its parent would be.
fmodlib::Result FmodGroups::masterClock(fmodlib::Clock &clock) const
{
    fmodlib::Clock parent = 0;
    return api_.groupGetDspClock(groups_.at(masterGroup).handle, &clock, &parent);
}

void FmodGroups::readMeters()
{
    for (auto &[id, group] : groups_) {
        if (group.head != nullptr)
            readMeter(group);
    }
}

void FmodGroups::readMeter(Group &group)
{
    fmodlib::MeteringInfo info;
    if (!failures_.note(api_.dspGetMeteringInfo(group.head, nullptr, &info)))
        return;
    const auto right = info.channels > 1 ? 1U : 0U;
    if (info.channels > 0)
        group.latest = {info.rms[0], info.rms[right], info.peak[0], info.peak[right]};
    else
        group.latest = {};
    auto &highest = group.highest;
    if (std::exchange(group.isRead, false))
        highest = {};
    highest.leftRms = std::max(highest.leftRms, group.latest.leftRms);
    highest.rightRms = std::max(highest.rightRms, group.latest.rightRms);
    highest.leftPeak = std::max(highest.leftPeak, group.latest.leftPeak);
    highest.rightPeak = std::max(highest.rightPeak, group.latest.rightPeak);
}

MeterReading FmodGroups::meter(GroupId id)
{
    const auto found = groups_.find(id);
    if (found == groups_.end() || !found->second.isOpen)
        return {};
    auto &group = found->second;
    return std::exchange(group.isRead, true) ? group.latest : group.highest;
}

void FmodGroups::releaseEmpty()
{
    std::erase_if(groups_, [this](const auto &entry) {
        const auto &group = entry.second;
        const bool isOver = !group.isOpen && group.voices == 0;
        if (isOver && group.handle != nullptr)
            failures_.note(api_.groupRelease(group.handle));
        return isOver;
    });
}

void FmodGroups::releaseAll()
{
    for (auto &[id, group] : groups_)
        group.isOpen = id == masterGroup;
    releaseEmpty();
}
