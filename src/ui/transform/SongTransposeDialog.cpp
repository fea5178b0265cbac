#include "ui/transform/SongTransposeDialog.h"

#include "ui/ManualPage.h"
#include "ui/transform/DialogFrame.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLocale>
#include <QSpinBox>

#include <algorithm>

SongTransposeDialog::SongTransposeDialog(const QVector<Part> &parts, QWidget *parent)
    : QDialog(parent), parts_(parts), semitones_(new QSpinBox), beyond_(new QComboBox),
      percussion_(new QCheckBox(tr("Move &drums, too"))), loss_(new QLabel)
{
    semitones_->setObjectName(QStringLiteral("spSongTranspose"));
    semitones_->setRange(-48, 48);
    semitones_->setSuffix(tr(" semitone(s)"));
    semitones_->setToolTip(tr("12 semitones are an octave; a number below 0 moves the notes down"));
    beyond_->setObjectName(QStringLiteral("cbBeyondRange"));
    beyond_->addItem(tr("move back by octaves"));
    beyond_->addItem(tr("are removed"));
    percussion_->setObjectName(QStringLiteral("chkMoveDrums"));
    percussion_->setToolTip(tr("The notes of drums are different drums, not pitches"));
    const auto isPercussion = [](const Part &part) { return part.isPercussion; };
    if (std::none_of(parts.begin(), parts.end(), isPercussion))
        percussion_->hide();
    loss_->setObjectName(QStringLiteral("lblBeyondRange"));
    auto *const questions = new QWidget;
    auto *const form = new QFormLayout(questions);
    form->setContentsMargins({});
    form->addRow(tr("&Transpose all parts and their keys by"), semitones_);
    form->addRow(tr("Notes that leave the &range"), beyond_);
    form->addRow(loss_);
    form->addRow(percussion_);
    connect(semitones_, QOverload<int>::of(&QSpinBox::valueChanged), this, &SongTransposeDialog::showLoss);
    connect(percussion_, &QCheckBox::toggled, this, &SongTransposeDialog::showLoss);
    showLoss();
    frameDialog(*this, tr("Transpose Song"), {questions}, TextChoice::NotAsked);
    setManualPage(*this, "arranging.md");
    semitones_->selectAll();
}

int SongTransposeDialog::semitones() const
{
    return semitones_->value();
}

BeyondRange SongTransposeDialog::beyond() const
{
    return beyond_->currentIndex() == 0 ? BeyondRange::Fold : BeyondRange::Drop;
}

bool SongTransposeDialog::movesPercussion() const
{
    return percussion_->isChecked();
}

void SongTransposeDialog::showLoss()
{
    int count = 0;
    for (const auto &part : qAsConst(parts_))
        count += part.isPercussion && !movesPercussion() ? 0 : notesBeyondRange(part.track, semitones());
    loss_->setText(count == 0 ? tr("All notes stay within the range.")
                              : tr("%1 notes leave the range.").arg(QLocale().toString(count)));
}
