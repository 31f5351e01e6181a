"""Elements of a project: made, changed, duplicated, removed, and what a script hears of what can't be."""


import brindle
import pytest

from failures import fails

FORMATS = "Failed to find a valid file format. \n Valid formats: PNG, JPEG, TIFF, TGA, BMP, EXR "
SCAN_TYPES = "Only accepted scan-types are : COLOR, GRAY_SCALE, BW"


@pytest.fixture
def app(tmp_path):
    with brindle.create(tmp_path / "p") as opened:
        yield opened


@pytest.fixture
def elements(app):
    return app.elements


def undo(app):
    app.project.history.undo(1)


def redo(app):
    app.project.history.redo(1)


def test_a_new_project_has_no_elements(elements):
    assert str(elements) == "ElementList()[0]" and len(elements) == 0 and list(elements) == []
    assert elements[1] is None and elements["a"] is None and elements("a") is None


def test_one_name_gives_an_element_and_a_list_a_list(app, elements):
    element = elements.create("a")
    assert str(element) == "Element(1)" and (element.id, element.name) == (1, "a")
    assert [str(e) for e in elements.create(["b"])] == ["Element(2)"]
    created = elements.create(["e", "d", "d"])
    assert [(e.id, e.name) for e in created] == [(3, "d"), (4, "e")], "sorted, each once"
    assert elements.get(4).name == "e" and elements["e"].id == 4 and elements("e").id == 4
    assert [e.id for e in elements] == [1, 2, 3, 4] == [e.id for e in elements.list()]


def test_the_labels_of_one_and_of_several_are_exchanged(app, elements):
    elements.create("a")
    elements.create(["c", "b"])
    names = app.project.history.list()
    assert names[-2:] == ["Creating elements.", "Creating element."]


def test_the_fields_are_those_that_were_given(elements):
    element = elements.create("a", "gray_scale", 16, "TIFF", "BVG")
    assert (element.scan_type, element.field_chart, element.pixmap_format, element.vector_type) == (
        "GRAY_SCALE", 16.0, "TIFF", "BVG")
    assert elements.create("b", vector_type="bvg").vector_type == "NONE", "letters count"
    assert elements.create("c", pixmap_format="PSD").pixmap_format == "PSD", "kept, though it is not offered"
    assert "PSD" in brindle.Element.format_list()


@pytest.mark.parametrize("arguments, sentence", [
    (("a", "XX"), SCAN_TYPES),
    (("a", "COLOR", 12, "nope"), FORMATS),
    (("a", "XX", 12, "nope", "BVG"), SCAN_TYPES + "\n" + FORMATS),
    (("there",), "Element with name there already exists."),
    ((["new", "there"], "XX"), SCAN_TYPES + "\nElement with name there already exists."),
    (([],), "No element names provided."),
    ((7,), "No element names provided."),
    ((None, "XX"), "No element names provided."),
    (("",), "Failed to create new element: "),
    (("a\nb",), "Failed to create new element: a\nb"),
    ((300 * "a",), "Failed to create new element: " + 300 * "a"),
    (("a", "COLOR", 0), "Failed to create new element: a"),
    (("a", "COLOR", float("nan")), "Failed to create new element: a"),
])
def test_what_cannot_be_made_leaves_nothing(app, elements, arguments, sentence):
    elements.create("there")
    before = app.project.history.size()
    with fails(sentence):
        elements.create(*arguments)
    assert [e.name for e in elements] == ["there"] and app.project.history.size() == before


def test_names_of_all_scripts_have_folders(elements, app):
    names = ["a/b", "..", "腕", "Рука", "ARM", "arm", " x ", "a.b"]
    for name in names:
        assert elements.create(name).name == name
    folders = [e.physical_name for e in elements]
    assert folders == ["a_b", "_.", "腕", "Рука", "ARM", "arm-2", " x ", "a.b"]
    assert [e.folder for e in elements] == ["elements/" + folder for folder in folders]
    assert elements["腕"].folder_complete.endswith("/p/elements/腕")


