"""Columns that compute their values from a text."""

import json
import pathlib

import brindle
import pytest

import support

CANNOT_SET = "Unable to set value of the expression column at a given frame - the must be changed instead."


@pytest.fixture
def reopen(app, folder):
    """Opens the project again, with pegs that expression columns drive: their texts by the columns' names."""

    def reopen(**texts):
        angle = app.scene.nodes.create("PEG", "Wave").attributes["angle"]
        angle.set_value(1, 0.0)
        angle.set_value(11, 10.0)
        angle.column.name = "Wave"
        for key in (1, 11):  # A straight line.
            angle.column[key].handle_left_x = angle.column[key].handle_right_x = key
        for name in texts:
            app.scene.nodes.create("PEG", name)
        app.save()
        app.close()
        file = next(pathlib.Path(folder, "scenes").iterdir())
        scene = json.loads(file.read_text())
        for node in scene["nodes"]:
            if node["name"] in texts:
                node["columns"] = {"angle": node["name"]}
        for name, text in texts.items():
            scene["columns"].append({"name": name, "type": "EXPR", "expression": text})
        file.write_text(json.dumps(scene))
        return brindle.open(folder)

    return reopen


def column(app, name):
    return app.scene.nodes[f"Top/{name}"].attributes["angle"].column


def test_a_column_of_expressions(reopen):
    with reopen(A='value("Wave") * 2 + frame') as app:
        expression = column(app, "A")
        assert type(expression) is brindle.ExpressionColumn
        assert str(expression) == 'ExpressionColumn("A")'
        assert expression.type == "EXPR"
        assert expression.text == 'value("Wave") * 2 + frame'
        assert expression[6] == pytest.approx(16)
        assert expression.get_entry(6.5) == pytest.approx(17.5)
        assert [expression.get(6), expression.get("6")] == [expression[6]] * 2
        assert len(expression) == len(list(expression)) == app.scene.frame_count
        assert app.scene.nodes["Top/A"].attributes["angle"].value(6) == expression[6]
        assert (expression.linked_nodes, expression.linked_attributes) == ([], []), "other kinds show theirs"
        with pytest.raises(brindle.Error, match="Invalid argument at index 0."):
            expression.get_entry(float("nan"))


def test_a_new_column_is_empty_and_takes_a_text(app, scene):
    made = scene.columns.create("EXPR", "Made")
    assert type(made) is brindle.ExpressionColumn
    assert (made.text, made[7]) == ("", 0.0)
    made.text = "frame / 2"
    angle = scene.nodes.create("PEG", "P").attributes["angle"]
    angle.link(made)
    assert angle.value(7) == 3.5
    scene.columns.create("EXPR", "More").text = 'value("Made") + 1'
    assert scene.columns["More"][7] == 4.5
    app.project.history.undo(2)
    assert (len(scene.columns), made[7]) == (1, 3.5)


def test_setting_the_text_is_one_undo_step(reopen, folder):
    with reopen(A="frame") as app:
        history = app.project.history
        expression = column(app, "A")
        before = support.saved(app, folder)
        expression.text = 'value("Wave", frame + 1)'
        assert history.list() == ["Set Expression Value"]
        assert expression[5] == pytest.approx(5)
        after = support.saved(app, folder)
        for _ in range(2):
            history.undo(1)
            assert support.saved(app, folder) == before
            assert expression[5] == 5.0
            history.redo(1)
            assert support.saved(app, folder) == after
        expression.set_expression_text("")
        assert (expression.get_expression_text(), expression[5]) == ("", 0.0)


@pytest.mark.parametrize("text, sentence", [
    ("1 +", "Invalid expression at character 4: something is missing at the end."),
    ("frame * sinus(1)", 'Invalid expression at character 9: "sinus" is no name that an expression knows.'),
    ('value("Nil")', 'Invalid expression at character 7: there is no column named "Nil".'),
    ('1 + value("A")', "Invalid expression at character 11: a column can't read its own values."),
    ('value("B", 3)', 'Invalid expression at character 7: the column "B" reads the values of this one.'),
    ('open("/etc/passwd")', 'Invalid expression at character 1: "open" is no name that an expression knows.'),
    ("x" * 20000, "Invalid expression at character 10001: it is longer than 10000 characters."),
    ("(" * 9000, 'Invalid expression at character 9001: something is missing at the end.'),
], ids=["end", "name", "no column", "itself", "circle", "file", "long", "deep"])
def test_a_text_that_cannot_be_evaluated_is_refused(reopen, folder, text, sentence):
    with reopen(A="frame", B='value("A")') as app:
        before = support.saved(app, folder)
        with pytest.raises(brindle.Error) as failure:
            column(app, "A").text = text
        assert str(failure.value) == sentence
        assert column(app, "A")[3] == 3.0
        assert support.saved(app, folder) == before


@pytest.mark.parametrize("value", [1, "1", None, [1]])
def test_no_value_can_be_set_at_a_frame(reopen, folder, value):
    with reopen(A="frame") as app:
        expression = column(app, "A")
        before = support.saved(app, folder)
        for write in (lambda: expression.set_entry(5, value), lambda: expression.set(5, value),
                      lambda: expression.__setitem__(5, value)):
            with pytest.raises(brindle.Error) as failure:
                write()
            assert str(failure.value) == CANNOT_SET
        with pytest.raises(brindle.Error, match="Failed to scale the column."):
            expression.scale(2)
        assert support.saved(app, folder) == before


def test_an_attribute_takes_no_value_from_elsewhere(reopen, folder, capfd):
    with reopen(A="frame") as app:
        attribute = app.scene.nodes["Top/A"].attributes["angle"]
        before = support.saved_content(app, folder)
        attribute.set_value(5, 2.0)
        assert attribute.value(5) == 5.0
        assert "Cannot set value in expression." in capfd.readouterr().err
        assert support.saved_content(app, folder) == before


def test_what_goes_wrong_later_is_zero_with_one_line_in_the_log(reopen, capfd):
    with reopen(A='value("Wave") + 1', B='value("C")', C='value("B")') as app:
        assert column(app, "A")[6] == pytest.approx(6)
        wave = column(app, "Wave")
        wave.name = "Renamed"
        assert [column(app, "A")[frame] for frame in (1, 6)] == [0.0, 0.0]
        line = 'The expression of the column "A" is 0: character 7: there is no column named "Wave".'
        assert capfd.readouterr().err.count(line) == 1
        app.project.history.undo(1)
        assert column(app, "A")[6] == pytest.approx(6)
        assert (column(app, "B")[1], column(app, "C")[1]) == (0.0, 0.0), "they read one another"
        assert 'character 7: the column "C" reads the values of this one.' in capfd.readouterr().err


def test_it_is_saved_and_opened_as_it_is(reopen, folder):
    texts = {"A": ' value("Gone")\n + "', "B": "frame\t*2 // é", "C": ""}
    with reopen(**texts) as app:
        assert {name: column(app, name).text for name in texts} == texts
        app.scene.nodes["Top/A"].position.x = 5
        app.save()
    with brindle.open(folder) as app:
        assert {name: column(app, name).text for name in texts} == texts


def test_a_column_that_is_gone_says_so(reopen):
    with reopen(A="frame") as app:
        expression = column(app, "A")
    for use in (lambda: expression.text, lambda: setattr(expression, "text", "1"), lambda: expression[1],
                lambda: expression.set_entry(1, 1), lambda: str(expression)):
        with pytest.raises(brindle.Error, match=support.GONE):
            use()
