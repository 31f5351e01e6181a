#include "app/rendering/stopsignal.h"

#include <csignal>

namespace app {

namespace {

constexpr int kSignals[] = {SIGINT, SIGTERM};
volatile std::sig_atomic_t given = 0;

void take(int signal)
{
    given = signal;
}

void set(void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    // System calls are resumed, and a second signal of the kind has its default effect.
    action.sa_flags = static_cast<int>(SA_RESTART | SA_RESETHAND);
    for (const int signal : kSignals)
        sigaction(signal, &action, nullptr);
}

} // namespace

StopSignal::StopSignal()
{
    given = 0;
    set(take);
}

StopSignal::~StopSignal()
{
    set(SIG_DFL);
}

bool StopSignal::isGiven()
{
    return given != 0;
}

int StopSignal::exitCode()
{
    return 128 + given;
}

} // namespace app
