"""What `cmake --install` puts anywhere: the command line and the desk find the rest of it by themselves."""

import os
import pathlib

import pytest

import support

BUILD = pathlib.Path(support.COMMAND).parents[1]

pytestmark = pytest.mark.skipif(support.SANITIZED, reason="an installed program finds no runtime of the sanitizer")


@pytest.fixture(scope="module")
def prefix(tmp_path_factory):
    """A folder that everything is installed to, moved to another place afterwards."""
    first = tmp_path_factory.mktemp("first") / "prefix"
    done = support.run("cmake", "--install", BUILD, "--prefix", first)
    assert done.returncode == 0, done.stderr
    place = tmp_path_factory.mktemp("installed") / "a prefix"
    first.rename(place)
    return place


@pytest.fixture
def environment(tmp_path):
    """Without any variable that names a folder of ours."""
    kept = {name: value for name, value in os.environ.items() if not name.startswith(("PYTHON", "LD_", "BRINDLE"))}
    return {**kept, "QT_QPA_PLATFORM": "offscreen", "XDG_CONFIG_HOME": str(tmp_path / "config"), "HOME": str(tmp_path)}


SCRIPT = """
import brindle, os, sys
print(os.path.realpath(brindle.__file__), brindle.Point2d(1, 2), file=sys.__stdout__)
own = os.path.realpath(sys.argv[1])
mapped = {line.split(maxsplit=5)[5].strip() for line in open("/proc/self/maps") if "libBrindle" in line}
print(len(mapped), all(name.startswith(own + "/") for name in mapped), file=sys.__stdout__)
print([path for path in sys.path if path.startswith(own) and os.listdir(path) != ["brindle"]], file=sys.__stdout__)
raise SystemExit(3)
"""


@pytest.mark.parametrize("command", ["run", "desk"])
def test_an_installed_program_finds_its_python_package(prefix, environment, tmp_path, command):
    script = tmp_path / "script.py"
    script.write_text(SCRIPT)
    program = prefix / "bin" / "brindle"
    if command == "run":
        done = support.run(program, "run", script, prefix, env=environment, cwd="/")
    else:
        done = support.run(program, "desk", "--new", tmp_path / "walk", "--run", script, prefix, env=environment, cwd="/")
    assert done.returncode == 3, done.stderr
    package, mapped, polluted = done.stdout.splitlines()
    assert package.startswith(f"{prefix}/") and package.endswith("/brindle/__init__.py Point2d(1, 2)")
    assert (mapped, polluted) == ("3 True", "[]")


def test_an_installed_package_is_whole_for_a_plain_interpreter(prefix, environment):
    package, = prefix.glob("lib*/**/dist-packages")
    assert {path.name for path in (package / "brindle").iterdir()} >= {"__init__.py", "__init__.pyi", "_console.py",
                                                                      "_completion.py", "_brindle.so"}
    done = support.run(support.PYTHON, "-c", "import brindle; print(brindle.Point2d(1, 2))",
                       env={**environment, "PYTHONPATH": str(package), "PYTHONDONTWRITEBYTECODE": "1"})
    assert (done.returncode, done.stdout, done.stderr) == (0, "Point2d(1, 2)\n", "")
