"""What the tests of palettes share: pictures for textures, and what a change of palettes has to keep to."""

import contextlib
import socket
import struct
import zlib

import support


def png(width, height, rgba=(255, 0, 0, 255)):
    """The bytes of a picture of one colour."""
    return png_of_rows(width, [bytes(rgba) * width] * height)


def png_of_rows(width, rows):
    """The bytes of a picture whose rows have four bytes a pixel."""
    def chunk(kind, content):
        body = kind + content
        return struct.pack(">I", len(content)) + body + struct.pack(">I", zlib.crc32(body))

    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, len(rows), 8, 6, 0, 0, 0)) +
            chunk(b"IDAT", zlib.compress(b"".join(b"\0" + row for row in rows))) + chunk(b"IEND", b""))


def files(app, folder):
    """The saved form of the project without the palettes that were put aside."""
    return {name: content for name, content in support.saved(app, folder).items() if "/.deleted/" not in name}


def check_change(app, folder, action, label):
    """Runs a change and checks that it is one entry of this label, which undoes and redoes exactly. Gives its result."""
    history = app.project.history
    history.clear()
    before = files(app, folder)
    result = action()
    assert history.list() == [label]
    after = files(app, folder)
    for _ in range(2):
        history.undo(1)
        assert files(app, folder) == before
        history.redo(1)
        assert files(app, folder) == after
    return result


def check_refusal(app, folder, action, message, error=None):
    """Runs a change that fails with a sentence, and checks that nothing has changed."""
    history = app.project.history
    before = files(app, folder), history.list(), history.size_total
    given = {"error": error} if error else {}
    assert support.message_of(action, **given) == message
    assert (files(app, folder), history.list(), history.size_total) == before


@contextlib.contextmanager
def held_elsewhere(one, path):
    """While the lock of a palette or list, a file at a path, is that of somebody on another machine."""
    one.lock()
    held = path.read_text()
    one.release()
    path.write_text(held.replace(socket.gethostname(), "another-machine"))
    try:
        yield
    finally:
        path.unlink()


def seen(colour):
    """Name, type and colours of a colour; name, size and tiling of a texture."""
    if colour.base_type == "Texture":
        return colour.name, colour.width, colour.height, colour.tiled
    return colour.name, colour.type, [marker(position) for position in colour]


def marker(position):
    value = position.colour
    return position.position, (value.r, value.g, value.b, value.a)
