#include "ui/report/TuneChooser.h"

#include "ui/ManualPage.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace {

constexpr int fewTunes = 12; // that can be seen at once

} // namespace

TuneChooser::TuneChooser(const QString &book, const QStringList &tunes, QWidget *parent)
    : QDialog(parent), list_(new QListWidget)
{
    setWindowTitle(tr("Choose Tunes"));
    setManualPage(*this, "import.md");
    list_->setObjectName(QStringLiteral("lstTunes"));
    list_->setAccessibleName(tr("Tunes"));
    list_->setToolTip(tr("Ticked tunes are opened, a track for each of their voices"));
    for (const auto &tune : tunes)
        (new QListWidgetItem(tune, list_))->setCheckState(Qt::Checked);

    auto *const buttons = new QDialogButtonBox(QDialogButtonBox::Open | QDialogButtonBox::Cancel);
    open_ = buttons->button(QDialogButtonBox::Open);
    auto *const all = buttons->addButton(tr("&All"), QDialogButtonBox::ActionRole);
    auto *const none = buttons->addButton(tr("&None"), QDialogButtonBox::ActionRole);
    connect(all, &QPushButton::clicked, this, [this] { tickAll(Qt::Checked); });
    connect(none, &QPushButton::clicked, this, [this] { tickAll(Qt::Unchecked); });
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *const find = new QLineEdit;
    find->setObjectName(QStringLiteral("edtFindTune"));
    find->setPlaceholderText(tr("Find"));
    find->setAccessibleName(tr("Find tunes by a part of their names"));
    find->setToolTip(find->accessibleName());
    find->setClearButtonEnabled(true);
    find->setVisible(tunes.size() > fewTunes);
    connect(find, &QLineEdit::textChanged, this, &TuneChooser::showOnly);
    connect(list_, &QListWidget::itemChanged, this, [this] { open_->setEnabled(!chosen().isEmpty()); });

    auto *const column = new QVBoxLayout(this);
    auto *const label = new QLabel(tr("%1 has several tunes. Which are to be opened?").arg(book));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    column->addWidget(label);
    column->addWidget(find);
    column->addWidget(list_, 1);
    column->addWidget(buttons);
    resize(420, 360);
}

// All that are shown.
void TuneChooser::tickAll(Qt::CheckState state)
{
    const QSignalBlocker blocker(list_);
    for (int row = 0; row < list_->count(); ++row) {
        if (!list_->item(row)->isHidden())
            list_->item(row)->setCheckState(state);
    }
    open_->setEnabled(!chosen().isEmpty());
    list_->viewport()->update();
}

void TuneChooser::showOnly(const QString &words)
{
    for (int row = 0; row < list_->count(); ++row)
        list_->item(row)->setHidden(!list_->item(row)->text().contains(words.trimmed(), Qt::CaseInsensitive));
}

QVector<int> TuneChooser::chosen() const
{
    QVector<int> rows;
    for (int row = 0; row < list_->count(); ++row) {
        if (list_->item(row)->checkState() == Qt::Checked)
            rows.append(row);
    }
    return rows;
}
