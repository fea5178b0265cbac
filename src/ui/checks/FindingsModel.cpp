#include "ui/checks/FindingsModel.h"

#include "check/findings/FindingKinds.h"

#include <QColor>

#include <algorithm>
#include <array>

namespace {

constexpr quintptr levels = 3; // an index's internal id is its number on its level, times this, and the level

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
    parts_.clear();
    places_.clear();
    placeParents_.clear();
    measures_.assign(size_t(song_.parts().size()), std::nullopt);
    std::vector<FindingKind> kinds;
    for (int kind = 0; kind < findingKindCount; ++kind)
        kinds.push_back(FindingKind(kind));
    std::stable_sort(kinds.begin(), kinds.end(), [](FindingKind a, FindingKind b) {
        return FindingKinds::severity(a) > FindingKinds::severity(b);
    });
    for (const auto kind : kinds)
        addKind(kind);
    endResetModel();
}

void FindingsModel::addKind(FindingKind kind)
{
    KindRow row{{0, int(kinds_.size()), int(parts_.size()), 0}, kind, 0};
    for (int part = 0; part < song_.parts().size(); ++part) {
        const auto &result = song_.parts()[part];
        PartRow partRow{{row.row, row.count, int(places_.size()), 0}, part};
        for (const auto *findings : {&result.alone->findings, &result.together}) {
            for (const auto &finding : *findings) {
                if (finding.kind == kind)
                    places_.push_back(&finding);
            }
        }
        partRow.count = int(places_.size()) - partRow.first;
        if (partRow.count == 0)
            continue;
        placeParents_.resize(places_.size(), int(parts_.size()));
        row.places += partRow.count;
        ++row.count;
        parts_.push_back(partRow);
    }
    if (row.count > 0)
        kinds_.push_back(row);
}

FindingsModel::Node FindingsModel::nodeOf(const QModelIndex &index)
{
    return {Level(index.internalId() % levels), int(index.internalId() / levels)};
}

QModelIndex FindingsModel::indexOf(Node node, int column) const
{
    const auto number = size_t(node.number);
    const int row = node.level == Level::Kind   ? node.number
                    : node.level == Level::Part ? parts_[number].row
                                                : node.number - parts_[size_t(placeParents_[number])].first;
    return createIndex(row, column, quintptr(number) * levels + quintptr(node.level));
}

int FindingsModel::partRowOf(Node node) const
{
    return node.level == Level::Place ? placeParents_[size_t(node.number)] : node.number;
}

std::pair<int, int> FindingsModel::placesOf(Node node) const
{
    const auto number = size_t(node.number);
    if (node.level == Level::Place)
        return {node.number, node.number + 1};
    const auto first = node.level == Level::Part ? parts_[number].first : parts_[size_t(kinds_[number].first)].first;
    return {first, first + (node.level == Level::Part ? parts_[number].count : kinds_[number].places)};
}

const Finding *FindingsModel::findingOf(Node node) const
{
    const auto [first, end] = placesOf(node);
    return node.level != Level::Kind && end - first == 1 ? places_[size_t(first)] : nullptr;
}

std::optional<FindingKind> FindingsModel::kind(const QModelIndex &row) const
{
    if (!row.isValid())
        return {};
    return places_[size_t(placesOf(nodeOf(row)).first)]->kind;
}

QString FindingsModel::trackId(const QModelIndex &row) const
{
    if (!row.isValid() || nodeOf(row).level == Level::Kind)
        return {};
    return song_.parts()[parts_[size_t(partRowOf(nodeOf(row)))].part].part.id;
}

std::optional<FoundPlace> FindingsModel::place(const QModelIndex &row) const
{
    const auto *const finding = row.isValid() ? findingOf(nodeOf(row)) : nullptr;
    return finding != nullptr ? std::optional(FoundPlace{trackId(row), *finding}) : std::nullopt;
}

