"""Outlines as they are drawn. A contour, which is closed, is a list of its starting point (x, y) and its segments:
a line is its end point (x, y), a curve its controls and its end point, (x1, y1, x2, y2, x, y) for a cubic one."""

from sys import float_info
from typing import Any, NamedTuple

from fontTools.misc.roundTools import otRound
from fontTools.pens.basePen import AbstractPen
from fontTools.pens.boundsPen import ControlBoundsPen

from .command import GeneratorError, plain

Contour = list[tuple[float, ...]]
LEAST, GREATEST = -32768, 32767  # coordinate of a font
GREATEST_NUMBER = float_info.max
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

    def rounded(self) -> "Outline":
        """In whole font units, without segments that lead nowhere and contours of nothing else."""
        contours: list[Contour] = []
        for contour in self.contours:
            contours.append([])
            for segment in contour:
                whole = tuple(map(otRound, segment))
                if not contours[-1] or whole != contours[-1][-1][-2:] * (len(whole) // 2):
                    contours[-1].append(whole)
            if contours[-1][-1] == contours[-1][0]:
                contours[-1].pop()  # the last line, which closing draws
        return Outline([contour for contour in contours if len(contour) > 1])


def read_outline(commands: list[Any], called: str = "The glyph") -> Outline:
    """The outline of path commands, with open subpaths closed; raises GeneratorError. A segment that follows a closed
    subpath starts a new one at the same point; one with nothing before it starts at the first point that it names."""
    contours, is_open, start = [], False, ()
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
        for axis, value in (("x", point.get("x")), ("y", point.get("y"))):
            is_number = type(value) in (int, float)
            if not is_number or not abs(value) <= GREATEST_NUMBER:
                fault = "finite" if is_number else "a number"
                raise GeneratorError(f'{where} ({kind}) has a point "{name}" whose {axis} is not {fault}.')
            numbers.append(value)
    return kind, tuple(numbers)


def check_size(outline: Outline, called: str) -> None:
    """Raises GeneratorError for an outline that goes beyond the 16 bits of a coordinate."""
    pen = ControlBoundsPen(None)
    outline.draw(pen)
    left, bottom, right, top = pen.bounds or (0, 0, 0, 0)
    least, greatest = min(left, bottom), max(right, top)
    if least < LEAST - 0.5 or greatest >= GREATEST + 0.5:
        worst = plain(least if -least > greatest else greatest)
        raise GeneratorError(f"{called} reaches to the coordinate {worst}, and a font holds {LEAST} to {GREATEST}.")
    # Outlines are stored as steps from point to point, and those have 16 bits as well.
    for extent, direction in ((right - left, "wide"), (top - bottom, "high")):
        if extent > GREATEST - 1:
            raise GeneratorError(f"{called} is {plain(extent)} units {direction}, and a font holds at most "
                                 f"{GREATEST - 1}.")
