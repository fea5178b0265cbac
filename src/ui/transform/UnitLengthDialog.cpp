#include "ui/transform/UnitLengthDialog.h"

#include "core/HeaderFields.h"
#include "ui/transform/DialogFrame.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QRegularExpression>
#include <QSpinBox>

namespace {

QSpinBox *fractionBox(const char *objectName, int value, const QString &accessibleName)
{
    auto *const box = new QSpinBox;
    box->setObjectName(QLatin1String(objectName));
    box->setRange(1, 1024);
    box->setValue(value);
    box->setAccessibleName(accessibleName);
    box->setToolTip(accessibleName);
    return box;
}

QWidget *line(std::initializer_list<QWidget *> parts)
{
    auto *const widget = new QWidget;
    auto *const layout = new QHBoxLayout(widget);
    layout->setContentsMargins({});
    for (auto *const part : parts)
        layout->addWidget(part);
    layout->addStretch();
    return widget;
}

} // namespace

UnitLengthDialog::UnitLengthDialog(QWidget *parent)
    : QDialog(parent), fixed_(new QComboBox), custom_(new QCheckBox(tr("Use custom length"))),
      numerator_(fractionBox("spNum", 1, tr("Numerator"))), denominator_(fractionBox("spDen", 8, tr("Denominator"))),
      autoDetect_(new QCheckBox(tr("Auto-detect ideal unit length")))
{
    auto *const label = new QLabel(tr("Change unit length to"));
    label->setBuddy(fixed_);
    fixed_->setObjectName(QStringLiteral("cboUnitLength"));
    for (int denominator = 1; denominator <= 128; denominator *= 2)
        fixed_->addItem(QStringLiteral("1/%1").arg(denominator));
    custom_->setObjectName(QStringLiteral("chkCustom"));
    custom_->setToolTip(tr("Any fraction of a whole note"));
    autoDetect_->setObjectName(QStringLiteral("chkAutoDetect"));
    autoDetect_->setToolTip(tr("The unit length that makes the text shortest"));
    connect(custom_, &QCheckBox::toggled, this, &UnitLengthDialog::onCustomToggled);
    connect(autoDetect_, &QCheckBox::toggled, this, &UnitLengthDialog::onAutoDetectToggled);
    frameDialog(*this, tr("Change Unit Length"),
                {line({label, fixed_}), line({custom_, numerator_, new QLabel(QStringLiteral("/")), denominator_}),
                 autoDetect_});
    enableInputs();
}

void UnitLengthDialog::preset(const QString &unitLength)
{
    static const QRegularExpression fraction(QStringLiteral("^\\s*(\\d+)(?:\\s*/\\s*(\\d+))?\\s*$"));
    const auto match = fraction.match(unitLength);
    const auto numerator = match.captured(1).toInt();
    const auto denominator = match.capturedLength(2) > 0 ? match.captured(2).toInt() : 1;
    if (!match.hasMatch() || numerator == 0 || denominator == 0)
        return;
    const auto index = fixed_->findText(QStringLiteral("%1/%2").arg(numerator).arg(denominator));
    custom_->setChecked(index < 0);
    if (index >= 0) {
        fixed_->setCurrentIndex(index);
        return;
    }
    numerator_->setValue(numerator);
    denominator_->setValue(denominator);
}

QString UnitLengthDialog::result() const
{
    if (autoDetect_->isChecked())
        return QStringLiteral("auto");
    if (custom_->isChecked())
        return QStringLiteral("%1/%2").arg(numerator_->value()).arg(denominator_->value());
    return fixed_->currentText();
}

void UnitLengthDialog::onCustomToggled(bool)
{
    enableInputs();
}

void UnitLengthDialog::onAutoDetectToggled(bool)
{
    enableInputs();
}

void UnitLengthDialog::enableInputs()
{
    const bool chooses = !autoDetect_->isChecked();
    fixed_->setEnabled(chooses && !custom_->isChecked());
    custom_->setEnabled(chooses);
    for (auto *const box : {numerator_, denominator_})
        box->setEnabled(chooses && custom_->isChecked());
}
