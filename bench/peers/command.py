"""Measures beside other programs: pictures of all scenes, and what a script's operations cost."""

import pathlib
import sys
import tempfile
import time

from . import flat, measure, pictures, scenes, scripting, sheet, tools

PICTURES = "Pictures beside other programs"
SCRIPTS = "Scripts beside other programs"
FINER = 16  # the outlines of lines that all are compared with
ROOT = pathlib.Path(__file__).resolve().parents[2]


def chosen(names, known, what):
    names = names.split(",") if names else list(known)
    for name in names:
        if name not in known:
            raise SystemExit(f"bench: there is no {what} {name}; there are {', '.join(known)}")
    return names


def run(options, progress):
    """The figures of all that was chosen, as --json writes them."""
    end = time.monotonic() + options.minutes * 60
    keys = chosen(options.scenes, [*scenes.SCENES, "scripts"], "scene")
    names = chosen(options.tools, dict.fromkeys([*tools.ALL, *scripting.PROGRAMS]), "program")
    figures = {}
    if "scripts" in keys:
        keys.remove("scripts")
        figures["scripts"] = scripting.measure([name for name in names if name in scripting.PROGRAMS],
                                               tools.environment(options.build, ROOT), progress)
    if keys:
        figures |= run_pictures(options.build, keys, [tools.ALL[name] for name in names if name in tools.ALL], end, progress)
    return figures


def run_pictures(build, keys, used, end, progress):
    sys.path.insert(0, str(build / "python"))
    from . import ours

    missing = {tool.name: reason for tool in used if (reason := tool.missing(build))}
    for name, reason in missing.items():
        progress(f"{name} is skipped: {reason}")
    there = [tool for tool in used if tool.name not in missing]
    found, about = [], {}
    with tempfile.TemporaryDirectory(prefix="brindle-peers-") as root:
        for place, key in enumerate(keys):
            scene = scenes.SCENES[key]()
            folder = pathlib.Path(root) / key
            folder.mkdir()
            progress(f"{key}: {scene.title}")
            ours.write(scene, folder / "project")
            stage = tools.Stage(scene, folder, build.resolve(), ours.outlines(scene))
            skipped = {tool.name: reason for tool in there if (reason := tool.cannot(scene))}
            records = [measure.Record(tool) for tool in there if tool.name not in skipped]
            fine = flat.Writer(scene, ours.outlines(scene, FINER)).text([measure.SHOWN])
            expected = pictures.reference(build / "bin" / "brindle_peers", fine, folder)
            measure.Bench(stage).measure(records, (end - time.monotonic()) / (len(keys) - place),
                                         lambda text: progress(f"  {text}"))
            for record in records:
                if record.picture and not record.failure:
                    record.nearness = pictures.compared(pictures.read(record.picture), expected, scene.opacity)
                if record.tool.name not in about and record.commands:
                    about[record.tool.name] = {"version": record.tool.version(build), "note": record.tool.note,
                                               "commands": sheet.values(record)["commands"]}
            found.append({"key": key, "title": scene.title, "tools": [sheet.values(record) for record in records],
                          "skipped": missing | skipped})
    return {"scenes": found, "programs": about}


def texts(figures, build):
    """What a person reads, by the heading of the page that it belongs to."""
    def shorten(command):
        return command.replace(f"{build.resolve()}/bin/", "").replace(f"{ROOT}/", "")

    made = {}
    if "scenes" in figures:
        made[PICTURES] = "\n".join([*map(sheet.scene_text, figures["scenes"]),
                                    sheet.command_text(figures["programs"], shorten)])
    if "scripts" in figures:
        made[SCRIPTS] = scripting.text(figures["scripts"])
    return made
