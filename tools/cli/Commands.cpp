#include "Commands.h"

#include "Arrange.h"
#include "Check.h"
#include "Completion.h"
#include "Convert.h"
#include "Inspect.h"
#include "Instruments.h"
#include "Manual.h"
#include "Pak.h"
#include "Render.h"
#include "WriteSong.h"

#include <limits>

namespace {

constexpr int any = std::numeric_limits<int>::max();

} // namespace

const std::vector<Command> &allCommands()
{
    using enum AbcDialect;
    static const std::vector<Command> table{
        {"convert", "INPUT…", "output=DIR", "to names force summary json manifest transforms",
         "Writes each part as ABC for the game, or each input as a MIDI file or a book of tunes.", 1, any, Auto,
         convert},
        {"render", "INPUT…", "game output=OUT.wav|flac|ogg|opus|mp3|DIR/|-",
         "files format bits quality loop normalise start-offsets engine instrument mods force summary json "
         "manifest transforms",
         "Plays all parts with the game's instruments into a sound file.", 1, any, Game, render},
        {"check", "INPUT…", "game", "json summary instrument mods transforms",
         "Tells what the game would not play as it is meant, in each input, which is a song.", 1, any, Game, check},
        {"song", "INPUT…", "output=FILE.kvsong", "title game instrument mods force transforms",
         "Puts all parts into one song file, for the window; with a game, each with an instrument.", 1, any, Game,
         writeSong},
        {"arrange", "INPUT…", "players output=DIR", "voices game mods force summary json manifest transforms",
         "Fits each input, a song, to a number of players, with an ABC file for each of them.", 1, any, Game,
         arrangeSongs},
        {"inspect", "INPUT…", "", "transforms", "Prints parts, fields and notes as JSON, an object for each input.", 1,
         any, Game, inspect},
        {"instruments", "", "game", "mods json", "Lists the instruments of a game.", 0, 0, Game, listInstruments},
        {"pak list", "PACKAGE", "", "", "Lists the files in a package of the game.", 1, 1, Game, listPackage},
        {"pak extract", "PACKAGE PATH", "", "output",
         "Takes a file out of a package of the game, to standard output without --output.", 2, 2, Game,
         extractFromPackage},
        {"completion", "bash|zsh|fish", "", "", "Prints what makes a shell complete commands, options and values.", 1,
         1, Game, printCompletion},
        {"manual", "", "", "", "Prints this program's manual page, in the language of man.", 0, 0, Game, printManual},
    };
    return table;
}
