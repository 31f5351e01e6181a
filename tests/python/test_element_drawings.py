"""Drawings of an element: made, renamed, versioned, copied, imported, removed; and their files, which follow a save."""


import brindle
import pytest

from failures import fails
from support import png


@pytest.fixture
def folder(tmp_path):
    return tmp_path / "p"


@pytest.fixture
def app(folder):
    with brindle.create(folder) as opened:
        yield opened


@pytest.fixture
def element(app):
    return app.elements.create("Arm", vector_type="")


@pytest.fixture
def drawings(element):
    return element.drawings


def files(folder):
    return {str(path.relative_to(folder)): path.read_bytes()
            for path in sorted((folder / "elements").rglob("*")) if path.is_file()}


def last_label(app):
    return app.project.history.list()[-1]


def test_drawings_are_made_by_name(app, drawings):
    assert str(drawings) == "ElementList(1)[0]" and list(drawings) == []
    one = drawings.create("1")
    assert str(one) == 'ElementDrawing(1, "1")' and one.name == "1" and last_label(app) == "Adding drawings."
    assert [d.name for d in drawings.create(["b", "a", "a"])] == ["a", "b"]
    assert [d.name for d in drawings.create(["c"])] == ["c"]
    assert [d.name for d in drawings] == ["1", "a", "b", "c"] == [d.name for d in drawings.list()]
    assert str(drawings) == "ElementList(1)[4]" and drawings[1].name == "a" and drawings("b") == drawings["b"]
    assert "c" in drawings and "C" not in drawings and drawings["c"] in drawings
    app.project.history.undo(1)
    assert [d.name for d in drawings] == ["1", "a", "b"]


def test_a_drawing_that_is_there_is_given_as_it_is(drawings):
    one = drawings.create("1")
    assert drawings.create("1") == one and drawings.create(["1", "2"])[0] == one and len(drawings) == 2


def test_a_new_drawing_is_unmarked_and_has_no_file(folder, element, drawings):
    one = drawings.create("1")
    assert (one.type, one.version, one.scale_factor, one.layer_id, one.layer_name) == ("Unknown", 1, 1.0, 0, "")
    assert (one.deleted, one.renamed, one.file_exists, one.used) == (False, False, False, False)
    assert one.path == str(folder / "elements/Arm/1.png") and one.element.name == "Arm"


@pytest.mark.parametrize("names, sentence", [
    ([], "No drawing names provided."),
    (7, "No drawing names provided."),
    (None, "No drawing names provided."),
    ("", "Failed to add the drawings."),
    ("a\0b", "Failed to add the drawings."),
    (["ok", 300 * "x"], "Failed to add the drawings."),
])
def test_what_cannot_be_made_leaves_nothing(app, drawings, names, sentence):
    before = app.project.history.size()
    with fails(sentence):
        drawings.create(names)
    assert len(drawings) == 0 and app.project.history.size() == before


@pytest.mark.parametrize("use, sentence", [
    (lambda drawings: drawings[1], "Index is out of range."),
    (lambda drawings: drawings[-1], "Index is out of range."),
    (lambda drawings: drawings["2"], "Index is out of range."),
    (lambda drawings: drawings("2"), "Index is out of range."),
    (lambda drawings: drawings.remove("2"), "Incorrect drawings specified."),
    (lambda drawings: drawings.remove([]), "Incorrect drawings specified."),
    (lambda drawings: drawings.remove(1), "Incorrect drawings specified."),
    (lambda drawings: drawings.__setitem__(0, drawings["1"]), "Unable to set a Element Drawing List"),
])
def test_what_is_not_there_is_told(drawings, use, sentence):
    drawings.create("1")
    with fails(sentence):
        use(drawings)
    assert len(drawings) == 1


def test_a_renamed_drawing_is_the_same_one(app, drawings):
    one = drawings.create("1")
    drawings.create("2")
    one.name = "first"
    assert last_label(app) == "Renaming Drawing from 1 to first"
    assert [d.name for d in drawings] == ["first", "2"] and drawings["first"] == one and "1" not in drawings
    app.project.history.undo(1)
    assert one.name == "1"
    before = app.project.history.size()
    for name in ("1", "2", "", "a\nb"):
        one.name = name
        assert one.name == "1" and app.project.history.size() == before, name


def test_a_mark_takes_effect_without_an_entry(app, drawings):
    one = drawings.create("1")
    before = app.project.history.size()
    for written, read in [("key", "KEY"), ("Breakdown", "BREAKDOWN"), ("INBETWEEN", "INBETWEEN"), ("nope", "Unknown")]:
        one.type = written
        assert one.type == read
    assert app.project.history.size() == before


@pytest.mark.parametrize("field, value, label", [
    ("version", 2, "Change drawing versions."),
    ("scale_factor", 0.5, "Change drawing scale-factor."),
])
def test_a_field_is_one_entry_and_its_present_value_none(app, drawings, field, value, label):
    one = drawings.create("1")
    before, size = getattr(one, field), app.project.history.size()
    setattr(one, field, before)
    assert app.project.history.size() == size
    setattr(one, field, value)
    assert getattr(one, field) == value and last_label(app) == label
    app.project.history.undo(1)
    assert getattr(one, field) == before


@pytest.mark.parametrize("field, value", [("version", 0), ("version", 10000), ("version", -1), ("scale_factor", 0.0),
                                          ("scale_factor", float("nan")), ("scale_factor", -2.0)])
def test_a_field_that_cannot_be_is_refused(app, drawings, field, value):
    one = drawings.create("1")
    before, size = getattr(one, field), app.project.history.size()
    with fails("Failed to set the drawing version."):
        setattr(one, field, value)
    assert getattr(one, field) == before and app.project.history.size() == size


