"""The page on palettes and the example that recolours a character: pictures and scripts are what the module makes."""

import re
import xml.etree.ElementTree

import brindle
import pytest

import support

DOCS = support.ROOT / "docs"
PAGE = (DOCS / "palettes.md").read_text()
SCRIPTS = re.findall(r"```python\n(.*?)```", PAGE, re.DOTALL)
IMAGES = re.findall(r"!\[([^]]+)\]\((images/[^)]+)\)", PAGE)
EXAMPLE = support.ROOT / "examples" / "palettes" / "recolour.py"


def test_the_pictures_are_up_to_date():
    done = support.run(support.PYTHON, EXAMPLE.with_name("write_palette_page.py"), "--check")
    assert done.returncode == 0, f"{done.stdout}{done.stderr}\nexamples/palettes/write_palette_page.py writes them anew"


@pytest.mark.parametrize("script", SCRIPTS)
def test_the_scripts_on_the_page_run(script):
    done = support.run_python(script)
    assert done.returncode == 0, done.stderr
    assert done.stdout == """PaletteColour(linear_gradient) [3]
[0.0, 70.0, 100.0]
<brindle.PaletteColour: "Sky", linear gradient, #14143c at 35%, #f0783c at 70%> \
PaletteGradientPosition(Position = 50.00%, Colour(114,63,60,255))
"""


def test_each_picture_is_shown_once_and_is_sound():
    shown = [image for _, image in IMAGES]
    assert sorted(shown) == sorted(f"images/palettes/{path.name}" for path in (DOCS / "images/palettes").iterdir())
    for _, image in IMAGES:
        root = xml.etree.ElementTree.fromstring((DOCS / image).read_text())
        assert root.tag == "{http://www.w3.org/2000/svg}svg" and len(root) > 3


def test_the_example_recolours_a_character(tmp_path):
    done = support.run_command("run", EXAMPLE, tmp_path, "--turn", "90", "--keep", "Hair")
    assert (done.returncode, done.stderr) == (0, "")
    assert '"Shirt", solid #c43e2e' in done.stdout
    assert (tmp_path / "recoloured.svg").read_text().count("<path") > 20
    with brindle.open(tmp_path / "recoloured") as app:
        hero, other = app.project.palettes
        assert hero.colour_names() == other.colour_names() and [c.id for c in hero] == [c.id for c in other]
        for one, turned in zip(hero, other):
            same = one.name in ("Skin", "Eyes", "Cheek", "Hair")
            assert (repr(one) == repr(turned)) == same, one.name
        assert abs((other["Shirt"].h - hero["Shirt"].h) % 360 - 90) < 3
    again = support.run(support.PYTHON, EXAMPLE, tmp_path)
    assert (again.returncode, again.stdout) == (1, "")
    assert again.stderr == f'recolour: Cannot create the project: "{tmp_path}/recoloured" already holds a project.\n'
