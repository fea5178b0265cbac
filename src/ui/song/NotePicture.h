#pragma once

#include "core/Track.h"
#include "ui/timeline/TimeSpan.h"

#include <QColor>
#include <QImage>
#include <QRect>
#include <QSize>

#include <memory>

// Where the notes of a track stand in a picture of so many pixels: time to the right, pitch upwards, as many pitches as
// the track uses and at least two octaves.
class NoteLayout
{
public:
    // ratio: device pixels of one logical pixel.
    NoteLayout(const Track &track, const TimeSpan &span, QSize pixels, double ratio);

    QSize size() const { return size_; }
    const TimeSpan &span() const { return span_; }

    double x(Ticks tick) const { return span_.x(tick, size_.width()); }
    Ticks ticksIn(double pixels) const { return span_.ticksIn(pixels, size_.width()); }
    bool shows(const TrackEvent &note) const;
    int y(int pitch) const; // the upper edge of the pitch's row
    int lowestPitch() const { return lowest_; }
    int highestPitch() const { return highest_; }
    int lineWidth() const { return lineWidth_; }

    // Within the picture, at least one pixel wide and high enough to be seen, also where the rows are lower.
    QRect noteRect(const TrackEvent &note) const;

private:
    QSize size_;
    TimeSpan span_;
    int lowest_ = 127;
    int highest_ = 0;
    int smallestHeight_;
    int lineWidth_;
};

struct NotePictureStyle
{
    QColor noteColour;
    bool drawsMeasureLines = false;
    bool drawsOctaveLines = false;
    std::shared_ptr<const Track> shadow = {}; // its notes stand behind the others; may be null
};

// Notes over black; softer ones are darker. Bar lines that would stand too close are thinned out.
QImage drawNotePicture(const Track &track, const NoteLayout &layout, const NotePictureStyle &style);

// One note as it looks while it sounds.
QColor soundingNoteColour(const QColor &noteColour);
