#include "ui/preferences/ChecksPage.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QSpinBox>
#include <QVBoxLayout>

namespace {

constexpr int mostSemitones = 48;
constexpr int mostOfOthers = 10'000'000;

} // namespace

ChecksPage::ChecksPage(const Settings &settings, QWidget *parent) : QWidget(parent), settings_(settings)
{
    auto *const group = new QGroupBox(tr("Will the game play it?"));
    auto *const rows = new QFormLayout(group);
    auto *const semitones = limit(Settings::CheckSemitones, mostSemitones, "spnCheckSemitones",
                                  tr("Notes that are farther from their sample do not sound natural"));
    semitones->setSuffix(tr(" semitones"));
    rows->addRow(tr("Farthest from a sample:"), semitones);
    auto *const notes = limit(Settings::CheckNotesAtOnce, mostOfOthers, "spnCheckNotes",
                              tr("How many notes of one part the game plays at once"));
    notes->setSpecialValueText(tr("any number"));
    rows->addRow(tr("Notes of a part at once:"), notes);
    auto *const characters =
        limit(Settings::CheckCharacters, mostOfOthers, "spnCheckCharacters", tr("How long the text of a part may be"));
    characters->setSpecialValueText(tr("any number"));
    rows->addRow(tr("Characters of a part:"), characters);
    auto *const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(group);
    column->addStretch();
}

QSpinBox *ChecksPage::limit(Settings::Setting setting, int most, const char *name, const QString &tip)
{
    auto *const box = new QSpinBox;
    box->setObjectName(QLatin1String(name));
    box->setToolTip(tip);
    box->setRange(0, most);
    box->setValue(settings_.value(setting).toInt());
    connect(box, qOverload<int>(&QSpinBox::valueChanged), this,
            [this, setting](int value) { emit changed(setting, value); });
    return box;
}
