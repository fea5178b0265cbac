#include "app/services/InstrumentScanTask.h"

#include <QElapsedTimer>

namespace {

constexpr qint64 reportPauseMs = 50;

} // namespace

void InstrumentScanTask::start(const QString &gameRoot, Mods mods)
{
    isRunning_ = true;
    stop_ = {};
    const QPointer<InstrumentScanTask> self(this);
    const auto work = [=, stopped = stop_.get_token()](const std::stop_token &cancelled) {
        QElapsedTimer sinceReport;
        sinceReport.start();
        return scanInstruments(gameRoot, mods, [&](const ScanProgress &progress) {
            if (sinceReport.elapsed() > reportPauseMs) {
                sinceReport.restart();
                const auto report = [self, done = progress.done, total = progress.total] {
                    if (self)
                        emit self->progress(done, total);
                };
                QMetaObject::invokeMethod(qApp, report, Qt::QueuedConnection);
            }
            return !stopped.stop_requested() && !cancelled.stop_requested();
        });
    };
    task_.start(this, work, [this](const InstrumentSet &instruments) {
        isRunning_ = false;
        emit finished(instruments);
    });
}

void InstrumentScanTask::stop()
{
    stop_.request_stop();
}
