"""Drawing and timing columns, and the attributes of read nodes that they drive, as a script sees them."""

import json

import brindle
import pytest

import support
from exposuresheet import project_with_sheet

UNUSABLE = "Unexpected argument -- unable to identify a drawing or a drawing name."


@pytest.fixture
def sheet(folder):
    """The open project of the tests."""
    with brindle.open(project_with_sheet(folder)) as app:
        yield app


@pytest.fixture
def nodes(sheet):
    return sheet.scene.nodes


@pytest.fixture
def column(nodes):
    return nodes["Top/Arm"].attributes["drawing"].column


@pytest.fixture
def bare(nodes):
    return nodes["Top/Bare"].attributes["drawing.element"].column


@pytest.fixture
def timing(nodes):
    return nodes["Top/Mouth"].attributes["drawing.timing"].column


@pytest.fixture
def element(sheet):
    return sheet.elements["Arm"]


def shown(column, count=12):
    """The names in the first cells, a point for an empty one."""
    return "".join(column.get_entry(frame) or "." for frame in range(1, count + 1))


@pytest.fixture
def change(sheet, folder):
    """Runs a change and checks its label, its undo and its redo, to the byte."""

    def run(label, call, *arguments):
        history = sheet.project.history
        entries, before = history.size_executed, support.saved(sheet, folder)
        result = call(*arguments)
        assert history.size_executed == entries + 1 and history.list()[-1] == label
        after = support.saved(sheet, folder)
        for _ in range(2):
            history.undo(1)
            assert support.saved(sheet, folder) == before
            history.redo(1)
            assert support.saved(sheet, folder) == after
        return result

    return run


@pytest.fixture
def refuse(sheet, folder):
    """Runs a change that fails with a sentence, and checks that nothing has changed."""

    def run(message, call, *arguments, error=brindle.Error):
        before = support.saved(sheet, folder), sheet.project.history.list()
        assert support.message_of(call, *arguments, error=error) == message
        assert (support.saved(sheet, folder), sheet.project.history.list()) == before

    return run


LABEL = "Setting drawing(s) in drawing column."


def test_what_the_columns_are(column, bare, timing, element):
    assert [str(each) for each in (column, bare, timing)] == [
        'ElementColumn("Arm")[0]', 'ElementColumn("Bare")[0]', "DrawingTimingColumn(Mouth)"]
    assert [each.type for each in (column, bare, timing)] == ["DRAWING", "DRAWING", "TIMING"]
    assert column.element.id == element.id and bare.element is None and bare.drawings is None
    assert [node.name for node in column.linked_nodes] == ["Arm"] and element.linked
    assert len(column) == 0 and column[1] is None and list(column) == [] and column.drawing_names == []


def test_an_exposure_holds_up_to_the_next_one(column, element, change):
    change(LABEL, column.__setitem__, 2, "a")
    assert [drawing.name for drawing in element.drawings] == ["a"], "the drawing is made in the element"
    change(LABEL, column.set, 5, ["b", "b", "c"])
    change(LABEL, column.set, 9, "")
    assert shown(column) == ".aaabbcc...."
    assert len(column) == 8 and [d and d.name for d in column] == [None, *"aaabbcc"]
    assert column.drawing_names == ["a", "b", "c"]
    drawing = column[5]
    assert isinstance(drawing, brindle.ElementDrawing) and drawing.name == "b" and drawing == column.drawing(5.9)
    assert column.drawing(9) is None and drawing.used
    drawing.name = "x"
    assert column.drawing_names == ["a", "x", "c"]


def test_the_forms_of_a_drawing(column, bare, element, change):
    a = element.drawings.create("a")
    change(LABEL, column.set, 1, [a, "b", 3, None, ["c", ("d",)]])
    assert shown(column, 7) == "ab3.cdd"
    change(LABEL, bare.set, 1, [a, "b"])
    assert bare[1] == "a" and bare.drawing_names == ["a", "b"], "a column without an element has names alone"


