#!/usr/bin/python3
"""Sizes of the CFF tables that Quillery, FontForge and fontmake make of the same outlines.

    sizes.py [--generator PROGRAM] [--glyphs N]

Prints the table of benchmarks/fonts/README.md. The outlines are those of Debian's fonts-inter,
fonts-noto-core, fonts-noto-cjk and fonts-dejavu-core, rounded; fontmake shares subroutines with
python3-cffsubr (--optimize-cff=2), FontForge (python3-fontforge) as it does unasked. Sizes
are in bytes; times are of whole programs, which start from a document or a UFO. The last column is
Quillery's table less its hints to fontmake's, which has none.
"""

import argparse
import json
import plistlib
import subprocess
import sys
import tempfile
import time
from pathlib import Path

from fontTools.pens.basePen import BasePen
from fontTools.ttLib import TTFont

ROOT = Path(__file__).resolve().parents[2]
FONTS = {
    "Inter": "/usr/share/fonts/opentype/inter/Inter-Regular.otf",
    "Noto Sans": "/usr/share/fonts/truetype/noto/NotoSans-Regular.ttf",
    "Noto Serif": "/usr/share/fonts/truetype/noto/NotoSerif-Regular.ttf",
    "DejaVu Sans": "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf",
    "Noto Sans CJK": "/usr/share/fonts/opentype/noto/NotoSansCJK-Regular.ttc",
}
FONTFORGE = """
import sys, fontforge
font = fontforge.open(sys.argv[1])
font.generate(sys.argv[2], flags=("opentype",))
"""


class ContourPen(BasePen):
    """Collects contours as a start and segments of points, in whole units, without a last line
    back to the start."""

    def __init__(self, glyphs):
        super().__init__(glyphs)
        self.contours = []

    def _moveTo(self, point):
        self.contours.append([_rounded(point)])

    def _lineTo(self, point):
        self.contours[-1].append(_rounded(point))

    def _curveToOne(self, first, second, end):
        self.contours[-1].append(_rounded(first) + _rounded(second) + _rounded(end))

    def _closePath(self):
        contour = self.contours[-1]
        if len(contour) > 1 and contour[-1] == contour[0]:
            contour.pop()


def _rounded(point):
    return round(point[0]), round(point[1])


def document_of(path, most=None):
    """What Quillery's generator is told of the outlines of a font."""
    font = TTFont(path, fontNumber=0)
    glyphs, characters = font.getGlyphSet(), {}
    for scalar, name in font.getBestCmap().items():
        characters.setdefault(name, chr(scalar))
    os2 = font["OS/2"]
    document = {"name": "Sizes", "designer": "", "version": "1.0", "copyright": "",
                "unitsPerEm": font["head"].unitsPerEm, "ascender": font["hhea"].ascent,
                "descender": font["hhea"].descent, "capHeight": getattr(os2, "sCapHeight", 700), "xHeight": getattr(os2, "sxHeight", 500),
                "kerningPairs": [], "glyphs": []}
    for name in font.getGlyphOrder()[:most]:
        pen = ContourPen(glyphs)
        glyphs[name].draw(pen)
        glyph = {"name": name, "advanceWidth": round(glyphs[name].width), "leftSideBearing": 0,
                 "rightSideBearing": 0, "fontPath": list(_commands(pen.contours))}
        if name in characters:
            glyph["unicode"] = characters[name]
        document["glyphs"].append(glyph)
    return document


def _commands(contours):
    for contour in contours:
        yield {"type": "moveTo", "point": _point(contour[0])}
        for segment in contour[1:]:
            if len(segment) == 2:
                yield {"type": "lineTo", "point": _point(segment)}
            else:
                yield {"type": "curveTo", "control1": _point(segment[0:2]),
                       "control2": _point(segment[2:4]), "point": _point(segment[4:6])}
        yield {"type": "closePath"}


def _point(numbers):
    return {"x": numbers[0], "y": numbers[1]}


