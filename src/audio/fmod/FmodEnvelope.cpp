#include "audio/fmod/FmodEnvelope.h"

#include <algorithm>

FmodEnvelope::FmodEnvelope(const VoiceSpec &spec, DspClock start, DspClock rise) : stop_(spec.fadeEnd)
{
    const auto held = [&](DspClock clock) {
        return clock < spec.end ? 1.0F : float(spec.fadeEnd - clock) / float(spec.fadeEnd - spec.end);
    };
    points_.clear();
    const bool isOver = start >= spec.fadeEnd;
    add(start, isOver || rise > 0 ? 0.0F : held(start));
    const auto risen = start + rise;
    if (rise > 0 && risen < spec.fadeEnd)
        add(risen, held(risen));
    if (isOver || spec.fadeEnd == never || spec.end == spec.fadeEnd)
        return;
    if (spec.end > points_.back().clock)
        add(spec.end, 1);
    add(spec.fadeEnd, 0);
}

float FmodEnvelope::levelAt(DspClock clock) const
{
    if (clock >= stop_)
        return 0;
    const auto next =
        std::find_if(points_.begin(), points_.end(), [clock](const Point &point) { return point.clock > clock; });
    if (next == points_.begin())
        return next->level;
    const auto &before = *std::prev(next);
    if (next == points_.end())
        return before.level;
    const auto share = float(clock - before.clock) / float(next->clock - before.clock);
    return before.level + share * (next->level - before.level);
}

bool FmodEnvelope::fadeFrom(DspClock now, DspClock frames)
{
    if (stop_ != never && stop_ <= now + frames)
        return false;
    const auto level = levelAt(now);
    std::erase_if(points_, [now](const Point &point) { return point.clock >= now; });
    add(now, level);
    add(now + frames, 0);
    stop_ = now + frames;
    return true;
}
