#include "ui/report/ImportReportPanel.h"

#include <QHeaderView>
#include <QLabel>
#include <QShortcut>
#include <QTreeView>
#include <QVBoxLayout>

#include <algorithm>

ImportReportPanel::ImportReportPanel(QWidget *parent) : QWidget(parent), line_(new QLabel), view_(new QTreeView)
{
    auto *const column = new QVBoxLayout(this);
    column->setContentsMargins(6, 6, 6, 6);
    column->addWidget(line_);
    column->addWidget(view_, 1);
    line_->setWordWrap(true);
    line_->setTextFormat(Qt::PlainText);
    view_->setObjectName(QStringLiteral("importReport"));
    view_->setAccessibleName(tr("Import report"));
    view_->setModel(&model_);
    view_->setUniformRowHeights(true);
    view_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view_->header()->setStretchLastSection(false); // in a narrow window what is too long is cut, not the place
    view_->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    view_->header()->setSectionResizeMode(ImportReportModel::What, QHeaderView::Stretch);
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
    chosen_ = QModelIndex();
    line_->setText(line.isEmpty() ? tr("Of the last import there is nothing to report.") : line);
    model_.show(parts);
    view_->expandAll();
    fitWords();
}

// What was found most often can be read beside the place; long words do not take the room of the rows.
void ImportReportPanel::fitWords()
{
    const QAbstractItemView &view = *view_;
    int width = 2 * view_->frameWidth() + style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, view_);
    for (int column = 0; column < model_.columnCount({}); ++column)
        width += std::max(view.sizeHintForColumn(column), view_->header()->sectionSizeHint(column));
    const int character = fontMetrics().averageCharWidth();
    view_->setMinimumWidth(std::clamp(width, 50 * character, 64 * character));
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
