#include "Arguments.h"
#include "Convert.h"
#include "Input.h"
#include "Inspect.h"
#include "Messages.h"

#include <QCoreApplication>
#include <QFile>
#include <QLoggingCategory>

#include <cstdio>
#include <new>

namespace {

int inspectInput(const Arguments &arguments)
{
    const auto &path = arguments.inputs.first();
    try {
        auto input = readInput(path, arguments);
        for (const auto &transform : arguments.transforms)
            input.tracks = transform(input.tracks);
        QFile out;
        if (!out.open(stdout, QIODevice::WriteOnly))
            throw QStringLiteral("Could not write to standard output.");
        inspect(input.tracks, input.report, out);
        if (!out.flush())
            throw out.errorString();
        return 0;
    } catch (const QString &message) {
        printFailure(path, message);
        return 1;
    }
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    // What a song's fields fall back to belongs to the developer's log, not between the lines of the output.
    QLoggingCategory::setFilterRules(QStringLiteral("kelvarion.*=false"));
    try {
        const auto arguments = parseArguments(QCoreApplication::arguments());
        return arguments.command == u"inspect" ? inspectInput(arguments) : convert(arguments);
    } catch (const WrongUsage &usage) {
        std::fprintf(stderr, "kelvarion-composer-cli: %s\n\n%s", qUtf8Printable(usage.message), usageText);
        return 2;
    } catch (const std::bad_alloc &) {
        std::fputs("kelvarion-composer-cli: out of memory\n", stderr);
        return 1;
    }
}
