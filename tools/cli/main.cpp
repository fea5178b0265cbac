#include "Arguments.h"
#include "Convert.h"
#include "Inspect.h"
#include "Instruments.h"
#include "Messages.h"
#include "Pak.h"
#include "Render.h"
#include "WriteSong.h"

#include <QCoreApplication>
#include <QLoggingCategory>

#include <cstdio>
#include <limits>
#include <new>

namespace {

constexpr int any = std::numeric_limits<int>::max();

const std::vector<Command> &commands()
{
    static const std::vector<Command> table{
        {"inspect", "INPUT", "", "transforms", 1, 1, AbcDialect::Game, inspect},
        {"convert", "INPUT… --output DIR [--to abc|midi|tunebook] [--force]", "output", "to force transforms", 1, any,
         AbcDialect::Auto, convert},
        {"render",
         "INPUT… --game DIR --output OUT.wav|flac|ogg|opus|mp3 [--files mix|parts|both] [--bits 16|24|float]\n"
         "      [--quality Q] [--loop] [--normalise] [--instrument NAME] [--mods] [--force]",
         "game output", "files bits quality loop normalise instrument mods force transforms", 1, any, AbcDialect::Game,
         render},
        {"song", "INPUT… --output FILE.kvsong [--title T] [--force]", "output", "title force transforms", 1, any,
         AbcDialect::Game, writeSong},
        {"instruments", "--game DIR [--mods] [--json]", "game", "mods json", 0, 0, AbcDialect::Game, listInstruments},
        {"pak list", "PACKAGE", "", "", 1, 1, AbcDialect::Game, listPackage},
        {"pak extract", "PACKAGE PATH [--output FILE]", "", "output", 2, 2, AbcDialect::Game, extractFromPackage},
    };
    return table;
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    // What a song's fields fall back to belongs to the developer's log, not between the lines of the output.
    QLoggingCategory::setFilterRules(QStringLiteral("kelvarion.*=false"));
    try {
        const auto invocation = parseArguments(QCoreApplication::arguments(), commands());
        const int status = invocation.command->run(invocation.arguments);
        return finishLines() ? status : 1;
    } catch (const HelpWanted &) {
        std::printf("%s\n", qUtf8Printable(usageText(commands())));
        return finishLines() ? 0 : 1;
    } catch (const WrongUsage &usage) {
        std::fprintf(stderr, "kelvarion-composer-cli: %s\n\n%s", qUtf8Printable(printable(usage.message)),
                     qUtf8Printable(usageText(commands())));
        return 2;
    } catch (const std::bad_alloc &) {
        std::fputs("kelvarion-composer-cli: out of memory\n", stderr);
        return 1;
    }
}
