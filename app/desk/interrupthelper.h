#pragma once

#include <QByteArray>

#include <sys/types.h>
#include <functional>

namespace app::desk {

/// The way to interrupt a script that gives the window no time for its events, as one of Javascript that never ends: a
/// small window of another process, whose button sends this one the signal of Ctrl+C.
class InterruptHelper {
public:
    /// `program` is the file of brindle-desk.
    explicit InterruptHelper(QByteArray program) : m_program(std::move(program)) {}
    InterruptHelper(const InterruptHelper&) = delete;
    InterruptHelper& operator=(const InterruptHelper&) = delete;
    ~InterruptHelper() { end(); }

    /// On one thread at a time, whichever. A process that can't be started is left out: Ctrl+C in the terminal stays.
    void begin();
    void end();

private:
    QByteArray m_program;
    pid_t m_process = 0;
};

/// The whole of the other process: shows the window until the one that started it ends it. Gives the exit code.
int offerInterrupt();

} // namespace app::desk
