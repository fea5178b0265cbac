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

// What is wrong with a song: a row for each kind of finding, the gravest first, below it one for each part, and below
// that one for each place. A part with one place is that place. On the interface thread.
class FindingsModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum Column { What, Where, columnCount_ };

    using QAbstractItemModel::QAbstractItemModel;

    void show(const CheckedSong &song);
    const CheckedSong &song() const { return song_; }

    // Of a row of any sort; nothing for an index that is none.
    std::optional<FindingKind> kind(const QModelIndex &row) const;
    // Of a row of a part or place; empty for others.
    QString trackId(const QModelIndex &row) const;
    // Of a row of a place; nothing for others.
    std::optional<FoundPlace> place(const QModelIndex &row) const;
    QString fullText(const QModelIndex &row) const; // of a place, with its part
    bool isFixable(const QModelIndex &row) const;   // of a valid row: it, or one of the places below it

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &) const override { return columnCount_; }
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    enum class Level { Kind, Part, Place };
    struct Group
    {
        int parent = 0; // its number among those of the level above
        int row = 0;    // in it
        int first = 0;  // of those of the level below
        int count = 0;
    };
    struct KindRow : Group
    {
        FindingKind kind;
        int places = 0;
    };
    struct PartRow : Group
    {
        int part = 0; // of song_
    };
    struct Node
    {
        Level level;
        int number; // on it
    };
    static Node nodeOf(const QModelIndex &index);
    QModelIndex indexOf(Node node, int column) const;
    int partRowOf(Node node) const;
    std::pair<int, int> placesOf(Node node) const; // first and end
    const Finding *findingOf(Node node) const;     // null where there are several
    QString textOf(Node node) const;
    bool mayBeMore(Node node) const; // than its number
    QString placeOf(Node node) const;
    void addKind(FindingKind kind);

    CheckedSong song_;
    std::vector<KindRow> kinds_;
    std::vector<PartRow> parts_;
    std::vector<const Finding *> places_;
    std::vector<int> placeParents_;                         // of the places, among parts_
    mutable std::vector<std::optional<Measures>> measures_; // of the parts, when they are asked for
};
