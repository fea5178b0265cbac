#pragma once

#include "assets/InstrumentScan.h"
#include "base/BackgroundTask.h"

// The scan of a game installation, beside the interface thread.
class InstrumentScanTask : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;
    ~InstrumentScanTask() override { stop(); }

    bool isRunning() const { return isRunning_; }
    void start(const QString &gameRoot, Mods mods);
    void stop(); // finished() follows with what was found so far

signals:
    void progress(int done, int total);
    void finished(const InstrumentSet &instruments);

private:
    bool isRunning_ = false;
    std::stop_source stop_;
    BackgroundTask task_;
};
