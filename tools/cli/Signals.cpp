#include "Signals.h"

#include "base/SafeFile.h"

#ifdef Q_OS_UNIX
#include <csignal>
#include <cstdlib>
#include <thread>

namespace {

// Who started the program may want it to outlive the terminal, as nohup does.
bool isIgnored(int signal)
{
    struct sigaction action = {};
    return sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

} // namespace

// They are waited for, so that what is done then may lock and allocate.
void endAtSignals()
{
    sigset_t endings;
    sigemptyset(&endings);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        if (!isIgnored(signal))
            sigaddset(&endings, signal);
    }
    pthread_sigmask(SIG_BLOCK, &endings, nullptr); // in the threads to come as well
    std::thread([endings] {
        int signal = 0;
        while (sigwait(&endings, &signal) != 0) {
        }
        SafeFile::abandonAll();
        std::_Exit(128 + signal);
    }).detach();
}

#else

void endAtSignals() {}

#endif
