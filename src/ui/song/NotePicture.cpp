#include "ui/song/NotePicture.h"

#include "core/Measures.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr int fewestPitches = 24;
constexpr double smallestNoteHeight = 3.0; // logical pixels
constexpr int closestMeasureLines = 8;     // line widths

constexpr QRgb octaveLineColour = qRgb(0x2A, 0x2E, 0x36);
constexpr QRgb measureLineColour = qRgb(0x3C, 0x42, 0x4C);

QRgb mix(const QColor &a, const QColor &b, double share)
{
    const auto channel = [share](int from, int to) { return int(std::lround(from + (to - from) * share)); };
    return qRgb(channel(a.red(), b.red()), channel(a.green(), b.green()), channel(a.blue(), b.blue()));
}

// Far faster than a painter for tens of thousands of small rectangles.
void fill(QImage &image, const QRect &rect, QRgb colour)
{
    const auto visible = rect & image.rect();
    for (int y = visible.top(); y <= visible.bottom(); ++y) {
        auto *const line = reinterpret_cast<QRgb *>(image.scanLine(y));
        std::fill(line + visible.left(), line + visible.right() + 1, colour);
    }
}

void drawOctaveLines(QImage &image, const NoteLayout &layout)
{
    for (int pitch = layout.lowestPitch(); pitch <= layout.highestPitch(); ++pitch) {
        if (pitch % 12 == 0) // below each C
            fill(image, QRect(0, layout.y(pitch - 1), image.width(), layout.lineWidth()), octaveLineColour);
    }
}

class MeasureLines
{
public:
    MeasureLines(QImage &image, const NoteLayout &layout) : image_(image), layout_(layout) {}

    // The lines of one metre from the tick of its first measure to another. Every one, or every second, fourth, …
    void draw(Ticks from, Ticks to, Ticks measure)
    {
        if (measure <= 0 || from >= to)
            return;
        const double closest = closestMeasureLines * layout_.lineWidth();
        auto step = measure;
        while (step < to - from && step < layout_.ticksIn(closest))
            step *= 2;
        const auto hidden = std::max(Ticks(0), layout_.span().begin - from) / step;
        const auto last = std::min(to, layout_.span().end());
        for (auto tick = from + hidden * step; tick < last; tick += step) {
            const double x = layout_.x(tick);
            if (tick > 0 && x >= 0 && x - last_ >= closest) {
                fill(image_, QRect(int(x), 0, layout_.lineWidth(), image_.height()), measureLineColour);
                last_ = x;
            }
        }
    }

private:
    QImage &image_;
    const NoteLayout &layout_;
    double last_ = -std::numeric_limits<double>::max();
};

void drawMeasureLines(QImage &image, const Track &track, const NoteLayout &layout)
{
    MeasureLines lines(image, layout);
    const Measures measures(track);
    for (const auto &section : measures.sections()) {
        if (section.hasMetre)
            lines.draw(section.start, section.end, section.measure);
    }
}

void drawShadow(QImage &image, const Track &shadow, const NoteLayout &layout, const QColor &noteColour)
{
    const auto grey = qGray(noteColour.rgb());
    const auto colour = mix(Qt::black, QColor(grey, grey, grey), 0.55);
    for (const auto &event : shadow.events()) {
        if (event.isNote() && layout.shows(event))
            fill(image, layout.noteRect(event), colour);
    }
}

} // namespace

NoteLayout::NoteLayout(const Track &track, const TimeSpan &span, QSize pixels, double ratio)
    : size_(pixels), span_(span), smallestHeight_(std::max(1, int(std::lround(smallestNoteHeight * ratio)))),
      lineWidth_(std::max(1, int(ratio)))
{
    for (const auto &event : track.events()) {
        if (event.isNote()) {
            lowest_ = std::min(lowest_, int(std::min(event.pitch(), 127U)));
            highest_ = std::max(highest_, int(std::min(event.pitch(), 127U)));
        }
    }
    if (lowest_ > highest_)
        lowest_ = highest_ = 60;
    --lowest_; // room above and below
    ++highest_;
    const int missing = std::max(0, fewestPitches - (highest_ - lowest_ + 1));
    lowest_ -= missing / 2;
    highest_ += missing - missing / 2;
}

// One that begins where the span ends is there, as is one without a length where it begins.
bool NoteLayout::shows(const TrackEvent &note) const
{
    return note.start() <= span_.end() && (note.end() > span_.begin || note.start() >= span_.begin);
}

int NoteLayout::y(int pitch) const
{
    return int(std::floor(double(highest_ - pitch) * size_.height() / (highest_ - lowest_ + 1)));
}

QRect NoteLayout::noteRect(const TrackEvent &note) const
{
    const double width = size_.width();
    const int left = int(std::clamp(x(note.start()), 0.0, std::max(0.0, width - 1.0)));
    const int right = int(std::clamp(x(note.end()), 0.0, width));
    const int pitch = int(std::min(note.pitch(), 127U));
    const int top = y(pitch);
    const int bottom = y(pitch - 1);
    // A gap between neighbours, as soon as there is room for it.
    const int gapX = right - left >= 4 ? 1 : 0;
    const int gapY = bottom - top > smallestHeight_ ? 1 : 0;
    const int height = std::max(smallestHeight_, bottom - top - gapY);
    return {left, std::min(top, size_.height() - height), std::max(1, right - left - gapX), height};
}

QColor soundingNoteColour(const QColor &noteColour)
{
    return QColor(mix(noteColour, Qt::white, 0.8));
}

QImage drawNotePicture(const Track &track, const NoteLayout &layout, const NotePictureStyle &style)
{
    QImage image(layout.size(), QImage::Format_RGB32);
    if (image.isNull())
        return image;
    image.fill(Qt::black);
    if (style.drawsOctaveLines)
        drawOctaveLines(image, layout);
    if (style.drawsMeasureLines)
        drawMeasureLines(image, track, layout);
    if (style.shadow)
        drawShadow(image, *style.shadow, layout, style.noteColour);
    for (const auto &event : track.events()) {
        if (!event.isNote() || !layout.shows(event))
            continue;
        const auto note = layout.noteRect(event);
        const double loudness = std::clamp(double(event.velocity()), 0.0, 1.0);
        fill(image, note, mix(Qt::black, style.noteColour, 0.5 + 0.5 * loudness));
        if (note.width() >= 4 && event.start() >= layout.span().begin) // where a note begins in a run of equal pitches
            fill(image, QRect(note.topLeft(), QSize(1, note.height())), mix(style.noteColour, Qt::white, 0.45));
    }
    return image;
}
