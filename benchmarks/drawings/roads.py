"""The ways from a drawing to an outline that are compared. Each gives the outline as a drawing of one
path that is filled non-zero, on the page that the drawing has."""

import json
import re
import subprocess
import tempfile
import time
from dataclasses import dataclass
from pathlib import Path

from lxml import etree

TIME = 10  # seconds; more than a drawing may take, so that what takes longer is seen
PAGE_ATTRIBUTES = ("width", "height", "viewBox", "preserveAspectRatio")


@dataclass
class Outline:
    state: str  # "drawn", "refused" or "over time"
    seconds: float
    said: str = ""  # what was said of it, or why it was refused
    path: str = ""
    svg: bytes = b""


def page_attributes(svg):
    """Those of the root element that say where its page is, as text."""
    try:
        root = etree.fromstring(svg, etree.XMLParser(resolve_entities=False, huge_tree=True,
                                                     recover=True, no_network=True))
    except etree.XMLSyntaxError:
        return ""
    if root is None:
        return ""
    pairs = ((name, root.get(name)) for name in PAGE_ATTRIBUTES)
    return " ".join(f'{name}="{value}"' for name, value in pairs
                    if value is not None and not set(value) & set('"<&'))


def one_path(attributes, path, transform=""):
    return (f'<svg xmlns="http://www.w3.org/2000/svg" {attributes} overflow="visible">'
            f'<path transform="{transform}" d="{path}"/></svg>').encode()


def _run(command):
    started = time.monotonic()
    try:
        done = subprocess.run(command, capture_output=True, timeout=TIME, check=False)
    except subprocess.TimeoutExpired:
        return None, time.monotonic() - started
    return done, time.monotonic() - started


def _words(done):
    return done.stderr.decode(errors="replace").strip()


def _written(commands):
    """Path data of a glyph's commands."""
    letters = {"moveTo": "M", "lineTo": "L", "curveTo": "C", "closePath": "Z"}
    parts = []
    for command in commands:
        (kind, points), = command.items()
        numbers = (f"{number!r}" for key in sorted(points) for number in points[key])
        parts.append(letters[kind] + " ".join(numbers))
    return "".join(parts)


class Plain:
    """`quillery import` as it reads drawings by itself, put back where the reader took it from."""

    def __init__(self, program):
        self.program = program

    def __call__(self, drawing, svg):
        with tempfile.TemporaryDirectory() as folder:
            project = Path(folder, "p.fontproj")
            done, seconds = _run([self.program, "import", project, drawing, "--units-per-em",
                                  "1000"])
            if done is None:
                return Outline("over time", seconds)
            try:
                glyph, = json.loads(project.read_text())["glyphs"]
            except (OSError, ValueError, KeyError):
                return Outline("refused", seconds, _words(done))
            (x, y), (_, height) = glyph["viewBox"]
            if not glyph["fontPath"]:
                return Outline("refused", seconds, "no outline")
            path = _written(glyph["fontPath"])
            transform = f"translate({x!r} {y + height!r}) scale(.1 -.1)"
            return Outline("drawn", seconds, _words(done), path,
                           one_path(page_attributes(svg), path, transform))


class Flatten:
    """`quillery flatten`."""

    def __init__(self, program):
        self.program = program

    def __call__(self, drawing, svg):
        with tempfile.TemporaryDirectory() as folder:
            done, seconds = _run([self.program, "flatten", drawing, "-o", folder])
            if done is None:
                return Outline("over time", seconds)
            files = list(Path(folder).glob("*.svg"))
            if not files:
                return Outline("refused", seconds, _words(done))
            written = files[0].read_bytes()
            path = re.search(rb'\sd="([^"]*)"', written)
            return Outline("drawn", seconds, _words(done), path[1].decode() if path else "",
                           written)


class FontForge:
    """FontForge's import into a glyph, as it is or with its contours turned. A probe on the same page
    tells where its units are."""

    SCRIPT = Path(__file__).with_name("fontforge_outline.py")

    def __init__(self, *words):
        self.words = words

    def __call__(self, drawing, svg):
        attributes = page_attributes(svg)
        with tempfile.TemporaryDirectory() as folder:
            probe = Path(folder, "probe.svg")
            probe.write_bytes(one_path(attributes, "M0 0H1000V1000H0Z"))
            done, seconds = _run(["/usr/bin/python3", self.SCRIPT, drawing, probe, *self.words])
        if done is None:
            return Outline("over time", seconds)
        try:
            read = json.loads(done.stdout)
        except ValueError:
            return Outline("refused", seconds, "broke")
        if not read["path"] or not read["scale"]:
            return Outline("refused", read["seconds"], "no outline")
        transform = (f"scale({1 / read['scale']!r} {-1 / read['scale']!r}) "
                     f"translate({-read['x']!r} {-read['y']!r})")
        return Outline("drawn", read["seconds"], "", read["path"],
                       one_path(attributes, read["path"], transform))
