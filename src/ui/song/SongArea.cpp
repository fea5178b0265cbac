#include "ui/song/SongArea.h"

#include "ui/song/TrackRows.h"
#include "ui/timeline/PositionDisplay.h"
#include "ui/timeline/TimeRuler.h"

#include <QAction>
#include <QGuiApplication>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <cmath>

namespace {

constexpr int margin = 8; // beside the position
constexpr int scrollSteps = 1 << 20;
constexpr double wheelNotch = 120; // as Qt counts
constexpr double scrolledByANotch = 0.1;

} // namespace

SongArea::SongArea(const TrackList &tracks, TrackRows *rows, QWidget *parent)
    : QWidget(parent), tracks_(tracks), rows_(*rows), strip_(new QWidget(this)), display_(new PositionDisplay(strip_)),
      ruler_(new TimeRuler(strip_)), area_(new QScrollArea(this)), scrollBar_(new QScrollBar(Qt::Horizontal, this)),
      tempo_(new QSpinBox(strip_))
{
    ruler_->setObjectName(QStringLiteral("timeRuler"));
    display_->setObjectName(QStringLiteral("positionDisplay"));
    strip_->setFixedHeight(ruler_->sizeHint().height());
    auto *const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(strip_);
    column->addWidget(area_);
    column->addWidget(scrollBar_);
    scrollBar_->setObjectName(QStringLiteral("songScrollBar"));
    scrollBar_->setAccessibleName(tr("What is shown of the song"));
    scrollRows();
    setUpTempo();
    connect(scrollBar_, &QScrollBar::valueChanged, this, [this](int value) {
        zoom_.scrollTo(scaled(zoom_.songLength(), quint64(value), scrollSteps));
        showSpan();
    });
    connect(&tracks_, &TrackList::songChanged, this, &SongArea::followSong);
    connect(&rows_, &TrackRows::overviewsMoved, this, &SongArea::align);
    connect(ruler_, &TimeRuler::seek, this, &SongArea::seek);
    connect(ruler_, &TimeRuler::loopChosen, this, &SongArea::loopChosen);
    followSong();
}

void SongArea::scrollRows()
{
    area_->setObjectName(QStringLiteral("scrTrackArea"));
    area_->setWidgetResizable(true);
    area_->setFrameShape(QFrame::NoFrame);
    area_->setAccessibleName(tr("Tracks"));
    area_->setWidget(&rows_);
    area_->viewport()->installEventFilter(this);
    connect(&rows_, &TrackRows::draggedTo, this,
            [this](int y) { area_->ensureVisible(area_->horizontalScrollBar()->value(), y, 0, 40); });
    connect(&rows_, &TrackRows::grown, this, [this](int top, int bottom) {
        for (const int y : {bottom, top}) // where there is no room for both, the top
            area_->ensureVisible(area_->horizontalScrollBar()->value(), y, 0, 6);
    });
}

void SongArea::setUpTempo()
{
    tempo_->setObjectName(QStringLiteral("tempoFactor"));
    tempo_->setRange(25, 200);
    tempo_->setValue(100);
    tempo_->setSingleStep(5);
    tempo_->setSuffix(tr(" %"));
    tempo_->setKeyboardTracking(false);
    tempo_->setAccessibleName(tr("Tempo"));
    tempo_->setToolTip(tr("How fast the song is played, in percent of its tempo; its pitch stays"));
    connect(tempo_, qOverload<int>(&QSpinBox::valueChanged), this, &SongArea::tempoFactorChanged);
    connect(tempo_, &QSpinBox::editingFinished, tempo_,
            [this] { tempo_->clearFocus(); }); // the keys are the window's again
}

void SongArea::setTempoFactor(int percent)
{
    const QSignalBlocker silent(tempo_);
    tempo_->setValue(percent);
}

void SongArea::setLoop(const std::optional<TimeSpan> &loop)
{
    ruler_->setLoop(loop);
}

void SongArea::setMeasures(const Measures &measures)
{
    measures_ = measures;
    ruler_->setMeasures(measures);
}

void SongArea::setPosition(Ticks position, qint64 milliseconds, Moves moves)
{
    if (position != position_)
        turnPage(position, moves);
    position_ = position;
    ruler_->setPosition(position);
    display_->setPosition(position, measures_.at(position), milliseconds);
}

