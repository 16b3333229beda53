"""Outlines in both flavours: the same ink as drawn, and tables that fontTools reads."""

import io
import json
import math
import re
from itertools import chain
from pathlib import Path

import freetype
import pytest
from conftest import FORMATS, sanitize, unpacked
from drawings import CLOSE, box, circle, curve, document, glyph, line, move
from fontTools.pens.recordingPen import RecordingPen

RING = math.pi * (300 ** 2 - 200 ** 2)

# The drawing and the area that it fills.
DRAWN = {
    "a box": (box(50, 0, 550, 700), 500 * 700),
    "a circle": (circle(300, 350, 300), math.pi * 300 ** 2),
    "a ring": (circle(300, 350, 300) + circle(300, 350, 200, -1), RING),
    "a turned ring": (circle(300, 350, 300, -1) + circle(300, 350, 200), RING),
    "a circle in a circle of the same turn": (circle(300, 350, 300) + circle(300, 350, 200),
                                              math.pi * 300 ** 2),
    "overlapping boxes": (box(0, 0, 400, 400) + box(200, 200, 600, 600), 2 * 400 ** 2 - 200 ** 2),
    "boxes of both turns": (box(0, 0, 200, 700) + box(600, 0, 400, 700), 2 * 200 * 700),
    "straight curves": ([move(0, 0), curve(0, 0, 600, 0, 600, 0), curve(600, 200, 600, 400, 600, 600),
                         curve(600, 600, 600, 600, 600, 600), line(0, 600)], 600 * 600),
    "a dot": ([move(100, 100), CLOSE], 0),
}


@pytest.mark.parametrize("target", [f"font.{extension}" for extension in FORMATS])
def test_fonts_fill_what_is_drawn(make, target):
    glyphs = [glyph(name, chr(65 + index), path) for index, (name, (path, _)) in enumerate(DRAWN.items())]
    font = make(document(glyphs), target)
    assert sanitize(font) == ""
    face = freetype.Face(unpacked(font))
    face.set_pixel_sizes(500, 500)
    for index, (name, (_, area)) in enumerate(DRAWN.items()):
        face.load_char(chr(65 + index), freetype.FT_LOAD_RENDER | freetype.FT_LOAD_NO_HINTING)
        filled = sum(face.glyph.bitmap.buffer) / 255 * 4  # a pixel is two units wide
        assert filled == pytest.approx(area, rel=0.004, abs=60), name


TABLE = json.loads((Path(__file__).parents[1] / "support" / "outlines.json").read_text())


def commands(path_data):
    kinds = {"M": move, "L": line, "C": curve, "Z": lambda: CLOSE}
    return [kinds[letter](*map(float, numbers.split()))
            for letter, numbers in re.findall("([MLCZ])([^MLCZ]*)", path_data)]


@pytest.mark.parametrize("extension", FORMATS)
def test_what_a_drawing_leaves_out_is_read_by_the_table(make, extension):
    """The one that the window and the previews are held against as well."""
    glyphs = [glyph(f"g{index}", None, commands(data)) for index, data in enumerate(chain(*TABLE.values()))]
    drawn = make(document(glyphs), f"font.{extension}").getGlyphSet()

    def drawing(index):
        pen = RecordingPen()
        drawn[f"g{index}"].draw(pen)
        return pen.value

    for index, (name, (_, contours)) in enumerate(TABLE.items()):
        assert drawing(2 * index) == drawing(2 * index + 1), name
        assert (drawing(2 * index) == []) == (contours == ""), name


OVERLAPS = {
    "one box": (box(0, 0, 9, 9), False),
    "a ring": (circle(0, 0, 300) + circle(0, 0, 200, -1), False),
    "a dot in a ring": (circle(0, 0, 300) + circle(0, 0, 200, -1) + circle(0, 0, 100), False),
    "side by side in one box": ([move(0, 0), line(100, 0), line(0, 100)] +
                                [move(90, 90), line(90, 40), line(40, 90)], False),
    "crossing": (box(0, 0, 400, 400) + box(200, 200, 600, 600), True),
    "inside, turning alike": (box(0, 0, 90, 90) + box(10, 10, 20, 20), True),
    "around, turning alike": (box(10, 10, 20, 20) + box(0, 0, 90, 90), True),
    "thousands": (sum((box(x, 0, x + 5, 9) for x in range(0, 30000, 9)), []), False),
}


def test_overlapping_contours_are_flagged(make):
    glyphs = [glyph(f"g{index}", None, path) for index, (path, _) in enumerate(OVERLAPS.values())]
    glyf = make(document(glyphs), "f.ttf")["glyf"]
    for index, (name, (_, expected)) in enumerate(OVERLAPS.items()):
        assert bool(glyf[f"g{index}"].flags[0] & 0x40) == expected, name


@pytest.mark.parametrize("em", [16, 999, 1000, 2048, 16384])
def test_the_cff_table_reads_back(make, em):
    glyphs = [glyph(f"g{index}", chr(0x4E00 + index), box(0, 0, 9, index + 1), 100 + index * 13 % 65436)
              for index in range(700)]
    glyphs += [glyph("wide", "A", box(0, 0, 9, 9), 65535), glyph("narrow", "B", box(0, 0, 9, 9), 0)]
    font = make(document(glyphs, unitsPerEm=em))
    top = font["CFF "].cff.topDictIndex[0]
    assert font.getGlyphOrder()[1:701] == [f"g{index}" for index in range(700)]
    assert getattr(top, "FontMatrix", [0.001])[0] == pytest.approx(1 / em, rel=1e-9)
    drawn = font.getGlyphSet()
    for name in font.getGlyphOrder():
        drawn[name].draw(RecordingPen())
        charstring = top.CharStrings[name]
        charstring.draw(RecordingPen())
        assert charstring.width == font["hmtx"][name][0], name
    assert top.FontBBox == [font["head"].xMin, font["head"].yMin, font["head"].xMax, font["head"].yMax]
    font.save(io.BytesIO())


def test_outlines_of_many_points_unpack_from_woff2(make):
    """Counts and steps beyond one byte, in the form that WOFF2 has for them."""
    for count in (252, 253, 505, 506, 761, 762, 3000):
        zigzag = [line(index * 40 % 9001, index * 77 % 8999) for index in range(count)]
        fonts = [make(document([glyph("A", "A", zigzag)]), target) for target in ("f.ttf", "f.woff2")]
        coordinates = [list(font["glyf"]["A"].coordinates) for font in fonts]
        assert coordinates[0] == coordinates[1] and len(coordinates[0]) == count


def test_fonts_of_a_hundred_and_more_kilobytes_have_long_offsets(make):
    for count, are_long in ((500, 0), (900, 1)):
        zigzag = [line(index * 397 % 901, index * 461 % 899) for index in range(40)]
        font = make(document([glyph("g", None, zigzag)] * count), "f.ttf")
        assert font["head"].indexToLocFormat == are_long
        assert abs(len(font.getTableData("glyf")) - 2 * 0xFFFF) < 50_000 and sanitize(font) == ""
        assert len(font["glyf"][font.getGlyphOrder()[count]].coordinates) == 40
