"""The object model of a 2D animation project.

    import brindle

    app = brindle.create("walk-cycle")
    peg = app.scene.nodes.create("PEG", "Arm")
    peg.attributes["angle"].set_value(1, 30.0)
    app.save()
    app.close()
"""

import importlib

from brindle._brindle import *  # noqa: F401,F403
from brindle._brindle import __version__, _describe, _live_objects  # noqa: F401


def __getattr__(name):
    # What draws pictures is loaded when it is first asked for.
    if name == "render":
        return importlib.import_module("brindle.render")
    raise AttributeError(f"module 'brindle' has no attribute {name!r}")


def __dir__():
    return sorted({*globals(), "render"})
