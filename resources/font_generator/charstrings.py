"""Encodes outlines as Type 2 charstrings, the cubic outlines of a CFF table.

The bytes are made in one go from the outline: neither a drawing pen nor a program of operators
that is optimized and compiled afterwards, which is where most of the time would go.
"""

from math import floor
from typing import NamedTuple

from .outlines import Box, Contour, Outline, UnfitOutline, reversed_contours, signed_area

Point = tuple[int, int]

# Operators of the Type 2 charstring format.
_RLINETO, _HLINETO, _VLINETO, _RRCURVETO = b"\x05", b"\x06", b"\x07", b"\x08"
_ENDCHAR, _RMOVETO, _HMOVETO, _VMOVETO = b"\x0e", b"\x15", b"\x16", b"\x04"
_VVCURVETO, _HHCURVETO, _VHCURVETO, _HVCURVETO = b"\x1a", b"\x1b", b"\x1e", b"\x1f"
_STACK = 48  # operands that an operator may have
# The format's own limit, less the operand for the width; readers refuse longer ones.
_LONGEST = 65535 - 3


class Charstring(NamedTuple):
    """A charstring without the width that may stand before it, and the tight box of its outline
    (xMin, yMin, xMax, yMax), None if it has no extent."""

    operators: bytes
    box: Box | None


def encoded_number(value: int) -> bytes:
    """An operand of 16 bits."""
    if -107 <= value <= 107:
        return bytes((value + 139,))
    if 108 <= value <= 1131:
        return bytes(((value - 108 >> 8) + 247, value - 108 & 255))
    if -1131 <= value <= -108:
        return bytes(((-value - 108 >> 8) + 251, -value - 108 & 255))
    return b"\x1c" + value.to_bytes(2, "big", signed=True)


class _Numbers(dict[int, bytes]):
    """Encoded operands by value, each made when it is first needed."""

    def __missing__(self, value: int) -> bytes:
        self[value] = encoded = encoded_number(value)
        return encoded


_NUMBERS = _Numbers()
_encoded = _NUMBERS.__getitem__


def encode_charstring(outline: Outline) -> Charstring:
    """The charstring of an outline; raises UnfitOutline for one with too many segments.

    Coordinates are rounded to font units. Outer contours come out anticlockwise, as the format
    wants them.
    """
    contours = outline.contours
    if signed_area(contours) < 0:
        contours = reversed_contours(contours)
    parts: list[bytes] = []
    ends: list[Point] = []
    pen = (0, 0)
    for contour in contours:
        pen = _append_contour(contour, pen, parts, ends)
    parts.append(_ENDCHAR)
    operators = b"".join(parts)
    if len(operators) > _LONGEST:
        raise UnfitOutline(f"has too many points: it takes {len(operators):,} bytes, and a font holds "
                           f"{_LONGEST:,} for a glyph")
    return Charstring(operators, _box(ends, outline) if ends else None)


