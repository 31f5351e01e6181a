"""The pages that people read in the repository: they name what there is, and their links lead somewhere."""

import pathlib
import re
import subprocess

import pytest

ROOT = pathlib.Path(__file__).resolve().parents[2]
README = (ROOT / "README.md").read_text()
HOST = ROOT / "core" / "host"
PAGES = [ROOT / "README.md", HOST / "README.md", *sorted((ROOT / "docs").glob("*.md"))]


def links(page):
    return [link.split("#")[0] for link in re.findall(r"\]\(([^)\s]+)\)", page.read_text())
            if not re.match(r"[a-z]+:|#", link)]


@pytest.mark.parametrize("page", PAGES, ids=lambda page: str(page.relative_to(ROOT)))
def test_every_link_leads_to_a_file(page):
    missing = [link for link in links(page) if not (page.parent / link).exists()]
    assert not missing


def test_the_readme_links_every_page():
    linked = {(ROOT / link).resolve() for link in links(ROOT / "README.md")}
    assert not [str(page.relative_to(ROOT)) for page in PAGES[1:] if page not in linked]


def test_the_host_page_has_every_header_and_no_other():
    page = (HOST / "README.md").read_text()
    named = set(re.findall(r"`([a-z0-9_]+\.h)`", page)) - {"standinnode.h", "standincolumn.h"}
    present = {header.name for header in HOST.glob("*.h")}
    assert named == present, "core/host/README.md lists the headers by family"


def test_the_host_page_has_every_prefix():
    page = (HOST / "README.md").read_text()
    declaration = re.compile(r"^(?:class|struct|namespace) (?:BRINDLE_HOST_EXPORT )?(\w+)[^;]*$", re.MULTILINE)
    classes = [name for header in HOST.glob("*.h") for name in declaration.findall(header.read_text())]
    prefixes = {match[0] for name in classes if (match := re.match(r"[A-Z]+_|TU(?=[A-Z])", name))}
    assert len(prefixes) > 15
    assert not [prefix for prefix in sorted(prefixes) if f"`{prefix}`" not in page]


@pytest.mark.parametrize("command, options", [("run", ["bench", "desk"]), ("test", ["--all", "--slow"])])
def test_the_readme_tells_the_commands_that_there_are(command, options):
    told = subprocess.run([ROOT / command, "--help"], capture_output=True, text=True, check=True).stdout
    for option in options:
        assert option in told and f"./{command} {option}" in README
