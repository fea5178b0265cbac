#include "app/exporting/ExportCommands.h"

#include "app/services/Playback.h"
#include "settings/Settings.h"
#include "ui/Dialogs.h"

#include <QFileInfo>
#include <QProgressDialog>

#include <limits>
#include <utility>

ExportCommands::ExportCommands(const CommandContext &context, FileEngineFactory makeEngine)
    : context_(context), makeEngine_(std::move(makeEngine))
{
}

QVector<ActionRow> ExportCommands::actions()
{
    return {{"actionExport_to_Wav", "Export to Wav", "Ctrl+Shift+W", "Export all (non-muted) tracks to a wave file",
             "export", "onExportWav()", Available::WithTracks}};
}

void ExportCommands::exportWav()
{
    if (isRunning()) {
        context_.dialogs.message(&context_.window, Dialogs::Severity::Warning, QStringLiteral("Renderer in use"),
                                 QStringLiteral("You are already rendering to wav, please wait for it to finish and "
                                                "try again."));
        return;
    }
    renderer_.reset();
    const auto file = context_.dialogs.saveFile(&context_.window, QStringLiteral("Export tracks to wav..."),
                                                context_.settings.value(Settings::WavSaveDir).toString(),
                                                QStringLiteral("Wave file (*.wav)"));
    if (file.isEmpty())
        return;
    context_.settings.setValue(Settings::WavSaveDir, QFileInfo(file).absolutePath());
    start(file);
}

bool ExportCommands::mayClose()
{
    const auto question = tr("The export to wav is still running.\nWould you like to stop it?");
    return !isRunning() || context_.dialogs.ask(&context_.window, QStringLiteral("Kelvarion Composer"), question) ==
                               Dialogs::Answer::Yes;
}

void ExportCommands::start(const QString &fileName)
{
    renderer_ = std::make_unique<TrackRenderer>(fileName, makeEngine_);
    for (const auto &track : context_.tracks.song()) {
        if (!track->isMuted)
            renderer_->addTrack(*track->track, context_.playback.instrument(track->instrument),
                                {gainOf(track->volume), gainOf(track->pan)});
    }
    connect(renderer_.get(), &TrackRenderer::renderStarted, this, &ExportCommands::renderStarted);
    connect(renderer_.get(), &TrackRenderer::renderProgress, this, &ExportCommands::renderProgress);
    connect(renderer_.get(), &TrackRenderer::renderFinished, this, &ExportCommands::renderFinished);
    connect(renderer_.get(), &TrackRenderer::loadingSample, this, &ExportCommands::loadingSample);
    connect(renderer_.get(), &TrackRenderer::renderFailed, this, &ExportCommands::showFailure,
            Qt::QueuedConnection); // so that the progress is closed first
    renderer_->render();
}

void ExportCommands::showFailure(const QString &message)
{
    context_.dialogs.message(&context_.window, Dialogs::Severity::Critical, tr("Export to Wav"), message);
}

void ExportCommands::openProgress()
{
    progress_ = new QProgressDialog(QStringLiteral("Rendering to wav..."), tr("Cancel"), 0, 1, &context_.window);
    progress_->setObjectName(QStringLiteral("exportProgress"));
    progress_->setWindowTitle(QStringLiteral("Kelvarion Composer"));
    progress_->setAutoReset(false);
    progress_->setMinimumDuration(500);
    connect(progress_, &QProgressDialog::canceled, renderer_.get(), &TrackRenderer::cancel);
}

void ExportCommands::setProgress(quint64 progress, quint64 total)
{
    if (!progress_)
        return;
    const auto unit = total / quint64(std::numeric_limits<int>::max()) + 1;
    progress_->setMaximum(int(total / unit));
    progress_->setValue(int(progress / unit));
}

void ExportCommands::closeProgress()
{
    if (progress_)
        std::exchange(progress_, nullptr)->deleteLater();
}
