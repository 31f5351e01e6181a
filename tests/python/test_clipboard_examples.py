"""The page on the clipboard, and the examples of a library of characters and of an action that goes to another one."""

import re
import shutil

import brindle
import pytest

import character
import support

PAGE = (support.ROOT / "docs" / "clipboard.md").read_text()
EXAMPLES = support.ROOT / "examples" / "clipboard"


def run(name, *arguments):
    done = support.run_command("run", EXAMPLES / f"{name}.py", *arguments)
    return done.returncode, done.stdout.splitlines(), done.stderr


@pytest.fixture
def walk(tmp_path):
    """A project on disk with two characters."""
    folder = tmp_path / "walk"
    with brindle.create(folder) as app:
        for number, name in enumerate(("Hero", "Twin")):
            character.make_character(app, tmp_path, name, 100 * number)
        twin = app.scene.nodes["Top/Twin"]
        twin.nodes["Hand"].name = "Foot"
        for frame, _ in character.ANGLES:
            twin.nodes["Arm"].attributes["angle"].set_value(frame, 5.0)
        app.save()
    return folder


@pytest.fixture
def crowd(tmp_path):
    """Another project, empty."""
    brindle.create(tmp_path / "crowd").close()
    return tmp_path / "crowd"


def test_the_script_on_the_page_does_what_the_page_says():
    script, = re.findall(r"```python\n(.*?)```", PAGE, re.DOTALL)
    done = support.run_python(script)
    assert (done.returncode, done.stderr) == (0, "")
    assert done.stdout.splitlines() == ["PegNode(Top/Arm_1) PegNode(Top/Hand_1) PegNode(Top/Arm_1)", "Arm.tpl",
                                        "Paste Nodes from Copy Object"]


@pytest.mark.parametrize("name", ["drawing_action", "drawing_file_mode", "color_palette_mode",
                                  "element_timing_column_mode", "write_mode", "delete_mode"])
def test_the_page_has_a_line_for_each_word_of_a_mode(name):
    words = support.message_of(setattr, brindle.PasteOptions(), name, "x").split("include: ")[1].split(",  ")
    assert all(f"`{word.strip()}`" in PAGE for word in words)


@pytest.mark.parametrize("kind", [brindle.CopyOptions, brindle.PasteOptions, brindle.PasteActionOptions])
def test_the_page_names_each_field_of_the_options(kind):
    fields = [entry for entry in brindle._describe() if entry["name"] == kind.__name__][0]["properties"]
    assert all(f"`{field['name']}`" in PAGE for field in fields)


def test_a_character_is_pasted_three_times_with_other_colours_and_timing(walk, crowd, tmp_path):
    before, library = support.files(walk), tmp_path / "library"
    assert run("riglibrary", "save", walk, "Top/Hero", library) == (0, [f"Saved {library}/Hero.tpl"], "")
    assert support.files(walk) == before
    shutil.rmtree(walk)
    assert run("riglibrary", "list", library) == (0, ["Hero.tpl"], "")
    assert run("riglibrary", "paste", crowd, library / "Hero.tpl", "--shift", 10, "--turn", 90) == (0, [
        "Top/Hero from frame 1, hues turned by 0", "Top/Hero_1 from frame 11, hues turned by 90",
        "Top/Hero_2 from frame 21, hues turned by 180", f"Saved {crowd}"], "")
    with brindle.open(crowd) as app:
        for place, name in enumerate(("Hero", "Hero_1", "Hero_2")):
            member = app.scene.nodes[f"Top/{name}"]
            angle = member.nodes["Arm"].attributes["angle"]
            assert [round(angle.value(frame + 10 * place), 6) for frame in (1, 12, 24)] == [0, 60, -20]
            column = character.cell_of(member.nodes["Drawing"])
            assert character.cells(column, 24 + 10 * place).endswith("1" * 6 + "2" * 6 + "3" * 12)
            palettes = app.project.palette_lists.element_palette_list(column.element)
            skin = brindle.Colour([200, 150, 100]).h
            assert palettes[0]["Skin"].h == pytest.approx((skin + 90 * place) % 360, abs=1)
        assert len({character.cell_of(app.scene.nodes[f"Top/{name}/Drawing"]).element.id
                    for name in ("Hero", "Hero_1", "Hero_2")}) == 3


def test_a_library_says_what_it_can_not_do(walk, crowd, tmp_path):
    before = support.files(walk), support.files(crowd)
    for arguments, message in (
            (("save", walk, "Top/Nobody", tmp_path / "x"), 'there is no node "Top/Nobody" in the scene "Scene-1".'),
            (("save", walk, "Top/Hero", walk / "project.json"),
             f'"{walk}/project.json" is no folder in which a template can be made.'),
            (("list", tmp_path / "none"), f'there is no folder "{tmp_path}/none".'),
            (("paste", crowd, tmp_path / "none.tpl"), "Failed to paste the template.")):
        code, lines, error = run("riglibrary", *arguments)
        assert (code, lines, error.splitlines()[-1]) == (1, [], f"riglibrary: {message}")
    assert (support.files(walk), support.files(crowd)) == before


def test_the_action_goes_to_the_parts_of_the_same_names(walk, tmp_path):
    before, out = support.files(walk), tmp_path / "out"
    assert run("transferaction", walk, "Top/Hero", "Top/Twin", "--out", out) == (0, [
        "Took the action: Arm, Drawing", "No such part in Top/Hero: Foot", f"Saved {out}"], "")
    assert support.files(walk) == before
    with brindle.open(out) as app:
        given, taken = (app.scene.nodes[f"Top/{name}/Arm"].attributes["angle"] for name in ("Hero", "Twin"))
        assert character.curve(taken) == character.curve(given)
        element = app.scene.columns["Twin"].element
        assert [drawing.name for drawing in element.drawings] == ["1", "2", "3"]
        assert app.project.history.list() == []


def test_a_stretch_of_the_action_goes_to_another_frame_with_its_poses(walk):
    code, lines, _ = run("transferaction", walk, "Top/Hero", "Top/Twin", "--frames", 7, 12, "--to", 31, "--poses")
    assert (code, lines[-1]) == (0, f"Saved {walk}")
    with brindle.open(walk) as app:
        given, taken = (app.scene.nodes[f"Top/{name}/Arm"].attributes["angle"] for name in ("Hero", "Twin"))
        assert character.curve(taken, 31, 36) == character.curve(given, 7, 12)
        assert (taken.value(30), taken.value(37)) == (5.0, 5.0)
        assert character.cells(app.scene.columns["Twin"])[27:40] == "333" + "2" * 10


@pytest.mark.parametrize("arguments, message", [
    (("Top/Hero", "Top/Nobody"), 'there is no group "Top/Nobody" in the scene "Scene-1".'),
    (("Top/Hero/Arm", "Top/Twin"), 'there is no group "Top/Hero/Arm" in the scene "Scene-1".'),
    (("Top/Hero", "Top/Twin", "--frames", 5, 61), "the frames are not a stretch of the scene's 60."),
    (("Top/Hero", "Top/Twin", "--to", 100), "Failed to paste."),
])
def test_an_action_that_can_not_go_leaves_the_project_alone(walk, arguments, message):
    before = support.files(walk)
    code, lines, error = run("transferaction", walk, *arguments)
    assert (code, lines, error.splitlines()[-1]) == (1, [], f"transferaction: {message}")
    assert support.files(walk) == before


@pytest.mark.parametrize("name", ["riglibrary", "transferaction"])
def test_help_tells_the_arguments(name):
    code, lines, _ = run(name, "--help")
    assert code == 0 and lines[0].startswith(f"usage: {name}")
