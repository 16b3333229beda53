"""The commands one after the other, on real files."""

import json
import math
import os
import re
import string
import struct
import subprocess

import pytest

from conftest import PROGRAM, SAMPLE


def project(path):
    return json.loads(path.read_text())


def glyph(path, name):
    return next(g for g in project(path)["glyphs"] if g["name"] == name)


def test_drawings_become_a_font(quillery, draw, tmp_path):
    for name in (*string.ascii_uppercase, "period"):
        draw(name + ".svg")
    draw("p.svg")
    made = quillery("import", "my font.fontproj", tmp_path, "--name", "My Own", "--units-per-em", "2048")
    assert (made.status, made.errors) == (0, [])
    saved = tmp_path / "my font.fontproj"
    assert project(saved)["name"] == "My Own" and project(saved)["unitsPerEm"] == 2048
    assert glyph(saved, "A")["boundingBox"] == [[0, 0], [1228.8, 1433.6000000000001]]

    found = quillery("check", saved)
    assert found.status == 1
    assert [line.split(":")[0] for line in found.out[-2:]] == ["🔴 Missing Space Character",
                                                              "🟡 Missing .notdef Glyph"]
    assert quillery("check", saved, "--fix").status == 0
    assert [g["name"] for g in project(saved)["glyphs"]][:3] == [".notdef", "space", "A"]

    fonts = [tmp_path / f"out.{extension}" for extension in ("otf", "ttf", "woff", "WOFF2")]
    for choice, said in ([], "executable"), (["--generator", "python"], "Python script"):
        exported = quillery("export", saved, *fonts, *choice)
        assert exported.status == 0
        assert [said in line for line in exported.out if line.startswith("Using ")] == [True] * 4
        for font in fonts:
            subprocess.run(["ots-sanitize", font], check=True, capture_output=True)
            font.unlink()


def test_drawings_that_hold_more_are_named_and_converted_on_request(quillery, draw, tmp_path):
    draw("in/A.svg", "M0 0 L60 0 L60 70 Z")
    draw("in/b.svg", "m10 10 h40 v80 h-40 z")
    (tmp_path / "in/c.svg").write_text('<svg viewBox="0 0 50 100"><path d="M0 0 L9 9 L0 9 Z" id="path7"/></svg>')
    plain = quillery("import", "plain.fontproj", "in")
    assert plain.status == 1
    assert [error.split("; ")[0] for error in plain.errors] == [
        "quillery: in/b.svg: relative commands, horizontal and vertical lines",
        "quillery: in/c.svg: left out: no readable point, another attribute taken for the path's data"]
    assert [g["name"] for g in project(tmp_path / "plain.fontproj")["glyphs"]] == ["A", "b"]

    made = quillery("import", "made.fontproj", "in", "--place", "artboard")
    assert (made.status, made.errors) == (0, [])
    saved = tmp_path / "made.fontproj"
    assert (glyph(saved, "b")["advanceWidth"], glyph(saved, "c")["advanceWidth"]) == (1000, 500)
    foot = project(saved)["descender"]
    assert glyph(saved, "b")["boundingBox"] == [[100, foot + 100], [400, 800]]

    assert quillery("flatten", "in", "-o", "flat").status == 0
    again = quillery("import", "again.fontproj", "flat")
    assert (again.status, again.errors) == (0, [])
    assert len(project(tmp_path / "again.fontproj")["glyphs"]) == 3


def test_metrics_are_set_in_the_order_of_the_options(quillery, draw, tmp_path):
    quillery("import", "p.fontproj", draw("A.svg"), draw("B.svg"))
    path = tmp_path / "p.fontproj"
    quillery("metrics", path, "A", "--right-side-bearing=-20.5", "--advance-width", "900")
    assert (glyph(path, "A")["advanceWidth"], glyph(path, "A")["rightSideBearing"]) == (900, 300)
    quillery("metrics", path, "A", "--advance-width", "900", "--right-side-bearing", "-20.5")
    assert (glyph(path, "A")["advanceWidth"], glyph(path, "A")["rightSideBearing"]) == (579.5, -20.5)
    quillery("metrics", path, "--all", "--scale", "2", "--scale", "0.5", "--vertical-offset", "-.5e1")
    assert glyph(path, "B")["scale"] == 0.5 and glyph(path, "B")["boundingBox"][0][1] == -5

    mixed = quillery("metrics", path, "A", "absent", "--scale", "1")
    assert mixed.status == 1 and mixed.errors == ["quillery: metrics: no glyph is named absent"]
    assert glyph(path, "A")["scale"] == 1
    table = quillery("metrics", path, "B").out[-2:]
    assert table[0].split()[0] == "glyph" and table[1].split()[0] == "B"


def test_pairs_are_changed_in_the_order_of_the_options(quillery, draw, tmp_path):
    quillery("import", "p.fontproj", *(draw(name + ".svg") for name in ("A", "V", "T", "o", "-")))
    path = tmp_path / "p.fontproj"
    quillery("kern", path, "--common", "--set", "A", "V", "-80", "--set", "-", "T", "12.5",
             "--set", "A", "V", "-81", "--delete", "T", "o")
    assert quillery("kern", path).out[-6:] == ["- T 12.5", "A T 0", "A V -81", "T A 0", "V A 0", "V o 0"]
    assert quillery("kern", path, "--filter", "O").out[-1] == "V o 0"
    gone = quillery("kern", path, "--delete", "T", "o", "--set", "T", "o", "-3")
    assert gone.status == 1 and gone.errors == ["quillery: kern: there is no pair T o"]
    assert "T o -3" in quillery("kern", path).out


