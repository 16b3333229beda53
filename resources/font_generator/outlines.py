"""Outlines as the rest of the generator works on them, and what can be asked of them.

A contour is a list whose first entry is its starting point (x, y) and whose others are its
segments: a line is its end point (x, y), a cubic curve its two controls and its end point
(x1, y1, x2, y2, x, y). Contours are closed: a line leads from the last point to the first
wherever they differ. Shapes fill by non-zero winding; a positive area is anticlockwise.
"""

from itertools import chain
from math import isfinite
from typing import Any, NamedTuple

from .errors import plain

Contour = list[tuple[float, ...]]
Box = tuple[int, int, int, int]  # least x and y, greatest x and y, in whole font units


class Outline(NamedTuple):
    """The contours of a glyph, and the box (least x and y, greatest x and y) of all their points,
    controls included; without points there is none."""

    contours: list[Contour]
    hull: tuple[float, float, float, float] | None

    @property
    def box(self) -> tuple[float, float, float, float] | None:
        """The hull, for those to whom an outline is a shape as well."""
        return self.hull


EMPTY = Outline([], None)

_POINTS = {"moveTo": ("point",), "lineTo": ("point",), "curveTo": ("control1", "control2", "point"),
           "closePath": ()}


LEAST_COORDINATE, GREATEST_COORDINATE = -32768, 32767


class MalformedOutline(Exception):
    """Says which member of which command is wrong."""


class UnfitOutline(Exception):
    """Says why a font can't hold an outline; whoever has the glyph knows which."""


def check_size(outline: Outline) -> None:
    """Raises UnfitOutline for an outline that goes beyond the 16 bits of a coordinate."""
    if outline.hull is None:
        return
    left, bottom, right, top = outline.hull
    least, greatest = min(left, bottom), max(right, top)
    if least < LEAST_COORDINATE - 0.5 or greatest >= GREATEST_COORDINATE + 0.5:
        worst = least if -least > greatest else greatest
        raise UnfitOutline(f"reaches to the coordinate {plain(worst)}, and a font holds "
                           f"{LEAST_COORDINATE} to {GREATEST_COORDINATE}")
    # Outlines are stored as steps from point to point, and those have 16 bits as well.
    for extent, direction in ((right - left, "wide"), (top - bottom, "high")):
        if extent > GREATEST_COORDINATE - 1:
            raise UnfitOutline(f"is {plain(extent)} units {direction}, and a font holds at most "
                               f"{GREATEST_COORDINATE - 1}")


def read_outline(commands: list[Any]) -> Outline:
    """The outline of a list of path commands; raises MalformedOutline.

    Subpaths that were left open are closed. A segment that follows a closed subpath starts a
    new one at the same starting point; a segment with nothing before it starts at the first
    point that it names. A subpath of a single point is kept as a contour without segments.
    """
    contours: list[Contour] = []
    contour: Contour | None = None
    start: tuple[float, ...] | None = None
    try:
        for command in commands:
            kind = command["type"]
            if kind == "closePath":
                contour = None
                continue
            point = command["point"]
            if kind == "moveTo":
                start = (point["x"], point["y"])
                contour = [start]
                contours.append(contour)
                continue
            if kind == "lineTo":
                segment: tuple[float, ...] = (point["x"], point["y"])
            elif kind == "curveTo":
                first, second = command["control1"], command["control2"]
                segment = (first["x"], first["y"], second["x"], second["y"], point["x"], point["y"])
            else:
                raise KeyError(kind)
            if contour is None:
                start = start or segment[:2]
                contour = [start]
                contours.append(contour)
            contour.append(segment)
        numbers = _coordinates(contours)
        # A number that is not finite makes the sum so, and so may finite ones together.
        if set(map(type, numbers)) <= {int, float} and (isfinite(sum(numbers))
                                                        or all(map(isfinite, numbers))):
            return Outline(contours, _hull(numbers))
    except (KeyError, TypeError, IndexError, OverflowError):
        pass
    raise MalformedOutline(_fault(commands))


def _fault(commands: list[Any]) -> str:
    """The first fault of commands that could not be read. Slow, and only ever needed once."""
    for index, command in enumerate(commands):
        where = f"command number {index + 1}"
        if type(command) is not dict:
            return f"{where} is not a JSON object"
        kind = command.get("type")
        if type(kind) is not str or kind not in _POINTS:
            return f"{where} has no known type"
        for member in _POINTS[kind]:
            point = command.get(member)
            if type(point) is not dict:
                return f'{where} ({kind}) has no point "{member}"'
            for axis in ("x", "y"):
                value = point.get(axis)
                if type(value) is not int and type(value) is not float:
                    return f'{where} ({kind}) has a point "{member}" whose {axis} is not a number'
                if not is_finite(value):
                    return f'{where} ({kind}) has a point "{member}" whose {axis} is not finite'
    return "it cannot be read"


def is_finite(value: float) -> bool:
    """Whether `value` is finite as a double; a whole number can be too large to be one."""
    try:
        return isfinite(value)
    except OverflowError:
        return False


def outline_of(contours: list[Contour]) -> Outline:
    """The outline that consists of the contours."""
    return Outline(contours, _hull(_coordinates(contours)))


def _coordinates(contours: list[Contour]) -> list[float]:
    """Every number of the contours in drawing order: x, y, x, y, ..."""
    return list(chain.from_iterable(chain.from_iterable(contours)))


def _hull(numbers: list[float]) -> tuple[float, float, float, float] | None:
    if not numbers:
        return None
    xs, ys = numbers[0::2], numbers[1::2]
    return min(xs), min(ys), max(xs), max(ys)


def signed_area(contours: list[Contour]) -> float:
    """The sum of the contours' areas, anticlockwise ones positive.

    The sum of a glyph has the direction of its outer contours, for a hole is smaller than what
    it is cut from. Curves count exactly: Green's theorem over each Bézier segment.
    """
    twice = 0.0
    for contour in contours:
        x0, y0 = contour[0]
        for segment in contour:
            if len(segment) == 2:
                x, y = segment
                twice += x0 * y - x * y0
            else:
                x1, y1, x2, y2, x, y = segment
                ax, ay, bx, by, cx, cy = x1 - x0, y1 - y0, x2 - x0, y2 - y0, x - x0, y - y0
                twice += x0 * y - x * y0 + 0.3 * (
                    ax * (by + cy) - bx * (ay - 2 * cy) - cx * (ay + 2 * by))
            x0, y0 = x, y
        x, y = contour[0]
        twice += x0 * y - x * y0
    return twice / 2


def reversed_contours(contours: list[Contour]) -> list[Contour]:
    """The same shapes drawn the other way round; what non-zero winding fills stays the same."""
    return [_reversed(contour) for contour in contours]


def _reversed(contour: Contour) -> Contour:
    result: Contour = [contour[-1][-2:]]
    for index in range(len(contour) - 1, 0, -1):
        end, segment = contour[index - 1][-2:], contour[index]
        result.append(end if len(segment) == 2 else segment[2:4] + segment[0:2] + end)
    return result
