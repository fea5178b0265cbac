#include "app/services/SoundOutput.h"

#include <utility>

SoundOutput::SoundOutput(std::shared_ptr<OutputControl> control, const Settings &settings, QObject *parent)
    : QObject(parent), control_(std::move(control)), settings_(settings)
{
    choose();
    connect(&settings, &Settings::settingChanged, this, [this](Settings::Setting setting) {
        if (setting == Settings::SoundDevice || setting == Settings::SoundBlock)
            choose();
    });
    control_->setListener([this] { QMetaObject::invokeMethod(this, &SoundOutput::tellFigures, Qt::QueuedConnection); });
}

SoundOutput::~SoundOutput()
{
    control_->setListener({});
}

void SoundOutput::choose()
{
    control_->choose({settings_.value(Settings::SoundDevice).toString().toStdString(),
                      std::size_t(qMax(0, settings_.value(Settings::SoundBlock).toInt()))});
}

void SoundOutput::tellFigures()
{
    const auto figures = control_->figures();
    const auto told = std::exchange(told_, figures);
    if (figures.underruns > told.underruns)
        emit underrunsGrew(figures.underruns);
    if (figures.missing != told.missing)
        emit missingChanged(QString::fromStdString(figures.missing));
}
