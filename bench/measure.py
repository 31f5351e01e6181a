"""How the Python side is timed: operations in turn, round after round, without the cost of the loop around them."""

import contextlib
import ctypes
import os
import time
import timeit


class Samples:
    """Seconds an operation, a list of rounds for each name."""

    def __init__(self):
        self.seconds = {}

    def add(self, name, seconds):
        self.seconds.setdefault(name, []).append(seconds)

    @contextlib.contextmanager
    def timed(self, name, items=1, clock=time.process_time):
        """Times a block that is done once; `items` says how many operations it holds."""
        start = clock()
        yield
        self.add(name, (clock() - start) / items)

    def in_turn(self, statements, names, rounds=7, budget=0.02):
        """Times short statements, each as often as fits the budget in seconds.

        statements: name -> (code, how often it does the operation[, code to run ahead]). All of them run once a round,
        so that a round's figures are of one state of the machine and may be divided by each other.
        """
        timers = {"": timeit.Timer("pass", timer=time.process_time)}
        share = {"": 1}
        for name, (code, times, *setup) in statements.items():
            timers[name] = timeit.Timer(code, *setup, timer=time.process_time, globals=names)
            share[name] = times
        numbers = {}
        for name, timer in timers.items():
            number = 100
            while (spent := timer.timeit(number)) < budget / 10:
                number *= 4
            numbers[name] = max(100, int(number * budget / spent))
        for _ in range(rounds):
            loop = timers[""].timeit(numbers[""]) / numbers[""]
            for name in statements:
                spent = timers[name].timeit(numbers[name]) / numbers[name]
                self.add(name, max(spent - loop, 0.0) / share[name])


@contextlib.contextmanager
def silence():
    """Sends what native code prints on standard output nowhere."""
    native = ctypes.CDLL(None)
    native.fflush(None)
    kept = os.dup(1)
    nowhere = os.open(os.devnull, os.O_WRONLY)
    os.dup2(nowhere, 1)
    os.close(nowhere)
    try:
        yield
    finally:
        native.fflush(None)
        os.dup2(kept, 1)
        os.close(kept)
