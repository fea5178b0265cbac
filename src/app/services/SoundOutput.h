#pragma once

#include "audio/OutputControl.h"
#include "settings/Settings.h"

#include <QObject>

#include <memory>

// Tells the engines which sound device the settings name, and the window how it does. On the interface thread.
class SoundOutput : public QObject
{
    Q_OBJECT

public:
    // The settings outlive it.
    SoundOutput(std::shared_ptr<OutputControl> control, const Settings &settings, QObject *parent = nullptr);
    ~SoundOutput() override;

    OutputControl &control() { return *control_; }

signals:
    void underrunsGrew(quint64 underruns); // since the program's start
    // The device that is wanted and is not there, so that the default plays; empty: there is none.
    void missingChanged(const QString &device);

private:
    void choose();
    void tellFigures();

    const std::shared_ptr<OutputControl> control_;
    const Settings &settings_;
    OutputFigures told_;
};
