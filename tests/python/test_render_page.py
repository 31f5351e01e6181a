"""The page on pictures: its script and its commands do what it says."""

import re
import shutil

import brindle
import pytest

import support

PAGE = (support.ROOT / "docs" / "render.md").read_text()
SCRIPTS = re.findall(r"```python\n(.*?)```", PAGE, re.DOTALL)
COMMANDS = [re.sub(r"  +.*", "", line) for line in re.findall(r"^    brindle (render .*)", PAGE, re.MULTILINE)]


@pytest.fixture
def project(tmp_path):
    with brindle.create(tmp_path / "PROJECT") as app:
        nodes = app.scene.nodes
        nodes["Top/Composite"].ports_in.create().link(nodes.create("COLOR_CARD", "Sky"))
        write = nodes.create("WRITE", "Final")
        write.ports_in[0].link(nodes["Top/Composite"])
        write.attributes["path"].set_value(1, "frames/final-")
        app.save()
    return tmp_path / "PROJECT"


def run(project, command):
    """The command of the page, with small pictures."""
    words = [word.strip("'") for word in command.split()]
    return support.run_command(*words, *([] if "--size" in words else ["--size", "16x9"]), cwd=project.parent)


@pytest.mark.parametrize("script", SCRIPTS)
def test_the_scripts_on_the_page_run(script):
    done = support.run_python(script)
    assert done.returncode == 0, done.stderr
    assert done.stdout == "(180, 320, 4) 64\n3 frames\n"


@pytest.mark.parametrize("command", dict.fromkeys(COMMANDS))
def test_the_commands_on_the_page_run(project, command):
    if "--movie" in command and not shutil.which("ffmpeg"):
        pytest.skip("ffmpeg is not installed")
    done = run(project, command)
    assert done.returncode == 0, done.stderr


def test_two_machines_share_the_frames(project):
    first, second = [command for command in COMMANDS if re.search(r"--frames \d+-\d+ ", command)]
    before = support.files(project)
    with brindle.open(project):  # Somebody works on it.
        assert run(project, second).returncode == 0 and run(project, first).returncode == 0
    frames = project.parent / "frames"
    assert sorted(path.name for path in frames.iterdir()) == [f"{frame:04}.png" for frame in range(1, 61)]
    assert support.files(project) == before

    (frames / "0031.png").write_bytes(b"cut off")
    whole = {path: path.stat().st_mtime_ns for path in frames.iterdir()}
    again = run(project, second)
    assert again.returncode == 0 and "1 of 1 frames" in again.stderr
    assert [path.name for path, time in whole.items() if path.stat().st_mtime_ns != time] == ["0031.png"]


def test_the_exit_codes_are_those_of_the_page(project):
    codes = dict(re.findall(r"^\| (\d) \| (.*) \|$", PAGE, re.MULTILINE))
    assert list(codes) == ["0", "1", "2"]
    (project.parent / "f2.png").mkdir()
    assert run(project, "render PROJECT --frames 1 --out f%d.png").returncode == 0
    assert run(project, "render PROJECT --frames 1-3 --out f%d.png").returncode == 1
    assert (project.parent / "f3.png").is_file()
    assert run(project, "render NOBODY --out f%d.png").returncode == 1
    assert run(project, "render PROJECT --frames 0 --out f%d.png").returncode == 2
