"""Metrics of a process without windows: options, visits of nodes, and what needs a camera view."""

import copy
import pickle
import re

import brindle
import pytest

from support import ROOT, message_of, run_python, saved

OPTIONS = {
    brindle.NodeVisitOptions: {"frame": 0, "top_count": 10, "cache_enabled": True},
    brindle.PlaybackOptions: {"frame_start": 1, "frame_end": 0, "loop_count": 1, "cache_enabled": False},
    brindle.ReportOptions: {"frame_start": 1, "frame_end": 0, "split_count": 10, "loop_count": 5, "top_count": 5,
                            "cache_enabled": False, "file_path": ""},
}
TEXTS = {
    brindle.NodeVisitOptions: "NodeVisitOptions([0,10,True])",
    brindle.PlaybackOptions: "PlaybackOptions([1,0,1,False])",
    brindle.ReportOptions: 'ReportOptions([1,0,10,5,5,False,""])',
}


def fields(options):
    return {name: getattr(options, name) for name in OPTIONS[type(options)]}


@pytest.mark.parametrize("kind", OPTIONS, ids=lambda kind: kind.__name__)
def test_options_have_their_defaults_and_are_read_from_a_dict_and_a_text(kind):
    assert fields(kind()) == OPTIONS[kind] and str(kind()) == TEXTS[kind]
    assert fields(kind({"nothing": 1, "cache_enabled".upper(): True})) == OPTIONS[kind] | {"cache_enabled": True}
    # A text is read by its positions; the file of a report has none.
    text = ",".join(["7"] * 7)
    expected = {name: value if name == "file_path" else False if name == "cache_enabled" else 7
                for name, value in OPTIONS[kind].items()}
    assert fields(kind(text)) == expected
    for again in (copy.copy(kind(text)), pickle.loads(pickle.dumps(kind(text)))):
        assert fields(again) == expected


def test_the_repr_makes_the_options_again():
    options = brindle.ReportOptions({"file_path": "it's \"here\".csv", "loop_count": 2})
    assert fields(eval(f"brindle.{options!r}")) == fields(options)


def test_the_default_of_the_cache_is_the_preference(app):
    preferences = app.preferences
    preferences["OPENGL_ENABLE_PLAYBACK_CACHE"] = True
    try:
        assert brindle.PlaybackOptions().cache_enabled and brindle.ReportOptions().cache_enabled
        assert not brindle.PlaybackOptions({"cache_enabled": False}).cache_enabled
    finally:
        preferences.reset("OPENGL_ENABLE_PLAYBACK_CACHE")
    assert not brindle.PlaybackOptions().cache_enabled


def scene_of_cards(app):
    """Two cards below the display, and one that nobody shows."""
    nodes = app.scene.nodes
    for name in ("Sky", "Ground", "Unseen"):
        card = nodes.create("COLOR_CARD", name)
        if name != "Unseen":
            nodes["Top/Composite"].ports_in.create().link(card)
    return nodes


def lists_of(lines):
    """The lists of a visit, by their headings: the total, and the nodes with their figures."""
    lists = {}
    for line in lines:
        head, _, figure = line.partition(": ")
        if not figure:
            entries = lists[line.strip()] = {}
        else:
            entries[head] = float(figure)
    return lists


def test_a_visit_counts_the_nodes_that_are_shown(app):
    nodes = scene_of_cards(app)
    metrics = app.metrics
    assert str(metrics) == "Metrics()"
    lines = metrics.generate_node_visit_data()
    assert lines[0] == "Hit Count" and "\nTraverse Time (msec)" in lines
    lists = lists_of(lines)
    assert list(lists) == ["Hit Count", "Traverse Time (msec)", "Compute Time (msec)", "Render Time (msec)"]
    shown = {"Top/Display", "Top/Composite", "Top/Sky", "Top/Ground"}
    hits = lists["Hit Count"]
    assert set(hits) == {"Total"} | shown and hits["Total"] == 4
    for name, entries in lists.items():
        figures = [figure for node, figure in entries.items() if node != "Total"]
        assert figures == sorted(figures, reverse=True) and sum(figures) == pytest.approx(entries["Total"], rel=1e-4)
    assert lists["Render Time (msec)"]["Total"] > 0
    nodes.remove("Top/Ground")
    hits = lists_of(metrics.generate_node_visit_data({"frame": 3, "top_count": 1}))["Hit Count"]
    assert hits.pop("Total") == 3 and len(hits) == 1 and set(hits) < shown


def test_a_visit_without_entries_tells_headings_and_totals(app):
    scene_of_cards(app)
    lines = app.metrics.generate_node_visit_data(brindle.NodeVisitOptions({"top_count": 0, "cache_enabled": False}))
    assert [line.split(":")[0] for line in lines] == [
        "Hit Count", "Total", "\nTraverse Time (msec)", "Total", "\nCompute Time (msec)", "Total",
        "\nRender Time (msec)", "Total"]


def test_measuring_changes_nothing_of_the_project(app, folder):
    scene_of_cards(app)
    before = saved(app, folder)
    app.metrics.generate_node_visit_data()
    assert saved(app, folder) == before


def test_playback_needs_a_camera_view(app):
    sentence = "Camera View must be visibe in order to generate playback metrics."
    assert message_of(lambda: app.metrics.generate_playback_rendering_time()) == sentence
    assert not app.preferences["ADVANCED_ENABLE_PERFORMANCE_REPORT"].value


@pytest.mark.parametrize("name, sentence", [
    ("generate_node_visit_data", "Invalid NodeVisit_Options object provided in options argument."),
    ("generate_performance_report", "Invalid Report_Options object provided in options argument."),
])
def test_options_of_another_class_are_told(app, name, sentence):
    assert message_of(lambda: getattr(app.metrics, name)(brindle.CopyOptions())) == sentence


def test_without_a_project_nothing_is_measured(app):
    metrics = app.metrics
    app.close()
    for call in (metrics.generate_node_visit_data, metrics.generate_performance_report):
        assert message_of(call) == "An unexpected error has occurred."


def test_static_information_has_its_lines_in_order(app, folder):
    lines = app.metrics.generate_static_info()
    heads = ["Graphics Card", "Driver", "CPU", "Memory", "Database", "Language", "Scene", "Version", "Project Dir"]
    assert lines[0].startswith("Brindle Object Model ") and [line.split(":")[0] for line in lines[1:]] == heads
    assert lines[7] == "Scene: Scene-1" and lines[9] == f"Project Dir: {folder}"


def test_the_script_on_the_page_runs():
    script = re.search(r"```python\n(.*?)```", (ROOT / "docs" / "metrics.md").read_text(), re.DOTALL)[1]
    done = run_python(script)
    assert done.returncode == 0, done.stderr
    assert done.stdout.startswith("Hit Count\nTotal: 3\n")
