#pragma once

#include "core/Track.h"

#include <QColor>
#include <QImage>
#include <QRect>
#include <QSize>

// Where the notes of a track stand in a picture of so many pixels: time to the right, pitch upwards, as many pitches as
// the track uses and at least two octaves.
class NoteLayout
{
public:
    // ratio: device pixels of one logical pixel.
    NoteLayout(const Track &track, Ticks length, QSize pixels, double ratio);

    QSize size() const { return size_; }
    Ticks length() const { return length_; }

    double x(Ticks ticks) const; // 0 when the length is 0
    int y(int pitch) const;      // the upper edge of the pitch's row
    int lowestPitch() const { return lowest_; }
    int highestPitch() const { return highest_; }
    int lineWidth() const { return lineWidth_; }

    // At least one pixel wide and high enough to be seen, also where the rows are lower.
    QRect noteRect(const TrackEvent &note) const;

private:
    QSize size_;
    Ticks length_;
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
};

// Notes over black; softer ones are darker. Bar lines that would stand too close are thinned out.
QImage drawNotePicture(const Track &track, const NoteLayout &layout, const NotePictureStyle &style);

// One note as it looks while it sounds.
QColor soundingNoteColour(const QColor &noteColour);
