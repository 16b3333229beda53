#!/usr/bin/python3
"""Makes the pictures of the window, for the README and to judge its looks by.

usage: make_pictures.py [--only NAME]... [FOLDER]

Each picture shows a state of the window in light and dark, side by side, and is made at one and at
two device pixels per logical pixel: FOLDER/NAME.png and FOLDER/NAME@2x.png.
"""

import argparse
import json
import re
import subprocess
import sys
import tempfile
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parents[1]
sys.path.insert(0, str(ROOT / "tests/end_to_end"))
sys.path.insert(0, str(ROOT / "benchmarks/fonts"))

from drawings import EM, LATIN, DrawingPen, write_drawing  # noqa: E402
from fontTools.ttLib import TTFont  # noqa: E402
from PIL import Image  # noqa: E402
from window_session import Screen, wait_for  # noqa: E402

SIZE = (1440, 900)
SAMPLE = ROOT / "resources/Sample.fontproj"
DRAWINGS = sorted((ROOT / "resources/sample-drawings").glob("*.svg"))
SCENES = {}


def scene(name):
    """Registers a function that brings a window into the state to show."""
    def register(function):
        SCENES[name] = function
        return function
    return register


def draw_typeface(folder, count):
    """Draws the first characters of a typeface of the system."""
    font = TTFont(LATIN[0])
    glyphs, scale = font.getGlyphSet(), EM / font["head"].unitsPerEm
    folder.mkdir()
    for character, glyph in sorted(font.getBestCmap().items())[:count]:
        pen = DrawingPen(glyphs, scale)
        glyphs[glyph].draw(pen)
        if pen.commands:
            write_drawing(folder / f"uni{character:04X}.svg", pen.commands, glyphs[glyph].width * scale)


def draw_as_programs_do(folder):
    """Letters as drawing programs write them: in pieces, moved, with strokes, with names beside the data."""
    folder.mkdir()
    for drawing in DRAWINGS:
        data = re.search(r' d="([^"]*)"', drawing.read_text())[1]
        pieces = [piece + "Z" for piece in data.split("Z") if piece.strip()]
        page = '<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 90 120">'
        if drawing.stem in {*"BDO"}:
            body = "".join(f'<path d="{piece}" fill="{color}"/>' for piece, color in zip(pieces, ("black", "white", "white")))
        elif drawing.stem in {*"ACE"}:
            body = f'<g transform="translate(60 0) scale(-.8 .8)"><path d="{data}"/></g><rect x="0" y="95" width="60" height="8"/>'
        elif drawing.stem in {*"FGH"}:
            body = f'<path d="{pieces[0]}" fill="none" stroke="black" stroke-width="4"/>'
        elif drawing.stem in {*"ab"}:
            body = f'<path d="{data}" id="path7"/>'
        elif drawing.stem in {*"cdefgh"}:
            body = f'<path d="{data}"/>'
        else:
            continue
        (folder / drawing.name).write_text(f"{page}{body}</svg>")
    return folder


