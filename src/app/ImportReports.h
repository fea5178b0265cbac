#pragma once

#include "song/SongReader.h"
#include "ui/report/ImportReportModel.h"

#include <QLabel>
#include <QObject>

class ImportReportPanel;
class QAction;
class QDockWidget;
class QMainWindow;
class QStatusBar;

// Says after each import what it lost: one line in the status bar, and a panel with all of it. On the interface thread.
class ImportReports : public QObject
{
    Q_OBJECT

public:
    explicit ImportReports(QMainWindow &window); // which outlives this

    QAction *toggleAction() const;

    // The tracks that the song's tracks became.
    void show(const ReadSong &song, const QStringList &trackIds);
    void clear();

signals:
    void placeChosen(const ReportedPlace &place);
    void editRequested(const ReportedPlace &place);

private:
    void showLine(const QString &line);

    QStatusBar &status_;
    QDockWidget *dock_;
    ImportReportPanel *panel_;
    QLabel *line_;
};
