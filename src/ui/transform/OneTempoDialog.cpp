#include "ui/transform/OneTempoDialog.h"

#include "ui/ManualPage.h"
#include "ui/transform/DialogFrame.h"

#include <QComboBox>
#include <QFormLayout>
#include <QRadioButton>

OneTempoDialog::OneTempoDialog(const QVector<Part> &parts, int chosen, QWidget *parent)
    : QDialog(parent), part_(new QComboBox), moments_(new QRadioButton(tr("Every note &sounds when it did"))),
      lengths_(new QRadioButton(tr("Every note keeps its &written length")))
{
    part_->setObjectName(QStringLiteral("cbTempoOf"));
    for (const auto &part : parts)
        part_->addItem(tr("%1 (%2)").arg(part.name, part.tempo));
    part_->setCurrentIndex(chosen);
    moments_->setObjectName(QStringLiteral("rbMoments"));
    moments_->setToolTip(tr("Notes are written anew in the other tempo, as nearly as can be"));
    moments_->setChecked(true);
    lengths_->setObjectName(QStringLiteral("rbWrittenLengths"));
    lengths_->setToolTip(tr("Only the tempos change, for parts whose tempo was wrong"));
    auto *const questions = new QWidget;
    auto *const form = new QFormLayout(questions);
    form->setContentsMargins({});
    form->addRow(tr("All parts get the &tempo of"), part_);
    form->addRow(moments_);
    form->addRow(lengths_);
    frameDialog(*this, tr("One Tempo for All"), {questions}, TextChoice::NotAsked);
    setManualPage(*this, "arranging.md");
}

int OneTempoDialog::part() const
{
    return part_->currentIndex();
}

OneTempoDialog::Stays OneTempoDialog::stays() const
{
    return moments_->isChecked() ? Stays::Moments : Stays::WrittenLengths;
}
