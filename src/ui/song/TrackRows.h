#pragma once

#include "ui/timeline/TimeSpan.h"
#include "ui/tracks/TrackList.h"

#include <QBasicTimer>
#include <QHash>
#include <QWidget>

#include <functional>
#include <memory>

class Dialogs;
class EmptyHint;
class InstrumentSetModel;
class QMimeData;
class QSpacerItem;
class QVBoxLayout;
class Settings;
class TrackWidget;

// The track list as a column of rows, one widget a track. It follows the song; what the rows ask for is the business of
// whoever connects to them when they are added. As many rows as a window shows follow at once, the others a few at a
// time when the thread has nothing else to do. On the interface thread.
class TrackRows : public QWidget
{
    Q_OBJECT

public:
    TrackRows(TrackList &tracks, InstrumentSetModel &instruments, Settings &settings, Dialogs &dialogs,
              QWidget *parent = nullptr);

    // Null for a track whose row is still to come.
    TrackWidget *row(const QString &id) const { return rows_.value(id); }
    EmptyHint *hint() const { return hint_; }

    // The row that has the keys, or else the first; null without rows.
    TrackWidget *current() const;
    // Gives the keys to the same control of the row so many further down; stays at the ends.
    TrackWidget *goBy(int rows);

    // What all overviews show of the song, and where the line in them stands; of rows that are still to come, too.
    void setSpan(const TimeSpan &span);
    void setPosition(Ticks position);
    // What other programs get of a row that is dragged to them.
    using DragData = std::function<std::unique_ptr<QMimeData>(const QString &id)>;
    void setDragData(const DragData &dataOf) { dragData_ = dataOf; }
    void setStandIn(const QString &instrument);
    void forgetClips();
    // Where the overviews lie from left to right; empty without rows.
    QRect overviewRect() const;

signals:
    void rowAdded(const QString &id, TrackWidget *row);
    void draggedTo(int y);           // a row is being dragged, the mouse is there
    void grown(int top, int bottom); // rows have come, which lie there
    void overviewsMoved();
    void moveRequested(const QString &id, int index); // it was dropped

protected:
    bool event(QEvent *event) override;
    void timerEvent(QTimerEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void follow(const SongTracks &before, const SongTracks &after);
    void showAll(const SongTracks &song);
    void removeAbsent(const SongTracks &song);
    void add(int most);
    void make(const std::shared_ptr<const SongTrack> &track);
    void reserveRoom();
    void select(const QString &id, bool isSelected);
    void catchUpSelections(int most);
    bool isComplete() const { return rows_.size() == tracks_.song().size(); }
    void mark(const QString &id, TrackWidget &row) const;
    void markChanged();
    void showSolos();
    void arrange(const SongTracks &song);
    void rememberNew(const SongTracks &before, const SongTracks &after);
    void tellOfNew();
    void chainTabStops(const SongTracks &song);
    void followDrags(const QString &id, const TrackWidget &row);
    void dragOut(const QString &id);
    void showDragAt(int y);
    void dropAt(const QString &id, int y);
    int gapAt(int y) const;
    void showDropMark(int gap);

    TrackList &tracks_;
    InstrumentSetModel &instruments_;
    Settings &settings_;
    Dialogs &dialogs_;
    QHash<QString, TrackWidget *> rows_;
    TimeSpan span_;
    Ticks position_ = 0;
    QString standIn_;                 // for instruments that are missing
    QPair<QString, QString> newRows_; // the first and the last, until they have their places
    QStringList toSelect_;            // rows that show an older selection
    int selectedAtOnce_ = 0;          // since the thread was idle
    QBasicTimer catchingUp_;
    QVBoxLayout *column_;
    QSpacerItem *comingRows_; // their room, below the others
    EmptyHint *hint_;
    DragData dragData_;
    QString draggedOut_; // the row of a drag that other programs may take
    QWidget *dropMark_;  // where a dragged row would come to lie
};
