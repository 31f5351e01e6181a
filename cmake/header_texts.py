#!/usr/bin/python3
"""Writes what the headers say about each class and member as a table in C++, from which Python's texts come.

    cmake/header_texts.py SOURCE_DIR OUTPUT HEADER...

A class is described by the first paragraph of the `///` comment above it, a member by the comment above or behind it, a
property by its getter's comment with its setter's behind it; overloads share their texts. A member without a comment
has that of the base class that declares it. In the texts, C++ names become the script's and null becomes None. The
table also names the getter and the setter of each property, and the place of each declaration, for those who look for
what has no text.
"""

import json
import pathlib
import re
import sys

WORDS = {"null": "None", "nullptr": "None", "true": "True", "false": "False",
         "throw": "raise", "throws": "raises", "Throws": "Raises", "Throw": "Raise",
         "Null": "None"}
# A text in quotes, or a name with what it is qualified by.
TOKEN = re.compile(r'"[^"]*"|[A-Za-z_]\w*(?:::[A-Za-z_]\w*)*')
PROPERTY = re.compile(r"Q_PROPERTY\(\s*[^()]*?(\w+)\s+READ\s+(\w+)(?:\s+WRITE\s+(\w+))?")
CLASS = re.compile(r"^(?:template\s*<[^;{]*>\s*)?(?:class|struct)\s+(?:[A-Z_]+_EXPORT\s+)?(\w+)(?:\s+final)?\s*(?::(?!:)([^{;]*))?\{")
FUNCTION = re.compile(r"(operator\s*\S+?|~?\w+)\s*\($")
NO_MEMBERS = ("friend", "using", "class", "struct", "enum", "static constexpr")
FIELD = re.compile(r"(\w+)\s*(?:=[^;]*|\{[^;]*)?;$")


def script_name(name):
    """A C++ name as scripts have it: "frameInsert" is "frame_insert", "fromQVariant" "from_qvariant"."""
    name = name.replace("QVariant", "Qvariant")
    return re.sub(r"(?<=[a-z0-9])(?=[A-Z])|(?<=[A-Z])(?=[A-Z][a-z])", "_", name).lower()


class Class:
    def __init__(self, name, bases, text, place):
        self.name = name  # "OMC::Node"
        self.bases = bases
        self.text = text
        self.place = place
        self.is_object = False
        self.is_private = False
        self.properties = []  # Name, getter, setter, place.
        self.members = {}  # Of a C++ name: its texts and its place.

    def add(self, member, text, place):
        texts, _ = self.members.setdefault(member, ([], place))
        if text and text not in texts:
            texts.append(text)
        return texts


class Reader:
    """Reads the classes of one header, formed as clang-format leaves it."""

    def __init__(self, name, text):
        self.name = name
        self.lines = text.splitlines()
        self.classes = []
        self.last = None  # The member that was declared last: its texts.

    def read(self):
        scope = []  # Of each open brace: a namespace's name, a Class, or None for anything else.
        comment = []
        statement = ""
        start = 0
        in_directive = False
        for number, line in enumerate(self.lines, 1):
            in_directive = in_directive or line.startswith("#")
            if in_directive:
                in_directive = line.endswith("\\")
                continue
            code, behind = self.split(line)
            if not code:
                if behind:
                    self.goes_on(behind)
                elif line.strip().startswith("///"):
                    comment.append(line.strip()[3:].strip())
                elif not line.strip().startswith("//"):
                    comment = [] if not statement else comment
                continue
            if behind:
                comment.append(behind)
            start = start if statement else number
            statement = f"{statement} {code}".strip()
            if re.fullmatch(r"(public|protected|private|Q_SIGNALS):", statement):
                if scope and isinstance(scope[-1], Class):
                    scope[-1].is_private = statement == "private:"
                statement, comment = "", []
                continue
            if re.fullmatch(r"(Q|BRINDLE)_\w+(\(.*\))?", statement):
                self.macro(scope, statement, start)
                statement, comment = "", []
                continue
            opened, closed = statement.count("{"), statement.count("}")
            if opened > closed and not statement.endswith("{"):
                continue
            if opened > closed:
                scope += [self.open(scope, statement, comment, start)] + [None] * (opened - closed - 1)
            elif closed > opened:
                del scope[len(scope) - (closed - opened):]
            elif statement.endswith((";", "}")):
                self.declare(scope, statement, comment, start)
            else:
                continue
            statement, comment = "", []
        return self.classes

    def split(self, line):
        """The code of a line, and the `///<` comment behind it."""
        code, mark, behind = line.partition("///<")
        if not mark:
            code = line.split("//", 1)[0]
        return code.strip(), behind.strip()

    def open(self, scope, statement, comment, line):
        if match := re.fullmatch(r"namespace ([\w:]*)\s*\{", statement):
            return match[1]
        owner = scope[-1] if scope else ""
        if isinstance(owner, str) and (match := CLASS.match(statement)):
            space = "::".join(name for name in scope if isinstance(name, str) and name)
            # The arguments of a template may be base classes of what it makes.
            bases = re.findall(r"[A-Za-z_][\w:]*", match[2] or "")
            found = Class(f"{space}::{match[1]}", bases, first_paragraph(comment), f"{self.name}:{line}")
            self.classes.append(found)
            return found
        if isinstance(owner, Class):
            self.declare(scope, statement, comment, line)
        return None

    def macro(self, scope, statement, line):
        owner = scope[-1] if scope else None
        if not isinstance(owner, Class):
            return
        if statement == "Q_OBJECT":
            owner.is_object = True
        if match := PROPERTY.match(statement):
            owner.properties.append((match[1], match[2], match[3], f"{self.name}:{line}"))

    def declare(self, scope, statement, comment, line):
        owner = scope[-1] if scope else None
        if not isinstance(owner, Class) or owner.is_private or statement.startswith(NO_MEMBERS):
            return
        head, bracket, _ = statement.partition("(")
        match = FUNCTION.search(head + bracket) if bracket else FIELD.search(statement)
        constructor = owner.name.rpartition("::")[2]
        if match and match[1] not in (constructor, f"~{constructor}") and not match[1].startswith("operator"):
            self.last = owner.add(match[1], first_paragraph(comment), f"{self.name}:{line}")

    def goes_on(self, text):
        """The next line of a comment behind a member."""
        if self.last:
            self.last[-1] += f" {text}"


