#include "Commands.h"
#include "arguments/Help.h"
#include "base/SafeFile.h"
#include "streams/Messages.h"
#include "streams/System.h"

#include <QCoreApplication>
#include <QLocale>
#include <QLoggingCategory>

#include <cstdio>
#include <new>

namespace {

void printUsage(const WrongUsage &usage)
{
    const auto name = QLatin1String(programName);
    const auto command = usage.command != nullptr ? QString::fromLatin1(usage.command->name) + u' ' : QString();
    const auto line = usage.command != nullptr ? synopsis(*usage.command) : name + QStringLiteral(" COMMAND …");
    std::fprintf(stderr, "%s: %s\nUsage: %s\n%s %s--help says more.\n", programName,
                 qUtf8Printable(printable(usage.message)), qUtf8Printable(line), programName, qUtf8Printable(command));
}

int runCommandLine()
{
    const auto invocation = parseArguments(QCoreApplication::arguments(), allCommands());
    const int status = invocation.command->run(invocation.arguments);
    return finishLines() ? status : 1;
}

} // namespace

int main(int argc, char **argv)
{
    System::prepareStreams();
    const QCoreApplication application(argc, argv);
    QLocale::setDefault(QLocale::c()); // scripts read the numbers, whatever the language of the system
    // What a song's fields fall back to belongs to the developer's log, not between the lines of the output.
    QLoggingCategory::setFilterRules(QStringLiteral("kelvarion.*=false"));
    try {
        System::endAtSignals(SafeFile::abandonAll);
        return runCommandLine();
    } catch (const HelpWanted &help) {
        std::fputs(qUtf8Printable(help.command != nullptr ? helpText(*help.command) : helpText(allCommands())), stdout);
        return finishLines() ? 0 : 1;
    } catch (const VersionWanted &) {
        std::printf("%s %s\n", programName, COMPOSER_VERSION);
        return finishLines() ? 0 : 1;
    } catch (const WrongUsage &usage) {
        printUsage(usage);
        return 2;
    } catch (const std::bad_alloc &) {
        std::fprintf(stderr, "%s: out of memory\n", programName);
        return 1;
    }
}
