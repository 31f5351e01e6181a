"""A character to copy, and what of it is there after a paste."""

import json

import support

ANGLES = ((1, 0.0), (12, 60.0), (24, -20.0))
POSES = ((1, "1"), (7, "2"), (13, "3"))


def picture(folder, name, grey):
    """The path of a picture of one pixel."""
    path = folder / f"{name}.png"
    path.write_bytes(support.png(grey))
    return path


def make_character(app, folder, name="Hero", shade=0):
    """A group with a peg "Arm", which turns, a peg "Hand" on it, and "Drawing" on that one, which shows three drawings
    of an element of the character's name. The project gets a palette of that name. Pictures are made in the folder, all
    of them different; `shade` makes those of characters so. Gives the group."""
    scene = app.scene
    group = scene.nodes.create("GROUP", name)
    arm = group.nodes.create("PEG", "Arm")
    hand = group.nodes.create("PEG", "Hand")
    drawing = group.nodes.create("READ", "Drawing")
    hand.ports_in[0].link(arm)
    drawing.ports_in[0].link(hand)
    for frame, angle in ANGLES:
        arm.attributes["angle"].set_value(frame, angle)
    arm.attributes["angle"].column.name = f"{name}-Angle"
    hand.attributes["pivot.x"].set_localvalue(2.5)
    hand.attributes.create_dynamic_attr("Strength", "DOUBLE")
    hand.attributes["Strength"].set_localvalue(0.75)
    hand.metadata["Role"] = "left"
    hand.position = [40, 80]
    group.backdrops.create(f"The arm of {name}")
    column = scene.columns.create("DRAWING", name, {"createNode": False})
    column.element.vector_type = ""
    for frame, pose in POSES:
        column.element.drawings.create(pose).import_file(picture(folder, f"{name}-{pose}", shade + int(pose)))
        column[frame] = pose
    drawing.attributes["drawing.element"].link(column)
    palette = app.project.palettes.create("Colour", name)
    palette[0].name, palette[0].colour = "Skin", [200, 150, 100]
    app.project.history.clear()
    return group


def cells(column, count=60):
    """The names in the cells of a drawing column, a point for an empty one."""
    return "".join(column.get_entry(frame) or "." for frame in range(1, count + 1))


def cell_of(node):
    return node.attributes["drawing"].column


def curve(attribute, first=1, last=60):
    """The values of an attribute, rounded to what a picture shows."""
    return [round(attribute.value(frame), 6) for frame in range(first, last + 1)]


def nodes_of(scene):
    return {node.path: node.type for node in scene.nodes}


def saved(app, folder):
    """The saved form of the project without the palettes that were put aside."""
    return {name: content for name, content in support.saved(app, folder).items() if "/.deleted/" not in name}


def add_scene(folder, name):
    """Gives a project that isn't open another, empty scene."""
    project = json.loads((folder / "project.json").read_text())
    project["scenes"].append(f"scenes/{name}.json")
    (folder / "project.json").write_text(json.dumps(project))
    scene = json.loads((folder / project["scenes"][0]).read_text())
    del scene["display"]
    scene |= {"name": name, "nodes": scene["nodes"][:1], "columns": []}
    (folder / "scenes" / f"{name}.json").write_text(json.dumps(scene))
