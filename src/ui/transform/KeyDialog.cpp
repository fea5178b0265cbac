#include "ui/transform/KeyDialog.h"

#include "core/KeyTable.h"
#include "import/ChangeKey.h"
#include "ui/Dialogs.h"
#include "ui/transform/DialogFrame.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>

namespace {

QString accidentalsText(int row)
{
    const auto count = std::abs(row - int(neutralKeyRow));
    if (count == 0)
        return KeyDialog::tr("0 sharps / flats");
    if (row < int(neutralKeyRow))
        return count == 1 ? KeyDialog::tr("1 sharp") : KeyDialog::tr("%1 sharps").arg(count);
    return count == 1 ? KeyDialog::tr("1 flat") : KeyDialog::tr("%1 flats").arg(count);
}

} // namespace

KeyDialog::KeyDialog(Dialogs &dialogs, QWidget *parent)
    : QDialog(parent), dialogs_(dialogs), mode_(new QComboBox), accidentals_(new QComboBox),
      includeMajor_(new QCheckBox(tr("Include Major qualifier"))), newKey_(new QLabel)
{
    mode_->setObjectName(QStringLiteral("cboMode"));
    mode_->addItems({tr("Major / Ionian"), tr("Minor / Aeolian"), tr("Mixolydian"), tr("Dorian"), tr("Phrygian"),
                     tr("Lydian"), tr("Locrian")});
    accidentals_->setObjectName(QStringLiteral("cboAccidentals"));
    for (int row = 0; row < int(keyRowCount); ++row)
        accidentals_->addItem(accidentalsText(row));
    accidentals_->setCurrentIndex(int(neutralKeyRow));
    accidentals_->setMaxVisibleItems(int(keyRowCount));
    includeMajor_->setObjectName(QStringLiteral("chkIncludeMajor"));
    includeMajor_->setToolTip(tr("As Major is the default mode, it does not have to be included explicitly. If this "
                                 "option is checked, it will be added regardless."));
    newKey_->setObjectName(QStringLiteral("lblNewKey"));
    auto font = newKey_->font();
    font.setBold(true);
    newKey_->setFont(font);

    auto *const group = new QGroupBox(tr("New Key"));
    auto *const form = new QFormLayout(group);
    form->addRow(tr("Mode:"), mode_);
    form->addRow(tr("Sharps / flats:"), accidentals_);
    form->addRow(includeMajor_);
    form->addRow(tr("New key:"), newKey_);
    for (auto *const combo : {mode_, accidentals_})
        connect(combo, qOverload<int>(&QComboBox::currentIndexChanged), this, &KeyDialog::updateKey);
    connect(includeMajor_, &QCheckBox::clicked, this, &KeyDialog::updateKey);
    frameDialog(*this, tr("Change Key"), {group});
    updateKey();
}

void KeyDialog::preset(const QString &key)
{
    const auto position = keyPosition(key);
    if (!position)
        return;
    mode_->setCurrentIndex(int(position->mode));
    if (position->row < keyRowCount)
        accidentals_->setCurrentIndex(int(position->row));
}

QString KeyDialog::key() const
{
    return keyText(quint32(accidentals_->currentIndex()), quint32(mode_->currentIndex()),
                   includeMajor_->isChecked() ? MajorQualifier::Include : MajorQualifier::Omit);
}

void KeyDialog::updateKey()
{
    newKey_->setText(key());
}

void KeyDialog::accept()
{
    const bool isSupported = mode_->currentIndex() <= int(Minor);
    if (isSupported || dialogs_.ask(this, tr("Change Key"),
                                    tr("You've chosen a key that is not supported by Kelvarion.\nAre you sure you want "
                                       "to continue?")) == Dialogs::Answer::Yes)
        QDialog::accept();
}
