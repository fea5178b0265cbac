#pragma once

class InstrumentComboBox;
class QMainWindow;
class QSlider;
class VUMeter;
class WindowActions;

// What stands in the toolbars beside the actions; the window becomes their parent.
struct ToolBarControls
{
    InstrumentComboBox &instrumentList;
    VUMeter &masterMeter;
    QSlider &masterVolume;
};

void makeToolBars(QMainWindow &window, const WindowActions &actions, const ToolBarControls &controls);
