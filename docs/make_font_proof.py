#!/usr/bin/python3
"""Proves fonts against their projects, for the eye and by checks.

usage: make_font_proof.py [FOLDER]

Makes fonts in every format of the sample and of a project of hard cases, checks each against its
project, prints what the checks found, and draws the same texts with every font, a row each:
FOLDER/font-proof.png. FOLDER/font-report.png shows the report page if there is a Chromium. Needs
python3-pil and fonts-dejavu-core beside what the tests need.
"""

import json
import math
import os
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

ROOT = Path(__file__).resolve().parents[1]
sys.path[:0] = [str(ROOT / "resources"), str(ROOT / "tests/generator")]

import freetype  # noqa: E402
from conftest import FORMATS, sanitize, unpacked  # noqa: E402
from drawings import CLOSE, box, circle, curve, document, glyph, line, move, pair  # noqa: E402
from font_generator.outlines import read_outline  # noqa: E402
from font_reporter.distances import largest_distance  # noqa: E402
from font_reporter.font_file import open_font  # noqa: E402
from fontTools.ttLib import TTFont  # noqa: E402
from PIL import Image, ImageDraw, ImageFont  # noqa: E402

SAMPLE = ROOT / "resources/Sample.fontproj"
PROGRAM = ROOT / "build/release/bin/quillery"
SAMPLE_TEXTS = ["AVATAR Typo Wäy 2025", "Quillery sets & kerns: (ßéçñ) 10 %"]
DETAIL = 250  # pixels per em where areas are measured

INK, PAPER, FAINT, ACCENT = "#1c1b22", "#fbfaf7", "#8b8794", "#3d5a80"
WIDTH, MARGIN, LABEL = 1680, 48, 250


def zigzag(count):
    """A jagged disc of many points."""
    points = [((250 + 40 * (index % 2)) * math.cos(2 * math.pi * index / count) + 300,
               (250 + 40 * (index % 2)) * math.sin(2 * math.pi * index / count) + 350)
              for index in range(count)]
    return [move(*points[0]), *(line(*point) for point in points[1:]), CLOSE]


FAR_APART = [chr(0x10000 + index * 0xC011) for index in range(20)]

