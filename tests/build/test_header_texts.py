"""What Python says about the classes comes from the comments in the headers."""

import pathlib
import re
import subprocess
import sys

import pytest

ROOT = pathlib.Path(__file__).parents[2]
sys.path.insert(0, str(ROOT / "cmake"))

import header_texts  # noqa: E402

HEADER = '''#pragma once

#define TWICE(Class)                                                          \\
public:                                                                       \\
    Class* twice() const                                                      \\
    {                                                                         \\
        return new Class(*this);                                              \\
    }

class Elsewhere;

namespace OMC {

/// A thing that `frameInsert` fills, "null" or
/// not.
///
/// For those who read C++.
class EXPORT_EXPORT Thing : public BaseObject, public Items<int, Obj> {
    Q_OBJECT
    Q_PROPERTY(OMC::Obj source READ getSrc WRITE setSrc)
    Q_PROPERTY(int plain READ getPlain)

public:
    explicit Thing(int count); ///< No text of a member.
    ~Thing() override;

    /// Inserts frames, as `Other::fromQVariant` reads them.
    bool frameInsert(int at,
                     int count);
    bool frameInsert(int at); ///< Throws for null.

    Obj getSrc() const; ///< The source, or null.
    void setSrc(const Obj& source); ///< Writing links as getPlain does.
    int getPlain() const { return m_plain; }
    Obj getLong() const; ///< It begins here
                         ///< and goes on.

    double x = 0; ///< To the right.

protected:
    void hidden(); ///< A derived class may publish it.

private:
    struct Part {
        int inner; ///< Nor this.
    };
    int m_plain = 0;
};

struct Thing::Record {
    int count;
};

} // namespace OMC
'''


def table(*headers):
    classes = []
    for header in headers:
        classes += header_texts.Reader("core/thing.h", header).read()
    library = header_texts.Library(classes)
    return {name: library.table(found) for name, found in library.classes.items()}


@pytest.fixture(scope="module")
def thing():
    return table(HEADER)["OMC::Thing"]


@pytest.mark.parametrize("name, script", [
    ("frameInsert", "frame_insert"), ("toOgl", "to_ogl"), ("nFrames", "n_frames"), ("fromHSL", "from_hsl"),
    ("fromQVariant", "from_qvariant"), ("QVariantToRGBAInt", "qvariant_to_rgba_int"), ("setYAxis", "set_y_axis"),
    ("extractParameters_2d", "extract_parameters_2d"), ("getDefaultFOV", "get_default_fov"), ("x", "x"),
])
def test_a_name_in_python(name, script):
    assert header_texts.script_name(name) == script


@pytest.mark.parametrize("member, text", [
    ("frame_insert", "Inserts frames, as `Other.from_qvariant` reads them. Raises for None."),
    ("source", "The source, or None. Writing links as plain does."),
    ("plain", ""),
    ("get_long", "It begins here and goes on."),
    ("x", "To the right."),
])
def test_the_text_of_a_member(thing, member, text):
    assert thing[member][0] == text


def test_private_members_have_no_texts(thing):
    assert set(thing) == {"frame_insert", "source", "plain", "get_src", "set_src", "get_plain", "get_long", "x", "hidden"}


def test_a_property_names_its_functions_and_its_place(thing):
    assert thing["source"][1:] == ("core/thing.h:32", "get_src", "set_src")
    assert thing["plain"][1:] == ("core/thing.h:34", "get_plain", None)


def test_a_class_is_described_by_the_first_paragraph_above_it():
    (found,) = [entry for entry in header_texts.Reader("core/thing.h", HEADER).read() if entry.is_object]
    assert (found.text, found.place) == ('A thing that `frameInsert` fills, "null" or not.', "core/thing.h:18")
    assert header_texts.Library.in_script(found.text, {}) == 'A thing that `frame_insert` fills, "null" or not.'


def test_a_member_without_a_text_has_that_of_the_base_class():
    derived = '''namespace OMC {
class Special : public Thing {
    Q_OBJECT
    Q_PROPERTY(int other READ getLong)

public:
    bool frameInsert(int at) override;
    Obj getLong() const override;
};
} // namespace OMC
'''
    special = table(HEADER, derived)["OMC::Special"]
    assert special["other"][0] == "It begins here and goes on."
    assert special["frame_insert"][0] == "Inserts frames, as `Other.from_qvariant` reads them. Raises for None."


def test_the_table_is_written_only_when_it_changes(tmp_path):
    header = tmp_path / "core/thing.h"
    header.parent.mkdir()
    header.write_text(HEADER)
    output = tmp_path / "texts.cpp"
    command = ["/usr/bin/python3", ROOT / "cmake/header_texts.py", tmp_path, output, header]
    subprocess.run(command, check=True)
    written = output.stat().st_mtime_ns
    assert re.search(r'\{"x", "To the right.", "core/thing.h:\d+", nullptr, nullptr\}', output.read_text())
    subprocess.run(command, check=True)
    assert output.stat().st_mtime_ns == written


def test_no_row_says_what_a_header_says():
    headers = [path for folder in ("core", "service") for path in sorted((ROOT / folder).rglob("*.h"))
               if "core/host" not in path.as_posix()]
    library = header_texts.Library([found for path in headers for found in
                                    header_texts.Reader(path.relative_to(ROOT).as_posix(), path.read_text()).read()])
    said = {}
    for found in library.classes.values():
        texts = said.setdefault(found.name.rpartition("::")[2], {})
        for base in reversed(library.line_of(found)):
            texts |= {name: row[0] for name, row in library.table(base).items() if row[0]}
    twice = []
    for path in sorted((ROOT / "service/python").glob("*/*.cpp")):
        owner = None
        for part in re.split(r"(?=\b(?:optionsC|C)lass<|\.method<|\.staticMethod<)", path.read_text()):
            if match := re.match(r"(?:optionsC|C)lass<([\w:]+)>", part):
                owner = match[1].rpartition("::")[2]
            elif (match := re.match(r'\.(?:method|staticMethod)<"(\w+)"', part)) and re.search(r'>\(\s*"', part):
                if said.get(owner, {}).get(match[1]):
                    twice.append(f"{path.name}: {owner}.{match[1]}")
    assert not twice