def test_what_the_preview_sets_is_what_the_font_sets(quillery, tmp_path):
    text = "Hamburgefonstiv AVATAR To 123"
    assert quillery("preview", SAMPLE, "--text", text, "--size", "1000", "-o", "out.json").status == 0
    shown = json.loads((tmp_path / "out.json").read_text())
    assert quillery("export", SAMPLE, "out.otf").status == 0
    shaped = subprocess.run(["hb-shape", "--no-glyph-names", "--no-clusters", tmp_path / "out.otf", text],
                            check=True, capture_output=True, text=True).stdout
    advances = [int(item.split("+")[1]) for item in shaped.strip("[]\n").split("|")]
    pens = [placed["x"] for placed in shown["glyphs"]]
    assert [round(b - a) for a, b in zip(pens, pens[1:])] == advances[:-1]
    assert {"leftGlyph": "A", "rightGlyph": "V"}.items() <= shown["pairs"][16].items()
    quillery("preview", SAMPLE, "--text", text, "-o", "out.svg")
    assert (tmp_path / "out.svg").read_text().count("<use ") == len(text.replace(" ", ""))


def test_the_preview_is_painted_without_a_display(quillery, tmp_path):
    text = "Hamburg\nAV"
    for extension in ("png", "pdf", "json"):
        made = quillery("preview", SAMPLE, "--text", text, "--size", "50.5", "-o", f"out.{extension}")
        assert (made.status, made.errors) == (0, []), extension
    shown = json.loads((tmp_path / "out.json").read_text())
    png = (tmp_path / "out.png").read_bytes()
    assert png[:8] == b"\x89PNG\r\n\x1a\n"
    assert struct.unpack(">II", png[16:24]) == (math.ceil(shown["width"]), math.ceil(shown["height"]))
    pdf = (tmp_path / "out.pdf").read_bytes()
    page = [float(number) for number in re.search(rb"/MediaBox \[(.*?)\]", pdf)[1].split()]
    assert page == pytest.approx([0, 0, shown["width"], shown["height"]])
    assert pdf.count(b" Do Q") == len(text) - 1

    before = (tmp_path / "out.png").read_bytes()
    for size in ("1e6", "1e300", "1e308"):
        huge = quillery("preview", SAMPLE, "--text", text, "--size", size, "-o", "out.png")
        assert huge.status == 3 and len(huge.errors) == 1, size
    assert (tmp_path / "out.png").read_bytes() == before
    assert sorted(path.name for path in tmp_path.iterdir()) == ["out.json", "out.pdf", "out.png"]


def test_names_of_files_may_hold_anything(quillery, draw, tmp_path):
    for number, name in enumerate(("a b", "it's \"it\"", "line\nbreak", "-dash", "ключ 字", "100%")):
        folder = tmp_path / f"{number}"
        folder.mkdir()
        saved = folder / (name + ".fontproj")
        font = folder / (name + ".otf")
        drawing = draw(f"{number}/{name}.svg")
        assert quillery("import", saved, drawing).status == 0, name
        assert quillery("export", saved, font).status == 0, name
        assert font.stat().st_size > 500, name
    draw("-A.svg")
    assert quillery("import", "--", "-p.fontproj", "-A.svg").status == 0
    assert glyph(tmp_path / "-p.fontproj", "-A")
    assert quillery("convert", "-o", "copy", "--", "-p.fontproj").status == 0
    assert project(tmp_path / "copy.fontproj") == project(tmp_path / "-p.fontproj")


def test_a_locale_with_decimal_commas_changes_no_number(quillery, draw, tmp_path):
    environment = dict(os.environ, LC_ALL="de_DE.UTF-8", LANG="de_DE.UTF-8")
    quillery("import", "p.fontproj", draw("A.svg", "M0.5 0 L1.25 3 L7 7.125 Z"), env=environment)
    quillery("metrics", "p.fontproj", "A", "--scale", "1.5", env=environment)
    assert glyph(tmp_path / "p.fontproj", "A")["scale"] == 1.5


@pytest.mark.parametrize("arguments", [
    (), ("import",), ("import", "p.fontproj"), ("export", "p.fontproj"),
    ("export", SAMPLE, "font.pfb"), ("metrics", SAMPLE, "A", "--scale", "inf"),
    ("metrics", SAMPLE, "A", "--scale", "0x10"), ("metrics", SAMPLE, "A", "--scale", "1e999"),
    ("metrics", SAMPLE, "--scale", "2"), ("kern", SAMPLE, "--set", "A", "V"),
    ("kern", SAMPLE, "--set", "A", "V", "wide"), ("preview", SAMPLE, "-o", "x.svg"),
    ("preview", SAMPLE, "--text", "A", "-o", "x.txt"), ("convert", SAMPLE),
    ("import", "p.fontproj", "A.svg", "--units-per-em", "12.5"), ("import", SAMPLE, "A.svg", "--name", "Other"), ("check", SAMPLE, "--repair"),
], ids=str)
def test_wrong_usage_is_told_and_changes_nothing(quillery, tmp_path, arguments):
    before = SAMPLE.read_bytes()
    wrong = quillery(*arguments)
    assert wrong.status == (2 if arguments else 3)
    assert len(wrong.errors) == 1 and wrong.errors[0].startswith("quillery: ")
    assert SAMPLE.read_bytes() == before and not list(tmp_path.iterdir())


def test_a_closed_pipe_does_not_stop_a_save(quillery, draw, tmp_path):
    quillery("import", "p.fontproj", draw("A.svg"))
    read, write = os.pipe()
    os.close(read)
    with os.fdopen(write, "wb") as pipe:
        done = subprocess.run([PROGRAM, "metrics", "p.fontproj", "A", "--scale", "2"], cwd=tmp_path,
                              stdout=pipe, check=False)
    assert done.returncode == 0 and glyph(tmp_path / "p.fontproj", "A")["scale"] == 2
