"""What fonts store of a drawing, with the box of what it shows (least x and y, greatest x and y), which is
empty if that is nothing: cubic curves in a CFF table, quadratic ones in a glyf table."""

from bisect import bisect_right
from collections.abc import Sequence
from itertools import islice, product

from fontTools.cffLib.specializer import specializeProgram
from fontTools.cu2qu import curve_to_quadratic
from fontTools.misc.arrayTools import calcBounds
from fontTools.misc.psCharStrings import T2CharString
from fontTools.misc.roundTools import otRound
from fontTools.pens.areaPen import AreaPen
from fontTools.pens.boundsPen import BoundsPen
from fontTools.pens.reverseContourPen import ReverseContourPen
from fontTools.pens.t2CharStringPen import T2CharStringPen
from fontTools.pens.ttGlyphPen import TTGlyphPen
from fontTools.ttLib.tables import _g_l_y_f as glyf

from .command import GeneratorError
from .document import Glyph
from .outlines import GREATEST, LEAST, Contour, Outline

Box, Point = Sequence[int], tuple[int, int]
_LONGEST_CHARSTRING = 65535 - 3  # the format's limit, less an operand for the width
_MOST_POINTS, _MOST_CONTOURS = 65535, 32767
_MOST_COMPARISONS = 20000  # of contours; a flag that is set without need only makes rasterizing slower


def cubic_shape(glyph: Glyph, width: int | None) -> tuple[T2CharString, Box]:
    """The charstring, outer contours anticlockwise, with the number for its width, if any."""
    pen, area, bounds = T2CharStringPen(width, None), AreaPen(), BoundsPen(None)
    glyph.outline.draw(area)  # of the sign of the outer contours, for a hole is smaller than what it is cut from
    glyph.outline.rounded().draw(ReverseContourPen(pen) if area.value < 0 else pen)
    charstring = pen.getCharString(optimize=False)
    charstring.program = specializeProgram(charstring.program, preserveTopology=True, maxstack=48)
    charstring.compile()
    if (size := len(charstring.bytecode)) > _LONGEST_CHARSTRING:
        raise GeneratorError(f"The drawing of {glyph.label} has too many points: it takes {size:,} bytes, and a "
                             f"font holds {_LONGEST_CHARSTRING:,} for a glyph.")
    # The box is that of the curves as drawn: rounding their controls first would move it.
    Outline([contour for contour in glyph.outline.contours if Outline([contour]).rounded().contours]).draw(bounds)
    return charstring, tuple(map(otRound, bounds.bounds or ()))


def quadratic_shape(glyph: Glyph, units_per_em: int) -> tuple[glyf.Glyph, Box]:
    """The glyf entry, outer contours clockwise."""
    # With 0.71 units of rounding on top, a curve in an em of 1,000 units stays within 1/1000 em of the drawing.
    # Curves become quadratic before anything is rounded, so that no tangent moves twice.
    tolerance = max(units_per_em / 4000, 0.25)
    pen, area = TTGlyphPen(None), AreaPen()
    glyph.outline.draw(area)
    Outline([_quadratic(contour, tolerance) for contour in glyph.outline.contours]).rounded().draw(
        ReverseContourPen(pen) if area.value > 0 else pen, "qCurveTo")
    entry = pen.glyph()
    if entry.numberOfContours == 0:
        return entry, ()
    points, ends = list(entry.coordinates), [end + 1 for end in entry.endPtsOfContours]
    if len(points) > _MOST_POINTS or len(ends) > _MOST_CONTOURS:
        raise GeneratorError(f"The drawing of {glyph.label} makes {len(points):,} points in {len(ends):,} contours, "
                             f"and a font holds {_MOST_POINTS:,} in {_MOST_CONTOURS:,} for a glyph.")
    left, bottom, right, top = entry.xMin, entry.yMin, entry.xMax, entry.yMax = box = calcBounds(points)
    # Off-curve points can lie farther out than the controls of the curve that they stand for.
    if min(box) < LEAST or max(box) > GREATEST or max(right - left, top - bottom) > GREATEST:
        raise GeneratorError(f"The drawing of {glyph.label} with quadratic curves is larger than the 16 bits that a "
                             "font has for coordinates.")
    if _overlap([points[start:end] for start, end in zip([0, *ends], ends)]):
        entry.flags[0] |= glyf.flagOverlapSimple
    return entry, box


def _quadratic(contour: Contour, tolerance: float) -> Contour:
    result = contour[:1]
    for before, segment in zip(contour, contour[1:]):
        start, first, second, end = curve = before[-2:], segment[:2], segment[2:4], segment[4:]
        is_line = len(segment) == 2 or first == start and second == end
        result.append(segment[-2:] if is_line else sum(curve_to_quadratic(curve, tolerance)[1:], ()))
    return result


def _overlap(contours: Sequence[Sequence[Point]]) -> bool:
    """Whether contours, as polygons of their points, cross or touch, or fill the same place in the same direction."""
    contours = sorted(contours, key=lambda points: calcBounds(points)[0])
    boxes, lefts = [calcBounds(points) for points in contours], [min(points)[0] for points in contours]
    edges = [list(zip([points[-1], *points], points)) for points in contours]
    turns = [1 if sum(x0 * y - x * y0 for (x0, y0), (x, y) in polygon) > 0 else -1 for polygon in edges]
    windings = list(turns)  # of each inside, by its contour and those around it
    pairs = list(islice(((one, other) for one, box in enumerate(boxes)
                         for other in range(one + 1, bisect_right(lefts, box[2]))), _MOST_COMPARISONS + 1))
    for one, other in pairs if len(pairs) <= _MOST_COMPARISONS else ():
        if _boxes_meet(boxes[one], boxes[other]):
            near = [edge for edge in edges[one] if _boxes_meet(calcBounds(edge), boxes[other])]
            others = [edge for edge in edges[other] if _boxes_meet(calcBounds(edge), boxes[one])]
            if any(_edges_meet(*pair) for pair in product(near, others)):
                return True
            windings[other] += turns[one] * _contains(edges[one], contours[other][0])
            windings[one] += turns[other] * _contains(edges[other], contours[one][0])
    return len(pairs) > _MOST_COMPARISONS or any(abs(winding) > 1 for winding in windings)


def _boxes_meet(one: Box, other: Box) -> bool:
    return one[0] <= other[2] and other[0] <= one[2] and one[1] <= other[3] and other[1] <= one[3]


def _side(start: Point, end: Point, point: Point) -> int:
    return (end[0] - start[0]) * (point[1] - start[1]) - (end[1] - start[1]) * (point[0] - start[0])


def _edges_meet(one: Sequence[Point], other: Sequence[Point]) -> bool:
    """Whether each edge has the other's ends on both of its sides, or on itself."""
    return _boxes_meet(calcBounds(one), calcBounds(other)) and all(
        _side(*edge, start) * _side(*edge, end) <= 0 for edge, (start, end) in ((one, other), (other, one)))


def _contains(polygon: Sequence[Sequence[Point]], point: Point) -> bool:
    """Whether a ray to the right of `point` leaves once more than it enters."""
    crossed = [edge for edge in polygon if (edge[0][1] > point[1]) != (edge[1][1] > point[1])]
    return sum((_side(*edge, point) > 0) == (edge[1][1] > edge[0][1]) for edge in crossed) % 2 == 1
