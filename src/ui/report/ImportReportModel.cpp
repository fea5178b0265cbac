#include "ui/report/ImportReportModel.h"

#include "ui/report/ImportWords.h"

namespace {

constexpr quintptr ofParts = 0; // the internal id of a row of a part; below it the part's number from 1

} // namespace

std::vector<ImportReportModel::Kind> ImportReportModel::kindsOf(const PartReport &report)
{
    std::vector<Kind> kinds;
    for (int i = 0; i < importFindingCount; ++i) {
        if (report.count(ImportFinding(i)) > 0)
            kinds.push_back({ImportFinding(i)});
    }
    if (report.shifts.shiftedNotes > 0)
        kinds.push_back({});
    return kinds;
}

void ImportReportModel::show(const QVector<ReportedPart> &parts)
{
    beginResetModel();
    parts_.clear();
    for (const auto &part : parts) {
        auto kinds = kindsOf(part.report);
        if (!kinds.empty())
            parts_.push_back({part, std::move(kinds), {}});
    }
    endResetModel();
}

QVector<Ticks> ImportReportModel::placesOf(const PartReport &report, const Kind &kind)
{
    return kind.finding ? report.places(*kind.finding) : QVector<Ticks>{report.shifts.largestAt};
}

const ImportReportModel::Part &ImportReportModel::partAt(const QModelIndex &index) const
{
    return parts_[index.internalId() == ofParts ? size_t(index.row()) : size_t(index.internalId()) - 1];
}

const ImportReportModel::Kind *ImportReportModel::kindAt(const QModelIndex &index) const
{
    return index.isValid() && index.internalId() != ofParts ? &partAt(index).kinds[size_t(index.row())] : nullptr;
}

std::optional<ReportedPlace> ImportReportModel::place(const QModelIndex &row) const
{
    const auto *const kind = kindAt(row);
    if (!kind || partAt(row).reported.trackId.isEmpty())
        return {};
    const auto &reported = partAt(row).reported;
    const auto places = placesOf(reported.report, *kind);
    return places.isEmpty() ? std::nullopt : std::optional(ReportedPlace{reported.trackId, places[kind->at]});
}

void ImportReportModel::goOn(const QModelIndex &row)
{
    if (!place(row))
        return;
    auto &kind = parts_[size_t(row.internalId()) - 1].kinds[size_t(row.row())];
    kind.at = (kind.at + 1) % int(placesOf(partAt(row).reported.report, kind).size());
    const auto cell = row.siblingAtColumn(Where);
    emit dataChanged(cell, cell);
}

QModelIndex ImportReportModel::index(int row, int column, const QModelIndex &parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    return createIndex(row, column, parent.isValid() ? quintptr(parent.row()) + 1 : ofParts);
}

QModelIndex ImportReportModel::parent(const QModelIndex &index) const
{
    if (!kindAt(index))
        return {};
    return createIndex(int(index.internalId()) - 1, 0, ofParts);
}

int ImportReportModel::rowCount(const QModelIndex &parent) const
{
    if (!parent.isValid())
        return int(parts_.size());
    return kindAt(parent) || parent.column() > 0 ? 0 : int(partAt(parent).kinds.size());
}

QString ImportReportModel::placeText(const Part &part, const Kind &kind)
{
    const auto &report = part.reported.report;
    const auto places = placesOf(report, kind);
    if (places.isEmpty() || part.reported.trackId.isEmpty())
        return {};
    if (!part.measures)
        part.measures.emplace(part.reported.track);
    const auto measure = tr("measure %1").arg(part.measures->at(places[kind.at]).number);
    const int count = kind.finding ? report.count(*kind.finding) : 1;
    return count > 1 ? tr("%1 (%2 of %3)").arg(measure).arg(kind.at + 1).arg(count) : measure;
}

QString ImportReportModel::textOf(const PartReport &report, const Kind &kind, int column)
{
    const auto &shifts = report.shifts;
    if (column == Count)
        return QString::number(kind.finding ? report.count(*kind.finding) : shifts.shiftedNotes);
    if (kind.finding)
        return wordsOf(*kind.finding);
    return tr("Notes moved by up to %1 ms, %2 ms on average")
        .arg(qRound(shifts.largestMs))
        .arg(qRound(shifts.meanMs()));
}

QVariant ImportReportModel::data(const QModelIndex &index, int role) const
{
    if (role == Qt::TextAlignmentRole && index.column() == Count)
        return int(Qt::AlignRight | Qt::AlignVCenter);
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
        return {};
    const auto &part = partAt(index);
    if (const auto *const kind = kindAt(index))
        return index.column() == Where ? placeText(part, *kind) : textOf(part.reported.report, *kind, index.column());
    if (index.column() != What)
        return {};
    return part.reported.trackId.isEmpty() ? tr("In no part") : part.reported.track.title();
}

QVariant ImportReportModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return QStringList{tr("What"), tr("Count"), tr("Where")}.value(section);
}
