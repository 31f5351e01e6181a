"""A script's operations with PyQt alone: objects with properties, Qt's undo stack; what PyQt can't do is left out."""

from PyQt6.QtCore import QCoreApplication, QEasingCurve, QObject, pyqtProperty
from PyQt6.QtGui import QUndoCommand, QUndoStack

from report import COUNT, ROUNDS, Report, parent_of


class Node(QObject):
    def __init__(self, parent, name):
        super().__init__(parent)
        self.setObjectName(name)
        self.place = 0.0
        self.source = None

    @pyqtProperty(float)
    def x(self):
        return self.place

    @x.setter
    def x(self, value):
        self.place = value

    @pyqtProperty(int)
    def count(self):
        return 60

    @pyqtProperty(QObject)
    def curve(self):
        return QEasingCurve()


class Write(QUndoCommand):
    def __init__(self, node, value, parent=None):
        super().__init__("Write", parent)
        self.node, self.before, self.after = node, node.place, value

    def redo(self):
        self.node.place = self.after

    def undo(self):
        self.node.place = self.before


def create(root):
    nodes = [Node(root, "N0")]
    for index in range(1, COUNT):
        node = Node(root, f"N{index}")
        node.source = nodes[parent_of(index)]
        nodes.append(node)


def main():
    report = Report()
    application = QCoreApplication([])
    history = QUndoStack()
    report.short(dict(node=Node(None, "Arm"), history=history, Write=Write),
                 integer="node.count", text="node.objectName()", object="node.curve",
                 write=("history.push(Write(node, 1.5))", "history.clear()"))
    for _ in range(ROUNDS):
        root = QObject()
        with report.long("create", "Node(root, name).source = parent  # no undo"):
            create(root)
    report.short(dict(root=root, QObject=QObject, name=f"N{COUNT // 2}"), find="root.findChild(QObject, name)",
                 chain="root.findChild(QObject, name).x")
    nodes = root.children()
    for _ in range(ROUNDS):
        with report.long("iterate", "for node in root.children(): node.objectName()", COUNT):
            for node in root.children():
                node.objectName()
        history.clear()
        writes = QUndoCommand("Writes")
        for node in nodes:
            Write(node, 7.0, writes)
        history.push(writes)
        with report.long("undo", "history.undo()"):
            history.undo()
    del application
    report.write()


main()