SETTERS = [
    ("name", "b", "Renaming Element"),
    ("scan_type", "BW", "Changing element scan-type."),
    ("field_chart", 16.0, "Changing element field-chart."),
    ("pixmap_format", "TIFF", "Changing element pixmap format."),
    ("vector_type", "BVG", "Changing element vector-type."),
    ("opacity", 50.0, "Change drawing opacity."),
]


@pytest.mark.parametrize("field, value, label", SETTERS)
def test_a_field_is_one_entry_of_the_undo_list(app, elements, field, value, label):
    element = elements.create("a")
    before = getattr(element, field)
    setattr(element, field, value)
    assert getattr(element, field) == value
    assert app.project.history.list()[-1] == label
    undo(app)
    assert getattr(element, field) == before
    redo(app)
    assert getattr(element, field) == value


@pytest.mark.parametrize("field, value, sentence", [
    ("name", "", "Failed to rename the element."),
    ("name", "there", "Failed to rename the element."),
    ("scan_type", "nope", SCAN_TYPES),
    ("field_chart", -1, "Failed to set element field-chart."),
    ("field_chart", float("inf"), "Failed to set element field-chart."),
    ("pixmap_format", "nope", FORMATS),
    ("opacity", 101, "Failed to set the drawing opacity."),
    ("opacity", float("nan"), "Failed to set the drawing opacity."),
])
def test_a_field_that_cannot_be_is_refused(app, elements, field, value, sentence):
    elements.create("there")
    element = elements.create("a")
    before, size = getattr(element, field), app.project.history.size()
    with fails(sentence):
        setattr(element, field, value)
    assert getattr(element, field) == before and app.project.history.size() == size


def test_small_letters_of_a_vector_type_stand_for_none(elements):
    element = elements.create("a")
    element.vector_type = "pnt"
    assert element.vector_type == "NONE"
    element.scan_type = "bw"
    assert element.scan_type == "BW"


def test_the_present_opacity_is_no_change(app, elements):
    element = elements.create("a")
    before = app.project.history.size()
    element.opacity = 100.0
    assert app.project.history.size() == before


def test_a_deleted_element_is_counted_and_not_listed(app, elements):
    element = elements.create("a")
    elements.remove(element)
    assert app.project.history.list()[-1] == ""
    assert (len(elements), list(elements), element.deleted, element.name) == (1, [], True, "a")
    assert element in elements and "a" in elements and 1 in elements
    assert elements["a"] is None and elements[1].deleted
    assert elements.create("a").id == 2, "its name is free"
    assert len(elements) == 2 and elements["a"].id == 2
    with fails("Element with name a already exists."):
        elements["a"].duplicate("a")
    undo(app)
    with fails("Element with name a already exists."):
        elements[1].duplicate("a")
    undo(app)
    assert not element.deleted and [e.name for e in elements] == ["a"]


def test_an_element_that_left_makes_its_objects_invalid_and_still_prints(app, elements):
    element = elements.create("a")
    drawing = element.drawings.create("1")
    drawings = element.drawings
    elements.remove("a", remove_files=True)
    assert len(elements) == 0 and element not in elements and str(element) == "Element(1)"
    for use in (lambda: element.name, lambda: element.deleted, lambda: len(drawings), lambda: drawing.name,
                lambda: drawings["1"], lambda: drawings.create("2"), lambda: element.duplicate("b"), element.lock):
        with fails("Object is no longer valid."):
            use()
    undo(app)
    assert (element.name, drawing.name, len(drawings)) == ("a", "1", 1)


def test_what_to_remove_is_told_in_many_ways(elements):
    made = elements.create([str(n) for n in range(6)])
    elements.remove([made[0], 2, ["2", [made[3]]], ["4", "5"]], True)
    assert len(elements) == 0


@pytest.mark.parametrize("selector, sentence", [
    (99, "Failed to find element : 99"),
    (2 ** 40, "Failed to find element : 1099511627776"),
    (-1, "Failed to find element : -1"),
    ("nope", "Failed to find element : nope"),
    ([99, "a", "nope"], "Failed to find element : 99\nFailed to find element : nope"),
    ([], "No elements found."),
    (None, "No elements found."),
    (1.5, "No elements found."),
])
def test_nothing_goes_when_a_part_cannot_be_found(elements, selector, sentence):
    elements.create("a")
    with fails(sentence):
        elements.remove(selector, True)
    assert [e.name for e in elements] == ["a"]


