#include "ui/preferences/KeyboardGroup.h"

#include "midi/MidiKeyboard.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>

KeyboardGroup::KeyboardGroup(const Settings &settings, const MidiKeyboard &keyboard, QWidget *parent)
    : QGroupBox(tr("MIDI Keyboard"), parent), keyboard_(keyboard), port_(new QComboBox), grid_(new QComboBox),
      state_(new QLabel)
{
    port_->setObjectName(QStringLiteral("cboKeyboard"));
    port_->setToolTip(tr("What is played on it sounds as the selected part"));
    port_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    port_->setMinimumContentsLength(30);
    state_->setObjectName(QStringLiteral("lblKeyboard"));
    state_->setTextFormat(Qt::PlainText);
    auto *const rows = new QFormLayout(this);
    rows->addRow(tr("Keyboard:"), port_);
    rows->addRow(tr("Connected:"), state_);
    rows->addRow(tr("Recorded notes on:"), grid_);
    listGrids(settings.value(Settings::RecordingGrid).toInt());
    listPorts(settings.value(Settings::KeyboardPort).toString());
    showState();
    connect(port_, qOverload<int>(&QComboBox::activated), this,
            [this] { emit changed(Settings::KeyboardPort, port_->currentData()); });
    connect(grid_, qOverload<int>(&QComboBox::activated), this,
            [this] { emit changed(Settings::RecordingGrid, grid_->currentData()); });
    connect(&keyboard_, &MidiKeyboard::openPortChanged, this, &KeyboardGroup::showState);
}

// The chosen one stays in the list while it is not there.
void KeyboardGroup::listPorts(const QString &chosen)
{
    port_->addItem(tr("The first that is found"), MidiKeyboard::any);
    port_->addItem(tr("None"), MidiKeyboard::none);
    for (const auto &port : keyboard_.ports())
        port_->addItem(port, port);
    if (port_->findData(chosen) < 0)
        port_->addItem(tr("%1 (not found)").arg(chosen), chosen);
    port_->setCurrentIndex(port_->findData(chosen));
}

void KeyboardGroup::listGrids(int chosen)
{
    grid_->setObjectName(QStringLiteral("cboRecordingGrid"));
    grid_->setToolTip(tr("Where notes begin and end that Record writes down"));
    grid_->addItem(tr("Eighths"), 8);
    grid_->addItem(tr("Eighth triplets"), 12);
    grid_->addItem(tr("Sixteenths"), 16);
    grid_->addItem(tr("Sixteenth triplets"), 24);
    grid_->addItem(tr("Thirty-seconds"), 32);
    grid_->setCurrentIndex(grid_->findData(chosen));
}

void KeyboardGroup::showState()
{
    const auto port = keyboard_.openPort();
    state_->setText(port.isEmpty() ? tr("none") : port);
}
