#pragma once

namespace app {

/// While it lives, the signals that ask a process to end (SIGINT, as by Ctrl+C, and SIGTERM) are taken note of. The
/// second one ends the process at once.
class StopSignal {
public:
    StopSignal();
    StopSignal(const StopSignal&) = delete;
    StopSignal& operator=(const StopSignal&) = delete;
    ~StopSignal();

    static bool isGiven();
    static int exitCode(); ///< What shells give for a process that ended by the signal: 130 or 143.
};

} // namespace app
