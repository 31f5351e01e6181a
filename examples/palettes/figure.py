"""A character that is painted with the colours of a palette, by their names."""

from collections.abc import Callable

import brindle

import swatches

WIDTH, HEIGHT = 200, 300

# The colours of the character as it was designed: a name, and the channels from 0 to 255.
SOLID = {
    "Skin": [241, 194, 155], "Hair": [92, 51, 23], "Shirt": [196, 62, 46], "Trousers": [52, 76, 122],
    "Shoes": [60, 44, 38], "Eyes": [34, 34, 40],
}
SKY = ("Sky", [120, 178, 226], [250, 236, 208])  # from the top to the ground
CHEEK = ("Cheek", [226, 92, 84, 170], [226, 92, 84, 0])  # from the middle to the rim

# What is painted with a colour, from behind to the front, in pixels with y downwards.
PARTS = (
    ("Hair", "M64 84 C56 26 144 26 136 84 L132 112 L68 112 Z"),
    ("Skin", "M90 110 h20 v24 h-20 Z"),
    ("Trousers", "M74 196 h52 l4 74 h-22 l-8 -50 l-8 50 h-22 Z"),
    ("Shoes", "M68 270 h24 v12 h-34 q0 -10 10 -12 Z M108 270 h24 q10 2 10 12 h-34 Z"),
    ("Shirt", "M72 132 Q100 122 128 132 L156 186 L140 194 L127 170 L127 202 H73 V170 L60 194 L44 186 Z"),
    ("Skin", "M44 186 l16 8 l-6 12 q-10 4 -14 -6 Z M156 186 l-16 8 l6 12 q10 4 14 -6 Z"),
    ("Skin", "M70 80 C70 52 130 52 130 80 C130 108 116 118 100 118 C84 118 70 108 70 80 Z"),
    ("Hair", "M68 82 C66 40 134 40 132 82 C126 62 112 58 100 66 C88 58 76 62 68 82 Z"),
    ("Eyes", "M84 84 a4 5 0 1 0 8 0 a4 5 0 1 0 -8 0 Z M108 84 a4 5 0 1 0 8 0 a4 5 0 1 0 -8 0 Z"),
)
CHEEKS = ((74.0, 88.0, 20.0, 20.0), (106.0, 88.0, 20.0, 20.0))


def design(palette: brindle.Palette) -> None:
    """Gives a new palette the colours of the character."""
    palette.clear()
    for name, channels in SOLID.items():
        palette.create_solid_colour(name, channels)
    name, top, bottom = SKY
    palette.create_linear_gradient_colour(name, top, 0, bottom, 100)
    name, middle, rim = CHEEK
    palette.create_radial_gradient_colour(name, middle, 0, rim, 100)


def draw(look: Callable[[str], brindle.PaletteColour], left: float, top: float) -> list[str]:
    """The character before its sky; `look` gives the colour of a name."""
    lines = [f'<g transform="translate({swatches.number(left)} {swatches.number(top)})">',
             f'<g transform="rotate(90 {WIDTH / 2:g} {WIDTH / 2:g})">',
             *swatches.linear(look("Sky"), (0, 0, HEIGHT, WIDTH)), "</g>"]
    for name, outline in PARTS:
        lines.append(f'<path d="{outline}" {swatches.fill(look(name).colour)}/>')
    for box in CHEEKS:
        lines += swatches.radial(look("Cheek"), box, rim=False)
    return [*lines, '<path d="M90 104 q10 7 20 0" fill="none" stroke="#7a3b2e" stroke-width="2"/>', "</g>"]
