#include "audio/engine/OfflineMix.h"

#include "audio/engine/GroupBus.h"

#include <memory>
#include <numeric>

namespace {

// The voices of one group that may sound in a span, and of these the ones that sound now. In the list's order, in which
// they must be added; they come in by their starts.
class GroupVoices
{
public:
    void append(const VoiceShape &shape) { shapes_.push_back(shape); }

    void sort()
    {
        byStart_.resize(shapes_.size());
        std::iota(byStart_.begin(), byStart_.end(), 0);
        const auto startOf = [this](std::size_t index) { return shapes_[index].start; };
        std::ranges::stable_sort(byStart_, {}, startOf);
    }

    // The bus stands at that clock, at or behind the last one.
    void addTo(GroupBus &bus, DspClock clock)
    {
        advance(clock, clock + bus.frames());
        for (std::size_t i = 0; i < sounding_.size(); ++i) {
            if (i + 1 < sounding_.size())
                bus.prefetch(shapes_[sounding_[i + 1]]);
            bus.add(shapes_[sounding_[i]]);
        }
    }

private:
    void advance(DspClock from, DspClock to)
    {
        std::erase_if(sounding_, [&](std::size_t index) { return shapes_[index].stop() <= from; });
        for (; next_ < byStart_.size() && shapes_[byStart_[next_]].start < to; ++next_)
            sounding_.insert(std::ranges::upper_bound(sounding_, byStart_[next_]), byStart_[next_]);
    }

    std::vector<VoiceShape> shapes_;
    std::vector<std::size_t> byStart_;
    std::size_t next_ = 0; // of byStart_
    std::vector<std::size_t> sounding_;
};

AudioResult collect(const Mix &mix, DspClock from, DspClock to, std::vector<GroupVoices> &voices)
{
    for (const auto &spec : mix.voices) {
        if (spec.start >= to || spec.fadeEnd <= from)
            continue;
        VoiceShape shape;
        const auto group = std::size_t(spec.group);
        if (group >= voices.size() || shapeOf(spec, shape) != AudioResult::Ok)
            return AudioResult::InvalidArgument;
        if (shape.stop() > from)
            voices[group].append(shape);
    }
    for (auto &group : voices)
        group.sort();
    return AudioResult::Ok;
}

} // namespace

// One group after the other over the whole span: a track's notes repeat its samples, which stay in the cache that way.
AudioResult mixOffline(const Mix &mix, DspClock from, std::span<float> stereo)
{
    if (mix.groups.empty() || mix.groups.size() > maxGroups || stereo.size() % 2 != 0)
        return AudioResult::InvalidArgument;
    const auto frames = stereo.size() / 2;
    std::vector<GroupVoices> voices(mix.groups.size());
    if (const auto result = collect(mix, from, from + frames, voices); result != AudioResult::Ok)
        return result;

    const auto bus = std::make_unique<GroupBus>();
    const auto gainsOf = [&mix](std::size_t group) { return sideGains(mix.groups[group]); };
    std::vector<float> left(frames), right(frames);
    for (std::size_t group = 1; group < voices.size(); ++group) {
        for (std::size_t at = 0; at < frames; at += bus->frames()) {
            bus->begin(from + at, std::min(GroupBus::capacity, frames - at));
            voices[group].addTo(*bus, from + at);
            bus->mixInto({left.data() + at, right.data() + at}, gainsOf(group), gainsOf(group));
        }
    }
    const auto master = std::size_t(masterGroup);
    for (std::size_t at = 0; at < frames; at += bus->frames()) {
        bus->begin(from + at, std::min(GroupBus::capacity, frames - at));
        std::copy_n(left.data() + at, bus->frames(), bus->sides().left);
        std::copy_n(right.data() + at, bus->frames(), bus->sides().right);
        voices[master].addTo(*bus, from + at);
        bus->output(stereo.data() + 2 * at, gainsOf(master), gainsOf(master));
    }
    return AudioResult::Ok;
}
