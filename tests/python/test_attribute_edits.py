"""Changes of attributes: values over time, local values, links to columns."""

import math

import brindle
import pytest

import support

SET = ["Set Attribute Value"]
LOCAL = ["Set Attribute local value."]
OFFSET = ["Offset Attribute Value"]


def angle(r):
    return r["double attribute"]


def skew(r):
    """A number without a column."""
    return r["peg"].attributes["skew"]


def keys(attribute):
    return attribute.column and {frame: attribute.value(frame) for frame in attribute.column.keyframe_list()}


EDITS = {
    "a new key": (lambda r: angle(r).set_value(5, 1.5), SET, lambda r: keys(angle(r)),
                  {1: 0.0, 5: 1.5, 10: 9.0, 20: -5.0}),
    "a key": (lambda r: angle(r).set_value(10, 1.5), SET, lambda r: keys(angle(r)), {1: 0.0, 10: 1.5, 20: -5.0}),
    "a key of its own value": (lambda r: angle(r).set_value(10, 9.0), SET, lambda r: keys(angle(r)),
                               {1: 0.0, 10: 9.0, 20: -5.0}),
    "a key ahead of all": (lambda r: angle(r).set_value(-7, 3), SET, lambda r: angle(r).value(-100), 3.0),
    "a key behind the scene": (lambda r: angle(r).set_value(1000, 3), SET, lambda r: angle(r).value(2000), 3.0),
    "a key with adjust_column": (lambda r: angle(r).set_value(5, 1, True), SET, lambda r: angle(r).value(5), 1.0),
    "the first key, with its column": (lambda r: skew(r).set_value(5, 7), SET,
                                       lambda r: (keys(skew(r)), skew(r).column.type),
                                       ({5: 7.0}, "BEZIER")),
    "a local value": (lambda r: skew(r).set_localvalue(7), LOCAL, lambda r: (skew(r).value(3), skew(r).column),
                      (7.0, None)),
    "a local value as it is": (lambda r: skew(r).set_localvalue(0), LOCAL, lambda r: skew(r).localvalue(), 0.0),
    "a local value under a column": (lambda r: angle(r).set_localvalue(7), LOCAL,
                                     lambda r: (angle(r).localvalue(), angle(r).value(1)), (7.0, 0.0)),
    "reset_value": (lambda r: angle(r).reset_value(10), SET, lambda r: keys(angle(r)), {1: 0.0, 10: 0.0, 20: -5.0}),
    "reset_value of a scale": (lambda r: r["peg"].attributes["scale.x"].reset_value(1), SET,
                               lambda r: keys(r["peg"].attributes["scale.x"]), {1: 1.0}),
    "reset_localvalue": (lambda r: (skew(r).set_localvalue(4), skew(r).reset_localvalue()), LOCAL * 2,
                         lambda r: skew(r).localvalue(), 0.0),
    "offset of a key": (lambda r: angle(r).offset_value(10, 2), SET, lambda r: angle(r).value(10), 11.0),
    "offset of a range": (lambda r: angle(r).offset_value([10, 20], 5), SET,
                          lambda r: (angle(r).value(1), angle(r).value(10), angle(r).value(20)), (0.0, 14.0, 0.0)),
    "offset of a range from behind": (lambda r: angle(r).offset_value([20, 10], 5), SET,
                                      lambda r: (angle(r).value(1), angle(r).value(10), angle(r).value(20)),
                                      (0.0, 14.0, 0.0)),
    "offset to the end": (lambda r: angle(r).offset_value([10, -1], 5), SET,
                          lambda r: (angle(r).value(1), angle(r).value(20), angle(r).value(60)), (0.0, 0.0, 0.0)),
    "a flag with its column": (lambda r: r["bool attribute"].set_value(3, False), SET,
                               lambda r: r["bool attribute"].value(3), False),
    "a local flag": (lambda r: r["bool attribute"].set_localvalue(False), LOCAL,
                     lambda r: r["bool attribute"].localvalue(), False),
    "a local flag as it is": (lambda r: r["bool attribute"].set_localvalue(True), [],
                              lambda r: r["bool attribute"].localvalue(), True),
    "reset_value of a flag": (lambda r: (r["bool attribute"].set_value(3, False), r["bool attribute"].reset_value(3)),
                              SET * 2, lambda r: r["bool attribute"].value(3), True),
    "reset_localvalue of a flag": (lambda r: (r["bool attribute"].set_localvalue(False),
                                              r["bool attribute"].reset_localvalue()), LOCAL * 2,
                                   lambda r: r["bool attribute"].localvalue(), True),
    "a whole number": (lambda r: r["int attribute"].set_value(3, 70), SET, lambda r: r["int attribute"].value(3), 70),
    "a local whole number": (lambda r: r["int attribute"].set_localvalue(70), LOCAL,
                             lambda r: r["int attribute"].localvalue(), 70),
    "offset of a whole number": (lambda r: (r["int attribute"].set_value(3, 70), r["int attribute"].offset_value(3, 7)),
                                 SET + OFFSET,
                                 lambda r: r["int attribute"].value(3), 77),
    "a text": (lambda r: r["text attribute"].set_value(3, "frames/a"), SET, lambda r: r["text attribute"].value(1),
               "frames/a"),
    "a local text": (lambda r: r["text attribute"].set_localvalue("ä\U0001f600\0"), LOCAL,
                     lambda r: r["text attribute"].localvalue(),
                     "ä\U0001f600\0"),
    "a local text as it is": (lambda r: r["text attribute"].set_localvalue(r["text attribute"].localvalue()), LOCAL,
                              lambda r: r["text attribute"].localvalue(), ""),
    "text of a key": (lambda r: angle(r).set_text_value(10, "3.5"), ["Set angle of Sample-Peg"],
                      lambda r: angle(r).value(10), 3.5),
    "text of a number": (lambda r: skew(r).set_text_value(10, "3.5"), ["Set skew of Sample-Peg"],
                         lambda r: skew(r).get_text_value(10), "3.5"),
    "text that is no number": (lambda r: angle(r).set_text_value(10, "much"), [], lambda r: angle(r).value(10), 9.0),
    "column": (lambda r: setattr(skew(r), "column", r["column"]), ["Linking skew of Sample-Peg to ATV-0001"],
               lambda r: (skew(r).column_name, skew(r).value(10)), ("ATV-0001", 9.0)),
    "column by name": (lambda r: setattr(skew(r), "column", "ATV-0001"), ["Linking skew of Sample-Peg to ATV-0001"],
                       lambda r: skew(r).column.name, "ATV-0001"),
    "column_name": (lambda r: setattr(skew(r), "column_name", "ATV-0001"), ["Linking skew of Sample-Peg to ATV-0001"],
                    lambda r: skew(r).column.name, "ATV-0001"),
    "link": (lambda r: skew(r).link(r["column"]), ["Linking skew of Sample-Peg to ATV-0001"],
             lambda r: [a.full_keyword for a in r["column"].linked_attributes], ["angle", "skew"]),
    "another column": (lambda r: (skew(r).set_value(1, 1), setattr(angle(r), "column", skew(r).column)),
                       SET + ["Linking angle of Sample-Peg to ATV-0002"], lambda r: angle(r).value(10), 1.0),
    "column of None": (lambda r: setattr(angle(r), "column", None), ["Unlinking angle of Sample-Peg"],
                       lambda r: angle(r).column, None),
    "column of False": (lambda r: setattr(angle(r), "column", False), ["Unlinking angle of Sample-Peg"],
                        lambda r: angle(r).column, None),
    "column of no text": (lambda r: setattr(angle(r), "column", ""), ["Unlinking angle of Sample-Peg"],
                          lambda r: angle(r).column, None),
    "column_name of no text": (lambda r: setattr(angle(r), "column_name", ""), ["Unlinking angle of Sample-Peg"],
                               lambda r: angle(r).column_name, ""),
    "unlink": (lambda r: angle(r).unlink(), ["Unlinking angle of Sample-Peg"],
               lambda r: (angle(r).column, r["column"].linked_nodes), (None, [])),
    "unlink without a column": (lambda r: skew(r).unlink(), ["Unlinking skew of Sample-Peg"], lambda r: skew(r).column,
                                None),
}

