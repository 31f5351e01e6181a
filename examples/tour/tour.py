"""The tour: a walk cycle from a model sheet, a timing and an exposure sheet, the way a script makes one.

    ./run                       makes it in build/tour
    ./run examples/tour/tour.py FOLDER
"""

import argparse
import pathlib
import shutil
import time

import brindle

import character
import graph_svg
import sheets
import walkpictures

HERE = pathlib.Path(__file__).resolve().parent
DEFAULT_FOLDER = HERE.parent.parent / "build" / "tour"
MADE = {"walk-cycle", "graph.svg", "walk.png", "walk.gif"}


def say(text: str) -> None:
    print(f"  {text}", flush=True)


def make_drawings(scene: brindle.Scene, parts: list[sheets.Part],
                  exposures: list[sheets.Exposure]) -> dict[str, brindle.ElementColumn]:
    """A drawing column for each element, which left and right parts share; one that is not on the sheet has one drawing."""
    columns: dict[str, brindle.ElementColumn] = {}
    for name in dict.fromkeys([*(part.drawing for part in parts if part.drawing), "hill"]):
        column = scene.columns.create("DRAWING", name, {"createNode": False})
        assert isinstance(column, brindle.ElementColumn)
        columns[name] = column
    changing = {exposure.element for exposure in exposures}
    for exposure in [*exposures, *(sheets.Exposure(name, 1, "1") for name in columns if name not in changing)]:
        columns[exposure.element][exposure.frame] = exposure.drawing
    return columns


def build_rig(scene: brindle.Scene, parts: list[sheets.Part],
              columns: dict[str, brindle.ElementColumn]) -> dict[str, brindle.Node]:
    """A peg and, where the part has a drawing, a read node each; children hang on their parent's peg."""
    composite = scene.nodes["Top/Composite"].ports_in
    assert isinstance(composite, brindle.MultiInPortList)  # Its ports come and go.
    pegs: dict[str, brindle.Node] = {}
    reads: dict[int, brindle.Node] = {}
    for part in parts:
        peg = scene.nodes.create("PEG", f"{part.name}-P")
        peg.position = [part.column * 140, part.depth * 90 - 600]
        peg.attributes["pivot.x"].set_localvalue(part.pivot[0])
        peg.attributes["pivot.y"].set_localvalue(part.pivot[1])
        if part.parent:
            peg.ports_in[0].link(pegs[part.parent])
        if part.drawing:
            read = scene.nodes.create("READ", part.name)
            read.position = [part.column * 140 + 60, part.depth * 90 - 555]
            read.ports_in[0].link(peg)
            read.attributes["drawing.element"].link(columns[part.drawing])
            # A drawing is made about its joint.
            read.attributes["position.x"].set_localvalue(part.pivot[0])
            read.attributes["position.y"].set_localvalue(part.pivot[1])
            reads[part.layer] = read
        pegs[part.name] = peg
    set_stage(scene, columns["hill"])
    for layer in sorted(reads):
        composite.create().link(reads[layer])
    return pegs


def set_stage(scene: brindle.Scene, hill: brindle.ElementColumn) -> None:
    """The hill behind all else, and a camera that follows Pip over it."""
    composite = scene.nodes["Top/Composite"].ports_in
    assert isinstance(composite, brindle.MultiInPortList)
    back = scene.nodes.create("READ", "Hill")
    back.position = [-200, -555]
    back.attributes["drawing.element"].link(hill)
    back.attributes["position.x"].set_localvalue(4.0)
    composite.create().link(back)
    camera = scene.nodes.create("CAMERA", "Camera")
    camera.position = [-200, 120]
    camera.attributes["position.y"].set_localvalue(4.9)
    for axis in ("x", "y"):
        camera.attributes[f"scale.{axis}"].set_localvalue(0.58)
    for frame, x in ((1, 1.2), (48, 6.8)):
        camera.attributes["position.x"].set_value(frame, x)
    scene.camera = camera


def set_keys(pegs: dict[str, brindle.Node], keys: list[sheets.Key]) -> None:
    """One bezier column an attribute, one key a cell of the timing sheet."""
    for key in keys:
        pegs[key.part].attributes[key.attribute].set_value(key.frame, key.value)


def told_exposures(column: brindle.ElementColumn) -> list[str]:
    """A few words for each key exposure of a column whose first frame has one."""
    told = []
    frame: int | None = 1
    while frame is not None:
        told.append(f"{column.get_entry(frame)} from {frame}")
        frame = column.key_exposure_next(frame)
    return told


