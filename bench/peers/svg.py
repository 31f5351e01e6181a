"""A frame of a scene as an SVG file."""

import functools

from . import flat, scenes


@functools.lru_cache(maxsize=4096)
def shape(data, colour):
    red, green, blue, alpha = colour
    faint = f' fill-opacity="{alpha / 255:.6g}"' if alpha < 255 else ""
    return f'<path d="{data}" fill="#{red:02x}{green:02x}{blue:02x}"{faint}/>'


class Writer:
    def __init__(self, scene, outlines):
        self.scene = scene
        self.drawings = {item: "".join(shape(data, colour) for art in item.arts for data, colour in flat.fills(art, outlines))
                         for item in scenes.walk(scene.root) if isinstance(item, scenes.Drawing)}

    def text(self, frame):
        self.definitions = []
        body = self.shown(self.scene.seen(), frame)
        width, height = scenes.SIZE
        return (f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}" viewBox="{-width / 2:g} '
                f'{-height / 2:g} {width} {height}">\n<defs>{"".join(self.definitions)}</defs>\n{body}\n</svg>\n')

    def shown(self, item, frame):
        match item:
            case scenes.Drawing():
                return self.drawings[item]
            case scenes.Moved(motion, child):
                x, y, angle = (flat.number(value) for value in motion.at(frame))
                return f'<g transform="translate({x} {y}) rotate({angle})">{self.shown(child, frame)}</g>\n'
            case scenes.Stack(children):
                return "".join(self.shown(child, frame) for child in children)
            case scenes.Cut(matte, image):
                width, height = scenes.SIZE
                # As large as the picture at any place of the camera.
                name = self.define("mask", f'maskUnits="userSpaceOnUse" style="mask-type:alpha" x="{-width}" y="{-height}" '
                                           f'width="{2 * width}" height="{2 * height}"', self.shown(matte, frame))
                return f'<g mask="url(#{name})">{self.shown(image, frame)}</g>'
            case scenes.Blurred(radius, child):
                width, height = scenes.SIZE
                name = self.define("filter", f'filterUnits="userSpaceOnUse" color-interpolation-filters="sRGB" x="{-width}" '
                                             f'y="{-height}" width="{2 * width}" height="{2 * height}"',
                                   f'<feGaussianBlur stdDeviation="{radius / 2:g}"/>')
                return f'<g filter="url(#{name})">{self.shown(child, frame)}</g>'

    def define(self, kind, attributes, content):
        name = f"{kind}{len(self.definitions)}"
        self.definitions.append(f'<{kind} id="{name}" {attributes}>{content}</{kind}>\n')
        return name
