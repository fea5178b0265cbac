#include "ui/song/TrackWidget.h"

#include "assets/InstrumentSetModel.h"
#include "base/SafeFile.h"
#include "import/Transpose.h"
#include "settings/Settings.h"
#include "ui/Dialogs.h"
#include "ui/Icons.h"
#include "ui/InstrumentComboBox.h"
#include "ui/ValueDial.h"
#include "ui/song/RenameTrack.h"
#include "ui/song/TitleLabel.h"
#include "ui/song/TrackVisualizationWidget.h"
#include "ui/song/TrackWidgetStyles.h"
#include "ui/song/VUMeter.h"

#include <QCheckBox>
#include <QContextMenuEvent>
#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <QSignalBlocker>

namespace {

const QString programName = QStringLiteral("Kelvarion Composer");

} // namespace

TrackWidget::TrackWidget(const Track &track, InstrumentSetModel &instruments, Settings &settings, Dialogs &dialogs,
                         QWidget *parent)
    : QFrame(parent), instruments_(instruments), settings_(settings), dialogs_(dialogs), track_(track)
{
    setAttribute(Qt::WA_StyledBackground);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    createChildren();
    layOut();
    connectChildren();
    showTrack();
    showInstrument();
    showSelection();
}

QString TrackWidget::shownTitle() const
{
    const auto title = track_.title();
    return title.isEmpty() ? QStringLiteral("Untitled") : title;
}

void TrackWidget::showTrack()
{
    const auto title = shownTitle();
    lblTitle_->setText(title);
    setAccessibleName(title);
    wVis_->setTrack(track_);
}

void TrackWidget::setTrack(const Track &track)
{
    track_ = track;
    showTrack();
}

void TrackWidget::applyChange(const QString &name, const Track &track)
{
    const auto path = track_.filePath(); // changes of the notes leave it
    track_ = track;
    track_.setFilePath(path);
    changeName_ = name;
    showTrack();
    emit trackChanged();
}

bool TrackWidget::isSelected() const
{
    return chkSelect_->isChecked();
}

void TrackWidget::setSelected(bool selected)
{
    chkSelect_->setChecked(selected);
    showSelection();
}

void TrackWidget::showSelection()
{
    using TrackWidgetStyles::Look;
    const auto sheet = TrackWidgetStyles::row(isSelected() ? Look::Selected : Look::Normal);
    if (sheet != styleSheet())
        setStyleSheet(sheet);
}

void TrackWidget::setMuted(bool muted)
{
    isMuted_ = muted;
    btnMute_->setChecked(muted);
    wVis_->setMuted(muted);
}

int TrackWidget::volumePercent() const
{
    return dlVolume_->value();
}

void TrackWidget::setVolumePercent(int percent)
{
    const QSignalBlocker silent(dlVolume_);
    dlVolume_->setValue(percent);
}

int TrackWidget::panPercent() const
{
    return dlPan_->value();
}

void TrackWidget::setPanPercent(int percent)
{
    const QSignalBlocker silent(dlPan_);
    dlPan_->setValue(percent);
}

void TrackWidget::setInstrumentName(const QString &name)
{
    instrumentName_ = name;
    showInstrument();
}

void TrackWidget::showInstrument()
{
    const QSignalBlocker silent(cboInstrument_);
    cboInstrument_->setCurrentIndex(int(instruments_.instruments().names().indexOf(instrumentName_)));
}

void TrackWidget::onInstrumentChosen(int row)
{
    if (row < 0)
        return;
    instrumentName_ = instruments_.instruments().names().at(row);
    emit trackInstrumentChanged();
}

void TrackWidget::setPosition(Ticks ticks)
{
    wVis_->setPosition(ticks);
}

void TrackWidget::setLevels(float leftRms, float rightRms, float leftPeak, float rightPeak)
{
    vuMeter_->setLevels(0, leftRms, leftPeak);
    vuMeter_->setLevels(1, rightRms, rightPeak);
}

void TrackWidget::notePressed(int eventIndex)
{
    wVis_->notePressed(eventIndex);
}

void TrackWidget::noteReleased(int eventIndex)
{
    wVis_->noteReleased(eventIndex);
}

