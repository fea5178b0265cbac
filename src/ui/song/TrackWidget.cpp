#include "ui/song/TrackWidget.h"

#include "assets/InstrumentSetModel.h"
#include "song/Song.h"
#include "ui/Dialogs.h"
#include "ui/Icons.h"
#include "ui/InstrumentComboBox.h"
#include "ui/ManualPage.h"
#include "ui/ValueDial.h"
#include "ui/song/TitleLabel.h"
#include "ui/song/TrackVisualizationWidget.h"
#include "ui/song/TrackWidgetStyles.h"
#include "ui/song/VUMeter.h"

#include <QApplication>
#include <QCheckBox>
#include <QContextMenuEvent>
#include <QInputDialog>
#include <QLabel>
#include <QMenu>
#include <QSignalBlocker>
#include <QToolButton>

#include <utility>

TrackWidget::TrackWidget(const std::shared_ptr<const SongTrack> &track, InstrumentSetModel &instruments,
                         Settings &settings, Dialogs &dialogs, QWidget *parent)
    : QFrame(parent), instruments_(instruments), settings_(settings), dialogs_(dialogs), shown_(track)
{
    setAttribute(Qt::WA_StyledBackground);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    createChildren();
    layOut();
    connectChildren();
    showTrack();
    showMix();
    showSelection();
}

void TrackWidget::setTrack(const std::shared_ptr<const SongTrack> &track)
{
    const auto before = std::exchange(shown_, track);
    if (before->track != shown_->track)
        showTrack();
    showMix();
}

void TrackWidget::showTrack()
{
    const auto title = track().headerField(QStringLiteral("T"));
    const auto shownTitle = title.isEmpty() ? tr("Untitled") : title;
    lblTitle_->setText(shownTitle);
    setAccessibleName(shownTitle);
    wVis_->setTrack(track());
}

void TrackWidget::showMix()
{
    const QSignalBlocker silentVolume(dlVolume_);
    const QSignalBlocker silentPan(dlPan_);
    dlVolume_->setValue(shown_->volume);
    dlPan_->setValue(shown_->pan);
    showMuted(shown_->isMuted);
    showInstrument();
    showStartOffset();
}

void TrackWidget::showStartOffset()
{
    const auto offset = shown_->startOffset;
    lblOffset_->setVisible(offset != 0);
    lblOffset_->setText(tr("%1 ms").arg((offset > 0 ? QStringLiteral("+") : QString()) + QString::number(offset)));
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

void TrackWidget::setHasDraft(bool hasDraft)
{
    lblDraft_->setVisible(hasDraft);
}

void TrackWidget::setFindings(int count, const QString &what)
{
    btnFindings_->setVisible(count > 0);
    btnFindings_->setText(QString::number(count));
    btnFindings_->setToolTip(what);
}

void TrackWidget::showSelection()
{
    using TrackWidgetStyles::Look;
    const auto sheet = TrackWidgetStyles::row(isSelected() ? Look::Selected : Look::Normal);
    if (sheet != styleSheet())
        setStyleSheet(sheet);
}

bool TrackWidget::isMuted() const
{
    return wVis_->isMuted();
}

void TrackWidget::showMuted(bool isMuted)
{
    btnMute_->setChecked(isMuted);
    wVis_->setMuted(isMuted);
}

void TrackWidget::setDiffersFromFile(bool differs)
{
    if (lblTitle_->isMarked() == differs)
        return;
    const auto title = tr("Track Title");
    lblTitle_->setMarked(differs);
    lblTitle_->setToolTip(differs ? tr("%1; the track differs from its file").arg(title) : title);
    lblTitle_->setAccessibleDescription(differs ? tr("differs from its file") : QString());
}

void TrackWidget::setSoloed(bool isSoloed)
{
    btnSolo_->setChecked(isSoloed);
}

int TrackWidget::volumePercent() const
{
    return dlVolume_->value();
}

int TrackWidget::panPercent() const
{
    return dlPan_->value();
}

QString TrackWidget::instrumentName() const
{
    const int row = cboInstrument_->currentIndex();
    return row >= 0 ? instruments_.instruments().names().at(row) : shown_->instrument;
}

void TrackWidget::showInstrument()
{
    const QSignalBlocker silent(cboInstrument_);
    cboInstrument_->setCurrentIndex(int(instruments_.instruments().names().indexOf(shown_->instrument)));
    showMissingInstrument(cboInstrument_->currentIndex() < 0 && !shown_->instrument.isEmpty());
}

void TrackWidget::setStandIn(const QString &instrument)
{
    standIn_ = instrument;
    showInstrument();
}

void TrackWidget::showMissingInstrument(bool isMissing)
{
    const auto name = shown_->instrument;
    const auto usual = tr("Instrument for this track");
    const auto problem = standIn_.isEmpty()
                             ? tr("There is no instrument '%1'; nothing sounds").arg(name)
                             : tr("There is no instrument '%1'; '%2' sounds instead").arg(name, standIn_);
    cboInstrument_->setMissing(isMissing ? tr("%1 (missing)").arg(name) : QString());
    cboInstrument_->setToolTip(isMissing ? problem : usual);
    cboInstrument_->setAccessibleDescription(isMissing ? problem : QString());
}

void TrackWidget::onInstrumentChosen(int row)
{
    if (row >= 0)
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

void TrackWidget::forgetClips()
{
    vuMeter_->forgetClips();
}

void TrackWidget::setShadow(const std::shared_ptr<const Track> &shadow)
{
    wVis_->setShadow(shadow);
}

void TrackWidget::setSpan(const TimeSpan &span)
{
    wVis_->setSpan(span);
}

QRect TrackWidget::overviewRect() const
{
    return {wVis_->mapTo(this, QPoint()), wVis_->size()};
}

// Of the overview and its frame, and of the first control of the row, which says what row it is.
bool TrackWidget::eventFilter(QObject *watched, QEvent *event)
{
    const bool isFiltered = QFrame::eventFilter(watched, event);
    const bool isMoved = event->type() == QEvent::Resize || event->type() == QEvent::Move;
    if (isMoved && watched != chkSelect_)
        emit overviewMoved();
    if (watched == chkSelect_ && event->type() == QEvent::FocusIn && QAccessible::isActive())
        chkSelect_->setAccessibleDescription(accessibleName() + QStringLiteral(": ") + spokenDescription());
    return isFiltered;
}

void TrackWidget::onSelectChanged()
{
    showSelection();
    emit trackSelected(isSelected(), QApplication::keyboardModifiers());
}

// Where the row has no controls.
void TrackWidget::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && event->modifiers() & Qt::ShiftModifier)
        emit trackSelected(true, event->modifiers());
    else if (event->button() == Qt::LeftButton && event->modifiers() & Qt::ControlModifier)
        emit trackSelected(!isSelected(), event->modifiers());
    else if (event->button() == Qt::LeftButton)
        pressedAt_ = event->pos();
    else
        QFrame::mousePressEvent(event);
}

