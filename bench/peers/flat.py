"""A scene as a list of what is to be filled, frame by frame: a text for programs that have nothing but a rasteriser.

    size 1920 1080
    path M0 0C1 2 3 4 5 6Z                     paths are counted from 0
    frame                                      what follows makes one picture
    draw                                       a new picture, laid onto a pile
    fill 0 1 0 0 1 960 540 255 0 0 156         path, matrix (a b c d e f), colour and alpha, onto the picture that lies on top
    over                                       lays the picture on top over the one below it: the two become one
    cut                                        keeps of the picture on top what the alpha of the one below it shows, as one
    blur 4                                     blurs the picture on top by a bell curve; its standard deviation in pixels
"""

from . import scenes

MIDDLE = (1.0, 0.0, 0.0, 1.0, scenes.WIDTH / 2, scenes.HEIGHT / 2)


def number(value):
    return f"{value:.4f}".rstrip("0").rstrip(".")


def pair(point):
    return f"{number(point[0])} {number(point[1])}"


def curves(points):
    """A closed path of cubics."""
    return "M" + pair(points[0]) + "".join(
        "C" + " ".join(map(pair, points[start:start + 3])) for start in range(1, len(points), 3)) + "Z"


def fills(art, outlines):
    """What an art is made of: pairs of a path, as SVG writes it, and a colour. Lines are their outlines."""
    match art:
        case scenes.Fill(points, colour):
            yield curves(points), colour
        case scenes.Cells(cells=cells):
            for cell in cells:
                yield curves(cell.points), cell.colour
        case scenes.Line(colour=colour):
            yield "".join("M" + "L".join(map(pair, polygon)) + "Z" for polygon in outlines[art]), colour


class Writer:
    def __init__(self, scene, outlines):
        self.scene = scene
        self.drawn = {art: list(fills(art, outlines)) for item in scenes.walk(scene.root)
                      if isinstance(item, scenes.Drawing) for art in item.arts}
        self.paths = {}
        for parts in self.drawn.values():
            for data, _ in parts:
                self.paths.setdefault(data, len(self.paths))

    def text(self, frames):
        """The text of these frames."""
        lines = [f"size {scenes.WIDTH} {scenes.HEIGHT}", *(f"path {data}" for data in self.paths)]
        for frame in frames:
            lines += ["frame", *self.program(self.scene.seen(), frame, MIDDLE)]
        return "\n".join(lines) + "\n"

    def program(self, item, frame, matrix):
        """Lines that lay one picture onto the pile."""
        match item:
            case scenes.Moved(motion, child):
                yield from self.program(child, frame, scenes.turned(matrix, motion.at(frame)))
            case scenes.Stack(children) if not plain(item):
                for place, child in enumerate(children):
                    yield from self.program(child, frame, matrix)
                    if place:
                        yield "over"
            case scenes.Cut(matte, image):
                yield from self.program(matte, frame, matrix)
                yield from self.program(image, frame, matrix)
                yield "cut"
            case scenes.Blurred(radius, child):
                yield from self.program(child, frame, matrix)
                yield f"blur {number(radius / 2)}"
            case _:
                yield "draw"
                for art, place in scenes.placed(item, frame, matrix):
                    tail = " ".join(f"{value:.9g}" for value in place)
                    for data, colour in self.drawn[art]:
                        yield f"fill {self.paths[data]} {tail} {' '.join(map(str, colour))}"


def plain(item):
    """Whether fills alone draw it: it has no cut and no blur."""
    return not any(isinstance(part, (scenes.Cut, scenes.Blurred)) for part in scenes.walk(item))