def test_what_is_no_drawing_is_refused(sheet, column, element, nodes, refuse):
    other = sheet.elements.create("Leg").drawings.create("z")
    column[1] = "a"
    for value in ({}, 1.5, True, [], ["b", nodes], nodes["Top/Arm"], element, other, ["b", other],
                  "x\ny", "x" * 300, [["b"], {"c": 1}]):
        refuse(UNUSABLE, column.set, 1, value)
    refuse("Failed to set the value in the XSheet.", column.set, 0, "a")


def test_slices_are_read_and_written_in_one_go(column, change, refuse):
    names = [str(1 + frame // 3) for frame in range(60)]
    change(LABEL, column.__setitem__, slice(1, 61), names)
    assert [drawing.name for drawing in column[1:61]] == names
    assert len(column[1:101]) == 60 and [d.name for d in column[-2:]] == ["20", "20"]
    change("Set Xsheet Entries", column.__setitem__, slice(2, 9, 2), ["a", None, "b", "c"])
    assert [column.get_entry(frame) for frame in range(1, 10)] == ["1", "a", "a", "", "", "b", "3", "c", "c"]
    message = "attempt to assign sequence of size 2 to slice of size 3"
    refuse(message, column.__setitem__, slice(1, 4), ["a", "b"], error=ValueError)
    refuse(UNUSABLE, column.__setitem__, slice(1, 4), ["a", {}, "b"])
    for bad in ("abc", 7, None):
        with pytest.raises(TypeError):
            column[1:4] = bad


def test_writing_what_is_there_changes_nothing(sheet, folder, column):
    column[1:9] = ["a", "a", "b", None, None, "b", "b", "c"]
    column.key_exposure_add(2)
    before = support.saved_content(sheet, folder)
    column[1:9] = column[1:9]
    assert support.saved_content(sheet, folder) == before


@pytest.mark.parametrize("frames, keys", [
    ({"from": 2, "to": 4}, [2, 3, 4]), ({"begin": 2, "FINISH": 4}, [2, 3, 4]), ({"START": 3, "end": "3"}, [3]),
    ([1, {"start": 5, "end": 6}], [5, 6]), ([[2], [[3, 7]]], [2, 3, 7]), (4, [4]), ("5", [5]), (4.0, [4]),
    ({"from": 6, "start": 2, "to": 6}, [6]), ({"from": "x", "start": 2, "to": 2}, [2])])
def test_key_exposures_are_added_over_ranges(column, change, frames, keys):
    column[1] = "a"
    change("Add Key Exposures", column.key_exposure_add, frames)
    found, frame = [], 1
    while frame := column.key_exposure_next(frame):
        found.append(frame)
    assert found == keys and shown(column, 8) == "a" * 8


@pytest.mark.parametrize("frames", [{"from": 2}, {"to": 3}, {}, [], None, "x", [{"from": 2}, None], 2**40])
def test_what_names_no_frames_adds_nothing(column, refuse, frames):
    column[1] = "a"
    refuse("Failed to add key exposures.", column.key_exposure_add, frames)
    refuse("Failed to remove key exposures.", column.key_exposure_remove, frames)
    refuse("Failed to remove duplicate key exposures.", column.key_exposure_remove_duplicate, frames)
    refuse("Failed to delete drawing at specified frame.", column.drawing_delete, frames)


def test_key_exposures_are_removed(column, change):
    column[1:7] = ["a", "b", "c", "c", "c", "a"]
    column.key_exposure_add(4)
    change("Remove Duplicate Key Exposures", column.key_exposure_remove_duplicate, {"from": 1, "to": 9})
    assert column.key_exposure_next(3) == 6
    change("Remove Key Exposures", column.key_exposure_remove, [2, 6])
    assert shown(column, 8) == "aacccccc"


def test_the_next_key_exposure_of_a_mark(column):
    column[1:5] = ["a", "b", "c", "b"]
    column.set_drawing_type(2, "breakdown")
    assert (column.drawing_type(4), column.drawing_type(1)) == ("BREAKDOWN", "Unknown")
    assert column.key_exposure_next(0, "Breakdown") == 2
    assert column.key_exposure_next(2, ["KEY", "BREAKDOWN"]) == 4
    assert column.key_exposure_next(4, "BREAKDOWN") is None and column.key_exposure_next(4) is None
    assert support.message_of(column.drawing_type, 0) == "Failed to get drawing sequence -- does the drawing exist?"
    assert support.message_of(column.set_drawing_type, 0, "KEY") == "Failed to get drawing sequence."
    assert column.drawing_version("b") == 1
    assert support.message_of(column.drawing_version, "nope") == support.GONE


def test_cells_are_filled_cleared_and_cut_out(column, change, refuse):
    column[1:7] = ["a", None, None, "b", None, None]
    change("Fill Empty Cells", column.fill_empty, 2, 2)
    assert shown(column, 6) == "aa.b.."
    change("Clearing drawing frames.", column.clear, 1, 2, False)
    assert shown(column, 6) == "...b.."
    change("Clearing drawing frames.", column.clear, 2, 2, True)
    assert shown(column, 6) == ".b...."
    refuse("Unable to clear 1 frames.", column.clear, 10, 1, False)
    refuse("Unable to clear -3 frames.", column.clear, 10, -3)
    refuse("Failed to clear frames.", column.clear, 0, 2)


def test_drawings_are_generated_duplicated_and_deleted(column, element, change, refuse):
    first = change("Generate Drawing", column.generate, 4)
    assert (first.name, column[4], shown(column, 5)) == ("1", first, "...11")
    assert change("Generate Drawing", column.generate, 4, True).name == "4"
    assert change("Generate Drawing", column.generate, 4, True).name == "4-1"
    refuse("Failed to generate a drawing.", column.generate, 0)
    column[1] = "1"
    copy = change("Duplicate Drawing", column.drawing_duplicate, 2)
    assert copy.name == "5" and column[2] == copy and column[1].name == "1"
    refuse("Failed to duplicate the drawing at the given frame.", column.drawing_duplicate, 0)
    change("Delete Drawings", column.drawing_delete, {"from": 1, "to": 2})
    assert {drawing.name for drawing in element.drawings} == {"4", "4-1"} and column[1] is None


def test_an_element_is_attached(sheet, column, bare, element, change, refuse):
    new = change("Adding new Element to drawing column", bare.attach_new_element, "Leg")
    assert new.name == "Leg" and bare.element.id == new.id
    change("Modifying Drawing's element.", setattr, bare, "element", element)
    assert bare.element.id == element.id
    change("Modifying Drawing's element.", setattr, bare, "element", -1)
    assert bare.element is None
    change("Modifying Drawing's element.", setattr, bare, "element", str(new.id))
    scan = "Only accepted scan-types are : COLOR, GRAY_SCALE, BW"
    refuse(scan, bare.attach_new_element, "Foot", "XX")
    assert support.message_of(bare.attach_new_element, "Foot", "bw", 12, "nope").startswith(
        "Failed to find a valid file format. \n Valid formats: ")
    refuse("Failed to create a new element.", bare.attach_new_element, "Leg")
    refuse("Failed to create a new element.", bare.attach_new_element, "")
    refuse("Failed to set the drawing column's linked ID.", setattr, bare, "element", 99)
    for value in ("x", sheet.scene, [1], 10**12):
        refuse("Invalid element argument provided.", setattr, bare, "element", value)


def test_an_element_that_a_column_shows_stays(sheet, element, refuse):
    with pytest.raises(brindle.Error, match="Unable to delete element."):
        sheet.elements.remove(element)


def test_a_timing_column(timing, change, refuse):
    change("Set Xsheet Entry", timing.set, 1, "a")
    assert (timing[1], len(timing), timing.contains("a"), "b" in timing) == ("a", 60, True, False)
    assert timing.contains(["x", ["a"]]) and not timing.contains(["x"]) and not timing.contains(1)
    change("Duplicate Drawing", timing.drawing_duplicate, 5)
    assert timing[5] == "1" and timing[4] == "a"
    change("Add Key Exposures", timing.key_exposure_add, 3)
    change("Remove Duplicate Key Exposures", timing.key_exposure_remove, 3, True)
    change("Line Test Fill", timing.line_test_fill, 2, 4, "LT")
    assert shown(timing, 6) == "aLT1LT2LT311"
    change("Delete Drawings", timing.drawing_delete, 5)
    assert shown(timing, 6) == "aLT1LT2LT3.."
    change("Line Test Fill", timing.line_test_fill, 4, 5, "LT", True)
    assert timing[4] == "LT3" and timing[5] == "LT4" and timing[6] == ""
    change("Fill Empty Cells", timing.fill_empty, 6, 7)
    assert timing[7] == "LT4" and timing[8] == ""
    refuse("Failed to apply line-test fill.", timing.line_test_fill, 4, 3, "LT")
    refuse("Failed to delete drawing at specified frame.", timing.drawing_delete, 20)
    refuse("Failed to set the value in the XSheet.", timing.set, 0, "a")


def test_a_read_node_in_element_mode(nodes, column, element, change, refuse):
    drawing = nodes["Top/Arm"].attributes["drawing"]
    assert isinstance(drawing, brindle.DrawingAttribute) and str(drawing) == "DrawingAttr(Top/Arm, drawing)"
    assert (drawing.element_mode, drawing.element_name, drawing.timing_name, drawing.column_name) == (
        True, "Arm", "Arm", "Arm")
    assert drawing.element.id == element.id and drawing.timing.name == "Arm"
    assert drawing.drawing.full_keyword == "drawing.element" and drawing.drawing_type == ""
    change("Set Drawing Attribute Value", drawing.set_value, 3, ["a", "b"])
    assert [drawing.value(frame) for frame in (2, 3, 4, 60)] == ["", "a", "b", "b"]
    change("Set Drawing Attribute Value", drawing.set_localvalue, "k")
    assert drawing.localvalue() == drawing.value(1) == "k" and drawing.drawing_type == "Unknown"
    column[1].scale_factor = 2.5
    assert drawing.scale_factor(1) == 2.5
    refuse("No frame values were specified.", drawing.set_value, 5, [])
    refuse("Unsupported argument: OMC::Scene\nUnsupported argument: OMC::Element", drawing.set_value, 5,
           [column[1], nodes["Top/Arm"].parent_scene(), 3, element])
    refuse("Failed to set the attribute's value.", drawing.set_value, 0, "a")
    inner = nodes["Top/Arm"].attributes["drawing.element"]
    assert isinstance(inner, brindle.ElementAttribute) and str(inner) == "ElementAttr(Top/Arm, drawing.element)"
    change("Set Element Attribute Value", inner.set_value, 9, column[1])
    assert (inner.value(9), inner.element_name, inner.element.id) == ("k", "Arm", element.id)
    change("Unlinking element of Arm", setattr, drawing, "column", None)
    assert drawing.column is None and drawing.element is None and inner.value(9) == ""
    refuse("Failed to determine sequence column for drawing attribute.", drawing.set_value, 1, "a")
    refuse("Failed to determine sequence column for drawing attribute.", inner.set_value, 1, "a")
    refuse("Attribute is not linked to a column.", setattr, inner, "element", element)
    refuse("The drawing-timing type is not yet supported.", drawing.set_element, element)
    change("Linking element of Arm to Bare", setattr, drawing, "column_name", "Bare")
    change("Modifying Drawing's element.", drawing.set_element, element)
    assert drawing.element_name == "Arm"


def test_a_read_node_in_timing_mode(nodes, timing, element, change, refuse):
    drawing = nodes["Top/Mouth"].attributes["drawing"]
    assert drawing.column is None
    change("Set Attribute local value.", setattr, drawing, "element_mode", False)
    assert drawing.column.name == drawing.timing_name == "Mouth" and drawing.drawing.keyword == "timing"
    change("Set Drawing Attribute Value", drawing.set_value, 1, "o")
    inner = nodes["Top/Mouth"].attributes["drawing.timing"]
    assert isinstance(inner, brindle.TimingAttribute) and str(inner) == "TimingAttr(Top/Mouth, drawing.timing)"
    change("Set Timing Attribute Value", inner.set_value, 4, ["u", "a"])
    assert inner.localvalue() == "o" and [drawing.value(frame) for frame in (1, 4, 9)] == ["o", "u", "a"]
    change("Linking element of Mouth to Arm", setattr, nodes["Top/Mouth"].attributes["drawing.element"], "column", "Arm")
    assert drawing.element.id == element.id and drawing.value(4) == "u"
    refuse("The drawing-timing type is not yet supported.", drawing.set_element, element)
    inner.unlink()
    refuse("Attribute isn't linked to a column.", inner.set_value, 1, "a")


def test_columns_drive_what_they_fit(nodes, column, timing, refuse):
    failed = "Failed to set the attribute's column name."
    for attribute, wrong in (("drawing.element", timing), ("drawing.timing", column), ("opacity", column),
                             ("opacity", timing)):
        refuse(failed, setattr, nodes["Top/Arm"].attributes[attribute], "column", wrong)


def test_frames_that_come_in_are_empty_unless_the_options_extend(sheet, column):
    scene = sheet.scene
    column[1:3] = ["a", "b"]
    scene.frame_insert(4, 2)
    assert shown(column, 8) == "abbb..bb"
    scene.frame_insert(2, 2, brindle.FrameOptions(True, True))
    assert shown(column, 10) == "abbbbb..bb"
    scene.frame_remove(1, 6)
    assert shown(column, 4) == "a.bb" and scene.frame_count == 58


def test_a_project_opens_with_its_exposures(sheet, folder, column, timing):
    column[1:5] = ["a", None, "b", "a"]
    timing[3] = "x"
    saved = support.saved(sheet, folder)
    with brindle.open(folder) as app:
        again = app.scene.nodes["Top/Arm"].attributes["drawing"].column
        assert shown(again, 6) == "a.baaa" and again[3].element.name == "Arm"
        assert shown(app.scene.nodes["Top/Mouth"].attributes["drawing.timing"].column, 4) == "..xx"
        assert support.saved(app, folder) == saved


@pytest.mark.parametrize("change_, reason", [
    ((("element", 99),), 'element is not the id of an element'),
    ((("element", -1),), 'element is not a whole number'),
    ((("exposures", [[2, "a"], [2, "b"]]),), "can't stand behind the exposure ahead of it"),
    ((("exposures", [[2]]),), "can't stand behind the exposure ahead of it"),
    ((("exposures", [[0, "a"]]),), "is not a whole number from 1"),
    ((("exposures", [[1, ""]]),), "is no name that a drawing can have"),
    ((("exposures", [[1, "a", 3]]),), "has 3 items, not 2"),
    ((("exposures", {}),), "exposures is not a list")])
def test_a_damaged_sheet_is_told_with_its_place(sheet, folder, change_, reason):
    path = folder / "scenes" / "Scene-1.json"
    sheet.close()
    scene = json.loads(path.read_text())
    scene["columns"][0].update(dict(change_))
    path.write_text(json.dumps(scene))
    message = support.message_of(brindle.open, folder)
    assert f'"{path}" is damaged at line ' in message and reason in message and "columns[0]" in message


def test_a_column_that_is_gone_says_so(sheet, nodes, column):
    nodes.remove("Top/Arm", True)
    for call in (lambda: column[1], lambda: column.set(1, "a"), lambda: len(column), lambda: column.drawing_names,
                 lambda: column.element, lambda: column.key_exposure_add(1), lambda: str(column)):
        assert support.message_of(call) == support.GONE
