"""What fonts store of a drawing: cubic curves in a CFF table, quadratic ones in a glyf table."""

from typing import NamedTuple

from fontTools.cu2qu import curve_to_quadratic
from fontTools.misc.psCharStrings import T2CharString
from fontTools.pens.areaPen import AreaPen
from fontTools.pens.boundsPen import BoundsPen
from fontTools.pens.t2CharStringPen import T2CharStringPen
from fontTools.pens.ttGlyphPen import TTGlyphPen
from fontTools.ttLib.tables._g_l_y_f import Glyph, flagOverlapSimple

from .outlines import GREATEST_COORDINATE, LEAST_COORDINATE, Contour, Outline, UnfitOutline, round_half_up
from .overlaps import contours_overlap

Box = tuple[int, int, int, int]  # least x and y, greatest x and y, in whole font units

# With at most 0.71 units of rounding on top, a curve of a font of 1,000 units per em stays
# within 1/1000 em of the drawing.
_TOLERANCE_IN_EMS = 1 / 4000
_LEAST_TOLERANCE = 0.25  # rounding costs more than this in an em of a few units

_LONGEST_CHARSTRING = 65535 - 3  # the format's limit, less an operand for the width
_MOST_POINTS, _MOST_CONTOURS = 65535, 32767


class Shape(NamedTuple):
    """What a table stores of a glyph, and the box of what it shows, None if that is nothing."""

    stored: T2CharString | Glyph
    box: Box | None


def cubic_shape(drawing: Outline, width: int | None) -> Shape:
    """The charstring of a drawing, with the number for its width if it is to have one.

    Outer contours come out anticlockwise. Raises UnfitOutline for too many segments.
    """
    outline = drawing.reversed() if _area(drawing) < 0 else drawing
    rounded = outline.rounded()
    pen = T2CharStringPen(width, None)
    rounded.draw(pen)
    charstring = pen.getCharString()
    charstring.compile()
    if (size := len(charstring.bytecode)) > _LONGEST_CHARSTRING:
        raise UnfitOutline(f"has too many points: it takes {size:,} bytes, and a font holds "
                           f"{_LONGEST_CHARSTRING:,} for a glyph")
    # The box is that of the curves as drawn: rounding their controls first would move it.
    bounds = BoundsPen(None)
    Outline([contour for contour in outline.contours if Outline([contour]).rounded().contours]).draw(bounds)
    return Shape(charstring, tuple(map(round_half_up, bounds.bounds)) if bounds.bounds else None)


def quadratic_shape(drawing: Outline, units_per_em: int) -> Shape:
    """The glyf entry of a drawing. Outer contours come out clockwise.

    Curves become quadratic before anything is rounded, so that rounding moves no tangent twice.
    Raises UnfitOutline for what the table can't hold.
    """
    outline = drawing.reversed() if _area(drawing) > 0 else drawing
    tolerance = max(units_per_em * _TOLERANCE_IN_EMS, _LEAST_TOLERANCE)
    rounded = Outline([_quadratic(contour, tolerance) for contour in outline.contours], quadratic=True).rounded()
    pen = TTGlyphPen(None)
    rounded.draw(pen)
    glyph = pen.glyph()
    if glyph.numberOfContours == 0:
        return Shape(glyph, None)
    points = list(glyph.coordinates)
    if len(points) > _MOST_POINTS or glyph.numberOfContours > _MOST_CONTOURS:
        raise UnfitOutline(f"makes {len(points):,} points in {glyph.numberOfContours:,} contours, and a "
                           f"font holds {_MOST_POINTS:,} in {_MOST_CONTOURS:,} for a glyph")
    glyph.recalcBounds(None)
    box = glyph.xMin, glyph.yMin, glyph.xMax, glyph.yMax
    # Off-curve points can lie farther out than the controls of the curve that they stand for.
    if (min(box) < LEAST_COORDINATE or max(box) > GREATEST_COORDINATE
            or max(box[2] - box[0], box[3] - box[1]) > GREATEST_COORDINATE):
        raise UnfitOutline("with quadratic curves is larger than the 16 bits that a font has for coordinates")
    starts = [0, *(end + 1 for end in glyph.endPtsOfContours)]
    if contours_overlap([points[start:end] for start, end in zip(starts, starts[1:])]):
        glyph.flags[0] |= flagOverlapSimple
    return Shape(glyph, box)


def _area(outline: Outline) -> float:
    """The area, anticlockwise contours positive. That of a glyph has the direction of its outer
    contours, for a hole is smaller than what it is cut from."""
    pen = AreaPen()
    outline.draw(pen)
    return pen.value


def _quadratic(contour: Contour, tolerance: float) -> Contour:
    result = contour[:1]
    for before, segment in zip(contour, contour[1:]):
        if len(segment) == 6:
            start, first, second, end = curve = before[-2:], segment[:2], segment[2:4], segment[4:]
            straight = first == start and second == end
            segment = end if straight else sum(curve_to_quadratic(curve, tolerance)[1:], ())
        result.append(segment)
    return result
