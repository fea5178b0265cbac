#include "WriteSong.h"

#include "Instruments.h"
#include "base/SafeFile.h"
#include "input/Parts.h"
#include "song/SongFile.h"
#include "streams/Messages.h"
#include "summary/PartInstruments.h"

#include <QFileInfo>

namespace {

// What would play them, for parts that name none; without a game, the window chooses.
void giveInstruments(Parts &parts, const Arguments &arguments)
{
    const auto instruments = scanGame(arguments);
    if (!arguments.instrument.isEmpty())
        instruments.instrument(arguments.instrument); // throws for a name that is not there
    for (int i = 0; i < parts.tracks.size(); ++i) {
        auto &part = parts.song.parts[i];
        if (part.instrument.isEmpty())
            part.instrument = instrumentOf({part, parts.tracks[i], parts.reports[i]}, arguments, instruments).name;
    }
}

} // namespace

int writeSong(const Arguments &arguments)
{
    bool failed = false;
    auto parts = readParts(arguments, failed);
    auto &song = parts.song;
    if (failed && song.parts.isEmpty())
        return 1;
    if (!arguments.game.isEmpty() && !runOrPrint(arguments.game, [&] { giveInstruments(parts, arguments); }))
        return 1;
    const QFileInfo file(arguments.output);
    if (!arguments.title.isEmpty())
        song.title = arguments.title;
    else if (song.title.isEmpty())
        song.title = file.completeBaseName();
    const auto write = [&] {
        const auto bytes = SongFile::toBytes(song, file.absolutePath());
        if (arguments.force)
            SafeFile::write(arguments.output, bytes);
        else if (!SafeFile::writeNew(arguments.output, bytes))
            throw QStringLiteral("The file exists; --force writes over it.");
    };
    if (!runOrPrint(arguments.output, write))
        return 1;
    printLine(QStringLiteral("wrote %1").arg(arguments.output));
    return failed ? 1 : 0;
}
