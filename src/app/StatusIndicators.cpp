#include "app/StatusIndicators.h"

#include "app/commands/SongCommands.h"
#include "app/services/InstrumentScanTask.h"
#include "app/services/Playback.h"
#include "app/services/SongImport.h"
#include "app/services/SoundOutput.h"
#include "settings/Settings.h"
#include "ui/BusyIndicator.h"

#include <QLabel>
#include <QMainWindow>
#include <QShortcut>
#include <QStatusBar>
#include <QTimer>

namespace {

constexpr int savedMs = 5000; // how long it is told
constexpr int underrunsMs = 10000;

void show(QLabel &notice, const QString &problem)
{
    notice.setText(problem);
    notice.setVisible(!problem.isEmpty());
}

} // namespace

StatusIndicators::StatusIndicators(QMainWindow &window) : bar_(*window.statusBar())
{
    // Here, since a key belongs to one thing only and several indicators may be shown.
    auto *const escape = new QShortcut(Qt::Key_Escape, &window);
    connect(escape, &QShortcut::activated, this, &StatusIndicators::cancelAll);
    engineProblem_ = addNotice("engineProblem");
    outputProblem_ = addNotice("outputProblem");
    missingDevice_ = addNotice("missingDevice");
    recording_ = addNotice("recording");
    underruns_ = addNotice("underruns");
    underruns_->setToolTip(tr("The sound device ran dry: close what is busy, or choose a larger block under Tools, "
                              "Preferences, Sound"));
    underrunsEnd_ = new QTimer(this);
    underrunsEnd_->setSingleShot(true);
    connect(underrunsEnd_, &QTimer::timeout, underruns_, &QLabel::hide);
    settingsProblem_ = addNotice("settingsProblem");
    journalProblem_ = addNotice("journalProblem");
}

QLabel *StatusIndicators::addNotice(const char *name)
{
    auto *const notice = new QLabel;
    notice->setObjectName(QLatin1String(name));
    notice->setTextFormat(Qt::PlainText);
    notice->hide();
    bar_.addPermanentWidget(notice);
    return notice;
}

BusyIndicator *StatusIndicators::addIndicator(const char *name)
{
    auto *const indicator = new BusyIndicator;
    indicator->setObjectName(QLatin1String(name));
    bar_.addPermanentWidget(indicator);
    indicators_.append(indicator);
    return indicator;
}

void StatusIndicators::cancelAll()
{
    for (auto *const indicator : std::as_const(indicators_)) {
        if (indicator->isVisible())
            emit indicator->cancelled();
    }
}

void StatusIndicators::follow(SongImport &import)
{
    auto *const busy = addIndicator("importIndicator");
    connect(busy, &BusyIndicator::finished, this, &StatusIndicators::workEnded);
    connect(busy, &BusyIndicator::cancelled, &import, &SongImport::cancel);
    connect(&import, &SongImport::progress, busy, [=, this](const QString &status, int done, int total) {
        bar_.showMessage(status);
        busy->showProgress(status, done, total > 1 ? total : 0);
    });
    connect(&import, &SongImport::idle, busy, [=, this] {
        bar_.clearMessage();
        busy->finish();
    });
}

void StatusIndicators::follow(SongCommands &songs)
{
    auto *const busy = addIndicator("songIndicator");
    connect(busy, &BusyIndicator::finished, this, &StatusIndicators::workEnded);
    connect(busy, &BusyIndicator::cancelled, &songs, &SongCommands::cancelOpening);
    connect(&songs, &SongCommands::opening, busy, [=](const QString &status) { busy->showProgress(status, 0, 0); });
    connect(&songs, &SongCommands::openingEnded, busy, &BusyIndicator::finish);
    connect(&songs, &SongCommands::saving, this,
            [this](const QString &path) { bar_.showMessage(tr("Saving %1...").arg(path)); });
    connect(&songs, &SongCommands::saved, this, [this](const QStringList &paths) {
        const auto what = paths.size() == 1 ? paths.first() : tr("%n part(s)", nullptr, int(paths.size()));
        bar_.showMessage(tr("Saved %1").arg(what), savedMs);
    });
}

void StatusIndicators::follow(InstrumentScanTask &scan)
{
    auto *const busy = addIndicator("scanIndicator");
    connect(busy, &BusyIndicator::finished, this, &StatusIndicators::workEnded);
    connect(busy, &BusyIndicator::cancelled, &scan, &InstrumentScanTask::stop);
    connect(&scan, &InstrumentScanTask::progress, busy,
            [=](int done, int total) { busy->showProgress(tr("Looking for instruments..."), done, total); });
    connect(&scan, &InstrumentScanTask::finished, busy, &BusyIndicator::finish);
}

void StatusIndicators::follow(Playback &playback)
{
    auto *const busy = addIndicator("samplesIndicator");
    connect(busy, &BusyIndicator::cancelled, &playback, &Playback::stop);
    connect(&playback, &Playback::loading, busy, [=](int track, int tracks, int percent) {
        const auto text = tr("Loading samples, track %1 of %2...").arg(track).arg(tracks);
        busy->showProgress(text, 100 * (track - 1) + percent, 100 * tracks);
    });
    connect(&playback, &Playback::loaded, busy, &BusyIndicator::finish);
    connect(&playback, &Playback::warned, this, [this](const QString &text) {
        warning_ = text;
        bar_.showMessage(text, 10000);
    });
}

void StatusIndicators::follow(SoundOutput &output)
{
    connect(&output, &SoundOutput::underrunsGrew, this, &StatusIndicators::showUnderruns);
    connect(&output, &SoundOutput::missingChanged, missingDevice_, [this](const QString &device) {
        show(*missingDevice_, device.isEmpty() ? device : tr("\"%1\" is not there: the default device").arg(device));
    });
}

void StatusIndicators::showUnderruns(quint64 underruns)
{
    show(*underruns_, tr("Sound dropouts: %1").arg(underruns));
    underrunsEnd_->start(underrunsMs);
}

void StatusIndicators::showRecording(bool isRecording)
{
    show(*recording_, isRecording ? tr("Recording...") : QString());
}

void StatusIndicators::showLoadingSample(const QString &samplePath)
{
    if (warning_.isEmpty() || bar_.currentMessage() != warning_) // which is to be read
        bar_.showMessage(tr("Loading sample %1...").arg(samplePath), 3000);
}

void StatusIndicators::showEngineProblem(const QString &problem)
{
    constexpr int widest = 420; // so that it has room in a small window
    engineProblem_->setToolTip(problem);
    show(*engineProblem_, engineProblem_->fontMetrics().elidedText(problem, Qt::ElideRight, widest));
}

void StatusIndicators::showOutputProblem(const QString &problem)
{
    show(*outputProblem_, problem);
}

void StatusIndicators::showJournalProblem(const QString &problem)
{
    show(*journalProblem_, problem.isEmpty() ? problem : tr("A crash would lose your work: %1").arg(problem));
}

void StatusIndicators::follow(const Settings &settings)
{
    settingsProblem_->setToolTip(settings.fileName());
    show(*settingsProblem_, settings.problem());
    connect(&settings, &Settings::problemChanged, settingsProblem_,
            [this](const QString &problem) { show(*settingsProblem_, problem); });
}
