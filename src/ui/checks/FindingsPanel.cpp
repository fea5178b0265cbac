#include "ui/checks/FindingsPanel.h"

#include "check/findings/FindingKinds.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QTreeView>
#include <QVBoxLayout>

#include <algorithm>

namespace {

QPushButton *makeButton(const char *name, const QString &text, const QString &tip)
{
    auto *const button = new QPushButton(text);
    button->setObjectName(QLatin1String(name));
    button->setToolTip(tip);
    button->setEnabled(false);
    return button;
}

} // namespace

FindingsPanel::FindingsPanel(QWidget *parent)
    : QWidget(parent), line_(new QLabel), view_(new QTreeView),
      fix_(makeButton("btnFixFinding", tr("Fix"), tr("Mend what is chosen, in the part's text"))),
      fixAll_(makeButton("btnFixAllFindings", tr("Fix All of This Kind"), tr("Mend it in all parts, as one step")))
{
    auto *const buttons = new QHBoxLayout;
    buttons->addWidget(fix_);
    buttons->addWidget(fixAll_);
    buttons->addStretch();
    auto *const column = new QVBoxLayout(this);
    column->setContentsMargins(6, 6, 6, 6);
    column->addWidget(line_);
    column->addWidget(view_, 1);
    column->addLayout(buttons);
    line_->setWordWrap(true);
    view_->setObjectName(QStringLiteral("findings"));
    view_->setAccessibleName(tr("What the game would not play as it is meant"));
    view_->setModel(&model_);
    view_->setUniformRowHeights(true);
    view_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view_->header()->setStretchLastSection(false); // what is too long is cut, not the place
    view_->header()->setSectionResizeMode(FindingsModel::What, QHeaderView::Stretch);
    view_->header()->setSectionResizeMode(FindingsModel::Where, QHeaderView::ResizeToContents);
    view_->header()->setResizeContentsPrecision(0); // of what is seen: there may be thousands
    view_->setMinimumWidth(50 * fontMetrics().averageCharWidth());
    connect(view_, &QTreeView::clicked, this, &FindingsPanel::choose);
    connect(view_->selectionModel(), &QItemSelectionModel::currentChanged, this, &FindingsPanel::showButtons);
    connect(view_, &QTreeView::collapsed, this,
            [this](const QModelIndex &row) { collapsed_.insert(*model_.kind(row)); });
    connect(view_, &QTreeView::expanded, this, [this](const QModelIndex &row) { collapsed_.erase(*model_.kind(row)); });
    auto *const enter = new QShortcut(Qt::Key_Return, view_, nullptr, nullptr, Qt::WidgetShortcut);
    connect(enter, &QShortcut::activated, this, [this] { choose(view_->currentIndex()); });
    connect(fix_, &QPushButton::clicked, this, &FindingsPanel::fix);
    connect(fixAll_, &QPushButton::clicked, this,
            [this] { emit fixAllRequested(*model_.kind(view_->currentIndex())); });
    show({});
}

void FindingsPanel::show(const CheckedSong &song)
{
    const auto current = view_->currentIndex();
    const auto kind = model_.kind(current);
    const int place = model_.place(current) ? current.row() : -1;
    model_.show(song);
    line_->setText(song.findingCount() == 0 ? tr("Nothing is known that the game would not play as it is meant.")
                                            : tr("A click shows the place in the editor."));
    for (int row = 0; row < model_.rowCount(); ++row) {
        const auto index = model_.index(row, 0);
        if (!collapsed_.contains(*model_.kind(index)))
            view_->expand(index);
        if (kind && model_.kind(index) == kind) // the next place is where the last one was mended
            view_->setCurrentIndex(place < 0 ? index
                                             : model_.index(std::min(place, model_.rowCount(index) - 1), 0, index));
    }
    showButtons();
}

void FindingsPanel::showPart(const QString &trackId)
{
    for (int row = 0; row < model_.rowCount(); ++row) {
        const auto kind = model_.index(row, 0);
        for (int place = 0; place < model_.rowCount(kind); ++place) {
            const auto index = model_.index(place, 0, kind);
            if (model_.place(index)->trackId == trackId) {
                view_->setCurrentIndex(index);
                return;
            }
        }
    }
}

void FindingsPanel::choose(const QModelIndex &row)
{
    if (const auto place = model_.place(row))
        emit placeChosen(*place);
}

void FindingsPanel::fix()
{
    if (const auto place = model_.place(view_->currentIndex()))
        emit fixRequested(*place);
}

void FindingsPanel::showButtons()
{
    const auto current = view_->currentIndex();
    const auto kind = model_.kind(current);
    const auto fixText = kind ? FindingKinds::fixText(*kind) : QString();
    fix_->setText(fixText.isEmpty() ? tr("Fix") : fixText);
    fix_->setEnabled(model_.place(current) && model_.isFixable(current));
    fixAll_->setEnabled(kind && model_.isFixable(current.parent().isValid() ? current.parent() : current));
}
