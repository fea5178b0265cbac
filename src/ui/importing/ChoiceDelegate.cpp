#include "ui/importing/ChoiceDelegate.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QPainter>
#include <QTimer>

namespace {

// With a scroll bar beside them.
int roomForTheNames(const QComboBox &box)
{
    const QAbstractItemView &view = *box.view();
    return view.sizeHintForColumn(0) + view.style()->pixelMetric(QStyle::PM_ScrollBarExtent);
}

} // namespace

ChoiceDelegate::ChoiceDelegate(MakeBox makeBox, QObject *parent)
    : QStyledItemDelegate(parent), makeBox_(std::move(makeBox))
{
}

void ChoiceDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    auto cell = option;
    initStyleOption(&cell, index);
    const auto *const style = option.widget ? option.widget->style() : QApplication::style();
    style->drawPrimitive(QStyle::PE_PanelItemViewItem, &cell, painter, option.widget);

    QStyleOptionComboBox box;
    box.rect = option.rect.adjusted(1, 1, -1, -1);
    box.state = option.state & ~(QStyle::State_HasFocus | QStyle::State_Selected);
    box.palette = option.palette;
    box.fontMetrics = option.fontMetrics;
    box.currentText = cell.text;
    box.currentIcon = cell.icon;
    box.iconSize = {16, 16};
    box.frame = true;
    painter->save();
    painter->setPen(option.palette.color(QPalette::ButtonText));
    style->drawComplexControl(QStyle::CC_ComboBox, &box, painter, nullptr);
    style->drawControl(QStyle::CE_ComboBoxLabel, &box, painter, nullptr);
    painter->restore();
}

QSize ChoiceDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    constexpr int roomForTheArrow = 34;
    constexpr int roomAboveAndBelow = 10;
    const auto text = QStyledItemDelegate::sizeHint(option, index);
    return {text.width() + roomForTheArrow, option.fontMetrics.height() + roomAboveAndBelow};
}

QWidget *ChoiceDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &, const QModelIndex &) const
{
    auto *const box = makeBox_(parent);
    auto *const self = const_cast<ChoiceDelegate *>(this); // as Qt declares it, though it tells its view by signals
    connect(box, qOverload<int>(&QComboBox::activated), self, [=] { self->finish(box); });
    QTimer::singleShot(0, box, [box] {
        box->view()->setMinimumWidth(roomForTheNames(*box)); // the cell may be narrower
        box->showPopup();
    });
    return box;
}

void ChoiceDelegate::finish(QComboBox *box)
{
    emit commitData(box);
    emit closeEditor(box);
}

// Where the cell is drawn, not only its text.
void ChoiceDelegate::updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                                          const QModelIndex &) const
{
    editor->setGeometry(option.rect);
}

void ChoiceDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    if (auto *const box = qobject_cast<QComboBox *>(editor))
        box->setCurrentIndex(box->findText(index.data(Qt::EditRole).toString()));
}

void ChoiceDelegate::setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const
{
    const auto *const box = qobject_cast<QComboBox *>(editor);
    if (box && box->currentIndex() >= 0 && box->currentText() != index.data(Qt::EditRole).toString())
        model->setData(index, box->currentText(), Qt::EditRole);
}
