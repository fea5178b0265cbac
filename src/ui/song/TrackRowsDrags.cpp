// Rows that are dragged: up and down the list by their grips, which tell where the mouse is, and anywhere as a drag of
// the desktop, which begins beside the controls of a row or where a grip leaves the window.
#include "ui/song/DragHandle.h"
#include "ui/song/TrackRows.h"
#include "ui/song/TrackWidget.h"

#include <QDrag>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace {

int yOf(const QDropEvent &event)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    return event.pos().y();
#else
    return event.position().toPoint().y();
#endif
}

} // namespace

void TrackRows::followDrags(const QString &id, const TrackWidget &row)
{
    auto *const handle = row.dragHandle();
    connect(&row, &TrackWidget::dragged, this, [=, this] { dragOut(id); });
    connect(handle, &DragHandle::dragged, this, [=, this](const QPoint &position) {
        if (window()->frameGeometry().contains(position) || !dragData_)
            return showDragAt(mapFromGlobal(position).y());
        handle->giveUp();
        dragOut(id);
    });
    connect(handle, &DragHandle::dragCancelled, dropMark_, &QWidget::hide);
    connect(handle, &DragHandle::dropped, this,
            [=, this](const QPoint &position) { dropAt(id, mapFromGlobal(position).y()); });
}

// Returns when it has been dropped.
void TrackRows::dragOut(const QString &id)
{
    if (!dragData_ || !draggedOut_.isEmpty())
        return;
    draggedOut_ = id;
    auto *const drag = new QDrag(this); // deletes itself
    drag->setMimeData(dragData_(id).release());
    drag->exec(Qt::CopyAction);
    draggedOut_.clear();
    dropMark_->hide();
}

void TrackRows::dragEnterEvent(QDragEnterEvent *event)
{
    if (event->source() == this)
        event->acceptProposedAction();
}

void TrackRows::dragMoveEvent(QDragMoveEvent *event)
{
    showDragAt(yOf(*event));
    event->acceptProposedAction();
}

void TrackRows::dragLeaveEvent(QDragLeaveEvent *)
{
    dropMark_->hide();
}

void TrackRows::dropEvent(QDropEvent *event)
{
    event->acceptProposedAction();
    dropAt(draggedOut_, yOf(*event));
}

void TrackRows::showDragAt(int y)
{
    showDropMark(gapAt(y));
    emit draggedTo(y);
}

void TrackRows::dropAt(const QString &id, int y)
{
    dropMark_->hide();
    const auto gap = gapAt(y);
    const auto from = int(tracks_.ids().indexOf(id));
    emit moveRequested(id, gap > from ? gap - 1 : gap); // the row leaves a gap of its own
}

// The number of rows that lie above, by their middles.
int TrackRows::gapAt(int y) const
{
    const auto &song = tracks_.song();
    return int(std::count_if(song.begin(), song.end(), [&](const auto &track) {
        const auto *const above = row(track->id);
        return above && above->geometry().center().y() < y;
    }));
}

void TrackRows::showDropMark(int gap)
{
    const auto ids = tracks_.ids();
    const auto spacing = column_->spacing();
    const auto *const below = row(ids.value(gap));
    const auto *const last = row(ids.last());
    if (!below && !last)
        return;
    const auto y = below ? below->y() - spacing : last->geometry().bottom() + 1;
    dropMark_->setGeometry(0, y, width(), spacing);
    dropMark_->raise();
    dropMark_->show();
}