# What is hard, the text that shows it, and the glyphs that it needs.
CASES = {
    "overlap": ("+", [glyph("plus", "+", box(50, 250, 550, 450) + box(200, 50, 400, 650))]),
    "turned": ("D", [glyph("turned", "D", box(550, 0, 50, 700))]),
    "counter": ("O", [glyph("ring", "O", circle(300, 350, 290) + circle(300, 350, 180, -1))]),
    "turned counter": ("Q", [glyph("Q", "Q", circle(300, 350, 290, -1) + circle(300, 350, 180))]),
    "crossing turns": ("8", [glyph("eight", "8", circle(300, 190, 190) + box(500, 250, 100, 600))]),
    "dot and ring": (".", [glyph("dot", ".", [move(300, 300), CLOSE] + circle(300, 350, 150))]),
    "no width": ("i", [glyph("thin", "i", box(60, 0, 160, 700) + [move(240, 0), line(240, 700), CLOSE], 300)]),
    "tiny curves": ("*", [glyph("tiny", "*", sum((circle(90 + 110 * n, 350, 3 + 9 * n) for n in range(5)), []))]),
    "huge": ("x", [glyph("huge", "x", [move(-16000, -16000), curve(-16000, 16000, 16000, -16000, 16000, 16000),
                                       line(9000, -16000), CLOSE])]),
    "cusps": ("&", [glyph("cusp", "&", [move(50, 0), curve(750, 700, -150, 700, 550, 0),
                                        curve(550, 0, 300, 700, 300, 700), curve(300, 700, 300, 300, 50, 0), CLOSE])]),
    "2,000 points": ("%", [glyph("many", "%", zigzag(2000))]),
    "open": ("l", [glyph("open", "l", [move(80, 0), line(150, 700), curve(450, 700, 550, 300, 300, 0)])]),
    "bearings < 0": ("jj", [glyph("j", "j", [move(-150, -150), line(250, 700), line(450, 700),
                                                           line(50, -200), CLOSE], 300)]),
    "mark, advance 0": ("o\u0301o", [glyph("o", "o", circle(250, 250, 230), 500),
                                     glyph("acute", "\u0301", box(-350, 560, -150, 700), 0)]),
    "flag": ("\U0001f1e9\U0001f1ea", [
        glyph("flag", "\U0001f1e9\U0001f1ea", box(0, 0, 900, 160) + box(0, 230, 900, 390) + box(0, 460, 900, 620), 900),
        glyph("letter D", "\U0001f1e9", box(0, 0, 300, 700)), glyph("letter E", "\U0001f1ea", box(0, 0, 300, 700))]),
    "base and mark": ("e\u0302\u0323", [
        glyph("layered", "e\u0302\u0323",
              circle(250, 250, 220) + box(150, 560, 350, 640) + box(200, -150, 300, -60), 500),
        glyph("e", "e", circle(250, 250, 220), 500), glyph("circumflex", "\u0302", (), 0),
        glyph("dot below", "\u0323", (), 0)]),
    "name Жук": ("Ж", [glyph("Жук 甲", "Ж", sum((box(x, 0, x + 100, 700) for x in (50, 250, 450)), []))]),
    "20 far apart": ("".join(FAR_APART[::6]), [
        glyph(f"far {index}", character, box(30, 0, 330, 35 + 35 * index), 360)
        for index, character in enumerate(FAR_APART)]),
    "kerning": ("AVA", [glyph("A", "A", [move(20, 0), line(280, 700), line(380, 700), line(640, 0), line(520, 0),
                                         line(330, 560), line(140, 0), CLOSE], 660),
                        glyph("V", "V", [move(20, 700), line(280, 0), line(380, 0), line(640, 700), line(520, 700),
                                         line(330, 140), line(140, 700), CLOSE], 660)]),
}
PAIRS = [pair("A", "V", -140), pair("V", "A", -140.4), pair("o", "o", -30), pair("flag", "A", 25),
         pair("Жук 甲", "V", -61)]


def hard_cases():
    return document([entry for _, glyphs in CASES.values() for entry in glyphs], PAIRS,
                    name="Hard Cases Жук Bold Italic", version="2.5", designer="Nobody", copyright="© nobody")


def described(project_file):
    """The font description of a project file, without the program."""
    project = json.loads(project_file.read_text(encoding="utf-8"))
    members = {"moveTo": ("point",), "lineTo": ("point",), "curveTo": ("control1", "control2", "point"),
               "closePath": ()}

    def command(entry):
        (kind, points), = entry.items()
        return {"type": kind} | {name: dict(zip("xy", points[f"_{index}"])) for index, name in enumerate(members[kind])}

    keys = ("name", "unicode", "advanceWidth", "leftSideBearing", "rightSideBearing")
    return {key: project[key] for key in document() if key != "glyphs"} | {"glyphs": [
        {key: entry[key] for key in keys if key in entry} | {"fontPath": [command(one) for one in entry["fontPath"]]}
        for entry in project["glyphs"]]}


class Font:
    """A font of a project in one format, and what the libraries make of it."""

    def __init__(self, project, source, extension):
        self.project = project
        self.path = source.with_suffix(f".{extension}")
        subprocess.run([sys.executable, ROOT / "resources/generate_font.py", source, self.path], check=True,
                       stdout=subprocess.DEVNULL)
        self.table = TTFont(self.path)
        self.sfnt = unpacked(self.table)
        self.face = freetype.Face(str(self.path))  # which unpacks by itself
        self.glyph_of = {entry["unicode"]: entry for entry in project["glyphs"] if "unicode" in entry}

    def shape(self, texts):
        """(glyph index, advance, x offset) of each glyph, for each of the texts."""
        lines = "\n".join(texts).encode()
        result = subprocess.run(["hb-shape", "--output-format=json", "--no-glyph-names", self.sfnt, "--text-file=-"],
                                input=lines, capture_output=True, check=True)
        return [[(entry["g"], entry["ax"], entry["dx"]) for entry in json.loads(line)]
                for line in result.stdout.splitlines()]

    def drawings(self):
        """(glyph of the project, glyph index) of what one character shows."""
        for text, entry in self.glyph_of.items():
            if len(text) == 1:
                yield entry, self.face.get_char_index(ord(text))
        for text, entry in self.glyph_of.items():
            if len(text) > 1:
                yield entry, self.shape([text])[0][0][0]