void TrackWidget::releaseAllNotes()
{
    wVis_->releaseAllNotes();
}

void TrackWidget::setCommonLength(Ticks length)
{
    wVis_->setCommonLength(length);
}

void TrackWidget::onSelectChanged()
{
    showSelection();
    emit trackSelected(isSelected());
}

void TrackWidget::onMuteClicked()
{
    setMuted(!isMuted_);
    emit trackMuteChanged();
}

void TrackWidget::onRemoveClicked()
{
    emit trackRemoved();
}

void TrackWidget::onChangeTitle()
{
    const auto title =
        dialogs_.text(this, tr("Rename Track"), tr("New track title:"), track_.headerField(QStringLiteral("T")));
    if (title)
        applyChange(tr("Rename Track"), renamed(track_, *title));
}

void TrackWidget::onEditABCClicked()
{
    emit editorRequested();
}

void TrackWidget::onTrackChanged(const Track &track)
{
    applyChange(tr("Edit Track"), track);
}

void TrackWidget::onTransposeUp()
{
    applyChange(tr("Transpose Track"), transpose(track_, 12));
}

void TrackWidget::onTransposeDown()
{
    applyChange(tr("Transpose Track"), transpose(track_, -12));
}

bool TrackWidget::save()
{
    if (track_.filePath().isEmpty())
        return saveAs();
    return writeFile(tr("Could not open '%1' for saving.").arg(track_.filePath()));
}

bool TrackWidget::saveAs()
{
    const auto title = shownTitle();
    const auto folder = settings_.value(Settings::AbcSaveDir).toString();
    const auto proposed =
        QStringLiteral("%1/%2.abc").arg(folder.isEmpty() ? QDir::homePath() : folder, SafeFile::cleanName(title));
    const auto path = dialogs_.saveFile(this, tr("Save track '%1' as..").arg(title), proposed, tr("ABC Files (*.abc)"));
    if (path.isEmpty())
        return false;
    settings_.setValue(Settings::AbcSaveDir, QFileInfo(path).path());
    track_.setFilePath(path);
    return writeFile(tr("Could not open the file for saving."));
}

bool TrackWidget::writeFile(const QString &failure)
{
    auto copy = track_; // making the text may complete the header; a save changes nothing
    try {
        SafeFile::write(track_.filePath(), copy.toAbc().toUtf8());
    } catch (const QString &reason) {
        qWarning("%s: %s", qUtf8Printable(track_.filePath()), qUtf8Printable(reason));
        dialogs_.message(this, Dialogs::Severity::Warning, programName, failure);
        return false;
    }
    emit trackSaved(track_.filePath());
    return true;
}

std::unique_ptr<QMenu> TrackWidget::contextMenu()
{
    auto menu = std::make_unique<QMenu>(this);
    menu->addAction(icon("save"), tr("Save"), this, &TrackWidget::onSave);
    menu->addAction(icon("saveas"), tr("Save As..."), this, &TrackWidget::onSaveAs);
    menu->addAction(icon("editdoc"), tr("Rename Track"), this, &TrackWidget::onChangeTitle);
    menu->addAction(tr("Open ABC Editor"), this, &TrackWidget::onEditABCClicked);
    menu->addSeparator();
    menu->addAction(icon("mute"), tr("(Un)mute"), this, &TrackWidget::onMuteClicked);
    menu->addAction(icon("solo"), tr("Solo"), this, &TrackWidget::trackSolo);
    menu->addSeparator();
    auto *const transposition = menu->addMenu(tr("Quick Transpose"));
    transposition->addAction(icon("transposeup"), tr("Transpose one octave up"), this, &TrackWidget::onTransposeUp);
    transposition->addAction(icon("transposedown"), tr("Transpose one octave down"), this,
                             &TrackWidget::onTransposeDown);
    return menu;
}

void TrackWidget::contextMenuEvent(QContextMenuEvent *event)
{
    auto *const menu = contextMenu().release();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(event->globalPos());
}

void TrackWidget::changeEvent(QEvent *event)
{
    QFrame::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::ApplicationPaletteChange)
        showSelection();
}
