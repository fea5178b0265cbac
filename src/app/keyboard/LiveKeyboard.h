#pragma once

#include "midi/MidiKeyboard.h"
#include "settings/Settings.h"

class EditorWindows;
class Playback;
class TrackList;
class TrackPlayer;

// What the MIDI keyboard plays at the window: the instrument of the part whose editor is in front, or of the first that
// is selected, or of the first there is. On the interface thread.
class LiveKeyboard : public QObject
{
    Q_OBJECT

public:
    struct Window
    {
        Settings &settings;
        TrackPlayer &player;
        TrackList &tracks;
        const Playback &playback;
        EditorWindows &editors;
    };

    // All outlive it. input: may be null.
    LiveKeyboard(const Window &window, std::unique_ptr<MidiInput> input, QObject *parent = nullptr);

    MidiKeyboard &keyboard() { return keyboard_; }
    // The id of the part that is played; empty while there is none.
    QString part() const;

    // To be called when the catalogue of instruments has changed.
    void chooseSound();

private:
    Window window_;
    MidiKeyboard keyboard_;
};
