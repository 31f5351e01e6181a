"""The table of the measurements: what it says of given figures, and that every row of it is measured."""

import pathlib
import re
import sys

import pytest

BENCH = pathlib.Path(__file__).resolve().parents[2] / "bench"
sys.path.insert(0, str(BENCH))

import instructions  # noqa: E402
import rows  # noqa: E402
import run  # noqa: E402
import table  # noqa: E402


@pytest.mark.parametrize("seconds, text", [
    (4.26e-9, "4.3 ns"),
    (217e-9, "217 ns"),
    (4115e-9, "4,115 ns"),
    (46e-6, "46 us"),
    (0.0213, "21 ms"),
    (1.5, "1.50 s"),
])
def test_a_duration_is_given_in_a_unit_that_suits_it(seconds, text):
    assert table.duration(seconds) == text


def test_a_ratio_is_formed_within_each_round_when_the_machine_changes_its_speed():
    row = rows.Row("read", "ours", "floor", "Floor")
    samples = {"ours": [20e-9, 40e-9, 40e-9], "floor": [10e-9, 20e-9, 21e-9]}
    assert table.ratio_of(samples, row) == 2.0


@pytest.mark.parametrize("ours, verdict", [(39e-9, True), (41e-9, False)])
def test_a_limit_of_four_floors_is_held_or_not(ours, verdict):
    row = rows.Row("read", "ours", "floor", "Floor", most_ratio=4)
    values = table.result({"ours": [ours], "floor": [10e-9]}, row)
    assert values["limit"] == "4x"
    assert values["within_limit"] is verdict
    assert ("ok" if verdict else "OVER") in table.printed(values)


def test_a_row_of_many_items_shows_the_time_of_all_of_them():
    values = table.result({"create/10000": [4e-6]}, rows.Row("create", "create/10000", items=10_000, most=0.5, aim=0.01))
    assert values["median"] == pytest.approx(0.04)
    assert values["within_limit"] and not values["within_aim"]


def test_growth_compares_an_item_of_the_largest_size_with_one_of_the_smallest():
    samples = {"open/1000": [4e-6], "open/10000": [5e-6], "open/100000": [6e-6]}
    assert list(table.scaling(samples, (("open", "open"),))) == [("open", [4e-6, 5e-6, 6e-6], 1.5)]


def test_memory_is_told_in_bytes_of_an_entry():
    samples = {f"historyOfMoves/{size}": [weight, weight + 2, weight + 1]
               for size, weight in ((1_000, 200), (10_000, 1_234), (100_000, 210))}
    text = table.text({}, samples)
    assert [part.strip() for part in text.splitlines()[-4].split("  ") if part.strip()] == [
        "a node was moved", "201 B", "1,235 B", "211 B", "1.05x"]


def test_every_row_of_the_native_side_has_its_benchmark():
    sources = "".join(file.read_text() for file in BENCH.rglob("*.cpp"))
    measured = set(re.findall(r"^BENCHMARK\((\w+)\)", sources, re.MULTILINE))
    asked = {key.split("/")[0] for row in rows.NATIVE for key in (row.key, row.floor) if key}
    asked |= {key for _, key in (*rows.NATIVE_FLOORS, *rows.NATIVE_SCALING, *rows.NATIVE_MEMORY)}
    assert asked <= measured


def test_every_row_of_the_python_side_is_measured_by_the_script():
    sources = "".join(file.read_text() for file in BENCH.rglob("*.py") if file.name != "rows.py")
    measured = set(re.findall(r'"([\w ._]+)(?:\{keyed\})?(?:/(?:\{size\}|\d+))?"', sources))
    measured |= {f"{name} keyed" for name in re.findall(r'"([\w ]+)\{keyed\}/', sources)}
    asked = {key.split("/")[0] for row in rows.PYTHON for key in (row.key, row.floor) if key}
    asked |= {key for _, key in (*rows.PYTHON_FLOORS, *rows.PYTHON_SCALING)}
    asked |= {row.key for row in rows.INSTRUCTIONS}
    assert asked <= measured


def test_an_operation_takes_what_the_longer_loop_took_more_than_the_shorter():
    short, long = instructions.LENGTHS
    assert instructions.each([7_000 + 300 * short, 7_000 + 300 * long]) == 300


def test_the_count_of_a_part_of_the_run_is_its_file_s_own(tmp_path):
    file = tmp_path / "out.1"
    file.write_text("events: Ir\nsummary: 16934535\n\nfn=(1)\n0 12\ntotals: 16934535\n")
    assert list(instructions.counts([file])) == [16934535]


def test_instructions_stand_beside_their_aim():
    counted = {row.key: row.aim for row in rows.INSTRUCTIONS} | {"read int": 300.6}
    lines = table.count_text(counted).splitlines()
    assert lines[1].split() == ["integer", "property", "301", "300", "---"]
    assert lines[2].split() == ["object", "property", "900", "900", "met"]


def test_the_page_gets_the_figures_below_their_heading(tmp_path):
    page = tmp_path / "page.md"
    page.write_text("# P\n\n```\nkept\n```\n\n## One\n\nSays.\n\n```\nold\n```\n\nEnd.\n\n## Two\n\n```\nold\n```\n")
    run.write_page(page, {"Two": "b\n", "One": "a\n"})
    assert page.read_text() == (
        "# P\n\n```\nkept\n```\n\n## One\n\nSays.\n\n```\na\n```\n\nEnd.\n\n## Two\n\n```\nb\n```\n")
