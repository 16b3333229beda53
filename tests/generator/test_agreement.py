"""Both generators make the same fonts of the same documents, refuse the same ones, and say the same."""

import json
import os
import re
import subprocess

import pytest
from comparison import differences
from conftest import COMMANDS, FORMATS, ROOT, run_generator, write_document
from drawings import hard_project
from fontTools.pens.recordingPen import RecordingPen
from fontTools.pens.t2CharStringPen import T2CharStringPen
from fontTools.ttLib import TTFont
from random_projects import random_project, spoilt_project
from test_refusals import LEFT_TO_THE_PARSER, REFUSED


def sample():
    """The description of the sample project."""
    project = json.loads((ROOT / "resources/Sample.fontproj").read_text(encoding="utf-8"))
    names = {"moveTo": ("point",), "lineTo": ("point",), "curveTo": ("control1", "control2", "point"), "closePath": ()}

    def command(entry):
        (kind, points), = entry.items()
        return {"type": kind} | {name: dict(zip("xy", points[f"_{index}"])) for index, name in enumerate(names[kind])}

    glyphs = [entry | {"fontPath": [command(one) for one in entry["fontPath"]]} for entry in project["glyphs"]]
    return project | {"glyphs": glyphs}


@pytest.fixture
def agree(tmp_path, monkeypatch):
    """Has both generators work on a document and returns the run, in which they agree."""
    def check(document, extension, same_words=True):
        monkeypatch.setenv("SOURCE_DATE_EPOCH", "1234567890")
        source = write_document(document, tmp_path)
        runs = [run_generator(name, source, tmp_path / f"{name}.{extension}", "--brotli-quality", "1")
                for name in ("script", "executable")]
        assert runs[0].status == runs[1].status, runs[1].error
        assert sorted(runs[0].warnings) == sorted(runs[1].warnings)
        if same_words:
            # Charstrings of the two are not equally long.
            assert len({re.sub("it takes [0-9,]+ bytes", "", run.error) for run in runs}) == 1
        if runs[0].status == 0:
            assert differences(runs[0].font, runs[1].font, source) == []
        return runs[0]
    return check


@pytest.mark.parametrize("extension", FORMATS)
@pytest.mark.parametrize("project", [sample, hard_project], ids=lambda project: project.__name__)
def test_on_projects_drawn_by_hand(agree, project, extension):
    assert agree(project(), extension).status == 0


@pytest.mark.parametrize("seed", range(200))
def test_on_random_projects(agree, seed):
    agree(random_project(seed), FORMATS[seed % len(FORMATS)])


@pytest.mark.parametrize("seed", range(200))
def test_on_spoilt_projects(agree, seed):
    agree(spoilt_project(seed), FORMATS[seed % 2])


@pytest.mark.parametrize("case", REFUSED)
def test_on_what_is_refused(agree, case):
    for extension in ("otf", "ttf"):
        assert agree(REFUSED[case][0], extension, case not in LEFT_TO_THE_PARSER).status == 1


@pytest.mark.parametrize("operands", [
    (), ("a.json",), ("a.json", "b.otf", "c"), ("--brotli-quality", "12", "a.json", "b.otf"), ("--brotli-quality",),
    ("--brotli-quality", "x"), ("--quality", "1", "a.json", "b.otf")])
def test_wrong_usage_ends_with_status_2_and_writes_nothing(generator, operands, tmp_path):
    result = subprocess.run([*COMMANDS[generator], *operands], capture_output=True, text=True, cwd=tmp_path)
    assert (result.returncode, result.stdout) == (2, "") and result.stderr.startswith("usage: generate_font")
    assert os.listdir(tmp_path) == []


def move_a_point(font):
    """By three units."""
    if "CFF " in font:
        moved, pen = T2CharStringPen(None, None), RecordingPen()
        font.getGlyphSet()["A"].draw(pen)
        pen.value[0] = ("moveTo", ((53, 0),))
        pen.replay(moved)
        font["CFF "].cff.topDictIndex[0].CharStrings["A"] = moved.getCharString()
    else:
        coordinates = font["glyf"]["A"].coordinates
        coordinates[0] = (coordinates[0][0] + 3, coordinates[0][1])


def subtable(font, tag):
    return font[tag].table.LookupList.Lookup[0].SubTable[0]


# What is done to a font, and how what is then said of it begins.
CHANGES = {
    "an outline": (move_a_point, "outline of"),
    "an advance": (lambda font: font["hmtx"].metrics.update(V=(601, font["hmtx"]["V"][1])), ("hmtx V", "advances V")),
    "a bearing": (lambda font: font["hmtx"].metrics.update(V=(600, 7)), ("hmtx V", "left side bearings")),
    "a character": (lambda font: font["cmap"].tables[0].cmap.pop(0xC5), "cmap 0 3 197"),
    "a variant": (lambda font: font["cmap"].getcmap(0, 5).uvsDict.popitem(), "cmap 0 5"),
    "a kern": (lambda font: setattr(subtable(font, "GPOS").PairSet[0].PairValueRecord[0].Value1, "XAdvance", 9), "GPOS"),
    "a script": (lambda font: font["GPOS"].table.ScriptList.ScriptRecord.pop(), "GPOS"),
    "a ligature": (lambda font: subtable(font, "GSUB").ligatures.popitem(), "GSUB"),
    "a name": (lambda font: font["name"].removeNames(9), "name"),
    "a weight": (lambda font: setattr(font["OS/2"], "usWeightClass", 500), "OS/2 usWeightClass"),
    "a date": (lambda font: setattr(font["head"], "modified", 1), "head modified"),
    "an angle": (lambda font: setattr(font["post"], "italicAngle", -9), "post italicAngle"),
    "a caret": (lambda font: setattr(font["hhea"], "caretSlopeRun", 9), "hhea caretSlopeRun"),
}


@pytest.mark.parametrize("extension", ["otf", "ttf"])
@pytest.mark.parametrize("change", CHANGES)
def test_a_difference_is_noticed(tmp_path, change, extension):
    source, font = write_document(hard_project(), tmp_path), tmp_path / f"made.{extension}"
    run_generator("script", source, font)
    changed = TTFont(font, recalcBBoxes=False, recalcTimestamp=False)
    alter, words = CHANGES[change]
    alter(changed)
    changed.save(tmp_path / f"changed.{extension}")
    found = differences(font, tmp_path / f"changed.{extension}", source)
    assert any(line.startswith(words) for line in found), found
