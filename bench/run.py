#!/usr/bin/python3
"""Measures what an operation costs from Python and from C++, and prints it beside what nobody can be faster than.

    ./run bench                 builds and measures, in a minute and a half
    ./run bench --json FILE     also writes all figures
    ./run bench --python        one side only; or --native
    ./run bench --instructions  counts the processor's instructions instead of the time, in some seconds
    ./run bench --page          measures and counts, and writes the figures into docs/benchmarks.md
    ./run bench --peers         pictures and scripts beside other programs, in ten minutes; with --page into that page
"""

import argparse
import collections
import json
import os
import pathlib
import platform
import statistics
import subprocess
import sys

import instructions
import rows
import table
from peers import command as peers

CLOCKS = "Processor time, the loop around an operation taken off; saving, opening and starting on the wall clock."
SECONDS = {"ns": 1e-9, "us": 1e-6, "ms": 1e-3, "s": 1.0}
ROOT = pathlib.Path(__file__).resolve().parent.parent


def progress(text):
    print(f"bench: {text}", file=sys.stderr, flush=True)


def measure_python(build):
    progress("the Python side")
    path = os.pathsep.join([str(build / "python"), str(build / "bench")])
    done = subprocess.run([sys.executable, str(ROOT / "bench" / "script.py")], env=dict(os.environ, PYTHONPATH=path),
                          stdout=subprocess.PIPE, check=True)
    return json.loads(done.stdout)


def run_benchmarks(build, repetitions, *options):
    done = subprocess.run(
        [str(build / "bin" / "brindle_bench"), "--benchmark_format=json", "--benchmark_min_time=0.02",
         f"--benchmark_repetitions={repetitions}", *options],
        stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=True)
    return json.loads(done.stdout)["benchmarks"]


def measure_native(build, repetitions=5):
    """Seconds an operation, or an item where the benchmark has a size, as lists of repetitions; bytes, where it weighs."""
    progress("the C++ side")
    # The short ones in turn, repetition by repetition: the machine is in one state for an operation and its floor. Those
    # with a size share projects that take long to make, and go one after the other.
    entries = run_benchmarks(build, repetitions, "--benchmark_filter=-/", "--benchmark_enable_random_interleaving=true")
    entries += run_benchmarks(build, repetitions, "--benchmark_filter=/")
    samples = collections.defaultdict(list)
    for entry in entries:
        name = entry["run_name"]
        if entry["run_type"] == "iteration":
            subject, _, size = name.partition("/")
            items = int(size) if subject in rows.NATIVE_PER_ITEM else 1
            clock = "real_time" if subject in rows.NATIVE_ON_THE_CLOCK else "cpu_time"
            samples[name].append(entry["bytes"] if "bytes" in entry else entry[clock] * SECONDS[entry["time_unit"]] / items)
    return dict(samples)


def machine():
    model = next((line.split(":", 1)[1].strip() for line in open("/proc/cpuinfo") if line.startswith("model name")),
                 platform.machine())
    return f"{model}, {os.cpu_count()} cores; Python {platform.python_version()}; load {os.getloadavg()[0]:.1f}"


def write_page(page, texts):
    """Puts each text in the place of the first block of figures below its heading."""
    content = page.read_text()
    for heading, text in texts.items():
        above, below = content.split(f"\n## {heading}\n", 1)
        before, _, after = below.split("```", 2)
        content = f"{above}\n## {heading}\n{before}```\n{text}```{after}"
    page.write_text(content)


def write_json(file, on, python, native, counted):
    file.write_text(json.dumps({
        "machine": on,
        "python": [values for row in rows.PYTHON if (values := table.result(python, row))],
        "native": [values for row in rows.NATIVE if (values := table.result(native, row))],
        "median": {name: statistics.median(seconds) for name, seconds in (python | native).items()},
        "least": {name: min(seconds) for name, seconds in (python | native).items()},
        "instructions": counted,
    }, indent=1) + "\n")


def measure_peers(options):
    on = machine()
    figures = peers.run(options, progress)
    texts = {heading: f"{on}\n\n{text}" for heading, text in peers.texts(figures, options.build).items()}
    print("\n".join(texts.values()), end="")
    if options.page:
        write_page(ROOT / "docs" / "benchmarks.md", texts)
    if options.json:
        options.json.write_text(json.dumps({"machine": on} | figures, indent=1) + "\n")


def main():
    parser = argparse.ArgumentParser(prog="./run bench", description=__doc__.splitlines()[0])
    parser.add_argument("--json", metavar="FILE", type=pathlib.Path, help="write all figures to a file")
    parser.add_argument("--python", action="store_true", help="the Python side only")
    parser.add_argument("--native", action="store_true", help="the C++ side only")
    parser.add_argument("--instructions", action="store_true", help="count instructions from Python instead of time")
    parser.add_argument("--page", action="store_true", help="write the figures into docs/benchmarks.md")
    parser.add_argument("--peers", action="store_true", help="pictures and scripts beside other programs, and nothing else")
    parser.add_argument("--minutes", type=float, default=10, help="with --peers: about how long it may take")
    parser.add_argument("--scenes", metavar="LIST", help="with --peers: only these, such as shapes,held or scripts")
    parser.add_argument("--tools", metavar="LIST", help="with --peers: only these programs, such as brindle,rsvg")
    parser.add_argument("--build", metavar="DIR", type=pathlib.Path, default=ROOT / "build" / "dev", help="the build")
    options = parser.parse_args()
    if options.peers:
        measure_peers(options)
        return
    every = options.page or not (options.python or options.native or options.instructions)

    on = machine()
    python = measure_python(options.build) if every or options.python else {}
    native = measure_native(options.build) if every or options.native else {}
    counted = {}
    if options.page or options.instructions:
        progress("instructions from Python")
        counted = instructions.measure(options.build, [row.key for row in rows.INSTRUCTIONS])
    times = f"{on}\n{CLOCKS}\n\n{table.text(python, native)}" if python or native else ""
    counts = table.count_text(counted) if counted else ""
    print(times, counts, sep="\n" if times and counts else "", end="")
    if options.page:
        write_page(ROOT / "docs" / "benchmarks.md", {"Instructions": counts, "One run": times})
    if options.json:
        write_json(options.json, on, python, native, counted)


if __name__ == "__main__":
    main()
