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
} // namespace

StopSignal::StopSignal()
{
    s_number = 0;
    for (const int signal : kSignals) {
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
    for (const int signal : kSignals)
        std::signal(signal, SIG_DFL);
    s_number = 0;
}

int StopSignal::number()
{
    return s_number;
}
