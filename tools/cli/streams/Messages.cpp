#include "streams/Messages.h"

#include "base/ErrorText.h"
#include "streams/System.h"

#include <algorithm>
#include <cstdio>
#include <utility>

namespace {

bool isBarOpen = false;

void endBar()
{
    if (std::exchange(isBarOpen, false))
        std::fputc('\n', stderr);
}

} // namespace

QString printable(QString text)
{
    const auto isControl = [](QChar c) { return c < u' ' || (c >= u'\x7F' && c < u'\xA0'); };
    std::replace_if(text.begin(), text.end(), isControl, QChar(QChar::ReplacementCharacter));
    return text;
}

void printFailure(const QString &file, const QString &message)
{
    endBar();
    for (const auto &line : message.split(u'\n')) {
        std::fprintf(stderr, "kelvarion-composer-cli: %s: %s\n", qUtf8Printable(printable(file)),
                     qUtf8Printable(printable(line)));
    }
}

void printLine(const QString &line)
{
    std::printf("%s\n", qUtf8Printable(printable(line)));
}

bool runOrPrint(const QString &file, const std::function<void()> &work)
{
    try {
        work();
        return true;
    } catch (...) {
        printFailure(file, currentErrorText());
    }
    return false;
}

bool finishLines()
{
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0)
        return true;
    printFailure(QStringLiteral("standard output"), QStringLiteral("Could not write everything."));
    return false;
}

StandardOutput::StandardOutput()
{
    if (!file_.open(stdout, QIODevice::WriteOnly))
        throw QStringLiteral("Could not write to standard output.");
}

void StandardOutput::finish()
{
    if (!file_.flush() || file_.error() != QFileDevice::NoError)
        throw file_.errorString();
}

void printProgress(int done, int total)
{
    if (!System::isTerminal(stderr))
        return;
    constexpr int width = 40;
    const int filled = total > 0 ? width * done / total : width;
    const auto bar = QString(filled, u'#').leftJustified(width, u'.');
    std::fprintf(stderr, "\r[%s] %d/%d", qUtf8Printable(bar), done, total);
    isBarOpen = true;
    if (done == total)
        endBar();
}
