#include "app/MainWindow.h"

#include "app/Application.h"
#include "app/WindowMenus.h"
#include "app/WindowToolBars.h"
#include "app/exporting/ExportNote.h"
#include "ui/Dialogs.h"
#include "ui/InstrumentComboBox.h"
#include "ui/ScreenFit.h"
#include "ui/Theme.h"
#include "ui/song/EmptyHint.h"
#include "ui/song/SongArea.h"
#include "ui/song/TrackRows.h"
#include "ui/song/TrackWidget.h"
#include "ui/song/VUMeter.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QCloseEvent>
#include <QDir>
#include <QDockWidget>
#include <QFileInfo>
#include <QMenu>
#include <QMimeData>
#include <QSlider>
#include <QStatusBar>
#include <QTimer>

namespace {

// Keys that are shortcuts of the window, and more to a control that was reached with Tab.
bool isKeyOf(const QWidget *control, const QKeyEvent &event)
{
    if (event.modifiers() != Qt::NoModifier)
        return false;
    if (event.key() == Qt::Key_Space)
        return qobject_cast<const QAbstractButton *>(control) != nullptr;
    if (event.key() == Qt::Key_Home || event.key() == Qt::Key_End)
        return qobject_cast<const QAbstractSlider *>(control) || qobject_cast<const QComboBox *>(control) ||
               qobject_cast<const QAbstractItemView *>(control);
    return false;
}

} // namespace

MainWindow::MainWindow(const WindowServices &services, QWidget *parent)
    : QMainWindow(parent), settings_(services.settings), dialogs_(services.dialogs), sound_(services.output, settings_),
      player_(services.makeEngine, this), playback_(tracks_, instruments_, player_),
      editors_(session_, tracks_, playback_, settings_, dialogs_, services.makeEngine, this),
      keyboard_({settings_, player_, tracks_, playback_, editors_},
                services.makeMidiInput ? services.makeMidiInput() : nullptr),
      recorder_({settings_, tracks_, playback_, transport_, editors_, dialogs_, this, sound_.control()}, keyboard_),
      journal_(session_, services.journalFolder), updates_(services.updateAddress),
      rows_(new TrackRows(tracks_, instruments_, settings_, dialogs_, this)), area_(new SongArea(tracks_, rows_, this)),
      instrumentList_(new InstrumentComboBox(instruments_, this)), masterMeter_(new VUMeter(Qt::Horizontal, this)),
      masterVolume_(new QSlider(Qt::Horizontal, this)), importQueue_(context(), services.makeEngine), save_(context()),
      songs_(context(), save_, [this] { return editors_.closeStrays(); }), import_(context(), importQueue_, songs_),
      recovery_(context(), journal_, services.journalFolder, [this](const auto &then) { songs_.leaveFor(then); }),
      trackCommands_(context(), importQueue_), songTools_(context(), services.makeEngine), sourceListening_(context()),
      instrumentCommands_(context(), instruments_, *instrumentList_),
      transportCommands_(context(), transport_, player_, *masterVolume_), practice_(context()),
      export_(context(), services.makeFileEngine,
              services.journalFolder.isEmpty() ? QString() : services.journalFolder + QStringLiteral("/exports")),
      notationExport_(context()), partFiles_(context()), program_(context(), {sound_.control(), &keyboard_.keyboard()}),
      status_(*this), reports_(new ImportReports(*this)), findings_(new SongFindings(*this, checks_, *rows_)),
      exportNote_(new ExportNote([this](const QString &folder) { dialogs_.openFolder(folder); }, this)),
      playbackView_(*rows_, *area_, *masterMeter_)
{
    setWindowIcon(QIcon(QStringLiteral(":/icons/appicon.png")));
    setAcceptDrops(true);
    setCentralWidget(area_);
    makeActions();
    makeMenus(*this, actions_, import_, settings_);
    makeToolBars(*this, actions_, {*instrumentList_, *masterMeter_, *masterVolume_});
    practice_.fillMenu(*findChild<QMenu *>(QStringLiteral("menuMetronome")));
    makeHistoryDock(*this, tracks_.history());
    focusShownDocks(*this);
    findChild<QMenu *>(QStringLiteral("menuImport"))->addAction(reports_->toggleAction());
    findChild<QMenu *>(QStringLiteral("menuTools"))->addAction(findings_->toggleAction());
    actions_.add(reports_->toggleAction(), "actionShow_Report", "");
    actions_.add(findings_->toggleAction(), "actionShow_Findings", "");
    actions_.add(findChild<QDockWidget *>(QStringLiteral("dockHistory"))->toggleViewAction(), "actionShow_History", "");
    followShortcuts(*this, settings_);
    status_.follow(instrumentCommands_.scanning());
    status_.follow(playback_);
    status_.follow(sound_);
    status_.follow(importQueue_.reading());
    status_.follow(settings_);
    status_.follow(songs_);
    statusBar()->addPermanentWidget(exportNote_);
    connectParts();
    connectPlayer();
    resize(1180, 760);
    restoreGeometry(QByteArray::fromBase64(settings_.value(Settings::WindowGeometry).toString().toLatin1()));
    fitToScreen(*this);
    restoreState(QByteArray::fromBase64(settings_.value(Settings::WindowState).toString().toLatin1()));
    showSong();
}

