#include "app/recovery/EndSignals.h"

#include <QSocketNotifier>

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {

int writingEnd = -1;

// The handler may do hardly more than that (POSIX, "Signal Concepts").
void tell(int)
{
    const char any = 0;
    [[maybe_unused]] const auto written = write(writingEnd, &any, 1);
}

} // namespace

void onEndSignals(QObject &context, const std::function<void()> &end)
{
    int pipeEnds[2];
    if (pipe(pipeEnds) != 0)
        return;
    for (const int each : pipeEnds) {
        fcntl(each, F_SETFD, FD_CLOEXEC);
        fcntl(each, F_SETFL, O_NONBLOCK);
    }
    writingEnd = pipeEnds[1];
    auto *const notifier = new QSocketNotifier(pipeEnds[0], QSocketNotifier::Read, &context);
    QObject::connect(notifier, &QSocketNotifier::activated, &context, [=] {
        notifier->setEnabled(false);
        end();
    });
    for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
        struct sigaction action = {};
        if (sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN)
            continue; // as nohup has it
        action = {};
        action.sa_handler = tell;
        action.sa_flags = SA_RESTART;
        sigaction(signal, &action, nullptr);
    }
}