def _append_contour(contour: Contour, pen: Point, parts: list[bytes], ends: list[Point]) -> Point:
    """Appends the operators that draw a contour, like segments sharing an operator, and the
    points on the curve. Returns where the pen is afterwards.

    Segments that lead nowhere are left out, and so is the last line back to the start, which
    closing draws; a contour with nothing left but a point is left out as a whole.
    """
    start_x, start_y = x, y = floor(contour[0][0] + 0.5), floor(contour[0][1] + 0.5)
    drawn: list[bytes] = []
    contour_ends = [(x, y)]
    # What waits for its operator: the operands, and the kind of segment that may still join.
    waiting: list[int] = []
    joins = 0
    operator = b""
    last = len(contour) - 1
    for index, segment in enumerate(contour):
        if len(segment) == 2:
            to_x, to_y = floor(segment[0] + 0.5), floor(segment[1] + 0.5)
            dx, dy = to_x - x, to_y - y
            if dx == 0 == dy or index == last and to_x == start_x and to_y == start_y:
                continue
            if dy == 0:
                operands: tuple[int, ...] = (dx,)
                kind, then, draws = 1, 2, _HLINETO
            elif dx == 0:
                operands = (dy,)
                kind, then, draws = 2, 1, _VLINETO
            else:
                operands = (dx, dy)
                kind = then = 3
                draws = _RLINETO
        else:
            x1, y1, x2, y2, to_x, to_y = segment
            x1, y1 = floor(x1 + 0.5), floor(y1 + 0.5)
            x2, y2 = floor(x2 + 0.5), floor(y2 + 0.5)
            to_x, to_y = floor(to_x + 0.5), floor(to_y + 0.5)
            dx1, dy1, dx3, dy3 = x1 - x, y1 - y, to_x - x2, to_y - y2
            if dy1 == 0:
                if dx3 == 0:
                    if dx1 == 0 == dy3 and x1 == x2 and y1 == y2:
                        continue
                    operands = (dx1, x2 - x1, y2 - y1, dy3)
                    kind, then, draws = 4, 5, _HVCURVETO
                elif dy3 == 0:
                    operands = (dx1, x2 - x1, y2 - y1, dx3)
                    kind = then = 6
                    draws = _HHCURVETO
                else:
                    operands = (dx1, dy1, x2 - x1, y2 - y1, dx3, dy3)
                    kind = then = 8
                    draws = _RRCURVETO
            elif dx1 == 0 and dy3 == 0:
                operands = (dy1, x2 - x1, y2 - y1, dx3)
                kind, then, draws = 5, 4, _VHCURVETO
            elif dx1 == 0 == dx3:
                operands = (dy1, x2 - x1, y2 - y1, dy3)
                kind = then = 7
                draws = _VVCURVETO
            else:
                operands = (dx1, dy1, x2 - x1, y2 - y1, dx3, dy3)
                kind = then = 8
                draws = _RRCURVETO
        x, y = to_x, to_y
        contour_ends.append((x, y))
        if kind != joins or len(waiting) + len(operands) > _STACK:
            drawn += map(_encoded, waiting)
            drawn.append(operator)
            waiting = []
            operator = draws
        waiting += operands
        joins = then
    if not waiting:
        return pen
    drawn += map(_encoded, waiting)
    drawn.append(operator)
    dx, dy = start_x - pen[0], start_y - pen[1]
    if dy == 0:
        parts += (_NUMBERS[dx], _HMOVETO)
    elif dx == 0:
        parts += (_NUMBERS[dy], _VMOVETO)
    else:
        parts += (_NUMBERS[dx], _NUMBERS[dy], _RMOVETO)
    parts += drawn
    ends += contour_ends
    return x, y


def _box(ends: list[Point], outline: Outline) -> Box:
    """The box of the points on the curve, widened to the curves that bulge out of it."""
    xs, ys = zip(*ends)
    x_min, y_min, x_max, y_max = box = (min(xs), min(ys), max(xs), max(ys))
    left, bottom, right, top = outline.hull or box
    # A control inside the box, up to rounding, can't pull a curve out of it.
    if (left >= x_min - 0.5 and bottom >= y_min - 0.5
            and right <= x_max + 0.5 and top <= y_max + 0.5):
        return box
    from fontTools.misc.bezierTools import calcCubicBounds

    for contour in outline.contours:
        start = contour[0]
        for segment in contour[1:]:
            if len(segment) == 6:
                bounds = calcCubicBounds(start, segment[0:2], segment[2:4], segment[4:6])
                x_min, y_min = min(x_min, floor(bounds[0] + 0.5)), min(y_min, floor(bounds[1] + 0.5))
                x_max, y_max = max(x_max, floor(bounds[2] + 0.5)), max(y_max, floor(bounds[3] + 0.5))
            start = segment[-2:]
    return x_min, y_min, x_max, y_max
