#include "ui/song/TrackRows.h"

#include "ui/song/DragHandle.h"
#include "ui/song/EmptyHint.h"
#include "ui/song/TrackWidget.h"

#include <QEvent>
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
    connect(&tracks_, &TrackList::filesChanged, this, &TrackRows::markChanged);
    connect(&tracks_, &TrackList::selectionChanged, this, [this](const QString &id, bool isSelected) {
        if (auto *const selected = row(id))
            selected->setSelected(isSelected);
    });
}

void TrackRows::follow(const SongTracks &before, const SongTracks &after)
{
    const auto hasSameId = [](const auto &a, const auto &b) { return a->id == b->id; };
    const bool isRearranged = !std::equal(before.begin(), before.end(), after.begin(), after.end(), hasSameId);
    if (isRearranged)
        setUpdatesEnabled(false); // enabling them paints all rows
    showAll(after);
    if (isRearranged)
        setUpdatesEnabled(true);
    rememberNew(before, after);
}

void TrackRows::showAll(const SongTracks &song)
{
    removeAbsent(song);
    for (const auto &track : song)
        show(track);
    arrange(song);
    const auto length = tracks_.commonLength();
    for (auto *const each : std::as_const(rows_))
        each->setCommonLength(length);
    markChanged();
    hint_->setVisible(song.isEmpty());
}

void TrackRows::rememberNew(const SongTracks &before, const SongTracks &after)
{
    QSet<QString> known;
    for (const auto &track : before)
        known.insert(track->id);
    const auto isNew = [&](const auto &track) { return !known.contains(track->id); };
    const auto first = std::find_if(after.begin(), after.end(), isNew);
    if (first == after.end())
        return;
    const auto last = std::find_if(after.rbegin(), after.rend(), isNew);
    newRows_ = {(*first)->id, (*last)->id};
}

// The column shows new rows one by one, and grows with them.
bool TrackRows::event(QEvent *event)
{
    const bool isHandled = QWidget::event(event);
    if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::Resize)
        tellOfNew();
    return isHandled;
}

void TrackRows::tellOfNew()
{
    const auto *const first = row(newRows_.first);
    const auto *const last = row(newRows_.second);
    if (!first || !last || last->isHidden() || column_->minimumSize().height() > height())
        return;
    newRows_ = {};
    emit grown(first->y(), last->geometry().bottom());
}

void TrackRows::markChanged()
{
    for (auto each = rows_.begin(); each != rows_.end(); ++each)
        (*each)->setDiffersFromFile(!tracks_.filePath(each.key()).isEmpty() && tracks_.isUnsaved(each.key()));
}

void TrackRows::removeAbsent(const SongTracks &song)
{
    QSet<QString> present;
    for (const auto &track : song)
        present.insert(track->id);
    for (auto each = rows_.begin(); each != rows_.end();) {
        if (present.contains(each.key())) {
            ++each;
            continue;
        }
        auto *const absent = *each;
        column_->removeWidget(absent);
        absent->hide();
        absent->deleteLater(); // it may be the sender of what removes it
        each = rows_.erase(each);
    }
}

void TrackRows::show(const std::shared_ptr<const SongTrack> &track)
{
    auto *&shown = rows_[track->id];
    if (shown) {
        if (shown->shown() != track)
            shown->setTrack(track);
        return;
    }
    shown = new TrackWidget(track, instruments_, settings_, dialogs_, this);
    shown->setSelected(tracks_.isSelected(track->id));
    followDrags(track->id, *shown);
    emit rowAdded(track->id, shown);
}

void TrackRows::arrange(const SongTracks &song)
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
void TrackRows::chainTabStops(const SongTracks &song)
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
