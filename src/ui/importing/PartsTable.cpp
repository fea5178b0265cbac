#include "ui/importing/PartsTable.h"

#include "core/KeyTable.h"
#include "edit/NoteText.h"
#include "import/ProgramNames.h"
#include "ui/report/ImportWords.h"

#include <QApplication>
#include <QLocale>
#include <QPalette>
#include <QPixmap>

#include <array>

namespace {

struct ColumnRow
{
    PartsTable::Column column;
    bool isNumber;
    const char *title;
    const char *tip;
};

constexpr std::array<ColumnRow, PartsTable::columnCount_> columns{{
    {PartsTable::Name, false, QT_TRANSLATE_NOOP("PartsTable", "Part"),
     QT_TRANSLATE_NOOP("PartsTable", "Whether it becomes a part of the song")},
    {PartsTable::Instrument, false, QT_TRANSLATE_NOOP("PartsTable", "Instrument"),
     QT_TRANSLATE_NOOP("PartsTable", "The instrument that the part gets; a choice is remembered for its program")},
    {PartsTable::Octaves, false, QT_TRANSLATE_NOOP("PartsTable", "Octaves"),
     QT_TRANSLATE_NOOP("PartsTable", "By how many octaves the notes are moved")},
    {PartsTable::Program, false, QT_TRANSLATE_NOOP("PartsTable", "Program"),
     QT_TRANSLATE_NOOP("PartsTable", "The MIDI channel that it is from, and what it is played on there")},
    {PartsTable::Notes, true, QT_TRANSLATE_NOOP("PartsTable", "Notes"),
     QT_TRANSLATE_NOOP("PartsTable", "How many notes it has")},
    {PartsTable::Lost, true, QT_TRANSLATE_NOOP("PartsTable", "Lost"),
     QT_TRANSLATE_NOOP("PartsTable", "How many notes nobody would hear")},
    {PartsTable::Range, false, QT_TRANSLATE_NOOP("PartsTable", "Range"),
     QT_TRANSLATE_NOOP("PartsTable", "Its lowest and its highest note")},
    {PartsTable::AtOnce, true, QT_TRANSLATE_NOOP("PartsTable", "At once"),
     QT_TRANSLATE_NOOP("PartsTable", "The most notes that sound at the same time")},
    {PartsTable::Characters, true, QT_TRANSLATE_NOOP("PartsTable", "Characters"),
     QT_TRANSLATE_NOOP("PartsTable", "The length of its ABC text")},
}};

QString numberText(qint64 number)
{
    return QLocale().toString(number);
}

QString rangeText(const PartPreview &part)
{
    const auto range = part.range();
    if (!range)
        return {};
    return QStringLiteral("%1 – %2").arg(NoteText::pitch(int(range->first), neutralKeyRow),
                                         NoteText::pitch(int(range->second), neutralKeyRow));
}

QString programText(const PartPreview &part)
{
    return part.channel() ? PartsTable::tr("%1: %2").arg(*part.channel()).arg(translatedProgramName(part.programName()))
                          : QString();
}

} // namespace

PartsTable::PartsTable(ImportPreview &preview, const InstrumentSet &instruments, QObject *parent)
    : QAbstractTableModel(parent), preview_(preview), instruments_(instruments), rows_(int(preview.parts().size()))
{
    connect(&preview_, &ImportPreview::partsChanged, this, &PartsTable::showParts);
    connect(&preview_, &ImportPreview::takenChanged, this,
            [this] { emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount_ - 1)); });
    connect(&preview_, &ImportPreview::partChanged, this,
            [this](int part) { emit dataChanged(index(part, 0), index(part, columnCount_ - 1)); });
}

// The rows stay while they change, so that a person keeps the part that is looked at.
void PartsTable::showParts()
{
    const int rows = int(preview_.parts().size());
    if (rows > rows_) {
        beginInsertRows({}, rows_, rows - 1);
        rows_ = rows;
        endInsertRows();
    } else if (rows < rows_) {
        beginRemoveRows({}, rows, rows_ - 1);
        rows_ = rows;
        endRemoveRows();
    }
    emit dataChanged(index(0, 0), index(rows - 1, columnCount_ - 1));
}

