#include "base/StopSignal.h"

#include <csignal>

namespace {
volatile std::sig_atomic_t s_number = 0;

constexpr int kSignals[] = {
    SIGINT,
    SIGTERM,
#ifdef SIGHUP
    SIGHUP,
#endif
};

void note(int number)
{
    s_number = number;
}

/// Who started the program wants it to go on in spite of the signal, as nohup does.
bool isIgnored(int signal)
{
#ifdef SA_RESETHAND
    struct sigaction action = {};
    return sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
#else
    const auto handler = std::signal(signal, SIG_IGN);
    if (handler != SIG_ERR)
        std::signal(signal, handler);
    return handler == SIG_IGN;
#endif
}
} // namespace

StopSignal::StopSignal()
{
    s_number = 0;
    for (const int signal : kSignals) {
        if (isIgnored(signal))
            continue;
#ifdef SA_RESETHAND
        // Without SA_RESTART: a read that waits for input ends with the signal.
        struct sigaction action = {};
        action.sa_handler = note;
        action.sa_flags = static_cast<int>(SA_RESETHAND);
        sigemptyset(&action.sa_mask);
        sigaction(signal, &action, nullptr);
#else
        std::signal(signal, note);
#endif
    }
}

StopSignal::~StopSignal()
{
    for (const int signal : kSignals) {
        if (!isIgnored(signal))
            std::signal(signal, SIG_DFL);
    }
    s_number = 0;
}

int StopSignal::number()
{
    return s_number;
}
