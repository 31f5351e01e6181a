"""The checks of the build refuse what they are there to refuse."""

import pathlib
import subprocess

import pytest

ROOT = pathlib.Path(__file__).parents[2]


@pytest.fixture
def tree(tmp_path):
    for header in ("core/frame/obj.h", "core/host/mo_node.h", "engine/engine.h", "engine/graph/node.h",
                   "service/python/module.h"):
        path = tmp_path / header
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text("#pragma once\n")
    return tmp_path


def check_layers(tree):
    done = subprocess.run(
        ["/usr/bin/python3", ROOT / "cmake/check_layers.py", tree], capture_output=True, text=True)
    return done.returncode, done.stderr


@pytest.mark.parametrize("file, include, reason", [
    ("core/nodes/node.cpp", '"engine/graph/node.h"', 'core/ may not include "engine/graph/node.h"'),
    ("core/nodes/node.cpp", "<engine/graph/node.h>", 'core/ may not include "engine/graph/node.h"'),
    ("core/nodes/node.cpp", '"service/python/module.h"', 'core/ may not include "service/python/module.h"'),
    ("core/nodes/node.cpp", "<Python.h>", "core/ may not include <Python.h>"),
    ("core/nodes/node.cpp", "<Imath/ImathMatrix.h>", "core/ may not include <Imath/ImathMatrix.h>"),
    ("core/frame/other.cpp", '"obj.h"',
     '"obj.h" is no header of the project; name it from the root, as in "core/frame/obj.h"'),
    ("core/host/mo_port.h", '"core/frame/obj.h"', 'core/host/ may not include "core/frame/obj.h"'),
    ("core/host/mo_port.h", "<QObject>", "core/host/ knows Qt's value types only, not <QObject>"),
    ("engine/graph/port.cpp", '"core/frame/obj.h"', 'engine/ may not include "core/frame/obj.h"'),
    ("engine/graph/port.cpp", "<Python.h>", "engine/ may not include <Python.h>"),
    ("service/application.cpp", '"engine/engine.h"', 'service/ may not include "engine/engine.h"'),
    ("app/main.cpp", '"engine/graph/node.h"', 'app/ may not include "engine/graph/node.h"'),
])
def test_an_include_that_a_folder_may_not_have_is_refused_with_its_place(tree, file, include, reason):
    source = tree / file
    source.parent.mkdir(parents=True, exist_ok=True)
    source.write_text(f"#include <QString>\n\n#include {include}\n")
    assert check_layers(tree) == (1, f"{file}:3: {reason}\n")


@pytest.mark.parametrize("file, include", [
    ("core/nodes/node.cpp", '"core/host/mo_node.h"'),
    ("core/nodes/node.cpp", "<QObject>"),
    ("core/nodes/node.cpp", '"moc_node.cpp"'),
    ("core/host/mo_port.h", "<QString>"),
    ("core/host/mo_port.h", "<vector>"),
    ("engine/graph/port.cpp", '"core/host/mo_node.h"'),
    ("engine/graph/port.cpp", "<Imath/ImathMatrix.h>"),
    ("service/application.cpp", "<Python.h>"),
    ("app/main.cpp", '"engine/engine.h"'),
])
def test_an_include_that_a_folder_may_have_passes(tree, file, include):
    source = tree / file
    source.parent.mkdir(parents=True, exist_ok=True)
    source.write_text(f"#include {include}\n")
    assert check_layers(tree) == (0, "")


EXPORTS = """
#include <string>
#include <vector>
#define SHOWN __attribute__((visibility("default")))
struct MO_Node { virtual ~MO_Node() = default; };
namespace OMC {
struct SHOWN Node : MO_Node { ~Node() override; };
Node::~Node() = default;
SHOWN int count(std::vector<std::string> names) { names.push_back("Arm"); return int(names.size()); }
template <class T> SHOWN T* same(T* value) { return value; }
template SHOWN Node* same<Node>(Node*);
}
"""


def check_exports(tmp_path, code):
    source = tmp_path / "library.cpp"
    source.write_text(code)
    host = tmp_path / "host"
    host.mkdir(exist_ok=True)
    (host / "mo_node.h").write_text("class BRINDLE_HOST_EXPORT MO_Node\n{\n};\n")
    library = tmp_path / "library.so"
    subprocess.run(
        ["g++", "-std=c++20", "-shared", "-fPIC", "-fvisibility=hidden", "-fvisibility-inlines-hidden",
         f"-Wl,--version-script={ROOT / 'cmake/exports.map'}", source, "-o", library], check=True)
    done = subprocess.run(
        ["/usr/bin/python3", ROOT / "cmake/check_exports.py", library, host], capture_output=True, text=True)
    return done.returncode, done.stderr


def test_a_library_that_shows_its_own_namespaces_passes(tmp_path):
    assert check_exports(tmp_path, EXPORTS) == (0, "")


def test_a_symbol_outside_the_own_namespaces_is_listed(tmp_path):
    code = EXPORTS + "SHOWN int helper(OMC::Node*) { return 1; }\n"
    assert check_exports(tmp_path, code) == (1, "library.so exports helper(OMC::Node*)\n")


def test_a_public_class_outside_the_own_namespaces_is_listed(tmp_path):
    code = EXPORTS + "namespace detail { struct SHOWN Cache { virtual ~Cache(); }; Cache::~Cache() = default; }\n"
    status, listed = check_exports(tmp_path, code)
    assert status == 1
    assert "library.so exports vtable for detail::Cache\n" in listed
    assert "library.so exports detail::Cache::~Cache()\n" in listed