def first_paragraph(comment):
    lines = comment[:comment.index("")] if "" in comment else comment
    return " ".join(lines)


class Library:
    """The classes of all headers, by name."""

    def __init__(self, classes):
        self.classes = {found.name: found for found in classes}

    def line_of(self, found):
        """The class and its base classes, nearest first."""
        line = [found]
        for entry in line:
            space = entry.name.rpartition("::")[0]
            for base in entry.bases:
                names = (base, f"{space}::{base}", f"OMC::{base}")
                line += [self.classes[name] for name in names if name in self.classes and self.classes[name] not in line]
        return line

    def member(self, line, name):
        """The text of a member and its place: of the nearest class that says something about it."""
        declared = [entry.members[name] for entry in line if name in entry.members]
        for texts, place in declared:
            if texts:
                return " ".join(texts), place
        return "", declared[0][1] if declared else None

    def table(self, found):
        """Of each script name that the class adds: text, place, getter, setter. A base class that is no QObject, and
        so no class in Python, adds its members to this one."""
        line = self.line_of(found)
        getters = {getter: name for entry in reversed(line) for name, getter, _, _ in entry.properties}
        rows = {}
        for entry in line:
            for name in entry.members if entry is found or not entry.is_object else ():
                text, place = self.member(line, name)
                rows.setdefault(script_name(name), (self.in_script(text, getters), place, None, None))
        for name, getter, setter, place in found.properties:
            said, getter_place = self.member(line, getter)
            more = self.member(line, setter)[0] if setter else ""
            text = said if more in said else f"{said} {more}".strip()
            rows[name] = (self.in_script(text, getters), getter_place or place, script_name(getter),
                          script_name(setter) if setter else None)
        return rows

    @staticmethod
    def in_script(text, getters):
        def translate(match):
            word = match[0]
            if word.startswith('"'):
                return word
            if word in WORDS:
                return WORDS[word]
            *owners, name = word.split("::")
            owners = [owner for owner in owners if owner != "OMC"]
            if name in getters and not owners:
                return getters[name]
            if owners or re.fullmatch(r"[a-z]+[a-z0-9]*[A-Z]\w*", name):
                return ".".join([*owners, script_name(name)])
            return name

        return TOKEN.sub(translate, text)


def quoted(text):
    return json.dumps(text, ensure_ascii=False) if text else "nullptr"


def source(library):
    lines = ["// Written by cmake/header_texts.py from the comments in the headers.",
             '#include "service/python/headertexts.h"', "", "namespace brindle::python {", "", "namespace {", ""]
    classes = sorted((found for found in library.classes.values() if found.is_object), key=lambda found: found.name)
    for number, found in enumerate(classes):
        lines.append(f"constexpr MemberText members{number}[] = {{")
        for name, (text, place, getter, setter) in sorted(library.table(found).items()):
            lines.append(f"    {{{quoted(name)}, {quoted(text)}, {quoted(place)}, {quoted(getter)}, {quoted(setter)}}},")
        lines += ["    {}};", ""]
    lines.append("constexpr ClassText classes[] = {")
    for number, found in enumerate(classes):
        text = Library.in_script(found.text, {})
        lines.append(f"    {{{quoted(found.name)}, {quoted(text)}, {quoted(found.place)}, members{number}, "
                     f"std::size(members{number}) - 1}},")
    lines += ["};", "", "} // namespace", "", "std::span<const ClassText> allClassTexts()", "{", "    return classes;",
              "}", "", "} // namespace brindle::python", ""]
    return "\n".join(lines)


def main():
    root, output, *headers = map(pathlib.Path, sys.argv[1:])
    classes = []
    for header in headers:
        classes += Reader(header.relative_to(root).as_posix(), header.read_text(encoding="utf-8")).read()
    text = source(Library(classes))
    if not output.exists() or output.read_text(encoding="utf-8") != text:
        output.parent.mkdir(parents=True, exist_ok=True)
        output.write_text(text, encoding="utf-8")
    return 0


if __name__ == "__main__":
    sys.exit(main())
