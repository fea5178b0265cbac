#include "audio/player/PreviewNote.h"

#include "audio/TrackPlayback.h"

#include <utility>

void PreviewNote::play(const Instrument &instrument, quint32 pitch, float gain)
{
    const auto entry = instrument.tuning.notes.value(pitch);
    awaited_ = SampleNeed{entry.files.value(0), entry.rate, endless, 0};
    gain_ = gain;
    isStopped_ = false;
    fade_ = fadeSamples(instrument.tuning.fadeout, engine_.sampleRate());
    pass();
}

void PreviewNote::pass()
{
    if (!awaited_)
        return;
    const auto found = feed_.find(*awaited_);
    if (found.state == SampleFeed::State::Loading)
        return feed_.wantNow(*awaited_);
    awaited_.reset();
    VoiceSpec voice;
    voice.sound = found.sound;
    voice.start = engine_.clock();
    voice.ratio = found.ratio;
    voice.gain = gain_;
    VoiceId id{};
    if (voice.sound && checker_.check(engine_, engine_.play(voice, id)))
        voice_ = id;
    if (std::exchange(isStopped_, false))
        stop();
}

void PreviewNote::stop()
{
    isStopped_ = awaited_.has_value();
    const auto voice = isStopped_ ? std::nullopt : std::exchange(voice_, std::nullopt);
    if (voice && engine_.isPlaying(*voice))
        checker_.check(engine_, engine_.fadeOut(*voice, fade_));
}
