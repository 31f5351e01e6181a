"""Recolours a character: its palette is cloned, and the hues of the clone are turned.

    ./run examples/palettes/recolour.py DIR                  makes a project in DIR and DIR/recoloured.svg
    ./run examples/palettes/recolour.py DIR --turn 200       turns the hues by so many degrees
    ./run examples/palettes/recolour.py DIR --keep Hair      leaves a colour as it is; may be given several times

The colours of a clone have the ids of the palette that it was cloned from. What is painted with a colour of the one so
shows in the other one's colours as soon as the other palette is asked for that id.
"""

import argparse
import pathlib
from typing import cast

import brindle

import figure
import swatches

COLUMN = 92  # of swatches, in pixels
ROW = 34


def turn_hues(palette: brindle.Palette, degrees: float, kept: list[str]) -> None:
    """Turns the hue of every colour, and of all colours of a gradient."""
    for colour in palette:
        if not isinstance(colour, brindle.PaletteColour) or colour.name in kept:
            continue
        if colour.type == "solid_colour":
            colour.h += degrees
            continue
        for index, place in enumerate(colour.list()):
            place.h += degrees
            colour[index] = place


def column(palette: brindle.Palette, left: float, top: float) -> list[str]:
    lines = []
    for index, colour in enumerate(palette):
        y = top + index * ROW
        lines += swatches.swatch(cast(brindle.PaletteColour, colour), (left, y, COLUMN, ROW - 16))
        lines.append(swatches.text(left, y + ROW - 5, colour.name, "#555", font=' font-size="10"'))
    return lines


def sheet(original: brindle.Palette, other: brindle.Palette) -> str:
    """The character in the colours of both palettes. It is painted with the ids that the original has."""
    ids = {colour.name: colour.id for colour in original}
    lines: list[str] = []
    left: float = swatches.GAP
    top = 2.0 * swatches.GAP
    for palette in (original, other):
        def look(name: str, shown: brindle.Palette = palette) -> brindle.PaletteColour:
            return cast(brindle.PaletteColour, shown[ids[name]])

        lines.append(swatches.text(left, top - 8, palette.name))
        lines += figure.draw(look, left, top)
        left += figure.WIDTH + swatches.GAP
        lines += column(palette, left, top)
        left += COLUMN + 2 * swatches.GAP
    return swatches.picture(left - swatches.GAP, top + figure.HEIGHT + swatches.GAP, lines)


def recolour(app: brindle.Application, degrees: float, kept: list[str]) -> tuple[brindle.Palette, brindle.Palette]:
    palettes = app.project.palettes
    with app.project.history.bracket("Recolour Hero"):
        hero = palettes.create("Colour", "Hero")
        figure.design(hero)
        other = palettes.clone(hero, "Hero recoloured")
        turn_hues(other, degrees, kept)
    return hero, other


def main() -> None:
    parser = argparse.ArgumentParser(prog="recolour", description=(__doc__ or "").partition("\n")[0])
    parser.add_argument("folder", type=pathlib.Path, help="where to make the project and the picture")
    parser.add_argument("--turn", type=float, default=150, metavar="DEGREES", help="how far hues turn; 150 by default")
    parser.add_argument("--keep", action="append", default=["Skin", "Eyes", "Cheek"], metavar="NAME",
                        help="a colour that stays, besides skin, eyes and cheeks; may be given several times")
    wanted = parser.parse_args()
    try:
        with brindle.create(wanted.folder / "recoloured") as app:
            hero, other = recolour(app, wanted.turn, wanted.keep)
            for one, turned in zip(hero, other):
                print(f"{one!r} -> {turned!r}")
            (wanted.folder / "recoloured.svg").write_text(sheet(hero, other))
            app.save()
    except (brindle.Error, OSError) as error:
        raise SystemExit(f"recolour: {error}")
    print(f"Made {wanted.folder / 'recoloured'} and {wanted.folder / 'recoloured.svg'}")


if __name__ == "__main__":
    main()
