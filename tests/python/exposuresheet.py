"""A project with an exposure sheet."""

import json

import brindle


def project_with_sheet(folder):
    """Makes a project whose scene has a drawing column "Arm" of the element "Arm", which the node "Arm" shows, one
    without an element, which "Bare" shows, and a timing column, linked to "Mouth". Gives its folder."""
    with brindle.create(folder) as app:
        app.elements.create("Arm")
        for name in ("Arm", "Bare", "Mouth"):
            app.scene.nodes.create("READ", name)
        app.save()
    path = folder / "scenes" / "Scene-1.json"
    scene = json.loads(path.read_text())
    scene["columns"] = [{"name": "Arm", "type": "DRAWING", "element": 1, "exposures": []},
                        {"name": "Bare", "type": "DRAWING", "exposures": []},
                        {"name": "Mouth", "type": "TIMING", "exposures": []}]
    links = {"Arm": ("drawing.element", "Arm"), "Bare": ("drawing.element", "Bare"),
             "Mouth": ("drawing.timing", "Mouth")}
    for node in scene["nodes"]:
        if node["name"] in links:
            keyword, column = links[node["name"]]
            node["columns"] = {keyword: column}
    path.write_text(json.dumps(scene))
    return folder
