"""Cels: pictures that scripts read, convert, compare and write."""

import concurrent.futures
import gc
import os
import pathlib
import random
import struct
import subprocess
import zlib

import pytest

import brindle
from support import PYTHON, ROOT

TEXTURE = ROOT / "tests/data/texture.png"
NO_FORMAT = "Failed to write file - check file format."


def write_png(path, width, height, colour):
    """A PNG of 8 bits: `colour(x, y)` gives red, green, blue and alpha."""
    def chunk(name, data):
        return struct.pack(">I", len(data)) + name + data + struct.pack(">I", zlib.crc32(name + data))
    rows = b"".join(b"\0" + b"".join(bytes(colour(x, y)) for x in range(width)) for y in range(height))
    path.write_bytes(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 6, 0, 0, 0))
                     + chunk(b"IDAT", zlib.compress(rows)) + chunk(b"IEND", b""))
    return path


@pytest.fixture
def picture(tmp_path):
    """Makes cels of one size: grey but for the pixels that are given as {(x, y): colour}."""
    made = []

    def make(pixels={}, size=(4, 3), ground=(100, 100, 100, 200)):
        made.append(None)
        path = write_png(tmp_path / f"made{len(made)}.png", *size, lambda x, y: pixels.get((x, y), ground))
        return brindle.Cel.read(path)
    return make


def pixels(cel):
    view = memoryview(cel)
    return [[tuple(view[y, x, c] for c in range(4)) for x in range(view.shape[1])] for y in range(view.shape[0])]


def run(script, *arguments, **environment):
    return subprocess.run([PYTHON, "-c", script, *map(str, arguments)], capture_output=True, text=True,
                          env={**os.environ, **environment})


def test_a_script_without_pictures_maps_no_library_of_images():
    result = run("import brindle, sys\n"
                 "app = brindle.create(sys.argv[1])\n"
                 "app.scene.nodes.create('READ', 'Arm'); app.scene.colorspace = 'ACEScg'; app.save(); app.close()\n"
                 "names = ('libBrindleRender', 'libBrindleImageIO', 'OpenColorIO', 'OpenEXR', 'OpenImageIO', 'opencv')\n"
                 "print([line.split()[-1] for line in open('/proc/self/maps') if any(n in line for n in names)])\n"
                 "brindle.Cel.read(sys.argv[2])\n"
                 "maps = open('/proc/self/maps').read()\n"
                 "print('libBrindleRender' in maps, 'OpenImageIO' in maps)",
                 "/dev/shm/brindle-maps-%d" % os.getpid(), TEXTURE)
    subprocess.run(["rm", "-rf", "/dev/shm/brindle-maps-%d" % os.getpid()])
    assert result.stdout == "[]\nTrue False\n", result.stderr


def test_a_new_cel_is_empty():
    cel = brindle.Cel()
    assert (str(cel), cel.rect, cel.allocated_rect, cel.cel3D) == ("Cel(Unknown)", None, None, False)
    assert not cel.compare(cel) and not cel.compare_exr(cel)
    with pytest.raises(BufferError, match="^The cel has no pixels.$"):
        memoryview(cel)
    assert cel._repr_png_() is None


def test_a_rect_is_square_and_an_allocated_rect_is_not(picture):
    cel = picture(size=(100, 50))
    assert str(cel) == "Cel(Unknown)"
    assert (cel.rect.width, cel.rect.height, cel.rect.x, cel.rect.y) == (100, 100, 0, 0)
    assert (cel.allocated_rect.width, cel.allocated_rect.height) == (100, 50)
    assert str(cel) == "Cel(100, 50)"
    assert type(cel.rect) is brindle.AllocatedRect2DI


@pytest.mark.parametrize("place, colour, equal, nearly_equal", [
    ((0, 1), (0, 0, 0, 0), True, True),
    ((2, 0), (0, 0, 0, 0), True, True),
    ((3, 2), (0, 0, 0, 200), False, False),
    ((1, 1), (101, 100, 100, 200), False, True),
    ((1, 1), (100, 98, 100, 200), False, False),
    ((1, 1), (100, 100, 100, 201), True, True),
    ((1, 1), (100, 100, 100, 150), True, False),
])
def test_compares_look_behind_the_first_column_and_row(picture, place, colour, equal, nearly_equal):
    one, other = picture(), picture({place: colour})
    assert (one.compare(other), one.compare_exr(other)) == (equal, nearly_equal)
    assert (other.compare(one), other.compare_exr(one)) == (equal, nearly_equal)


def test_compares_take_cels(picture):
    cel = picture()
    assert cel.compare(cel) and cel.compare_exr(cel)
    assert not cel.compare(None) and not cel.compare_exr(None)
    assert not cel.compare(picture(size=(3, 4)))
    for other in (brindle.Point2d(), "cel", 5):
        with pytest.raises(TypeError):
            cel.compare(other)
    assert picture(size=(1, 9)).compare(picture(size=(1, 9), ground=(1, 2, 3, 4)))