MainWindow::~MainWindow() = default;

void MainWindow::showFailure(const QString &error)
{
    dialogs_.message(this, Dialogs::Severity::Critical, QStringLiteral("Kelvarion Composer"), error);
}

void MainWindow::makeActions()
{
    for (const auto &rows :
         {ImportCommands::actions(), SaveCommands::actions(), SongCommands::actions(), SongRecovery::actions(),
          TrackCommands::actions(), SongTools::actions(), SourceListening::actions(), InstrumentCommands::actions(),
          TransportCommands::actions(), PracticeCommands::actions(), ExportCommands::actions(),
          NotationExport::actions(), PartFiles::actions(), ProgramCommands::actions()})
        actions_.add(rows);
    QVector<QAction *> buttons;
    for (const auto *const name : {"actionZoom_Out", "actionZoom_In", "actionZoom_Whole", "actionLoop", "actionFollow"})
        buttons.append(actions_.find(QLatin1String(name)));
    area_->addButtons(buttons);
    buttons.last()->setChecked(true);
    actions_.find(QStringLiteral("actionMetronome"))->setChecked(settings_.value(Settings::MetronomeOn).toBool());
    actions_.add(tracks_.history().createUndoAction(this), "actionUndo", "Ctrl+Z");
    actions_.add(tracks_.history().createRedoAction(this), "actionRedo", "Ctrl+Shift+Z");
}

