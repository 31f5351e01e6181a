"""Gives the action of one character to another one whose parts have the same names, as one undo entry.

    ./run examples/clipboard/transferaction.py PROJECT Top/Anna Top/Ben                        the whole scene
    ./run examples/clipboard/transferaction.py PROJECT Top/Anna Top/Ben --frames 1 24 --to 49  a stretch of it
    ./run examples/clipboard/transferaction.py PROJECT Top/Anna Top/Ben --poses --out DIR      with the drawings' poses

A character is a group, and its parts are the nodes in it. A part takes the keys of the part of its name over the frames,
in place of those that it has there; at both ends a key holds what was shown. Parts without a counterpart are told and left
alone. The drawings of the other character stay; with --poses it shows those of the same names at the same frames.
"""

import argparse
import pathlib

import brindle


def character_at(scene: brindle.Scene, path: str) -> brindle.GroupNode:
    node = scene.nodes[path]
    if not isinstance(node, brindle.GroupNode):
        raise SystemExit(f'transferaction: there is no group "{path}" in the scene "{scene.name}".')
    return node


def transfer(clipboard: brindle.Clipboard, source: brindle.GroupNode, target: brindle.GroupNode,
             frames: tuple[int, int], to: int, poses: bool) -> list[str]:
    """Gives the names of the parts that took the action."""
    first, last = frames
    names = [node.name for node in target.nodes if source.nodes[node.name] is not None]
    if not names:
        return []
    copy = clipboard.copy([source.nodes[name] for name in names], first, last - first + 1)
    clipboard.paste(copy, [target.nodes[name] for name in names], to, last - first + 1,
                    {"use_paste_special": True, "full_transfer": False,
                     "drawing_action": "ADD_OR_REMOVE_EXPOSURE" if poses else "DO_NOTHING",
                     "drawing_file_mode": "NEVER_CREATE", "color_palette_mode": "DO_NOTHING"})
    return names


def main() -> None:
    parser = argparse.ArgumentParser(prog="transferaction",
                                     description="Gives the action of one character to another one.")
    parser.add_argument("project", type=pathlib.Path, help="the project's folder")
    parser.add_argument("source", help="the path of the character that gives: Top/Anna")
    parser.add_argument("target", help="the path of the character that takes")
    parser.add_argument("--frames", type=int, nargs=2, metavar=("FIRST", "LAST"), help="the frames that are taken")
    parser.add_argument("--to", type=int, metavar="FRAME", help="the frame that the first one goes to")
    parser.add_argument("--poses", action="store_true", help="also shows the drawings of the same names")
    parser.add_argument("--out", type=pathlib.Path, help="where to save; without it, the project itself is changed")
    given = parser.parse_args()

    try:
        with brindle.open(given.project, read_only=given.out is not None) as app:
            scene = app.scene
            first, last = given.frames or (1, scene.frame_count)
            if not 1 <= first <= last <= scene.frame_count:
                raise SystemExit(f"transferaction: the frames are not a stretch of the scene's {scene.frame_count}.")
            source, target = (character_at(scene, path) for path in (given.source, given.target))
            names = transfer(app.clipboard, source, target, (first, last), given.to or first, given.poses)
            without = [node.name for node in target.nodes if node.name not in names]
            app.save(given.out)
        print(f"Took the action: {', '.join(names) or 'none'}")
        if without:
            print(f"No such part in {given.source}: {', '.join(without)}")
        print(f"Saved {given.out or given.project}")
    except brindle.Error as error:
        raise SystemExit(f"transferaction: {error}")


if __name__ == "__main__":
    main()
