"""The example wiggle.py: a peg swings from side to side of its 3D path."""

import math

import brindle
import pytest

import support

SCRIPT = support.ROOT / "examples" / "wiggle.py"


@pytest.fixture
def project(tmp_path):
    """A fish that swims to the right, holds its place and goes on; and a peg without a path."""
    folder = tmp_path / "sea"
    with brindle.create(folder) as app:
        path = app.scene.columns.create("3D_PATH", "Swim")
        app.scene.nodes.create("PEG", "Fish").attributes["position"].column = path
        app.scene.nodes.create("PEG", "Stone").attributes["position"].set_value(3, [1, 2, 3])
        for frame, x in ((1, 0), (25, 12), (33, 12), (57, 24)):
            path.create_point(frame, x, 2, 3)
        path[25].const_segment = True
        app.save()
    return folder


def wiggle(*arguments):
    done = support.run_command("run", SCRIPT, *arguments)
    return done.returncode, done.stdout.splitlines(), done.stderr


def place(app, frame):
    value = app.scene.nodes["Top/Fish"].attributes["position"].value(frame)
    return value.x, value.y, value.z


def test_the_peg_swings_beside_its_path(project):
    with brindle.open(project) as app:
        before = [place(app, frame) for frame in range(1, 61)]
    code, lines, error = wiggle(project, "Top/Fish", "--amplitude", 2, "--waves", 7)
    assert (code, error) == (0, "")
    assert lines == ["Top/Fish: 7 waves over the frames 1 to 57, 29 keyframes", f"Saved {project}"]
    with brindle.open(project) as app:
        assert app.scene.columns["Swim"].keyframe_list() == list(range(1, 58, 2))
        assert not app.scene.columns["Swim"][27].const_segment
        for frame in range(1, 61, 2):
            x, y, z = before[frame - 1]
            swing = 2 * math.sin(2 * math.pi * (frame - 1) / 8) if frame <= 57 else 0
            assert place(app, frame) == pytest.approx((x, y + swing, z)), "at keyframes it is the sine itself"


def test_a_stretch_with_a_length_leaves_the_rest_and_the_project(project, tmp_path):
    files = support.files(project)
    code, lines, _ = wiggle(project, "Top/Fish", "--length", 7.5, "--frames", 9, 25, "--amplitude", -1, "--out",
                            tmp_path / "out")
    assert (code, lines[0]) == (0, "Top/Fish: 2 waves over the frames 9 to 25, 9 keyframes")
    assert support.files(project) == files
    with brindle.open(project, read_only=True) as app:
        before = [place(app, frame) for frame in range(1, 61)]
    with brindle.open(tmp_path / "out") as app:
        assert place(app, 11) == pytest.approx((before[10][0], 1, 3)), "to the right first"
        assert [place(app, frame) for frame in range(25, 61)] == [pytest.approx(each) for each in before[24:]]


def test_it_is_one_entry_that_undoes_exactly(project):
    done = support.run_python(f"""import pathlib, sys
import brindle
sys.path.append({str(SCRIPT.parent)!r})
import wiggle

with brindle.open({str(project)!r}) as app:
    path = wiggle.path_of(app.scene, "Top/Fish")
    before = [str(path.get_entry(frame).value) for frame in range(1, 61)]
    wiggle.wiggle(path, wiggle.Wave(1, 57, 5, 1.0), app.project.history)
    assert app.project.history.list() == ["Wiggle"]
    assert [str(path.get_entry(frame).value) for frame in range(1, 61)] != before
    app.project.history.undo(1)
    assert [str(path.get_entry(frame).value) for frame in range(1, 61)] == before
""")
    assert done.returncode == 0, done.stderr


REFUSALS = {
    "no such peg": (["Top/Whale"], 'wiggle: there is no peg "Top/Whale" in the scene "Scene-1".'),
    "no path": (["Top/Stone"], "wiggle: the position of Top/Stone follows no 3D path."),
    "too many waves": (["Top/Fish", "--waves", 15],
                       "wiggle: 56 frames are too few for 15 waves: each takes 4 or more."),
    "frames beyond the scene": (["Top/Fish", "--frames", 5, 61],
                                "wiggle: the frames are not a stretch of the scene's 60."),
    "no such scene": (["Top/Fish", "--scene", "Nothing"], 'wiggle: the project has no scene "Nothing".'),
}


@pytest.mark.parametrize("arguments, sentence", REFUSALS.values(), ids=REFUSALS)
def test_what_cannot_be_done_is_one_line_and_changes_nothing(project, arguments, sentence):
    before = support.files(project)
    assert wiggle(project, *arguments) == (1, [], sentence + "\n")
    assert support.files(project) == before


@pytest.mark.parametrize("arguments, said", [
    (("--amplitude", "nan"), "an amplitude is a finite number"), (("--waves", "0"), "there is 1 wave or more"),
    (("--length", "3"), "a wave takes 4 frames or more"), (("--length", "8", "--waves", "2"), "not allowed with"),
])
def test_arguments_that_do_not_fit_are_told(project, arguments, said):
    code, _, error = wiggle(project, "Top/Fish", *arguments)
    assert code == 2 and said in error and "Traceback" not in error


def test_help_says_what_it_does():
    code, lines, _ = wiggle("--help")
    assert code == 0 and any("--amplitude" in line for line in lines)
