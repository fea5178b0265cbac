#pragma once

#include "ui/timeline/TimeSpan.h"

// Which stretch of a song is shown: the whole song at first, or less, which can be moved. A value.
class TimeZoom
{
public:
    static constexpr Ticks shortestSpan = ticksPerQuarter;

    const TimeSpan &span() const { return span_; }
    bool isWhole() const { return span_.length == songLength_; }
    Ticks songLength() const { return songLength_; }

    // The whole stays the whole, and anything else where it is, as far as there is song.
    void setSongLength(Ticks length);
    void showWhole() { span_ = {0, songLength_}; }
    // A factor above 1 shows less of the song. anchor: the share of the width (0..1) where the song stays.
    void zoom(double factor, double anchor);
    void scrollTo(Ticks begin);
    // As little as needed.
    void reveal(Ticks tick);
    // Turns the page when the tick comes near its end, or is not on it.
    void follow(Ticks tick);

private:
    Ticks songLength_ = 0;
    TimeSpan span_;
};
