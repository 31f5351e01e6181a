#!/usr/bin/python3
"""Refuses an include that a folder may not have.

    check_layers.py <root>

Prints file:line and the reason for each, and fails when there is one. The table below is the whole rule.
"""

import os
import re
import sys

# The engine's header that a program may include to start it; all others are the engine's own.
ENGINE_PUBLIC = ("engine/engine.h",)

# What the engine asks of the library that draws, which that one defines.
ENGINE_SEAM = ("engine/cels/renderlibrary.h",)

# Qt classes that are values: the only ones that the seam between the object model and an engine speaks.
QT_VALUES = {
    "QtGlobal", "QtTypes", "QAnyStringView", "QBitArray", "QByteArray", "QByteArrayView", "QChar", "QColor", "QDate",
    "QDateTime", "QExplicitlySharedDataPointer", "QFlags", "QHash", "QImage", "QLatin1String", "QLine", "QLineF",
    "QList", "QMap", "QMultiHash", "QMultiMap", "QPair", "QPoint", "QPointF", "QPolygonF", "QRect", "QRectF",
    "QRegularExpression", "QSet", "QSharedData", "QSharedPointer", "QSize", "QSizeF", "QString", "QStringList",
    "QStringView", "QTime", "QUrl", "QUuid", "QVariant", "QVariantList", "QVariantMap", "QVector",
}

# Longest folder first: folder -> (project headers it may include, foreign headers it may not, Qt it may include).
PYTHON = r"Python\.h|structmember\.h"
LIBRARIES = r"2geom/.*|Imath/.*|muParser.*\.h|OpenColorIO/.*|OpenImageIO/.*|Imf.*\.h|OpenEXR/.*|png\.h"
QML = r"Qt(Qml|Quick).*|QJS.*|QQml.*"
LAYERS = (
    ("core/host/", ("core/host/",), rf"{PYTHON}|{LIBRARIES}", QT_VALUES),
    ("core/", ("core/", "qtscript/"), rf"{PYTHON}|{QML}|{LIBRARIES}", None),
    ("engine/", ("engine/", "core/host/"), PYTHON, None),
    ("qtscript/", ("qtscript/",), rf"{PYTHON}|{LIBRARIES}", None),
    ("javascript/", ("javascript/", "core/", "qtscript/"), rf"{PYTHON}|{LIBRARIES}", None),
    ("svg/", ("svg/", "core/"), rf"{PYTHON}|{LIBRARIES}", None),
    ("render/imageio/", ("render/imageio/",), rf"{PYTHON}|Q[A-Z].*", None),
    ("render/", ("render/", "core/host/") + ENGINE_SEAM, PYTHON, None),
    ("service/", ("service/", "core/"), LIBRARIES, None),
    ("app/", ("app/", "service/", "core/") + ENGINE_PUBLIC, rf"{PYTHON}|{LIBRARIES}", None),
)

INCLUDE = re.compile(r'^\s*#\s*(?:include|import)\s*(?:"([^"]+)"|<([^>]+)>)')
GENERATED = re.compile(r"(?:^|/)(?:moc_[^/]+\.cpp|[^/]+\.moc)$")
PROJECT_FOLDERS = ("core/", "engine/", "qtscript/", "javascript/", "svg/", "render/", "service/", "app/", "tests/",
                   "bench/")


def refusal(root, layer, quoted, angled):
    """Why the folder may not have this include, or None."""
    folder, allowed, foreign, qt = layer
    header = quoted or angled
    if quoted and GENERATED.search(quoted):
        return None
    if quoted and not os.path.isfile(os.path.join(root, quoted)):
        return f'"{quoted}" is no header of the project; name it from the root, as in "core/frame/obj.h"'
    if quoted or header.startswith(PROJECT_FOLDERS):
        return None if header.startswith(allowed) else f'{folder} may not include "{header}"'
    if re.fullmatch(foreign, header):
        return f"{folder} may not include <{header}>"
    name = header.rsplit("/", 1)[-1]
    if qt is not None and re.match(r"Q[A-Zt]|Qt|q[a-z]+\.h$", name) and name not in qt:
        return f"{folder} knows Qt's value types only, not <{header}>"
    return None


def violations(root):
    for layer in LAYERS:
        for path, folders, names in os.walk(os.path.join(root, layer[0])):
            folders.sort()
            if layer[0] == "core/" and os.path.relpath(path, root) == "core":
                folders[:] = [name for name in folders if name != "host"]
            for name in sorted(names):
                if not name.endswith((".h", ".hpp", ".cpp", ".inl")):
                    continue
                file = os.path.join(path, name)
                with open(file, encoding="utf-8") as text:
                    for number, line in enumerate(text, 1):
                        found = INCLUDE.match(line)
                        reason = found and refusal(root, layer, *found.groups())
                        if reason:
                            yield f"{os.path.relpath(file, root)}:{number}: {reason}"


def main():
    found = list(violations(sys.argv[1]))
    for line in found:
        print(line, file=sys.stderr)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
