"""The page on drawings: its pictures and its script are what the module makes."""

import re
import xml.etree.ElementTree

import brindle
import pytest

import support

DOCS = support.ROOT / "docs"
PAGE = (DOCS / "drawings.md").read_text()
SCRIPTS = re.findall(r"```python\n(.*?)```", PAGE, re.DOTALL)
IMAGES = re.findall(r"!\[([^]]+)\]\((images/[^)]+)\)", PAGE)
WRITER = support.ROOT / "examples" / "drawings" / "write_drawing_page.py"


def test_the_pictures_are_up_to_date():
    done = support.run(support.PYTHON, WRITER, "--check")
    assert done.returncode == 0, f"{done.stdout}{done.stderr}\nexamples/drawings/write_drawing_page.py writes them anew"


@pytest.mark.parametrize("script", SCRIPTS)
def test_the_scripts_on_the_page_run(script):
    done = support.run_python(script)
    assert done.returncode == 0, done.stderr
    assert done.stdout == "4 cuts\nDrawing Modified with Python 6 2\n[]\n"


def test_each_picture_is_shown_once_and_is_sound():
    shown = [image for _, image in IMAGES]
    assert sorted(shown) == sorted(f"images/drawings/{path.name}" for path in (DOCS / "images/drawings").iterdir())
    for _, image in IMAGES:
        root = xml.etree.ElementTree.fromstring((DOCS / image).read_text())
        assert root.tag == "{http://www.w3.org/2000/svg}svg" and len(root) > 3


def test_the_commands_on_the_page_do_what_they_say(tmp_path):
    with brindle.create(tmp_path / "PROJECT") as app:
        app.save()
    (tmp_path / "cat.svg").write_bytes((WRITER.with_name("cat.svg")).read_bytes())
    commands = re.findall(r"^    brindle (drawing .*?)  ", PAGE, re.MULTILINE)
    assert [command.split()[1] for command in commands] == ["import", "export"]
    for command in commands:
        done = support.run_command(*command.split(), cwd=tmp_path)
        assert done.returncode == 0, done.stderr
    with brindle.open(tmp_path / "PROJECT") as app:
        assert len(app.elements["Cat"].drawings["1"].drawing["line"]) > 1
