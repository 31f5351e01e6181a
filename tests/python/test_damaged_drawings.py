"""Drawing files that vanish, or are cut off, while their project is open: told by name where they are needed."""

import brindle
import pytest

import support


@pytest.fixture
def arm(app, tmp_path):
    """An element with three saved pictures, the first of which is cut off later and the second of which vanishes."""
    picture = tmp_path / "picture.png"
    picture.write_bytes(support.png(9))
    arm = app.elements.create("Arm", vector_type="")
    for name in "123":
        arm.drawings.create(name).import_file(picture)
    app.save()
    app.project.history.clear()
    return arm


@pytest.fixture
def damaged(arm, folder):
    files = folder / "elements" / "Arm"
    (files / "1.png").write_bytes((files / "1.png").read_bytes()[:30])
    (files / "2.png").unlink()
    return files


def test_a_save_that_needs_none_of_them_goes_well_and_leaves_them(app, damaged):
    app.scene.frame_count = 70
    app.save()
    assert sorted(path.name for path in damaged.iterdir()) == ["1.png", "3.png"]
    assert len((damaged / "1.png").read_bytes()) == 30


def test_a_drawing_whose_file_is_gone_says_so_by_its_name(arm, damaged):
    assert [arm.drawings[name].file_exists for name in "123"] == [True, False, True]
    assert str(damaged / "1.png") in support.message_of(lambda: arm.drawings["1"].drawing)
    assert str(damaged / "2.png") in support.message_of(lambda: arm.drawings["2"].drawing)
    assert arm.drawings["3"].drawing is None


def test_a_save_that_needs_a_file_that_is_gone_fails_and_changes_nothing(app, folder, arm, damaged, tmp_path):
    sentence = f'Cannot save the project: "{damaged / "2.png"}" is missing.'
    before = support.files(folder)
    arm.duplicate("Copy")
    assert support.message_of(app.save) == sentence
    assert support.files(folder) == before
    assert support.message_of(app.save_as, tmp_path / "other") == sentence
    assert not (tmp_path / "other" / "project.json").exists()
    app.project.history.undo(1)
    app.save()
    assert support.files(folder).keys() == before.keys()


def test_a_new_picture_takes_the_place_of_a_damaged_one(app, folder, arm, damaged, tmp_path):
    for name in "12":
        arm.drawings[name].import_file(tmp_path / "picture.png")
    app.save()
    assert [len(path.read_bytes()) for path in sorted(damaged.iterdir())] == [len(support.png(9))] * 3
    app.save_as(tmp_path / "other")
    assert len(list((tmp_path / "other").rglob("*.png"))) == 3
