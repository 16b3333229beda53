"""Ink of a drawing as a mask, without antialiasing: a pixel is ink when its centre is.

Sampled centres neither grow nor shrink a shape, so that a difference of two masks estimates the
difference of area without bias.
"""

import os
import subprocess
from dataclasses import dataclass
from pathlib import Path

import cairo
import gi
import numpy

gi.require_version("Rsvg", "2.0")
from gi.repository import Rsvg  # noqa: E402

PAGE = 2000  # pixels across the longer side of the page
MARGIN = 0.5  # of the page on every side that a picture shows at most, as ink may overshoot
PAPER = 0.9  # what is lighter in every channel is paper
CRISP = "*{shape-rendering:crispEdges !important;text-rendering:optimizeSpeed !important}"


class NoPicture(Exception):
    pass


@dataclass
class Page:
    """Where a drawing's page lies and how large it is shown, in CSS pixels."""

    width: float
    height: float
    left: float = 0  # what is shown beyond each edge of the page
    top: float = 0
    right: float = 0
    bottom: float = 0
    sized: bool = True  # whether the drawing says its size
    pixels: int = PAGE

    @property
    def scale(self):
        return self.pixels / max(self.width, self.height)

    def corner(self):
        return round(self.left * self.scale), round(self.top * self.scale)

    def size(self):
        x, y = self.corner()
        return (x + round((self.width + self.right) * self.scale),
                y + round((self.height + self.bottom) * self.scale))

    def inner(self, mask):
        """The part of a mask that lies on the page."""
        x, y = self.corner()
        return mask[y:y + round(self.height * self.scale), x:x + round(self.width * self.scale)]


def load(svg, stylesheet=""):
    try:
        handle = Rsvg.Handle.new_from_data(svg)
        handle.set_dpi(96)
        if stylesheet:
            handle.set_stylesheet(stylesheet.encode())
        return handle
    except gi.repository.GLib.Error as error:
        raise NoPicture(str(error)) from error


def _viewport(x, y, width, height):
    rectangle = Rsvg.Rectangle()
    rectangle.x, rectangle.y, rectangle.width, rectangle.height = x, y, width, height
    return rectangle


def page_of(svg):
    """The page of a drawing with as much around it as its ink needs."""
    handle = load(svg)
    has_width, width, has_height, height, has_box, box = handle.get_intrinsic_dimensions()
    lengths = [length.unit != Rsvg.Unit.PERCENT and has
               for has, length in ((has_width, width), (has_height, height))]
    sized = True
    if all(lengths):
        _, wide, high = handle.get_intrinsic_size_in_pixels()
    elif has_box and box.width > 0 and box.height > 0:
        wide, high = box.width, box.height
    else:
        _, ink, _ = handle.get_geometry_for_layer(None, _viewport(0, 0, 100, 100))
        wide, high = ink.x + ink.width, ink.y + ink.height
        sized = False
    if not (0 < wide < 1e9 and 0 < high < 1e9):
        raise NoPicture("no page")
    try:
        _, ink, _ = handle.get_geometry_for_layer(None, _viewport(0, 0, wide, high))
    except gi.repository.GLib.Error as error:
        raise NoPicture(str(error)) from error
    most = MARGIN * max(wide, high)

    def beyond(amount):
        return min(max(amount, 0), most)

    # Edges of clips stay antialiased: more pixels make what that adds small.
    finer = 2 if b"clip-path" in svg and b"<text" not in svg else 1
    return Page(wide, high, beyond(-ink.x), beyond(-ink.y), beyond(ink.x + ink.width - wide),
                beyond(ink.y + ink.height - high), sized, PAGE * finer)


def paint(svg, page, stylesheet=CRISP, size=None):
    """Channels blue, green, red and alpha, premultiplied, from 0 to 1 over nothing."""
    handle = load(svg, stylesheet)
    wide, high = size or page.size()
    factor = wide / page.size()[0]
    surface = cairo.ImageSurface(cairo.FORMAT_ARGB32, max(wide, 1), max(high, 1))
    context = cairo.Context(surface)
    x, y = page.corner()
    context.scale(factor, factor)
    context.translate(x, y)
    context.scale(page.scale, page.scale)
    try:
        handle.render_document(context, _viewport(0, 0, page.width, page.height))
    except gi.repository.GLib.Error as error:
        raise NoPicture(str(error)) from error
    surface.flush()
    return numpy.ndarray((surface.get_height(), surface.get_width(), 4), numpy.uint8,
                         surface.get_data(), strides=(surface.get_stride(), 4, 1))


def ink(pixels):
    """Dark pixels over white; where there are none, those that are painted at all."""
    least = numpy.min(pixels[..., :3], axis=2)
    # Over white a premultiplied channel gains what the alpha leaves.
    dark = least.astype(numpy.int16) + 255 - pixels[..., 3] <= 255 * PAPER
    return dark if dark.any() else pixels[..., 3] > 0


def edges(mask):
    """Pixels with a neighbour of the other kind."""
    found = numpy.zeros_like(mask)
    for axis in (0, 1):
        differs = numpy.diff(mask.astype(numpy.int8), axis=axis) != 0
        first, second = [slice(None)] * 2, [slice(None)] * 2
        first[axis], second[axis] = slice(None, -1), slice(1, None)
        found[tuple(first)] |= differs
        found[tuple(second)] |= differs
    return found


def second_pictures(drawings, folder):
    """Pictures of drawings by Inkscape, a renderer that shares no code with the first one's reading
    of SVG; {drawing: PNG} of what it could draw. Pictures that are there already are kept."""
    folder.mkdir(parents=True, exist_ok=True)
    made, lines = {}, []
    for drawing in drawings:
        target = folder / f"{drawing.parent.name}_{drawing.stem}.png"
        made[drawing] = target
        if target.exists():
            continue
        try:
            page = page_of(drawing.read_bytes())
        except NoPicture:
            continue
        scale = PAGE / max(page.width, page.height)
        wide, high = round(page.width * scale), round(page.height * scale)
        if page.sized and min(wide, high) > 0:
            lines.append(f"file-open:{drawing};export-area-page;export-width:{wide};"
                         f"export-height:{high};export-background:#ffffff;"
                         "export-background-opacity:1;"
                         f"export-filename:{target};export-do;file-close")
    for start in range(0, len(lines), 50):
        try:
            subprocess.run(["inkscape", "--shell"], check=False, timeout=300, text=True,
                           input="\n".join(lines[start:start + 50]) + "\nquit\n",
                           env=dict(os.environ, INKSCAPE_PROFILE_DIR=str(folder)),
                           stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        except subprocess.TimeoutExpired:
            pass
    return {drawing: target for drawing, target in made.items() if target.exists()}


def second_mask(file: Path):
    from PIL import Image

    pixels = numpy.asarray(Image.open(file).convert("RGBA")).astype(numpy.uint16)
    alpha = pixels[..., 3:]
    pixels[..., :3] = pixels[..., :3] * alpha // 255
    return ink(pixels)