void MainWindow::connectParts()
{
    connect(rows_, &TrackRows::rowAdded, this, &MainWindow::connectRow);
    connect(rows_, &TrackRows::moveRequested, &tracks_, &TrackList::move);
    rows_->setDragData([this](const QString &id) { return partFiles_.dataOf(tracks_.withSelection(id)); });
    connect(rows_->hint(), &EmptyHint::importMidi, this, &MainWindow::onImportMidi);
    connect(rows_->hint(), &EmptyHint::openAbc, this, &MainWindow::onLoadABC);
    connect(&editors_, &EditorWindows::applied, this, &MainWindow::onEdited);
    connect(&editors_, &EditorWindows::saveRequested, this, [this](const QString &id) { saveEdited(id); });
    connect(&instrumentCommands_, &InstrumentCommands::scanned, &importQueue_, &ImportQueue::open);
    connect(&instrumentCommands_, &InstrumentCommands::scanned, &songs_, &SongCommands::begin);
    connect(&instrumentCommands_, &InstrumentCommands::scanned, this, &MainWindow::showStandIn);
    connect(&instrumentCommands_, &InstrumentCommands::scanned, &keyboard_, &LiveKeyboard::chooseSound);
    connect(&session_, &SongSession::left, &recorder_, &KeyRecorder::cancel);
    connect(&recorder_, &KeyRecorder::recordingChanged, this, &MainWindow::showRecording);
    connect(area_, &SongArea::seek, this, &MainWindow::onTrackSeek);
    connect(area_, &SongArea::loopChosen, this, &MainWindow::onLoopChosen);
    connect(area_, &SongArea::tempoFactorChanged, this, &MainWindow::onTempoFactorChanged);
    connect(&transport_, &Transport::positionChanged, this, &MainWindow::onPositionChanged);
    connect(&transport_, &Transport::measuresChanged, this, [this] { area_->setMeasures(transport_.measures()); });
    connect(instrumentList_, &QComboBox::currentTextChanged, this, &MainWindow::onDefaultInstrumentChanged);
    connect(masterVolume_, &QSlider::valueChanged, this, &MainWindow::onMasterVolumeChanged);
    connect(&changedFiles_, &ChangedFiles::found, this,
            [this](const QStringList &ids) { import_.offerToReadAgain(ids); });
    connect(&updates_, &UpdateChecker::updateAvailable, this, &MainWindow::onUpdateAvailable);
    connect(&updates_, &UpdateChecker::updateCheckFailed, this, &MainWindow::onUpdateFailed);
    connect(&export_, &ExportCommands::renderStarted, this, &MainWindow::onRenderStarted);
    connect(&export_, &ExportCommands::renderProgress, this, &MainWindow::onRenderProgress);
    connect(&export_, &ExportCommands::renderFinished, this, &MainWindow::onRenderFinished);
    connect(&export_, &ExportCommands::loadingSample, this, &MainWindow::onLoadingSample);
    connect(&export_, &ExportCommands::written, exportNote_, &ExportNote::tell);
    connect(&notationExport_, &NotationExport::written, exportNote_, &ExportNote::tell);
    connect(&status_, &StatusIndicators::workEnded, this, [this](const QString &what, qint64 took) {
        dialogs_.tellEnd(this, tr("Kelvarion Composer has done its work"), what, took);
    });
    connect(&settings_, &Settings::settingChanged, this, &MainWindow::onSettingChanged);
    if (const auto *const application = qobject_cast<Application *>(QCoreApplication::instance()))
        connect(application, &Application::failed, this, &MainWindow::showFailure);
    session_.setMasterVolume(masterVolume_->value());
    connect(&session_, &SongSession::changed, this, &MainWindow::showTitle);
    connect(&session_, &SongSession::changed, this, &MainWindow::showDrafts);
    connect(&journal_, &SessionJournal::problemChanged, &status_, &StatusIndicators::showJournalProblem);
    connect(&session_, &SongSession::opened, this, &MainWindow::showSong);
    connect(&songs_, &SongCommands::leaving, this, &MainWindow::stopArrivals);
    connect(&importQueue_, &ImportQueue::added, reports_,
            [this](const ImportRequest &request, const ReadSong &song, const QStringList &ids) {
                if (!request.sources.isEmpty())
                    reports_->show(song, ids);
            });
    connect(&session_, &SongSession::opened, reports_, &ImportReports::clear);
    connect(reports_, &ImportReports::placeChosen, this, &MainWindow::showPlace);
    connect(reports_, &ImportReports::editRequested, this,
            [this](const ReportedPlace &place) { editors_.openAt(place.trackId, place.tick); });
    connect(findings_, &SongFindings::placeChosen, this, [this](const FoundPlace &place) {
        editors_.openAt(place.trackId, place.finding.range, place.finding.tick);
    });
    connect(&checks_, &SongChecks::failed, this, &MainWindow::showFailure);
    connect(&tracks_, &TrackList::songChanged, this, &MainWindow::updateActions);
    connect(&tracks_, &TrackList::selectionChanged, this, &MainWindow::updateActions);
    connect(&playback_, &Playback::playingChanged, this, &MainWindow::onPlayingChanged);
    connect(&playback_, &Playback::standInsChanged, this, &MainWindow::showShadows);
    connect(&sourceListening_, &SourceListening::switchedOff, this,
            [this] { actions_.find(QStringLiteral("actionListen_to_Source"))->setChecked(false); });
    connect(&trackCommands_, &TrackCommands::workingChanged, this, &MainWindow::updateActions);
}

void MainWindow::connectPlayer()
{
    connect(&player_, &TrackPlayer::trackStarted, this, &MainWindow::onTrackStarted);
    connect(&player_, &TrackPlayer::trackStopped, this, &MainWindow::onTrackStopped);
    connect(&player_, &TrackPlayer::allTracksStopped, this, &MainWindow::onAllTracksStopped);
    connect(&player_, &TrackPlayer::trackPositionChanged, this, &MainWindow::onTrackPositionChanged);
    connect(&player_, &TrackPlayer::masterMeter, this, &MainWindow::onMasterMeter);
    connect(&player_, &TrackPlayer::trackMeter, this, &MainWindow::onTrackMeter);
    connect(&player_, &TrackPlayer::notePressed, this, &MainWindow::onNotePressed);
    connect(&player_, &TrackPlayer::noteReleased, this, &MainWindow::onNoteReleased);
    connect(&player_, &TrackPlayer::loadingSample, this, &MainWindow::onLoadingSample);
    connect(&player_, &TrackPlayer::engineMade, &status_, &StatusIndicators::showEngineProblem);
    connect(&player_, &TrackPlayer::outputChanged, &status_, &StatusIndicators::showOutputProblem);
}

