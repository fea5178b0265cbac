#include "app/exporting/AudioExportDialog.h"

#include "settings/Settings.h"
#include "ui/ManualPage.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>

#include <algorithm>

namespace {

constexpr int bestQuality = 10;

// The words in the table of formats, which knows nothing of Qt; the other formats are names.
[[maybe_unused]] constexpr const char *formatNames[] = {
    QT_TRANSLATE_NOOP("SoundFormat", "WAV, 16 bit"), QT_TRANSLATE_NOOP("SoundFormat", "WAV, 24 bit"),
    QT_TRANSLATE_NOOP("SoundFormat", "WAV, 32 bit float"), QT_TRANSLATE_NOOP("SoundFormat", "FLAC, 16 bit"),
    QT_TRANSLATE_NOOP("SoundFormat", "FLAC, 24 bit")};

template<typename Widget>
Widget *named(const char *name)
{
    auto *const widget = new Widget;
    widget->setObjectName(QLatin1String(name));
    return widget;
}

} // namespace

AudioExportDialog::AudioExportDialog(Settings &settings, Loop loop, Offsets offsets, QWidget *parent)
    : QDialog(parent), settings_(settings), format_(named<QComboBox>("cmbFormat")), qualityLabel_(new QLabel),
      quality_(named<QSpinBox>("spnQuality")), files_(named<QComboBox>("cmbFiles")),
      range_(named<QComboBox>("cmbRange")), normalise_(named<QCheckBox>("chkNormalise")),
      offsets_(named<QCheckBox>("chkOffsets"))
{
    setObjectName(QStringLiteral("audioExportDialog"));
    setManualPage(*this, "export.md");
    setWindowTitle(tr("Export Audio"));
    addFormats(settings.value(Settings::ExportFormat).toInt());
    qualityLabel_->setText(tr("&Quality:"));
    qualityLabel_->setBuddy(quality_);
    quality_->setRange(0, bestQuality);
    quality_->setValue(settings.value(Settings::ExportQuality).toInt());
    quality_->setToolTip(tr("From 0, the smallest file, to 10, the best sound"));
    files_->addItems({tr("The mix"), tr("One file for each part"), tr("The mix and one file for each part")});
    files_->setCurrentIndex(std::clamp(settings.value(Settings::ExportFiles).toInt(), 0, files_->count() - 1));
    range_->addItems({tr("The whole song"), tr("The loop")});
    range_->setEnabled(loop == Loop::Song);
    range_->setToolTip(loop == Loop::Song ? QString() : tr("The song has no loop"));
    normalise_->setText(tr("&Normalise to -1 dBFS"));
    normalise_->setToolTip(tr("Makes all files louder or softer alike, so that nothing is clipped"));
    normalise_->setChecked(settings.value(Settings::ExportNormalise).toBool());
    offsets_->setText(tr("With the &start offsets of the parts"));
    offsets_->setChecked(settings.value(Settings::ExportOffsets).toBool());
    offsets_->setEnabled(offsets == Offsets::Parts);
    offsets_->setToolTip(offsets == Offsets::Parts ? tr("Parts come in as they do in the playback")
                                                   : tr("No part has a start offset"));

    auto *const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setText(tr("&Export..."));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(this, &QDialog::accepted, this, &AudioExportDialog::remember);
    connect(format_, qOverload<int>(&QComboBox::currentIndexChanged), this, &AudioExportDialog::showQuality);

    auto *const form = new QFormLayout(this);
    form->addRow(tr("&Format:"), format_);
    form->addRow(qualityLabel_, quality_);
    form->addRow(tr("F&iles:"), files_);
    form->addRow(tr("&Range:"), range_);
    form->addRow(normalise_);
    form->addRow(offsets_);
    form->addRow(buttons);
    showQuality();
}

void AudioExportDialog::addFormats(int chosen)
{
    for (const auto &format : soundFormats()) {
        if (!isBuiltIn(format.coding))
            continue;
        format_->addItem(QCoreApplication::translate("SoundFormat", format.name), int(format.coding));
        if (int(format.coding) == chosen)
            format_->setCurrentIndex(format_->count() - 1);
    }
}

void AudioExportDialog::showQuality()
{
    const bool hasLosses = formatOf(coding()).bits == 0;
    quality_->setEnabled(hasLosses);
    qualityLabel_->setEnabled(hasLosses);
}

void AudioExportDialog::remember()
{
    settings_.setValue(Settings::ExportFormat, int(coding()));
    settings_.setValue(Settings::ExportQuality, quality_->value());
    settings_.setValue(Settings::ExportFiles, files_->currentIndex());
    settings_.setValue(Settings::ExportNormalise, isNormalised());
    settings_.setValue(Settings::ExportOffsets, offsets_->isChecked());
}

SoundCoding AudioExportDialog::coding() const
{
    return SoundCoding(format_->currentData().toInt());
}

double AudioExportDialog::quality() const
{
    return double(quality_->value()) / bestQuality;
}

RenderFiles AudioExportDialog::files() const
{
    return RenderFiles(files_->currentIndex());
}

bool AudioExportDialog::isLoopOnly() const
{
    return range_->currentIndex() == 1;
}

bool AudioExportDialog::isNormalised() const
{
    return normalise_->isChecked();
}

bool AudioExportDialog::hasOffsets() const
{
    return offsets_->isEnabled() && offsets_->isChecked();
}
