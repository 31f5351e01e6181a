"""Colours of palettes as SVG: areas filled as the module mixes them, before squares that show through."""

from collections.abc import Sequence
from typing import TypeAlias
from xml.sax.saxutils import escape

import brindle

STEPS = 56  # of a gradient
SQUARE = 8  # the side of a square of the ground, in pixels
GAP = 16

Box: TypeAlias = tuple[float, float, float, float]  # left, top, width, height in pixels


def number(value: float) -> str:
    return f"{round(value, 2) + 0.0:g}"


def fill(colour: brindle.Colour, attribute: str = "fill") -> str:
    """The attributes of SVG for a colour."""
    opacity = "" if colour.a == 255 else f' {attribute}-opacity="{number(colour.a / 255)}"'
    return f'{attribute}="#{colour.hex[3:]}"{opacity}'


def ground(box: Box) -> list[str]:
    left, top, width, height = box
    squares = []
    for y in range(0, int(height), SQUARE):
        for x in range(SQUARE * (y // SQUARE % 2 == 0), int(width), 2 * SQUARE):
            w, h = number(min(SQUARE, width - x)), number(min(SQUARE, height - y))
            squares.append(f"M{number(left + x)} {number(top + y)}h{w}v{h}h-{w}z")
    return [f'<rect x="{number(left)}" y="{number(top)}" width="{number(width)}" height="{number(height)}" fill="#fff"/>',
            f'<path d="{"".join(squares)}" fill="#ccc"/>']


def linear(colour: brindle.PaletteColour, box: Box) -> list[str]:
    """From left to right; each strip has the colour at its middle."""
    left, top, width, height = box
    step = width / STEPS
    strips = [f'<rect x="{number(left + i * step)}" y="{number(top)}" width="{number(step)}" height="{number(height)}" '
              f'{fill(colour.interpolate((i + 0.5) * 100 / STEPS))}/>' for i in range(STEPS)]
    return ['<g shape-rendering="crispEdges">', *strips, "</g>"]  # Smoothed edges would show the ground between strips.


def radial(colour: brindle.PaletteColour, box: Box, rim: bool = True) -> list[str]:
    """From the middle to the nearer sides, and the colour of the rim beyond."""
    left, top, width, height = box
    radius = min(width, height) / 2
    step = radius / STEPS
    x, y = left + width / 2, top + height / 2
    lines = []
    if rim:
        lines.append(f'<path fill-rule="evenodd" d="M{number(left)} {number(top)}h{number(width)}v{number(height)}'
                     f'h-{number(width)}z M{number(x - radius)} {number(y)}a{number(radius)} {number(radius)} 0 1 0 '
                     f'{number(2 * radius)} 0a{number(radius)} {number(radius)} 0 1 0 {number(-2 * radius)} 0" '
                     f'{fill(colour.interpolate(100))}/>')
    return lines + [
        f'<circle cx="{number(x)}" cy="{number(y)}" r="{number((i + 0.5) * step)}" fill="none" '
        f'stroke-width="{number(step)}" {fill(colour.interpolate((i + 0.5) * 100 / STEPS), "stroke")}/>'
        for i in range(STEPS)]


def area(colour: brindle.PaletteColour, box: Box) -> list[str]:
    """A box that is filled with a colour."""
    if colour.type == "linear_gradient":
        return linear(colour, box)
    if colour.type == "radial_gradient":
        return radial(colour, box)
    left, top, width, height = box
    return [f'<rect x="{number(left)}" y="{number(top)}" width="{number(width)}" height="{number(height)}" '
            f'{fill(colour.colour)}/>']


def swatch(colour: brindle.PaletteColour, box: Box) -> list[str]:
    left, top, width, height = box
    return [*ground(box), *area(colour, box),
            f'<rect x="{number(left)}" y="{number(top)}" width="{number(width)}" height="{number(height)}" fill="none" '
            'stroke="#bbb"/>']


def text(x: float, y: float, words: str, colour: str = "#333", anchor: str = "start", font: str = "") -> str:
    return (f'<text x="{number(x)}" y="{number(y)}" fill="{colour}" text-anchor="{anchor}"{font} '
            f'xml:space="preserve">{escape(words)}</text>')


def picture(width: float, height: float, lines: Sequence[str]) -> str:
    """The text of an SVG file."""
    head = (f'<svg xmlns="http://www.w3.org/2000/svg" width="{number(width)}" height="{number(height)}" '
            f'viewBox="0 0 {number(width)} {number(height)}" font-family="sans-serif" font-size="12">')
    return "\n".join([head, '<rect width="100%" height="100%" fill="white"/>', *lines, "</svg>"]) + "\n"
