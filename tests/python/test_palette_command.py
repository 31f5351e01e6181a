"""brindle palette: a palette in the terminal and as a picture, and GIMP's text form both ways."""

import os
import struct

import pytest

import palettes as shared
import support

GIMP = ("GIMP Palette\nName: Hero of GIMP\nColumns: 4\n# A comment.\n"
        "255 217 184\tSkin\n  0   0   1\tDark  blue \n12 34 56\n")


@pytest.fixture
def palette(app, tmp_path):
    """The path of a palette with all kinds of colours, and its ids."""
    (tmp_path / "wood.png").write_bytes(shared.png(8, 4))
    made = app.project.palettes.create("Colour", "Hero")
    made.clear()
    made.create_solid_colour("Skin", [255, 217, 184])
    made.create_solid_colour("Hair", [80, 40, 10, 0])
    made.create_linear_gradient_colour("Sky", [0, 0, 255], 0, [255, 255, 255], 100)
    made.create_radial_gradient_colour("Cheek", [255, 0, 0], 0, [255, 0, 0, 0], 50)
    made.create_texture("Wood", tmp_path / "wood.png")
    app.save()
    return made


def command(*arguments, colours=False):
    environment = {key: value for key, value in os.environ.items() if key not in ("NO_COLOR", "CLICOLOR_FORCE")}
    if colours:
        environment["CLICOLOR_FORCE"] = "1"
    done = support.run_command("palette", *arguments, env=environment)
    return done.returncode, done.stdout, done.stderr


def test_a_palette_is_shown_with_names_and_ids(palette):
    code, text, errors = command(palette.path)
    ids = [colour.id for colour in palette]
    assert (code, errors) == (0, "")
    assert text.splitlines() == [
        f"Hero: 4 colours, 1 texture ({palette.id})",
        f"{ids[0]}  Skin   solid #ffd9b8",
        f"{ids[1]}  Hair   solid #50280a00",
        f"{ids[2]}  Sky    linear gradient, #0000ff at 0%, #ffffff at 100%",
        f"{ids[3]}  Cheek  radial gradient, #ff0000 at 0%, #ff000000 at 50%",
        f"{ids[4]}  Wood   texture of 8 x 4 pixels"]
    assert command(palette.path.removesuffix(".plt"))[1] == text


def test_blocks_have_the_colours(palette):
    lines = command(palette.path, colours=True)[1].splitlines()
    assert lines[1].startswith("\x1b[48;2;255;217;184m " * 8 + "\x1b[0m  " + palette[0].id)
    assert "\x1b[48;2;80;40;10m" not in lines[2], "what is transparent shows the ground"
    cells = lines[3].split("\x1b[48;2;")[1:]
    blues = [[int(part) for part in cell.split("m")[0].split(";")] for cell in cells]
    assert len(blues) == 8 and all(blue == 255 for _, _, blue in blues)
    assert [red for red, _, _ in blues] == sorted({red for red, _, _ in blues}), "from left to right"


def test_a_palette_is_drawn_as_a_picture(palette, tmp_path):
    path = tmp_path / "sheet.png"
    assert command("--out", path, palette.path) == (0, f"Wrote {path}\n", "")
    content = path.read_bytes()
    assert content.startswith(b"\x89PNG\r\n")
    width, height = struct.unpack(">II", content[16:24])
    assert width > 5 * 144 and height > 96


def test_a_palette_is_exported_for_gimp(palette, tmp_path):
    path = tmp_path / "hero.gpl"
    assert command(palette.path, "--export", path) == (0, f"Wrote {path}\n", "")
    assert path.read_text() == ("GIMP Palette\nName: Hero\nColumns: 0\n#\n255 217 184\tSkin\n 80  40  10\tHair\n"
                                "  0   0 255\tSky (0%)\n255 255 255\tSky (100%)\n"
                                "255   0   0\tCheek (0%)\n255   0   0\tCheek (50%)\n")


