"""About, preferences, actions, views and tools, as a script sees them."""

import json
import os
import pathlib
import re
import subprocess
import sys
import textwrap
import threading

import brindle
import pytest

import support


def message_of(action):
    with pytest.raises(brindle.Error) as caught:
        action()
    return str(caught.value)


def on_a_thread(action):
    """What an action says on a thread that isn't the main thread."""
    result = []

    def run():
        try:
            result.append(action())
        except brindle.Error as error:
            result.append(str(error))

    thread = threading.Thread(target=run)
    thread.start()
    thread.join()
    return result[0]


# --- About


def test_about_tells_the_build_and_the_process(app):
    about = app.about
    assert str(about) == "About()"
    assert f"{about.version_major}.{about.version_minor}.{about.version_patch}" == brindle.__version__
    assert (about.cadence, about.cadence_gold, about.cadence_silver, about.cadence_bronze) == (True, True, False, False)
    assert (about.arch_linux, about.arch_windows, about.arch_mac, about.arch_mac_intel, about.arch_mac_ppc,
            about.arch_mac_m1) == (True, False, False, False, False, False)
    assert (about.app_primary, about.sequencer, about.app_workbench, about.app_digitiser, about.app_contol_hub) == (
        True, False, False, False, False)
    assert (about.mode_inking, about.mode_exposure, about.mode_server, about.mode_python, about.mode_batch,
            about.interactive) == (False, False, False, False, False, False)
    assert (about.flavor_string, about.flavor_string_translated, about.product_name) == (
        "Brindle", "Brindle", "Brindle Object Model")
    assert pathlib.Path(about.path_binary, "libBrindleEngine.so").exists()
    assert about.path_resources == about.path_binary + "/brindle"
    assert (about.user_name, about.build_number) == (__import__("getpass").getuser(), 0)
    assert about.path_application == "noapplication"
    assert about.copy().version_major == about.version_major
    with pytest.raises(brindle.Error, match="read-only"):
        about.version_major = 2


def test_the_version_is_one_everywhere():
    told = subprocess.run([support.COMMAND, "--version"], capture_output=True, text=True, check=True).stdout
    assert told == f"brindle {brindle.__version__}\n"


def test_about_in_a_batch(tmp_path):
    script = tmp_path / "script.py"
    script.write_text("import brindle\na = brindle.application().about\n"
                      "print(a.mode_python, a.mode_batch, a.interactive, a.path_application.endswith('/brindle'))")
    subprocess.run([support.COMMAND, "new", tmp_path / "p"], check=True, capture_output=True)
    told = subprocess.run([support.COMMAND, "run", "--project", tmp_path / "p", script], capture_output=True, text=True)
    assert (told.stdout, told.stderr) == ("True False False True\n", "")


# --- Preferences


@pytest.fixture
def preferences(app):
    """The preferences; those that a test makes are put back."""
    yield app.preferences
    app.preferences.reset("RIPPLE_SCENE_MARKERS")


def test_a_preference_by_its_name(preferences):
    pair = preferences["RIPPLE_SCENE_MARKERS"]
    assert (pair.key, pair.type, pair.value, str(pair)) == (
        "RIPPLE_SCENE_MARKERS", "BOOL", True, "RIPPLE_SCENE_MARKERS : True")
    pair.value = False
    assert (preferences("RIPPLE_SCENE_MARKERS").value, str(pair)) == (False, "RIPPLE_SCENE_MARKERS : False")
    assert pair.reset() is True
    assert pair.value is True
    assert preferences.get("NEVER") is None
    assert str(preferences) == "Brindle Preferences"


def test_each_type_is_set_read_replaced_and_reset(preferences):
    colour = brindle.Colour(1, 2, 3, 4)
    rows = {"T_BOOL": (True, "BOOL", "True", False), "T_INT": (-7, "INT", "-7", 0),
            "T_DOUBLE": (2.5, "DOUBLE", "2.5", 0.0), "T_STRING": ("text", "STRING", "text", ""),
            "T_COLOR": (colour, "COLOR", "RGBA(1, 2, 3, 4)", brindle.Colour(0, 0, 0, 255))}
    for key, (value, word, text, empty) in rows.items():
        preferences[key] = value
        assert (preferences.type(key), str(preferences[key])) == (word, f"{key} : {text}")
        assert preferences[key].value == value
        preferences.replace(key, value)
        for other in (row[0] for name, row in rows.items() if name != key):
            assert message_of(lambda: preferences.replace(key, other)) == (
                "Preference value does not match existing preference type.")
        assert preferences.list()[key] == value
    for key, (_, _, _, empty) in rows.items():
        assert preferences.reset(key) is True
        if key != "T_COLOR":
            assert preferences[key].value == empty
    preferences["T_BOOL"] = preferences["T_INT"]
    assert preferences.type("T_BOOL") == "INT"