QString FindingsModel::fullText(const QModelIndex &row) const
{
    const auto *const finding = row.isValid() ? findingOf(nodeOf(row)) : nullptr;
    if (finding == nullptr)
        return {};
    const auto &part = song_.parts()[parts_[size_t(partRowOf(nodeOf(row)))].part].part;
    return tr("%1: %2").arg(part.track->title(), sentenceOf(*finding));
}

bool FindingsModel::isFixable(const QModelIndex &row) const
{
    const auto [first, end] = placesOf(nodeOf(row));
    return std::any_of(places_.begin() + first, places_.begin() + end,
                       [](const Finding *finding) { return !finding->fix.isEmpty(); });
}

QModelIndex FindingsModel::index(int row, int column, const QModelIndex &parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    if (!parent.isValid())
        return indexOf({Level::Kind, row}, column);
    const auto above = nodeOf(parent);
    const auto number = size_t(above.number);
    return above.level == Level::Kind ? indexOf({Level::Part, kinds_[number].first + row}, column)
                                      : indexOf({Level::Place, parts_[number].first + row}, column);
}

QModelIndex FindingsModel::parent(const QModelIndex &index) const
{
    if (!index.isValid())
        return {};
    const auto node = nodeOf(index);
    const auto number = size_t(node.number);
    return node.level == Level::Kind   ? QModelIndex()
           : node.level == Level::Part ? indexOf({Level::Kind, parts_[number].parent}, 0)
                                       : indexOf({Level::Part, placeParents_[number]}, 0);
}

int FindingsModel::rowCount(const QModelIndex &parent) const
{
    if (!parent.isValid())
        return int(kinds_.size());
    const auto node = nodeOf(parent);
    if (parent.column() > 0 || findingOf(node) != nullptr)
        return 0;
    return node.level == Level::Kind ? kinds_[size_t(node.number)].count : parts_[size_t(node.number)].count;
}

QString FindingsModel::textOf(Node node) const
{
    if (node.level == Level::Kind)
        return FindingKinds::title(kinds_[size_t(node.number)].kind);
    if (node.level == Level::Place)
        return sentenceOf(*places_[size_t(node.number)]);
    const auto *const finding = findingOf(node);
    const auto &part = song_.parts()[parts_[size_t(node.number)].part].part;
    return finding != nullptr ? tr("%1: %2").arg(part.track->title(), sentenceOf(*finding)) : part.track->title();
}

// Of one kind no more are kept of a part.
bool FindingsModel::mayBeMore(Node node) const
{
    const auto number = size_t(node.number);
    const auto first = parts_.begin() + (node.level == Level::Kind ? kinds_[number].first : node.number);
    return std::any_of(first, first + (node.level == Level::Kind ? kinds_[number].count : 1),
                       [](const PartRow &part) { return part.count >= CheckOptions().mostFindings; });
}

// Of several places their number.
QString FindingsModel::placeOf(Node node) const
{
    const auto *const finding = findingOf(node);
    if (finding == nullptr) {
        const auto [first, end] = placesOf(node);
        const auto number = QString::number(end - first);
        return mayBeMore(node) ? number + u'+' : number;
    }
    if (finding->tick < 0)
        return {};
    const auto part = parts_[size_t(partRowOf(node))].part;
    auto &measures = measures_[size_t(part)];
    if (!measures)
        measures.emplace(*song_.parts()[part].part.track);
    return tr("measure %1").arg(measures->at(finding->tick).number);
}

QVariant FindingsModel::data(const QModelIndex &index, int role) const
{
    const auto node = nodeOf(index);
    if (role == Qt::DecorationRole && index.column() == What && node.level == Level::Kind)
        return colourOf(FindingKinds::severity(kinds_[size_t(node.number)].kind));
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
        return {};
    return role == Qt::ToolTipRole || index.column() == What ? textOf(node) : placeOf(node);
}

QVariant FindingsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return QStringList{tr("What"), tr("Where")}.value(section);
}
