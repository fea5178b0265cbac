#include "assets/InstrumentSetModel.h"

InstrumentSetModel::InstrumentSetModel(const InstrumentSet &instruments, QObject *parent)
    : QAbstractListModel(parent), instruments_(instruments)
{
}

void InstrumentSetModel::setInstruments(const InstrumentSet &instruments)
{
    beginResetModel();
    instruments_ = instruments;
    endResetModel();
}

int InstrumentSetModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(instruments_.names().size());
}

QVariant InstrumentSetModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.column() != 0 || index.row() >= rowCount())
        return {};
    const auto &instrument = instruments_.instrument(instruments_.names().at(index.row()));
    switch (role) {
    case Qt::DisplayRole:
        return instrument.name;
    case Qt::DecorationRole:
        return instrument.icon;
    case Qt::UserRole:
        return QVariant::fromValue(instrument);
    default:
        return {};
    }
}
