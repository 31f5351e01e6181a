"""Backdrops: titled, coloured rectangles behind the nodes of a group."""

import math

import brindle
import pytest

import support


@pytest.fixture
def saved(app, folder):
    return lambda: support.saved(app, folder)


@pytest.fixture
def group(scene):
    return scene.nodes.create("GROUP", "Body")


@pytest.fixture
def backdrop(group):
    return group.backdrops.create("Legs")


def rectangle(backdrop):
    return (backdrop.left, backdrop.top, backdrop.right, backdrop.bottom)


def test_a_new_backdrop_is_the_last_of_its_list(app, group):
    group.backdrops.create()
    legs = group.backdrops.create("Legs")
    assert str(group.backdrops) == 'BackdropList("Top/Body")[2]'
    assert str(legs) == "Backdrop()"
    assert [item.title for item in group.backdrops] == ["", "Legs"]
    assert group.backdrops[1].title == "Legs"
    assert group.backdrops.contains(legs) and legs in group.backdrops
    assert list(app.project.history.list())[-1] == "Add Backdrop"


def test_what_a_backdrop_is_made_of(group):
    model = group.backdrops.create([[10, 20], [40, 60]])
    assert rectangle(model) == (10, 20, 40, 60)
    model.title, model.colour = "Arm", brindle.Colour(1, 2, 3, 4)
    copy = group.backdrops.create(model)
    assert (copy.title, rectangle(copy), str(copy.colour)) == ("Arm", (10, 20, 40, 60), str(model.colour))
    assert rectangle(group.backdrops.create(brindle.AllocatedRect2D(3, 4, 1.9, -1.9))) == (1, -1, 4, 2)
    assert group.backdrops.create(0).title == "0"
    default = group.backdrops.create()
    assert (default.width > 0, default.height > 0, default.title, default.description) == (True, True, "", "")


def test_sides_and_sizes(backdrop):
    backdrop.left, backdrop.top, backdrop.right, backdrop.bottom = 10, 20, 110, 70
    assert (backdrop.width, backdrop.height) == (100, 50)
    backdrop.width = 30
    assert rectangle(backdrop) == (10, 20, 40, 70)


def test_writing_the_height_moves_the_right_side(backdrop):
    backdrop.left, backdrop.top, backdrop.right, backdrop.bottom = 10, 20, 110, 70
    backdrop.height = 100
    assert rectangle(backdrop) == (10, 20, 120, 70)
    assert backdrop.height == 50


@pytest.mark.parametrize("name, value", [
    ("top", 5), ("bottom", 6), ("left", 7), ("right", 8), ("width", 9), ("title", "T"), ("description", "two\nlines"),
    ("title_font", "Serif"), ("title_font_size", 20.5), ("description_font", "Mono"), ("description_font_size", 8.25)])
def test_each_property_is_one_undo_entry(app, backdrop, saved, name, value):
    before, content, entries = getattr(backdrop, name), saved(), len(app.project.history)
    setattr(backdrop, name, value)
    assert getattr(backdrop, name) == value
    assert list(app.project.history.list())[entries:] == ["Modify Backdrop"]
    changed = saved()
    app.project.history.undo(1)
    assert (getattr(backdrop, name), saved()) == (before, content)
    app.project.history.redo(1)
    assert saved() == changed


@pytest.mark.parametrize("name", ["colour", "title_font_colour", "description_font_colour"])
def test_colours_take_every_form(backdrop, name):
    for value in (brindle.Colour(1, 2, 3, 4), [1, 2, 3, 4]):
        setattr(backdrop, name, value)
        assert getattr(backdrop, name) == brindle.Colour(1, 2, 3, 4)


@pytest.mark.parametrize("name", ["colour", "title_font_colour", "description_font_colour"])
def test_a_list_of_three_channels_keeps_the_alpha(backdrop, name):
    setattr(backdrop, name, [1, 2, 3])
    assert getattr(backdrop, name) == brindle.Colour(1, 2, 3, 255)
    setattr(backdrop, name, [5, 6, 7, 8])
    setattr(backdrop, name, [1, 2, 3])
    assert getattr(backdrop, name) == brindle.Colour(1, 2, 3, 8)


