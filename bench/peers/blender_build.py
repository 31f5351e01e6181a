"""Makes a Blender file of a scene that bench/peers/blender.py has described. Runs inside of Blender:

    blender -b --factory-startup -P blender_build.py -- DESCRIPTION.json FILE.blend
"""

import json
import math
import os
import sys

import bpy

BEHIND = 0.002  # units between a drawing and the next one: what is nearer to the camera lies above
THICKNESS = 1000.0  # of a line, in parts of a unit


def linear(channel):
    """A channel of sRGB, 0 to 255, as light."""
    value = channel / 255
    return value / 12.92 if value <= 0.04045 else ((value + 0.055) / 1.055) ** 2.4


class Builder:
    def __init__(self, told):
        self.told = told
        self.drawings = 0
        self.materials = {}

    def scene(self):
        scene = bpy.context.scene
        for item in list(bpy.data.objects):
            bpy.data.objects.remove(item)
        render = scene.render
        render.engine = "BLENDER_WORKBENCH"
        render.resolution_x, render.resolution_y = self.told["size"]
        render.resolution_percentage = 100
        render.film_transparent = True
        render.dither_intensity = 0.0
        render.image_settings.file_format, render.image_settings.color_mode = "PNG", "RGBA"
        for name in dir(render):
            if name.startswith("use_stamp_"):
                setattr(render, name, False)
        scene.view_settings.view_transform = "Standard"
        scene.frame_start, scene.frame_end = 1, self.told["frames"]
        eye = bpy.data.objects.new("Camera", bpy.data.cameras.new("Camera"))
        eye.data.type, eye.data.ortho_scale = "ORTHO", self.told["size"][0] / self.told["unit"]
        eye.location.z = 10
        scene.collection.objects.link(eye)
        scene.camera = eye

    def material(self, data, colour, line):
        key = *colour, line
        if key not in self.materials:
            made = bpy.data.materials.new("Paint")
            bpy.data.materials.create_gpencil_data(made)
            pencil = made.grease_pencil
            pencil.show_stroke, pencil.show_fill = line, not line
            rgba = [*map(linear, colour[:3]), colour[3] / 255]
            pencil.color = pencil.fill_color = rgba
            self.materials[key] = made
        place = data.materials.find(self.materials[key].name)
        if place < 0:
            data.materials.append(self.materials[key])
            place = len(data.materials) - 1
        return place

    def drawing(self, told):
        data = bpy.data.grease_pencils.new(told["name"])
        data.stroke_thickness_space = "WORLDSPACE"
        layer = data.layers.new("Layer")
        layer.use_lights = False
        strokes = layer.frames.new(1).strokes
        for number, one in enumerate(told["strokes"]):
            stroke = strokes.new()
            line = one["widths"] is not None
            stroke.display_mode = "3DSPACE"
            stroke.use_cyclic = not line
            stroke.material_index = self.material(data, one["colour"], line)
            stroke.points.add(len(one["points"]))
            stroke.points.foreach_set("co", [value for x, y in one["points"] for value in (x, y, 0.0)])
            if line:
                widest = max(one["widths"])
                stroke.line_width = round(widest * THICKNESS)
                stroke.points.foreach_set("pressure", [width * THICKNESS / stroke.line_width for width in one["widths"]])
        made = bpy.data.objects.new(told["name"], data)
        self.drawings += 1
        made.location.z = self.drawings * BEHIND
        return made

    def build(self, told, parent):
        if "strokes" in told:
            made = self.drawing(told)
        elif "ends" in told:
            made = bpy.data.objects.new("Peg", None)
            for frame, (x, y, angle) in zip((1, self.told["frames"]), told["ends"]):
                made.location = x, y, 0.0
                made.rotation_euler.z = math.radians(angle)
                made.keyframe_insert("location", frame=frame)
                made.keyframe_insert("rotation_euler", index=2, frame=frame)
            for curve in made.animation_data.action.fcurves:
                for key in curve.keyframe_points:
                    key.interpolation = "LINEAR"
        else:
            made = parent
        if made is not parent:
            made.parent = parent
            bpy.context.scene.collection.objects.link(made)
        for child in told.get("children", ()):
            self.build(child, made)


def main():
    description, file = sys.argv[sys.argv.index("--") + 1:]
    with open(description) as told:
        builder = Builder(json.load(told))
    builder.scene()
    builder.build(builder.told["root"], None)
    bpy.ops.wm.save_as_mainfile(filepath=os.path.abspath(file), compress=False)


if __name__ == "__main__":
    main()