def test_what_is_refused(preferences):
    for value in (None, [1], {"a": 1}, 1 << 40):
        assert message_of(lambda: preferences.set("X_NEVER", value)) == (
            "Unknown preference type for argument: X_NEVER.")
    assert message_of(lambda: preferences.replace("X_NEVER", 1)) == "Unable to find preference with key: X_NEVER."
    assert message_of(lambda: preferences.reset("X_NEVER")) == "Unable to find preference with key: X_NEVER."
    assert message_of(lambda: preferences.replace("RIPPLE_SCENE_MARKERS", [1])) == (
        "Unknown preference type for argument: RIPPLE_SCENE_MARKERS.")
    assert "X_NEVER" not in preferences
    assert (preferences.type("X_NEVER"), preferences.contains("X_NEVER")) == ("", False)


def test_reading_an_unknown_one_with_a_default_makes_it(preferences):
    assert "MADE_BY_READING" not in preferences
    assert preferences.value("MADE_BY_READING", 5) == 5
    assert (preferences.contains("MADE_BY_READING"), preferences.type("MADE_BY_READING")) == (True, "INT")
    assert preferences.value("MADE_BY_READING", 9) == 5


def test_they_are_gone_through_in_the_order_of_their_names(preferences):
    keys = [pair.key for pair in preferences]
    assert keys == sorted(keys) and len(keys) == len(preferences) == preferences.size()
    assert {"EXTEND_DRAWING_EXPOSURE", "SP_CONSTANT_SEGMENT", "OPENGL_ENABLE_PLAYBACK_CACHE",
            "ADVANCED_ENABLE_PERFORMANCE_REPORT"} <= set(keys)
    assert set(preferences.list()) == set(keys) == set(preferences._ipython_key_completions_())


def test_preferences_are_the_main_threads(preferences):
    pair = preferences["RIPPLE_SCENE_MARKERS"]
    rows = {"preferences.__len__": lambda: len(preferences), "preferences.get": lambda: preferences["A"],
            "preferences.contains": lambda: "A" in preferences, "preferences.replace": lambda: preferences.replace("A", 1),
            "preferences.reset": lambda: preferences.reset("A"), "preferences.type": lambda: preferences.type("A"),
            "preferences.value": lambda: preferences.value("A", 1), "preferences.list": preferences.list,
            "preferences.__iterItem__": lambda: next(iter(preferences)), "preference_pair.type": lambda: pair.type,
            "preference_pair.value": lambda: pair.value, "preference_pair.reset": pair.reset,
            "preference_pair.__str__": lambda: str(pair)}
    for name, action in rows.items():
        assert on_a_thread(action) == f"Unable to access {name} from another thread."
    assert on_a_thread(lambda: pair.key) == "RIPPLE_SCENE_MARKERS"
    assert on_a_thread(lambda: preferences.set("RIPPLE_SCENE_MARKERS", True)) is None


def preferences_command(config, *arguments):
    environment = {**os.environ, "XDG_CONFIG_HOME": str(config)}
    done = subprocess.run([support.COMMAND, "preferences", *arguments], capture_output=True, text=True, env=environment)
    return done.returncode, done.stdout, done.stderr


def test_the_command_lists_shows_sets_and_resets(tmp_path):
    listed = preferences_command(tmp_path)[1].splitlines()
    assert "RIPPLE_SCENE_MARKERS BOOL true" in listed
    for name, value, word in (("RIPPLE_SCENE_MARKERS", "false", "BOOL"), ("N", "5", "INT"), ("D", "2.5", "DOUBLE"),
                              ("S", "a text", "STRING"), ("C", "#ff8000ff", "COLOR")):
        assert preferences_command(tmp_path, "--set", name, value) == (0, "", "")
        assert preferences_command(tmp_path, name) == (0, value + "\n", "")
        assert f"{name} {word} {value}" in preferences_command(tmp_path)[1].splitlines()
    assert preferences_command(tmp_path, "--set", "N", "x") == (2, "", 'brindle: "x" is no value of type INT.\n')
    assert preferences_command(tmp_path, "NEVER") == (1, "", 'brindle: There is no preference "NEVER".\n')
    assert preferences_command(tmp_path, "--reset", "RIPPLE_SCENE_MARKERS") == (0, "", "")
    kept = json.loads((tmp_path / "brindle" / "preferences.json").read_text())
    assert kept == {"format": "brindle-preferences", "version": 3,
                    "values": {"C": {"colour": "#ff8000ff"}, "D": {"double": 2.5}, "N": {"int": 5}, "S": "a text"}}
    assert preferences_command(tmp_path, "--set", "N")[0] == 2
    assert preferences_command(tmp_path, "A", "B")[0] == 2


def test_a_damaged_file_is_kept_aside_and_named(tmp_path):
    file = tmp_path / "brindle" / "preferences.json"
    file.parent.mkdir()
    file.write_text('{"format": "brindle-preferences", "version": 3, "values": {"A": {"int": "x"}}}')
    code, out, log = preferences_command(tmp_path)
    assert code == 0 and "RIPPLE_SCENE_MARKERS BOOL true" in out
    assert f'Cannot read the preferences: "{file}"' in log and "values.A.int" in log
    code, out, log = preferences_command(tmp_path, "--set", "B", "1")
    assert code == 0 and f'The damaged preferences are kept in "{file}.damaged".' in log
    assert "int" in pathlib.Path(f"{file}.damaged").read_text()
    assert preferences_command(tmp_path, "B") == (0, "1\n", "")


