#include "assets/InstrumentSetModel.h"
#include "ui/Icons.h"
#include "ui/InstrumentComboBox.h"
#include "ui/ValueDial.h"
#include "ui/song/DragHandle.h"
#include "ui/song/TitleLabel.h"
#include "ui/song/TrackVisualizationWidget.h"
#include "ui/song/TrackWidget.h"
#include "ui/song/TrackWidgetStyles.h"
#include "ui/song/VUMeter.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>

// What the row is made of; what it does is in TrackWidget.cpp.

namespace {

// The tool tip is also what a screen reader says.
void name(QWidget *widget, const char *objectName, const QString &toolTip, const QString &statusTip)
{
    widget->setObjectName(QLatin1String(objectName));
    widget->setToolTip(toolTip);
    widget->setStatusTip(statusTip);
    widget->setAccessibleName(statusTip);
}

QToolButton *makeButton(QWidget *parent, const char *objectName, const char *iconName, const QString &toolTip,
                        const QString &statusTip)
{
    auto *const button = new QToolButton(parent);
    name(button, objectName, toolTip, statusTip);
    button->setIcon(icon(iconName));
    button->setIconSize({24, 24});
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus); // a click leaves the keys with the window
    return button;
}

QString volumeText(int percent)
{
    return TrackWidget::tr("%1 %").arg(percent);
}

QString panText(int percent)
{
    if (percent == 0)
        return TrackWidget::tr("C", "in the middle");
    return percent < 0 ? TrackWidget::tr("L %1", "left").arg(-percent) : TrackWidget::tr("R %1", "right").arg(percent);
}

QVBoxLayout *belowIcon(ValueDial *dial, const char *iconName)
{
    auto *const picture = new IconLabel(iconName, 16, dial->parentWidget());
    picture->setToolTip(dial->toolTip());
    auto *const column = new QVBoxLayout;
    column->setSpacing(0);
    column->addStretch();
    column->addWidget(picture, 0, Qt::AlignHCenter);
    column->addWidget(dial, 0, Qt::AlignHCenter);
    column->addStretch();
    return column;
}

} // namespace

void TrackWidget::createChildren()
{
    dragHandle_ = new DragHandle(this);
    name(dragHandle_, "dragHandle", tr("Drag to move the track"), tr("Drag to move the track up or down the list"));

    chkSelect_ = new QCheckBox(this);
    name(chkSelect_, "chkSelect", tr("Select track"), tr("Select track"));
    chkSelect_->setStyleSheet(TrackWidgetStyles::selectionBox());
    chkSelect_->setFixedSize(20, 20);
    chkSelect_->setFocusPolicy(Qt::TabFocus);

    lblTitle_ = new TitleLabel(this);
    name(lblTitle_, "lblTitle", tr("Track Title"), tr("Track Title"));

    lblDraft_ = new QLabel(tr("Draft"), this);
    name(lblDraft_, "lblDraft", tr("The editor holds text of this track that is not applied"),
         tr("The editor holds text of this track that is not applied"));
    lblDraft_->setStyleSheet(TrackWidgetStyles::draftMark());
    lblDraft_->hide();

    lblOffset_ = new QLabel(this);
    name(lblOffset_, "lblOffset", tr("Start offset: by how much this part sounds later than it is written, or sooner"),
         tr("Start offset"));

    btnFindings_ = new QToolButton(this);
    name(btnFindings_, "btnFindings", QString(), tr("Show what the game would not play as it is meant"));
    btnFindings_->setStyleSheet(TrackWidgetStyles::findingsMark());
    btnFindings_->setFocusPolicy(Qt::TabFocus);
    btnFindings_->hide();

    cboInstrument_ = new InstrumentComboBox(instruments_, this);
    name(cboInstrument_, "cboInstrument", tr("Instrument for this track"), tr("Instrument for this track"));

    wVis_ = new TrackVisualizationWidget(settings_, this);
    name(wVis_, "wVis", tr("Click or drag to set the position"), tr("Notes of this track and the playing position"));

    dlVolume_ = new ValueDial(0, 100, 100, ValueDial::Detent::None, volumeText, this);
    name(dlVolume_, "dlVolume", tr("Playback Volume"), tr("The playback volume for this track"));
    dlPan_ = new ValueDial(-100, 100, 0, ValueDial::Detent::AtNeutral, panText, this);
    name(dlPan_, "dlPan", tr("Playback Pan"), tr("The playback pan position for this track"));

    btnMute_ = new QCheckBox(this);
    name(btnMute_, "btnMute", tr("(Un)mute"), tr("(Un)mute track"));
    btnMute_->setStyleSheet(TrackWidgetStyles::muteBox());
    btnMute_->setFocusPolicy(Qt::TabFocus);

    btnSolo_ = makeButton(this, "btnSolo", "solo", tr("Solo: hear only this track, or all that are ticked with it"),
                          tr("Solo"));
    btnSolo_->setCheckable(true);
    btnSolo_->setIconSize({16, 16});

    btnEdit_ = makeButton(this, "btnEdit", "edittrack", tr("Edit track"), tr("Edit track"));
    btnDelete_ = makeButton(this, "btnDelete", "deletetrack", tr("Delete track"), tr("Delete track"));
    btnUp_ = makeButton(this, "btnUp", "moveup", tr("Move up"), tr("Move track up"));
    btnDown_ = makeButton(this, "btnDown", "movedown", tr("Move down"), tr("Move track down"));

    vuMeter_ = new VUMeter(Qt::Vertical, this);
    name(vuMeter_, "vuMeter", tr("Level of this track; red at its end: it was too loud (click to put it out)"),
         tr("Level of this track"));
}