def test_a_palette_is_imported_from_gimp(app, tmp_path):
    source, target = tmp_path / "hero.gpl", tmp_path / "new" / "Hero.plt"
    source.write_text(GIMP)
    target.parent.mkdir()
    assert command("--import", source, target) == (0, f"Made {target}: 3 colours\n", "")
    code, text, _ = command(target)
    assert code == 0 and text.startswith("Hero of GIMP: 3 colours (")
    assert [line[18:] for line in text.splitlines()[1:]] == [
        "Skin        solid #ffd9b8", "Dark  blue  solid #000001", "Default     solid #0c2238"]
    again = tmp_path / "again.gpl"
    assert command(target, "--export", again)[0] == 0
    assert again.read_text() == ("GIMP Palette\nName: Hero of GIMP\nColumns: 0\n#\n255 217 184\tSkin\n"
                                 "  0   0   1\tDark blue\n 12  34  56\tDefault\n")


@pytest.mark.parametrize("text, reason", [
    ("", 'its first line is not "GIMP Palette"'), ("1 2 3 x\n", 'its first line is not "GIMP Palette"'),
    ("GIMP Palette\n1 2\n", "line 2 is no colour of three numbers from 0 to 255 and a name"),
    ("GIMP Palette\n#\n1 2 256 x\n", "line 3 is no colour of three numbers from 0 to 255 and a name"),
    ("GIMP Palette\n\udcff\n", "it is no text in UTF-8")])
def test_what_is_no_gimp_palette_is_named(tmp_path, text, reason):
    source, target = tmp_path / "x.gpl", tmp_path / "x.plt"
    source.write_bytes(text.encode(errors="surrogateescape"))
    assert command("--import", source, target) == (1, "", f'brindle: "{source}" is no GIMP palette: {reason}.\n')
    assert not target.exists()


def test_an_import_overwrites_nothing(palette, tmp_path):
    source = tmp_path / "hero.gpl"
    source.write_text(GIMP)
    before = open(palette.path, "rb").read()
    assert command("--import", source, palette.path) == (1, "", f'brindle: "{palette.path}" exists already.\n')
    assert open(palette.path, "rb").read() == before


def test_what_cannot_be_read_or_written_is_named(palette, tmp_path):
    for name, content in (("none", None), ("damaged", b"brindle-palette 1\npalette x"), ("newer", b"brindle-palette 9\n")):
        path = tmp_path / f"{name}.plt"
        if content:
            path.write_bytes(content)
        code, text, errors = command(path)
        assert (code, text) == (1, "") and errors.startswith("brindle: ") and errors.count("\n") == 1
        assert str(path) in errors
    nowhere = tmp_path / "no folder"
    for option, name in (("--out", "x.png"), ("--export", "x.gpl")):
        code, text, errors = command(option, nowhere / name, palette.path)
        assert (code, text) == (1, "") and errors.startswith(f'brindle: "{nowhere / name}" can\'t be written: ')
    code, text, errors = command("--import", nowhere / "x.gpl", tmp_path / "new.plt")
    assert (code, text) == (1, "") and errors.startswith(f'brindle: "{nowhere / "x.gpl"}" can\'t be read: ')


@pytest.mark.parametrize("arguments, message", [
    ([], "Usage: brindle palette [--import FILE.gpl] [--out FILE.png] [--export FILE.gpl] FILE"),
    (["a", "b"], "Usage: brindle palette [--import FILE.gpl] [--out FILE.png] [--export FILE.gpl] FILE"),
    (["--out"], "--out needs the name of a picture."), (["--import"], "--import needs the name of a GIMP palette."),
    (["--export"], "--export needs the name of a GIMP palette."),
    (["--out", "x.jpg", "a"], 'The picture "x.jpg" has to be a ".png" file.')])
def test_arguments_that_do_not_fit_are_told(arguments, message):
    assert command(*arguments) == (2, "", f"brindle: {message}\n")


def test_an_option_that_is_none_is_told():
    assert command("--x") == (2, "", support.no_option("palette", "--x"))


def test_the_help_tells_of_the_options():
    code, text, errors = command("--help")
    assert (code, errors) == (0, "")
    assert text.startswith("Usage: brindle palette [--import FILE.gpl]") and "--export FILE" in text
    assert "brindle palette" in support.run_command("--help").stdout


def test_a_name_with_control_characters_is_shown_without_them(app):
    made = app.project.palettes.create("Colour", "Hero")
    made.name, made[0].name = "a\x1b[31mb", "c\nd"
    app.save()
    text = command(made.path)[1]
    assert "\x1b" not in text and text.count("\n") == 2
