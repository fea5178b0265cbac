#pragma once

#include "audio/sound/Sound.h"

#include <QHash>

#include <algorithm>
#include <cstdint>
#include <tuple>

// Sounds by key, up to a number of bytes. Where room is needed, those that were not asked for the longest leave first,
// and none that is known to be needed sooner than what is to come; a sound that somebody else still holds stays, for
// dropping it would free nothing. [audio] [render]
template<typename Key>
class SoundStore
{
public:
    explicit SoundStore(std::size_t byteLimit) : byteLimit_(byteLimit) {}

    // Null when there is none, or none that serves a note of so many frames.
    Sound find(const Key &key, std::uint64_t frames)
    {
        const auto entry = entries_.find(key);
        if (entry == entries_.end() || entry->serves < frames)
            return nullptr;
        entry->lastUse = ++uses_;
        return entry->sound;
    }

    // serves: the length of the longest note that the sound is made for. False when there is no room.
    bool insert(const Key &key, const Sound &sound, std::uint64_t serves)
    {
        remove(entries_.find(key));
        return makeRoom(sound->bytes()) && put(key, sound, serves);
    }

    // The same, whether there is room or not.
    bool put(const Key &key, const Sound &sound, std::uint64_t serves)
    {
        remove(entries_.find(key));
        bytes_ += sound->bytes();
        entries_.insert(key, {sound, serves, ++uses_});
        return true;
    }

    // Room for so many bytes beside what is there; those that are needed up to `now` are not needed any more, and those
    // that are needed last before `clock` are not given up.
    bool makeRoom(std::size_t bytes, std::uint64_t now = 0, std::uint64_t clock = 0)
    {
        if (bytes > byteLimit_)
            return false;
        while (bytes_ + bytes > byteLimit_) {
            if (!removeLeastUseful(now, clock))
                return false;
        }
        return true;
    }

    // The sound will be needed at the clock.
    void keepUntil(const Key &key, std::uint64_t clock)
    {
        if (const auto entry = entries_.find(key); entry != entries_.end())
            entry->neededUntil = std::max(entry->neededUntil, clock);
    }
    void giveUp(const Key &key)
    {
        if (const auto entry = entries_.find(key); entry != entries_.end())
            entry->neededUntil = 0;
    }
    void giveUpAll()
    {
        for (auto &entry : entries_)
            entry.neededUntil = 0;
    }

    std::size_t bytes() const { return bytes_; }

    // Whether insert() of a sound of so many bytes would succeed.
    bool hasRoomFor(std::size_t bytes) const
    {
        std::size_t inUse = 0;
        for (const auto &entry : entries_)
            inUse += entry.sound.use_count() > 1 ? entry.sound->bytes() : 0;
        return inUse + bytes <= byteLimit_;
    }

private:
    struct Entry
    {
        Sound sound;
        std::uint64_t serves = 0;
        std::uint64_t lastUse = 0;
        std::uint64_t neededUntil = 0; // a clock
    };
    using Entries = QHash<Key, Entry>;

    void remove(typename Entries::iterator entry)
    {
        if (entry == entries_.end())
            return;
        bytes_ -= entry->sound->bytes();
        entries_.erase(entry);
    }

    bool removeLeastUseful(std::uint64_t now, std::uint64_t clock)
    {
        const auto uselessness = [now](const Entry &entry) {
            const bool isNeeded = entry.neededUntil > now;
            return std::tuple(!isNeeded, isNeeded ? entry.neededUntil : 0, ~entry.lastUse);
        };
        auto least = entries_.end();
        for (auto entry = entries_.begin(); entry != entries_.end(); ++entry) {
            const bool isFree =
                entry->sound.use_count() == 1 && (entry->neededUntil <= now || entry->neededUntil > clock);
            if (isFree && (least == entries_.end() || uselessness(*entry) > uselessness(*least)))
                least = entry;
        }
        const bool isFound = least != entries_.end();
        remove(least);
        return isFound;
    }

    Entries entries_;
    std::size_t byteLimit_;
    std::size_t bytes_ = 0;
    std::uint64_t uses_ = 0;
};
