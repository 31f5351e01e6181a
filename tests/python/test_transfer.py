"""The example transfer.py: the animation of one chain of pegs goes to another."""

import brindle
import pytest

import support

SCRIPT = support.ROOT / "examples" / "transfer.py"


def chain(app, name, count):
    pegs = []
    for index in range(count):
        peg = app.scene.nodes.create("PEG", f"{name}{index or ''}")
        if pegs:
            peg.ports_in[0].link(pegs[-1])
        pegs.append(peg)
    return pegs


@pytest.fixture
def project(tmp_path):
    """Two chains of three pegs; the first one is animated, the second one has a key of its own."""
    folder = tmp_path / "walk"
    with brindle.create(folder) as app:
        arm, leg = chain(app, "Arm", 3), chain(app, "Leg", 3)
        for frame, x in ((1, 0.0), (10, 4.0), (30, -2.0)):
            arm[0].attributes["position.x"].set_value(frame, x)
        for frame, angle in ((5, 10.0), (25, 50.0)):
            arm[2].attributes["angle"].set_value(frame, angle)
        leg[0].attributes["position.x"].set_value(12, 99.0)
        leg[0].attributes["position.x"].set_value(50, 7.0)
        read = app.scene.nodes.create("READ", "Drawing")
        read.ports_in[0].link(leg[2])
        app.save()
    return folder


def transfer(*arguments):
    done = support.run_command("run", SCRIPT, *arguments)
    return done.returncode, done.stdout.splitlines(), done.stderr


def number(app, path, part):
    return app.scene.nodes[path].attributes[part]


def test_the_whole_animation_goes_to_the_other_chain(project):
    code, lines, error = transfer(project, "Top/Arm", "Top/Leg")
    assert (code, error) == (0, "")
    assert lines == ["Top/Leg: position.x: 4 keys", "Top/Leg2: angle: 4 keys", f"Saved {project}"]
    with brindle.open(project) as app:
        for one, other, part in (("Top/Arm", "Top/Leg", "position.x"), ("Top/Arm2", "Top/Leg2", "angle")):
            given, taken = number(app, one, part), number(app, other, part)
            assert [taken.value(frame) for frame in range(1, 61)] == pytest.approx(
                [given.value(frame) for frame in range(1, 61)], abs=1e-9)
        assert number(app, "Top/Leg1", "angle").column is None


def test_a_stretch_goes_to_another_frame_with_an_offset(project, tmp_path):
    before = support.files(project)
    out = tmp_path / "out"
    code, _, _ = transfer(project, "Top/Arm", "Top/Leg", "--frames", 5, 15, "--to", 8, "--offset", 1, 2, 3, "--out", out)
    assert code == 0
    assert support.files(project) == before
    with brindle.open(out) as app:
        given, taken = number(app, "Top/Arm", "position.x"), number(app, "Top/Leg", "position.x")
        assert [taken.value(frame + 3) for frame in range(5, 16)] == pytest.approx(
            [given.value(frame) + 1 for frame in range(5, 16)], abs=1e-9)
        assert taken.column.keyframe_list() == [8, 13, 18, 50], "what lies outside stays"
        assert number(app, "Top/Leg", "position.y").column is None, "what isn't animated has no offset"
        assert given.column.keyframe_list() == [1, 10, 30], "the source is as it was"


REFUSALS = {
    "no such peg": (["Top/Arm", "Top/Nobody"], 'transfer: there is no peg "Top/Nobody" in the scene "Scene-1".'),
    "no peg": (["Top/Drawing", "Top/Arm"], 'transfer: there is no peg "Top/Drawing" in the scene "Scene-1".'),
    "a chain too short": (["Top/Arm", "Top/Leg1"],
                          "transfer: the chain of Top/Arm has 3 pegs, that of Top/Leg1 only 2."),
    "frames beyond the scene": (["Top/Arm", "Top/Leg", "--frames", 5, 61],
                                "transfer: the frames are not a stretch of the scene's 60."),
    "no frame": (["Top/Arm", "Top/Leg", "--to", 0], "transfer: frames count from 1."),
    "no such scene": (["Top/Arm", "Top/Leg", "--scene", "Nothing"], 'transfer: the project has no scene "Nothing".'),
}


@pytest.mark.parametrize("arguments, sentence", REFUSALS.values(), ids=REFUSALS)
def test_what_cannot_be_done_is_one_line_and_changes_nothing(project, arguments, sentence):
    before = support.files(project)
    code, lines, error = transfer(project, *arguments)
    assert (code, lines, error) == (1, [], sentence + "\n")
    assert support.files(project) == before


def test_help_says_what_it_does():
    code, lines, _ = transfer("--help")
    assert code == 0 and any("--offset" in line for line in lines)
