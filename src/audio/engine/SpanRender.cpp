#include "audio/engine/SpanRender.h"

#include "audio/engine/Mixer.h"

#include <algorithm>

namespace {

DspClock blocksOf(DspClock frames)
{
    return (frames + mixerBlockFrames - 1) / mixerBlockFrames;
}

// The mixer is fastest with spans of some seconds; every core should still get several, and a cancelled one be soon
// over.
DspClock spanBlocks(DspClock songBlocks, std::size_t cores)
{
    return std::clamp<DspClock>(songBlocks / (4 * cores), 64, 1024);
}

bool hasEnded(const VoiceSpec &spec, DspClock clock)
{
    VoiceShape shape;
    return shapeOf(spec, shape) == AudioResult::Ok && shape.stop() <= clock;
}

} // namespace

struct SpanRender::Span
{
    Mix mix;
    DspClock from = 0;
    std::vector<float> stereo;
    AudioResult result = AudioResult::Ok;
};

SpanRender::SpanRender(Timeline &timeline, RenderHost &host, MixedFrames write)
    : timeline_(timeline), host_(host), write_(std::move(write)), end_(blocksOf(timeline.end()) * mixerBlockFrames),
      spanFrames_(spanBlocks(blocksOf(end_), host.cores()) * mixerBlockFrames)
{
}

AudioResult SpanRender::run()
{
    host_.run([this] { return nextJob(); });
    return result_;
}

std::optional<RenderJob> SpanRender::nextJob()
{
    if (mixed_ == end_ || result_ != AudioResult::Ok)
        return std::nullopt;
    const auto span = std::make_shared<Span>();
    span->from = mixed_;
    mixed_ = std::min(end_, mixed_ + spanFrames_);
    addVoices(*span, mixed_);
    const auto work = [span, frames = mixed_ - span->from] {
        span->stereo.resize(2 * frames);
        span->result = mixOffline(span->mix, span->from, span->stereo);
    };
    return RenderJob{work, [this, span] { take(*span); }};
}

void SpanRender::addVoices(Span &span, DspClock to)
{
    std::erase_if(sounding_, [&span](const VoiceSpec &spec) { return hasEnded(spec, span.from); });
    auto begun = timeline_.takeVoices(to);
    std::ranges::move(begun, std::back_inserter(sounding_));
    span.mix = {timeline_.groups(), sounding_};
}

void SpanRender::take(const Span &span)
{
    if (result_ == AudioResult::Ok)
        result_ = span.result;
    if (result_ == AudioResult::Ok)
        result_ = write_(span.stereo);
    if (result_ != AudioResult::Ok)
        return;
    for (const auto end = written_ + span.stereo.size() / 2; written_ < end;)
        host_.passBlock(written_ += mixerBlockFrames);
}
