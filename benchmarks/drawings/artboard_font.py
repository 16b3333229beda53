#!/usr/bin/python3
"""A font of letters that three programs wrote, placed by their artboards in one command, beside the
same font placed by hand and beside the same drawings placed by the edges of their ink.

    artboard_font.py [--quillery PROGRAM] -o PICTURE.png

Every artboard is 40 mm high, as wide as the letter's advance, and the baseline lies four fifths
down, in each program's own unit. "By hand" types the metrics of the font that the letters come
from, in whole units, as one reads them off a ruler.
"""

import argparse
import json
import os
import subprocess
import sys
import tempfile
from pathlib import Path

from PIL import Image, ImageDraw, ImageFont

ROOT = Path(__file__).resolve().parents[2]
WORD = "Hamburgefonstiv"
FACE = "/usr/share/fonts/truetype/noto/NotoSerif-Regular.ttf"
FAMILY = "Noto Serif"
EM, BASELINE = 1000, 800
MILLIMETRES = 40


def cairo(file, letter, advance):
    import cairo as library

    unit = MILLIMETRES * 72 / 25.4 / EM
    with library.SVGSurface(str(file), advance * unit, EM * unit) as surface:
        context = library.Context(surface)
        context.select_font_face(FAMILY)
        context.set_font_size(EM * unit)
        context.move_to(0, BASELINE * unit)
        context.show_text(letter)


def qt(file, letter, advance):
    from PyQt6.QtCore import QPointF, QRectF, QSize
    from PyQt6.QtGui import QFont, QPainter, QPainterPath
    from PyQt6.QtSvg import QSvgGenerator

    generator = QSvgGenerator()
    generator.setFileName(str(file))
    generator.setResolution(254)
    generator.setSize(QSize(round(advance * 400 / EM), 400))
    generator.setViewBox(QRectF(0, 0, advance * 0.4, 400))
    font = QFont(FAMILY)
    font.setPixelSize(400)
    font.setHintingPreference(QFont.HintingPreference.PreferNoHinting)
    path = QPainterPath()
    path.addText(QPointF(0, BASELINE * 0.4), font, letter)
    painter = QPainter(generator)
    painter.fillPath(path, 0xFF000000)
    painter.end()


def inkscape(file, letter, advance):
    unit = MILLIMETRES / EM
    drawing = (f'<svg xmlns="http://www.w3.org/2000/svg" width="{advance * unit}mm" '
               f'height="{MILLIMETRES}mm" viewBox="0 0 {advance * unit} {MILLIMETRES}">'
               f'<text style="font-family:\'{FAMILY}\';font-size:{MILLIMETRES}px" '
               f'y="{BASELINE * unit}">{letter}</text></svg>')
    file.write_text(drawing)
    subprocess.run(["inkscape", f"--actions=select-all;object-to-path;export-filename:{file};"
                    "export-overwrite;export-do", file], check=True, capture_output=True,
                   timeout=60)


def quillery(program, *words):
    done = subprocess.run([program, *map(str, words)], capture_output=True, text=True, check=False)
    if done.returncode > 1:
        sys.exit(done.stderr)
    return done.stdout


def by_hand(program, project, face):
    for letter in dict.fromkeys(WORD):
        left, bottom, _, _ = face[letter].boundingBox()
        glyph, = json.loads(quillery(program, "metrics", project, letter, "--json"))
        # A drawing's first scale draws a hundred of its units as the em.
        height = {0: MILLIMETRES * 72 / 25.4, 1: 400, 2: MILLIMETRES}[WORD.index(letter) % 3]
        # The outline's left edge stands at nothing where the bearing says 50.
        quillery(program, "metrics", project, letter, "--scale", round(100 / height, 4),
                 "--vertical-offset", round(bottom), "--left-side-bearing",
                 glyph["leftSideBearing"] + round(left), "--advance-width", face[letter].width)


def outline_boxes(project):
    record = json.loads(Path(project).read_text())
    return {glyph["name"]: (*glyph["boundingBox"][0], *glyph["boundingBox"][1],
                            glyph["advanceWidth"]) for glyph in record["glyphs"]}


def picture(rows, file):
    image = Image.new("RGB", (900, 190 * len(rows)), "white")
    draw = ImageDraw.Draw(image)
    label = ImageFont.truetype("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf", 14)
    for number, (words, shown) in enumerate(rows):
        draw.text((10, 190 * number + 6), words, fill="black", font=label)
        part = Image.open(shown).convert("RGBA")
        part.thumbnail((880, 150))
        image.paste(part, (10, 190 * number + 30), part)
    image.quantize(32).save(file, optimize=True)


def main():
    options = argparse.ArgumentParser(description="a font of three programs' letters")
    options.add_argument("--quillery", default=str(ROOT / "build/dev/bin/quillery"))
    options.add_argument("-o", "--out", type=Path, required=True)
    chosen = options.parse_args()
    os.environ["QT_QPA_PLATFORM"] = "offscreen"
    from PyQt6.QtGui import QGuiApplication

    application = QGuiApplication([])
    import fontforge

    face = fontforge.open(FACE)
    with tempfile.TemporaryDirectory() as temporary:
        drawings = Path(temporary, "letters")
        drawings.mkdir()
        for letter in dict.fromkeys(WORD):
            write = (cairo, qt, inkscape)[WORD.index(letter) % 3]
            write(drawings / f"{letter}.svg", letter, face[letter].width)
        rows, boxes = [], {}
        for name, words, way in (
                ("edges", "import --convert: by the edges of the ink", ["--convert"]),
                ("artboard", "import --place artboard: one command", ["--place", "artboard"]),
                ("hand", "by hand: four metrics typed a letter", ["--convert"])):
            project = Path(temporary, f"{name}.fontproj")
            quillery(chosen.quillery, "import", project, drawings, *way)
            if name == "hand":
                by_hand(chosen.quillery, project, face)
            shown = project.with_suffix(".png")
            quillery(chosen.quillery, "preview", project, "--text", WORD, "--size", 110, "-o",
                     shown)
            rows.append((words, shown))
            boxes[name] = outline_boxes(project)
        picture(rows, chosen.out)
    worst = max(abs(a - b) for letter, box in boxes["artboard"].items()
                for a, b in zip(box, boxes["hand"][letter]))
    print(f"{len(boxes['artboard'])} letters; artboard and hand differ by at most {worst:.2f} "
          "units in a box or an advance")
    del application


if __name__ == "__main__":
    main()
