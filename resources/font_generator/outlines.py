"""Outlines as they are drawn, and what can be asked of them.

A contour is a list of its starting point (x, y) and its segments: a line is its end point (x, y),
a curve its controls and its end point, (x1, y1, x2, y2, x, y) for a cubic one. Contours are
closed: a line leads from the last point to the first wherever they differ. Shapes fill by
non-zero winding.
"""

from collections.abc import Iterator
from math import floor, isfinite
from typing import Any, NamedTuple

from fontTools.pens.basePen import AbstractPen

from .errors import plain

Contour = list[tuple[float, ...]]

LEAST_COORDINATE, GREATEST_COORDINATE = -32768, 32767

_POINTS = {"moveTo": ("point",), "lineTo": ("point",), "curveTo": ("control1", "control2", "point"),
           "closePath": ()}


class MalformedOutline(Exception):
    """Says which member of which command is wrong."""


class UnfitOutline(Exception):
    """Says why a font can't hold an outline; whoever has the glyph knows which."""


class Outline(NamedTuple):
    """The contours of a glyph; `quadratic` tells whether their curves are quadratic splines."""

    contours: list[Contour]
    quadratic: bool = False

    def draw(self, pen: AbstractPen) -> None:
        """Draws the contours with a pen of fontTools."""
        for start, *segments in self.contours:
            pen.moveTo(start)
            for segment in segments:
                points = zip(segment[::2], segment[1::2])
                (pen.lineTo if len(segment) == 2 else pen.qCurveTo if self.quadratic else pen.curveTo)(*points)
            pen.closePath()

    def reversed(self) -> "Outline":
        """The same shape drawn the other way round, each contour from where it ended."""
        return Outline([_reversed(contour) for contour in self.contours], self.quadratic)

    def rounded(self) -> "Outline":
        """In whole font units, without segments that lead nowhere and contours of nothing else."""
        return Outline([contour for contour in map(_rounded, self.contours) if len(contour) > 1], self.quadratic)


def round_half_up(number: float) -> int:
    """The nearest whole number, the upper of two that are equally near."""
    return floor(number + 0.5)


def read_outline(commands: list[Any]) -> Outline:
    """The outline of a list of path commands; raises MalformedOutline.

    Subpaths that were left open are closed. A segment that follows a closed subpath starts a
    new one at the same starting point; a segment with nothing before it starts at the first
    point that it names. A subpath of a single point is kept as a contour without segments.
    """
    contours: list[Contour] = []
    contour: Contour | None = None
    start: tuple[float, ...] = ()
    for number, command in enumerate(commands, 1):
        kind, numbers = _read_command(command, f"command number {number}")
        if kind == "closePath":
            contour = None
            continue
        if kind == "moveTo" or contour is None:
            start = numbers if kind == "moveTo" else start or numbers[:2]
            contour = [start]
            contours.append(contour)
        if kind != "moveTo":
            contour.append(numbers)
    return Outline(contours)


def _read_command(command: Any, where: str) -> tuple[str, tuple[float, ...]]:
    if type(command) is not dict:
        raise MalformedOutline(f"{where} is not a JSON object")
    kind = command.get("type")
    if type(kind) is not str or kind not in _POINTS:
        raise MalformedOutline(f"{where} has no known type")
    numbers: list[float] = []
    for member in _POINTS[kind]:
        point = command.get(member)
        if type(point) is not dict:
            raise MalformedOutline(f'{where} ({kind}) has no point "{member}"')
        for axis in ("x", "y"):
            value = point.get(axis)
            if type(value) not in (int, float) or not is_finite(value):
                fault = "finite" if type(value) in (int, float) else "a number"
                raise MalformedOutline(f'{where} ({kind}) has a point "{member}" whose {axis} is not {fault}')
            numbers.append(value)
    return kind, tuple(numbers)


def is_finite(value: float) -> bool:
    """Whether `value` is finite as a double; a whole number can be too large to be one."""
    try:
        return isfinite(value)
    except OverflowError:
        return False


def check_size(outline: Outline) -> None:
    """Raises UnfitOutline for an outline that goes beyond the 16 bits of a coordinate."""
    numbers = [[number for segment in _segments(outline) for number in segment[axis::2]] for axis in (0, 1)]
    if not numbers[0]:
        return
    least, greatest = min(map(min, numbers)), max(map(max, numbers))
    if least < LEAST_COORDINATE - 0.5 or greatest >= GREATEST_COORDINATE + 0.5:
        raise UnfitOutline(f"reaches to the coordinate {plain(least if -least > greatest else greatest)}, "
                           f"and a font holds {LEAST_COORDINATE} to {GREATEST_COORDINATE}")
    # Outlines are stored as steps from point to point, and those have 16 bits as well.
    for along, direction in zip(numbers, ("wide", "high")):
        if (extent := max(along) - min(along)) > GREATEST_COORDINATE - 1:
            raise UnfitOutline(f"is {plain(extent)} units {direction}, and a font holds at most "
                               f"{GREATEST_COORDINATE - 1}")


def _segments(outline: Outline) -> Iterator[tuple[float, ...]]:
    return (segment for contour in outline.contours for segment in contour)


def _reversed(contour: Contour) -> Contour:
    result: Contour = [contour[-1][-2:]]
    for before, segment in zip(contour[-2::-1], contour[:0:-1]):
        points = [segment[place:place + 2] for place in range(len(segment) - 4, -1, -2)]
        result.append(sum(points, ()) + before[-2:])
    return result


def _rounded(contour: Contour) -> Contour:
    result: Contour = []
    end: tuple[float, ...] = ()
    for segment in contour:
        whole = tuple(map(round_half_up, segment))
        if not result or whole != end * (len(whole) // 2):
            result.append(whole)
            end = whole[-2:]
    if len(result) > 1 and result[-1] == result[0]:
        result.pop()  # a line back to the start, which closing draws
    return result
