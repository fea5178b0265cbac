#pragma once

#include "core/Measures.h"
#include "ui/timeline/TimeZoom.h"

#include <QWidget>

#include <optional>

class PositionDisplay;
class QAction;
class QScrollArea;
class QScrollBar;
class QSpinBox;
class QToolButton;
class QWheelEvent;
class TimeRuler;
class TrackList;
class TrackRows;

// The rows of a song with what belongs to all of them: above their overviews a ruler, beside that the position, and
// below them a scroll bar as long as less than the whole song is shown. Ctrl and the wheel zoom, Shift and the wheel
// scroll. On the interface thread.
class SongArea : public QWidget
{
    Q_OBJECT

public:
    // Takes the rows; the list outlives it.
    SongArea(const TrackList &tracks, TrackRows *rows, QWidget *parent = nullptr);

    // What the ruler counts.
    void setMeasures(const Measures &measures);
    // In the ruler, and as numbers; what is shown of the song follows a position that runs, when it is to.
    enum class Moves { AsSet, AsPlayed };
    void setPosition(Ticks position, qint64 milliseconds, Moves moves);
    void setLoop(const std::optional<TimeSpan> &loop);
    void setTempoFactor(int percent); // announces nothing
    void setFollowing(bool isFollowing) { isFollowing_ = isFollowing; }
    // Above the dials.
    void addButtons(const QVector<QAction *> &actions);

    const TimeSpan &span() const { return zoom_.span(); }
    void zoomBy(double factor); // around the position, or around the middle when that is not shown
    void showWhole();
    void showRow(QWidget *row);

signals:
    void seek(qint64 ticks);
    void loopChosen(const TimeSpan &loop);
    void tempoFactorChanged(int percent);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void scrollRows();
    void setUpTempo();
    void followSong();
    void showSpan();
    void updateScrollBar();
    void turnPage(Ticks position, Moves moves);
    bool turnWheel(const QWheelEvent &event);
    void align();

    const TrackList &tracks_;
    TrackRows &rows_;
    QWidget *strip_;
    PositionDisplay *display_;
    TimeRuler *ruler_;
    QScrollArea *area_;
    QScrollBar *scrollBar_;
    QVector<QToolButton *> buttons_;
    QSpinBox *tempo_;
    Measures measures_;
    TimeZoom zoom_;
    Ticks position_ = 0;
    bool isFollowing_ = true;
};
