#include "WriteSong.h"

#include "base/SafeFile.h"
#include "input/Parts.h"
#include "song/SongFile.h"
#include "streams/Messages.h"

#include <QFileInfo>

int writeSong(const Arguments &arguments)
{
    bool failed = false;
    auto song = readParts(arguments, failed).song;
    if (failed && song.parts.isEmpty())
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
