"""Runs a command and writes what it took: a small process, so that what is measured is the command's own memory.

    timed.py RESULT SECONDS COMMAND...

RESULT gets a line of JSON: seconds on the clock, seconds of user and system, the largest resident memory of any of its
processes in bytes, and its exit code. A command that takes longer than SECONDS is ended.
"""

import json
import os
import resource
import signal
import sys
import time


def main():
    result, limit, *command = sys.argv[1:]
    start = time.monotonic()
    child = os.fork()
    if not child:
        os.setpgid(0, 0)
        try:
            os.execvp(command[0], command)
        except OSError as error:
            print(f"{command[0]}: {error.strerror}", file=sys.stderr)
        os._exit(127)

    def end(*_):
        os.killpg(child, signal.SIGKILL)

    for reason in (signal.SIGALRM, signal.SIGTERM, signal.SIGINT):
        signal.signal(reason, end)
    signal.setitimer(signal.ITIMER_REAL, float(limit))
    _, status = os.waitpid(child, 0)
    seconds = time.monotonic() - start
    signal.setitimer(signal.ITIMER_REAL, 0)
    used = resource.getrusage(resource.RUSAGE_CHILDREN)
    with open(result, "w") as file:
        json.dump({"seconds": seconds, "processor": used.ru_utime + used.ru_stime, "memory": used.ru_maxrss * 1024,
                   "code": os.waitstatus_to_exitcode(status)}, file)


if __name__ == "__main__":
    main()