def test_every_byte_comes_out_of_a_png_as_it_went_in(tmp_path):
    path = write_png(tmp_path / "all.png", 256, 256, lambda x, y: (x, 255 - x, x * 7 % 256, y) if y else (0, 0, 0, 0))
    cel = brindle.Cel.read(path)
    before = bytes(memoryview(cel))
    cel.write(tmp_path / "copy.png")
    assert bytes(memoryview(brindle.Cel.read(tmp_path / "copy.png"))) == before
    cel.write(tmp_path / "deep.png", "pixmap_rgba16")
    assert bytes(memoryview(brindle.Cel.read(tmp_path / "deep.png"))) == before
    assert (tmp_path / "deep.png").read_bytes()[24] == 16, "16 bits a channel"


def test_a_format_is_a_name_in_any_case_and_an_unknown_one_changes_nothing(picture, tmp_path):
    cel = picture()
    depths = {"": 8, "no such format": 8, "pixmap_rgba16": 16, "PIXMAP_RGBA16": 16, "PIXMAP_RGBA8": 8, "BR3D": 8}
    for name, depth in depths.items():
        cel.write(tmp_path / "p.png", name, "")
        assert (tmp_path / "p.png").read_bytes()[24] == depth, name
    cel.write(tmp_path / "matte.png", "pixmap_matte8")
    assert (tmp_path / "matte.png").read_bytes()[25] == 0, "grey"
    cel.write(tmp_path / "small.png", "PIXMAP_RGBA8_THUMBNAIL", "compression=9")
    assert brindle.Cel.read(tmp_path / "small.png").compare(cel)


def test_write_without_a_path_is_for_3d_cels(picture, tmp_path):
    cel = picture()
    with pytest.raises(brindle.Error, match="^Unsupported 2D Cel write - supply a path and format.$"):
        cel.write()
    assert cel.write(tmp_path / "p.png") is None
    (tmp_path / "model").mkdir()
    (tmp_path / "model/arm.osb").write_bytes(b"3D")
    cel.set_image_file(tmp_path / "model/arm.osb")
    assert cel.cel3D and cel.write() == str(tmp_path / "model/arm.osb")
    cel.write(tmp_path / "second.osb")
    assert (tmp_path / "second.osb").samefile(tmp_path / "model/arm.osb")
    assert pathlib.Path(cel.working_copy()).suffix == ".osb"


def test_a_picture_that_cannot_be_written_leaves_what_was_there(picture, tmp_path):
    cel = picture()
    (tmp_path / "kept.png").write_bytes(b"kept")
    for path, option in ((tmp_path / "kept.png", "quality=7"), (tmp_path / "kept.png", "nonsense"),
                         (tmp_path / "p.xyz", ""), (tmp_path / "none", ""), (tmp_path / "no/such/p.png", ""),
                         (tmp_path, ""), (tmp_path / "p.psd", ""), ("", "")):
        with pytest.raises(brindle.Error) as failure:
            cel.write(path, "", option)
        assert str(failure.value) == NO_FORMAT
    with pytest.raises(brindle.Error, match=NO_FORMAT):
        brindle.Cel().write(tmp_path / "empty.png")
    assert (tmp_path / "kept.png").read_bytes() == b"kept"
    assert {path.name for path in tmp_path.iterdir()} == {"kept.png", "made1.png"}


def test_a_disk_that_fills_leaves_what_was_there(tmp_path):
    script = ("import brindle, resource, signal, sys\n"
              "cel = brindle.Cel.read(sys.argv[1])\n"
              "signal.signal(signal.SIGXFSZ, signal.SIG_IGN)\n"
              "resource.setrlimit(resource.RLIMIT_FSIZE, (2000, 2000))\n"
              "for name in sys.argv[2:]:\n"
              "    try: cel.write(name)\n"
              "    except brindle.Error as error: print(error)\n")
    chance = random.Random(7)
    noise = write_png(tmp_path / "noise.png", 64, 64, lambda x, y: (*chance.randbytes(3), 255))
    names = [tmp_path / name for name in ("a.png", "a.jpg", "a.exr", "a.tga", "a.bmp")]
    for name in names:
        name.write_bytes(b"old")
    result = run(script, noise, *names)
    assert result.stdout == f"{NO_FORMAT}\n" * len(names), result.stderr
    assert [name.read_bytes() for name in names] == [b"old"] * len(names)
    assert len(list(tmp_path.iterdir())) == len(names) + 1
    assert result.stderr.count("can't be written: ") == len(names)


