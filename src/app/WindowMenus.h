#pragma once

class ImportCommands;
class QMainWindow;
class QUndoStack;
class Settings;
class WindowActions;

// Fills the menu bar with the actions; the commands and the settings, for the recent files, outlive the window.
void makeMenus(QMainWindow &window, const WindowActions &actions, ImportCommands &import, const Settings &settings);

// The list of changes beside the tracks, hidden at first, with its entry in the edit menu.
void makeHistoryDock(QMainWindow &window, QUndoStack &history);

// Whoever asks for a panel by its action has the keyboard in it.
void focusShownDocks(QMainWindow &window);
