#include "ui/transform/RealignNotesDialog.h"

#include "settings/Settings.h"
#include "ui/transform/DialogFrame.h"

#include <QDial>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>

#include <array>

struct RealignDialRow
{
    const char *objectName;
    const char *label;
    int maximum;
    SettingsTable::Setting setting;
    quint32 base;     // the grid at the first step
    int firstStep;    // the dial's value there
    const char *zero; // what the dial says at 0
};

namespace {

constexpr std::array<RealignDialRow, 5> rows{{
    {"dlRegular", QT_TRANSLATE_NOOP("RealignNotesDialog", "Regular"), 7, SettingsTable::RealignRegular, 1, 0,
     QT_TRANSLATE_NOOP("RealignNotesDialog", "Whole")},
    {"dlTriplet", QT_TRANSLATE_NOOP("RealignNotesDialog", "Triplets"), 6, SettingsTable::RealignTriplets, 3, 1,
     QT_TRANSLATE_NOOP("RealignNotesDialog", "None")},
    {"dlQuintuplet", QT_TRANSLATE_NOOP("RealignNotesDialog", "Quintuplets"), 5, SettingsTable::RealignQuintuplets, 5, 1,
     QT_TRANSLATE_NOOP("RealignNotesDialog", "None")},
    {"dlSeptuplet", QT_TRANSLATE_NOOP("RealignNotesDialog", "Septuplets"), 5, SettingsTable::RealignSeptuplets, 7, 1,
     QT_TRANSLATE_NOOP("RealignNotesDialog", "None")},
    {"dlNonuplet", QT_TRANSLATE_NOOP("RealignNotesDialog", "Nonuplets"), 4, SettingsTable::RealignNonuplets, 9, 1,
     QT_TRANSLATE_NOOP("RealignNotesDialog", "None")},
}};

quint32 denominator(const RealignDialRow &row, int value)
{
    return row.base << (value - row.firstStep);
}

// Of a whole note: "128ths".
QString pluralOrdinal(quint32 number)
{
    const auto last = number % 100 >= 11 && number % 100 <= 13 ? 0 : number % 10;
    const auto text = last == 1   ? RealignNotesDialog::tr("%1sts")
                      : last == 2 ? RealignNotesDialog::tr("%1nds")
                      : last == 3 ? RealignNotesDialog::tr("%1rds")
                                  : RealignNotesDialog::tr("%1ths");
    return text.arg(number);
}

} // namespace

RealignNotesDialog::RealignNotesDialog(Settings &settings, QWidget *parent) : QDialog(parent), settings_(settings)
{
    auto *const group = new QGroupBox(tr("Quantization Precision"));
    auto *const grid = new QGridLayout(group);
    for (const auto &row : rows)
        dials_.push_back(addDial(row, *grid, int(dials_.size())));

    const std::array<void (RealignNotesDialog::*)(), 5> slots_{
        &RealignNotesDialog::onRegularChanged, &RealignNotesDialog::onTripletsChanged,
        &RealignNotesDialog::onQuintupletsChanged, &RealignNotesDialog::onSeptupletsChanged,
        &RealignNotesDialog::onNonupletsChanged};
    for (size_t i = 0; i < rows.size(); ++i) {
        connect(dials_[i].dial, &QDial::valueChanged, this, slots_[i]);
        dials_[i].dial->setValue(settings_.value(rows[i].setting).toInt());
        showValue(int(i));
    }
    frameDialog(*this, tr("Realign Notes"), {group});
}

RealignNotesDialog::Dial RealignNotesDialog::addDial(const RealignDialRow &row, QGridLayout &grid, int column)
{
    auto *const dial = new QDial;
    dial->setObjectName(QLatin1String(row.objectName));
    dial->setRange(0, row.maximum);
    dial->setValue(row.maximum);
    dial->setPageStep(1);
    dial->setNotchesVisible(true);
    dial->setFixedSize(72, 72);
    dial->setAccessibleName(tr(row.label));
    dial->setToolTip(tr("The finest note that notes are moved onto"));
    auto *const name = new QLabel(tr(row.label));
    auto *const value = new QLabel;
    value->setMinimumWidth(value->fontMetrics().horizontalAdvance(pluralOrdinal(888)) + 8);
    for (auto *const label : {name, value})
        label->setAlignment(Qt::AlignCenter);
    grid.addWidget(name, 0, column);
    grid.addWidget(dial, 1, column, Qt::AlignCenter);
    grid.addWidget(value, 2, column);
    return {dial, value};
}

void RealignNotesDialog::showValue(int dial)
{
    const auto &row = rows[size_t(dial)];
    const auto &widgets = dials_[size_t(dial)];
    const auto value = widgets.dial->value();
    widgets.value->setText(value == 0 ? tr(row.zero) : pluralOrdinal(denominator(row, value)));
}

QVector<quint32> RealignNotesDialog::grids() const
{
    QVector<quint32> result;
    for (size_t i = 0; i < rows.size(); ++i) {
        if (const auto value = dials_[i].dial->value(); value >= rows[i].firstStep)
            result.append(denominator(rows[i], value));
    }
    return result;
}

void RealignNotesDialog::accept()
{
    for (size_t i = 0; i < rows.size(); ++i)
        settings_.setValue(rows[i].setting, dials_[i].dial->value());
    QDialog::accept();
}
