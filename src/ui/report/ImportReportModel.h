#pragma once

#include "core/Measures.h"
#include "import/PartReport.h"

#include <QAbstractItemModel>

#include <optional>
#include <vector>

// A part as an import made it.
struct ReportedPart
{
    QString trackId; // of the song; empty for what is in no part
    Track track;
    PartReport report;
};

struct ReportedPlace
{
    QString trackId;
    Ticks tick = 0;
};

// What an import found: a row for each part in which there is something, and below it a row for each kind. A row of a
// kind stands at one of its places, the first to begin with. On the interface thread.
class ImportReportModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum Column { What, Count, Where, columnCount_ };

    using QAbstractItemModel::QAbstractItemModel;

    void show(const QVector<ReportedPart> &parts);

    // Where a row of a kind stands; nothing for others, and where no place is known.
    std::optional<ReportedPlace> place(const QModelIndex &row) const;
    // It stands at the next of its places, behind the last at the first again.
    void goOn(const QModelIndex &row);

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &) const override { return columnCount_; }
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    struct Kind
    {
        std::optional<ImportFinding> finding; // none: notes that moved
        int at = 0;                           // which of its places
    };
    struct Part
    {
        ReportedPart reported;
        std::vector<Kind> kinds;
        mutable std::optional<Measures> measures; // when they are asked for
    };
    static std::vector<Kind> kindsOf(const PartReport &report);
    static QVector<Ticks> placesOf(const PartReport &report, const Kind &kind);
    static QString textOf(const PartReport &report, const Kind &kind, int column);
    static QString placeText(const Part &part, const Kind &kind);
    // Null for rows of parts.
    const Kind *kindAt(const QModelIndex &index) const;
    const Part &partAt(const QModelIndex &index) const;

    std::vector<Part> parts_;
};
