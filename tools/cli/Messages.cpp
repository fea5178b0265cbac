#include "Messages.h"

#include <cstdio>

#ifdef Q_OS_WIN
#include <io.h>
#else
#include <unistd.h>
#endif

namespace {

bool isTerminal()
{
#ifdef Q_OS_WIN
    return _isatty(_fileno(stderr)) != 0;
#else
    return isatty(STDERR_FILENO) != 0;
#endif
}

} // namespace

void printFailure(const QString &file, const QString &message)
{
    std::fprintf(stderr, "kelvarion-composer-cli: %s: %s\n", qUtf8Printable(file), qUtf8Printable(message));
}

void printLine(const QString &line)
{
    std::printf("%s\n", qUtf8Printable(line));
}

void printProgress(int done, int total)
{
    if (!isTerminal())
        return;
    constexpr int width = 40;
    const int filled = total > 0 ? width * done / total : width;
    const auto bar = QString(filled, u'#').leftJustified(width, u'.');
    std::fprintf(stderr, "\r[%s] %d/%d%s", qUtf8Printable(bar), done, total, done == total ? "\n" : "");
}
