"""How far a font leans, read off its own stems."""

from collections.abc import Iterable
from math import atan2, degrees

from .document import Glyph

# Letters with a straight stem from top to bottom.
_STEMMED = tuple("HIlhi|")
# Shorter pieces are serifs and joins rather than stems, and steeper slants no italics.
_LEAST_STEM_IN_EMS = 0.25
_STEEPEST = 40.0


def slant_angle(glyphs: Iterable[Glyph], units_per_em: float) -> float:
    """The angle of the stems in degrees from upright, positive to the right, to half a degree.

    The mean of all straight sides that can be one of a stem, each as heavy as it is high; 0
    without any.
    """
    total = height = 0.0
    for glyph in glyphs:
        for contour in glyph.outline.contours if glyph.text in _STEMMED else ():
            x0, y0 = contour[-1][-2:]
            for segment in contour:
                x, y = segment[-2:]
                rise = abs(y - y0)
                if len(segment) == 2 and rise >= _LEAST_STEM_IN_EMS * units_per_em:
                    angle = degrees(atan2((x - x0) * (1 if y > y0 else -1), rise))
                    if abs(angle) <= _STEEPEST:
                        total += angle * rise
                        height += rise
                x0, y0 = x, y
    return round(total / height * 2) / 2 if height else 0.0
