#include "ui/checks/FindingsModel.h"

#include "check/findings/FindingKinds.h"

#include <QColor>

#include <algorithm>
#include <array>

namespace {

constexpr quintptr ofKinds = 0; // the internal id of a row of a kind; below it the kind's number from 1

QColor colourOf(Severity severity)
{
    return severity == Severity::Error     ? QColor(0xD0, 0x40, 0x40)
           : severity == Severity::Warning ? QColor(0xE8, 0xA3, 0x17)
                                           : QColor(0x80, 0x80, 0x80);
}

} // namespace

void FindingsModel::show(const CheckedSong &song)
{
    beginResetModel();
    song_ = song;
    kinds_.clear();
    measures_.assign(size_t(song_.parts().size()), std::nullopt);
    std::array<std::vector<Place>, findingKindCount> places;
    for (int part = 0; part < song_.parts().size(); ++part) {
        const auto &result = song_.parts()[part];
        for (const auto *findings : {&result.alone->findings, &result.together}) {
            for (const auto &finding : *findings)
                places[size_t(finding.kind)].push_back({part, &finding});
        }
    }
    for (size_t kind = 0; kind < places.size(); ++kind) {
        if (!places[kind].empty())
            kinds_.push_back({FindingKind(kind), std::move(places[kind])});
    }
    std::stable_sort(kinds_.begin(), kinds_.end(), [](const Kind &a, const Kind &b) {
        return FindingKinds::severity(a.kind) > FindingKinds::severity(b.kind);
    });
    endResetModel();
}

bool FindingsModel::isPlace(const QModelIndex &index)
{
    return index.isValid() && index.internalId() != ofKinds;
}

const FindingsModel::Kind &FindingsModel::kindAt(const QModelIndex &index) const
{
    return kinds_[isPlace(index) ? size_t(index.internalId()) - 1 : size_t(index.row())];
}

const FindingsModel::Place &FindingsModel::placeAt(const QModelIndex &index) const
{
    return kindAt(index).places[size_t(index.row())];
}

std::optional<FindingKind> FindingsModel::kind(const QModelIndex &row) const
{
    return row.isValid() ? std::optional(kindAt(row).kind) : std::nullopt;
}

std::optional<FoundPlace> FindingsModel::place(const QModelIndex &row) const
{
    if (!isPlace(row))
        return {};
    const auto &place = placeAt(row);
    return FoundPlace{song_.parts()[place.part].part.id, *place.finding};
}

bool FindingsModel::isFixable(const QModelIndex &row) const
{
    const auto hasFix = [](const Place &place) { return !place.finding->fix.isEmpty(); };
    if (!row.isValid())
        return false;
    const auto &places = kindAt(row).places;
    return isPlace(row) ? hasFix(placeAt(row)) : std::any_of(places.begin(), places.end(), hasFix);
}

QModelIndex FindingsModel::index(int row, int column, const QModelIndex &parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    return createIndex(row, column, parent.isValid() ? quintptr(parent.row()) + 1 : ofKinds);
}

QModelIndex FindingsModel::parent(const QModelIndex &index) const
{
    return isPlace(index) ? createIndex(int(index.internalId()) - 1, 0, ofKinds) : QModelIndex();
}

int FindingsModel::rowCount(const QModelIndex &parent) const
{
    if (!parent.isValid())
        return int(kinds_.size());
    return isPlace(parent) || parent.column() > 0 ? 0 : int(kindAt(parent).places.size());
}

QString FindingsModel::textOf(const Place &place, int column) const
{
    const auto &part = song_.parts()[place.part].part;
    if (column == What)
        return tr("%1: %2").arg(part.track->title(), sentenceOf(*place.finding));
    if (place.finding->tick < 0)
        return {};
    auto &measures = measures_[size_t(place.part)];
    if (!measures)
        measures.emplace(*part.track);
    return tr("measure %1").arg(measures->at(place.finding->tick).number);
}

QVariant FindingsModel::data(const QModelIndex &index, int role) const
{
    const auto &kind = kindAt(index);
    if (role == Qt::DecorationRole && index.column() == What && !isPlace(index))
        return colourOf(FindingKinds::severity(kind.kind));
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
        return {};
    if (isPlace(index))
        return textOf(placeAt(index), role == Qt::ToolTipRole ? int(What) : index.column());
    return index.column() == What ? FindingKinds::title(kind.kind) : QString::number(kind.places.size());
}

QVariant FindingsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return QStringList{tr("What"), tr("Where")}.value(section);
}
