"""The page on values and geometry: its tables and pictures are what the module makes, and its scripts run."""

import re
import xml.etree.ElementTree

import pytest

import support

DOCS = support.ROOT / "docs"
PAGE = (DOCS / "geometry.md").read_text()
SCRIPTS = re.findall(r"```python\n(.*?)```", PAGE, re.DOTALL)
IMAGES = re.findall(r"!\[([^]]+)\]\((images/[^)]+)\)", PAGE)


def test_tables_and_pictures_are_up_to_date():
    done = support.run(support.PYTHON, support.ROOT / "examples/geometry/write_page.py", "--check")
    assert done.returncode == 0, f"{done.stdout}{done.stderr}\nexamples/geometry/write_page.py writes them anew"


@pytest.mark.parametrize("script", SCRIPTS, ids=lambda script: script.split("\n")[2])
def test_the_scripts_on_the_page_run(script):
    done = support.run_python(script)
    assert done.returncode == 0, done.stderr


def test_each_picture_is_shown_once_and_is_sound():
    shown = [image for _, image in IMAGES]
    assert sorted(shown) == sorted(f"images/{path.name}" for path in (DOCS / "images").glob("*.svg"))
    for _, image in IMAGES:
        root = xml.etree.ElementTree.fromstring((DOCS / image).read_text())
        assert root.tag == "{http://www.w3.org/2000/svg}svg" and len(root) > 3


def test_links_lead_somewhere():
    for target in re.findall(r"\]\(([^)]+)\)", PAGE):
        assert (DOCS / target).exists(), target