REFUSALS = {
    "a value that is no number": (lambda r: angle(r).set_value(5, math.nan), "Invalid argument at index 1."),
    "a value without end": (lambda r: angle(r).set_value(5, math.inf), "Invalid argument at index 1."),
    "a local value that is no number": (lambda r: skew(r).set_localvalue(math.nan), "Invalid argument at index 0."),
    "column of True": (lambda r: setattr(skew(r), "column", True), "Failed to get valid column argument."),
    "column of nobody": (lambda r: setattr(skew(r), "column", "Nobody"), "Unable to find specified column by name."),
    "column_name of nobody": (lambda r: setattr(skew(r), "column_name", "Nobody"),
                              "Unable to find specified column by name (Nobody)"),
    "a name with a null character": (lambda r: setattr(skew(r), "column_name", "No\0body \U0001f600"),
                                     "Unable to find specified column by name (No\0body \U0001f600)"),
    "column of what takes none": (lambda r: setattr(r["attribute"], "column", r["column"]),
                                  "This attribute cannot be linked."),
    "column_name of what takes none": (lambda r: setattr(r["attribute"], "column_name", "ATV-0001"),
                                       "Attribute cannot be animated."),
    "offset over no range": (lambda r: angle(r).offset_value([], 1), "Invalid range specififed."),
    "offset from a text": (lambda r: angle(r).offset_value(["a", 1], 1), "First range argument is invalid."),
    "offset from a list": (lambda r: angle(r).offset_value([[1], 2], 1), "First range argument is invalid."),
    "offset to a list": (lambda r: angle(r).offset_value([1, [2]], 1), "Second range argument is invalid."),
    "an attribute list": (lambda r: r["attributes"].set(0, angle(r)), "Attribute List cannot be set."),
}

