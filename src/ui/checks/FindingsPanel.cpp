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

// A button that is disabled hands the keys to whatever comes next, which may be far from the panel.
void enable(QPushButton &button, bool isEnabled, QWidget &keysElse)
{
    if (!isEnabled && button.hasFocus())
        keysElse.setFocus();
    button.setEnabled(isEnabled);
}

} // namespace

FindingsPanel::FindingsPanel(QWidget *parent)
    : QWidget(parent), line_(new QLabel), view_(new QTreeView), sentence_(new QLabel),
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
    column->addWidget(sentence_);
    column->addLayout(buttons);
    line_->setWordWrap(true);
    sentence_->setWordWrap(true);
    sentence_->setTextFormat(Qt::PlainText);
    sentence_->setAlignment(Qt::AlignTop);
    sentence_->setMinimumHeight(2 * fontMetrics().lineSpacing()); // the list keeps its size
    view_->setObjectName(QStringLiteral("findings"));
    setFocusProxy(view_);
    view_->setAccessibleName(tr("What the game would not play as it is meant"));
    view_->setModel(&model_);
    view_->setUniformRowHeights(true);
    view_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view_->header()->setStretchLastSection(false); // what is too long is cut, not the place
    view_->header()->setSectionResizeMode(FindingsModel::What, QHeaderView::Stretch);
    view_->header()->setSectionResizeMode(FindingsModel::Where, QHeaderView::ResizeToContents);
    view_->header()->setResizeContentsPrecision(0);           // of what is seen: there may be thousands
    view_->setMinimumHeight(3 * fontMetrics().lineSpacing()); // beside other panels on a small screen
    view_->setMinimumWidth(50 * fontMetrics().averageCharWidth());
    connect(view_, &QTreeView::clicked, this, &FindingsPanel::choose);
    connect(view_->selectionModel(), &QItemSelectionModel::currentChanged, this, &FindingsPanel::showCurrent);
    connect(view_, &QTreeView::collapsed, this, [this](const QModelIndex &row) { keepExpanded(row, false); });
    connect(view_, &QTreeView::expanded, this, [this](const QModelIndex &row) { keepExpanded(row, true); });
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
    const auto trackId = model_.trackId(current);
    const int place = model_.place(current) && current.parent().parent().isValid() ? current.row() : 0;
    model_.show(song);
    line_->setText(song.findingCount() > 0  ? tr("A click shows the place in the editor.")
                   : song.parts().isEmpty() ? tr("There are no parts yet.")
                                            : tr("Nothing is known that the game would not play as it is meant."));
    expandRows({});
    if (kind)
        view_->setCurrentIndex(rowLike(*kind, trackId, place));
    showCurrent();
}

// Many places of a part are one row, until the user wants to see them.
void FindingsPanel::expandRows(const QModelIndex &parent)
{
    constexpr int fewPlaces = 12;
    const QSignalBlocker blocker(view_);
    for (int row = 0; row < model_.rowCount(parent); ++row) {
        const auto index = model_.index(row, 0, parent);
        const auto chosen = expanded_.find({*model_.kind(index), model_.trackId(index)});
        const bool isShort = !parent.isValid() || model_.rowCount(index) <= fewPlaces;
        view_->setExpanded(index, chosen != expanded_.end() ? chosen->second : isShort);
        if (!parent.isValid())
            expandRows(index);
    }
}

void FindingsPanel::keepExpanded(const QModelIndex &row, bool isExpanded)
{
    expanded_[{*model_.kind(row), model_.trackId(row)}] = isExpanded;
}

// The next place is where the last one was mended; where there is none, the row above it.
QModelIndex FindingsPanel::rowLike(FindingKind kind, const QString &trackId, int place) const
{
    for (int row = 0; row < model_.rowCount(); ++row) {
        const auto kindRow = model_.index(row, 0);
        if (model_.kind(kindRow) != kind)
            continue;
        for (int part = 0; !trackId.isEmpty() && part < model_.rowCount(kindRow); ++part) {
            const auto partRow = model_.index(part, 0, kindRow);
            if (model_.trackId(partRow) == trackId)
                return model_.rowCount(partRow) == 0
                           ? partRow
                           : model_.index(std::min(place, model_.rowCount(partRow) - 1), 0, partRow);
        }
        return kindRow;
    }
    return {};
}

void FindingsPanel::showPart(const QString &trackId)
{
    for (int row = 0; row < model_.rowCount(); ++row) {
        const auto index = rowLike(*model_.kind(model_.index(row, 0)), trackId, 0);
        if (model_.trackId(index) == trackId) {
            view_->setCurrentIndex(index);
            return;
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

void FindingsPanel::showCurrent()
{
    const auto current = view_->currentIndex();
    const auto kind = model_.kind(current);
    const auto fixText = kind ? FindingKinds::fixText(*kind) : QString();
    sentence_->setText(model_.fullText(current));
    fix_->setText(fixText.isEmpty() ? tr("Fix") : fixText);
    enable(*fix_, model_.place(current) && model_.isFixable(current), *view_);
    auto whole = current;
    while (whole.parent().isValid())
        whole = whole.parent();
    enable(*fixAll_, kind && model_.isFixable(whole), *view_);
}
