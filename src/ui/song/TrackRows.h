#pragma once

#include "ui/tracks/TrackList.h"

#include <QHash>
#include <QWidget>

class Dialogs;
class EmptyHint;
class InstrumentSetModel;
class QVBoxLayout;
class Settings;
class TrackWidget;

// The track list as a column of rows, one widget a track. It follows the song; what the rows ask for is the business of
// whoever connects to them when they are added. On the interface thread.
class TrackRows : public QWidget
{
    Q_OBJECT

public:
    TrackRows(TrackList &tracks, InstrumentSetModel &instruments, Settings &settings, Dialogs &dialogs,
              QWidget *parent = nullptr);

    TrackWidget *row(const QString &id) const { return rows_.value(id); }
    EmptyHint *hint() const { return hint_; }

signals:
    void rowAdded(const QString &id, TrackWidget *row);
    void draggedTo(int y);                            // a row is being dragged, the mouse is there
    void grown(int top, int bottom);                  // rows have come, which lie there
    void moveRequested(const QString &id, int index); // it was dropped

protected:
    bool event(QEvent *event) override;

private:
    void follow(const SongTracks &before, const SongTracks &after);
    void showAll(const SongTracks &song);
    void removeAbsent(const SongTracks &song);
    void show(const std::shared_ptr<const SongTrack> &track);
    void markChanged();
    void arrange(const SongTracks &song);
    void rememberNew(const SongTracks &before, const SongTracks &after);
    void tellOfNew();
    void chainTabStops(const SongTracks &song);
    void followDrags(const QString &id, const TrackWidget &row);
    int gapAt(int y) const;
    void showDropMark(int gap);

    TrackList &tracks_;
    InstrumentSetModel &instruments_;
    Settings &settings_;
    Dialogs &dialogs_;
    QHash<QString, TrackWidget *> rows_;
    QPair<QString, QString> newRows_; // the first and the last, until they have their places
    QVBoxLayout *column_;
    EmptyHint *hint_;
    QWidget *dropMark_; // where a dragged row would come to lie
};
