#include "app/exporting/ExportCommands.h"

#include "app/exporting/AudioExportDialog.h"
#include "app/services/Playback.h"
#include "app/services/SongSession.h"
#include "settings/LastFolder.h"
#include "ui/Dialogs.h"

#include <QDir>
#include <QFileInfo>
#include <QProgressDialog>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace {

QStringList filesOf(const RenderPlan &plan)
{
    QStringList paths;
    for (const auto &file : plan.files)
        paths.append(file.path);
    return paths;
}

} // namespace

ExportCommands::ExportCommands(const CommandContext &context, FileEngineFactory makeEngine, const QString &folder)
    : context_(context), makeEngine_(std::move(makeEngine)), end_(context), unfinished_(folder)
{
    const auto clean = [folder](const TaskControl &) {
        if (!folder.isEmpty())
            UnfinishedExports::removeLeft(folder);
        return true;
    };
    cleaning_.start(
        clean, [](bool) {}, [](const QString &reason) { qWarning("%s", qUtf8Printable(reason)); });
}

QVector<ActionRow> ExportCommands::actions()
{
    return {{"actionExport_to_Wav", tr("Export to Wav"), "Ctrl+Shift+W",
             tr("Export all (non-muted) tracks to a wave file"), "export", "onExportWav()", Available::WithTracks},
            {"actionExport_Audio", tr("Export Audio..."), "",
             tr("Export all (non-muted) tracks as WAV, FLAC, Ogg, Opus or MP3: the mix, or each part"), "export",
             "onExportAudio()", Available::WithTracks}};
}

// Else says so.
bool ExportCommands::isFree()
{
    if (isRunning()) {
        context_.dialogs.message(&context_.window, Dialogs::Severity::Warning, tr("Renderer in use"),
                                 tr("You are already rendering to wav, please wait for it to finish and "
                                    "try again."));
        return false;
    }
    renderer_.reset();
    return true;
}

void ExportCommands::exportWav()
{
    if (!isFree())
        return;
    const auto proposed =
        proposedFile(context_.settings, Settings::WavSaveDir, context_.session.name(), QStringLiteral(".wav"));
    const auto file =
        context_.dialogs.saveFile(&context_.window, tr("Export tracks to wav..."), proposed, tr("Wave file (*.wav)"));
    if (file.isEmpty())
        return;
    context_.settings.setValue(Settings::WavSaveDir, QFileInfo(file).absolutePath());
    start({RenderPlan::wave(file), tr("Export to Wav"), tr("Rendering to wav..."), 1});
}

void ExportCommands::exportAudio()
{
    if (!isFree())
        return;
    const auto dialog = makeDialog();
    if (!context_.dialogs.run(*dialog))
        return;
    const auto path = chosenFile(dialog->coding());
    if (!path.isEmpty())
        considerFiles(exportOf(*dialog, path));
}

std::unique_ptr<AudioExportDialog> ExportCommands::makeDialog()
{
    using Dialog = AudioExportDialog;
    const auto &song = context_.tracks.song();
    const auto hasOffset = [](const auto &track) { return !track->isMuted && track->startOffset != 0; };
    const auto offsets =
        std::any_of(song.begin(), song.end(), hasOffset) ? Dialog::Offsets::Parts : Dialog::Offsets::None;
    const auto loop = context_.session.loop() ? Dialog::Loop::Song : Dialog::Loop::None;
    return std::make_unique<Dialog>(context_.settings, loop, offsets, &context_.window);
}

// An ending of another format is refused, and asked about again.
QString ExportCommands::chosenFile(SoundCoding coding)
{
    const auto &format = formatOf(coding);
    const auto ending = QString::fromUtf8(format.ending);
    const auto filter = QStringLiteral("%1 (*.%2)").arg(QString::fromUtf8(format.name), ending);
    for (;;) {
        const auto proposed =
            proposedFile(context_.settings, Settings::AudioSaveDir, context_.session.name(), u'.' + ending);
        auto path = context_.dialogs.saveFile(&context_.window, tr("Export Audio"), proposed, filter);
        if (path.isEmpty())
            return {};
        const QFileInfo file(path);
        context_.settings.setValue(Settings::AudioSaveDir, file.absolutePath());
        if (file.suffix().isEmpty())
            return path + u'.' + ending;
        if (file.suffix().compare(ending, Qt::CaseInsensitive) == 0)
            return path;
        context_.dialogs.message(&context_.window, Dialogs::Severity::Warning, tr("Export Audio"),
                                 tr("'%1' does not end in \".%2\", as %3 files do.")
                                     .arg(file.fileName(), ending, QString::fromUtf8(format.name)));
    }
}