void MainWindow::connectRow(const QString &id, TrackWidget *row)
{
    row->setHasDraft(session_.draft(id).has_value());
    row->setShadow(playback_.standIn(id));
    connect(row, &TrackWidget::trackMuteChanged, this, [=, this] { onTrackMuteChanged(id); });
    connect(row, &TrackWidget::trackSolo, this, [=, this] { onTrackSolo(id); });
    connect(row, &TrackWidget::trackInstrumentChanged, this, [=, this] { onTrackInstrumentChanged(id); });
    connect(row, &TrackWidget::trackVolumeChanged, this, [=, this] { onTrackVolumeChanged(id); });
    connect(row, &TrackWidget::trackPanChanged, this, [=, this] { onTrackPanChanged(id); });
    connect(row, &TrackWidget::startOffsetChosen, this,
            [=, this](int milliseconds) { tracks_.setStartOffset(tracks_.withSelection(id), milliseconds); });
    connect(row, &TrackWidget::trackRemoved, this, [=, this] { onTrackRemoved(id); });
    connect(row, &TrackWidget::trackChanged, this,
            [=, this](const QString &step, const Track &wanted) { onTrackChanged(id, step, wanted); });
    connect(row, &TrackWidget::trackSeek, this, &MainWindow::onTrackSeek);
    connect(row, &TrackWidget::trackMoveUp, this, [=, this] { onMoveTrackUp(id); });
    connect(row, &TrackWidget::trackMoveDown, this, [=, this] { onMoveTrackDown(id); });
    connect(row, &TrackWidget::trackSelected, this, [=, this](bool isSelected, Qt::KeyboardModifiers modifiers) {
        onTrackSelectionChanged(id, isSelected, modifiers);
    });
    connect(row, &TrackWidget::trackTransposed, this, [=, this](int semitones) { onTrackTransposed(id, semitones); });
    connect(row, &TrackWidget::previewNote, this, [=, this](int semitone) { onPreviewNote(id, semitone); });
    connect(row, &TrackWidget::stopPreview, this, &MainWindow::onStopPreview);
    connect(row, &TrackWidget::editorRequested, this, [=, this] { editors_.open(id); });
    connect(row, &TrackWidget::saveRequested, this, [=, this] { save_.save(id); });
    connect(row, &TrackWidget::saveAsRequested, this, [=, this] { save_.saveAs(id); });
    connect(row, &TrackWidget::copyRequested, this, [=, this] { copyAsFiles(tracks_.withSelection(id)); });
}

// Of what is heard in the places of the parts.
void MainWindow::showShadows()
{
    for (const auto &id : tracks_.ids()) {
        if (auto *const row = rows_->row(id))
            row->setShadow(playback_.standIn(id));
    }
}

// What cannot be applied is in no file but the song's.
void MainWindow::saveEdited(const QString &trackId)
{
    if (session_.file().isEmpty() && !session_.draft(trackId))
        save_.save(trackId);
    else
        songs_.save();
}

void MainWindow::showDrafts()
{
    for (const auto &id : tracks_.ids()) {
        if (auto *const row = rows_->row(id))
            row->setHasDraft(session_.draft(id).has_value());
    }
}

void MainWindow::updateActions()
{
    const bool isSelected = !tracks_.selectedIds().isEmpty();
    auto &saveSong = *actions_.find(QStringLiteral("actionSave_Song"));
    const bool isKeyOfRows = keyOf(saveSong) == keyOf(*actions_.find(QStringLiteral("actionSave_Selected")));
    saveSong.setShortcut(isSelected && isKeyOfRows ? QKeySequence() : keyOf(saveSong));
    actions_.update([=, this](Available available) {
        switch (available) {
        case Available::Always:
            return true;
        case Available::WithTracks:
            return !tracks_.isEmpty();
        case Available::WithSelection:
            return isSelected;
        case Available::ToWorkOn:
            return isSelected && !trackCommands_.isWorking();
        case Available::WithImports:
            return import_.canImportAgain();
        case Available::ToStop:
            return transport_.canStop();
        }
        return false;
    });
}

// In its overview.
void MainWindow::showPlace(const ReportedPlace &place)
{
    auto *const row = rows_->row(place.trackId);
    if (!row)
        return;
    area_->showRow(row);
    if (!playback_.isPlaying())
        transport_.setPosition(place.tick);
}

// What is still on its way belongs to the song that goes.
void MainWindow::stopArrivals()
{
    trackCommands_.cancelWork();
    songTools_.cancelWork();
    importQueue_.reading().cancel();
}

