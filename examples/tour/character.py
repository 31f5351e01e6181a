"""Pip and the hill that Pip walks over: their palette and their drawings, all made by script.

Each part is drawn about its joint, which lies at (0, 0), in the pose of the model sheet: limbs hang straight down. 100
units are one field up.
"""

from collections.abc import Callable

import brindle

from brush import EVEN, TAPERING, Brush, ring

COLOURS = {
    "ink": "#2b2233", "skin": "#f2b98f", "blush": "#e58f73", "hair": "#6b3a2a", "hair light": "#8a5138",
    "jacket": "#e3a72f", "jacket dark": "#c4851f", "trousers": "#3d5f86", "trousers dark": "#2f4a6d",
    "shoe": "#b5443a", "sole": "#f4efe4", "scarf": "#d9483b", "scarf dark": "#b23530", "white": "#ffffff",
    "far hill": "#a9c98d", "near hill": "#7fae6a", "path": "#e9d8a6", "grass": "#5c8f4e", "trunk": "#7b5a3c",
    "leaves": "#5e9a57", "leaves light": "#82b973", "cloud": "#fdfdfb", "sun disc": "#fff3bf",
}


def make_palette(project: brindle.Project) -> brindle.Palette:
    """The palette of the film: solid colours, a gradient for the sky, and one for the sun."""
    palette = project.palettes.create("Colour", "Pip")
    for name, value in COLOURS.items():
        palette.create_solid_colour(name, rgba(value))
    palette.create_linear_gradient_colour("sky", rgba("#fbe9c9"), 0.0, rgba("#7cc0dd"), 100.0)
    palette.create_radial_gradient_colour("sun", rgba("#fff6c8"), 0.0, rgba("#fff6c800"), 100.0)
    return palette


def rgba(text: str) -> list[int]:
    """The channels of "#rrggbb" or "#rrggbbaa"."""
    channels = list(bytes.fromhex(text[1:]))
    return channels if len(channels) == 4 else [*channels, 255]


def draw_all(columns: dict[str, brindle.ElementColumn], palette: brindle.Palette) -> int:
    """Draws every drawing of the elements of the columns; gives how many there are."""
    count = 0
    for name, column in columns.items():
        for drawing in column.drawings or ():
            content = drawing.initialize()
            assert content  # The elements are of vector drawings.
            with brindle.DrawingAccess.editing(content["line"]) as access:
                DRAWINGS[name, drawing.name](Brush(access, palette))
            count += 1
    return count


def hips(brush: Brush) -> None:
    brush.shape([(-52, 34), (-56, -8), (-46, -48), (0, -62), (48, -48), (58, -8), (50, 36), (0, 56)], "trousers")
    brush.line([(-40, 22), (0, 30), (44, 22)], "trousers dark", 6, EVEN)


def torso(brush: Brush) -> None:
    brush.shape([(-58, -30), (-60, 60), (-66, 150), (-56, 232), (-22, 270), (20, 268), (54, 236), (64, 156), (62, 60),
                 (60, -28), (2, -46)], "jacket", width=8)
    brush.shape([(-58, -30), (-60, 10), (0, 0), (62, 12), (60, -28), (2, -46)], "jacket dark", width=5)
    brush.line([(30, 258), (40, 170), (38, 90), (34, 6)], "jacket dark", 6)
    for height in (60, 120, 180):
        brush.dot((50, height), 5, "sole", width=3)
    brush.line([(-34, 80), (-8, 72), (10, 78)], "jacket dark", 6)


def neck(brush: Brush) -> None:
    brush.shape([(-24, -30), (-26, 20), (-20, 62), (24, 62), (26, 18), (24, -30), (0, -38)], "skin")
    brush.shape([(-92, -64), (-100, -34), (-66, -22), (-40, -8), (-34, -32), (-60, -44)], "scarf dark")
    brush.shape([(-46, -14), (-44, 18), (-14, 30), (22, 28), (46, 14), (48, -14), (22, -32), (-18, -34)], "scarf", width=7)
    brush.line([(-40, 2), (-4, 12), (40, -2)], "scarf dark", 5)


