"""Random programs: undo takes back every change to the byte, redo brings it again, the history is as expected."""

import os

from hypothesis import HealthCheck, settings
from hypothesis.stateful import run_state_machine_as_test

from undomachine import UndoMachine

# The same programs in each run; a larger number of programs, always other ones, comes with the variable.
EXAMPLES = int(os.environ.get("BRINDLE_TEST_EXAMPLES", "0"))


def test_every_random_program_is_undone_and_redone_to_the_byte():
    run_state_machine_as_test(UndoMachine, settings=settings(
        max_examples=EXAMPLES or 150, stateful_step_count=50, deadline=None, database=None, derandomize=not EXAMPLES,
        print_blob=False, suppress_health_check=list(HealthCheck)))
