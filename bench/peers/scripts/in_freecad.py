"""A script's operations in FreeCAD's Python: objects of a document, with its own undo."""

import sys

sys.path.append("/usr/lib/freecad-python3/lib")

import FreeCAD  # noqa: E402

from report import COUNT, ROUNDS, Report, parent_of  # noqa: E402


def document(name):
    made = FreeCAD.newDocument(name)
    made.UndoMode = 0
    return made


def make(into, name):
    """An object as scripts make them, with properties that they give it."""
    node = into.addObject("App::FeaturePython", name)
    for kind in ("Integer", "Float", "String", "Link"):
        node.addProperty(f"App::Property{kind}", kind)
    return node


def create(into):
    nodes = [make(into, "N0")]
    for index in range(1, COUNT):
        node = make(into, f"N{index}")
        node.Link = nodes[parent_of(index)]
        nodes.append(node)


WRITE = "doc.openTransaction('w'); node.Float = 1.5; doc.commitTransaction()"


def main():
    report = Report()
    doc = document("Short")
    doc.UndoMode = 1
    node = make(doc, "Arm")
    node.Link = make(doc, "Body")
    report.short(dict(doc=doc, node=node), integer="node.Integer", text="node.String", object="node.Link",
                 write=(WRITE, "doc.clearUndos()"))
    FreeCAD.closeDocument("Short")
    doc = document("Many")
    with report.long("create", "node = doc.addObject('App::FeaturePython', name); node.addProperty(...) four times; "
                               "node.Link = parent  # no undo"):  # for its time once
        create(doc)
    doc.UndoMode = 1
    names = dict(FreeCAD=FreeCAD, doc=doc, name=f"N{COUNT // 2}", node=doc.getObject(f"N{COUNT // 2}"), label=doc.Name)
    report.short(names, find="doc.getObject(name)", chain="FreeCAD.getDocument(label).getObject(name).Float",
                 write_many=(WRITE, "doc.clearUndos()"))
    nodes = doc.Objects
    for _ in range(ROUNDS):
        with report.long("iterate", "for node in doc.Objects: node.Label", COUNT):
            for node in doc.Objects:
                node.Label
        doc.clearUndos()
        doc.openTransaction("writes")
        for node in nodes:
            node.Float = 7.0
        doc.commitTransaction()
        with report.long("undo", "doc.undo()"):
            doc.undo()
        for node in nodes:
            node.Float = 0.0
    file = f"{report.folder}/many.FCStd"
    for _ in range(ROUNDS):
        with report.save("save", "doc.saveAs(file)"):
            doc.saveAs(file)
    FreeCAD.closeDocument(doc.Name)
    with report.save("open", "FreeCAD.openDocument(file)"):  # for its time once
        FreeCAD.openDocument(file)
    report.write()


main()
