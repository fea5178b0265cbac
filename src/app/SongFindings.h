#pragma once

#include "app/services/SongChecks.h"
#include "ui/checks/FindingsModel.h"

#include <QObject>

class FindingsPanel;
class QAction;
class QDockWidget;
class QMainWindow;
class TrackRows;
class TrackWidget;

// Shows what is wrong with the window's song: in a panel, and as a mark at each row. On the interface thread.
class SongFindings : public QObject
{
    Q_OBJECT

public:
    SongFindings(QMainWindow &window, SongChecks &checks, TrackRows &rows); // all outlive this

    QAction *toggleAction() const;

signals:
    void placeChosen(const FoundPlace &place);

private:
    void show();
    void showAtRow(const QString &trackId, TrackWidget &row) const;
    void open(const QString &trackId);

    SongChecks &checks_;
    TrackRows &rows_;
    QDockWidget *dock_;
    FindingsPanel *panel_;
};
