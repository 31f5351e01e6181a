#pragma once

namespace app {

/// While it lives, a first SIGINT (Ctrl+C) or SIGTERM is noted, so that the run can end by itself. A second signal of
/// the same kind ends the process at once. Only one object at a time.
class StopSignal {
public:
    StopSignal();
    StopSignal(const StopSignal&) = delete;
    StopSignal& operator=(const StopSignal&) = delete;
    ~StopSignal();

    static bool isGiven(); ///< Whether a signal has come.
    static int exitCode(); ///< As shells give it for a process that the signal ended: 130 or 143.
};

} // namespace app
