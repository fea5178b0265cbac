#pragma once

#include "core/Measures.h"

#include <QWidget>

class PositionDisplay;
class QScrollArea;
class TimeRuler;
class TrackList;
class TrackRows;

// The rows of a song with what belongs to all of them: above their overviews a ruler, and beside that the position. On
// the interface thread.
class SongArea : public QWidget
{
    Q_OBJECT

public:
    // Takes the rows; the list outlives it.
    SongArea(const TrackList &tracks, TrackRows *rows, QWidget *parent = nullptr);

    // What the ruler counts.
    void setMeasures(const Measures &measures);
    // In the ruler, and as numbers.
    void setPosition(Ticks position, qint64 milliseconds);
    void showRow(QWidget *row);

signals:
    void seek(qint64 ticks);

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void scrollRows();
    void followSong();
    void align();

    const TrackList &tracks_;
    TrackRows &rows_;
    QWidget *strip_;
    PositionDisplay *display_;
    TimeRuler *ruler_;
    QScrollArea *area_;
    Measures measures_;
};
