#include "ui/report/ImportReportPanel.h"

#include "ui/ManualPage.h"

#include <QHeaderView>
#include <QLabel>
#include <QShortcut>
#include <QStyledItemDelegate>
#include <QTreeView>
#include <QVBoxLayout>

#include <algorithm>

namespace {

// In a narrow window long words take several lines: a tree makes its rows as high, but does not say how wide they are.
class WrappedWords : public QStyledItemDelegate
{
public:
    explicit WrappedWords(QTreeView *view) : QStyledItemDelegate(view), view_(*view)
    {
        connect(view->header(), &QHeaderView::sectionResized, this, [this](int section) {
            if (section == ImportReportModel::What)
                emit sizeHintChanged({});
        });
        // Later, since a resized section may come of the rows' heights.
        connect(this, &QAbstractItemDelegate::sizeHintChanged, view, &QTreeView::doItemsLayout, Qt::QueuedConnection);
    }

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        const bool isOfPart = !index.parent().isValid(); // these reach over all columns
        auto cell = option;
        cell.rect.setSize({isOfPart ? view_.header()->length() - view_.indentation()
                                    : view_.columnWidth(index.column()) - 2 * view_.indentation(),
                           1});
        return QStyledItemDelegate::sizeHint(cell, index);
    }

private:
    const QTreeView &view_;
};

} // namespace

ImportReportPanel::ImportReportPanel(QWidget *parent) : QWidget(parent), line_(new QLabel), view_(new QTreeView)
{
    auto *const column = new QVBoxLayout(this);
    setManualPage(*this, "import.md");
    column->setContentsMargins(6, 6, 6, 6);
    column->addWidget(line_);
    column->addWidget(view_, 1);
    line_->setWordWrap(true);
    line_->setTextFormat(Qt::PlainText);
    view_->setObjectName(QStringLiteral("importReport"));
    setFocusProxy(view_);
    view_->setAccessibleName(tr("Import report"));
    view_->setModel(&model_);
    view_->setMinimumHeight(3 * fontMetrics().lineSpacing()); // beside other panels on a small screen
    view_->setWordWrap(true);
    view_->setItemDelegateForColumn(ImportReportModel::What, new WrappedWords(view_));
    view_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view_->header()->setStretchLastSection(false);
    view_->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    view_->header()->setSectionResizeMode(ImportReportModel::What, QHeaderView::Stretch);
    view_->setIndentation(2 * fontMetrics().averageCharWidth());
    view_->setToolTip(
        tr("A click shows the place, the next click the next one; a double click opens it in the editor"));
    connect(view_, &QTreeView::clicked, this, &ImportReportPanel::choose);
    connect(view_, &QTreeView::doubleClicked, this, &ImportReportPanel::edit);
    auto *const enter = new QShortcut(Qt::Key_Return, view_, nullptr, nullptr, Qt::WidgetShortcut);
    connect(enter, &QShortcut::activated, this, [this] { choose(view_->currentIndex()); });
    show({}, {});
}

void ImportReportPanel::show(const QString &line, const QVector<ReportedPart> &parts)
{
    line_->setText(line.isEmpty() ? tr("Of the last import there is nothing to report.") : line);
    model_.show(parts);
    for (int row = 0; row < model_.rowCount({}); ++row)
        view_->setFirstColumnSpanned(row, {}, true);
    view_->expandAll();
    leaveRoomForWords();
}

// Some beside the numbers and the places, so that few words stand on each other.
void ImportReportPanel::leaveRoomForWords()
{
    constexpr int characters = 20;
    const QAbstractItemView &view = *view_;
    int width = characters * fontMetrics().averageCharWidth() + 2 * (view_->indentation() + view_->frameWidth()) +
                style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, view_);
    for (const int column : {ImportReportModel::Count, ImportReportModel::Where})
        width += std::max(view.sizeHintForColumn(column), view_->header()->sectionSizeHint(column));
    view_->setMinimumWidth(width);
}

void ImportReportPanel::choose(const QModelIndex &row)
{
    const auto first = row.siblingAtColumn(ImportReportModel::What);
    if (chosen_ == first)
        model_.goOn(first);
    chosen_ = first;
    if (const auto place = model_.place(first))
        emit placeChosen(*place);
}

void ImportReportPanel::edit(const QModelIndex &row)
{
    if (const auto place = model_.place(row))
        emit editRequested(*place);
}
