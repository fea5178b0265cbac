// How songs come into the window and leave it.

#include "app/MainWindow.h"
#include "app/services/RecentFiles.h"
#include "core/HeaderFields.h"
#include "ui/Dialogs.h"
#include "ui/song/TrackRows.h"
#include "ui/song/TrackWidget.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QProgressDialog>
#include <QTimer>

#include <algorithm>
#include <limits>
#include <utility>

QString MainWindow::startFolder(Settings::Setting setting) const
{
    return settings_.value(setting).toString();
}

void MainWindow::rememberFolder(Settings::Setting setting, const QString &file)
{
    settings_.setValue(setting, QFileInfo(file).absolutePath());
}

ExistingTracks MainWindow::askAboutExisting(const QString &title)
{
    const auto question = QStringLiteral("Would you like to remove the existing tracks first?");
    const bool removes = !tracks_.isEmpty() && dialogs_.ask(this, title, question) == Dialogs::Answer::Yes;
    return removes ? ExistingTracks::Remove : ExistingTracks::Keep;
}

void MainWindow::load(const ImportRequest &request)
{
    if (!request.sources.isEmpty())
        import_.start(request);
}

void MainWindow::onImported(const ImportRequest &request, const ReadSong &song)
{
    imported_.append({request, song});
    takeImported();
}

void MainWindow::takeImported()
{
    if (!isScanned_ || imported_.isEmpty()) // the instruments' names must be known
        return;
    if (QApplication::activeModalWidget()) { // a dialog may belong to a row that would go
        QTimer::singleShot(50, this, &MainWindow::takeImported);
        return;
    }
    const auto [request, song] = imported_.takeFirst();
    QVector<NewTrack> added;
    for (const auto &track : song.tracks)
        added.append({track, instrumentFor(track)});
    tracks_.add(request.step, added, request.existing);
    for (const auto &file : song.readFiles)
        RecentFiles::add(settings_, file);
    for (const auto &error : song.errors)
        dialogs_.message(this, Dialogs::Severity::Critical, error.title, error.text);
    takeImported();
}

QString MainWindow::instrumentFor(const Track &track) const
{
    const auto named = HeaderFields::instrumentName(track.headerFields(QStringLiteral("I")));
    const auto resolved = playback_.resolvedName(named);
    if (!named.isEmpty() && named != resolved)
        qWarning("%s: there is no instrument '%s'", qUtf8Printable(track.title()), qUtf8Printable(named));
    return resolved;
}

void MainWindow::openFiles(const QStringList &paths)
{
    if (paths.isEmpty())
        return;
    QMimeData files;
    QList<QUrl> urls;
    for (const auto &path : paths) {
        urls.append(QUrl::fromLocalFile(path));
        if (!QFileInfo::exists(path))
            RecentFiles::forget(settings_, path);
    }
    files.setUrls(urls);
    const auto sources = sourcesOf(files, FileOrigin::Pasted);
    if (sources.isEmpty())
        dialogs_.message(this, Dialogs::Severity::Warning, tr("Open Files"), tr("These are no ABC or MIDI files."));
    else
        load({tr("Open Files"), tr("Loading files..."), sources, askAboutExisting(QStringLiteral("Import Files"))});
}

void MainWindow::onLoadABC()
{
    const auto files = dialogs_.openFiles(this, QStringLiteral("Choose ABC file(s) to open"),
                                          startFolder(Settings::AbcOpenDir), QStringLiteral("ABC files (*.abc)"));
    if (files.isEmpty())
        return;
    rememberFolder(Settings::AbcOpenDir, files.first());
    QVector<SongSource> sources;
    for (const auto &file : files)
        sources.append({SongSource::Kind::AbcFile, file});
    load({tr("Open Tracks"), tr("Loading ABC files..."), sources});
}

void MainWindow::onImportMidi()
{
    const auto file = dialogs_.openFile(this, QStringLiteral("Choose MIDI file to import..."),
                                        startFolder(Settings::MidiOpenDir), QStringLiteral("MIDI files (*.mid)"));
    if (file.isEmpty())
        return;
    rememberFolder(Settings::MidiOpenDir, file);
    const auto existing = askAboutExisting(QStringLiteral("Import MIDI"));
    load({tr("Import MIDI"), QStringLiteral("Loading MIDI file..."), {{SongSource::Kind::MidiFile, file}}, existing});
}

void MainWindow::onImportClipboard()
{
    const auto title = QStringLiteral("Import from clipboard");
    const auto *const content = QApplication::clipboard()->mimeData();
    if (!content || !(content->hasText() || content->hasUrls())) {
        dialogs_.message(this, Dialogs::Severity::Information, title,
                         QStringLiteral("The clipboard does not contain anything to import."));
        return;
    }
    const auto step = tr("Paste Tracks");
    if (content->hasUrls())
        load({step, tr("Loading files..."), sourcesOf(*content, FileOrigin::Pasted), askAboutExisting(title)});
    else
        load({step, tr("Reading the clipboard..."), sourcesOf(content->text())});
}

