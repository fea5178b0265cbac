#include "app/InstrumentScanTask.h"

#include <QElapsedTimer>

namespace {

constexpr qint64 reportPauseMs = 50;

} // namespace

void InstrumentScanTask::start(const QString &gameRoot, Mods mods)
{
    isRunning_ = true;
    isStopped_ = std::make_shared<std::atomic<bool>>(false);
    const QPointer<InstrumentScanTask> self(this);
    const auto isStopped = isStopped_;
    const auto work = [=](const BackgroundTask::Cancelled &cancelled) {
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
            return !*isStopped && !cancelled;
        });
    };
    task_.start(this, work, [this](const InstrumentSet &instruments) {
        isRunning_ = false;
        emit finished(instruments);
    });
}

void InstrumentScanTask::stop()
{
    if (isStopped_)
        *isStopped_ = true;
}
