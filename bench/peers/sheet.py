"""What the programs took as a text that a person reads: a table a scene, then the versions and the commands."""

import math
import shlex

import table

from . import measure

WIDTHS = (22, 9, 10, 10, 11, 11, 8, 7, 8, 8, 7, 7, 10)
HEADINGS = (("", "first", "picture", "PNG", "PNG", "processor", "memory", "near", "worst", "seams", "file", "same", "frames"),
            ("", "file", "1 thread", "1 thread", "2 threads", "a frame", "MB", "dB", "of 255", "pixels", "KB", "bytes", "x times"))

# What we mean to reach, by scene and heading.
AIMS = {
    "shapes": {"first": 0.25, "picture": 0.06, "png": 0.12},
    "lines": {"picture": 0.08},
    "partition": {"seams": 0},
    "glass": {"seams": 0},
    "held": {"picture": 0.008},
}


def values(record):
    """The figures of a tool on a scene, as --json writes them."""
    each = record.each
    return {
        "tool": record.tool.name,
        "failure": record.failure,
        "first": record.first(),
        "picture": each(measure.RASTER) if record.tool.cheap else None,
        "png_alone": each(measure.ONE),
        "png": each(measure.TWO),
        "processor": each(measure.TWO, record.processor),
        "memory": record.memory,
        "psnr": record.nearness.psnr if record.nearness else None,
        "worst": record.nearness.worst if record.nearness else None,
        "seams": record.nearness.seams if record.nearness else None,
        "bytes": len(record.picture),
        "same": record.same(),
        "frames": record.frames,
        "repetitions": record.repetitions,
        "commands": {way_text(record.tool, way): command for way, command in record.commands.items()},
    }


def way_text(tool, way):
    what = "PNG" if way.png else tool.cheap
    return f"{what}, {way.threads} thread{'s' if way.threads > 1 else ''}" if tool.threads else what


def row(cells):
    first, *rest = zip(cells, WIDTHS)
    return "".join([f"{first[0]:<{first[1]}}", *(f"{cell:>{width}}" for cell, width in rest)]).rstrip()


def time(seconds):
    """Text of a duration. On a busy machine a longer run may take less time than a short one, which is no figure."""
    return "-" if seconds is None else table.duration(seconds) if seconds > 0 else "noise"


def near(psnr):
    return "-" if psnr is None else "equal" if math.isinf(psnr) else f"{psnr:.1f}"


def cells(told):
    seams = "" if told["seams"] is None else f"{told['seams']:,}"
    worst = "-" if told["worst"] is None else f"{told['worst']:.0f}"
    return (told["tool"], *(time(told[name]) for name in ("first", "picture", "png_alone", "png", "processor")),
            f"{told['memory'] / 1e6:.0f}", near(told["psnr"]), worst, seams, f"{told['bytes'] / 1e3:,.0f}",
            {True: "yes", False: "no", None: "-"}[told["same"]], f"{told['frames']} x {told['repetitions']}")


def aims(key, told):
    """Our aims on a scene beside what was reached."""
    names = {"first": "first file", "picture": "picture on 1 thread", "png": "PNG on 2 threads", "seams": "seams"}
    for name, aim in AIMS.get(key, {}).items():
        if told[name] is not None:
            shown = f"{aim}" if name == "seams" else table.duration(aim)
            yield f"{names[name]} {shown} {'met' if told[name] <= aim else '---'}"


def scene_text(found):
    """`found` has the title and key of the scene, the figures of each tool, and why others have none."""
    lines = [found["title"], "-" * len(found["title"]), *map(row, HEADINGS)]
    for told in found["tools"]:
        lines.append(f"{told['tool']:<{WIDTHS[0]}}failed: {told['failure']}" if told["failure"] else row(cells(told)))
    lines += [f"{name:<{WIDTHS[0]}}skipped: {reason}" for name, reason in found["skipped"].items()]
    for told in found["tools"]:
        if told["tool"] == "brindle" and not told["failure"] and (reached := list(aims(found["key"], told))):
            lines.append(f"our aims: {', '.join(reached)}")
    return "\n".join(lines) + "\n"


def command_text(about, shorten):
    """Each tool's version, remark and commands. `shorten` makes a command's paths short."""
    title = "Versions and commands, as on the first scene that each drew"
    lines = [title, "-" * len(title)]
    for name, told in about.items():
        lines.append(f"{name}: {told['version']}" + (f"; {told['note']}" if told["note"] else ""))
        lines += [f"    {way}: {shorten(shown(command))}" for way, command in told["commands"].items()]
    return "\n".join(lines) + "\n"


def shown(command):
    """A command as a person types it."""
    return command[2] if command[:2] == ["sh", "-c"] else shlex.join(command)