def head(eye: Callable[[Brush], None]) -> Callable[[Brush], None]:
    def draw(brush: Brush) -> None:
        brush.shape([(-96, 60), (-118, 120), (-104, 190), (-56, 232), (6, 240), (60, 220), (40, 150), (-30, 120), (-60, 60)],
                    "hair", width=8)
        brush.shape([(-58, 26), (-82, 84), (-76, 152), (-30, 204), (34, 206), (78, 170), (92, 116), (104, 96), (112, 78),
                     (92, 68), (84, 36), (52, -2), (6, -14), (-34, 0)], "skin", width=8)
        brush.dot((34, 52), 20, "blush", height=13)
        brush.shape([(-44, 96), (-60, 112), (-54, 72), (-36, 62), (-28, 82)], "skin", width=6)
        brush.line([(-48, 98), (-42, 84), (-46, 74)], "blush", 5)
        brush.shape([(-84, 110), (-92, 170), (-46, 222), (20, 230), (76, 196), (88, 158), (58, 178), (40, 166), (16, 184),
                     (-10, 166), (-40, 168), (-56, 140), (-62, 112)], "hair", width=8)
        brush.shape([(-30, 218), (-44, 256), (-10, 240), (10, 268), (18, 236), (40, 246), (30, 216)], "hair", width=7)
        brush.line([(-60, 176), (-30, 206), (10, 214)], "hair light", 9)
        brush.line([(34, 148), (52, 156), (72, 150)], "hair", 10)
        brush.line([(40, 26), (60, 18), (80, 30)], "ink", 6)
        eye(brush)

    return draw


def eye_open(brush: Brush) -> None:
    brush.dot((54, 106), 16, "white", width=4, height=23)
    brush.dot((61, 106), 8, "ink", height=13)
    brush.dot((64, 112), 3, "white")


def eye_half(brush: Brush) -> None:
    brush.dot((54, 104), 16, "white", width=4, height=20)
    brush.dot((61, 101), 8, "ink", height=11)
    brush.shape([(36, 108), (42, 126), (56, 131), (70, 124), (74, 106), (56, 110)], "skin", width=4)


def eye_closed(brush: Brush) -> None:
    brush.line([(36, 106), (46, 94), (60, 92), (74, 100)], "ink", 7)


def upper_arm(brush: Brush) -> None:
    brush.shape([(-32, 12), (-32, -50), (-28, -110), (-24, -150), (0, -168), (24, -150), (28, -108), (34, -48), (32, 14),
                 (0, 38)], "jacket", width=7)


def forearm(brush: Brush) -> None:
    brush.shape([(-25, 10), (-27, -40), (-22, -100), (-22, -128), (0, -136), (22, -128), (23, -98), (28, -38), (25, 10),
                 (0, 26)], "jacket", width=7)
    brush.line([(-20, -112), (0, -118), (20, -112)], "jacket dark", 6, EVEN)


def hand_relaxed(brush: Brush) -> None:
    brush.shape([(-16, 14), (-20, -14), (-18, -44), (-6, -64), (12, -62), (20, -40), (20, -8), (15, 14), (0, 20)], "skin")
    brush.shape([(12, 2), (26, -14), (30, -34), (22, -40), (12, -22)], "skin", width=5)
    brush.line([(-4, -40), (-2, -56)], "ink", 4)
    brush.line([(8, -38), (9, -54)], "ink", 4)


def hand_fist(brush: Brush) -> None:
    brush.shape([(-18, 14), (-24, -12), (-22, -38), (0, -50), (22, -40), (26, -14), (17, 14), (0, 20)], "skin")
    brush.line([(-10, -26), (-8, -44)], "ink", 4)
    brush.line([(4, -26), (4, -46)], "ink", 4)
    brush.shape([(22, 0), (4, -10), (0, -22), (14, -26), (28, -16)], "skin", width=5)


def thigh(brush: Brush) -> None:
    brush.shape([(-44, 14), (-42, -50), (-34, -120), (-30, -180), (0, -206), (30, -180), (36, -120), (46, -48), (46, 16),
                 (0, 44)], "trousers", width=7)


def shin(brush: Brush) -> None:
    brush.shape([(-30, 8), (-34, -44), (-28, -110), (-26, -166), (0, -176), (26, -166), (28, -108), (32, -40), (30, 8),
                 (0, 30)], "trousers", width=7)
    brush.line([(-24, -148), (0, -155), (24, -148)], "trousers dark", 6, EVEN)


