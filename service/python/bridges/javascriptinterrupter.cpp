#include "service/python/bridges/javascriptinterrupter.h"

#include "core/bridges/javascriptbackend.h"
#include "service/python/interpreter.h"
#include "service/python/scriptexception.h"

#include <unistd.h>
#include <atomic>
#include <cerrno>
#include <csignal>

namespace brindle::python {

namespace {

// The state that the signal handler uses: it has no other way to an object.
std::atomic<void (*)()> abortRun = nullptr;
struct sigaction handlerBefore = {};

extern "C" void interruptRun(int signal)
{
    const int error = errno;
    handlerBefore.sa_handler(signal);
    if (const auto abort = abortRun.load())
        abort();
    errno = error;
}

/// Python hears signals on the main thread of the process alone.
bool isMainThread()
{
    static thread_local const bool isMain = gettid() == getpid();
    return isMain;
}

/// Goes ahead of the handler that is there, Python's or a program's, which is called as well. A script that asks Python
/// for another handler puts Python's own in this place again, so that each run looks.
void listen()
{
    struct sigaction present = {};
    sigaction(SIGINT, nullptr, &present);
    const bool isHandled = present.sa_handler != SIG_DFL && present.sa_handler != SIG_IGN;
    if (!isHandled || (present.sa_flags & SA_SIGINFO) != 0 || present.sa_handler == &interruptRun)
        return;
    handlerBefore = present;
    present.sa_handler = &interruptRun;
    sigaction(SIGINT, &present, nullptr);
}

class Interrupter final : public OMC::JavascriptInterrupter {
public:
    void runBegins(void (*abort)()) override
    {
        if (!isMainThread() || !canEnterInterpreter())
            return;
        listen();
        abortRun = abort;
    }
    void runEnds() override
    {
        if (isMainThread())
            abortRun = nullptr;
    }
    void throwInterrupted() override
    {
        // What the script's own handler of the signal raises, or what Python raises for one that raises nothing.
        if (PyErr_CheckSignals() == 0)
            PyErr_SetNone(PyExc_KeyboardInterrupt);
        ScriptException::throwRaised();
    }
};

} // namespace

void installJavascriptInterrupter()
{
    OMC::JavascriptInterrupter::installed() = std::make_unique<Interrupter>();
}

} // namespace brindle::python