ExportCommands::Export ExportCommands::exportOf(const AudioExportDialog &dialog, const QString &path) const
{
    QStringList parts;
    for (const auto &track : context_.tracks.song()) {
        if (!track->isMuted)
            parts.append(track->track->title());
    }
    auto plan = planOf({path, context_.session.name(), parts, dialog.files()});
    plan.coding = dialog.coding();
    plan.quality = dialog.quality();
    plan.isNormalised = dialog.isNormalised();
    const auto loop = context_.session.song().loop;
    if (dialog.isLoopOnly() && loop)
        plan.range = TickRange{loop->begin, loop->end};
    return {plan, tr("Export Audio"), tr("Exporting %1...").arg(QFileInfo(path).fileName()),
            gainOf(context_.session.masterVolume()), dialog.hasOffsets()};
}

// Whoever chose the file was asked about that one only.
void ExportCommands::considerFiles(const Export &wanted)
{
    const auto look = [files = wanted.plan.files](const TaskControl &) {
        QStringList existing;
        for (const auto &file : files) {
            if (file.track && QFileInfo::exists(file.path))
                existing.append(QFileInfo(file.path).fileName());
        }
        return existing;
    };
    const auto decide = [=, this](const QStringList &existing) {
        const auto question =
            tr("%n file(s) are there already:\n%1\nWould you like to overwrite them?", nullptr, int(existing.size()))
                .arg(existing.mid(0, 20).join(u'\n'));
        if (existing.isEmpty() ||
            context_.dialogs.ask(&context_.window, wanted.title, question) == Dialogs::Answer::Yes)
            start(wanted);
    };
    task_.start(look, decide, [=, this](const QString &reason) { showFailure(wanted.title, reason); });
}

bool ExportCommands::mayClose()
{
    const auto question = tr("The export to wav is still running.\nWould you like to stop it?");
    return !isRunning() || context_.dialogs.ask(&context_.window, QStringLiteral("Kelvarion Composer"), question) ==
                               Dialogs::Answer::Yes;
}

void ExportCommands::start(const Export &wanted)
{
    export_ = wanted;
    end_.begin();
    failure_.clear();
    remarks_.clear();
    unfinished_.begin(filesOf(wanted.plan));
    renderer_ = std::make_unique<TrackRenderer>(wanted.plan, makeEngine_);
    for (const auto &track : context_.tracks.song()) {
        if (!track->isMuted)
            renderer_->addTrack(*track->track, context_.playback.instrument(track->instrument),
                                {gainOf(track->volume) * wanted.volume, gainOf(track->pan)},
                                wanted.hasOffsets ? track->startOffset : 0);
    }
    connect(renderer_.get(), &TrackRenderer::renderStarted, this, &ExportCommands::renderStarted);
    connect(renderer_.get(), &TrackRenderer::renderProgress, this, &ExportCommands::renderProgress);
    connect(renderer_.get(), &TrackRenderer::renderFinished, this, &ExportCommands::renderFinished);
    connect(renderer_.get(), &TrackRenderer::loadingSample, this, &ExportCommands::loadingSample);
    connect(renderer_.get(), &TrackRenderer::renderFailed, this, [this](const QString &why) { failure_ = why; });
    connect(renderer_.get(), &TrackRenderer::renderCancelled, this, [this] { export_.plan.files.clear(); });
    connect(renderer_.get(), &TrackRenderer::samplesClipped, this,
            [this](quint64 clipped, quint64 samples) { remarks_.append(clippingText(clipped, samples)); });
    connect(renderer_.get(), &TrackRenderer::warned, this, [this](const QString &text) { remarks_.append(text); });
    renderer_->render();
}

void ExportCommands::openProgress()
{
    connect(progress_.open(export_.progress, &context_.window), &QProgressDialog::canceled, renderer_.get(),
            &TrackRenderer::cancel);
}

// Of a cancelled export there is nothing to tell.
void ExportCommands::closeProgress()
{
    progress_.close();
    unfinished_.end();
    const auto paths = filesOf(export_.plan);
    if (paths.isEmpty() && failure_.isEmpty())
        return;
    const auto remark = remarks_.join(QStringLiteral("; "));
    // Later, since whoever is told may begin the next export, and this one's renderer is still speaking.
    QTimer::singleShot(0, this, [this, paths, title = export_.title, failure = failure_, remark] {
        if (failure.isEmpty()) {
            end_.tellWritten(paths, remark);
            emit written(paths, remark);
            return;
        }
        const auto text =
            paths.isEmpty() ? failure : QDir::toNativeSeparators(paths.first()) + QStringLiteral(": ") + failure;
        end_.tellFailure(text); // the message waits
        showFailure(title, text);
    });
}

void ExportCommands::showFailure(const QString &title, const QString &text)
{
    context_.dialogs.message(&context_.window, Dialogs::Severity::Critical, title, text);
}