def foot(brush: Brush) -> None:
    brush.shape([(-34, -30), (-38, -42), (92, -42), (98, -32), (60, -22)], "sole", width=5)
    brush.shape([(-26, 14), (-36, -12), (-34, -32), (20, -32), (92, -32), (90, -16), (62, -2), (34, 4), (22, 18), (0, 22)],
                "shoe", width=6)
    for x in (34, 46, 58):
        brush.line([(x, 4), (x + 7, -8)], "sole", 5, EVEN)


def hill(brush: Brush) -> None:
    """A wide view: sky and sun, clouds, two hills, trees and the path."""
    sky = brindle.Matrix()
    sky.axis_x, sky.axis_y, sky.origin = (0, 2000, 0), (-2000, 0, 0), (0, -100, 0)
    frame = 2600, 1700
    brush.shape([(-frame[0], -700), (frame[0], -700), (frame[0] + 200, 600), (frame[0], frame[1]), (-frame[0], frame[1]),
                 (-frame[0] - 200, 600)], "sky", width=0, matrix=sky)
    sun = brindle.Matrix()
    sun.axis_x, sun.axis_y, sun.origin = (400, 0, 0), (0, 400, 0), (900, 880, 0)
    brush.shape(ring((900, 880), 420, 420), "sun", width=0, matrix=sun)
    brush.dot((900, 880), 110, "sun disc")
    for x, y, size in ((-1000, 900, 1.0), (250, 1000, 0.7), (1250, 930, 0.6), (2150, 820, 0.8)):
        brush.shape([(x + size * dx, y + size * dy) for dx, dy in ((-190, 0), (-140, 62), (-50, 70), (10, 120), (90, 78),
                                                                    (170, 56), (190, 2), (0, -22))], "cloud", width=0)
    brush.shape([(-2700, 250), (-1900, 420), (-1000, 300), (-200, 480), (700, 330), (1500, 500), (2700, 280), (2800, -600),
                 (-2800, -600)], "far hill", width=0)
    for x, y, size in ((-1250, 130, 1.0), (-60, 210, 0.8), (1350, 170, 1.1), (2150, 120, 0.9)):
        tree(brush, x, y, size)
    brush.shape([(-2700, 60), (-1500, 190), (0, 110), (1200, 200), (2700, 90), (2800, -800), (-2800, -800)], "near hill",
                width=0)
    brush.shape([(-2700, -60), (-1400, 10), (0, -14), (1300, 16), (2700, -30), (2700, -190), (1300, -130), (0, -160),
                 (-1400, -120), (-2700, -200)], "path", width=0)
    for x in range(-2400, 2500, 230):
        y = 10 + 20 * (x // 230 % 3)
        for dx, lean in ((-14, -10), (0, 4), (14, 14)):
            brush.line([(x + dx, y), (x + dx + lean / 2, y + 30), (x + dx + lean, y + 52)], "grass", 9, TAPERING)


def tree(brush: Brush, x: float, y: float, size: float) -> None:
    def at(*points: tuple[float, float]) -> list[tuple[float, float]]:
        return [(x + size * dx, y + size * dy) for dx, dy in points]

    brush.shape(at((-22, -40), (-18, 120), (-30, 200), (26, 200), (18, 110), (26, -40)), "trunk", width=0)
    brush.shape(at((-150, 240), (-130, 350), (-40, 430), (70, 420), (150, 340), (150, 240), (60, 180), (-70, 178)), "leaves",
                width=0)
    brush.shape(at((-90, 300), (-60, 376), (20, 400), (70, 350), (0, 320)), "leaves light", width=0)


DRAWINGS: dict[tuple[str, str], Callable[[Brush], None]] = {
    ("hips", "1"): hips, ("torso", "1"): torso, ("neck", "1"): neck,
    ("head", "open"): head(eye_open), ("head", "half"): head(eye_half), ("head", "closed"): head(eye_closed),
    ("upper-arm", "1"): upper_arm, ("forearm", "1"): forearm,
    ("hand", "relaxed"): hand_relaxed, ("hand", "fist"): hand_fist,
    ("thigh", "1"): thigh, ("shin", "1"): shin, ("foot", "1"): foot, ("hill", "1"): hill,
}
