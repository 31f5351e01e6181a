"""A script's operations in Blender's Python: objects of a scene, keyframes of one object's action, Blender's own undo."""

import pathlib
import sys

import bpy

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))

from report import COUNT, ROUNDS, Report, parent_of  # noqa: E402

WRITE = "node.location.x = 1.5; bpy.ops.ed.undo_push(message='w')"


def empty():
    bpy.ops.wm.read_factory_settings(use_empty=True)


def create():
    link = bpy.context.scene.collection.objects.link
    nodes = []
    for index in range(COUNT):
        node = bpy.data.objects.new(f"N{index}", None)
        link(node)
        if index:
            node.parent = nodes[parent_of(index)]
        nodes.append(node)


def main():
    report = Report()
    empty()
    node = bpy.data.objects.new("Arm", None)
    bpy.context.scene.collection.objects.link(node)
    scene = bpy.context.scene
    report.short(dict(bpy=bpy, scene=scene, node=node), integer="scene.frame_end", text="node.name", object="scene.render")
    write(report, "write")
    keys(report)
    empty()
    with report.long("create", "bpy.data.objects.new(name, None); collection.objects.link(node); node.parent = parent  # no undo"):
        create()
    name = f"N{COUNT // 2}"
    report.short(dict(bpy=bpy, name=name), find="bpy.data.objects[name]",
                 chain="bpy.context.scene.objects[name].location.x")
    for _ in range(ROUNDS):
        with report.long("iterate", "for node in scene.objects: node.name", COUNT):
            for node in bpy.context.scene.objects:
                node.name
    write(report, "write_many")
    for _ in range(ROUNDS):
        bpy.ops.ed.undo_push(message="before")
        for node in bpy.context.scene.objects:
            node.location.x = 7
        bpy.ops.ed.undo_push(message="writes")
        with report.long("undo", "bpy.ops.ed.undo()"):
            bpy.ops.ed.undo()
    file = f"{report.folder}/many.blend"
    for _ in range(ROUNDS):
        with report.save("save", "bpy.ops.wm.save_as_mainfile(filepath=file)"):
            bpy.ops.wm.save_as_mainfile(filepath=file)
        with report.save("open", "bpy.ops.wm.open_mainfile(filepath=file)"):
            bpy.ops.wm.open_mainfile(filepath=file)
    report.write()


def write(report, key, times=20):
    """An undo step is of the whole file: a few of them."""
    node = bpy.context.scene.objects[-1]
    bpy.ops.ed.undo_push(message="start")
    for _ in range(ROUNDS):
        with report.long(key, WRITE, times):
            for step in range(times):
                node.location.x = step
                bpy.ops.ed.undo_push(message="w")


def keys(report):
    node = bpy.context.scene.objects[-1]
    with report.long("keys", "node.keyframe_insert('location', index=0, frame=frame)", COUNT):
        for frame in range(1, COUNT + 1):
            node.location.x = frame % 97
            node.keyframe_insert("location", index=0, frame=2 * frame)
    curves = node.animation_data.action.fcurves
    numbers = [number for frame in range(COUNT) for number in (frame, frame % 97)]
    for axis in range(1, 1 + ROUNDS):
        curve = curves.new("location" if axis < 3 else "scale", index=axis % 3)
        with report.long("keys_at_once", "curve.keyframe_points.add(n); curve.keyframe_points.foreach_set('co', numbers)", COUNT):
            curve.keyframe_points.add(COUNT)
            curve.keyframe_points.foreach_set("co", numbers)
    curve = curves.find("location", index=0)
    report.short(dict(curve=curve), evaluate=f"curve.evaluate({COUNT + 1})")


main()