def test_a_duplicate_gets_the_next_number(app, drawings):
    seven = drawings.create("7")
    seven.type = "key"
    copy = seven.duplicate()
    assert (copy.name, copy.type, copy.version) == ("8", "KEY", 1)
    assert last_label(app) == "Duplicating a drawing in an element."
    assert seven.duplicate("x", "no such layer").name == "x"
    with fails("New drawing name already exists."):
        seven.duplicate("8")
    with fails("Failed to set the drawing version."):
        seven.duplicate("a\0b")
    app.project.history.undo(2)
    assert [d.name for d in drawings] == ["7"]
    with fails("Object is no longer valid."):
        copy.name


def test_an_id_leads_to_another_drawing_of_the_element(app, drawings):
    one, two = drawings.create(["1", "2"])
    one.id = two.id
    assert one == two and one.name == "2"
    for wrong in ("", "x", "0", "-1", "99999999"):
        with fails(f'The element has no drawing of the id "{wrong}".'):
            one.id = wrong
    assert one.name == "2"


def test_drawings_are_removed_as_they_are_told(app, drawings):
    made = drawings.create(["1", "2", "3", "4", "5"])
    other = app.elements.create("Leg").drawings.create("1")
    drawings.remove(made[0])
    drawings.remove(["2", [made[2]], "no such", other])
    assert [d.name for d in drawings] == ["4", "5"] and other.name == "1"
    assert last_label(app) == "Removing drawings."
    with fails("Object is no longer valid."):
        made[1].name
    app.project.history.undo(2)
    assert [d.name for d in drawings] == ["1", "2", "3", "4", "5"] and made[1].name == "2"


def test_an_imported_picture_is_the_drawings_from_the_next_save_on(app, folder, tmp_path, drawings):
    scan = tmp_path / "scan.png"
    scan.write_bytes(png(1))
    one = drawings.create("1")
    one.import_file(scan)
    assert last_label(app) == "Import Drawing" and one.file_exists and files(folder) == {}
    scan.write_bytes(png(2))
    app.save()
    assert files(folder) == {"elements/Arm/1.png": png(1)}
    one.version = 2
    one.import_file(scan)
    one.name = "first"
    assert one.renamed
    app.save()
    assert files(folder) == {"elements/Arm/first.png": png(1), "elements/Arm/first@2.png": png(2)}
    app.project.history.undo(4)
    assert not one.file_exists
    app.save()
    assert files(folder) == {}
    app.project.history.redo(4)
    app.save()
    assert files(folder) == {"elements/Arm/first.png": png(1), "elements/Arm/first@2.png": png(2)}


@pytest.mark.parametrize("content, reason", [
    (b"", "is cut off"),
    (png()[:-1], "is cut off"),
    (png()[:20], "is cut off"),
    (b"\xff\xd8\xff\xe0 a JPEG", "is no PNG file"),
    (None, "does not exist"),
])
def test_a_file_that_is_no_whole_picture_is_not_imported(app, tmp_path, drawings, content, reason):
    one = drawings.create("1")
    file = tmp_path / "scan.png"
    if content is not None:
        file.write_bytes(content)
    before = app.project.history.size()
    with fails(f'Cannot import the drawing: "{file}" {reason}.'):
        one.import_file(file)
    assert not one.file_exists and app.project.history.size() == before


def test_what_is_no_file_is_not_imported(app, tmp_path, drawings):
    one = drawings.create("1")
    for path in (str(tmp_path), "", "a\0b"):
        with pytest.raises(brindle.Error, match="^Cannot import the drawing: .* is no file.$"):
            one.import_file(path)
    vector = app.elements.create("Line").drawings.create("1")
    with fails('Cannot import the drawing: "Line" is an element of vector drawings.'):
        vector.import_file(tmp_path / "1.png")


def test_the_form_of_an_element_with_files_stays(tmp_path, element, drawings):
    (tmp_path / "1.png").write_bytes(png())
    drawings.create("1").import_file(tmp_path / "1.png")
    with fails("Failed to set element pixmap format."):
        element.pixmap_format = "TIFF"
    with fails("Failed to set element vector-type."):
        element.vector_type = "PNT"
    element.field_chart = 24
    assert element.pixmap_format == "PNG" and element.field_chart == 24


def test_a_file_that_stands_there_is_taken_as_it_is(app, folder, drawings):
    (folder / "elements/Arm").mkdir(parents=True)
    (folder / "elements/Arm/1.png").write_bytes(png())
    one = drawings.create("1", True, True)
    assert one.file_exists
    with fails("Failed to add the drawings."):
        drawings.create("2", file_exists=True, second=True)
    two = drawings.create("2", file_exists=True)
    assert not two.file_exists
    with fails(f'Cannot save the project: "{two.path}" is missing.'):
        app.save()
    drawings.remove("2")
    app.save()
    assert files(folder) == {"elements/Arm/1.png": png()}
    three = drawings.create("3")
    (folder / "elements/Arm/3.png").write_bytes(png(3))
    assert not three.file_exists
    drawings.create("3", file_exists=True)
    assert three.file_exists
    app.save()
    assert set(files(folder)) == {"elements/Arm/1.png", "elements/Arm/3.png"}


def test_removed_files_come_back_with_an_undo_after_a_save(app, folder, tmp_path, drawings):
    (tmp_path / "1.png").write_bytes(png())
    drawings.create("1").import_file(tmp_path / "1.png")
    app.save()
    whole = files(folder)
    app.elements.remove("Arm", remove_files=True)
    app.save()
    assert files(folder) == {} and not (folder / "elements.json").exists()
    app.project.history.undo(1)
    app.save()
    assert files(folder) == whole
    app.project.history.redo(1)
    app.save()
    app.close()
    assert sorted(path.name for path in folder.iterdir()) == ["project.json", "scenes"]