QVector<QWidget *> TrackWidget::tabStops() const
{
    return {chkSelect_, lblTitle_, btnFindings_, cboInstrument_, wVis_,  dlVolume_, dlPan_,
            btnMute_,   btnSolo_,  btnEdit_,     btnDelete_,     btnUp_, btnDown_};
}

void TrackWidget::layOut()
{
    auto *const caption = new QGridLayout;
    caption->setSpacing(4);
    caption->addWidget(chkSelect_, 0, 0);
    caption->addWidget(lblTitle_, 0, 1);
    caption->addWidget(lblOffset_, 0, 2);
    caption->addWidget(lblDraft_, 0, 3);
    caption->addWidget(btnFindings_, 0, 4);
    caption->addWidget(cboInstrument_, 1, 0, 1, 5);
    caption->setColumnStretch(1, 1);

    auto *const frVisContainer = new QFrame(this);
    frVisContainer->setObjectName(QStringLiteral("frVisContainer"));
    frVisContainer->setStyleSheet(TrackWidgetStyles::visualizationFrame());
    auto *const frameLayout = new QVBoxLayout(frVisContainer);
    frameLayout->setContentsMargins(2, 2, 2, 2);
    frameLayout->addWidget(wVis_);
    frVisContainer->installEventFilter(this); // which moves
    wVis_->installEventFilter(this);          // which grows with it
    chkSelect_->installEventFilter(this);     // at which the row is introduced

    auto *const buttons = new QGridLayout;
    buttons->setSpacing(0);
    buttons->addWidget(btnEdit_, 0, 0);
    buttons->addWidget(btnDelete_, 1, 0);
    buttons->addWidget(btnUp_, 0, 1);
    buttons->addWidget(btnDown_, 1, 1);

    auto *const row = new QHBoxLayout(this);
    row->setContentsMargins(6, 4, 4, 4);
    row->setSpacing(4);
    row->addWidget(dragHandle_);
    row->addLayout(caption, 2);
    row->addWidget(frVisContainer, 7);
    row->addLayout(belowIcon(dlVolume_, "speaker-volume"));
    row->addLayout(belowIcon(dlPan_, "speaker-panning"));
    auto *const hearing = new QVBoxLayout;
    hearing->setSpacing(0);
    hearing->addWidget(btnMute_, 0, Qt::AlignHCenter);
    hearing->addWidget(btnSolo_, 0, Qt::AlignHCenter);
    row->addLayout(hearing);
    row->addWidget(vuMeter_);
    row->addLayout(buttons);
}

void TrackWidget::connectChildren()
{
    connect(chkSelect_, &QCheckBox::clicked, this, &TrackWidget::onSelectChanged);
    connect(btnEdit_, &QToolButton::clicked, this, &TrackWidget::onEditABCClicked);
    connect(btnDelete_, &QToolButton::clicked, this, &TrackWidget::onRemoveClicked);
    connect(btnMute_, &QCheckBox::clicked, this, &TrackWidget::onMuteClicked);
    connect(btnSolo_, &QToolButton::clicked, this, &TrackWidget::trackSolo);
    connect(lblTitle_, &TitleLabel::doubleClicked, this, &TrackWidget::onChangeTitle);
    connect(btnFindings_, &QToolButton::clicked, this, &TrackWidget::findingsRequested);
    connect(btnUp_, &QToolButton::clicked, this, &TrackWidget::trackMoveUp);
    connect(btnDown_, &QToolButton::clicked, this, &TrackWidget::trackMoveDown);
    connect(dlVolume_, &ValueDial::valueChanged, this, &TrackWidget::trackVolumeChanged);
    connect(dlPan_, &ValueDial::valueChanged, this, &TrackWidget::trackPanChanged);
    connect(wVis_, &TrackVisualizationWidget::seek, this, &TrackWidget::trackSeek);

    connect(cboInstrument_, qOverload<int>(&InstrumentComboBox::currentIndexChanged), this,
            &TrackWidget::onInstrumentChosen);
    // A new catalogue must not look like a choice of the user.
    connect(&instruments_, &InstrumentSetModel::modelAboutToBeReset, this,
            [this] { cboInstrument_->blockSignals(true); });
    connect(&instruments_, &InstrumentSetModel::modelReset, this, [this] {
        cboInstrument_->blockSignals(false);
        showInstrument();
    });
}
