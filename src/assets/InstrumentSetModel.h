#pragma once

#include "assets/InstrumentSet.h"

#include <QAbstractListModel>

// The instruments as rows of a list, in the order of their names: the name to display, the icon as decoration, and the
// whole Instrument under Qt::UserRole.
class InstrumentSetModel : public QAbstractListModel
{
    Q_OBJECT

public:
    explicit InstrumentSetModel(const InstrumentSet &instruments, QObject *parent = nullptr);

    const InstrumentSet &instruments() const { return instruments_; }
    void setInstruments(const InstrumentSet &instruments);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

private:
    InstrumentSet instruments_;
};