QString PartsTable::lossText(int part) const
{
    const auto &shown = preview_.parts()[part];
    QStringList texts;
    const auto add = [&](int count, const QString &text) {
        if (count > 0)
            texts.append(text.arg(numberText(count)));
    };
    add(shown.silentNotes(), tr("%1 notes are not on the instrument"));
    add(shown.droppedNotes(), tr("%1 notes are moved out of range"));
    if (const auto line = lineOf(shown.report()); !line.isEmpty())
        texts.append(line);
    auto text = texts.join(QStringLiteral(", "));
    if (!text.isEmpty())
        text[0] = text[0].toUpper();
    return text;
}

int PartsTable::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : rows_;
}

int PartsTable::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : columnCount_;
}

QString PartsTable::octavesText(int octaves)
{
    return octaves > 0 ? QStringLiteral("+%1").arg(octaves) : QString::number(octaves);
}

QString PartsTable::text(int row, int column) const
{
    const auto &part = preview_.parts()[row];
    switch (Column(column)) {
    case Name:
        return part.name();
    case Instrument:
        return preview_.instrument(row);
    case Octaves:
        return octavesText(preview_.octaves(row));
    case Program:
        return programText(part);
    case Notes:
        return numberText(part.notes());
    case Range:
        return rangeText(part);
    case AtOnce:
        return numberText(part.mostAtOnce());
    case Lost:
        return part.lostNotes() > 0 ? numberText(part.lostNotes()) : QString();
    case Characters:
        return numberText(part.characters());
    case columnCount_:
        break;
    }
    return {};
}

QVariant PartsTable::decoration(const QString &instrument) const
{
    if (!instruments_.contains(instrument))
        return {};
    auto &icon = icons_[instrument];
    if (icon.isNull())
        icon = QIcon(QPixmap::fromImage(instruments_.icon(instrument)));
    return icon;
}

QVariant PartsTable::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= preview_.parts().size())
        return {};
    const auto column = Column(index.column());
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return text(index.row(), column);
    case Qt::ToolTipRole:
        return column == Lost ? lossText(index.row()) : text(index.row(), column);
    case Qt::CheckStateRole:
        return column == Name ? QVariant(preview_.isTaken(index.row()) ? Qt::Checked : Qt::Unchecked) : QVariant();
    case Qt::DecorationRole:
        return column == Instrument ? decoration(preview_.instrument(index.row())) : QVariant();
    case Qt::TextAlignmentRole:
        return int(Qt::AlignVCenter | (columns[size_t(column)].isNumber ? Qt::AlignRight : Qt::AlignLeft));
    case Qt::ForegroundRole:
        return preview_.isTaken(index.row()) ? QVariant()
                                             : QApplication::palette().brush(QPalette::Disabled, QPalette::Text);
    default:
        return {};
    }
}

QVariant PartsTable::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount_)
        return QAbstractTableModel::headerData(section, orientation, role);
    const auto &column = columns[size_t(section)];
    switch (role) {
    case Qt::DisplayRole:
        return tr(column.title);
    case Qt::ToolTipRole:
        return tr(column.tip);
    case Qt::TextAlignmentRole:
        return int(Qt::AlignVCenter | (column.isNumber ? Qt::AlignRight : Qt::AlignLeft));
    default:
        return {};
    }
}

Qt::ItemFlags PartsTable::flags(const QModelIndex &index) const
{
    auto flags = QAbstractTableModel::flags(index);
    if (index.column() == Name)
        flags |= Qt::ItemIsUserCheckable;
    if (index.column() == Instrument || index.column() == Octaves)
        flags |= Qt::ItemIsEditable;
    return flags;
}

bool PartsTable::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid() || index.row() >= preview_.parts().size())
        return false;
    if (role == Qt::CheckStateRole && index.column() == Name)
        preview_.take(index.row(), value.toInt() == Qt::Checked);
    else if (role == Qt::EditRole && index.column() == Instrument)
        preview_.setInstrument(index.row(), value.toString());
    else if (role == Qt::EditRole && index.column() == Octaves)
        preview_.setOctaves(index.row(), value.toInt());
    else
        return false;
    return true;
}
