#include "ui/roll/RollPainter.h"

#include "core/AbcParser.h"

namespace {

constexpr qreal leastLineDistance = 6;
constexpr qreal leastSnapDistance = 9;
constexpr int leastNamedRow = 14;
constexpr qreal leastNamedWidth = 34;
constexpr int leastLinedRow = 8;

using Look = RollNoteBrush::Look;

} // namespace

void RollPainter::setFont(const QFont &font)
{
    font_ = font;
    names_.fill({});
}

void RollPainter::paint(QPainter &painter, const RollState &state, const RollDrag &drag, const QRect &clip)
{
    const auto &geometry = state.geometry;
    painter_ = &painter;
    state_ = &state;
    drag_ = &drag;
    painter.fillRect(clip, state.colours.ruler); // below the rows
    clip_ = QRectF(clip).intersected(
        {qreal(clip.left()), qreal(-geometry.scroll().y()), qreal(clip.width()), qreal(geometry.contentHeight())});
    if (clip_.isEmpty())
        return;
    // A little wider: the lines at positions and the rounding to pixels reach over.
    from_ = geometry.tick(clip_.left() - 2);
    to_ = geometry.tick(clip_.right() + 2) + 1;
    if (namesKeyRow_ != state.keyRow)
        names_.fill({});
    namesKeyRow_ = state.keyRow;
    const qreal inset = geometry.rowHeight() >= leastLinedRow ? geometry.hairline() : 0;
    noteHeight_ = geometry.sharp(geometry.rowHeight() - inset);
    for (auto pitch = RollGeometry::lowestPitch; pitch <= RollGeometry::highestPitch; ++pitch)
        tops_[size_t(pitch)] = geometry.top(pitch);
    brush_.prepare(state.colours, noteHeight_, geometry.devicePixelRatio());

    painter.setFont(font_);
    paintRows();
    paintGrid();
    paintGhosts();
    paintNotes();
    paintDrag();
    paintCaretNotes();
    paintLines();
}

void RollPainter::horizontalLine(qreal y, const QColor &colour)
{
    painter_->fillRect(QRectF(clip_.left(), y, clip_.width(), state_->geometry.hairline()), colour);
}

void RollPainter::verticalLine(Ticks tick, const QColor &colour, qreal width)
{
    const auto x = state_->geometry.x(tick);
    painter_->fillRect(QRectF(x, clip_.top(), state_->geometry.sharp(width), clip_.height()), colour);
}

void RollPainter::paintRows()
{
    const auto &geometry = state_->geometry;
    const auto &colours = state_->colours;
    const auto lowest = geometry.pitch(clip_.bottom());
    QRectF silent; // rows in a run are hatched at once, or the lines would break between them
    for (auto pitch = geometry.pitch(clip_.top()); pitch >= lowest; --pitch) {
        const auto top = geometry.top(pitch);
        const QRectF row(clip_.left(), top, clip_.width(), geometry.bottom(pitch) - top);
        painter_->fillRect(row, RollState::isBlackKey(pitch) ? colours.blackRow : colours.whiteRow);
        if (!isPlayable(pitch))
            painter_->fillRect(row, colours.unplayable);
        if (state_->silent.test(size_t(pitch)) && isPlayable(pitch)) {
            silent |= row;
        } else {
            hatch(silent);
            silent = {};
        }
        if (pitch % 12 == 0)
            horizontalLine(row.bottom() - geometry.hairline(), colours.octaveLine);
        else if (geometry.rowHeight() >= leastLinedRow)
            horizontalLine(row.bottom() - geometry.hairline(), colours.rowLine);
    }
    hatch(silent);
    if (const auto end = geometry.x(state_->length); end < clip_.right())
        painter_->fillRect(clip_.intersected(QRectF(end, clip_.top(), clip_.right() - end, clip_.height())),
                           colours.afterEnd);
}

void RollPainter::hatch(const QRectF &rows)
{
    painter_->setBrushOrigin(-state_->geometry.scroll()); // it scrolls with the rows
    painter_->fillRect(rows, QBrush(state_->colours.silent, Qt::BDiagPattern));
}

void RollPainter::paintGrid()
{
    const auto &geometry = state_->geometry;
    const auto leastDistance = geometry.ticksIn(leastLineDistance);
    const auto snapStep = state_->snap.step();
    const bool showsSnap = snapStep >= geometry.ticksIn(leastSnapDistance);
    state_->measures.forEachIn(from_, to_, leastDistance, [&](const Measure &measure) {
        if (showsSnap)
            paintSteps(measure, snapStep, state_->colours.snapLine);
        if (measure.beat >= leastDistance)
            paintSteps(measure, measure.beat, state_->colours.beatLine);
        verticalLine(measure.start, state_->colours.measureLine, geometry.hairline());
    });
}