void SongArea::showRow(QWidget *row)
{
    area_->ensureWidgetVisible(row);
}

// Not under a mouse that sets the position.
void SongArea::turnPage(Ticks position, Moves moves)
{
    if (QGuiApplication::mouseButtons() != Qt::NoButton)
        return;
    const auto before = zoom_.span();
    if (moves == Moves::AsSet)
        zoom_.reveal(position);
    else if (isFollowing_)
        zoom_.follow(position);
    if (zoom_.span() != before)
        showSpan();
}

void SongArea::addButtons(const QVector<QAction *> &actions)
{
    for (auto *const action : actions) {
        auto *const button = new QToolButton(strip_);
        button->setDefaultAction(action);
        button->setIconSize({20, 20});
        button->setAutoRaise(true);
        buttons_.append(button);
    }
    align();
}

void SongArea::zoomBy(double factor)
{
    const auto place = zoom_.span().x(position_, 1);
    zoom_.zoom(factor, place >= 0 && place <= 1 ? place : 0.5);
    showSpan();
}

void SongArea::showWhole()
{
    zoom_.showWhole();
    showSpan();
}

void SongArea::followSong()
{
    zoom_.setSongLength(tracks_.commonLength());
    strip_->setHidden(tracks_.isEmpty());
    showSpan();
    align();
}

void SongArea::showSpan()
{
    ruler_->setSpan(zoom_.span());
    rows_.setSpan(zoom_.span());
    updateScrollBar();
}

// Its range is that of an int, which ticks are not.
void SongArea::updateScrollBar()
{
    const QSignalBlocker silent(scrollBar_);
    const auto length = zoom_.songLength();
    const auto steps = [&](Ticks ticks) {
        return length <= 0 ? 0 : int(std::lround(double(ticks) / double(length) * scrollSteps));
    };
    scrollBar_->setRange(0, scrollSteps - steps(zoom_.span().length));
    scrollBar_->setPageStep(steps(zoom_.span().length));
    scrollBar_->setSingleStep(std::max(1, steps(zoom_.span().length) / 10));
    scrollBar_->setValue(steps(zoom_.span().begin));
    scrollBar_->setHidden(zoom_.isWhole());
}

bool SongArea::eventFilter(QObject *watched, QEvent *event)
{
    const bool isTurned = event->type() == QEvent::Wheel && turnWheel(*static_cast<QWheelEvent *>(event));
    return isTurned || QWidget::eventFilter(watched, event);
}

void SongArea::wheelEvent(QWheelEvent *event)
{
    event->setAccepted(turnWheel(*event));
}

// What is under the mouse stays there.
bool SongArea::turnWheel(const QWheelEvent &event)
{
    const auto delta = event.angleDelta();
    const bool isSideways = delta.x() != 0 || event.modifiers() & Qt::ShiftModifier;
    if (event.modifiers() & Qt::ControlModifier) {
        const auto at = ruler_->mapFromGlobal(event.globalPosition().toPoint()).x();
        zoom_.zoom(std::exp2(delta.y() / (2 * wheelNotch)), std::clamp(double(at) / ruler_->width(), 0.0, 1.0));
    } else if (isSideways) {
        const auto notches = (delta.x() != 0 ? delta.x() : delta.y()) / wheelNotch;
        zoom_.scrollTo(zoom_.span().begin - Ticks(notches * scrolledByANotch * double(zoom_.span().length)));
    } else {
        return false;
    }
    showSpan();
    return true;
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
    const auto tempoSize = tempo_->sizeHint();
    const auto tempoLeft = left - margin - tempoSize.width();
    display_->setGeometry(margin, 0, tempoLeft - 2 * margin, strip_->height());
    tempo_->setGeometry({{tempoLeft, (strip_->height() - tempoSize.height()) / 2}, tempoSize});
    ruler_->setGeometry(left, 0, overviews.width(), strip_->height());
    auto right = left + overviews.width() + margin;
    for (auto *const button : std::as_const(buttons_)) {
        const auto size = button->sizeHint();
        button->setGeometry({{right, (strip_->height() - size.height()) / 2}, size});
        right += size.width();
    }
}