def write_ufo(folder, document):
    """The glyphs of a document as a UFO of version 3."""
    (folder / "glyphs").mkdir(parents=True)
    contents = {}
    for index, glyph in enumerate(document["glyphs"]):
        contents[glyph["name"]] = f"g{index}.glif"
        lines = [f'<?xml version="1.0" encoding="UTF-8"?>\n<glyph name="{glyph["name"]}" format="2">',
                 f'<advance width="{glyph["advanceWidth"]}"/>']
        if len(glyph.get("unicode", "")) == 1:
            lines.append(f'<unicode hex="{ord(glyph["unicode"]):04X}"/>')
        lines.append("<outline>")
        for command in glyph["fontPath"]:
            kind = command["type"]
            if kind == "moveTo":
                start, points = command["point"], []
            elif kind == "closePath":
                # A closed contour has no point of its own for its start.
                if not points or points[-1][0] != start:
                    points.append((start, "line"))
                lines += ["<contour>", *(_glif(*point) for point in points), "</contour>"]
            else:
                if kind == "curveTo":
                    points += [(command["control1"], None), (command["control2"], None)]
                points.append((command["point"], kind.removesuffix("To")))
        (folder / "glyphs" / contents[glyph["name"]]).write_text("\n".join([*lines, "</outline></glyph>"]))
    for name, value in {
            "metainfo.plist": {"creator": "benchmark", "formatVersion": 3},
            "layercontents.plist": [["public.default", "glyphs"]],
            "fontinfo.plist": {"familyName": "Sizes", "styleName": "Regular", "unitsPerEm": document["unitsPerEm"],
                               "ascender": document["ascender"], "descender": document["descender"],
                               "capHeight": document["capHeight"], "xHeight": document["xHeight"]},
            "lib.plist": {"public.glyphOrder": list(contents)},
            "glyphs/contents.plist": contents}.items():
        with open(folder / name, "wb") as file:
            plistlib.dump(value, file)


def _glif(point, kind):
    typed = f' type="{kind}"' if kind else ""
    return f'<point x="{point["x"]}" y="{point["y"]}"{typed}/>'


def timed(command):
    start = time.perf_counter()
    done = subprocess.run(list(map(str, command)), capture_output=True, text=True)
    if done.returncode:
        raise SystemExit(f"{command[0]} failed: {done.stderr[-400:]}")
    return time.perf_counter() - start


def table_size(path):
    return len(TTFont(path).reader["CFF "])


def hint_size(path):
    """Bytes of the operators that declare stems, which the others leave out."""
    total = 0
    strings = TTFont(path)["CFF "].cff[0].CharStrings
    for name in strings.keys():
        strings[name].decompile()
        program = strings[name].program
        if "hstem" in program:
            operands = program[:program.index("hstem")]
            operands = operands[len(operands) % 2:]  # without a width
            total += 1 + sum(1 if abs(number) <= 107 else 2 if abs(number) <= 1131 else 3 for number in operands)
    return total


def main():
    parser = argparse.ArgumentParser(description="Compares the sizes of CFF tables.")
    parser.add_argument("--generator", default=ROOT / "build/release/bin/generate_font")
    parser.add_argument("--glyphs", type=int, default=20000, help="at most so many of a font")
    options = parser.parse_args()
    print("| Outlines | glyphs | Quillery | of these hints | FontForge | fontmake | to FontForge | to fontmake "
          "| without hints |\n|---|---|---|---|---|---|---|---|---|")
    for name, path in FONTS.items():
        with tempfile.TemporaryDirectory() as place:
            place = Path(place)
            document = document_of(path, options.glyphs)
            (place / "font.json").write_text(json.dumps(document))
            (place / "save.py").write_text(FONTFORGE)
            write_ufo(place / "font.ufo", document)
            commands = {
                "ours": [options.generator, place / "font.json", place / "ours.otf"],
                "fontforge": [sys.executable, place / "save.py", place / "font.ufo", place / "fontforge.otf"],
                "fontmake": ["fontmake", "-u", place / "font.ufo", "-o", "otf", "--keep-overlaps",
                             "--optimize-cff=2", "--output-path", place / "fontmake.otf"]}
            times = {tool: timed(command) for tool, command in commands.items()}
            sizes = {tool: table_size(place / f"{tool}.otf") for tool in commands}
            hints = hint_size(place / "ours.otf")
        ours, *others = (f"{sizes[tool]:,} ({times[tool]:.2f} s)" for tool in commands)
        ratios = (sizes["ours"] / sizes["fontforge"], sizes["ours"] / sizes["fontmake"],
                  (sizes["ours"] - hints) / sizes["fontmake"])
        print("|", " | ".join([name, f"{len(document['glyphs']):,}", ours, f"{hints:,}", *others,
                               *(f"{ratio:.2f}" for ratio in ratios)]), "|", flush=True)


if __name__ == "__main__":
    main()
