"""The scenes that programs draw side by side, made of one seed: what there is to see, apart from any program's form.

Places are pixels from the middle of the picture, x to the right and y down; angles are degrees, clockwise. Frames are
counted from 1. What stands later in a list lies above.
"""

import functools
import math
import random
from dataclasses import dataclass

SIZE = WIDTH, HEIGHT = 1920, 1080
MOST_FRAMES = 100


@dataclass(frozen=True)
class Fill:
    """A closed path of cubics, painted inside."""
    points: tuple  # a point of the path, then two handles and a point for each curve
    colour: tuple  # red, green, blue, alpha; 0 to 255


@dataclass(frozen=True)
class Line:
    """A path of cubics with a line of varying thickness."""
    points: tuple
    keys: tuple  # (share of the length, thickness on the left, thickness on the right)
    colour: tuple


@dataclass(frozen=True)
class Cells:
    """Areas that share their edges."""
    edges: tuple  # (points of a curve, number of the cell on the left or None, number of the cell on the right or None)
    cells: tuple  # Fill


@dataclass(frozen=True)
class Drawing:
    name: str
    arts: tuple


@dataclass(frozen=True)
class Motion:
    """Where something is at a frame, and how it is turned about its own origin."""
    x: float = 0.0
    y: float = 0.0
    dx: float = 0.0  # a frame
    dy: float = 0.0
    turn: float = 0.0  # a frame

    def at(self, frame):
        """x, y and the angle."""
        step = frame - 1
        return self.x + step * self.dx, self.y + step * self.dy, step * self.turn


@dataclass(frozen=True)
class Moved:
    motion: Motion
    child: object


@dataclass(frozen=True)
class Stack:
    children: tuple


@dataclass(frozen=True)
class Cut:
    """The image where the matte is opaque."""
    matte: object
    image: object


@dataclass(frozen=True)
class Blurred:
    radius: float  # in pixels; the standard deviation of the bell curve is half of it
    child: object


@dataclass(frozen=True)
class Scene:
    key: str
    title: str
    root: object
    camera: Motion | None = None
    opacity: int | None = None  # of all pixels well inside, where seams are counted

    def seen(self):
        """The root as the camera sees it."""
        if self.camera is None:
            return self.root
        eye = self.camera
        return Moved(Motion(-eye.x, -eye.y, -eye.dx, -eye.dy), self.root)


def walk(item):
    """An item and all that is in it, arts included."""
    yield item
    match item:
        case Moved(child=child) | Blurred(child=child):
            yield from walk(child)
        case Stack(children=parts) | Drawing(arts=parts):
            for part in parts:
                yield from walk(part)
        case Cut(matte=matte, image=image):
            yield from walk(matte)
            yield from walk(image)


def placed(item, frame, matrix=(1.0, 0.0, 0.0, 1.0, 0.0, 0.0)):
    """The arts of an item that has neither cuts nor blurs, with the matrix (a, b, c, d, e, f) from each to the picture."""
    match item:
        case Moved(motion, child):
            yield from placed(child, frame, turned(matrix, motion.at(frame)))
        case Stack(children):
            for child in children:
                yield from placed(child, frame, matrix)
        case Drawing(_, arts):
            for art in arts:
                yield art, matrix


def turned(matrix, place):
    """A matrix behind a place: x, y and an angle."""
    a, b, c, d, e, f = matrix
    x, y, angle = place
    cosine, sine = math.cos(math.radians(angle)), math.sin(math.radians(angle))
    return (a * cosine + c * sine, b * cosine + d * sine, c * cosine - a * sine, d * cosine - b * sine,
            a * x + c * y + e, b * x + d * y + f)


def colour(chance, alpha=255):
    return (*(chance.randrange(256) for _ in range(3)), alpha)


def blob(chance, radius, x=0.0, y=0.0):
    """A closed path of eight cubics."""
    radii = [radius * chance.uniform(0.7, 1.3) for _ in range(24)]
    points = [(x + reach * math.cos(step * math.pi / 12), y + reach * math.sin(step * math.pi / 12))
              for step, reach in enumerate(radii)]
    return (*points, points[0])


def wave(chance, x, y):
    """A path of six cubics to the right."""
    return tuple((x + 12 * step, y + chance.uniform(-30, 30)) for step in range(19))


def thickness(chance):
    return tuple((step / 3, chance.uniform(0.5, 6), chance.uniform(0.5, 6)) for step in range(4))


def shapes(count=200):
    chance = random.Random(7)

    def shape(index):
        place = chance.uniform(-WIDTH / 2, WIDTH / 2), chance.uniform(-HEIGHT / 2, HEIGHT / 2)
        fill = Fill(blob(chance, chance.uniform(20, 160)), colour(chance, 156 if index % 2 else 255))
        return Moved(Motion(*place, turn=-3.6 if index % 3 == 0 else 3.6), Drawing(f"Shape{index}", (fill,)))

    return Scene("shapes", f"{count} filled shapes of 8 cubics, half of them translucent, each turning",
                 Stack(tuple(shape(index) for index in range(count))))


