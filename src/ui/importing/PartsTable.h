#pragma once

#include "song/preview/ImportPreview.h"

#include <QAbstractTableModel>
#include <QIcon>

// A preview's parts as rows: what they are, what would be lost, and what of them can be chosen. On the interface
// thread.
class PartsTable : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { Name, Instrument, Octaves, Program, Notes, Lost, Range, AtOnce, Characters, columnCount_ };

    PartsTable(ImportPreview &preview, const InstrumentSet &instruments, QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    // Names are ticked, instruments are names of the catalogue, and octaves numbers or their texts.
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;

    static QString octavesText(int octaves);
    // What would not be heard of a part, or otherwise than in its source, and why; empty when there is nothing.
    QString lossText(int part) const;

private:
    void showParts();
    QString text(int row, int column) const;
    QVariant decoration(const QString &instrument) const;

    ImportPreview &preview_;
    InstrumentSet instruments_;
    int rows_; // as the views know them: the preview changes its parts before
    mutable QHash<QString, QIcon> icons_;
};
