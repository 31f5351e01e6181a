"""A random program over a project's settings, frames, brackets and the folder, beside a model of all that it changes."""

import math
import shutil
from dataclasses import replace

import brindle
from hypothesis import strategies as st
from hypothesis.stateful import invariant, precondition, rule

import support
from settingsmodel import NAMED, Settings, Timing
from undomodel import NAME, UndoModel

SCENE = st.integers(0, 1)
AXIS = st.sampled_from("xy")
AT = st.one_of(st.integers(0, 60), st.sampled_from([-1, 1000, 2**31 - 1, -(2**31)]))
NUMBER = st.one_of(st.floats(0.01, 400), st.sampled_from([0.0, -1.0, 1e-9, 1e12, math.nan, math.inf]))
WHOLE = st.one_of(st.integers(1, 40), st.sampled_from([0, -1, 2**31 - 1, -(2**31)]))
OPTIONS = st.one_of(st.none(), st.tuples(st.booleans(), st.booleans()))

SAMPLE = Settings(size=(720, 500), name="", colour_space="Display P3", ratio=(48, 3), chart=(8.0, 12.0, 8.0),
                  center=(3, -2), vector=0.96, scenes=(
                      Timing(50, 3, 40, 25.0, (1, 12, 24, 30, 48), "Top/Camera", "Display"),
                      Timing(60, 1, 60, 30.0, (1, 30), None, None)))


class Stop(Exception):
    """Leaves a block."""