def test_match_takes_all_properties_at_once(app, group, backdrop):
    other = group.backdrops.create([[1, 2], [3, 4]])
    other.title, other.description_font_size = "Other", 33
    entries = len(app.project.history)
    backdrop.match(other)
    assert len(app.project.history) == entries + 1
    assert (backdrop.title, rectangle(backdrop), backdrop.description_font_size) == ("Other", (1, 2, 3, 4), 33)


def test_nodes_on_the_sides_are_contained(group, backdrop):
    backdrop.left, backdrop.top, backdrop.right, backdrop.bottom = 0, 32, 100, 132
    places = {"Corner": (0, 0), "Far": (100, 100), "Left": (-1, 50), "Below": (50, 101), "Inside": (50, 50)}
    for name, (x, y) in places.items():
        group.nodes.create("PEG", name).position = [x, y]
    assert [node.name for node in backdrop.contained_nodes()] == ["Corner", "Far", "Inside"]
    backdrop.right = -10
    assert backdrop.contained_nodes() == []


def test_removing_and_its_undo(app, group, backdrop, saved):
    content = saved()
    group.backdrops.remove(backdrop)
    assert len(group.backdrops) == 0
    assert support.message_of(lambda: backdrop.title) == "Object is no longer valid."
    assert list(app.project.history.list())[-1] == "Remove Backdrop"
    app.project.history.undo(1)
    assert saved() == content
    assert group.backdrops[0].title == "Legs"
    assert support.message_of(lambda: backdrop.title) == "Object is no longer valid."


def test_refusals_change_nothing(app, scene, group, backdrop, saved):
    other = scene.nodes.create("GROUP", "Other").backdrops.create()
    gone = group.backdrops.create()
    group.backdrops.remove(gone)
    content, entries = saved(), len(app.project.history)
    for call, sentence in [
            (lambda: group.backdrops.remove(other),
             "Failed to remove the backdrop - unable to find backdrop in the list."),
            (lambda: group.backdrops.remove(gone),
             "Failed to remove the backdrop - unable to find backdrop in the list."),
            (lambda: group.backdrops.remove("Legs"), "An unexpected error has occurred."),
            (lambda: group.backdrops.create(gone), "An unexpected error has occurred."),
            (lambda: group.backdrops[1], "Index is out of range."),
            (lambda: group.backdrops[-1], "Index is out of range."),
            (lambda: setattr(backdrop, "title_font_size", 0), "Failed to modify backdrop."),
            (lambda: setattr(backdrop, "description_font_size", -3), "Failed to modify backdrop."),
            (lambda: backdrop.match(gone), "Object is no longer valid.")]:
        assert support.message_of(call) == sentence
    for call in (lambda: setattr(backdrop, "title_font_size", math.nan), lambda: setattr(backdrop, "top", "high"),
                 lambda: setattr(backdrop, "colour", None), lambda: backdrop.match(group),
                 lambda: group.backdrops.create([[0, 0], [math.inf, 1]])):
        with pytest.raises(brindle.Error):
            call()
    assert (saved(), len(app.project.history)) == (content, entries)


def test_backdrops_follow_their_group(app, scene, group, backdrop, saved):
    content = saved()
    scene.nodes.remove(group)
    assert support.message_of(lambda: backdrop.title) == "Object is no longer valid."
    app.project.history.undo(1)
    assert saved() == content
    target = scene.nodes.create("GROUP", "Target")
    moved = target.nodes.move(scene.nodes["Top/Body"], 0, 0)
    assert [item.title for item in moved.backdrops] == ["Legs"]


def test_backdrops_are_saved_and_opened(app, folder, group, backdrop):
    backdrop.title, backdrop.description, backdrop.title_font_size = 'L\u00e9gs "1"', "a\nb", 0.1
    backdrop.colour = [1, 2, 3, 4]
    app.save()
    app.close()
    with brindle.open(folder) as again:
        read = again.scene.nodes["Top/Body"].backdrops[0]
        assert (read.title, read.description, read.title_font_size) == ('L\u00e9gs "1"', "a\nb", 0.1)
        assert read.colour.a == 4
