"""Random programs of palette commands: what undo and redo leave on disk, also after saves in between."""

import random

import brindle
import pytest

import palettes as shared
import support

PROGRAMS = 12 if support.DEEP else 4
STEPS = 40


class Program:
    """Changes palettes at random, and remembers the saved form of the project behind each entry of the undo list."""

    def __init__(self, app, folder, picture, seed):
        self.app = app
        self.folder = folder
        self.picture = str(picture)
        self.random = random.Random(seed)
        self.palettes = app.project.palettes
        self.history = app.project.history
        self.history.clear()
        self.states = [self.files()]  # By the number of entries that are done.
        self.place = 0

    def files(self):
        return shared.files(self.app, self.folder)

    def palette(self):
        return self.random.choice(self.palettes.list())

    def index(self, container):
        """An index of a container, or for an empty one 0, which is refused."""
        return self.random.randrange(max(len(container), 1))

    def change(self):
        """One entry more, or none where the change is refused."""
        action = self.random.choice(ACTIONS)
        try:
            action(self)
        except (brindle.Error, IndexError):
            assert self.files() == self.states[self.place]
        done = self.history.size_executed
        if done == self.place:
            return
        assert done == self.place + 1, action
        self.states[done:] = [self.files()]
        self.place = done

    def go_to(self, place):
        if place < self.place:
            self.history.undo(self.place - place)
        elif place > self.place:
            self.history.redo(place - self.place)
        self.place = place
        assert self.history.size_executed == place
        assert self.files() == self.states[place]


def create(program):
    program.palettes.create("Colour", program.random.choice(["Skin", "Cloth", ""]), program.random.random() < 0.3)


def copy(program):
    method = program.random.choice([program.palettes.clone, program.palettes.duplicate])
    method(program.palette(), program.random.choice(["", "Copy"]))


def remove(program):
    program.palettes.remove(program.palette())


def clear_list(program):
    if program.random.random() < 0.3:
        program.palettes.clear()


def reorder(program):
    program.palettes.reorder(program.palette(), program.index(program.palettes))


def rename(program):
    program.palette().name = f"Name {program.random.randrange(1000)}"


def set_type(program):
    program.palette().type = program.random.choice(["Colour", "Pencil Texture"])


def add_colour(program):
    program.palette().create_solid_colour(f"Colour {program.random.randrange(1000)}", (1, 2, 3, 255), -1)


def add_gradient(program):
    palette = program.palette()
    method = program.random.choice([palette.create_linear_gradient_colour, palette.create_radial_gradient_colour])
    method("Fade", (255, 0, 0, 255), 10.0, (0, 0, 255, 0), 90.0, -1)


def add_texture(program):
    program.palette().create_texture("Wood", program.picture, -1, True)


def pop(program):
    palette = program.palette()
    palette.pop(program.index(palette))


def clear_palette(program):
    if program.random.random() < 0.3:
        program.palette().clear()


def reorder_colours(program):
    palette = program.palette()
    palette.reorder(palette[program.index(palette)], program.index(palette))


def acquire(program):
    source, target = program.palette(), program.palette()
    target.acquire(source[program.index(source)])


def colour(program):
    palette = program.palette()
    return palette[program.index(palette)]


def edit_name(program):
    colour(program).name = f"Edited {program.random.randrange(1000)}"


def edit_look(program):
    edited = colour(program)
    if edited.base_type == "Texture":
        edited.width = program.random.randrange(1, 9)
    else:
        edited.type = program.random.choice(["solid", "linear", "radial"])


ACTIONS = (create, create, copy, remove, clear_list, reorder, rename, set_type, add_colour, add_colour, add_gradient,
           add_texture, pop, clear_palette, reorder_colours, acquire, edit_name, edit_look)


@pytest.mark.parametrize("seed", range(PROGRAMS))
def test_undo_and_redo_of_palettes_are_exact(app, folder, tmp_path, seed):
    picture = tmp_path / "wood.png"
    picture.write_bytes(shared.png(4, 3))
    app.project.palettes.create("Colour", "Hero")
    program = Program(app, folder, picture, seed)
    for _ in range(STEPS):
        if program.random.random() < 0.3:
            program.go_to(program.random.randrange(len(program.states)))
        elif len(program.palettes) == 0:
            create(program)
            program.place = program.history.size_executed
            program.states[program.place:] = [program.files()]
        else:
            program.change()
    program.go_to(len(program.states) - 1)
    program.go_to(0)
    program.go_to(len(program.states) - 1)


def test_what_is_not_saved_is_gone_when_the_project_is_opened_again(app, folder, tmp_path):
    picture = tmp_path / "wood.png"
    picture.write_bytes(shared.png(4, 3))
    for name in ("Hero", "Villain"):
        app.project.palettes.create("Colour", name).create_texture("Wood", str(picture), -1, True)
    saved = shared.files(app, folder)
    for seed in range(PROGRAMS):
        palettes = brindle.application().project.palettes
        moves = random.Random(seed)
        for _ in range(6):
            action = moves.choice(["create", "clone", "remove", "clear"])
            if action == "create":
                palettes.create("Colour", f"New {moves.randrange(1000)}")
            elif len(palettes) and action == "clone":
                palettes.clone(palettes[0], "")
            elif len(palettes) and action == "remove":
                palettes.remove(moves.randrange(len(palettes)))
            elif moves.random() < 0.2:
                palettes.clear()
        brindle.application().close()
        kept = {name: content for name, content in support.files(folder).items() if "/.deleted/" not in name}
        assert kept == saved
        brindle.open(folder)
        assert shared.files(brindle.application(), folder) == saved
