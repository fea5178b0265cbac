#pragma once

#include "assets/InstrumentSet.h"

#include <functional>

enum class Mods { Skip, Load };

// How far a scan is: `done` of `total` directories and packages are behind it, and it is at `path`.
struct ScanProgress
{
    int done = 0;
    int total = 0;
    QString path;
};

// Called on the scan's thread before each directory and package, and again before each item in it; false ends the scan
// with what was found. It must not read packages: the scan holds the registry meanwhile.
using ScanStep = std::function<bool(const ScanProgress &progress)>;

// Every instrument of a game installation that has a tuning, or the one placeholder "None" when there is none; the
// first under a name counts. Looks through the game's assets, their packages and its user directory, then through the
// mod directories and mod packages. What cannot be read is a logged warning and left out, and no QString is thrown.
// What a stranger's package costs is bounded by its size. From any thread, with a second one of its own that decodes
// what was read; packages are closed afterwards.
InstrumentSet scanInstruments(const QString &gameRoot, Mods mods, const ScanStep &step = {});

InstrumentSet noInstruments(); // the placeholder alone
