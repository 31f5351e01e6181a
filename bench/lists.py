"""What one item of a list of 10,000 costs: by index, by name, and whether an object is in the list."""

import brindle

SIZE = 10_000


def measure(samples, root):
    with brindle.create(f"{root}/lists") as app:
        scene, history = app.scene, app.project.history
        with history.bracket("nodes"):
            for index in range(SIZE):
                scene.nodes.create("PEG", f"N{index}")
        with history.bracket("metadata"):
            for index in range(SIZE):
                scene.metadata[f"M{index}"] = index
        column = scene.columns.create("BEZIER", "C")
        for frame in range(SIZE):  # An entry of the history each.
            column[frame % 100 + 1] = frame
        middle = SIZE // 2
        samples.in_turn({
            "node by index": (f"nodes[{middle}]", 1),
            "node in nodes": ("node in nodes", 1),
            "length of nodes": ("len(nodes)", 1),
            "metadata by name": (f"metadata['M{middle}'].value", 1),
            "history by index": (f"history[{middle}]", 1),
        }, {"nodes": scene.nodes, "node": scene.nodes[middle], "metadata": scene.metadata, "history": history})
