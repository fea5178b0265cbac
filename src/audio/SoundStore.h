#pragma once

#include "audio/sound/Sound.h"

#include <QHash>

#include <cstdint>

// Sounds by key, up to a number of bytes. Where room is needed, those that were not asked for the longest leave first;
// a sound that somebody else still holds stays, for dropping it would free nothing. [audio] [render]
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
        if (sound->bytes() > byteLimit_)
            return false;
        while (bytes_ + sound->bytes() > byteLimit_) {
            if (!removeLeastUsed())
                return false;
        }
        bytes_ += sound->bytes();
        entries_.insert(key, {sound, serves, ++uses_});
        return true;
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
    };
    using Entries = QHash<Key, Entry>;

    void remove(typename Entries::iterator entry)
    {
        if (entry == entries_.end())
            return;
        bytes_ -= entry->sound->bytes();
        entries_.erase(entry);
    }

    bool removeLeastUsed()
    {
        auto least = entries_.end();
        for (auto entry = entries_.begin(); entry != entries_.end(); ++entry) {
            const bool isFree = entry->sound.use_count() == 1;
            if (isFree && (least == entries_.end() || entry->lastUse < least->lastUse))
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
