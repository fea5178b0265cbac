#include "streams/System.h"

#include <cstdlib>
#include <fcntl.h>
#include <io.h>
#include <windows.h>

namespace {

UINT previousCodePage = 0;
void (*doBeforeEnd)() = nullptr;

// On a thread of its own; what the system does then, ends the program.
BOOL WINAPI atEnd(DWORD)
{
    doBeforeEnd();
    return FALSE;
}

} // namespace

void System::prepareStreams()
{
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
    previousCodePage = GetConsoleOutputCP(); // the console's, which is there after the program; 0 without one
    if (previousCodePage == 0)
        return;
    SetConsoleOutputCP(CP_UTF8);
    std::atexit([] { SetConsoleOutputCP(previousCodePage); });
}

bool System::isTerminal(std::FILE *stream)
{
    return _isatty(_fileno(stream)) != 0;
}

void System::endAtSignals(void (*beforeEnd)())
{
    doBeforeEnd = beforeEnd;
    SetConsoleCtrlHandler(atEnd, TRUE);
}
