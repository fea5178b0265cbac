#pragma once

#include "check/CheckedSong.h"
#include "core/Measures.h"

#include <QAbstractItemModel>

#include <optional>
#include <vector>

// A finding with the part that it is in.
struct FoundPlace
{
    QString trackId;
    Finding finding;
};

// What is wrong with a song: a row for each kind of finding, the gravest first, and below it a row for each place. On
// the interface thread.
class FindingsModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum Column { What, Where, columnCount_ };

    using QAbstractItemModel::QAbstractItemModel;

    void show(const CheckedSong &song);
    const CheckedSong &song() const { return song_; }

    // Of a row of either sort; nothing for an index that is none.
    std::optional<FindingKind> kind(const QModelIndex &row) const;
    // Of a row of a place; nothing for others.
    std::optional<FoundPlace> place(const QModelIndex &row) const;
    bool isFixable(const QModelIndex &row) const; // it, or one of the places below it

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &) const override { return columnCount_; }
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    struct Place
    {
        int part = 0; // of song_
        const Finding *finding = nullptr;
    };
    struct Kind
    {
        FindingKind kind;
        std::vector<Place> places; // by part
    };
    static bool isPlace(const QModelIndex &index);
    const Kind &kindAt(const QModelIndex &index) const;
    const Place &placeAt(const QModelIndex &index) const;
    QString textOf(const Place &place, int column) const;

    CheckedSong song_;
    std::vector<Kind> kinds_;
    mutable std::vector<std::optional<Measures>> measures_; // of the parts, when they are asked for
};