def is_sanitized(font):
    said = [line for line in sanitize(font.table).splitlines() if "advance width" not in line]
    return not said, "; ".join(said)


def maps_every_character(font):
    wrong = [text for text in font.glyph_of if len(text) == 1 and not font.face.get_char_index(ord(text))]
    return not wrong, f"{sum(len(text) == 1 for text in font.glyph_of)} characters"


def has_names(font):
    names = {record.nameID: record.toUnicode() for record in font.table["name"].names}
    good = (all(names.values()) and {1, 2, 3, 4, 5, 6} <= names.keys() and names[6].isascii()
            and names.get(16, names[1]) in font.project["name"])
    return good, f"{names[1]} / {names[2]}, {names[6]}"


def has_the_measures(font):
    hhea, os2 = font.table["hhea"], font.table["OS/2"]
    wanted = [font.project[key] for key in ("ascender", "descender", "ascender", "descender", "xHeight", "capHeight")]
    good = wanted == [hhea.ascent, hhea.descent, os2.sTypoAscender, os2.sTypoDescender, os2.sxHeight, os2.sCapHeight]
    wrong = []
    for entry, index in font.drawings():
        font.face.load_glyph(index, freetype.FT_LOAD_NO_SCALE)
        if font.face.glyph.metrics.horiAdvance != math.floor(entry["advanceWidth"] + 0.5):
            wrong.append(entry["name"])
    return good and not wrong, f"{len(font.glyph_of)} advances"


def kerns_as_the_project(font):
    text_of = {}
    for text, entry in font.glyph_of.items():
        text_of.setdefault(entry["name"], text)
    values = {}
    for entry in font.project["kerningPairs"]:
        if entry["leftGlyph"] in text_of and entry["rightGlyph"] in text_of:
            values.setdefault((entry["leftGlyph"], entry["rightGlyph"]), math.floor(entry["value"] + 0.5))
    advance = {entry["name"]: math.floor(entry["advanceWidth"] + 0.5) for entry in font.glyph_of.values()}
    lines = font.shape([text_of[left] + text_of[right] for left, right in values])
    found = [line[0][1] - advance[left] for line, (left, _) in zip(lines, values)]
    return found == list(values.values()), f"{len(values)} pairs"


def fills_what_is_drawn(font):
    """By FreeType's rasterizer against spans of the project's outlines."""
    worst, where = 0.0, ""
    font.face.set_pixel_sizes(DETAIL, DETAIL)
    em = font.project["unitsPerEm"]
    for entry, index in font.drawings():
        if max((abs(point[key]) for command in entry["fontPath"] for name, point in command.items()
                if name != "type" for key in "xy"), default=0) > 4 * em:
            continue  # too large for a bitmap; the distance has it
        font.face.load_glyph(index, freetype.FT_LOAD_RENDER | freetype.FT_LOAD_NO_HINTING)
        filled = sum(font.face.glyph.bitmap.buffer) / 255 / DETAIL ** 2
        difference = abs(filled - filled_area(read_outline(entry["fontPath"]).contours, em)) * 100
        if difference > worst:
            worst, where = difference, entry["name"]
    return worst < 0.2, f"{worst:.3f} % of an em square ({where})"