def state_of(scene: brindle.Scene) -> dict[str, object]:
    """What the scene shows, for a comparison: every node, its links, and every linked attribute over all frames."""
    frames = range(1, scene.frame_count + 1)
    state: dict[str, object] = {}
    for node in scene.nodes:
        links = [port.source_node.path for port in node.ports_in if port.source_node] if node.type != "GROUP" else []
        curves = {}
        for attribute in node.attributes:
            for part in [attribute, *(attribute.subattributes or [])]:
                if part.column_name:
                    curves[part.full_keyword] = [part.value(frame) for frame in frames]
        state[node.path] = (node.type, links, curves)
    return state


def main(folder: pathlib.Path) -> None:
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    begin = time.perf_counter()
    print(f"A walk cycle in {folder}")

    parts = sheets.read_rig(HERE / "data" / "rig.json")
    keys = sheets.read_walk(HERE / "data" / "walk.csv")
    exposures = sheets.read_exposures(HERE / "data" / "exposures.csv")
    app = brindle.create(folder / "walk-cycle")
    scene, history = app.scene, app.project.history
    scene.frame_count = 48
    say(f"made a project: scene {scene.name}, {scene.frame_count} frames at {scene.framerate:g} fps")

    history.begin("Walk cycle")
    columns = make_drawings(scene, parts, exposures)
    character.draw_all(columns, character.make_palette(app.project))
    pegs = build_rig(scene, parts, columns)
    set_keys(pegs, keys)
    history.end()
    say(f"built {len(parts)} parts, {len(scene.nodes)} nodes, and set {len(keys)} keys as one step: {history.list()[-1]!r}")

    count = sum(len(element.drawings) for element in app.elements)
    say(f"exposed {count} drawings of {len(app.elements)} elements on the sheet")
    say(f"the head blinks: {', '.join(told_exposures(columns['head'])[:5])}")

    knee = pegs["Shin-L"].attributes["angle"]
    for frame in (1, 5, 7, 9):
        mark = "key" if any(k.frame == frame and k.part == "Shin-L" for k in keys) else "in-between"
        say(f"the left knee at frame {frame}: {knee.value(frame):7.2f} degrees ({mark})")
    if column := knee.column:
        say(f"it is driven by the column {column.display_name!r} of type {column.type}")

    before = state_of(scene)
    history.undo(1)
    say(f"undid it: {len(scene.nodes)} nodes and {len(app.elements)} elements left; the knee says: {error_of(knee)}")
    history.redo(1)
    check(state_of(scene) == before, "redoing gives the same scene")
    say(f"did it again: {len(scene.nodes)} nodes, the same curves and drawings in every frame")

    picture = folder / "graph.svg"
    picture.write_text(graph_svg.draw(scene))
    app.save()
    app.close()
    app = brindle.open(folder / "walk-cycle")
    check(state_of(app.scene) == before, "what was saved is what was there")
    say("saved, closed, opened again: the same scene")
    for made in walkpictures.draw_walk(app.scene, folder):
        say(f"drew {made}")
    app.close()
    print(f"Done in {time.perf_counter() - begin:.2f} s. The node graph: {picture}")


def error_of(attribute: "brindle.AnyAttribute") -> str:
    try:
        return repr(attribute.value(1))
    except brindle.Error as error:
        return str(error)


def check(holds: bool, what: str) -> None:
    if not holds:
        raise SystemExit(f"The tour went wrong: not true that {what}.")


def belongs_to_somebody(folder: pathlib.Path) -> bool:
    """Whether there is anything that isn't an earlier tour, which the tour replaces."""
    if not folder.is_dir():
        return folder.exists()
    names = {path.name for path in folder.iterdir()}
    return bool(names) and not {"graph.svg"} <= names <= MADE


if __name__ == "__main__":
    parser = argparse.ArgumentParser(description="A walk cycle, the way a script makes one.")
    parser.add_argument("folder", type=pathlib.Path, nargs="?", default=DEFAULT_FOLDER,
                        help="where to make it, a new or empty folder; build/tour by default")
    chosen = parser.parse_args().folder
    if chosen != DEFAULT_FOLDER and belongs_to_somebody(chosen):
        parser.error(f"{chosen} is not an empty folder")
    main(chosen)