def test_working_copies_are_files_that_go_with_the_process(picture):
    cel = picture()
    copy = pathlib.Path(cel.working_copy())
    assert copy.suffix == ".png" and brindle.Cel.read(copy).compare(cel)
    assert cel.working_copy() != str(copy)
    other = cel.working_copy_as("exr", "PIXMAP_RGBA16", "depth=float")
    assert other.endswith(".exr") and brindle.Cel.read(other).compare_exr(cel)
    with pytest.raises(brindle.Error, match=NO_FORMAT):
        cel.working_copy_as("xyz", "", "")
    result = run("import brindle, sys; print(brindle.Cel.read(sys.argv[1]).working_copy())", TEXTURE)
    assert result.stdout and not pathlib.Path(result.stdout.strip()).parent.exists()


def test_a_missing_file_makes_an_empty_cel_and_a_folder_none(picture, tmp_path):
    cel = picture()
    cel.set_image_file(tmp_path / "made1.png")
    assert cel.compare(picture()), "what lies in the folder isn't read"
    cel.set_image_file(tmp_path / "gone.png")
    assert (str(cel), cel.rect) == ("Cel(Unknown)", None)


def test_a_cel_is_a_buffer_of_its_pixels(picture):
    numpy = pytest.importorskip("numpy")
    cel = picture({(1, 2): (1, 2, 3, 4)})
    array = numpy.asarray(cel)
    assert (array.shape, array.dtype, array.flags.writeable) == ((3, 4, 4), numpy.uint8, False)
    assert array[2, 1].tolist() == [1, 2, 3, 4]
    assert numpy.shares_memory(array, numpy.asarray(cel)), "no copy"
    cel.set_empty()
    assert array[2, 1].tolist() == [1, 2, 3, 4], "the pixels live as long as the array"
    del cel
    assert array[0, 0].tolist() == [100, 100, 100, 200]


def test_a_buffer_has_the_forms_that_are_asked_for(picture):
    view = memoryview(picture())
    assert (view.shape, view.strides, view.format, view.readonly) == ((3, 4, 4), (16, 4, 1), "B", True)
    assert len(bytes(picture())) == 48
    assert zlib.crc32(picture()) == zlib.crc32(bytes(picture()))
    with pytest.raises(TypeError):
        open("/dev/zero", "rb").readinto(picture())


def test_a_notebook_gets_a_png(picture, tmp_path):
    cel = picture()
    (tmp_path / "shown.png").write_bytes(cel._repr_png_())
    assert brindle.Cel.read(tmp_path / "shown.png").compare_exr(cel)


def test_what_cannot_be_read_is_one_sentence(tmp_path):
    (tmp_path / "text.png").write_text("no picture")
    (tmp_path / "p.xyz").write_text("")
    for path, sentence in (
            (tmp_path / "gone.png", f"There is no file {tmp_path / 'gone.png'}."),
            (tmp_path, f"{tmp_path} is no file."),
            (tmp_path / "p.xyz", f"{tmp_path / 'p.xyz'} is in no format of pictures that is known."),
            (tmp_path / "text.png", f"The picture {tmp_path / 'text.png'} can't be read: ")):
        with pytest.raises(brindle.Error) as failure:
            brindle.Cel.read(path)
        assert str(failure.value).startswith(sentence) and "\n" not in str(failure.value)
    for path in (5, None, b"p.png"):
        with pytest.raises(TypeError):
            brindle.Cel.read(path)


@pytest.mark.parametrize("name", ["p.png", "p.jpg", "p.jpeg", "p.exr", "p.tif", "p.tga", "p.bmp", "p.hdr", "p.PNG"])
def test_formats_by_their_endings(picture, tmp_path, name):
    cel = picture(ground=(128, 64, 32, 255), size=(9, 7))
    cel.write(tmp_path / name)
    back = brindle.Cel.read(tmp_path / name)
    assert (back.allocated_rect.width, back.allocated_rect.height) == (9, 7)
    if name not in ("p.jpg", "p.jpeg", "p.hdr"):
        assert back.compare_exr(cel)


def test_colours_are_converted_and_dropped_names_are_said(picture):
    cel = picture(ground=(188, 188, 188, 255))
    cel.convert_color_space("sRGB", "Linear")
    assert pixels(cel)[1][1] == (128, 128, 128, 255)
    cel.convert_color_space("Linear", "sRGB")
    assert pixels(cel)[1][1] == (188, 188, 188, 255)
    with pytest.raises(brindle.Error, match=r"^From Colorspace \(srgb\) cannot be found.$"):
        cel.convert_color_space("srgb", "none")
    with pytest.raises(brindle.Error, match=r"^To Colorspace \(none\) cannot be found.$"):
        cel.convert_color_space("sRGB", "none")
    assert pixels(cel)[1][1] == (188, 188, 188, 255)


