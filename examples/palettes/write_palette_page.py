#!/usr/bin/python3
"""Writes the pictures of docs/palettes.md with the module itself.

    PYTHONPATH=build/dev/python examples/palettes/write_palette_page.py           writes what has changed
    PYTHONPATH=build/dev/python examples/palettes/write_palette_page.py --check   tells whether all is up to date
"""

import pathlib
import sys
import tempfile

import brindle

import recolour
import swatches

sys.path.append(str(pathlib.Path(__file__).resolve().parents[1] / "geometry"))

from write_page import IMAGES, bring_up_to_date  # noqa: E402

WIDTH, HEIGHT = 224, 84  # of a swatch, in pixels
GAP = swatches.GAP
CODE = ' font-family="monospace" font-size="11"'


def panel(colour: brindle.PaletteColour, left: float, title: str, marks: bool = True) -> list[str]:
    """A swatch with its code above, and the places of its colours below."""
    top = 54
    lines = [swatches.text(left, 16 + 13 * i, line, font=CODE) for i, line in enumerate(title.split("\n"))]
    lines += swatches.swatch(colour, (left, top, WIDTH, HEIGHT))
    if not marks:
        return lines
    start, length = (left, WIDTH) if colour.type == "linear_gradient" else (left + WIDTH / 2, min(WIDTH, HEIGHT) / 2)
    foot = top + HEIGHT
    for place in colour:
        x = swatches.number(start + length * place.position / 100)
        lines.append(f'<path d="M{x} {foot} l5 9 h-10 Z" {swatches.fill(place.colour)} stroke="#333"/>')
        lines.append(swatches.text(float(x), foot + 22, f"{place.position:g}", "#555", "middle", ' font-size="10"'))
    return lines


def row(panels: list[list[str]]) -> str:
    width = GAP + len(panels) * (WIDTH + GAP)
    return swatches.picture(width, 54 + HEIGHT + 34, [line for lines in panels for line in lines])


def left(index: int) -> float:
    return GAP + index * (WIDTH + GAP)


def kinds(palette: brindle.Palette) -> str:
    """The three kinds of colours, each made as its title says."""
    solid = palette.create_solid_colour("Skin", [255, 217, 184])
    line = palette.create_linear_gradient_colour("Sky", [30, 90, 200], 0, [255, 255, 255, 0], 100)
    round_ = palette.create_radial_gradient_colour("Cheek", [220, 60, 60], 0, [220, 60, 60, 0], 100)
    titles = ('.create_solid_colour(\n  "Skin", [255, 217, 184])',
              '.create_linear_gradient_colour(\n  "Sky", [30, 90, 200], 0,\n  [255, 255, 255, 0], 100)',
              '.create_radial_gradient_colour(\n  "Cheek", [220, 60, 60], 0,\n  [220, 60, 60, 0], 100)')
    return row([panel(solid, left(0), titles[0], marks=False),
                panel(line, left(1), titles[1]),
                panel(round_, left(2), titles[2])])


def markers(palette: brindle.Palette) -> str:
    """A gradient that gets more colours, and one that loses them."""
    sky = palette.create_linear_gradient_colour("Sky", [30, 90, 200], 0, [255, 240, 200], 100)
    panels = [panel(sky, left(0), "sky")]
    sky.add([240, 120, 60], 70)
    panels.append(panel(sky, left(1), "sky.add([240, 120, 60], 70)"))
    sky[0] = brindle.PaletteGradientPosition(35, [20, 20, 60])
    panels.append(panel(sky, left(2), "sky[0] = PaletteGradientPosition(\n  35, [20, 20, 60])"))
    sky.pop()
    panels.append(panel(sky, left(3), "sky.pop()"))
    return row(panels)


def types(palette: brindle.Palette) -> str:
    """What becomes of a colour whose type is changed."""
    colour = palette.create_solid_colour("Lamp", [255, 200, 60])
    panels = [panel(colour, left(0), "lamp", marks=False)]
    for index, type_ in enumerate(("linear", "radial"), 1):
        colour.type = type_
        panels.append(panel(colour, left(index), f'lamp.type = "{type_}"'))
    colour.type = "solid"
    panels.append(panel(colour, left(3), 'lamp.type = "solid"', marks=False))
    return row(panels)


def draw_all() -> dict[str, str]:
    with tempfile.TemporaryDirectory() as folder, brindle.create(pathlib.Path(folder) / "page") as app:
        palette = app.project.palettes.create("Colour", "Page")
        pictures = {draw.__name__: draw(palette) for draw in (kinds, markers, types)}
        return {**pictures, "recoloured": recolour.sheet(*recolour.recolour(app, 150, ["Skin", "Eyes", "Cheek"]))}


def main() -> int:
    written = {IMAGES / "palettes" / f"{name}.svg": text for name, text in draw_all().items()}
    return bring_up_to_date(written, "examples/palettes/write_palette_page.py")


if __name__ == "__main__":
    sys.exit(main())
