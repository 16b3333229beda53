"""The sample as it is shipped: what the program draws, whole, and drawn as fonts want it."""

import json
import re
import sys
from pathlib import Path

RESOURCES = Path(__file__).resolve().parents[2] / "resources"
sys.path.insert(0, str(RESOURCES))

from sample_design import output

SPACING = json.loads((RESOURCES / "sample-spacing.json").read_text())
PROJECT = json.loads((RESOURCES / "Sample.fontproj").read_text())


def drawings(folder):
    return {path.stem: path.read_text() for path in folder.glob("*.svg")}


def test_the_shipped_drawings_are_what_the_program_draws(tmp_path):
    output.write(tmp_path / "drawings", tmp_path / "spacing.json")
    assert drawings(tmp_path / "drawings") == drawings(RESOURCES / "sample-drawings")
    assert json.loads((tmp_path / "spacing.json").read_text()) == SPACING


def test_the_shipped_project_has_the_drawings_with_their_spacing():
    glyphs = {glyph["name"]: glyph for glyph in PROJECT["glyphs"]}
    shipped = drawings(RESOURCES / "sample-drawings")
    assert set(glyphs) == {*shipped, "space", ".notdef"} == {*SPACING["glyphs"], "space", ".notdef"}
    for name, drawing in shipped.items():
        assert glyphs[name]["svgPath"] == re.search(' d="([^"]+)"', drawing)[1]
        wanted = SPACING["glyphs"][name]
        (left, bottom), (width, _) = glyphs[name]["boundingBox"]
        placed = (left, bottom, glyphs[name]["advanceWidth"] - left - width)
        bearings = (wanted["leftSideBearing"], wanted["bottom"], wanted["rightSideBearing"])
        assert all(abs(a - b) < 1e-6 for a, b in zip(placed, bearings)), name
    pairs = [[pair["leftGlyph"], pair["rightGlyph"], pair["value"]] for pair in PROJECT["kerningPairs"]]
    assert pairs == SPACING["kerning"]
    characters = {glyph["unicode"] for glyph in PROJECT["glyphs"] if "unicode" in glyph}
    assert characters >= {*map(chr, range(0x20, 0x7F)), *"ÄÖÜäöüßéèàñç€"}