def test_processes_lose_none_of_each_others_changes(tmp_path):
    environment = {**os.environ, "XDG_CONFIG_HOME": str(tmp_path)}
    code = """
        import sys, brindle
        app = brindle.create(sys.argv[1])
        app.preferences["P" + sys.argv[2]] = int(sys.argv[2])
        print("ready", flush=True)
        sys.stdin.readline()
        app.save()
        print(sorted(k for k in app.preferences.list() if k.startswith("P") and k[1:].isdigit()), flush=True)
        """
    started = [subprocess.Popen([support.PYTHON, "-c", textwrap.dedent(code), str(tmp_path / f"p{i}"), str(i)],
                                stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True, env=environment)
               for i in range(3)]
    for process in started:
        assert process.stdout.readline() == "ready\n"
    known = []
    for process in started:
        out, _ = process.communicate("\n")
        known.append(out.strip())
    assert known == ["['P0']", "['P0', 'P1']", "['P0', 'P1', 'P2']"]
    for i in range(3):
        assert preferences_command(tmp_path, f"P{i}") == (0, f"{i}\n", "")


# --- Actions


def test_actions_do_what_makes_sense_without_windows(app, folder):
    actions = app.actions
    assert (str(actions), actions.responders) == ("ActionManager()", ["project"])
    slots = ["onActionSave()", "onActionUndo()", "onActionRedo()"]
    assert actions.actions("project") == actions.actions() == slots
    assert actions.actions("nobody") == []
    assert actions.perform("onActionUndo()") == "ACTION_NOTHING_TO_DO"
    app.scene.nodes.create("PEG", "Arm")
    assert actions.validate_action("onActionUndo()") == {
        "valid_responder": True, "valid_slot": True, "enabled": True, "checked": False}
    assert actions.perform("onActionUndo()") == "ACTION_SUCCESS"
    assert "Top/Arm" not in app.scene.nodes
    assert actions.perform("onActionRedo()", "project") == "ACTION_SUCCESS"
    assert actions.perform_for_each("onActionUndo()", "project") == "ACTION_SUCCESS"
    assert actions.perform("onActionRedo()", "project", [1, 2]) == "ACTION_SUCCESS"
    before = support.files(folder)
    assert actions.perform("onActionSave()") == "ACTION_SUCCESS"
    assert support.files(folder) != before


def test_what_there_is_no_action_for(app):
    actions = app.actions
    for result in (actions.perform("onActionNever()"), actions.perform("onActionUndo()", "nobody"),
                   actions.perform("onActionUndo()", "nobody", {"a": 1}),
                   actions.perform_for_each("onActionUndo()", "nobody")):
        assert result == "ACTION_UNKNOWN"
    nothing = {"valid_responder": False, "valid_slot": False, "enabled": False, "checked": False}
    assert actions.validate_action("onActionUndo()", "nobody") == nothing
    assert actions.validate_action("onActionNever()", "project") == {**nothing, "valid_responder": True}
    assert actions.validate_action("onActionUndo()", "project") == {**nothing, "valid_responder": True, "valid_slot": True}


def test_actions_are_the_main_threads(app):
    actions = app.actions
    rows = {"actions.perform": lambda: actions.perform("x"),
            "actions.perform_for_each": lambda: actions.perform_for_each("x", "y"),
            "actions.responders": lambda: actions.responders, "actions.actions": lambda: actions.actions("x"),
            "actions.validate": lambda: actions.validate_action("x")}
    for name, action in rows.items():
        assert on_a_thread(action) == f"Unable to access {name} from another thread."


# --- Views and tools


def test_views_and_tools_are_empty_and_say_so(app):
    views = app.views
    assert (type(views), str(views), len(views), list(views), "x" in views) == (
        brindle.ViewMap, "Brindle Views: (No views loaded)", 0, [], False)
    assert message_of(lambda: views["Camera"]) == "Unable to find view: Camera"
    del views
    assert str(app.views.copy()) == "Brindle Views: (No views loaded)"
    tools = app.tools
    assert (str(tools), len(tools), list(tools), "x" in tools) == ("todo", 0, [], False)
    assert message_of(lambda: tools["x"]) == "Unable to retrieve item in container."
    assert message_of(lambda: tools.set("x", app.about)) == "Unable to set views."
    assert str(app.selection) == "BaseSelection()"


# --- The page


def test_the_script_on_the_page_runs():
    page = (support.ROOT / "docs" / "services.md").read_text()
    script, = re.findall(r"```python\n(.*?)```", page, re.DOTALL)
    done = support.run_python(script)
    assert (done.returncode, done.stderr) == (0, "")
    assert done.stdout == ("RIPPLE_SCENE_MARKERS : False\nTEXT SQ010_0040 {'shot': 'SQ010_0040'}\n"
                           "True ACTION_SUCCESS\nFalse None\n")
