"""A script's short operations: what is timed and counted, and the objects that the statements name.

A statement is (code, how often it does the operation[, code to run ahead]).
"""

import copy

import brindle

STATEMENTS = {
    "loop": ("pass", 1),
    "read int": ("scene.frame_count", 1),
    "read str": ("node.name", 1),
    "read object": ("node.attributes", 1),
    "read list": ("scene.nodes", 1),
    "read object in variant": ("node.position", 1),
    "look up": ("nodes['Top/Arm']", 1),
    "attribute by keyword": ("attributes['angle']", 1),
    "attribute by path": ("attributes['position.x']", 1),
    "value": ("angle.value(10)", 1),
    "chain by keyword": ("scene.nodes['Top/Arm'].attributes['angle'].value(10)", 1),
    "write property": ("place.x = 5; place.x = 6", 2, "history.clear()"),
    "write scene": ("scene.frame_count = 50; scene.frame_count = 60", 2, "history.clear()"),
    "matrix multiply": ("matrix.multiply(turn)", 1),
    "make point": ("Point2d(1.5, -2.5)", 1),
    "read point": ("Point2d(pair)", 1),
    "copy point": ("copy(point)", 1),
    "evaluate curve": ("curve.evaluate(0.3)", 1),
    "nearest point": ("curve.closest_point(pair)", 1),
    "read curve": ("Bezier(corners)", 1),
    "set_value": ("angle.set_value(10, 1.5); angle.set_value(10, 2.5)", 2, "history.clear()"),
}


def turn():
    matrix = brindle.Matrix()
    matrix.rotate_degrees(30)
    return matrix


def names(app):
    """The objects that the statements name, in a new project: a peg "Top/Arm" and values."""
    scene = app.scene
    node = scene.nodes.create("PEG", "Arm")
    return dict(scene=scene, node=node, nodes=scene.nodes, place=node.position, attributes=node.attributes,
                angle=node.attributes["angle"], history=app.project.history, Point2d=brindle.Point2d, pair=[1.5, -2.5],
                point=brindle.Point2d(1.5, -2.5), copy=copy.copy, matrix=brindle.Matrix(), turn=turn(),
                curve=brindle.BezierPath.create_circle().bezier(0), Bezier=brindle.Bezier,
                corners=[[0.0, 0.0], [1.0, 6.0], [7.0, 8.0], [10.0, 1.0]])
