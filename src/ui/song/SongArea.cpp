#include "ui/song/SongArea.h"

#include "ui/song/TrackRows.h"
#include "ui/timeline/PositionDisplay.h"
#include "ui/timeline/TimeRuler.h"

#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

namespace {

constexpr int margin = 8; // beside the position

} // namespace

SongArea::SongArea(const TrackList &tracks, TrackRows *rows, QWidget *parent)
    : QWidget(parent), tracks_(tracks), rows_(*rows), strip_(new QWidget(this)), display_(new PositionDisplay(strip_)),
      ruler_(new TimeRuler(strip_)), area_(new QScrollArea(this))
{
    ruler_->setObjectName(QStringLiteral("timeRuler"));
    display_->setObjectName(QStringLiteral("positionDisplay"));
    strip_->setFixedHeight(ruler_->sizeHint().height());
    auto *const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(strip_);
    column->addWidget(area_);
    scrollRows();
    connect(&tracks_, &TrackList::songChanged, this, &SongArea::followSong);
    connect(&rows_, &TrackRows::overviewsMoved, this, &SongArea::align);
    connect(ruler_, &TimeRuler::seek, this, &SongArea::seek);
    followSong();
}

void SongArea::scrollRows()
{
    area_->setObjectName(QStringLiteral("scrTrackArea"));
    area_->setWidgetResizable(true);
    area_->setFrameShape(QFrame::NoFrame);
    area_->setWidget(&rows_);
    connect(&rows_, &TrackRows::draggedTo, this,
            [this](int y) { area_->ensureVisible(area_->horizontalScrollBar()->value(), y, 0, 40); });
    connect(&rows_, &TrackRows::grown, this, [this](int top, int bottom) {
        for (const int y : {bottom, top}) // where there is no room for both, the top
            area_->ensureVisible(area_->horizontalScrollBar()->value(), y, 0, 6);
    });
}

void SongArea::setMeasures(const Measures &measures)
{
    measures_ = measures;
    ruler_->setMeasures(measures);
}

void SongArea::setPosition(Ticks position, qint64 milliseconds)
{
    ruler_->setPosition(position);
    display_->setPosition(position, measures_.at(position), milliseconds);
}

void SongArea::showRow(QWidget *row)
{
    area_->ensureWidgetVisible(row);
}

void SongArea::followSong()
{
    const TimeSpan whole{0, tracks_.commonLength()};
    strip_->setHidden(tracks_.isEmpty());
    ruler_->setSpan(whole);
    rows_.setSpan(whole);
    align();
}

void SongArea::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    align();
}

// The strip's parts to the columns of the rows.
void SongArea::align()
{
    const auto overviews = rows_.overviewRect();
    if (overviews.isEmpty())
        return;
    const auto left = rows_.mapTo(this, overviews.topLeft()).x();
    display_->setGeometry(margin, 0, left - 2 * margin, strip_->height());
    ruler_->setGeometry(left, 0, overviews.width(), strip_->height());
}
