"""Tests of the sample typeface."""

import json
import re
import string
import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "resources"))

from sample_design import output
from sample_design.catalogue import all_glyphs
from sample_design.geometry import area, box, point_at, polygon_of, winding
from sample_design.overlap import merge
from sample_design.shapes import block, disc, ring, stem, stroke, at, end, top, E

PUNCTUATION = """exclam quotedbl numbersign dollar percent ampersand quotesingle
    parenleft parenright asterisk plus comma hyphen period slash colon semicolon less
    equal greater question at bracketleft backslash bracketright asciicircum
    underscore grave braceleft bar braceright asciitilde""".split()
FIGURES = "zero one two three four five six seven eight nine".split()
OTHERS = """Adieresis Odieresis Udieresis adieresis odieresis udieresis germandbls
    eacute egrave agrave ntilde ccedilla euro""".split()

NUMBER = r"\d+(\.\d)?"
PLACE = f"{NUMBER} {NUMBER}"
PATH = re.compile(f"(M {PLACE}( L {PLACE}| C {PLACE} {PLACE} {PLACE})+ Z ?)+")
DRAWING = re.compile(r'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 [\d. ]+">'
                     r'<path d="([^"]+)"/></svg>\n')


def ink(shapes):
    return sum(area(outline) for outline in shapes)


class Overlaps(unittest.TestCase):
    def test_crossing_bars_become_one_outline(self):
        cross = merge(block(0, 40, 100, 60) + block(40, 0, 60, 100))
        self.assertEqual([len(outline) for outline in cross], [12])
        self.assertEqual(ink(cross), 3600)

    def test_edges_on_one_line_leave_no_points(self):
        corner = merge(block(0, 0, 20, 100) + block(0, 80, 70, 100) + block(20, 0, 40, 20))
        self.assertEqual([len(outline) for outline in corner], [8])
        self.assertEqual(ink(corner), 2000 + 1000 + 400)

    def test_counter_survives_and_can_be_split(self):
        bar = merge(ring(0, 0, 400, 400, 80, 60) + block(40, 170, 360, 230))
        self.assertEqual(sorted(area(o) > 0 for o in bar), [False, False, True])
        polygons = [polygon_of(outline) for outline in bar]
        self.assertEqual(winding(polygons, 200 + 200j), 1)
        self.assertEqual(winding(polygons, 200 + 120j), 0)

    def test_covered_shape_vanishes_and_separate_ones_stay(self):
        self.assertEqual(len(merge(block(0, 0, 90, 90) + disc(45, 45, 30))), 1)
        self.assertEqual(len(merge(stem(0, 0, 500) + disc(41, 660, 100))), 2)


class Strokes(unittest.TestCase):
    def test_cut_gives_the_end_the_wanted_angle(self):
        (outline,) = stroke(at(0, 0, 45, 20), at(100, 100, 45, 20), start_cut=0, end_cut=90)
        self.assertEqual(sum(abs(s[0].imag) < 1e-9 for s in outline), 2)
        self.assertEqual(sum(abs(s[0].real - 100) < 1e-9 for s in outline), 2)

    def test_free_end_continues_the_arc(self):
        last = end(70.7107, 29.2893, 10)
        stroke(top(0, 5, 10, E), last)
        self.assertAlmostEqual(last.direction.imag / last.direction.real, 1, 3)

    def test_width_is_kept_at_the_extremes(self):
        outer, counter = ring(0, -10, 300, 310, 60, 40)
        self.assertEqual(box([outer]), (0, -10, 300, 310))
        self.assertEqual(box([counter]), (60, 30, 240, 270))


class Typeface(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.glyphs = {glyph.name: glyph for glyph in all_glyphs()}
        with tempfile.TemporaryDirectory() as folder:
            drawings = Path(folder) / "drawings"
            spacing_file = Path(folder) / "spacing.json"
            output.write(drawings, spacing_file)
            cls.files = {path.stem: path.read_text() for path in drawings.iterdir()}
            cls.spacing = json.loads(spacing_file.read_text())

    def test_every_character_has_its_drawing(self):
        wanted = set(string.ascii_letters) | {*PUNCTUATION, *FIGURES, *OTHERS}
        self.assertEqual(set(self.files), wanted)
        self.assertEqual(set(self.spacing["glyphs"]), wanted)

    def test_drawings_use_the_plain_form_only(self):
        for name, text in self.files.items():
            drawing = DRAWING.fullmatch(text)
            self.assertTrue(drawing, name)
            self.assertTrue(PATH.fullmatch(drawing.group(1)), name)

    def test_outlines_are_whole_closed_and_well_wound(self):
        for name, glyph in self.glyphs.items():
            polygons = [polygon_of(outline) for outline in glyph.outlines]
            for outline in glyph.outlines:
                for segment, following in zip(outline, outline[1:] + outline[:1]):
                    self.assertEqual(segment[-1], following[0], name)
                    self.assertTrue(all(p == complex(round(p.real), round(p.imag))
                                        for p in segment), name)
                # Ink left, paper right of every outline.
                first = max(outline, key=lambda s: abs(s[-1] - s[0]))
                side = (point_at(first, 0.51) - point_at(first, 0.49)) * 1j
                side /= abs(side)
                middle = point_at(first, 0.5)
                self.assertEqual(winding(polygons, middle + side), 1, name)
                self.assertEqual(winding(polygons, middle - side), 0, name)

    def test_counters_are_open(self):
        counters = {"o": 1, "e": 1, "a": 1, "B": 2, "g": 1, "eight": 2, "percent": 2,
                    "ampersand": 2, "at": 1, "A": 1, "four": 1, "n": 0, "s": 0,
                    "numbersign": 1}
        for name, count in counters.items():
            found = sum(area(o) < 0 for o in self.glyphs[name].outlines)
            self.assertEqual(found, count, name)

    def test_letters_stand_on_the_common_lines(self):
        for name in "HEIxvn":
            self.assertEqual(self.spacing["glyphs"][name]["bottom"], 0, name)
        for name in "OoeSs":
            self.assertEqual(self.spacing["glyphs"][name]["bottom"], -12, name)
        for name in "HETAZ":
            self.assertEqual(box(self.glyphs[name].outlines)[3], 700, name)
        for name in "vwxyz":
            self.assertEqual(box(self.glyphs[name].outlines)[3], 500, name)
        self.assertEqual(self.spacing["glyphs"]["p"]["bottom"], -200)

    def test_figures_share_one_advance(self):
        advances = set()
        for name in FIGURES:
            left, _, right, _ = box(self.glyphs[name].outlines)
            entry = self.spacing["glyphs"][name]
            advances.add(entry["leftSideBearing"] + right - left + entry["rightSideBearing"])
        self.assertEqual(advances, {560})

    def test_kerning_names_each_pair_once(self):
        pairs = [tuple(pair[:2]) for pair in self.spacing["kerning"]]
        self.assertEqual(len(pairs), len(set(pairs)))
        self.assertTrue({name for pair in pairs for name in pair} <= set(self.files))


if __name__ == "__main__":
    unittest.main()
