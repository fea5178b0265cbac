#include "app/WindowToolBars.h"

#include "app/commands/WindowActions.h"
#include "ui/Icons.h"
#include "ui/InstrumentComboBox.h"
#include "ui/song/VUMeter.h"

#include <QCoreApplication>
#include <QLabel>
#include <QMainWindow>
#include <QMenu>
#include <QSlider>
#include <QToolBar>
#include <QToolButton>

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("MainWindow", text);
}

QToolBar &addBar(QMainWindow &window, const char *name, const char *title)
{
    auto &bar = *window.addToolBar(QLatin1String(title));
    bar.setObjectName(QLatin1String(name));
    bar.setIconSize({24, 24});
    return bar;
}

void describe(QWidget &widget, const char *name, const QString &accessibleName, const QString &toolTip)
{
    widget.setObjectName(QLatin1String(name));
    widget.setAccessibleName(accessibleName);
    widget.setToolTip(toolTip);
}

void fillInstrumentBar(QToolBar &bar, const WindowActions &actions, InstrumentComboBox &list)
{
    describe(list, "instrumentList", tr("Default instrument"),
             QStringLiteral("This is the default instrument that will be assigned to new tracks"));
    list.setStatusTip(QStringLiteral("Default instrument for new tracks"));
    list.setMinimumContentsLength(10);
    list.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    bar.addWidget(&list);
    actions.addTo(bar, "actionApplyInstrument");
}

void fillMeterBar(QToolBar &bar, VUMeter &meter, QSlider &volume)
{
    describe(meter, "masterMeter", tr("Master level"),
             tr("The level of all tracks together; red at its end: it was too loud (click to put it out)"));
    meter.setMinimumWidth(160);
    bar.addWidget(&meter);
    auto *const speaker = new QLabel;
    speaker->setPixmap(icon("speaker-volume").pixmap(24, 24));
    speaker->setContentsMargins(8, 0, 4, 0);
    bar.addWidget(speaker);
    describe(volume, "slMasterVolume", tr("Master volume"), tr("The playback volume of all tracks"));
    volume.setFixedWidth(120);
    bar.addWidget(&volume);
}

// Beside what a click does.
void addMenu(QToolBar &bar, QAction &action, QMenu *menu)
{
    auto *const button = qobject_cast<QToolButton *>(bar.widgetForAction(&action));
    button->setMenu(menu);
    button->setPopupMode(QToolButton::MenuButtonPopup);
}

// Stop, the second button, is always in sight: the bar leaves room for it and for what shows the others.
void keepStopInSight(QToolBar &bar)
{
    const auto resize = [&bar](Qt::Orientation orientation) {
        constexpr int buttons = 4; // with handle and extension
        const auto size = buttons * bar.widgetForAction(bar.actions().first())->sizeHint();
        bar.setMinimumSize(orientation == Qt::Horizontal ? QSize(size.width(), 0) : QSize(0, size.height()));
    };
    QObject::connect(&bar, &QToolBar::orientationChanged, &bar, resize);
    resize(bar.orientation());
}

} // namespace

void makeToolBars(QMainWindow &window, const WindowActions &actions, const ToolBarControls &controls)
{
    actions.addTo(addBar(window, "tbTracks", "Track Toolbar"),
                  "actionOpen actionImport_MIDI actionSave_All - actionNew_Track actionDuplicate_Selected "
                  "actionMerge_Selected actionRemove_Selected actionClear_Tracks actionMute_Selected");
    auto &playback = addBar(window, "tbPlayback", "Playback Controls");
    actions.addTo(playback,
                  "actionPlay actionStop actionListen_to_Source actionRecord actionMetronome actionRehearsal");
    addMenu(playback, *actions.find(QStringLiteral("actionMetronome")),
            window.findChild<QMenu *>(QStringLiteral("menuMetronome")));
    auto *const offsets = new QMenu(&playback);
    actions.addTo(*offsets, "actionRehearsal_Offsets");
    addMenu(playback, *actions.find(QStringLiteral("actionRehearsal")), offsets);
    keepStopInSight(playback);
    fillInstrumentBar(addBar(window, "tbInstrument", "Instrument Toolbar"), actions, controls.instrumentList);
    fillMeterBar(addBar(window, "tbVU", "Meters Toolbar"), controls.masterMeter, controls.masterVolume);
}
