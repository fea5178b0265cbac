#pragma once

#include <QString>

class MainWindow;

// Plays the window's song, saves a picture of the window after some seconds and ends the program; with status 2 when
// the picture cannot be written.
void saveScreenshot(MainWindow &window, const QString &file);
