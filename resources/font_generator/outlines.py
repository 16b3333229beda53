"""Outlines as they are drawn.

A contour is a list of its starting point (x, y) and its segments: a line is its end point (x, y), a curve
its controls and its end point, (x1, y1, x2, y2, x, y) for a cubic one. Contours are closed: a line leads
from the last point to the first wherever they differ. Shapes fill by non-zero winding.
"""

from sys import float_info
from typing import Any, NamedTuple

from fontTools.misc.roundTools import otRound
from fontTools.pens.basePen import AbstractPen

from .command import GeneratorError, plain

Contour = list[tuple[float, ...]]

LEAST, GREATEST = -32768, 32767  # coordinate of a font

_POINTS = {"moveTo": ["point"], "lineTo": ["point"], "curveTo": ["control1", "control2", "point"], "closePath": []}


class Outline(NamedTuple):
    contours: list[Contour]

    def draw(self, pen: AbstractPen, curve: str = "curveTo") -> None:
        """Draws the contours, with curves of that kind, with a pen of fontTools."""
        for start, *segments in self.contours:
            pen.moveTo(start)
            for segment in segments:
                getattr(pen, "lineTo" if len(segment) == 2 else curve)(*zip(segment[::2], segment[1::2]))
            pen.closePath()

    def reversed(self) -> "Outline":
        """The same shape drawn the other way round."""
        return Outline([_reversed(contour) for contour in self.contours])

    def rounded(self) -> "Outline":
        """In whole font units, without segments that lead nowhere and contours of nothing else."""
        return Outline([contour for contour in map(_rounded, self.contours) if len(contour) > 1])


def is_finite(number: float) -> bool:
    """Whether a number is finite as a double; a whole one can be too large to be one."""
    return abs(number) <= float_info.max


def read_outline(commands: list[Any], called: str = "The glyph") -> Outline:
    """The outline of path commands; raises GeneratorError.

    Subpaths that were left open are closed. A segment that follows a closed subpath starts a new one at the
    same point; a segment with nothing before it starts at the first point that it names.
    """
    contours: list[Contour] = []
    is_open, start = False, ()
    for number, command in enumerate(commands, 1):
        kind, numbers = _read_command(command, f"{called} has a malformed outline: command number {number}")
        if kind == "moveTo" or kind != "closePath" and not is_open:
            start = numbers if kind == "moveTo" else start or numbers[:2]
            contours.append([start])
        if kind in ("lineTo", "curveTo"):
            contours[-1].append(numbers)
        is_open = kind != "closePath"
    return Outline(contours)


def _read_command(command: Any, where: str) -> tuple[str, tuple[float, ...]]:
    if type(command) is not dict:
        raise GeneratorError(f"{where} is not a JSON object.")
    kind = command.get("type")
    if type(kind) is not str or kind not in _POINTS:
        raise GeneratorError(f"{where} has no known type.")
    numbers: list[float] = []
    for name in _POINTS[kind]:
        point = command.get(name)
        if type(point) is not dict:
            raise GeneratorError(f'{where} ({kind}) has no point "{name}".')
        for axis in ("x", "y"):
            value = point.get(axis)
            is_number = type(value) in (int, float)
            if not is_number or not is_finite(value):
                fault = "finite" if is_number else "a number"
                raise GeneratorError(f'{where} ({kind}) has a point "{name}" whose {axis} is not {fault}.')
            numbers.append(value)
    return kind, tuple(numbers)


def check_size(outline: Outline, called: str) -> None:
    """Raises GeneratorError for an outline that goes beyond the 16 bits of a coordinate."""
    xs, ys = ([number for contour in outline.contours for segment in contour for number in segment[axis::2]]
              for axis in (0, 1))
    least, greatest = min(xs + ys, default=0), max(xs + ys, default=0)
    if least < LEAST - 0.5 or greatest >= GREATEST + 0.5:
        worst = plain(least if -least > greatest else greatest)
        raise GeneratorError(f"{called} reaches to the coordinate {worst}, and a font holds {LEAST} to {GREATEST}.")
    # Outlines are stored as steps from point to point, and those have 16 bits as well.
    for numbers, direction in ((xs, "wide"), (ys, "high")):
        extent = max(numbers, default=0) - min(numbers, default=0)
        if extent > GREATEST - 1:
            raise GeneratorError(f"{called} is {plain(extent)} units {direction}, and a font holds at most "
                                 f"{GREATEST - 1}.")


def _reversed(contour: Contour) -> Contour:
    result: Contour = [contour[-1][-2:]]
    for before, segment in zip(contour[-2::-1], contour[:0:-1]):
        controls = [segment[place:place + 2] for place in range(len(segment) - 4, -1, -2)]
        result.append(sum(controls, ()) + before[-2:])
    return result


def _rounded(contour: Contour) -> Contour:
    result: Contour = []
    for segment in contour:
        whole = tuple(map(otRound, segment))
        if not result or whole != result[-1][-2:] * (len(whole) // 2):
            result.append(whole)
    return result[:-1] if len(result) > 1 and result[-1] == result[0] else result  # closing draws the last line
