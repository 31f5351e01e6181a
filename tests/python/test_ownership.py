"""Objects of the object model live as long as the script holds them, wherever they pass, and not longer."""

import gc
import threading
import weakref

import brindle
import pytest

import support


@pytest.fixture
def live(app):
    """How many objects are alive beyond those of the fixtures."""
    gc.collect()
    start = brindle._live_objects()

    def count():
        gc.collect()
        return brindle._live_objects() - start

    return count


# Every way on which an object comes to a script.
ARRIVALS = {
    "a property": lambda r: r["scene"].top,
    "a property of a mixed type": lambda r: r["peg"].position,
    "a property of a list of objects": lambda r: r["out-port"].destinations,
    "a method": lambda r: r["peg"].parent_scene(),
    "a getter": lambda r: r["scene"].get_nodes(),
    "an item by index": lambda r: r["nodes of the scene"][0],
    "an item by name": lambda r: r["nodes of the scene"]["Top/Display"],
    "the call operator": lambda r: r["nodes of the scene"]("Top/Display"),
    "a slice": lambda r: r["nodes of the scene"][:],
    "list()": lambda r: r["nodes of the scene"].list(),
    "list() of Python": lambda r: list(r["nodes of the scene"]),
    "a loop in the middle": lambda r: next(iter(r["nodes of the scene"])),
    "an iterator": lambda r: iter(r["nodes of the scene"]),
    "a search": lambda r: r["nodes of the scene"].find("Sample"),
    "a copy": lambda r: r["peg"].copy(),
    "a created node": lambda r: r["nodes of the scene"].create("PEG", "new"),
    "a created port": lambda r: r["dynamic in-ports"].create(),
    "a link": lambda r: r["in-port"].link(r["peg"]),
    "a cable's ends": lambda r: (r["cable"].source, r["cable"].destination_node),
    "a list of cables": lambda r: r["cables"].list(),
    "a loop over flat cables": lambda r: [c.source_node for c in r["flat cables"]],
    "an attribute": lambda r: r["peg"].attributes["position.x"],
    "a column": lambda r: r["double attribute"].column,
    "the values of a column": lambda r: list(r["column"]),
    "list() of a column": lambda r: r["column"].list(),
    "created keyframes": lambda r: r["column"].keyframe_create([3, 4]),
    "a keyframe's neighbours": lambda r: (r["keyframe"].keyframe_previous, r["keyframe"].keyframe_next),
    "control points": lambda r: [p for p in r["control points"]],
    "a bound method": lambda r: r["peg"].parent_scene,
    "a bound getter": lambda r: r["peg"].get_position,
    "a value class": lambda r: brindle.Point2d(1, 2),
    "the application": lambda r: brindle.application().scene,
}

# Calls that take objects, in every form.
TAKERS = {
    "an argument": lambda r: r["out-port"].link(r["camera"]),
    "an argument in a list": lambda r: r["out-port"].link([r["camera"], 0]),
    "an argument in a list of lists": lambda r: r["nodes of the scene"].remove([[r["camera"]], [[r["read"]]]]),
    "an argument in a dict": lambda r: r["nodes of the scene"].find({"name": "x", "other": r["peg"]}),
    "a written property": lambda r: setattr(r["peg"], "position", brindle.Point2d(3, 4)),
    "a written property of objects": lambda r: setattr(r["double attribute"], "column", r["column"]),
    "a written item": lambda r: r["column"].__setitem__(7, r["column value"]),
    "a comparison": lambda r: r["peg"] == r["camera"],
    "membership": lambda r: r["peg"] in r["nodes of the scene"],
    "membership in cables": lambda r: r["peg"] in r["cables"],
    "a port": lambda r: r["dynamic in-ports"].create(r["dynamic in-ports"][0], True),
}

FAILURES = {
    "an index out of range": lambda r: r["nodes of the scene"][1000],
    "a read-only list": lambda r: r["nodes of the scene"].set(0, r["peg"]),
    "a refused argument": lambda r: r["out-port"].link(r["scene"]),
    "a wrong type": lambda r: r["peg"].attributes["angle"].set_value(r["peg"], 1),
    "a wrong count": lambda r: r["peg"].parent_scene(r["camera"]),
    "a list that turns out bad": lambda r: r["nodes of the scene"].find([r["peg"], r["camera"], b"bad"]),
    "a refused link": lambda r: r["out-port"].link(r["peg"]),
    "a refused group": lambda r: r["nodes of the scene"].create("PEG", r["peg"], "x"),
    "a read-only property": lambda r: setattr(r["scene"], "top", r["peg"]),
    "an unsupported property": lambda r: r["scene"].sounds,
}


@pytest.mark.parametrize("name", ARRIVALS)
def test_what_arrives_is_alive_while_it_is_held_and_no_longer(rig, live, name):
    ARRIVALS[name](rig)
    assert live() == 0
    held = ARRIVALS[name](rig)
    assert live() >= (0 if name in ("a bound method", "a bound getter") else 1)
    repr(held)
    del held
    assert live() == 0


