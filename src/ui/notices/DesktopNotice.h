#pragma once

class QString;
class QWidget;

// What the desktop shows of a window that is not in front. On the interface thread; both return at once.

// Shows the window in front of all others; where a program may not do that by itself, marks it in the list of windows.
void comeForward(QWidget &window);

// A notice of the desktop's own, as it shows those of all programs; a click on it brings the window forward. Where the
// desktop has none the window is marked in the list of windows.
void showDesktopNotice(QWidget &window, const QString &title, const QString &text);
