"""Encodes outlines as the simple glyphs of a glyf table, made of lines and quadratic curves."""

from collections.abc import Callable
from dataclasses import dataclass
from math import floor
from struct import pack
from typing import NamedTuple

from fontTools.cu2qu import curve_to_quadratic

from .outlines import (GREATEST_COORDINATE, LEAST_COORDINATE, Box, Contour, Outline, UnfitOutline,
                       reversed_contours, signed_area)
from .overlaps import contours_overlap

# With at most 0.71 units of rounding on top, a curve of a font of 1,000 units per em stays
# within 1/1000 em of the drawing.
_TOLERANCE_IN_EMS = 1 / 4000
_LEAST_TOLERANCE = 0.25  # rounding costs more than this in an em of a few units

# Bits of a point's flags.
_ON_CURVE, _X_SHORT, _Y_SHORT, _REPEAT = 0x01, 0x02, 0x04, 0x08
_X_SAME_OR_POSITIVE, _Y_SAME_OR_POSITIVE, _OVERLAP = 0x10, 0x20, 0x40

_MOST_POINTS, _MOST_CONTOURS = 65535, 32767


@dataclass(slots=True)
class GlyfOutline:
    """Points in font units, contour by contour; `ends` are the indices of their last points.

    `overlaps` tells whether contours overlap each other.
    """

    xs: list[int]
    ys: list[int]
    on_curve: list[bool]
    ends: list[int]
    overlaps: bool

    def box(self) -> Box | None:
        """The box of all points, those off the curve included, as a glyf header has it."""
        if not self.xs:
            return None
        return min(self.xs), min(self.ys), max(self.xs), max(self.ys)


# What a format stores of an outline besides the entry of the glyf table.
Pack = Callable[[GlyfOutline], tuple[bytes, ...]]


class GlyfShape(NamedTuple):
    """A glyph's entry of a glyf table, and how many points and contours are in it. `packed` is
    what `Pack` made of it, if anything was wanted."""

    entry: bytes
    box: Box | None
    points: int
    contours: int
    packed: tuple[bytes, ...] | None


def encode_shape(drawing: Outline, units_per_em: float, pack_outline: Pack | None) -> GlyfShape:
    """The shape of a drawing; raises UnfitOutline for one that a glyf table can't hold."""
    outline = quadratic_outline(drawing, units_per_em)
    box = outline.box()
    if len(outline.xs) > _MOST_POINTS or len(outline.ends) > _MOST_CONTOURS:
        raise UnfitOutline(f"makes {len(outline.xs):,} points in {len(outline.ends):,} contours, and a "
                           f"font holds {_MOST_POINTS:,} in {_MOST_CONTOURS:,} for a glyph")
    # Off-curve points can lie farther out than the controls of the curve that they stand for.
    if box and (min(box) < LEAST_COORDINATE or max(box) > GREATEST_COORDINATE
                or max(box[2] - box[0], box[3] - box[1]) > GREATEST_COORDINATE):
        raise UnfitOutline("with quadratic curves is larger than the 16 bits that a font has for "
                           "coordinates")
    packed = pack_outline(outline) if pack_outline else None
    return GlyfShape(encode_glyf(outline), box, len(outline.xs), len(outline.ends), packed)


def quadratic_outline(drawing: Outline, units_per_em: float) -> GlyfOutline:
    """The points of a glyph. Outer contours come out clockwise, as the format wants them.

    Curves become quadratic before anything is rounded, so that rounding moves no tangent twice.
    """
    contours = drawing.contours
    if signed_area(contours) > 0:
        contours = reversed_contours(contours)
    tolerance = max(units_per_em * _TOLERANCE_IN_EMS, _LEAST_TOLERANCE)
    outline = GlyfOutline([], [], [], [], False)
    polygons = []
    for contour in contours:
        points = _points(contour, tolerance)
        if len(points) > 1:
            xs, ys, on_curve = zip(*points)
            outline.xs += xs
            outline.ys += ys
            outline.on_curve += on_curve
            outline.ends.append(len(outline.xs) - 1)
            polygons.append(list(zip(xs, ys)))
    outline.overlaps = contours_overlap(polygons)
    return outline


def _points(contour: Contour, tolerance: float) -> list[tuple[int, int, bool]]:
    """The rounded points of a contour, without segments that lead nowhere."""
    x, y = contour[0]
    end = (floor(x + 0.5), floor(y + 0.5), True)
    points = [end]
    for segment in contour[1:]:
        if len(segment) == 2:
            x, y = segment
            point = (floor(x + 0.5), floor(y + 0.5), True)
            if point != end:
                points.append(point)
                end = point
        else:
            controls = _controls((x, y), segment, tolerance)
            x, y = segment[4:]
            point = (floor(x + 0.5), floor(y + 0.5), True)
            curve = [(floor(cx + 0.5), floor(cy + 0.5), False) for cx, cy in controls]
            if point != end or any(control[:2] != end[:2] for control in curve):
                points += curve
                points.append(point)
                end = point
    if len(points) > 1 and points[-1] == points[0]:
        points.pop()
    return points


def _controls(start: tuple[float, ...], segment: tuple[float, ...],
              tolerance: float) -> list[tuple[float, float]]:
    """The off-curve points of the quadratic spline closest to a cubic curve; none for a line."""
    first, second, end = segment[0:2], segment[2:4], segment[4:6]
    if first == start and second == end:
        return []
    return curve_to_quadratic((start, first, second, end), tolerance)[1:-1]


def encode_glyf(outline: GlyfOutline) -> bytes:
    """The entry of a glyf table, padded to four bytes; nothing for a glyph without outline."""
    box = outline.box()
    if box is None:
        return b""
    flags, xs, ys = bytearray(), bytearray(), bytearray()
    last_x = last_y = 0
    last_flag, repeats = -1, 0
    for x, y, on in zip(outline.xs, outline.ys, outline.on_curve):
        dx, dy = x - last_x, y - last_y
        last_x, last_y = x, y
        flag = _ON_CURVE if on else 0
        if outline.overlaps and not flags:
            flag |= _OVERLAP  # counts on the first point only
        if dx == 0:
            flag |= _X_SAME_OR_POSITIVE
        elif -256 < dx < 0:
            flag |= _X_SHORT
            xs.append(-dx)
        elif 0 < dx < 256:
            flag |= _X_SHORT | _X_SAME_OR_POSITIVE
            xs.append(dx)
        else:
            xs += dx.to_bytes(2, "big", signed=True)
        if dy == 0:
            flag |= _Y_SAME_OR_POSITIVE
        elif -256 < dy < 0:
            flag |= _Y_SHORT
            ys.append(-dy)
        elif 0 < dy < 256:
            flag |= _Y_SHORT | _Y_SAME_OR_POSITIVE
            ys.append(dy)
        else:
            ys += dy.to_bytes(2, "big", signed=True)
        if flag != last_flag or repeats == 255:
            flags.append(flag)
            last_flag, repeats = flag, 0
        elif repeats == 0:
            flags[-1] |= _REPEAT
            flags.append(1)
            repeats = 1
        else:
            repeats += 1
            flags[-1] = repeats
    count = len(outline.ends)
    data = pack(f">5h{count}HH", count, *box, *outline.ends, 0) + flags + xs + ys
    return data + bytes(-len(data) % 4)