def draw_sheet(file):
    """The capitals in lines of nine, those of the first two lines in groups that are called by their names."""
    letters = [drawing for drawing in DRAWINGS if re.fullmatch("[A-Z]", drawing.stem)]
    groups = []
    for place, drawing in enumerate(letters):
        data = re.search(r' d="([^"]*)"', drawing.read_text())[1]
        name = f' id="{drawing.stem}"' if place < 18 else ""
        groups.append(f'<g{name} transform="translate({100 * (place % 9) + 10} {120 * (place // 9)})"><path d="{data}"/></g>')
    file.write_text(f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 920 380">{"".join(groups)}</svg>')
    return file


class Stage:
    """A screen, and the projects that scenes open on it."""

    def __init__(self, screen, theme, folder):
        self.screen = screen
        self.theme = theme
        self.folder = folder
        self.shot = None  # taken by the scene itself

    def open(self, *arguments):
        window = self.screen.start(*arguments, env={"QUILLERY_THEME": self.theme})
        window.find("Export Font", "push button")
        return window

    def new_folder(self):
        return Path(tempfile.mkdtemp(dir=self.folder))

    def project(self, name, drawings):
        project = self.folder / f"{name}.fontproj"
        if not project.exists():
            subprocess.run([self.screen.programs / "quillery", "import", project, *drawings], check=True,
                           capture_output=True)
        return project

    def twelve(self):
        return self.project("Twelve", [d for d in DRAWINGS if d.stem in {*"ABCDEFabcdef"}])

    def three_thousand(self):
        drawings = self.folder / "drawings"
        if not drawings.exists():
            draw_typeface(drawings, 3000)
        return self.project("Three Thousand", [drawings])


@scene("empty-state")
def _(stage):
    return stage.open()


@scene("grid-12")
def _(stage):
    return stage.open(stage.twelve())


@scene("grid-3000")
def _(stage):
    window = stage.open(stage.three_thousand())
    window.click(window.list_items("Glyphs")[1])
    return window


@scene("sort-menu")
def _(stage):
    window = stage.open(SAMPLE)
    before = stage.screen.picture().tobytes()
    window.click("Sort order")
    wait_for("the menu", lambda: stage.screen.picture().tobytes() != before)
    return window


@scene("export-warnings")
def _(stage):
    window = stage.open(stage.twelve())
    window.key("ctrl+e")
    window.find("Export Anyway", "push button")
    return window


@scene("export-panel")
def _(stage):
    window = open_export_panel(stage, SAMPLE)
    window.find("File name", "text")
    return window


def open_export_panel(stage, project):
    window = stage.open(project)
    window.key("ctrl+e")
    shown = wait_for("an alert or the panel", lambda: window.all("Export Anyway") or window.all("File name", "text"))
    if shown[0].name == "Export Anyway":
        window.click(shown[0])
    return window


def export(stage, project, font):
    window = open_export_panel(stage, project)
    window.choose_file(font)
    return window


def export_after(stage, seconds):
    """An export as it looks so long after its sheet has come, which passes too fast to be asked for."""
    window = open_export_panel(stage, stage.three_thousand())
    window.type_file(stage.new_folder() / "Font")

    def part(picture, left, right):
        """What stands between two distances from the middle of the screen, as far down as the sheet."""
        x, y, scale = picture.width // 2, picture.height // 2, stage.screen.scale
        return picture.crop((x + left * scale, y - 80 * scale, x + right * scale, y + 80 * scale)).tobytes()

    panel = stage.screen.picture()
    window.key("Return")

    def sheet_has_come():
        # The panel is wider than the sheet that follows it; what it covered comes to light.
        stage.shot = stage.screen.picture()
        return part(stage.shot, 210, 350) != part(panel, 210, 350) and part(stage.shot, -100, 100) != part(panel, -100, 100)

    wait_for("the sheet", sheet_has_come)
    shown = time.monotonic()
    while time.monotonic() < shown + seconds:
        stage.shot = stage.screen.picture()
    return window


@scene("export-preparing")
def _(stage):
    return export_after(stage, 0.12)


@scene("export-generating")
def _(stage):
    return export_after(stage, 0.8)


@scene("export-complete")
def _(stage):
    window = export(stage, SAMPLE, stage.new_folder() / "Quillery Sans.otf")
    window.find("Export Complete!")
    return window


@scene("export-failed")
def _(stage):
    window = export(stage, SAMPLE, "/sys/Quillery Sans.otf")
    window.find("Export Failed")
    return window


@scene("alert-open-failed")
def _(stage):
    broken = stage.folder / "Broken.fontproj"
    broken.write_text(json.dumps({"name": 7}))
    window = stage.open(broken)
    window.find("OK", "push button")
    return window


@scene("licenses")
def _(stage):
    window = stage.open()
    window.key("alt+h")
    window.key("Up", "Return")
    window.find("Done", "push button")
    return window


def select_in_grid(window, glyph):
    window.click(window.list_items("Glyphs")[0])
    window.type(glyph)
    window.find(f"Outline of {glyph}")


@scene("editor-single")
def _(stage):
    window = stage.open(SAMPLE)
    select_in_grid(window, "g")
    return window


@scene("editor-drag")
def _(stage):
    window = stage.open(SAMPLE)
    select_in_grid(window, "g")
    x, y = window.find("Outline of g").middle
    window.move((x, y))
    stage.screen.xdotool("mousedown", 1)
    window.move((x + 10, y))
    window.move((x + 20, y - 10))
    stage.shot = settled(stage.screen)
    stage.screen.xdotool("mouseup", 1)
    return window


@scene("editor-zoomed")
def _(stage):
    window = stage.open(SAMPLE)
    select_in_grid(window, "g")
    x, y, width, height = window.find("Outline of g").rect
    window.click((x + width // 3, y + height // 2))
    stage.screen.xdotool("keydown", "ctrl", "click", "--repeat", 4, "--delay", 40, 4, "keyup", "ctrl")
    return window


@scene("editor-neighbours")
def _(stage):
    window = stage.open(SAMPLE)
    select_in_grid(window, "g")
    window.click(window.find("Neighbours", "text"))
    window.key("ctrl+a")
    window.type("HOgnaAVn")
    window.key("Return", "minus", "minus", "minus")
    return window


@scene("kerning-descender")
def _(stage):
    window = stage.open(SAMPLE)
    window.click("Kerning")
    window.click(window.find("Search pairs"))
    window.type("y")
    window.key("Tab", "End")
    return window


@scene("editor-many")
def _(stage):
    window = stage.open(SAMPLE)
    window.click(window.list_items("Glyphs")[0])
    window.type("a")
    window.key("shift+Right", "shift+Right", "shift+Right")
    return window


@scene("kerning")
def _(stage):
    window = stage.open(SAMPLE)
    window.click("Kerning")
    window.click(window.find("Search pairs"))
    window.type("A")
    window.key("Tab", "Home", "Down", "Down")
    return window


@scene("kern-look-alikes")
def _(stage):
    window = stage.open(SAMPLE)
    window.click("Kerning")
    window.click(window.find("Search pairs"))
    window.type("A")
    window.key("Tab", "Home", "Down", "Down")
    window.click("Look-Alikes...")
    window.find("Kern Look-Alikes")
    return window


@scene("metrics-table")
def _(stage):
    window = stage.open(SAMPLE)
    window.click(window.list_items("Glyphs")[0])
    window.type("g")
    window.click("Table")
    return window


@scene("kerning-empty")
def _(stage):
    window = stage.open(stage.twelve())
    window.click("Kerning")
    window.find("No Kerning Pairs", "label")
    return window


@scene("kerning-add-pair")
def _(stage):
    window = stage.open(SAMPLE)
    window.click("Kerning")
    window.click("Add Kerning Pair")
    window.find("Left Glyph", "text")
    window.type("A")
    window.key("Return")
    window.type("v")
    return window


@scene("preview-glyphs")
def _(stage):
    window = stage.open(SAMPLE)
    hover_preview(window)
    return window


@scene("preview-pairs")
def _(stage):
    window = stage.open(SAMPLE)
    window.click("Kerning")
    hover_preview(window)
    return window


def import_noted(stage):
    window = stage.open()
    folder = draw_as_programs_do(stage.new_folder() / "Letters")
    source = stage.screen.start_drag_source(sorted(folder.glob("*.svg")))
    window.drag(source.find("Drag source"), window.find("Import SVGs...", "push button"))
    window.find("Show", "push button")
    source.process.kill()
    source.process.wait()
    return window


@scene("noted-bar")
def _(stage):
    return import_noted(stage)


@scene("noted-sheet")
def _(stage):
    window = import_noted(stage)
    before = stage.screen.picture().tobytes()
    window.click("Show")
    window.find("Cancel", "push button")
    wait_for("the sheet", lambda: stage.screen.picture().tobytes() != before)
    return window


@scene("watch-bar")
def _(stage):
    window = stage.open(stage.twelve())
    folder = stage.new_folder() / "Letters"
    folder.mkdir()
    window.key("alt+f")
    window.key("Up", "Up", "Up", "Up", "Return")
    field = window.find("Folder", "text")
    window.type(folder)
    wait_for("the folder", lambda: field.text == str(folder))
    window.key("Return")
    window.find("Stop Watching", "push button")
    (folder / "g.svg").write_text((ROOT / "resources/sample-drawings/g.svg").read_text())
    wait_for("the glyph", lambda: any(item.name == "g" for item in window.list_items("Glyphs")))
    return window


@scene("import-sheet")
def _(stage):
    window = stage.open(stage.twelve())
    window.key("alt+f")
    window.key("Up", "Up", "Up", "Up", "Up", "Return")
    window.choose_file(draw_sheet(stage.new_folder() / "Capitals.svg"))
    window.find("Letters without a name, in order:")
    window.type("STU")
    return window


def hover_preview(window):
    x, y, _, _ = window.find("Preview").rect
    window.move((x + 100, y + 45))
    window.move((x + 104, y + 46))


def take_all(names, theme, scale, folder):
    """Takes the pictures of one theme and size, on one screen."""
    with Screen(SIZE, scale, bare=True) as screen:
        for name in names:
            stage = Stage(screen, theme, folder)
            window = SCENES[name](stage)
            (stage.shot or settled(screen)).save(folder / f"{name}-{theme}-{scale}.png")
            window.process.kill()
            window.process.wait()


def settled(screen):
    """The picture once two in a row are the same, or what moves never rests."""
    before = screen.picture()
    for _ in range(15):
        now = screen.picture()
        if now.tobytes() == before.tobytes():
            break
        before = now
    return before


def side_by_side(left, right):
    both = Image.new("RGB", (left.width + right.width, left.height))
    both.paste(left, (0, 0))
    both.paste(right, (left.width, 0))
    return both.quantize(256)


def main():
    options = argparse.ArgumentParser(description=__doc__.partition("\n")[0])
    options.add_argument("--only", action="append", choices=sorted(SCENES))
    options.add_argument("--take", nargs=3, metavar=("THEME", "SCALE", "FOLDER"), help=argparse.SUPPRESS)
    options.add_argument("folder", nargs="?", default=ROOT / "docs/pictures", type=Path)
    arguments = options.parse_args()
    names = arguments.only or list(SCENES)
    if arguments.take:
        theme, scale, folder = arguments.take
        return take_all(names, theme, int(scale), Path(folder))
    arguments.folder.mkdir(exist_ok=True)
    with tempfile.TemporaryDirectory() as folder:
        for scale in (1, 2):
            # The library that finds widgets knows one session bus in its life, hence the processes.
            for theme in ("light", "dark"):
                subprocess.run([sys.executable, __file__, *(f"--only={name}" for name in names),
                                "--take", theme, str(scale), folder], check=True)
            for name in names:
                light, dark = (Image.open(Path(folder) / f"{name}-{theme}-{scale}.png") for theme in ("light", "dark"))
                side_by_side(light, dark).save(
                    arguments.folder / f"{name}{'@2x' if scale == 2 else ''}.png", optimize=True)
    return None


if __name__ == "__main__":
    main()
