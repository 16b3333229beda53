"""Makes drawings for the benchmarks from the outlines of fonts of the system: one SVG a
character, absolute M, L, C and Z, and the same glyphs as a UFO for tools that start there.
"""

import plistlib
from pathlib import Path

from fontTools.pens.basePen import BasePen
from fontTools.ttLib import TTFont

FONTS = Path("/usr/share/fonts")
# Debian's fonts-dejavu-core and fonts-noto-cjk
LATIN = [FONTS / "truetype/dejavu" / f"DejaVu{name}.ttf"
         for name in ("Sans", "Sans-Bold", "Serif", "Serif-Bold", "SansMono", "SansMono-Bold")]
CJK = [FONTS / "opentype/noto/NotoSansCJK-Regular.ttc"]
EM = 100  # units of a drawing
# Where the drawings' characters start: a plane in which every code is one character.
FIRST_CHARACTER = 0x20000


class DrawingPen(BasePen):
    """Collects a glyph as commands of letters and points, in a hundred units to the em."""

    def __init__(self, glyphs, scale):
        super().__init__(glyphs)
        self._scale = scale
        self.commands = []

    def _add(self, letter, *points):
        self.commands.append((letter, [(round(x * self._scale, 3), round(y * self._scale, 3))
                                       for x, y in points]))

    def _moveTo(self, point):
        self._add("M", point)

    def _lineTo(self, point):
        self._add("L", point)

    def _curveToOne(self, first, second, end):
        self._add("C", first, second, end)

    def _closePath(self):
        self._add("Z")


def outlines(count, fonts=LATIN, first=0):
    """(commands, advance) of `count` glyphs with ink, of characters from `first` on. Fonts follow each
    other, and begin again, a little larger, when their glyphs are used up."""
    made, turn = [], 0
    while True:
        for path in fonts:
            font = TTFont(path, fontNumber=0)
            glyphs = font.getGlyphSet()
            names = [name for scalar, name in font.getBestCmap().items() if scalar >= first]
            scale = EM / font["head"].unitsPerEm * (1 + turn / 100)
            for glyph in dict.fromkeys(names):
                pen = DrawingPen(glyphs, scale)
                glyphs[glyph].draw(pen)
                if pen.commands:
                    made.append((pen.commands, round(font["hmtx"][glyph][0] * scale)))
                    if len(made) == count:
                        return made
        turn += 1


def write_drawings(folder, glyphs):
    """One SVG a glyph, named after its character, y downwards with the baseline at 80."""
    folder.mkdir(parents=True)
    for index, (commands, advance) in enumerate(glyphs):
        write_drawing(folder / f"u+{FIRST_CHARACTER + index:05X}.svg", commands, advance)


def write_drawing(file, commands, advance):
    data = " ".join(" ".join([letter, *(f"{x:g} {round(80 - y, 3):g}" for x, y in points)])
                    for letter, points in commands)
    file.write_text(
        f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {advance} 100"><path d="{data}"/></svg>\n')


def write_ufo(folder, glyphs):
    """The glyphs as a UFO of version 3."""
    (folder / "glyphs").mkdir(parents=True)
    contents = {}
    for index, (commands, advance) in enumerate(glyphs):
        name = f"u{FIRST_CHARACTER + index:05X}"
        contents[name] = f"{name}.glif"
        lines = []
        for letter, points in commands:
            if letter == "M":
                lines.append("<contour>")
                start = points[0]
                body = []
            elif letter == "L":
                body.append(_point(points[0], "line"))
            elif letter == "C":
                body += [_point(points[0]), _point(points[1]), _point(points[2], "curve")]
            else:
                # A closed contour has no point of its own for its start.
                if not body or f'x="{start[0] * 10:g}" y="{start[1] * 10:g}"' not in body[-1]:
                    body.append(_point(start, "line"))
                lines += [*body, "</contour>"]
        (folder / "glyphs" / contents[name]).write_text(
            f'<?xml version="1.0" encoding="UTF-8"?>\n<glyph name="{name}" format="2">\n'
            f'<advance width="{advance * 10}"/>\n<unicode hex="{FIRST_CHARACTER + index:X}"/>\n<outline>\n'
            + "\n".join(lines) + "\n</outline>\n</glyph>\n")
    plists = {
        "metainfo.plist": {"creator": "benchmark", "formatVersion": 3},
        "layercontents.plist": [["public.default", "glyphs"]],
        "fontinfo.plist": {"familyName": "Benchmark", "styleName": "Regular", "unitsPerEm": 1000,
                           "ascender": 800, "descender": -200, "capHeight": 700, "xHeight": 500},
        "lib.plist": {"public.glyphOrder": list(contents)},
        "glyphs/contents.plist": contents,
    }
    for name, value in plists.items():
        with open(folder / name, "wb") as file:
            plistlib.dump(value, file)


def _point(point, kind=None):
    """A point in a thousand units to the em, which is what fonts mostly have."""
    typed = f' type="{kind}"' if kind else ""
    return f'<point x="{point[0] * 10:g}" y="{point[1] * 10:g}"{typed}/>'
