"""Draws a scene's node graph, as it stands in the node view, as an SVG picture."""

from xml.sax.saxutils import escape

import brindle

WIDTH, HEIGHT, MARGIN = 110, 30, 40
COLOURS = {"PEG": "#cfe8cf", "READ": "#cfdcf2", "COMPOSITE": "#e2e2e2", "DISPLAY": "#f2e3c4", "CAMERA": "#e7d3ee"}


def draw(scene: brindle.Scene) -> str:
    nodes = {node.path: node for node in scene.nodes}
    places = {path: (node.position.x, node.position.y) for path, node in nodes.items()}
    left = min(x for x, _ in places.values()) - MARGIN
    top = min(y for _, y in places.values()) - MARGIN
    width = max(x for x, _ in places.values()) + WIDTH + MARGIN - left
    height = max(y for _, y in places.values()) + HEIGHT + MARGIN - top
    lines = [
        f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="{left} {top} {width} {height}" '
        'font-family="sans-serif" font-size="11">',
        f'<rect x="{left}" y="{top}" width="{width}" height="{height}" fill="white"/>',
    ]
    for path, node in nodes.items():
        for port in node.ports_in:
            if source := port.source_node:
                lines.append(cable(places[source.path], places[path], port.type))
    for path, node in nodes.items():
        x, y = places[path]
        fill = COLOURS.get(node.type, "#ffffff")
        lines.append(f'<rect x="{x}" y="{y}" width="{WIDTH}" height="{HEIGHT}" rx="5" fill="{fill}" stroke="#555"/>')
        lines.append(f'<text x="{x + WIDTH / 2}" y="{y + 19}" text-anchor="middle">{escape(node.name)}</text>')
    return "\n".join(lines) + "\n</svg>\n"


def cable(source: tuple[int, int], destination: tuple[int, int], kind: str) -> str:
    x1, y1 = source[0] + WIDTH / 2, source[1] + HEIGHT
    x2, y2 = destination[0] + WIDTH / 2, destination[1]
    bend = max(30, abs(y2 - y1) / 2)
    stroke = "#3a8a3a" if kind == "PEG" else "#4a6fb5"
    return (f'<path d="M {x1} {y1} C {x1} {y1 + bend}, {x2} {y2 - bend}, {x2} {y2}" fill="none" '
            f'stroke="{stroke}" stroke-width="1.5"/>')
