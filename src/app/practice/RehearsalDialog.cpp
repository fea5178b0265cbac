#include "app/practice/RehearsalDialog.h"

#include "ui/ManualPage.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTableWidget>

#include <algorithm>

namespace {

enum Column { Part, Offset };

QTableWidgetItem *fixedItem(const QString &text)
{
    auto *const item = new QTableWidgetItem(text);
    item->setFlags(Qt::ItemIsEnabled);
    return item;
}

} // namespace

RehearsalDialog::RehearsalDialog(const Rehearsal &rehearsal, const SongTracks &song, QWidget *parent)
    : QDialog(parent), rehearsal_(rehearsal), diced_(new QRadioButton(tr("&New dice each time that Play is pressed"))),
      typed_(new QRadioButton(tr("&These offsets:"))), spread_(new QSpinBox),
      parts_(new QTableWidget(int(song.size()), 2))
{
    setObjectName(QStringLiteral("rehearsalDialog"));
    setWindowTitle(tr("Band Rehearsal"));
    setManualPage(*this, "window.md");
    spread_->setObjectName(QStringLiteral("spnSpread"));
    spread_->setRange(1, Rehearsal::mostSpread);
    spread_->setValue(rehearsal.spread);
    spread_->setSuffix(tr(" ms"));
    spread_->setSingleStep(5);
    fillParts(song);
    typed_->setObjectName(QStringLiteral("rdoTyped"));
    diced_->setObjectName(QStringLiteral("rdoDiced"));
    (rehearsal.isDiced ? diced_ : typed_)->setChecked(true);
    auto *const hint =
        new QLabel(tr("Hear the parts as a band plays them that starts by hand: some come in sooner, some "
                      "later. The song itself stays as it is."));
    hint->setWordWrap(true);
    auto *const dice = new QPushButton(tr("Throw &Dice"));
    dice->setObjectName(QStringLiteral("btnDice"));
    dice->setAutoDefault(false);
    connect(dice, &QPushButton::clicked, this, &RehearsalDialog::throwDice);
    connect(typed_, &QRadioButton::toggled, this, &RehearsalDialog::showChoice);
    auto *const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *const throwing = new QHBoxLayout;
    throwing->addWidget(spread_);
    throwing->addWidget(dice);
    throwing->addStretch();
    auto *const form = new QFormLayout(this);
    form->addRow(hint);
    auto *const spreadLabel = new QLabel(tr("Up to, &sooner or later:"));
    spreadLabel->setBuddy(spread_);
    form->addRow(spreadLabel, throwing);
    form->addRow(diced_);
    form->addRow(typed_);
    form->addRow(parts_);
    form->addRow(buttons);
    resize(420, 440);
    showChoice();
}

void RehearsalDialog::fillParts(const SongTracks &song)
{
    parts_->setHorizontalHeaderLabels({tr("Part"), tr("Offset (ms)")});
    parts_->horizontalHeader()->setSectionResizeMode(Part, QHeaderView::Stretch);
    parts_->verticalHeader()->hide();
    parts_->setAccessibleName(typed_->text().remove(u'&'));
    for (int row = 0; row < song.size(); ++row) {
        auto *const offset = new QTableWidgetItem;
        offset->setData(Qt::EditRole, rehearsal_.offsets.value(song[row]->id));
        parts_->setItem(row, Part, fixedItem(song[row]->track->title()));
        parts_->setItem(row, Offset, offset);
        ids_.append(song[row]->id);
    }
}

void RehearsalDialog::showChoice()
{
    parts_->setEnabled(typed_->isChecked());
}

// Whoever throws them now wants to keep them.
void RehearsalDialog::throwDice()
{
    rehearsal_.spread = spread_->value();
    for (int row = 0; row < ids_.size(); ++row)
        parts_->item(row, Offset)->setData(Qt::EditRole, rehearsal_.dice());
    typed_->setChecked(true);
}

Rehearsal RehearsalDialog::rehearsal() const
{
    Rehearsal chosen{true, diced_->isChecked(), spread_->value()};
    for (int row = 0; row < ids_.size(); ++row) {
        const auto typed = parts_->item(row, Offset)->data(Qt::EditRole).toInt();
        chosen.offsets.insert(ids_[row], std::clamp(typed, -Rehearsal::mostSpread, Rehearsal::mostSpread));
    }
    return chosen;
}
