#pragma once

class QWidget;

// Makes a window that is not shown yet no larger than its screen has room for, with the frame that the desktop will put
// around it.
void fitToScreen(QWidget &window);
