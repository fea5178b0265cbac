#include "app/services/InstrumentScanTask.h"

InstrumentScanTask::InstrumentScanTask(QObject *parent) : QObject(parent)
{
    task_.onProgress([this](TaskProgress reached) { emit progress(reached.done, reached.total); });
}

void InstrumentScanTask::start(const QString &gameRoot, Mods mods)
{
    const auto work = [=](const TaskControl &control) {
        return scanInstruments(gameRoot, mods, [&](const ScanProgress &reached) {
            control.report(reached.done, reached.total);
            return !control.stop().stop_requested();
        });
    };
    task_.start(
        work, [this](const InstrumentSet &instruments) { emit finished(instruments); },
        [this](const QString &error) {
            emit finished(noInstruments());
            emit failed(error);
        });
}
