#pragma once

#include "audio/fmod/FmodEnvelope.h"
#include "audio/fmod/FmodGroups.h"
#include "audio/fmod/FmodSounds.h"

#include <unordered_map>

// The voices of an engine in the library: each is a channel that begins and ends by the clock. [audio]
class FmodVoices
{
public:
    // All must outlive it.
    FmodVoices(const FmodLibrary &library, fmodlib::System &system, FmodGroups &groups, FmodFailures &failures,
               int sampleRate)
        : api_(library.api()), system_(system), groups_(groups), failures_(failures),
          sounds_(library, system, sampleRate), sampleRate_(sampleRate)
    {
    }

    // What the library's clock shows when the engine's is 0.
    void setBase(fmodlib::Clock base) { base_ = base; }
    std::size_t count() const { return voices_.size(); }
    bool isPlaying(VoiceId id) const { return voices_.contains(id); }

    fmodlib::Result play(const VoiceSpec &spec, DspClock now, VoiceId &id);
    fmodlib::Result fadeOut(VoiceId id, DspClock now, DspClock frames);
    fmodlib::Result stopGroup(GroupId group, DspClock now);
    // Forgets the voices that have ended, and the sounds that nobody holds any more.
    void reap(DspClock now);
    void stopAll();

private:
    struct Voice
    {
        GroupId group;
        Sound sound; // held until the voice has ended
        FmodEnvelope envelope;
        DspClock stop;                  // where it ends by itself; 0: at once
        fmodlib::Sound *part = nullptr; // of the sound, for this voice alone; null: none
        fmodlib::Channel *channel = nullptr;
        fmodlib::Clock shift = 0; // of its group's clock
        bool isEnded = false;
    };

    fmodlib::Result findSound(Voice &voice, std::size_t firstFrame, fmodlib::Sound *&sound);
    fmodlib::Result begin(const VoiceSpec &spec, Voice &voice, fmodlib::Sound *sound);
    fmodlib::Result setUp(const VoiceSpec &spec, const Voice &voice) const;
    fmodlib::Result addPoints(const Voice &voice, DspClock from) const;
    fmodlib::Result setDelay(const Voice &voice) const;
    fmodlib::Result fade(Voice &voice, DspClock now, DspClock frames);
    fmodlib::Result stop(Voice &voice);
    bool hasEnded(Voice &voice, DspClock now);
    void releasePart(const Voice &voice);
    fmodlib::Clock libraryClock(const Voice &voice, DspClock clock) const { return clock + base_ + voice.shift; }

    const fmodlib::Api &api_;
    fmodlib::System &system_;
    FmodGroups &groups_;
    FmodFailures &failures_;
    FmodSounds sounds_;
    int sampleRate_;
    fmodlib::Clock base_ = 0;
    std::unordered_map<VoiceId, Voice> voices_;
    std::uint64_t lastId_ = 0;
    DspClock nextSweep_ = 0; // of the sounds
};
