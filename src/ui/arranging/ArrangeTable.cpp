#include "ui/arranging/ArrangeTable.h"

#include "core/KeyTable.h"
#include "edit/NoteText.h"

#include <QFont>
#include <QLocale>

namespace {

using Row = ArrangeTable::Row;
using Column = ArrangeTable::Column;

// Nothing stands out where there is nothing.
QString numberText(int number)
{
    return number == 0 ? QString() : QLocale().toString(number);
}

QString spanText(const Row &row)
{
    if (!row.figures.span)
        return {};
    return QStringLiteral("%1 – %2").arg(NoteText::pitch(int(row.figures.span->lowest), neutralKeyRow),
                                         NoteText::pitch(int(row.figures.span->highest), neutralKeyRow));
}

int otherLosses(const PartFigures &figures)
{
    return figures.droppedInAll() - figures.count(DropReason::Doubled) - figures.count(DropReason::NoVoice);
}

const Column nameColumn{QT_TRANSLATE_NOOP("ArrangeTable", "Part"), "", [](const Row &row) { return row.name; }, false};
const Column instrumentColumn{QT_TRANSLATE_NOOP("ArrangeTable", "Instrument"), "",
                              [](const Row &row) { return row.instrument; }, false};
const Column notesColumn{QT_TRANSLATE_NOOP("ArrangeTable", "Notes"),
                         QT_TRANSLATE_NOOP("ArrangeTable", "How many notes it has"),
                         [](const Row &row) { return numberText(row.figures.notes); }};
const Column spanColumn{QT_TRANSLATE_NOOP("ArrangeTable", "Span"),
                        QT_TRANSLATE_NOOP("ArrangeTable", "Its lowest and its highest note"), spanText, false};
const Column atOnceColumn{QT_TRANSLATE_NOOP("ArrangeTable", "At once"),
                          QT_TRANSLATE_NOOP("ArrangeTable", "The most notes that sound at the same time"),
                          [](const Row &row) { return numberText(row.figures.mostAtOnce); }};
const Column crossingsColumn{
    QT_TRANSLATE_NOOP("ArrangeTable", "Crossings"),
    QT_TRANSLATE_NOOP("ArrangeTable", "Notes that begin above what sounds in the part that is the next higher"),
    [](const Row &row) { return numberText(row.figures.crossings); }};

const std::vector<Column> before{
    nameColumn,
    instrumentColumn,
    notesColumn,
    {QT_TRANSLATE_NOOP("ArrangeTable", "Kept"), QT_TRANSLATE_NOOP("ArrangeTable", "Notes that somebody will play"),
     [](const Row &row) { return numberText(row.figures.notes - row.figures.droppedInAll()); }},
    {QT_TRANSLATE_NOOP("ArrangeTable", "Doubled"),
     QT_TRANSLATE_NOOP("ArrangeTable",
                       "Notes left out because another one that begins with them has their pitch, or is octaves away"),
     [](const Row &row) { return numberText(row.figures.count(DropReason::Doubled)); }},
    {QT_TRANSLATE_NOOP("ArrangeTable", "No voice"),
     QT_TRANSLATE_NOOP("ArrangeTable", "Notes left out because everybody was playing others"),
     [](const Row &row) { return numberText(row.figures.count(DropReason::NoVoice)); }},
    {QT_TRANSLATE_NOOP("ArrangeTable", "Other losses"),
     QT_TRANSLATE_NOOP("ArrangeTable", "Notes of no instrument's range, without a drummer, or of no length"),
     [](const Row &row) { return numberText(otherLosses(row.figures)); }},
    spanColumn,
    atOnceColumn,
    crossingsColumn};

const std::vector<Column> after{
    nameColumn,
    instrumentColumn,
    notesColumn,
    {QT_TRANSLATE_NOOP("ArrangeTable", "Moved"),
     QT_TRANSLATE_NOOP("ArrangeTable", "Notes moved by octaves, into the range of the instrument"),
     [](const Row &row) { return numberText(row.figures.folded); }},
    {QT_TRANSLATE_NOOP("ArrangeTable", "Shortened"),
     QT_TRANSLATE_NOOP("ArrangeTable", "Notes that end early, since their voice is needed"),
     [](const Row &row) { return numberText(row.figures.shortened); }},
    {QT_TRANSLATE_NOOP("ArrangeTable", "Lent"), QT_TRANSLATE_NOOP("ArrangeTable", "Notes of other players' parts"),
     [](const Row &row) { return numberText(row.figures.lent); }},
    spanColumn,
    atOnceColumn,
    crossingsColumn};

} // namespace

const std::vector<Column> &ArrangeTable::columns() const
{
    return side_ == Side::Before ? before : after;
}

void ArrangeTable::show(const QVector<Row> &rows)
{
    beginResetModel();
    rows_ = rows;
    Row all{tr("All"), {}, {}};
    for (const auto &row : rows)
        all.figures.add(row.figures);
    rows_.append(all);
    endResetModel();
}

int ArrangeTable::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(rows_.size());
}

int ArrangeTable::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(columns().size());
}

QVariant ArrangeTable::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    const auto &column = columns()[size_t(index.column())];
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        return column.text(rows_[index.row()]);
    case Qt::TextAlignmentRole:
        return int(Qt::AlignVCenter | (column.isNumber ? Qt::AlignRight : Qt::AlignLeft));
    case Qt::FontRole: {
        QFont font;
        font.setBold(index.row() == parts());
        return font;
    }
    default:
        return {};
    }
}

QVariant ArrangeTable::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return QAbstractTableModel::headerData(section, orientation, role);
    const auto &column = columns()[size_t(section)];
    switch (role) {
    case Qt::DisplayRole:
        return tr(column.title);
    case Qt::ToolTipRole:
        return *column.tip == '\0' ? QVariant() : tr(column.tip);
    case Qt::TextAlignmentRole:
        return int(Qt::AlignVCenter | (column.isNumber ? Qt::AlignRight : Qt::AlignLeft));
    default:
        return {};
    }
}
