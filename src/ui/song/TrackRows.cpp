#include "ui/song/TrackRows.h"

#include "ui/song/EmptyHint.h"
#include "ui/song/TrackWidget.h"

#include <QEvent>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace {

// About a millisecond each.
constexpr int rowsAtOnce = 10;
constexpr int rowsAtATime = 3;

} // namespace

TrackRows::TrackRows(TrackList &tracks, InstrumentSetModel &instruments, Settings &settings, Dialogs &dialogs,
                     QWidget *parent)
    : QWidget(parent), tracks_(tracks), instruments_(instruments), settings_(settings), dialogs_(dialogs),
      column_(new QVBoxLayout(this)), comingRows_(new QSpacerItem(0, 0)), hint_(new EmptyHint),
      dropMark_(new QWidget(this))
{
    setObjectName(QStringLiteral("scrollAreaWidgetContents"));
    column_->setContentsMargins(6, 6, 6, 6);
    column_->setSpacing(4);
    column_->addWidget(hint_, 1);
    column_->addSpacerItem(comingRows_);
    column_->addStretch(0);
    dropMark_->setObjectName(QStringLiteral("dropMark"));
    dropMark_->setAttribute(Qt::WA_TransparentForMouseEvents);
    dropMark_->setAutoFillBackground(true);
    dropMark_->setBackgroundRole(QPalette::Highlight);
    dropMark_->hide();
    setAcceptDrops(true); // of rows
    connect(&tracks_, &TrackList::songChanged, this, &TrackRows::follow);
    connect(&tracks_, &TrackList::filesChanged, this, &TrackRows::markChanged);
    connect(&tracks_, &TrackList::selectionChanged, this, &TrackRows::select);
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
    for (const auto &track : song) {
        auto *const shown = row(track->id);
        if (shown && shown->shown() != track)
            shown->setTrack(track);
    }
    add(rowsAtOnce);
    markChanged();
    showSolos();
    hint_->setVisible(song.isEmpty());
}

void TrackRows::setSpan(const TimeSpan &span)
{
    span_ = span;
    for (auto *const each : std::as_const(rows_))
        each->setSpan(span);
}

void TrackRows::setStandIn(const QString &instrument)
{
    standIn_ = instrument;
    for (auto *const each : std::as_const(rows_))
        each->setStandIn(instrument);
}

void TrackRows::forgetClips()
{
    for (auto *const each : std::as_const(rows_))
        each->forgetClips();
}

void TrackRows::showSolos()
{
    const auto soloed = tracks_.soloed();
    for (auto each = rows_.begin(); each != rows_.end(); ++each)
        (*each)->setSoloed(soloed.contains(each.key()));
}

void TrackRows::setPosition(Ticks position)
{
    position_ = position;
    for (auto *const each : std::as_const(rows_))
        each->setPosition(position);
}

QRect TrackRows::overviewRect() const
{
    const auto *const first = row(tracks_.ids().value(0));
    return first ? first->overviewRect().translated(first->pos()) : QRect();
}

void TrackRows::add(int most)
{
    const auto &song = tracks_.song();
    for (auto track = song.begin(); track != song.end() && most > 0; ++track) {
        if (!row((*track)->id)) {
            make(*track);
            --most;
        }
    }
    arrange(song);
    reserveRoom();
    if (!isComplete())
        catchingUp_.start(0, this);
}

void TrackRows::reserveRoom()
{
    const auto missing = int(tracks_.song().size() - rows_.size());
    const int rowHeight = rows_.isEmpty() ? 0 : (*rows_.begin())->sizeHint().height() + column_->spacing();
    if (comingRows_->sizeHint().height() == missing * rowHeight)
        return;
    comingRows_->changeSize(0, missing * rowHeight, QSizePolicy::Minimum, QSizePolicy::Fixed);
    column_->invalidate();
}

void TrackRows::timerEvent(QTimerEvent *)
{
    selectedAtOnce_ = 0;
    if (!isComplete())
        add(rowsAtATime);
    else
        catchUpSelections(rowsAtATime);
    if (isComplete() && toSelect_.isEmpty())
        catchingUp_.stop();
}

// Another look of a row takes about a millisecond, too.
void TrackRows::select(const QString &id, bool isSelected)
{
    auto *const selected = row(id);
    if (!selected)
        return;
    if (selectedAtOnce_++ < rowsAtOnce)
        selected->setSelected(isSelected);
    else
        toSelect_.append(id);
    catchingUp_.start(0, this);
}

void TrackRows::catchUpSelections(int most)
{
    for (; most > 0 && !toSelect_.isEmpty(); --most) {
        const auto id = toSelect_.takeFirst();
        if (auto *const selected = row(id))
            selected->setSelected(tracks_.isSelected(id));
    }
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
        mark(each.key(), **each);
}

void TrackRows::mark(const QString &id, TrackWidget &row) const
{
    row.setDiffersFromFile(!tracks_.filePath(id).isEmpty() && tracks_.isUnsaved(id));
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

void TrackRows::make(const std::shared_ptr<const SongTrack> &track)
{
    auto *const made = new TrackWidget(track, instruments_, settings_, dialogs_, this);
    rows_.insert(track->id, made);
    made->setSpan(span_);
    made->setPosition(position_);
    made->setStandIn(standIn_);
    made->setSelected(tracks_.isSelected(track->id));
    mark(track->id, *made);
    made->setSoloed(tracks_.soloed().contains(track->id));
    followDrags(track->id, *made);
    connect(made, &TrackWidget::overviewMoved, this, &TrackRows::overviewsMoved);
    emit rowAdded(track->id, made);
}

void TrackRows::arrange(const SongTracks &song)
{
    bool isMoved = false;
    int place = 0; // the hint's
    for (const auto &track : song) {
        auto *const widget = row(track->id);
        if (widget && column_->itemAt(++place)->widget() != widget) {
            column_->removeWidget(widget);
            column_->insertWidget(place, widget);
            isMoved = true;
        }
    }
    if (isMoved && isComplete())
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