void RollPainter::paintSteps(const Measure &measure, Ticks step, const QColor &colour)
{
    const auto first = measure.start + std::max(Ticks(1), (from_ - measure.start) / step) * step;
    for (auto tick = first; tick < std::min(to_, measure.end); tick += step)
        verticalLine(tick, colour, state_->geometry.hairline());
}

void RollPainter::paintGhosts()
{
    for (const auto &ghost : state_->ghosts) {
        brush_.begin(*painter_);
        ghost.forEachIn(from_, to_, [&](int note) { paintNote(ghost[note], Look::Ghost); });
        brush_.end();
    }
}

void RollPainter::paintNotes()
{
    brush_.begin(*painter_);
    const bool isDragged = drag_->changesNotes();
    state_->notes.forEachIn(from_, to_, [&](int note) {
        const bool isSelected = state_->has(note, RollState::Selected);
        auto look = isSelected ? Look::Selected : Look::Plain;
        if (isSelected && isDragged)
            look = Look::Faded;
        else if (state_->has(note, RollState::Sounding))
            look = Look::Sounding;
        paintNote(state_->notes[note], look);
    });
    brush_.end();
}

void RollPainter::paintNote(const RollNote &note, Look look)
{
    if (note.pitch < RollGeometry::lowestPitch || note.pitch > RollGeometry::highestPitch)
        return;
    const auto top = tops_[size_t(note.pitch)];
    if (top + noteHeight_ <= clip_.top() || top >= clip_.bottom())
        return;
    const auto &geometry = state_->geometry;
    const auto left = geometry.x(note.start);
    const QRectF rect(left, top, geometry.x(note.end()) - left, noteHeight_);
    brush_.paint(rect, note.pitch, look);
    if (look != Look::Ghost && geometry.rowHeight() >= leastNamedRow && rect.width() >= leastNamedWidth)
        paintName(rect, note.pitch, brush_.colours(look).text);
}

void RollPainter::paintName(const QRectF &rect, int pitch, const QColor &colour)
{
    auto &name = names_[size_t(pitch)];
    if (name.text().isEmpty()) {
        name = QStaticText(state_->pitchText(pitch));
        name.setTextFormat(Qt::PlainText);
        name.prepare({}, font_);
    }
    painter_->setPen(colour);
    painter_->drawStaticText(QPointF(rect.left() + 5, rect.center().y() - name.size().height() / 2), name);
}

void RollPainter::paintDrag()
{
    const auto &drag = *drag_;
    if (!drag.isRunning())
        return;
    if (drag.kind == RollDrag::Kind::Band) {
        auto fill = state_->colours.band;
        fill.setAlpha(46);
        painter_->fillRect(drag.band, fill);
        painter_->setPen(QPen(state_->colours.band, 1));
        painter_->drawRect(drag.band.adjusted(0.5, 0.5, -0.5, -0.5));
        return;
    }
    brush_.begin(*painter_);
    if (drag.kind == RollDrag::Kind::Draw) {
        paintNote(drag.drawn, Look::Selected);
    } else {
        const bool isResize = drag.kind == RollDrag::Kind::Resize;
        const auto from = isResize ? from_ - std::max(Ticks(0), drag.ticks) : from_ - drag.ticks;
        state_->notes.forEachIn(from, isResize ? to_ : to_ - drag.ticks, [&](int note) {
            if (state_->has(note, RollState::Selected))
                paintNote(drag.applied(state_->notes[note]), Look::Selected);
        });
    }
    brush_.end();
}

void RollPainter::paintCaretNotes()
{
    painter_->setBrush(Qt::NoBrush);
    painter_->setPen(QPen(state_->colours.cursor, 2));
    state_->notes.forEachIn(from_, to_, [&](int note) {
        if (state_->has(note, RollState::AtCaret))
            painter_->drawRect(state_->rect(state_->notes[note]).adjusted(0, 0, -1, -1));
    });
}

void RollPainter::paintLines()
{
    const auto &geometry = state_->geometry;
    verticalLine(state_->cursor, state_->colours.cursor, 1);
    const auto top = geometry.top(state_->cursorPitch);
    const auto height = geometry.bottom(state_->cursorPitch) - top;
    painter_->fillRect(QRectF(geometry.x(state_->cursor), top, 3, height), state_->colours.cursor);
    if (state_->playing)
        verticalLine(*state_->playing, state_->colours.playing, 2);
}
