#pragma once

#include <QSocketNotifier>

#include <functional>
#include <optional>

struct sigaction;

namespace app::desk {

/// Ctrl+C in the terminal that the program was started from. While the main thread runs a script, that is the script's
/// to be interrupted; else the person wants the program to end: `asked` is called on the main thread. Where that one
/// doesn't come to it, as behind a thread that keeps the application locked, the second time ends the process.
///
/// Made when the interpreter has installed its own handler, which it takes the place of while it lives. One at a time.
class TerminalInterrupt {
public:
    explicit TerminalInterrupt(std::function<void()> asked);
    TerminalInterrupt(const TerminalInterrupt&) = delete;
    TerminalInterrupt& operator=(const TerminalInterrupt&) = delete;
    ~TerminalInterrupt();

private:
    std::function<void()> m_asked;
    std::optional<QSocketNotifier> m_notifier; ///< None where the process ignores the signal, and stays so.
};

} // namespace app::desk
