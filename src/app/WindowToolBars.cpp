#include "app/WindowToolBars.h"

#include "app/commands/WindowActions.h"
#include "ui/Icons.h"
#include "ui/InstrumentComboBox.h"
#include "ui/song/VUMeter.h"

#include <QCoreApplication>
#include <QMainWindow>
#include <QMenu>
#include <QSlider>
#include <QToolBar>
#include <QToolButton>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(MainWindow)
};

QToolBar &addBar(QMainWindow &window, const char *name, const QString &title)
{
    auto &bar = *window.addToolBar(title);
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
    describe(list, "instrumentList", Texts::tr("Default instrument"),
             Texts::tr("This is the default instrument that will be assigned to new tracks"));
    list.setStatusTip(Texts::tr("Default instrument for new tracks"));
    list.setMinimumContentsLength(10);
    list.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    bar.addWidget(&list);
    actions.addTo(bar, "actionApplyInstrument");
}

void fillMeterBar(QToolBar &bar, VUMeter &meter, QSlider &volume)
{
    describe(meter, "masterMeter", Texts::tr("Master level"),
             Texts::tr("The level of all tracks together; red at its end: it was too loud (click to put it out)"));
    meter.setMinimumWidth(160);
    bar.addWidget(&meter);
    auto *const speaker = new IconLabel("speaker-volume", 24);
    speaker->setContentsMargins(8, 0, 4, 0);
    bar.addWidget(speaker);
    describe(volume, "slMasterVolume", Texts::tr("Master volume"), Texts::tr("The playback volume of all tracks"));
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
    actions.addTo(addBar(window, "tbTracks", Texts::tr("Track Toolbar")),
                  "actionOpen actionImport_MIDI actionSave_All - actionNew_Track actionDuplicate_Selected "
                  "actionMerge_Selected actionRemove_Selected actionClear_Tracks actionMute_Selected");
    auto &playback = addBar(window, "tbPlayback", Texts::tr("Playback Controls"));
    actions.addTo(playback,
                  "actionPlay actionStop actionListen_to_Source actionRecord actionMetronome actionRehearsal");
    addMenu(playback, *actions.find(QStringLiteral("actionMetronome")),
            window.findChild<QMenu *>(QStringLiteral("menuMetronome")));
    auto *const offsets = new QMenu(&playback);
    actions.addTo(*offsets, "actionRehearsal_Offsets");
    addMenu(playback, *actions.find(QStringLiteral("actionRehearsal")), offsets);
    keepStopInSight(playback);
    fillInstrumentBar(addBar(window, "tbInstrument", Texts::tr("Instrument Toolbar")), actions,
                      controls.instrumentList);
    fillMeterBar(addBar(window, "tbVU", Texts::tr("Meters Toolbar")), controls.masterMeter, controls.masterVolume);
}