def lines(count=500):
    chance = random.Random(8)
    arts = tuple(Line(wave(chance, chance.uniform(-800, 600), chance.uniform(-450, 450)), thickness(chance), colour(chance))
                 for _ in range(count))
    return Scene("lines", f"{count} lines of 6 cubics, 1 to 12 pixels thick, turning as a whole",
                 Moved(Motion(turn=3.6), Drawing("Lines", arts)))


def cells(columns, rows, paint):
    """Curved cells all over the picture and a little beyond."""
    chance = random.Random(9)
    side_x, side_y = WIDTH / columns * 1.1, HEIGHT / rows * 1.1
    corners = {(column, row): (side_x * (column - columns / 2 + chance.uniform(-0.15, 0.15)),
                               side_y * (row - rows / 2 + chance.uniform(-0.15, 0.15)))
               for row in range(rows + 1) for column in range(columns + 1)}
    curves = {}
    for (column, row), (x, y) in corners.items():
        for far in ((column + 1, row), (column, row + 1)):
            if far in corners:
                to_x, to_y = corners[far]
                bends = [(chance.uniform(-6, 6), chance.uniform(-6, 6)) for _ in range(2)]
                curves[(column, row), far] = ((x, y), *(
                    (x + (to_x - x) * share + bend_x, y + (to_y - y) * share + bend_y)
                    for share, (bend_x, bend_y) in zip((1 / 3, 2 / 3), bends)), (to_x, to_y))

    def number(column, row):
        return row * columns + column if 0 <= column < columns and 0 <= row < rows else None

    edges, fills = [], []
    for ((column, row), far), points in curves.items():
        across = far[0] > column
        # To the right: above is on the left. Down: what lies to the right is on the left.
        sides = (number(column, row - 1), number(column, row)) if across else (number(column, row), number(column - 1, row))
        edges.append((points, *sides))
    for row in range(rows):
        for column in range(columns):
            a, b, c, d = (column, row), (column + 1, row), (column + 1, row + 1), (column, row + 1)
            around = curves[a, b], curves[b, c], curves[d, c][::-1], curves[a, d][::-1]
            fills.append(Fill(tuple([around[0][0]] + [point for side in around for point in side[1:]]), paint(chance)))
    return Cells(tuple(edges), tuple(fills))


def partition(key, title, alpha, columns=40, rows=25):
    art = cells(columns, rows, lambda chance: colour(chance, alpha))
    return Scene(key, f"{columns} x {rows} curved cells with common edges, {title}, turning as a whole",
                 Moved(Motion(turn=0.02), Drawing("Cells", (art,))), opacity=alpha)


def graph(count=30):
    chance = random.Random(10)

    def limb(number, drawings):
        """Three levels of pegs: one of them all, one of a limb, one of each drawing."""
        turn = chance.uniform(-2, 2)
        return Moved(Motion(chance.uniform(-500, 500), chance.uniform(-250, 250), turn=turn), Stack(tuple(
            Moved(Motion(chance.uniform(-200, 200), chance.uniform(-150, 150), chance.uniform(-3, 3), turn=-turn),
                  drawing(f"Part{number}-{index}", chance.uniform(40, 120))) for index in range(drawings))))

    def drawing(name, radius):
        return Drawing(name, tuple(
            Fill(blob(chance, radius * share, chance.uniform(-40, 40), chance.uniform(-40, 40)), colour(chance, alpha))
            for share, alpha in ((1, 255), (0.7, 156), (0.4, 255))))

    body = Motion(dy=1.5, turn=0.5)
    rest = count - 2
    back = Moved(body, Stack(tuple(limb(number, rest // 4) for number in range(2))))
    front = Moved(body, Stack(tuple(limb(number, (rest - rest // 4 * 2) // 2) for number in range(2, 4))))
    matte = Moved(Motion(-200.0, 0.0, 2.0), Drawing("Matte", (Fill(blob(chance, 220), (255, 255, 255, 255)),)))
    image = Moved(Motion(-200.0, 0.0, turn=2.0), drawing("Image", 260))
    return Scene("graph", f"{count} drawings under 3 levels of pegs, a camera, 2 composites, a cutter, a blur of radius 8",
                 Stack((Blurred(8.0, back), Cut(matte, image), front)), camera=Motion(30.0, -20.0, -2.0, 1.0))


def held():
    chance = random.Random(11)
    fills = tuple(Fill(blob(chance, 60, chance.uniform(-600, 600), chance.uniform(-400, 400)), colour(chance))
                  for _ in range(40))
    over = tuple(Line(wave(chance, chance.uniform(-700, 500), chance.uniform(-400, 400)), thickness(chance), colour(chance))
                 for _ in range(20))
    return Scene("held", "one drawing of 40 shapes and 20 lines, held under a moving peg",
                 Moved(Motion(-60.0, 30.0, 1.3, -0.7), Drawing("Held", (*fills, *over))))


SCENES = {
    "shapes": shapes,
    "lines": lines,
    "partition": functools.partial(partition, "partition", "opaque", 255),
    "glass": functools.partial(partition, "glass", "translucent", 156),
    "graph": graph,
    "held": held,
}
