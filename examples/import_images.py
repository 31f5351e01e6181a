"""Imports a folder of numbered images as one element, with a node that shows it and its exposures.

    ./run examples/import_images.py PROJECT scans/arm                  an image a frame, in the order of their numbers
    ./run examples/import_images.py PROJECT scans/arm --hold 2         each image holds for two frames
    ./run examples/import_images.py PROJECT scans/arm --composite Top/Composite --start 25 --lengthen

The number of an image ends its name, ahead of the suffix ("arm-0001.png"), and becomes the name of its drawing ("1").
Missing numbers take no frames. All images have to be of one format and to have one name but for the number; other files
are passed over. The element, the drawing column and the node are named by the folder, or by --name. All of it is one undo
entry, and a project that can't have all of it is left as it is.
"""

import argparse
import pathlib
import re

import brindle

FORMATS = {".png": "PNG", ".jpg": "JPEG", ".jpeg": "JPEG", ".tif": "TIFF", ".tiff": "TIFF", ".tga": "TGA", ".bmp": "BMP",
           ".exr": "EXR", ".psd": "PSD"}


class Refused(Exception):
    """Tells in one sentence why a folder or a project is left alone."""


def numbered_images(folder: pathlib.Path) -> tuple[str, dict[int, pathlib.Path]]:
    """The format of the images in a folder, and their paths by their numbers, in order."""
    images: dict[int, pathlib.Path] = {}
    kinds: dict[tuple[str, str], pathlib.Path] = {}
    for path in sorted(folder.iterdir()):
        named = re.fullmatch(r"(.*?)([0-9]+)", path.stem, re.DOTALL)
        if named is None or path.suffix.lower() not in FORMATS or not path.is_file():
            continue
        stem, number = named[1], int(named[2])
        kinds.setdefault((stem, FORMATS[path.suffix.lower()]), path)
        if len(kinds) > 1:
            first, second = kinds.values()
            raise Refused(f'"{first}" and "{second.name}" are not images of one sequence.')
        if number in images:
            raise Refused(f'"{images[number]}" and "{path.name}" have the same number.')
        images[number] = path
    if not images:
        raise Refused(f'"{folder}" has no numbered images.')
    return next(iter(kinds))[1], dict(sorted(images.items()))


def import_images(scene: brindle.Scene, name: str, pixmap_format: str, images: dict[int, pathlib.Path], start: int,
                  hold: int) -> brindle.Node:
    """Makes a drawing column of a name with an element of the images, and exposes them; the node that shows it."""
    column = scene.columns.create("DRAWING", name, {"pixmapFormat": pixmap_format})
    if not isinstance(column, brindle.ElementColumn) or column.element is None:
        raise Refused(f'The project can have no column and element "{name}".')
    column.element.vector_type = ""  # Its drawings are images.
    drawings = column.element.drawings
    for number, path in images.items():
        drawings.create(str(number))
        drawings[str(number)].import_file(path)
    cells: list[str | None] = [str(number) for number in images for _ in range(hold)]
    if start + len(cells) <= scene.frame_count:
        cells.append(None)  # The last image would hold up to the end of the scene.
    column[start:start + len(cells)] = cells
    return column.linked_nodes[0]


def link_to_composite(scene: brindle.Scene, node: brindle.Node, path: str) -> None:
    composite = scene.nodes[path]
    if composite is None or not isinstance(composite.ports_in, brindle.MultiInPortList):
        raise Refused(f'The scene has no composite "{path}".')
    composite.ports_in.create().link(node)


def make_room(scene: brindle.Scene, last: int, lengthen: bool) -> None:
    """Sees that a scene has a frame."""
    if last <= scene.frame_count:
        return
    if not lengthen:
        raise Refused(f"The images end at frame {last}, and the scene has {scene.frame_count}; --lengthen makes it longer.")
    scene.frame_count = last


def frame_number(text: str) -> int:
    if not re.fullmatch("[0-9]{1,6}", text) or int(text) == 0:
        raise argparse.ArgumentTypeError(f'"{text}" is not a number of frames from 1 on')
    return int(text)


def main() -> None:
    parser = argparse.ArgumentParser(prog="import_images", description="Imports numbered images with their exposures.")
    parser.add_argument("project", type=pathlib.Path, help="the project's folder")
    parser.add_argument("images", type=pathlib.Path, help="the folder with the images")
    parser.add_argument("--hold", type=frame_number, default=1, help="the frames that each image is seen (1)")
    parser.add_argument("--start", type=frame_number, default=1, help="the frame of the first image (1)")
    parser.add_argument("--name", help="the name of element, column and node; without it, the folder's")
    parser.add_argument("--scene", help="the scene's name; without it, the first one")
    parser.add_argument("--composite", help="the path of a composite that gets the images: Top/Composite")
    parser.add_argument("--lengthen", action="store_true", help="makes the scene as long as the images need")
    given = parser.parse_args()
    try:
        pixmap_format, images = numbered_images(given.images)
        last = given.start + len(images) * given.hold - 1
        with brindle.open(given.project) as app:
            chosen = [scene for scene in app.scenes if given.scene in (None, scene.name)]
            if not chosen:
                raise Refused(f'The project has no scene "{given.scene}".')
            with app.project.history.bracket("Import Images"):
                make_room(chosen[0], last, given.lengthen)
                name = given.images.resolve().name if given.name is None else given.name
                node = import_images(chosen[0], name, pixmap_format, images, given.start, given.hold)
                if given.composite is not None:
                    link_to_composite(chosen[0], node, given.composite)
            app.save()
            print(f"{len(images)} images on frames {given.start} to {last} of {node.path}")
    except (brindle.Error, Refused, OSError) as error:
        raise SystemExit(f"import_images: {error}")


if __name__ == "__main__":
    main()
