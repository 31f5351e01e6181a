"""The example that checks names with a script of Javascript, and the script on the page on Javascript."""

import re

import brindle

import support

SCRIPT = support.ROOT / "examples" / "javascript" / "check_names.py"
PAGE = (support.ROOT / "docs" / "javascript.md").read_text()


def test_it_tells_each_problem_and_fails_for_one(tmp_path):
    folder = tmp_path / "walk"
    with brindle.create(folder) as app:
        app.scene.nodes.create("PEG", "P_Arm")
        app.scene.nodes.create("PEG", "Hand")
        app.scene.nodes.create("READ", "D_" + "x" * 30)
        app.save()
    done = support.run(support.PYTHON, SCRIPT, folder, "--longest", "16")
    assert (done.returncode, done.stderr) == (1, "")
    assert sorted(done.stdout.splitlines()) == [
        f"Top/D_{'x' * 30} is longer than 16 letters", "Top/Hand should begin with P_"]
    done = support.run(support.PYTHON, SCRIPT, folder, "--except", "Top/Hand")
    assert (done.returncode, done.stdout, done.stderr) == (0, "", "")
    done = support.run(support.PYTHON, SCRIPT, tmp_path)
    assert (done.returncode, done.stdout) == (1, "")
    assert done.stderr == f'check_names: Cannot open the project: "{tmp_path}" holds no project.\n'


def test_the_script_on_the_page_runs():
    script, = re.findall(r"```python\n(.*?)```", PAGE, re.DOTALL)
    done = support.run_python(script)
    assert (done.returncode, done.stderr) == (0, "")
    assert done.stdout == "Top/The-left-arm-of-the-hero is longer than 20 letters\n"
