"""A library of characters: one is saved as a template, and pasted several times into another project.

    ./run examples/clipboard/riglibrary.py save PROJECT Top/Hero LIBRARY     saves a character under the name of its node
    ./run examples/clipboard/riglibrary.py list LIBRARY                      tells the characters of a library
    ./run examples/clipboard/riglibrary.py paste PROJECT LIBRARY/Hero.tpl    pastes one three times
    ./run examples/clipboard/riglibrary.py paste PROJECT LIBRARY/Hero.tpl --times 5 --shift 4 --turn 40 --out DIR

Each pasted character begins some frames behind the one before it (--shift). Its elements get palettes of their own, whose
hues are turned by some degrees more (--turn): drawings are painted with the ids of colours, and a copied palette keeps
these, so each character shows its own colours.
"""

import argparse
import pathlib

import brindle

OPTIONS = {"use_paste_special": True, "extend_scene": True,
           "color_palette_mode": "COPY_AND_CREATE_NEW_PALETTES_IN_ELEMENT_FOLDER"}


def save(given: argparse.Namespace) -> None:
    with brindle.open(given.project, read_only=True) as app:
        node = app.scene.nodes[given.node]
        if node is None:
            raise SystemExit(f'riglibrary: there is no node "{given.node}" in the scene "{app.scene.name}".')
        clipboard = app.clipboard
        made = clipboard.create_template(clipboard.copy(node), node.name, given.library)
    if not made:
        raise SystemExit(f'riglibrary: "{given.library}" is no folder in which a template can be made.')
    print(f"Saved {given.library / made}")


def list_library(given: argparse.Namespace) -> None:
    if not given.library.is_dir():
        raise SystemExit(f'riglibrary: there is no folder "{given.library}".')
    for path in sorted(given.library.glob("*.tpl")):
        print(path.name)


def turn_hues(palette: brindle.Palette, degrees: float) -> None:
    for colour in palette:
        if isinstance(colour, brindle.PaletteColour) and colour.type == "solid_colour":
            colour.h += degrees


def paste_character(app: brindle.Application, template: pathlib.Path, frame: int, degrees: float) -> list[str]:
    """Pastes the character at a frame, with turned hues. Gives the paths of its nodes."""
    scene = app.scene
    nodes = {node.path for node in scene.top.nodes}
    elements = {element.id for element in app.elements}
    app.clipboard.paste_template_into_group(template, frame, scene.top, OPTIONS)
    for palettes in app.project.palette_lists:
        element = palettes.element()
        if element is not None and element.id not in elements:
            for palette in palettes:
                turn_hues(palette, degrees)
    return [node.path for node in scene.top.nodes if node.path not in nodes]


def paste(given: argparse.Namespace) -> None:
    with brindle.open(given.project, read_only=given.out is not None) as app:
        told = []
        with app.project.history.bracket("Paste Characters"):
            for place in range(given.times):
                frame, degrees = given.frame + place * given.shift, place * given.turn
                pasted = paste_character(app, given.template, frame, degrees)
                told.append(f"{', '.join(pasted)} from frame {frame}, hues turned by {degrees:g}")
        app.save(given.out)
    print("\n".join(told))
    print(f"Saved {given.out or given.project}")


def main() -> None:
    parser = argparse.ArgumentParser(prog="riglibrary", description="A library of characters.")
    commands = parser.add_subparsers(required=True, metavar="COMMAND")

    saving = commands.add_parser("save", help="saves a character of a project in a library")
    saving.add_argument("project", type=pathlib.Path, help="the project's folder")
    saving.add_argument("node", help="the path of the character's node, as a rule a group: Top/Hero")
    saving.add_argument("library", type=pathlib.Path, help="the library's folder")
    saving.set_defaults(run=save)

    listing = commands.add_parser("list", help="tells the characters of a library")
    listing.add_argument("library", type=pathlib.Path, help="the library's folder")
    listing.set_defaults(run=list_library)

    pasting = commands.add_parser("paste", help="pastes a character several times into a project")
    pasting.add_argument("project", type=pathlib.Path, help="the project's folder")
    pasting.add_argument("template", type=pathlib.Path, help="the character in its library: LIBRARY/Hero.tpl")
    pasting.add_argument("--times", type=int, default=3, help="how often; 3 by default")
    pasting.add_argument("--frame", type=int, default=1, help="the frame at which the first one begins")
    pasting.add_argument("--shift", type=int, default=6, metavar="FRAMES", help="how much later the next one begins")
    pasting.add_argument("--turn", type=float, default=120, metavar="DEGREES", help="how far the next one's hues turn")
    pasting.add_argument("--out", type=pathlib.Path, help="where to save; without it, the project itself is changed")
    pasting.set_defaults(run=paste)

    given = parser.parse_args()
    try:
        given.run(given)
    except brindle.Error as error:
        raise SystemExit(f"riglibrary: {error}")


if __name__ == "__main__":
    main()