def filled_area(contours, em, lines=1600):
    """The share of an em square that contours fill by non-zero winding, line by line."""
    edges = []
    for contour in contours:
        points = list(flattened(contour))
        edges += zip(points, points[1:] + points[:1])
    if not edges:
        return 0.0
    ys = [y for edge in edges for _, y in edge]
    low, step = min(ys), (max(ys) - min(ys)) / lines or 1.0
    crossings = [[] for _ in range(lines)]
    for (x0, y0), (x1, y1) in edges:
        if y0 != y1:
            turn = 1 if y1 > y0 else -1
            first, last = sorted((math.ceil((y - low) / step - 0.5) for y in (y0, y1)))
            for index in range(max(first, 0), min(last, lines)):
                crossings[index].append((x0 + (x1 - x0) * (low + (index + 0.5) * step - y0) / (y1 - y0), turn))
    area = 0.0
    for row in crossings:
        winding = 0
        for (x, turn), (next_x, _) in zip(sorted(row), sorted(row)[1:]):
            winding += turn
            area += (next_x - x) * step if winding else 0.0
    return area / em ** 2


def flattened(contour, steps=64):
    start = contour[0]
    yield start
    for segment in contour[1:]:
        if len(segment) == 2:
            yield segment
        else:
            points = [start, segment[0:2], segment[2:4], segment[4:6]]
            for step in range(1, steps + 1):
                t = step / steps
                weights = ((1 - t) ** 3, 3 * t * (1 - t) ** 2, 3 * t * t * (1 - t), t ** 3)
                yield tuple(sum(w * p[axis] for w, p in zip(weights, points)) for axis in (0, 1))
        start = segment[-2:]


def stays_close_to_the_drawings(font):
    worst, where = worst_distance(font)
    return worst <= 1, f"{worst:.2f}/1000 em ({where})"


def worst_distance(font):
    """The largest distance of an outline from its drawing in thousandths of the em, and whose."""
    contours, em = open_font(str(font.path)).contours(), font.project["unitsPerEm"]
    distances = [(largest_distance(read_outline(entry["fontPath"]).contours, contours[index], em).length, entry["name"])
                 for entry, index in font.drawings()]
    length, name = max(distances)
    return length * 1000 / em, name


CHECKS = [is_sanitized, maps_every_character, has_names, has_the_measures, kerns_as_the_project,
          fills_what_is_drawn, stays_close_to_the_drawings]


def check(title, fonts):
    """Prints one table of the checks of all formats; whether all were passed."""
    print(f"\n{title}\n")
    print("| check | " + " | ".join(FORMATS) + " | found |\n|---|" + "---|" * (len(FORMATS) + 1))
    passed = True
    for one in CHECKS:
        results = [one(font) for font in fonts]
        passed = passed and all(good for good, _ in results)
        found = dict.fromkeys(said for _, said in results if said)
        marks = " | ".join("yes" if good else "NO" for good, _ in results)
        print(f"| {one.__name__.replace('_', ' ')} | {marks} | {'; '.join(found)} |")
    return passed


