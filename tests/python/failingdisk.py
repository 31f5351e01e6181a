"""Saves on a disk that fails, at each call in turn: what is saved is the old content or the new one, and never both.

    failingdisk.py LIBRARY FOLDER

LIBRARY is failingdisk.c, compiled and preloaded ahead of the C library. Listed on standard output: what doesn't hold,
and how many calls were tried.
"""

import ctypes
import errno
import pathlib
import shutil
import sys

import brindle
from brindle import render

import support

EVER = 10**9


def edit(app):
    """Changes a scene, drawings, elements and palettes, so that files come, go, move and get another content."""
    app.scene.frame_count = 77
    app.scene.nodes["Top/Sample-Peg"].name = "New"
    element = app.elements["Sample-Element"]
    with brindle.DrawingAccess.editing(element.drawings["1"].drawing["line"]) as access:
        access.vector_layer_create("PEN_LAYER")
    element.drawings.create("2").initialize()
    element.drawings.remove("3")
    element.name = "Renamed"
    palette = app.project.palettes[0]
    palette[0].name = "Other"
    palette.remove(palette[2])


class Disk:
    def __init__(self, library, folder):
        self.library, self.folder = ctypes.CDLL(library), pathlib.Path(folder)
        self.project, self.form = self.folder / "project", self.folder / "form"
        app = self.begin()
        app.close()
        self.before = self.opened()
        app = self.begin()
        edit(app)
        app.save()
        app.close()
        self.after = self.opened()

    def begin(self):
        """The project, open, as it is saved at first."""
        source = self.folder / "source"
        if not source.exists():
            with brindle.create(source) as app:
                support.samples(app)
                app.elements["Sample-Element"].drawings.create("3").initialize()
                app.save()
        shutil.rmtree(self.project, ignore_errors=True)
        shutil.copytree(source, self.project)
        return brindle.open(self.project)

    def opened(self):
        """What the project holds when it is opened."""
        shutil.rmtree(self.form, ignore_errors=True)
        with brindle.open(self.project) as app:
            app.save_as(self.form)
        return support.files(self.form)

    def attempt(self, call, first, last, number):
        """Runs a call while the disk fails. Gives its sentence, and whether the disk failed meanwhile."""
        self.library.fail_from(first, last, number)
        try:
            call()
            message = ""
        except brindle.Error as error:
            message = str(error)
        return message, self.library.fail_from(0, 0, 0) >= first

    def saves(self, number, stays):
        """A save with each of its calls failing, and the others behind it where the failure stays."""
        first, is_over = 0, False
        while not is_over:
            first += 1
            text = f"call {first} fails with {errno.errorcode[number]}{' and those behind it' * stays}"
            app = self.begin()
            edit(app)
            labels = app.project.history.list()
            message, failed = self.attempt(app.save, first, EVER if stays else first, number)
            is_over = not failed
            if app.project.history.list() != labels or app.project.dirty != bool(message) or "\n" in message:
                print(f"{text}: {message!r}, unsaved: {app.project.dirty}")
            if saves_again := bool(message) and first % 2 == 0:
                app.save()
            app.close()
            expected = [self.after] if saves_again or not message else [self.before, self.after]
            if self.opened() not in expected:
                print(f"{text}: {message!r}, and the project is neither the old nor the new one")
        return first

    def exports(self, name, export, number):
        """The same for a file that is written in the place of an older one."""
        path, first, is_over = self.folder / name, 0, False
        path.unlink(missing_ok=True)
        export(path)
        whole = path.read_bytes()
        while not is_over:
            first += 1
            path.write_bytes(b"old")
            message, failed = self.attempt(lambda: export(path), first, first, number)
            is_over = not failed
            if path.read_bytes() != (b"old" if message else whole):
                print(f"call {first} fails for {name}: {message!r}, and the file has {path.stat().st_size} bytes")
        return first


def main(library, folder):
    disk = Disk(library, folder)
    count = sum(disk.saves(number, stays) for number, stays in ((errno.ENOSPC, False), (errno.EIO, False), (errno.EIO, True)))
    with disk.begin() as app:
        drawing = app.elements["Sample-Element"].drawings["1"].drawing
        cel = render.cel(app.scene.nodes["Top/Sample-Card"], 1, size=(64, 36))
        for number in (errno.ENOSPC, errno.EIO):
            count += disk.exports("drawing.svg", lambda path: brindle.export_svg(path, drawing), number)
            count += disk.exports("cel.png", lambda path: cel.write(path), number)
    print(f"{count} calls")


if __name__ == "__main__":
    main(*sys.argv[1:])
