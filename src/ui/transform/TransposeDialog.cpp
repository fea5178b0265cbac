#include "ui/transform/TransposeDialog.h"

#include "ui/transform/DialogFrame.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QSpinBox>
#include <QStyle>

TransposeDialog::TransposeDialog(QWidget *parent) : QDialog(parent), semitones_(new QSpinBox)
{
    auto *const label = new QLabel(tr("Transpose all notes"));
    semitones_->setObjectName(QStringLiteral("spTranspose"));
    semitones_->setRange(-48, 48);
    semitones_->setSuffix(tr("semitone(s)"));
    semitones_->setToolTip(tr("12 semitones are an octave; a number below 0 moves the notes down"));
    label->setBuddy(semitones_);
    auto *const question = new QWidget;
    auto *const questionLine = new QHBoxLayout(question);
    questionLine->setContentsMargins({});
    questionLine->addWidget(label);
    questionLine->addWidget(semitones_, 1);

    auto *const icon = new QLabel;
    const auto size = style()->pixelMetric(QStyle::PM_LargeIconSize);
    icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(size, size));
    auto *const text =
        new QLabel(tr("Notes that fall outside of the valid octave range after transposing will be removed!"));
    text->setWordWrap(true);
    text->setMinimumWidth(280);
    auto *const warning = new QWidget;
    auto *const warningLine = new QHBoxLayout(warning);
    warningLine->setContentsMargins({});
    warningLine->addWidget(icon, 0, Qt::AlignTop);
    warningLine->addWidget(text, 1);

    frameDialog(*this, tr("Transpose"), {question, warning});
    semitones_->selectAll();
}

int TransposeDialog::semitones() const
{
    return semitones_->value();
}
