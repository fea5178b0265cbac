#include "ui/song/TrackRows.h"

#include "ui/song/DragHandle.h"
#include "ui/song/EmptyHint.h"
#include "ui/song/TrackWidget.h"

#include <QVBoxLayout>

#include <algorithm>
#include <utility>

TrackRows::TrackRows(TrackList &tracks, InstrumentSetModel &instruments, Settings &settings, Dialogs &dialogs,
                     QWidget *parent)
    : QWidget(parent), tracks_(tracks), instruments_(instruments), settings_(settings), dialogs_(dialogs),
      column_(new QVBoxLayout(this)), hint_(new EmptyHint), dropMark_(new QWidget(this))
{
    setObjectName(QStringLiteral("scrollAreaWidgetContents"));
    column_->setContentsMargins(6, 6, 6, 6);
    column_->setSpacing(4);
    column_->addWidget(hint_, 1);
    column_->addStretch(0);
    dropMark_->setObjectName(QStringLiteral("dropMark"));
    dropMark_->setAttribute(Qt::WA_TransparentForMouseEvents);
    dropMark_->setAutoFillBackground(true);
    dropMark_->setBackgroundRole(QPalette::Highlight);
    dropMark_->hide();
    connect(&tracks_, &TrackList::songChanged, this, &TrackRows::follow);
    connect(&tracks_, &TrackList::selectionChanged, this, [this](const QString &id, bool isSelected) {
        if (auto *const selected = row(id))
            selected->setSelected(isSelected);
    });
}

void TrackRows::follow(const Song &, const Song &after)
{
    setUpdatesEnabled(false);
    removeAbsent(after);
    for (const auto &track : after)
        show(track);
    arrange(after);
    const auto length = tracks_.commonLength();
    for (const auto &each : std::as_const(rows_))
        each.widget->setCommonLength(length);
    hint_->setVisible(after.isEmpty());
    setUpdatesEnabled(true);
}

void TrackRows::removeAbsent(const Song &song)
{
    QSet<QString> present;
    for (const auto &track : song)
        present.insert(track->id);
    for (auto each = rows_.begin(); each != rows_.end();) {
        if (present.contains(each.key())) {
            ++each;
            continue;
        }
        column_->removeWidget(each->widget);
        each->widget->hide();
        each->widget->deleteLater(); // it may be the sender of what removes it
        each = rows_.erase(each);
    }
}

void TrackRows::show(const std::shared_ptr<const SongTrack> &track)
{
    auto &shown = rows_[track->id];
    if (shown.track == track)
        return;
    const auto previous = std::exchange(shown.track, track);
    const bool isNew = !shown.widget;
    if (isNew)
        shown.widget = new TrackWidget(tracks_.trackWithPath(track->id), instruments_, settings_, dialogs_);
    else if (previous->track != track->track)
        shown.widget->setTrack(tracks_.trackWithPath(track->id));
    auto &widget = *shown.widget;
    widget.setInstrumentName(track->instrument);
    widget.setMuted(track->isMuted);
    widget.setVolumePercent(track->volume);
    widget.setPanPercent(track->pan);
    if (isNew) {
        widget.setSelected(tracks_.isSelected(track->id));
        followDrags(track->id, widget);
        emit rowAdded(track->id, &widget);
    }
}

void TrackRows::arrange(const Song &song)
{
    bool isMoved = false;
    for (int index = 0; index < song.size(); ++index) {
        auto *const widget = row(song[index]->id);
        const int place = index + 1; // below the hint
        if (column_->itemAt(place)->widget() != widget) {
            column_->removeWidget(widget);
            column_->insertWidget(place, widget);
            isMoved = true;
        }
    }
    if (isMoved)
        chainTabStops(song);
}

// Tab goes through the rows as they lie, not as they were made.
void TrackRows::chainTabStops(const Song &song)
{
    QWidget *previous = nullptr;
    for (const auto &track : song) {
        for (auto *const stop : row(track->id)->tabStops()) {
            setTabOrder(previous, stop);
            previous = stop;
        }
    }
}

void TrackRows::followDrags(const QString &id, const TrackWidget &row)
{
    const auto *const handle = row.dragHandle();
    connect(handle, &DragHandle::dragged, this, [this](const QPoint &position) {
        const auto y = mapFromGlobal(position).y();
        showDropMark(gapAt(y));
        emit draggedTo(y);
    });
    connect(handle, &DragHandle::dragCancelled, dropMark_, &QWidget::hide);
    connect(handle, &DragHandle::dropped, this, [=, this](const QPoint &position) {
        dropMark_->hide();
        const auto gap = gapAt(mapFromGlobal(position).y());
        const auto from = int(tracks_.ids().indexOf(id));
        emit moveRequested(id, gap > from ? gap - 1 : gap); // the row leaves a gap of its own
    });
}

// The number of rows that lie above, by their middles.
int TrackRows::gapAt(int y) const
{
    const auto &song = tracks_.song();
    return int(std::count_if(song.begin(), song.end(),
                             [&](const auto &track) { return row(track->id)->geometry().center().y() < y; }));
}

void TrackRows::showDropMark(int gap)
{
    const auto ids = tracks_.ids();
    const auto spacing = column_->spacing();
    const auto y = gap < ids.size() ? row(ids[gap])->y() - spacing : row(ids.last())->geometry().bottom() + 1;
    dropMark_->setGeometry(0, y, width(), spacing);
    dropMark_->raise();
    dropMark_->show();
}
