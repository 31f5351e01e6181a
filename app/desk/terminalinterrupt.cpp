#include "app/desk/terminalinterrupt.h"

#include "core/frame/mainthreadstate.h"

#include <unistd.h>
#include <csignal>

namespace app::desk {

namespace {

// The state that the signal handler uses: it has no other way to an object.
int channel[2] = {-1, -1};
struct sigaction handlerOfInterpreter = {};
volatile std::sig_atomic_t unanswered = 0;

extern "C" void handleInterrupt(int signal)
{
    if (OMC::MainThreadState::isInPython()) {
        handlerOfInterpreter.sa_handler(signal);
        return;
    }
    if (unanswered != 0) {
        std::signal(signal, SIG_DFL);
        std::raise(signal);
        return;
    }
    unanswered = 1;
    [[maybe_unused]] const ssize_t written = write(channel[1], "", 1);
}

} // namespace

TerminalInterrupt::TerminalInterrupt(std::function<void()> asked) : m_asked(std::move(asked))
{
    sigaction(SIGINT, nullptr, &handlerOfInterpreter);
    const bool isHandled = handlerOfInterpreter.sa_handler != SIG_IGN && handlerOfInterpreter.sa_handler != SIG_DFL;
    if (!isHandled || (handlerOfInterpreter.sa_flags & SA_SIGINFO) != 0 || pipe(channel) != 0)
        return;
    m_notifier.emplace(channel[0], QSocketNotifier::Read);
    QObject::connect(&*m_notifier, &QSocketNotifier::activated, [this] {
        char signal = 0;
        const bool isAsked = read(channel[0], &signal, 1) == 1;
        unanswered = 0;
        if (isAsked)
            m_asked();
    });
    struct sigaction own = {};
    own.sa_handler = &handleInterrupt;
    own.sa_flags = SA_RESTART;
    sigaction(SIGINT, &own, nullptr);
}

TerminalInterrupt::~TerminalInterrupt()
{
    if (!m_notifier)
        return;
    sigaction(SIGINT, &handlerOfInterpreter, nullptr);
    m_notifier.reset();
    close(channel[0]);
    close(channel[1]);
}

} // namespace app::desk
