#pragma once

#include "ui/report/ImportReportModel.h"

#include <QWidget>

class QLabel;
class QTreeView;

// What the last import found, by part and kind. On the interface thread.
class ImportReportPanel : public QWidget
{
    Q_OBJECT

public:
    explicit ImportReportPanel(QWidget *parent = nullptr);

    // line: all of it in words; empty when there is nothing.
    void show(const QString &line, const QVector<ReportedPart> &parts);

signals:
    void placeChosen(const ReportedPlace &place); // by a click; each further one of a row is of its next place
    void editRequested(const ReportedPlace &place);

private:
    void choose(const QModelIndex &row);
    void edit(const QModelIndex &row);
    void leaveRoomForWords();

    ImportReportModel model_;
    QLabel *line_;
    QTreeView *view_;
    QPersistentModelIndex chosen_; // the row of this report whose place was chosen last
};