@pytest.mark.parametrize("name", TAKERS)
def test_what_is_passed_in_stays_the_scripts(rig, live, name):
    before = {key: id(value) for key, value in rig.items()}
    TAKERS[name](rig)
    assert live() == 0
    assert {key: id(value) for key, value in rig.items()} == before
    for value in rig.values():
        repr(value)


@pytest.mark.parametrize("name", FAILURES)
def test_a_failure_leaves_no_object_behind(rig, live, name):
    for _ in range(3):
        with pytest.raises((brindle.Error, TypeError)):
            FAILURES[name](rig)
    assert live() == 0


def test_a_held_failure_holds_no_object(rig, live):
    failure = None
    try:
        rig["nodes of the scene"][1000]
    except brindle.Error as error:
        failure = error.with_traceback(None)
    assert live() == 0
    assert str(failure) == "Index is out of range."


def test_a_list_holds_as_many_objects_as_it_has_items(rig, live):
    nodes = list(rig["nodes of the scene"])
    assert live() == len(nodes)
    del nodes[::2]
    assert live() == len(nodes)


def test_a_chain_of_properties_keeps_only_its_end(rig, live):
    value = rig["application"].scene.nodes["Top/Sample-Peg"].attributes["position"].subattributes["x"]
    assert live() == 1
    assert value.localvalue() == 0.0


def test_a_loop_that_is_left_gives_its_objects_back(rig, live):
    for node in rig["nodes of the scene"]:
        break
    assert live() == 1
    del node
    assert live() == 0


def test_a_generator_over_nodes_gives_its_objects_back(rig, live):
    names = (node.name for node in rig["nodes of the scene"])
    next(names)
    assert live() > 0
    names.close()
    del names
    assert live() == 0


def test_objects_in_a_cycle_are_collected(rig, live):
    class Holder:
        pass

    holder = Holder()
    holder.me = holder
    holder.nodes = list(rig["nodes of the scene"])
    holder.point = brindle.Point3d()
    assert live() == len(holder.nodes) + 1
    del holder
    assert live() == 0


def test_an_object_that_holds_its_own_getter_is_collected(live):
    class Own(brindle.Point2d):
        pass

    own = Own()
    own.getter = own.get_objectName
    own.setter = own.set_objectName
    del own
    assert live() == 0


def test_a_weak_reference_dies_with_its_object(rig, live):
    node = rig["scene"].top
    gone = []
    seen = weakref.ref(node, gone.append)
    assert seen() is node
    del node
    assert seen() is None and gone == [seen]
    assert live() == 0


def test_a_weak_dictionary_loses_its_objects(rig, live):
    points = weakref.WeakValueDictionary()
    point = brindle.Point2d()
    points["a"] = point
    assert points["a"] is point
    del point
    assert "a" not in points


def test_a_bound_method_keeps_its_object(rig, live):
    scene = rig["peg"].parent_scene().get_name
    assert live() == 1
    assert scene() == "Scene-1"


def test_the_object_that_is_passed_is_the_one_that_is_used(rig):
    angle = rig["double attribute"]
    column = rig["column"]
    angle.unlink()
    assert angle.link(column)
    assert angle.column.name == column.name
    assert rig["application"].__enter__() is rig["application"] is brindle.application()


def test_objects_outlive_the_project_and_go_when_they_are_dropped(app, rig, live):
    held = [sample.copy() for name, sample in rig.items() if name not in ("application", "views")]
    app.close()
    ports = 2 * 2 + 2 * 1  # Ports held by the copies of two cables and of two lists of cables.
    blocks = 2  # The history that the copy of the bracket holds, and the art layer of the block that edits it.
    assert live() == len(held) + ports + blocks
    assert all(map(repr, held))
    held.clear()
    assert live() == 0


def test_threads_may_drop_objects(rig, live):
    nodes = rig["nodes of the scene"]

    def work():
        for _ in range(200):
            held = [node.attributes for node in nodes]
            held.reverse()
            del held

    threads = [threading.Thread(target=work) for _ in range(4)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert live() == 0


def test_a_thread_may_drop_what_another_one_got(rig, live):
    held = [list(rig["nodes of the scene"]) for _ in range(100)]
    thread = threading.Thread(target=held.clear)
    thread.start()
    thread.join()
    assert live() == 0


def test_a_thousand_reads_leave_nothing(rig, live):
    for _ in range(1000):
        rig["peg"].attributes["position.x"].node().parent_scene().nodes
    assert live() == 0


def test_nothing_is_left_at_the_end_of_a_script(tmp_path):
    done = support.run_python("""
import brindle, sys
sys.path.insert(0, sys.argv[2])
import support
app = brindle.create(sys.argv[1])
samples = support.samples(app)
kept = [list(sample) for sample in samples.values() if hasattr(type(sample), "__iter__")]
""", tmp_path / "p", support.ROOT / "tests/python")
    assert (done.returncode, done.stderr) == (0, "")
