"""A script's operations in our project; bench/peers/scripts/report.py says how."""

import brindle

from report import COUNT, ROUNDS, Report, parent_of, silence


def create(scene):
    make = scene.nodes.create
    nodes = [make("PEG", "N0")]
    for index in range(1, COUNT):
        node = make("PEG", f"N{index}")
        node.ports_in[0].link(nodes[parent_of(index)])
        nodes.append(node)


def main():
    report = Report()
    with brindle.create(f"{report.folder}/short") as app:
        node = app.scene.nodes.create("PEG", "Arm")
        report.short(dict(scene=app.scene, node=node, angle=node.attributes["angle"], history=app.project.history),
                     integer="scene.frame_count", text="node.name", object="node.attributes",
                     write=("angle.set_value(10, 1.5)", "history.clear()"))
    app = brindle.create(f"{report.folder}/many")
    history = app.project.history
    for _ in range(ROUNDS):
        history.clear()
        history.begin("nodes")
        with report.long("create", "scene.nodes.create('PEG', name).ports_in[0].link(parent)"):
            create(app.scene)
        history.end()
        history.undo(1)
    history.redo(1)
    scene, nodes = app.scene, app.scene.nodes
    names = dict(scene=scene, nodes=nodes, history=history, path=f"Top/N{COUNT // 2}")
    names["angle"] = nodes[names["path"]].attributes["angle"]
    report.short(names, find="nodes[path]", chain="scene.nodes[path].attributes['position.x'].value(10)",
                 write_many=("angle.set_value(10, 1.5)", "history.clear()"))
    places = [node.position for node in nodes]
    for _ in range(ROUNDS):
        with report.long("iterate", "for node in scene.nodes: node.name", COUNT):
            for node in nodes:
                node.name
        history.clear()
        history.begin("writes")
        for place in places:
            place.x = 7
        history.end()
        with report.long("undo", "history.undo(1)"):
            history.undo(1)
    history.clear()
    for _ in range(ROUNDS):
        with report.save("save", "app.save()"):
            app.save()
        app.close()
        with report.save("open", "brindle.open(folder)"):
            app = brindle.open(f"{report.folder}/many")
    app.close()
    with brindle.create(f"{report.folder}/keys") as app:
        keys(app, report)
    report.write()


def keys(app, report):
    app.scene.frame_count = 2 * COUNT
    node, history = app.scene.nodes.create("PEG", "Arm"), app.project.history
    angle, skew = node.attributes["angle"], node.attributes["skew"]
    skew.set_value(1, 1.0)
    frames = list(range(1, COUNT + 1))
    for _ in range(ROUNDS):
        history.begin("keys")
        with report.long("keys", "angle.set_value(frame, value)", COUNT):
            for frame in frames:
                angle.set_value(2 * frame, frame % 97)
        history.end()
        with silence(), report.long("keys_at_once", "column.keyframe_create(frames)", COUNT):
            skew.column.keyframe_create(frames)
        history.undo(2)
    history.redo(2)
    report.short(dict(angle=angle), evaluate=f"angle.value({COUNT + 1})")


main()