def test_a_converted_picture_carries_its_profile(picture, tmp_path):
    cel = picture()
    cel.write(tmp_path / "plain.png")
    assert b"iCCP" not in (tmp_path / "plain.png").read_bytes()
    cel.convert_color_space("sRGB", "Display P3")
    cel.write(tmp_path / "p3.png")
    assert b"iCCP" in (tmp_path / "p3.png").read_bytes()
    cel.convert_color_space("Display P3", "ACEScg")
    cel.write(tmp_path / "aces.png")
    assert b"iCCP" not in (tmp_path / "aces.png").read_bytes(), "no profile describes it"


CONFIGURATION = """ocio_profile_version: 2
roles: {default: plain}
file_rules: [!<Rule> {name: Default, colorspace: default}]
displays: {one: [!<View> {name: view, colorspace: plain}]}
colorspaces:
  - !<ColorSpace> {name: plain}
  - !<ColorSpace> {name: half, to_scene_reference: !<MatrixTransform> {matrix: [2,0,0,0, 0,2,0,0, 0,0,2,0, 0,0,0,1]}}
"""


def test_the_project_has_its_own_configuration_of_colours(app, folder, picture, monkeypatch, tmp_path):
    assert "sRGB" in app.scene.colorspaces
    (folder / "colour").mkdir()
    (folder / "colour/config.ocio").write_text(CONFIGURATION)
    assert app.scene.colorspaces == ["plain", "half"]
    assert app.scene.colorspace == "sRGB", "what the project works in stays what it is"
    app.scene.colorspace = "half"
    cel = picture(ground=(200, 100, 50, 255))
    cel.convert_color_space("plain", "half")
    assert pixels(cel)[1][1] == (100, 50, 25, 255)
    # A machine's configuration goes first.
    other = tmp_path / "other.ocio"
    other.write_text(CONFIGURATION.replace("half", "third"))
    monkeypatch.setenv("OCIO", str(other))
    assert app.scene.colorspaces == ["plain", "third"] and app.scene.colorspace == "half"
    with pytest.raises(brindle.Error, match="Failed to set the colour space."):
        app.scene.colorspace = "half too"
    monkeypatch.setenv("OCIO", str(tmp_path / "gone.ocio"))
    assert app.scene.colorspaces == []
    monkeypatch.delenv("OCIO")
    app.save()
    app.close()
    (folder / "colour/config.ocio").unlink()
    with brindle.open(folder) as again:
        assert again.scene.colorspace == "half" and "half" not in again.scene.colorspaces
        again.scene.colorspace = "sRGB"
        again.project.history.undo()
        assert again.scene.colorspace == "half"


def test_a_project_takes_its_configuration_of_colours_along(app, folder, tmp_path):
    (folder / "colour" / "luts").mkdir(parents=True)
    table = bytes(range(256)) * 500
    (folder / "colour/luts/film.cube").write_bytes(table)
    app.save_as(tmp_path / "without")
    assert not (tmp_path / "without/colour").exists(), "without a configuration, the folder is somebody else's"
    app.close()

    (folder / "colour/config.ocio").write_text(CONFIGURATION)
    with brindle.open(folder) as app:
        app.save()
        (tmp_path / "taken" / "colour").mkdir(parents=True)
        with pytest.raises(brindle.Error, match='colour" is in the way: it is not the project\'s'):
            app.save_as(tmp_path / "taken")
        assert [path.name for path in (tmp_path / "taken").iterdir()] == ["colour"]
        assert not any((tmp_path / "taken/colour").iterdir())

        app.save_as(tmp_path / "copy")
        assert app.scene.colorspaces == ["plain", "half"]
        assert (tmp_path / "copy/colour/config.ocio").read_text() == CONFIGURATION
        assert (tmp_path / "copy/colour/luts/film.cube").read_bytes() == table
        (tmp_path / "copy/colour/config.ocio").write_text(CONFIGURATION.replace("half", "third"))
        app.save()
        assert app.scene.colorspaces == ["plain", "third"], "what is there is only read"


def test_threads_read_and_write_side_by_side(tmp_path, picture):
    cel = picture(size=(200, 200))

    def work(number):
        path = tmp_path / f"{number}.png"
        cel.write(path)
        return brindle.Cel.read(path).compare_exr(cel)
    with concurrent.futures.ThreadPoolExecutor(4) as pool:
        assert all(pool.map(work, range(24)))


def test_cels_leave_nothing_behind(picture):
    gc.collect()
    before = brindle._live_objects()
    cels = [picture() for _ in range(5)]
    views = [memoryview(cel) for cel in cels]
    for cel in cels:
        cel.convert_color_space("sRGB", "ACEScg")
        assert cel.allocated_rect.width == 4
    del cels, cel, views
    gc.collect()
    assert brindle._live_objects() == before
