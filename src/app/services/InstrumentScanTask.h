#pragma once

#include "assets/InstrumentScan.h"
#include "base/Task.h"

// The scan of a game installation, beside the interface thread.
class InstrumentScanTask : public QObject
{
    Q_OBJECT

public:
    explicit InstrumentScanTask(QObject *parent = nullptr);

    bool isRunning() const { return task_.isRunning(); }
    void start(const QString &gameRoot, Mods mods);
    void stop() { task_.stop(); } // finished() follows with what was found so far

signals:
    void progress(int done, int total);
    void finished(const InstrumentSet &instruments);
    void failed(const QString &error); // after finished() without instruments

private:
    Task task_;
};
