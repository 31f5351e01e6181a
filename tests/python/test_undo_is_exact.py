"""Random programs: undo takes back every change to the byte, redo brings it again, the history is as expected."""

import os

import pytest
from hypothesis import HealthCheck, settings
from hypothesis.stateful import run_state_machine_as_test

import support
from clipboardmachine import ClipboardMachine
from columnmachine import ColumnMachine
from elementmachine import ElementMachine
from settingsmachine import SettingsMachine
from undomachine import UndoMachine

# The same programs in each run; a larger number of programs, always other ones, comes with the variable.
EXAMPLES = int(os.environ.get("BRINDLE_TEST_EXAMPLES", "0"))


@pytest.mark.parametrize("machine, examples", [(UndoMachine, 150 if support.DEEP else 40),
                                               (SettingsMachine, 100 if support.DEEP else 25),
                                               (ElementMachine, 100 if support.DEEP else 25),
                                               (ColumnMachine, 100 if support.DEEP else 25),
                                               (ClipboardMachine, 100 if support.DEEP else 25)])
def test_every_random_program_is_undone_and_redone_to_the_byte(machine, examples):
    run_state_machine_as_test(machine, settings=settings(
        max_examples=EXAMPLES or examples, stateful_step_count=50, deadline=None, database=None,
        derandomize=not EXAMPLES, print_blob=False, suppress_health_check=list(HealthCheck)))