class SettingsMachine(UndoModel):
    def make_project(self):
        """Two scenes with markers, cameras and keys; the model is written by hand, not read."""
        shutil.copytree(support.ROOT / "tests" / "data" / "projects" / "v2", self.folder)
        self.model = SAMPLE
        self.value = 1000.0
        return brindle.open(self.folder)

    def begin_anew(self):
        super().begin_anew()
        self.scenes = list(self.app.scenes)
        self.trail = [self.model]

    # The model.

    def read(self):
        """The project as the model has it."""
        size, scene = self.app.project.resolution, self.scenes[0]
        return {
            "size": (size.x, size.y), "name": size.default_name, "fov": size.default_FOV,
            "colour space": scene.colorspace, "aspect": (scene.aspect.x, scene.aspect.y),
            "units": (scene.units.x, scene.units.y, scene.units.z), "center": (scene.center.x, scene.center.y),
            "scenes": [(scene.frame_count, scene.frame_start, scene.frame_stop, scene.framerate,
                        tuple(self.curve(scene).keyframe_list()),
                        None if scene.camera is None else scene.camera_path, scene.display_name)
                       for scene in self.scenes],
        }

    @staticmethod
    def curve(scene):
        return next(column for node in scene.nodes if node.name in ("Arm", "Run")
                    for column in [node.attributes["angle"].column])

    @invariant()
    def the_project_is_as_the_model_has_it(self):
        model = self.model
        assert self.read() == {
            "size": model.size, "name": model.name, "fov": model.fov, "colour space": model.colour_space,
            "aspect": model.aspect(), "units": model.units(), "center": model.center,
            "scenes": [(scene.count, scene.start, scene.stop, scene.rate, scene.keys, scene.camera, scene.display)
                       for scene in model.scenes],
        }
        for scene in self.scenes:
            assert math.isclose(scene.vector_texture_pixel_density, model.density(model.vector))
            assert math.isclose(scene.bitmap_texture_pixel_density, model.density(model.bitmap))

    def change(self, label, call, model):
        """A change that is recorded."""
        self.model = model
        self.do(label, call)
        assert self.ran

    def nothing(self, call, message=None):
        """A call that changes nothing, with a failure or without."""
        before = self.saved()
        if message is None:
            call()
        else:
            assert support.message_of(call) == message
        assert not self.app.project.dirty
        assert self.saved() == before

    def do(self, label, call):
        done, pending = self.done, self.pending
        self.pending = False
        super().do(label, call)
        self.ran = self.pending or self.done != done
        self.pending = self.pending or pending

    def push(self, label):
        super().push(label)
        del self.trail[self.done:]
        self.trail.append(self.model)

    def opened(self, name):
        if self.bracket is None:
            self.before_bracket = self.model
        super().opened(name)

    def cancelled(self):
        super().cancelled()
        self.model = self.before_bracket

    # Settings of the project.

    @rule(axis=AXIS, pixels=st.one_of(st.integers(-1, 3000), st.sampled_from([32768, 32769, 2**31 - 1])))
    def resolution(self, axis, pixels):
        size = self.app.project.resolution
        if 1 <= pixels <= 32768:
            self.change(f"Set {axis.upper()} Resolution.", lambda: setattr(size, axis, pixels),
                        self.model.with_size(axis, pixels))
        else:
            self.nothing(lambda: setattr(size, axis, pixels), "Failed to set resolution.")

    @rule(name=st.sampled_from([*NAMED, "hd_1080", "", "?"]))
    def named_resolution(self, name):
        size = self.app.project.resolution
        if name in NAMED:
            self.change("Set Default Resolution Name", lambda: setattr(size, "default_name", name),
                        replace(self.model, name=name, size=NAMED[name], fov=Settings.fov))
        else:
            self.nothing(lambda: setattr(size, "default_name", name), "Named-resolution cannot be found.")

    @rule(index=SCENE, name=st.sampled_from(["sRGB", "Display P3", "Linear", "srgb", ""]))
    def colour_space(self, index, name):
        scene = self.scenes[index]
        if name == self.model.colour_space:
            self.nothing(lambda: setattr(scene, "colorspace", name))
        elif name in scene.colorspaces:
            self.change("Set Working Colour Space", lambda: setattr(scene, "colorspace", name),
                        replace(self.model, colour_space=name))
        else:
            self.nothing(lambda: setattr(scene, "colorspace", name), "Failed to set the colour space.")

    @rule(index=SCENE, axis=AXIS, value=NUMBER)
    def aspect(self, index, axis, value):
        aspect, place = self.scenes[index].aspect, "xy".index(axis)
        number = int(2 * self.model.chart[place]) * value
        if not abs(number) < 2**31:
            self.nothing(lambda: setattr(aspect, axis, value),
                         support.not_finite(axis) if not math.isfinite(value) else "Invalid argument at index 0.")
        elif int(number) < 1:
            self.nothing(lambda: setattr(aspect, axis, value))
        else:
            ratio = list(self.model.ratio)
            ratio[place] = int(number)
            self.change(f"Set {axis.upper()} Units Aspect Ratio", lambda: setattr(aspect, axis, value),
                        replace(self.model, ratio=tuple(ratio)))

    @rule(index=SCENE, axis=st.sampled_from("xyz"), value=WHOLE)
    def units(self, index, axis, value):
        units, place = self.scenes[index].units, "xyz".index(axis)
        chart = list(self.model.chart)
        chart[place] = value if axis == "z" else value * 0.5
        if 0.001 <= chart[place] <= 1_000_000:
            self.change(f"Set Number of {axis.upper()} Units", lambda: setattr(units, axis, value),
                        replace(self.model, chart=tuple(chart)))
        else:
            self.nothing(lambda: setattr(units, axis, value))

    @rule(index=SCENE, axis=AXIS, value=st.one_of(st.integers(-9, 9), st.sampled_from([2**31 - 1, -(2**31)])))
    def center(self, index, axis, value):
        center = (value, self.model.center[1]) if axis == "x" else (self.model.center[0], value)
        self.change("Set X Coordinate at Center", lambda: setattr(self.scenes[index].center, axis, value),
                    replace(self.model, center=center))

    @rule(index=SCENE, kind=st.sampled_from(["vector", "bitmap"]), value=NUMBER)
    def density(self, index, kind, value):
        scene, name = self.scenes[index], f"{kind}_texture_pixel_density"
        factor = value / self.model.density(1.0)
        if not math.isfinite(value):
            self.nothing(lambda: setattr(scene, name, value), support.not_finite(name))
        elif factor <= 0:
            self.nothing(lambda: setattr(scene, name, value))
        elif not math.isclose(factor, getattr(self.model, kind)):
            self.change(f"Edit Default {kind.capitalize()} Drawings Texture Pixel Density Scene Settings",
                        lambda: setattr(scene, name, value), replace(self.model, **{kind: factor}))

    # Frames, range and rate of the scenes.

    @rule(index=SCENE, count=st.one_of(st.integers(-1, 90), st.sampled_from([1_000_000, 1_000_001, 2**31 - 1])))
    def frame_count(self, index, count):
        scene, timing = self.scenes[index], self.model.scenes[index]
        shifted = timing.shifted(timing.count, count - timing.count)
        if count <= 0:
            self.nothing(lambda: setattr(scene, "frame_count", count),
                         "Framecount needs to be a positive value above one.")
        elif count == timing.count:
            self.nothing(lambda: setattr(scene, "frame_count", count))
        elif shifted:
            self.change("Set Number of Frames", lambda: setattr(scene, "frame_count", count),
                        self.model.with_scene(index, shifted))
        else:
            self.nothing(lambda: setattr(scene, "frame_count", count), "Failed to set the scene's frame count.")

    @rule(index=SCENE, at=AT, count=st.integers(-1, 9), removed=st.booleans(), options=OPTIONS)
    def frames(self, index, at, count, removed, options):
        scene, timing = self.scenes[index], self.model.scenes[index]
        call = scene.frame_remove if removed else scene.frame_insert
        given = () if options is None else (brindle.FrameOptions(*options),)
        shifted = timing.shifted(at, -count if removed else count) if count > 0 else None
        results = []
        if shifted:
            self.change("Remove Frames" if removed else "Set Number of Frames",
                        lambda: results.append(call(at, count, *given)), self.model.with_scene(index, shifted))
        else:
            self.nothing(lambda: results.append(call(at, count, *given)))
        assert results == [count >= 0]

    @rule(index=SCENE, frame=st.integers(-1, 70), first=st.booleans())
    def frame_range(self, index, frame, first):
        scene, timing = self.scenes[index], self.model.scenes[index]
        name, word = ("frame_start", "start") if first else ("frame_stop", "stop")
        if 1 <= frame <= timing.stop if first else timing.start <= frame <= timing.count:
            self.change(f"Set {word.capitalize()} Frame", lambda: setattr(scene, name, frame),
                        self.model.with_scene(index, replace(timing, **{word: frame})))
        else:
            self.nothing(lambda: setattr(scene, name, frame), f"Unable to set the {word} frame.")

    @rule(index=SCENE, rate=NUMBER)
    def framerate(self, index, rate):
        scene = self.scenes[index]
        if not math.isfinite(rate):
            self.nothing(lambda: setattr(scene, "framerate", rate), support.not_finite("framerate"))
        elif rate <= 0:
            self.nothing(lambda: setattr(scene, "framerate", rate), "Failed to set the frame rate.")
        else:
            self.change("Set Frame Rate", lambda: setattr(scene, "framerate", rate),
                        self.model.with_scene(index, replace(self.model.scenes[index], rate=rate)))

    @rule(index=SCENE, frame=st.integers(1, 70))
    def key(self, index, frame):
        column, timing = self.curve(self.scenes[index]), self.model.scenes[index]
        self.value += 1.0  # A value that no key has: the one that it has already is no change.
        self.change(f"Set Bezier Point {column.display_name}", lambda: column.__setitem__(frame, self.value),
                    self.model.with_scene(index, replace(timing, keys=tuple(sorted({*timing.keys, frame})))))

    # The settings of the scene's view.

    @rule(index=SCENE, path=st.sampled_from(["Top/Camera", "Top/Display", "Top/Nowhere", None, "", False]))
    def camera(self, index, path):
        scene, timing = self.scenes[index], self.model.scenes[index]
        after = self.model.with_scene(index, replace(timing, camera=path or None))

        def call():
            scene.camera = path

        if (path or None) == timing.camera:
            self.nothing(call)
        elif not path:
            self.change("Unsetting default camera.", call, after)
        elif scene.nodes[path] is None:
            self.nothing(call, "Unable to identyify specified camera node.")
        elif path != "Top/Camera":
            self.nothing(call, "No valid camera node specified.")
        else:
            self.change("Setting Top/Camera as camera.", call, after)

    @rule(index=SCENE, path=st.sampled_from(["Top/Display", "Top/Composite", "Top/Nowhere", None, 0]))
    def display(self, index, path):
        scene, timing = self.scenes[index], self.model.scenes[index]
        after = self.model.with_scene(index, replace(timing, display="Display" if path else None))

        def call():
            scene.display = path

        if bool(path) == bool(timing.display) and path in ("Top/Display", None, 0):
            self.nothing(call)
        elif not path:
            self.change("Unsetting default display.", call, after)
        elif path == "Top/Nowhere":
            self.nothing(call, "Unable to identyify specified display node.")
        elif path != "Top/Display":
            self.nothing(call, "No valid camera node specified.")
        else:
            self.change("Setting Top/Display as default display.", call, after)

    # The history and the folder.

    @rule(count=st.integers(0, 8))
    def undo(self, count):
        super().undo(count)
        if self.bracket is None:
            self.model = self.trail[self.done]

    @rule(count=st.integers(0, 8))
    def redo(self, count):
        super().redo(count)
        if self.bracket is None:
            self.model = self.trail[self.done]

    @precondition(lambda self: not self.depth)
    @rule()
    def clear(self):
        self.history.clear()
        self.labels, self.states, self.trail, self.done = [], [self.states[self.done]], [self.model], 0

    @rule(name=NAME, frame=st.integers(1, 70), value=st.integers(-9, 9), fails=st.booleans())
    def block(self, name, frame, value, fails):
        try:
            with self.history.bracket(name):
                self.opened(name)
                self.center(0, "x", value)
                self.key(1, frame)
                if fails:
                    raise Stop
            self.closed()
        except Stop:
            self.cancelled()

    @precondition(lambda self: not self.depth)
    @rule()
    def look_from_another_process(self):
        """Sees what is saved, and leaves it."""
        done = support.run_command("info", self.folder)
        assert (done.returncode, done.stderr) == (0, "")
        text = done.stdout
        for scene, name in zip(self.model.scenes, ("Walk", "Run, slow")):
            assert f'Scene "{name}": {scene.count} frame' in text and f"({scene.start} to {scene.stop})" in text
        assert f"{self.model.size[0]} x {self.model.size[1]}\n" in text

    @precondition(lambda self: not self.depth)
    @rule()
    def goes_on_elsewhere(self):
        folder = self.folder.with_name("elsewhere")
        self.app.save_as(folder)
        assert support.files(folder) == self.states[self.done]
        shutil.rmtree(self.folder)
        folder.rename(self.folder)
        self.app = brindle.open(self.folder)
        self.begin_anew()