void MainWindow::showLoop()
{
    const auto &loop = session_.loop();
    area_->setLoop(loop ? std::optional(TimeSpan{loop->begin, loop->end - loop->begin}) : std::nullopt);
    actions_.find(QStringLiteral("actionLoop"))->setChecked(loop.has_value());
}

void MainWindow::showStandIn()
{
    rows_->setStandIn(playback_.resolvedName({}));
}

// What was too loud before is heard of no more.
void MainWindow::onPlayingChanged(bool isPlaying)
{
    updateActions();
    if (!isPlaying)
        return;
    rows_->forgetClips();
    masterMeter_->forgetClips();
}

// What belongs to the whole song.
void MainWindow::showSong()
{
    masterVolume_->setValue(session_.masterVolume());
    area_->setTempoFactor(session_.tempoFactor());
    transportCommands_.followSong();
    showLoop();
    showTitle();
    updateActions();
}

void MainWindow::showTitle()
{
    const auto program = QStringLiteral("Kelvarion Composer");
    const auto name = session_.name().replace(QStringLiteral("[*]"), QStringLiteral("[*][*]")); // as Qt has it
    setWindowTitle(session_.isBlank() ? program : QStringLiteral("%1[*] - %2").arg(name, program));
    setWindowModified(session_.isUnsaved());
}

void MainWindow::showEvent(QShowEvent *event)
{
    QMainWindow::showEvent(event);
    QTimer::singleShot(0, &instrumentCommands_, &InstrumentCommands::scan); // after the first paint
}

bool MainWindow::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride && isKeyOf(focusWidget(), *static_cast<QKeyEvent *>(event))) {
        event->accept();
        return true;
    }
    return QMainWindow::event(event);
}

void MainWindow::changeEvent(QEvent *event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        comeBack();
}

// From another program, which may have changed files.
void MainWindow::comeBack()
{
    changedFiles_.check(tracks_);
    songs_.checkFile();
}

// A row that is dragged is none of the files that come in.
void MainWindow::dragEnterEvent(QDragEnterEvent *event)
{
    if (event->source() != rows_ && ImportCommands::acceptsDrop(*event->mimeData()))
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent *event)
{
    if (event->source() == rows_ || !ImportCommands::acceptsDrop(*event->mimeData()))
        return;
    event->acceptProposedAction();
    import_.takeDrop(*event->mimeData());
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    trackCommands_.cancelWork();
    if (!mayClose()) {
        event->ignore();
        return;
    }
    session_.leave();
    songs_.cancelOpening();
    importQueue_.reading().cancel();
    playback_.stop();
    rememberPlace();
    QMainWindow::closeEvent(event);
}

void MainWindow::rememberPlace()
{
    settings_.setValue(Settings::WindowGeometry, QString::fromLatin1(saveGeometry().toBase64()));
    settings_.setValue(Settings::WindowState, QString::fromLatin1(saveState().toBase64()));
    settings_.save();
}

bool MainWindow::keepForLater()
{
    rememberPlace();
    editors_.handInDrafts();
    return journal_.keep();
}

// A song that has no file of its own comes from those of its parts.
MainWindow::Restart MainWindow::restart() const
{
    Restart restart{journal_.path(), {}};
    if (!session_.file().isEmpty())
        restart.files.append(session_.file());
    else if (restart.journal.isEmpty()) {
        for (const auto &id : tracks_.ids())
            restart.files.append(tracks_.filePath(id));
    }
    return restart;
}

void MainWindow::restore(const Restart &restart)
{
    if (restart.journal.isEmpty())
        openFiles(restart.files);
    else
        recovery_.restore(restart.journal, [=, this] { openFiles(restart.files); });
}

bool MainWindow::mayClose()
{
    return editors_.closeStrays() && export_.mayClose() && songs_.mayLeave([this] { close(); });
}

void MainWindow::onSettingChanged(Settings::Setting setting, const QVariant &value)
{
    if (setting == Settings::Shortcuts)
        updateActions();
    if (setting == Settings::DarkPalette)
        applyTheme(value.toBool() ? Theme::Dark : Theme::Light);
    if (setting == Settings::SoundEngine || setting == Settings::FmodFile) {
        player_.renewEngine();
        editors_.renewEngine();
    }
}

// A track that was removed meanwhile comes back as a new one, which its editor belongs to from then on.
void MainWindow::onEdited(const QString &trackId, const Track &track)
{
    if (tracks_.find(trackId))
        tracks_.setTrack(tr("Edit Track"), trackId, track);
    else
        editors_.bringBack(trackId, track);
}
