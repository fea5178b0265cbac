#include "ui/preferences/SoundPage.h"

#include "ui/preferences/EngineGroup.h"
#include "ui/preferences/KeyboardGroup.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLocale>
#include <QVBoxLayout>

#include <chrono>

namespace {

// Where the device has the rate of most.
QString blockText(int frames)
{
    constexpr int framesInMs = 48;
    return SoundPage::tr("%1 samples (%2 ms)").arg(frames).arg((frames + framesInMs / 2) / framesInMs);
}

} // namespace

SoundPage::SoundPage(const Settings &settings, const SoundDevices &devices, Dialogs &dialogs, QWidget *parent)
    : QWidget(parent), output_(devices.output), wantedDevice_(settings.value(Settings::SoundDevice).toString()),
      wantedBlock_(settings.value(Settings::SoundBlock).toInt()), search_(output_.findDevices())
{
    auto *const groups = new QVBoxLayout(this);
    groups->setContentsMargins(0, 0, 0, 0);
    groups->addWidget(deviceGroup());
    addGroup(new EngineGroup(settings, dialogs));
    if (devices.keyboard)
        addGroup(new KeyboardGroup(settings, *devices.keyboard));
    groups->addStretch();
    listDevices({});
    connect(device_, qOverload<int>(&QComboBox::activated), this,
            [this] { emit changed(Settings::SoundDevice, device_->currentData()); });
    connect(block_, qOverload<int>(&QComboBox::activated), this,
            [this] { emit changed(Settings::SoundBlock, block_->currentData()); });
    timer_.setInterval(250);
    connect(&timer_, &QTimer::timeout, this, &SoundPage::showState);
}

template<typename Group>
void SoundPage::addGroup(Group *group)
{
    connect(group, &Group::changed, this, &SoundPage::changed);
    layout()->addWidget(group);
}

QWidget *SoundPage::deviceGroup()
{
    auto *const group = new QGroupBox(tr("Sound Device"));
    auto *const rows = new QFormLayout(group);
    rows->addRow(tr("Device:"), device_ = deviceBox());
    rows->addRow(tr("Block size:"), block_ = blockBox());
    latency_ = addFigure(*rows, "lblLatency", tr("Latency:"), tr("How long the device's block lasts"));
    underruns_ = addFigure(*rows, "lblUnderruns", tr("Dropouts:"),
                           tr("How often the device ran dry since the program's start: gaps that can be heard"));
    missing_ = new QLabel;
    missing_->setObjectName(QStringLiteral("lblMissingDevice"));
    missing_->setTextFormat(Qt::PlainText);
    missing_->setWordWrap(true);
    rows->addRow(missing_);
    return group;
}

QComboBox *SoundPage::deviceBox()
{
    auto *const box = new QComboBox;
    box->setObjectName(QStringLiteral("cboSoundDevice"));
    box->setToolTip(tr("Where the tracks are heard"));
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(30);
    return box;
}

QComboBox *SoundPage::blockBox()
{
    auto *const box = new QComboBox;
    box->setObjectName(QStringLiteral("cboSoundBlock"));
    box->setToolTip(tr("Small blocks answer a keyboard sooner; large ones have no gaps beside a busy program"));
    box->addItem(tr("Automatic (grows after a dropout)"), 0);
    for (int frames = 128; frames <= 4096; frames *= 2)
        box->addItem(blockText(frames), frames);
    box->setCurrentIndex(qMax(0, box->findData(wantedBlock_)));
    return box;
}

QLabel *SoundPage::addFigure(QFormLayout &rows, const char *name, const QString &title, const QString &tip)
{
    auto *const figure = new QLabel;
    figure->setObjectName(QLatin1String(name));
    figure->setToolTip(tip);
    rows.addRow(title, figure);
    return figure;
}

// The wanted one stays in the list while it is not there.
void SoundPage::listDevices(const OutputControl::Names &names)
{
    const auto chosen = device_->count() == 0 ? wantedDevice_ : device_->currentData().toString();
    device_->clear();
    device_->addItem(tr("System default"), QString());
    for (const auto &each : names) {
        const auto name = QString::fromStdString(each);
        device_->addItem(name, name);
    }
    if (device_->findData(chosen) < 0)
        device_->addItem(tr("%1 (not found)").arg(chosen), chosen);
    device_->setCurrentIndex(device_->findData(chosen));
}

void SoundPage::showState()
{
    if (search_.valid() && search_.wait_for(std::chrono::seconds(0)) == std::future_status::ready)
        listDevices(search_.get());
    const auto figures = output_.figures();
    latency_->setText(figures.latency > 0 ? tr("%1 ms").arg(QLocale().toString(figures.latency, 'f', 1))
                                          : tr("no device is open"));
    underruns_->setText(QLocale().toString(qulonglong(figures.underruns)));
    missing_->setVisible(!figures.missing.empty());
    missing_->setText(
        tr("\"%1\" is not there, so the system default is heard.").arg(QString::fromStdString(figures.missing)));
}

void SoundPage::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    showState();
    timer_.start();
}

void SoundPage::hideEvent(QHideEvent *event)
{
    timer_.stop();
    QWidget::hideEvent(event);
}
