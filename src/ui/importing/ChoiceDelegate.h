#pragma once

#include <QStyledItemDelegate>

#include <functional>

class QComboBox;

// Cells that look like the box in which they are chosen, and become it when they are edited. On the interface thread.
class ChoiceDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using MakeBox = std::function<QComboBox *(QWidget *parent)>; // with the choices
    explicit ChoiceDelegate(MakeBox makeBox, QObject *parent = nullptr);

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override;

private:
    void finish(QComboBox *box);

    MakeBox makeBox_;
};