void MainWindow::dragEnterEvent(QDragEnterEvent *event)
{
    if (!sourcesOf(*event->mimeData(), FileOrigin::Dropped).isEmpty())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent *event)
{
    const auto sources = sourcesOf(*event->mimeData(), FileOrigin::Dropped);
    if (sources.isEmpty())
        return;
    event->acceptProposedAction();
    // Where the files come from waits for the end of the drop, not for an answer.
    const auto loadDropped = [=, this] {
        load({tr("Drop Files"), tr("Loading files..."), sources, askAboutExisting(QStringLiteral("Import Files"))});
    };
    QMetaObject::invokeMethod(this, loadDropped, Qt::QueuedConnection);
}

bool MainWindow::save(const QStringList &ids)
{
    return std::all_of(ids.cbegin(), ids.cend(), [this](const QString &id) {
        auto *const row = rows_->row(id);
        return row && row->save();
    });
}

void MainWindow::onSaveSelected()
{
    save(tracks_.selectedIds());
}

void MainWindow::onSaveAll()
{
    save(tracks_.ids());
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    merging_.cancel(); // its sources are there
    updateActions();
    if (!editors_.closeAll()) {
        event->ignore();
        return;
    }
    const auto unsaved = tracks_.unsavedIds();
    if (!unsaved.isEmpty()) {
        const auto text =
            tr("%n track(s) are not saved yet.\nWould you like to save them?", nullptr, int(unsaved.size()));
        const auto answer = dialogs_.askToSave(this, windowTitle(), text);
        const bool mayClose =
            answer == Dialogs::CloseAnswer::Discard || (answer == Dialogs::CloseAnswer::SaveAll && save(unsaved));
        if (!mayClose) {
            event->ignore();
            return;
        }
    }
    if (isExporting()) {
        const auto question = tr("The export to wav is still running.\nWould you like to stop it?");
        if (dialogs_.ask(this, windowTitle(), question) == Dialogs::Answer::No) {
            event->ignore();
            return;
        }
    }
    import_.cancel();
    playback_.stop();
    settings_.setValue(Settings::WindowGeometry, QString::fromLatin1(saveGeometry().toBase64()));
    settings_.setValue(Settings::WindowState, QString::fromLatin1(saveState().toBase64()));
    settings_.save();
    QMainWindow::closeEvent(event);
}

// --- Export ---

void MainWindow::onExportWav()
{
    if (isExporting()) {
        dialogs_.message(this, Dialogs::Severity::Warning, QStringLiteral("Renderer in use"),
                         QStringLiteral("You are already rendering to wav, please wait for it to finish and try "
                                        "again."));
        return;
    }
    renderer_.reset();
    const auto file = dialogs_.saveFile(this, QStringLiteral("Export tracks to wav..."),
                                        startFolder(Settings::WavSaveDir), QStringLiteral("Wave file (*.wav)"));
    if (file.isEmpty())
        return;
    rememberFolder(Settings::WavSaveDir, file);
    startExport(file);
}

void MainWindow::startExport(const QString &fileName)
{
    renderer_ = std::make_unique<TrackRenderer>(fileName, services_.makeFileEngine);
    for (const auto &track : tracks_.song()) {
        if (!track->isMuted)
            renderer_->addTrack(*track->track, playback_.instrument(track->instrument),
                                {gainOf(track->volume), gainOf(track->pan)});
    }
    connect(renderer_.get(), &TrackRenderer::renderStarted, this, &MainWindow::onRenderStarted);
    connect(renderer_.get(), &TrackRenderer::renderProgress, this, &MainWindow::onRenderProgress);
    connect(renderer_.get(), &TrackRenderer::renderFinished, this, &MainWindow::onRenderFinished);
    connect(renderer_.get(), &TrackRenderer::loadingSample, this, &MainWindow::onLoadingSample);
    connect(
        renderer_.get(), &TrackRenderer::renderFailed, this,
        [this](const QString &message) {
            dialogs_.message(this, Dialogs::Severity::Critical, tr("Export to Wav"), message);
        },
        Qt::QueuedConnection); // so that the progress is closed first
    renderer_->render();
}

void MainWindow::onRenderStarted()
{
    exportProgress_ = new QProgressDialog(QStringLiteral("Rendering to wav..."), tr("Cancel"), 0, 1, this);
    exportProgress_->setObjectName(QStringLiteral("exportProgress"));
    exportProgress_->setWindowTitle(windowTitle());
    exportProgress_->setAutoReset(false);
    exportProgress_->setMinimumDuration(500);
    connect(exportProgress_, &QProgressDialog::canceled, renderer_.get(), &TrackRenderer::cancel);
}

void MainWindow::onRenderProgress(quint64 progress, quint64 total)
{
    if (!exportProgress_)
        return;
    const auto unit = total / quint64(std::numeric_limits<int>::max()) + 1;
    exportProgress_->setMaximum(int(total / unit));
    exportProgress_->setValue(int(progress / unit));
}

void MainWindow::onRenderFinished()
{
    if (exportProgress_)
        std::exchange(exportProgress_, nullptr)->deleteLater();
}