def test_other_objects_are_no_elements(app, elements):
    with fails("No elements found."):
        elements.remove(app.scene)
    assert app.scene not in elements and 1.5 not in elements and None not in elements


def test_an_index_is_a_number_of_an_element(elements):
    elements.create(["a", "b"])
    assert elements[0] is None and elements[-1] is None and elements[2].name == "b"
    with fails("Unable to set the Element List"):
        elements[0] = elements["a"]
    with pytest.raises(brindle.ArgumentError):
        elements[0:1]


def test_a_loop_goes_over_what_was_there(elements):
    elements.create(["a", "b"])
    seen = []
    for element in elements:
        seen.append(element.name)
        elements.create(element.name + "x")
    assert seen == ["a", "b"] and len(elements) == 4


def test_a_duplicate_has_a_copy_of_each_drawing(app, elements):
    element = elements.create("a", "BW", 16, "TIFF", "")
    element.drawings.create(["1", "2"])
    element.drawings["2"].scale_factor = 2
    before = app.project.history.size()
    copy = element.duplicate("b")
    assert app.project.history.size() == before + 1
    assert app.project.history.list()[-1] == "Duplicating Element"
    assert (copy.name, copy.scan_type, copy.field_chart, copy.pixmap_format) == ("b", "BW", 16.0, "TIFF")
    assert [(d.name, d.scale_factor) for d in copy.drawings] == [("1", 1.0), ("2", 2.0)]
    undo(app)
    assert [e.name for e in elements] == ["a"]
    redo(app)
    assert len(copy.drawings) == 2
    with fails("No element names provided."):
        element.duplicate("")
    with fails("Element with name b already exists."):
        element.duplicate("b")
    with fails("Failed to create new element: \t"):
        element.duplicate("\t")


def test_elements_are_there_again_after_opening(app, elements, tmp_path):
    one = elements.create("Arm", "BW", 16.5, "TIFF", "")
    one.opacity = 30
    elements.create("gone")
    elements.remove("gone")
    one.drawings.create(["1", "A", "a"])
    one.drawings["a"].version = 3
    one.drawings["A"].type = "inbetween"
    one.drawings["1"].scale_factor = 0.25
    app.save()
    content = (tmp_path / "p/elements.json").read_bytes()
    app.close()
    with brindle.open(tmp_path / "p") as again:
        arm = again.elements["Arm"]
        assert (arm.id, arm.scan_type, arm.field_chart, arm.pixmap_format, arm.vector_type, arm.opacity) == (
            1, "BW", 16.5, "TIFF", "NONE", 30.0)
        assert [(d.name, d.version, d.type, d.scale_factor) for d in arm.drawings] == [
            ("1", 1, "Unknown", 0.25), ("A", 1, "INBETWEEN", 1.0), ("a", 3, "Unknown", 1.0)]
        assert again.elements[2].deleted and len(again.elements) == 2
        again.save()
        assert (tmp_path / "p/elements.json").read_bytes() == content
        assert again.elements.create("new").id == 3


def test_an_object_of_a_closed_project_shows_nothing_of_the_next_one(tmp_path):
    first = brindle.create(tmp_path / "1")
    element, elements = first.elements.create("a"), first.elements
    drawing, drawings = element.drawings.create("1"), element.drawings
    first.close()
    with brindle.create(tmp_path / "2") as second:
        second.elements.create("b").drawings.create("1")
        for use in (lambda: element.name, lambda: len(elements), lambda: drawing.name, lambda: drawings["1"]):
            with fails("Object is no longer valid."):
                use()


def test_a_lock_is_told_and_given_back(app, elements):
    element = elements.create("a")
    assert not element.locked
    element.lock()
    element.lock()
    assert element.locked
    element.release()
    element.release()
    assert not element.locked
