#pragma once

#include <QString>

// When a command of the window has something to do.
enum class Available { Always, WithTracks, WithSelection, ToWorkOn, WithImports, ToStop };

// A row of the table of actions. Each subject keeps its own.
struct ActionRow
{
    const char *name; // of the object
    QString text;
    const char *shortcut;
    QString tip; // tool tip and status text
    const char *icon;
    const char *slot; // of the window: "onPlay()"; of a switch, which is off at first, "onFollow(bool)"
    Available available = Available::Always;
};
