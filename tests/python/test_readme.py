"""The README, followed as somebody who reads it for the first time."""

import re

import pytest

import support

SCRIPT = re.search(r"```python\n(.*?)```", (support.ROOT / "README.md").read_text(), re.DOTALL)[1]
PRINTED = "arm at frame 6: 25.92\nhand at frame 24: 35.0\n"


@pytest.fixture(params=[(support.COMMAND, "run"), (support.PYTHON,)], ids=["the command line", "a plain interpreter"])
def wave(request, tmp_path):
    """Its first script has run."""
    (tmp_path / "wave.py").write_text(SCRIPT)
    done = support.run(*request.param, "wave.py", cwd=tmp_path)
    assert (done.returncode, done.stdout) == (0, PRINTED), done.stderr
    return tmp_path


def test_the_arm_that_waves_is_saved(wave):
    told = support.run(support.COMMAND, "info", "wave", cwd=wave).stdout
    assert "60 frames (1 to 60) at 24 fps, 4 nodes, 2 columns" in told


def test_its_frame_rate_is_changed_by_the_example(wave):
    done = support.run(support.COMMAND, "run", support.ROOT / "examples/retime.py", "wave", "--fps", "30", cwd=wave)
    assert done.returncode == 0 and done.stdout.endswith("Saved wave\n"), done.stderr
    assert "75 frames (1 to 75) at 30 fps" in support.run(support.COMMAND, "info", "wave", cwd=wave).stdout
