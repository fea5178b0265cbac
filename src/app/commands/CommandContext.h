#pragma once

class Dialogs;
class Playback;
class QWidget;
class Settings;
class SongSession;
class TrackList;

// What the commands of a window work with; all of it outlives them.
struct CommandContext
{
    QWidget &window; // the parent of dialogs
    Settings &settings;
    Dialogs &dialogs;
    TrackList &tracks;
    SongSession &session;
    Playback &playback;
};
