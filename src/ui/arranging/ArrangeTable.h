#pragma once

#include "arrange/Arrangement.h"

#include <QAbstractTableModel>
#include <QVector>

#include <vector>

// The parts of a song before it is arranged, or after, with a last row for all of them. On the interface thread.
class ArrangeTable : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum class Side { Before, After };
    struct Row
    {
        QString name;
        QString instrument;
        PartFigures figures;
    };
    struct Column
    {
        const char *title;
        const char *tip;
        QString (*text)(const Row &row);
        bool isNumber = true;
    };

    explicit ArrangeTable(Side side, QObject *parent = nullptr) : QAbstractTableModel(parent), side_(side) {}

    void show(const QVector<Row> &rows);
    int parts() const { return std::max(0, int(rows_.size()) - 1); }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    const std::vector<Column> &columns() const;

    Side side_;
    QVector<Row> rows_;
};