SILENT = {
    "link to nobody": lambda r: skew(r).link("Nobody"),
    "link to True": lambda r: skew(r).link(True),
    "link of what takes none": lambda r: r["attribute"].link(r["column"]),
    "unlink of what takes none": lambda r: r["attribute"].unlink(),
    "text that is no number": lambda r: angle(r).set_text_value(1, ""),
}


@pytest.mark.parametrize("name", EDITS)
def test_an_edit_does_what_it_says_and_can_be_undone(edit, name):
    edit(*EDITS[name])


@pytest.mark.parametrize("name", REFUSALS)
def test_a_refused_edit_gives_its_sentence_and_changes_nothing(refuse, name):
    refuse(*REFUSALS[name])


@pytest.mark.parametrize("name", SILENT)
def test_what_answers_false_changes_nothing(rig, state, name):
    before = state()
    assert SILENT[name](rig) is False
    assert state() == before


def test_a_value_in_between_is_on_the_curve(rig):
    assert angle(rig).value(1) == 0.0 and angle(rig).value(10) == 9.0
    assert 0.0 < angle(rig).value(5) < 9.0
    assert angle(rig).value(0) == 0.0 and angle(rig).value(100) == -5.0
    assert angle(rig).localvalue() == 0.0


def test_undoing_the_first_value_takes_the_column_away(rig, history):
    skew(rig).set_value(5, 7)
    assert skew(rig).column.anonymous
    history.undo()
    assert skew(rig).column is None and skew(rig).value(5) == 0.0


def test_a_number_knows_its_limits(rig):
    assert (angle(rig).default, rig["peg"].attributes["scale.x"].default) == (0.0, 1.0)
    opacity = rig["read"].attributes["opacity"]
    assert (opacity.minimum, opacity.maximum, opacity.default) == (0.0, 100.0, 100.0)
    red = rig["int attribute"]
    assert (red.minimum, red.maximum, red.step) == (0, 255, 1)


def test_an_attribute_tells_its_names(rig):
    x = rig["peg"].attributes["position.x"]
    assert (x.keyword, x.full_keyword, x.type, x.linkable, x.dynamic) == ("x", "position.x", "DOUBLE", True, False)
    assert x.node() == rig["peg"] and x.subattributes is None
    assert rig["attribute"].linkable is False and len(rig["attribute"].subattributes) == 3


def test_every_attribute_is_reached_by_its_full_keyword(rig):
    for node in rig["nodes of the scene"]:
        for attribute in node.attributes:
            for part in [attribute, *(attribute.subattributes or [])]:
                assert node.attributes[part.full_keyword] == part
                assert part.get_text_value(1) is not None
                assert type(part) is type(node.attributes[part.full_keyword])


def test_a_column_may_drive_attributes_of_several_nodes(rig):
    rig["camera"].attributes["angle"].column = rig["column"]
    assert {node.name for node in rig["column"].linked_nodes} == {"Sample-Peg", "Sample-Camera"}
    rig["column"][10] = 4.0
    assert rig["camera"].attributes["angle"].value(10) == 4.0
    assert rig["camera"].attributes["angle"].column.name == "ATV-0001"


def test_an_attribute_whose_node_has_gone_is_gone(rig):
    rig["nodes of the scene"].remove(rig["peg"])
    for call in (lambda: angle(rig).value(1), lambda: angle(rig).set_value(1, 1), lambda: angle(rig).column,
                 lambda: angle(rig).full_keyword, lambda: angle(rig).node(), lambda: rig["attributes"]["angle"]):
        assert support.message_of(call) == support.GONE
    assert angle(rig).link("ATV-0001") is False


def test_ten_thousand_keys_are_ten_thousand_steps(rig, history):
    for frame in range(1, 10_001):
        skew(rig).set_value(frame, frame * 0.5)
    assert history.size_executed == 10_000
    history.undo(10_000)
    assert skew(rig).column is None
    history.redo(10_000)
    assert (skew(rig).value(9_999), len(skew(rig).column.keyframe_list())) == (4999.5, 10_000)
