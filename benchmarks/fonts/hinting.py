#!/usr/bin/python3
"""Draws text in small sizes with fonts of Quillery, hinted above unhinted, as FreeType does.

    hinting.py PICTURE.png [--generator PROGRAM] [--text TEXT]

Needs python3-freetype, python3-pil and the fonts of sizes.py. The pictures are greyscale, enlarged
without smoothing: above with the font's own hints, below without.
"""

import argparse
import json
import subprocess
import tempfile
from pathlib import Path

import freetype
from PIL import Image, ImageDraw

from sizes import FONTS, ROOT, document_of

TEXT = "Hamburgefonstiv doq xyz BES 012"
SIZES = (12, 13, 14, 16)
ENLARGED = 4
SAMPLE = ROOT / "resources/Sample.fontproj"


def sample_document():
    """The sample project as the generator is told it."""
    project = json.loads(SAMPLE.read_text())
    members = ("name", "designer", "version", "copyright", "unitsPerEm", "ascender", "descender", "capHeight",
               "xHeight")
    glyphs = [{"name": glyph["name"], "advanceWidth": glyph["advanceWidth"], "leftSideBearing": 0,
               "rightSideBearing": 0, "fontPath": list(map(_command, glyph.get("fontPath") or [])),
               **({"unicode": glyph["unicode"]} if glyph.get("unicode") else {})}
              for glyph in project["glyphs"]]
    return {member: project[member] for member in members} | {"glyphs": glyphs, "kerningPairs": []}


def _command(command):
    (kind, values), = command.items()
    names = {"moveTo": ("point",), "lineTo": ("point",), "curveTo": ("control1", "control2", "point")}
    points = {name: dict(zip("xy", values[f"_{index}"])) for index, name in enumerate(names.get(kind, ()))}
    return {"type": kind, **points}


def draw_line(path, size, text, hinted):
    """A line of text as FreeType draws it, black on white."""
    face = freetype.Face(str(path))
    face.set_pixel_sizes(0, size)
    flags = freetype.FT_LOAD_TARGET_NORMAL if hinted else freetype.FT_LOAD_NO_HINTING
    picture = Image.new("L", (int(size * len(text) * 0.66), size * 4 // 3), 255)
    pen, baseline = 2, size
    for character in text:
        face.load_char(character, freetype.FT_LOAD_RENDER | flags)
        bitmap, slot = face.glyph.bitmap, face.glyph
        if bitmap.width:
            ink = Image.frombytes("L", (bitmap.width, bitmap.rows), bytes(
                bitmap.buffer[row * bitmap.pitch + column] for row in range(bitmap.rows)
                for column in range(bitmap.width)))
            picture.paste(0, (pen + slot.bitmap_left, baseline - slot.bitmap_top), ink)
        pen += round(slot.linearHoriAdvance / 65536)
    return picture


def draw(path, text):
    """All sizes, hinted above unhinted."""
    rows = []
    for size in SIZES:
        for hinted in (True, False):
            row = draw_line(path, size, text, hinted)
            rows.append(row.resize((row.width * ENLARGED, row.height * ENLARGED), Image.NEAREST))
    picture = Image.new("L", (max(row.width for row in rows), sum(row.height for row in rows) + 24), 255)
    ImageDraw.Draw(picture).text((4, 6), path.stem, fill=0)
    top = 24
    for row in rows:
        picture.paste(row, (0, top))
        top += row.height
    return picture


def main():
    parser = argparse.ArgumentParser(description="Draws hinted text beside unhinted.")
    parser.add_argument("picture", type=Path)
    parser.add_argument("--generator", default=ROOT / "build/release/bin/generate_font")
    parser.add_argument("--text", default=TEXT)
    parser.add_argument("--font", action="append", help="only the ones of these names")
    options = parser.parse_args()
    pictures = []
    with tempfile.TemporaryDirectory() as place:
        for name in options.font or ("Sample", "Inter", "Noto Serif", "DejaVu Sans"):
            document = sample_document() if name == "Sample" else document_of(FONTS[name], 4000)
            source, font = Path(place) / "font.json", Path(place) / f"{name}.otf"
            source.write_text(json.dumps(document))
            subprocess.run([options.generator, source, font], check=True, stdout=subprocess.DEVNULL)
            pictures.append(draw(font, options.text))
    whole = Image.new("L", (max(p.width for p in pictures), sum(p.height for p in pictures)), 255)
    top = 0
    for picture in pictures:
        whole.paste(picture, (0, top))
        top += picture.height
    whole.save(options.picture)


if __name__ == "__main__":
    main()
