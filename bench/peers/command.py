"""Measures pictures beside other programs: all scenes, all programs that are there."""

import pathlib
import sys
import tempfile
import time

from . import measure, pictures, scenes, sheet, tools

HEADING = "Pictures beside other programs"
ROOT = pathlib.Path(__file__).resolve().parents[2]


def chosen(names, known, what):
    names = names.split(",") if names else list(known)
    for name in names:
        if name not in known:
            raise SystemExit(f"bench: there is no {what} {name}; there are {', '.join(known)}")
    return names


def run(options, progress):
    """The figures of all scenes, and of each program its version and its commands."""
    sys.path.insert(0, str(options.build / "python"))
    from . import ours

    keys = chosen(options.scenes, scenes.SCENES, "scene")
    used = {name: tools.ALL[name] for name in chosen(options.tools, tools.ALL, "program")}
    missing = {tool.name: reason for tool in used.values() if (reason := tool.missing(options.build))}
    for name, reason in missing.items():
        progress(f"{name} is skipped: {reason}")
    there = [tool for tool in used.values() if tool.name not in missing]
    end = time.monotonic() + options.minutes * 60
    found, about = [], {}
    with tempfile.TemporaryDirectory(prefix="brindle-peers-") as root:
        for place, key in enumerate(keys):
            scene = scenes.SCENES[key]()
            folder = pathlib.Path(root) / key
            folder.mkdir()
            progress(f"{key}: {scene.title}")
            stage = tools.Stage(scene, folder, options.build.resolve(), ours.write(scene, folder / "project"))
            skipped = {tool.name: reason for tool in there if (reason := tool.cannot(scene))}
            records = [measure.Record(tool) for tool in there if tool.name not in skipped]
            expected = pictures.reference(options.build / "bin" / "brindle_peers",
                                          folder / stage.flat_file(measure.SHOWN), folder)
            measure.Bench(stage).measure(records, (end - time.monotonic()) / (len(keys) - place),
                                         lambda text: progress(f"  {text}"))
            for record in records:
                if record.picture and not record.failure:
                    record.nearness = pictures.compared(pictures.read(record.picture), expected, scene.opacity)
                if record.tool.name not in about and record.commands:
                    about[record.tool.name] = {
                        "version": record.tool.version(options.build), "note": record.tool.note,
                        "commands": sheet.values(record)["commands"]}
            found.append({"key": key, "title": scene.title, "tools": [sheet.values(record) for record in records],
                          "skipped": missing | skipped})
    return {"scenes": found, "programs": about}


def text(figures, build):
    def shorten(command):
        return command.replace(f"{build.resolve()}/bin/", "").replace(f"{ROOT}/", "")

    return "\n".join([*map(sheet.scene_text, figures["scenes"]), sheet.command_text(figures["programs"], shorten)])