void TrackWidget::mouseMoveEvent(QMouseEvent *event)
{
    if (!pressedAt_ || (event->pos() - *pressedAt_).manhattanLength() < QApplication::startDragDistance())
        return;
    pressedAt_.reset();
    emit dragged(); // which returns when it is dropped; the row may be gone by then
}

void TrackWidget::mouseReleaseEvent(QMouseEvent *event)
{
    pressedAt_.reset();
    QFrame::mouseReleaseEvent(event);
}

void TrackWidget::onMuteClicked()
{
    showMuted(!isMuted());
    emit trackMuteChanged();
}

void TrackWidget::onRemoveClicked()
{
    emit trackRemoved();
}

void TrackWidget::onChangeTitle()
{
    const auto title =
        dialogs_.text(this, tr("Rename Track"), tr("New track title:"), track().headerField(QStringLiteral("T")));
    if (title)
        emit trackChanged(tr("Rename Track"), renamed(track(), *title));
}

void TrackWidget::onEditABCClicked()
{
    emit editorRequested();
}

void TrackWidget::onTrackChanged(const Track &track)
{
    emit trackChanged(tr("Edit Track"), track);
}

void TrackWidget::onTransposeUp()
{
    emit trackTransposed(12);
}

void TrackWidget::onTransposeDown()
{
    emit trackTransposed(-12);
}

void TrackWidget::onChooseStartOffset()
{
    QInputDialog dialog(this);
    dialog.setObjectName(QStringLiteral("startOffsetDialog"));
    setManualPage(dialog, "window.md");
    dialog.setWindowTitle(tr("Start Offset"));
    dialog.setLabelText(tr("Milliseconds by which the part sounds later than it is written (below 0: sooner):"));
    for (auto *const label : dialog.findChildren<QLabel *>())
        label->setWordWrap(true);
    dialog.setInputMode(QInputDialog::IntInput);
    dialog.setIntRange(-mostStartOffset, mostStartOffset);
    dialog.setIntStep(10);
    dialog.setIntValue(shown_->startOffset);
    if (dialogs_.run(dialog))
        emit startOffsetChosen(dialog.intValue());
}

void TrackWidget::onSave()
{
    emit saveRequested();
}

void TrackWidget::onSaveAs()
{
    emit saveAsRequested();
}

std::unique_ptr<QMenu> TrackWidget::contextMenu()
{
    auto menu = std::make_unique<QMenu>(this);
    menu->addAction(icon("save"), tr("Save"), this, &TrackWidget::onSave);
    menu->addAction(icon("saveas"), tr("Save As..."), this, &TrackWidget::onSaveAs);
    menu->addAction(tr("Copy as File"), this, &TrackWidget::copyRequested);
    menu->addAction(icon("editdoc"), tr("Rename Track"), this, &TrackWidget::onChangeTitle);
    menu->addAction(tr("Open ABC Editor"), this, &TrackWidget::onEditABCClicked);
    menu->addSeparator();
    menu->addAction(icon("mute"), tr("(Un)mute"), this, &TrackWidget::onMuteClicked);
    menu->addAction(icon("solo"), tr("Solo"), this, &TrackWidget::trackSolo);
    menu->addAction(tr("Start Offset..."), this, &TrackWidget::onChooseStartOffset);
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
    // A row, whose style sheet sets its palette, hears of another theme by the style alone.
    if (event->type() == QEvent::StyleChange || event->type() == QEvent::PaletteChange)
        showTheme();
}

void TrackWidget::showTheme()
{
    showSelection();
    if (const auto sheet = TrackWidgetStyles::muteBox(); sheet != btnMute_->styleSheet())
        btnMute_->setStyleSheet(sheet);
}
