"""What Python itself costs: the objects that the product's are compared with."""

import datetime

from cpython_floors import Wrapper


class Slotted:
    __slots__ = ("number",)

    def __init__(self):
        self.number = 42


class Plain:
    __slots__ = ("name", "source", "x")

    def __init__(self, name, source):
        self.name = name
        self.source = source
        self.x = 0


class WithProperty:
    def __init__(self):
        self._number = 42

    @property
    def number(self):
        return self._number


class WithGetattr:
    def __getattr__(self, name):
        if name == "number":
            return 42
        raise AttributeError(name)


def make_plain(count):
    """Objects by name, each of which knows the one before."""
    objects = {}
    previous = None
    for index in range(count):
        previous = objects[f"N{index}"] = Plain(f"N{index}", previous)
    return objects


NAMES = {
    "slotted": Slotted(),
    "date": datetime.date.today(),
    "with_property": WithProperty(),
    "with_getattr": WithGetattr(),
    "wrapper": Wrapper(),
}

STATEMENTS = {
    "floor __slots__": ("slotted.number", 1),
    "floor date.year": ("date.year", 1),
    "floor property": ("with_property.number", 1),
    "floor __getattr__": ("with_getattr.number", 1),
    "floor integer": ("wrapper.number", 1),
    "floor string": ("wrapper.text", 1),
    "floor new wrapper": ("wrapper.child", 1),
    "floor method call": ("wrapper.call()", 1),
    "floor write": ("wrapper.number = 5; wrapper.number = 6", 2),
    "floor subscript": ("wrapper['Top/Arm']", 1),
    "floor chain": ("wrapper.child['Top/Arm'].child['position.x'].value_at(10)", 1),
    "floor set_value": ("wrapper.set_value(10, 1.5); wrapper.set_value(10, 2.5)", 2),
    "floor value": ("wrapper.value_at(10)", 1),
}


def statements_at(size, *names):
    """The same as floors of what is measured in a project of a size: "floor value/1000"."""
    return {f"{name}/{size}": STATEMENTS[name] for name in names}
