#include "audio/engine/OfflineMix.h"

#include "audio/engine/GroupBus.h"

#include <memory>

namespace {

using VoicesOfGroups = std::vector<std::vector<VoiceShape>>;

// The voices that may sound in the span, by group.
AudioResult collect(const Mix &mix, DspClock from, DspClock to, VoicesOfGroups &voices)
{
    for (const auto &spec : mix.voices) {
        if (spec.start >= to || spec.fadeEnd <= from)
            continue;
        VoiceShape shape;
        const auto group = std::size_t(spec.group);
        if (group >= voices.size() || shapeOf(spec, shape) != AudioResult::Ok)
            return AudioResult::InvalidArgument;
        if (shape.stop() > from)
            voices[group].push_back(shape);
    }
    return AudioResult::Ok;
}

} // namespace

AudioResult mixOffline(const Mix &mix, DspClock from, std::span<float> stereo)
{
    if (mix.groups.empty() || mix.groups.size() > maxGroups || stereo.size() % 2 != 0)
        return AudioResult::InvalidArgument;
    VoicesOfGroups voices(mix.groups.size());
    const auto end = from + stereo.size() / 2;
    if (const auto result = collect(mix, from, end, voices); result != AudioResult::Ok)
        return result;

    const auto master = std::make_unique<GroupBus>(), bus = std::make_unique<GroupBus>();
    const auto applyLevel = [&mix](GroupBus &mixed, std::size_t group) {
        const auto gains = sideGains(mix.groups[group]);
        mixed.applyLevel(gains, gains);
    };
    float *to = stereo.data();
    for (auto clock = from; clock < end; clock += master->frames()) {
        const auto frames = std::size_t(std::min<DspClock>(GroupBus::capacity, end - clock));
        master->begin(clock, frames);
        for (const auto &voice : voices[std::size_t(masterGroup)])
            master->add(voice);
        for (std::size_t group = 1; group < voices.size(); ++group) {
            bus->begin(clock, frames);
            for (const auto &voice : voices[group])
                bus->add(voice);
            applyLevel(*bus, group);
            master->add(*bus);
        }
        applyLevel(*master, std::size_t(masterGroup));
        master->interleave(to);
        to += 2 * frames;
    }
    return AudioResult::Ok;
}
