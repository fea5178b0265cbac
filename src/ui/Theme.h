#pragma once

#include <QColor>

// How the windows look: the Fusion style, whose own palette is Light.
enum class Theme { Light, Dark };

// Before there is a window: Light leaves the palette to the desktop.
void startTheme(Theme theme);

// Changes the style and palette of the whole application; open windows follow. Needs the application object.
void applyTheme(Theme theme);

// Of the program's palette, not of a widget's, which a style sheet may fill.
bool isDarkTheme();

// Of the ring around what has the keys, on windows and rows.
QColor focusColour();
