"""An element's lock between processes."""

import subprocess

import brindle
import pytest

import support

HOLDER = """
import brindle, sys
with brindle.open(sys.argv[1]) as app:
    app.elements["Arm"].lock()
    print("locked", flush=True)
    sys.stdin.read()
"""


def test_who_only_reads_gets_no_lock_and_is_told_why(tmp_path, capfd):
    folder = tmp_path / "p"
    with brindle.create(folder) as app:
        app.elements.create("Arm")
        app.save()
    with subprocess.Popen([support.PYTHON, "-c", HOLDER, folder], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                          text=True) as holder:
        assert holder.stdout.readline() == "locked\n"
        with brindle.open(folder, read_only=True) as app:
            arm = app.elements["Arm"]
            assert not arm.locked
            with pytest.raises(brindle.Error, match="^Failed to get element lock.$"):
                arm.lock()
            arm.release()
        told = capfd.readouterr().err
        assert told.startswith(f'Error: Cannot lock element "Arm": "{folder}/elements/Arm" is in use by ')
        assert f"process {holder.pid})" in told
        holder.communicate("")
    assert not (folder / "elements").exists()


def test_a_lock_that_another_machine_left_is_told(tmp_path, capfd):
    folder = tmp_path / "p"
    with brindle.create(folder) as app:
        arm = app.elements.create("Arm")
        (folder / "elements/Arm").mkdir(parents=True)
        (folder / "elements/Arm/.brindle-lock").write_text("123\nbrindle\nanother-machine\n\n\n")
        with pytest.raises(brindle.Error, match="^Failed to get element lock.$"):
            arm.lock()
        assert "on another-machine (brindle, process 123)." in capfd.readouterr().err
        assert not arm.locked
