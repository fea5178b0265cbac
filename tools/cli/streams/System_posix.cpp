#include "streams/System.h"

#include <csignal>
#include <cstdlib>
#include <thread>
#include <unistd.h>

namespace {

// Who started the program may want it to outlive the terminal, as nohup does.
bool isIgnored(int signal)
{
    struct sigaction action = {};
    return sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

} // namespace

void System::prepareStreams() {}

bool System::isTerminal(std::FILE *stream)
{
    return isatty(fileno(stream)) != 0;
}

// They are waited for, so that what is done then may lock and allocate.
void System::endAtSignals(void (*beforeEnd)())
{
    sigset_t endings;
    sigemptyset(&endings);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        if (!isIgnored(signal))
            sigaddset(&endings, signal);
    }
    pthread_sigmask(SIG_BLOCK, &endings, nullptr); // in the threads to come as well
    std::thread([endings, beforeEnd] {
        int signal = 0;
        while (sigwait(&endings, &signal) != 0) {
        }
        beforeEnd();
        std::_Exit(128 + signal);
    }).detach();
}
