#pragma once

#include "ui/checks/FindingsModel.h"

#include <QWidget>

#include <map>
#include <utility>

class QLabel;
class QPushButton;
class QTreeView;

// What the game would not play as it is meant, by kind and place, and what can be done about it. It changes nothing
// itself. On the interface thread.
class FindingsPanel : public QWidget
{
    Q_OBJECT

public:
    explicit FindingsPanel(QWidget *parent = nullptr);

    void show(const CheckedSong &song);
    // Puts the first finding of a part where it can be seen.
    void showPart(const QString &trackId);

signals:
    void placeChosen(const FoundPlace &place); // is to be shown
    void fixRequested(const FoundPlace &place);
    void fixAllRequested(FindingKind kind);

private:
    void choose(const QModelIndex &row);
    void fix();
    void expandRows(const QModelIndex &parent);
    void keepExpanded(const QModelIndex &row, bool isExpanded);
    QModelIndex rowLike(FindingKind kind, const QString &trackId, int place) const;
    void showCurrent();

    FindingsModel model_;
    QLabel *line_;
    QTreeView *view_;
    QLabel *sentence_; // all of it
    QPushButton *fix_;
    QPushButton *fixAll_;
    std::map<std::pair<FindingKind, QString>, bool> expanded_; // kinds, and parts of them, by the user
};
