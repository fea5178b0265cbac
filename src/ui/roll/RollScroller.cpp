#include "ui/roll/RollScroller.h"

namespace {

constexpr qreal pageTurnAt = 0.9; // of the view's width
constexpr qreal pageBeginsAt = 0.1;
constexpr int lastScroll = 1 << 30;

void scrollBy(QScrollBar &bar, int distance)
{
    bar.setValue(bar.value() + distance);
}

} // namespace

RollScroller::RollScroller(const RollState &state, const QWidget &canvas, QScrollBar &horizontal, QScrollBar &vertical)
    : state_(state), canvas_(canvas), horizontal_(horizontal), vertical_(vertical)
{
}

void RollScroller::updateRanges()
{
    const auto &geometry = state_.geometry;
    auto last = std::max(state_.length, state_.cursor);
    for (const auto &ghost : state_.ghosts)
        last = std::max(last, ghost.end());
    horizontal_.setRange(0, geometry.contentWidth(state_.measures.at(last).end));
    horizontal_.setPageStep(canvas_.width());
    horizontal_.setSingleStep(geometry.rowHeight() * 2);
    vertical_.setRange(0, std::max(0, geometry.contentHeight() - canvas_.height()));
    vertical_.setPageStep(canvas_.height());
    vertical_.setSingleStep(geometry.rowHeight());
}

void RollScroller::showTick(Ticks tick)
{
    const auto x = int(state_.geometry.x(tick));
    const auto margin = canvas_.width() / 8;
    if (x < 0)
        scrollBy(horizontal_, x - margin);
    else if (x > canvas_.width() - margin)
        scrollBy(horizontal_, x - canvas_.width() + margin);
}

void RollScroller::showPitch(int pitch)
{
    const auto row = state_.geometry.rowHeight();
    const auto top = int(state_.geometry.top(pitch));
    if (top < 0)
        scrollBy(vertical_, top - row);
    else if (top + row > canvas_.height())
        scrollBy(vertical_, top + 2 * row - canvas_.height());
}

void RollScroller::showNote(const RollNote &note)
{
    showTick(note.start);
    showPitch(note.pitch);
}

void RollScroller::showPitchInMiddle(int pitch)
{
    scrollBy(vertical_, int(state_.geometry.top(pitch)) - canvas_.height() / 2);
}

void RollScroller::showMiddleOfNotes()
{
    qint64 sum = 0;
    for (int note = 0; note < state_.notes.count(); ++note)
        sum += state_.notes[note].pitch;
    showPitchInMiddle(int(sum / state_.notes.count()));
}

void RollScroller::follow(Ticks tick)
{
    const auto x = state_.geometry.x(tick);
    const auto width = canvas_.width();
    if (x < 0 || x > width * pageTurnAt)
        scrollBy(horizontal_, int(x - width * pageBeginsAt));
}

void RollScroller::pan(const QPoint &distance)
{
    scrollBy(horizontal_, -distance.x());
    scrollBy(vertical_, -distance.y());
}

void RollScroller::keepInPlace(const QPoint &anchor, const RollGeometry &before)
{
    const auto &geometry = state_.geometry;
    const auto stretched = [](int scroll, int at, qreal factor) { return qRound((scroll + at) * factor) - at; };
    const auto x = stretched(before.scroll().x(), anchor.x(), geometry.pixelsPerTick() / before.pixelsPerTick());
    const auto y = stretched(before.scroll().y(), anchor.y(), qreal(geometry.rowHeight()) / before.rowHeight());
    updateRanges();
    horizontal_.setValue(x);
    vertical_.setValue(y);
}

void RollScroller::chase(const QPoint &mouse)
{
    const auto view = canvas_.rect();
    const auto beyond = [](int at, int last) { return at < 0 ? at : std::max(0, at - last); };
    const auto x = horizontal_.value() + beyond(mouse.x(), view.right()) / 2;
    horizontal_.setMaximum(std::max(horizontal_.maximum(), std::min(x, lastScroll)));
    horizontal_.setValue(x);
    scrollBy(vertical_, beyond(mouse.y(), view.bottom()) / 4);
}