class Sheet:
    """The picture, filled from top to bottom."""

    def __init__(self, height):
        self.image = Image.new("RGB", (WIDTH, height), PAPER)
        self.draw = ImageDraw.Draw(self.image)
        self.y = MARGIN

    def text(self, x, y, text, size, color, bold=False):
        name = f"/usr/share/fonts/truetype/dejavu/DejaVuSans{'-Bold' if bold else ''}.ttf"
        self.draw.text((x, y), text, font=ImageFont.truetype(name, size), fill=color)

    def heading(self, text):
        self.text(MARGIN, self.y, text, 26, INK, bold=True)
        self.y += 52

    def label(self, font, baseline):
        worst, where = worst_distance(font)
        self.text(MARGIN, baseline - 34, font.path.suffix[1:].upper(), 20, ACCENT, bold=True)
        self.text(MARGIN, baseline - 6, f"at most {worst:.2f}/1000 em off", 13, FAINT)

    def set(self, font, glyphs, x, baseline, pixels):
        """Sets shaped glyphs in `pixels` to the em."""
        scale = pixels / font.project["unitsPerEm"]
        face = font.face
        face.set_char_size(round(pixels * 64))
        for index, advance, offset in glyphs:
            at = x + offset * scale
            face.set_transform(freetype.Matrix(0x10000, 0, 0, 0x10000), freetype.Vector(round(at % 1 * 64), 0))
            face.load_glyph(index, freetype.FT_LOAD_RENDER | freetype.FT_LOAD_NO_HINTING)
            bitmap = face.glyph.bitmap
            if bitmap.width:
                mask = Image.frombytes("L", (bitmap.width, bitmap.rows), bytes(bitmap.buffer), "raw", "L", bitmap.pitch)
                self.image.paste(INK, (int(at // 1) + face.glyph.bitmap_left, baseline - face.glyph.bitmap_top), mask)
            x += advance * scale
        face.set_transform(freetype.Matrix(0x10000, 0, 0, 0x10000), freetype.Vector(0, 0))


def draw_texts(sheet, fonts):
    for text in SAMPLE_TEXTS:
        for font in fonts:
            sheet.y += 84
            sheet.label(font, sheet.y)
            sheet.set(font, font.shape([text])[0], LABEL, sheet.y, 72)
        sheet.y += 44


def draw_cases(sheet, fonts, columns=10):
    texts = [text for text, _ in CASES.values()]
    cell = (WIDTH - LABEL - MARGIN) / columns
    for first in range(0, len(texts), columns):
        for column, name in enumerate(list(CASES)[first:first + columns]):
            sheet.text(LABEL + column * cell, sheet.y, name, 13, FAINT)
        for font in fonts:
            sheet.y += 104
            sheet.label(font, sheet.y)
            for column, glyphs in enumerate(font.shape(texts)[first:first + columns]):
                huge = texts[first + column] == "x"
                sheet.set(font, glyphs, LABEL + column * cell + (36 if huge else 8), sheet.y - (30 if huge else 0),
                          2 if huge else 76)
        sheet.y += 60


def picture_of_report(folder, place):
    """Pictures the report page of the sample; whether there was anything to do it with."""
    browser = shutil.which("chromium") or shutil.which("chromium-browser")
    if not browser or not PROGRAM.exists():
        return False
    page = place / "report.html"
    subprocess.run([PROGRAM, "export", SAMPLE, place / "Sample.otf", "--report", page], check=True,
                   stdout=subprocess.DEVNULL)
    picture = folder / "font-report.png"
    subprocess.run([browser, "--headless", "--no-sandbox", "--disable-gpu", "--hide-scrollbars",
                    "--window-size=1200,3600", f"--user-data-dir={place / 'browser'}",
                    f"--screenshot={picture}", page.as_uri()],
                   check=True, capture_output=True, timeout=120, env=os.environ | {"HOME": str(place)})
    Image.open(picture).convert("RGB").quantize(256).save(picture, optimize=True)
    return True


def main():
    folder = Path(sys.argv[1]) if len(sys.argv) > 1 else ROOT / "docs/pictures"
    folder.mkdir(parents=True, exist_ok=True)
    with tempfile.TemporaryDirectory() as place:
        place = Path(place)
        passed = True
        sheet = Sheet(2060)
        for title, project, draw in (("The sample", described(SAMPLE), draw_texts),
                                     ("Hard cases", hard_cases(), draw_cases)):
            source = place / f"{title.replace(' ', '')}.json"
            source.write_text(json.dumps(project, ensure_ascii=False), encoding="utf-8")
            fonts = [Font(project, source, extension) for extension in FORMATS]
            passed = check(title, fonts) and passed
            sheet.y += 24
            sheet.heading(title)
            draw(sheet, fonts)
        sheet.image.crop((0, 0, WIDTH, sheet.y)).quantize(64).save(folder / "font-proof.png", optimize=True)
        if not picture_of_report(folder, place):
            print("\nThere is no Chromium or no build of the program to picture the report page with.")
    return 0 if passed else 1


if __name__ == "__main__":
    sys.exit(main())
