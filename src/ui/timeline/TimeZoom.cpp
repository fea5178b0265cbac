#include "ui/timeline/TimeZoom.h"

namespace {

constexpr double pageTurnAt = 0.9; // of the span
constexpr double pageBeginsAt = 0.1;
constexpr double revealedAt = 0.125; // from the edge

Ticks share(const TimeSpan &span, double part)
{
    return Ticks(double(span.length) * part);
}

} // namespace

void TimeZoom::setSongLength(Ticks length)
{
    const bool wasWhole = isWhole();
    songLength_ = length;
    if (wasWhole || span_.length > length)
        showWhole();
    else
        scrollTo(span_.begin);
}

void TimeZoom::zoom(double factor, double anchor)
{
    const auto shortest = std::min(shortestSpan, songLength_);
    const auto wanted = std::clamp(double(span_.length) / factor, double(shortest), double(songLength_));
    const auto anchored = double(span_.begin) + double(span_.length) * anchor;
    span_.length = Ticks(wanted);
    scrollTo(Ticks(anchored - wanted * anchor + 0.5));
}

void TimeZoom::scrollTo(Ticks begin)
{
    span_.begin = std::clamp(begin, Ticks(0), songLength_ - span_.length);
}

void TimeZoom::reveal(Ticks tick)
{
    if (tick < span_.begin)
        scrollTo(tick - share(span_, revealedAt));
    else if (tick > span_.end())
        scrollTo(tick - share(span_, 1 - revealedAt));
}

void TimeZoom::follow(Ticks tick)
{
    if (tick < span_.begin || tick > span_.begin + share(span_, pageTurnAt))
        scrollTo(tick - share(span_, pageBeginsAt));
}
