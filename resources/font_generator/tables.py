"""The numbers of the tables head, hhea, OS/2 and post."""

from collections.abc import Sequence
from math import radians, tan
from typing import Any, NamedTuple

from fontTools.misc.timeTools import epoch_diff

from .document import Document
from .errors import GeneratorError, plain
from .naming import Naming
from .outlines import round_half_up
from .shapes import Box

_LEAST_EM, _GREATEST_EM = 16, 16384
# Bits of fsSelection.
_ITALIC, _BOLD, _REGULAR, _USE_TYPO_METRICS, _OBLIQUE = 1 << 0, 1 << 5, 1 << 6, 1 << 7, 1 << 9


class Measures(NamedTuple):
    """The measures of a font in font units; `boxes` are None for glyphs without outline. `slant`
    is in degrees to the right."""

    units_per_em: int
    ascender: int
    descender: int
    cap_height: int
    x_height: int
    slant: float
    advances: Sequence[int]
    boxes: Sequence[Box | None]

    @property
    def box(self) -> Box:
        x_mins, y_mins, x_maxs, y_maxs = zip(*filter(None, self.boxes)) if any(self.boxes) else [(0,)] * 4
        return min(x_mins), min(y_mins), max(x_maxs), max(y_maxs)

    @property
    def is_fixed_pitch(self) -> bool:
        """Whether all glyphs that advance at all advance alike, the one for missing ones aside."""
        widths = [advance for advance in self.advances[1:] if advance]
        return len(widths) > 1 and min(widths) == max(widths)


def checked_units_per_em(document: Document) -> int:
    """The units per em; raises GeneratorError if a font can't have them."""
    em = document.units_per_em
    if em != int(em) or not _LEAST_EM <= em <= _GREATEST_EM:
        raise GeneratorError(f"The project has {plain(em)} units per em, and a font has a whole "
                             f"number of them from {_LEAST_EM} to {_GREATEST_EM}.")
    return int(em)


def measure(document: Document, slant: float, advances: Sequence[int], boxes: Sequence[Box | None]) -> Measures:
    """The font's measures; raises GeneratorError for a vertical one that 16 bits don't hold."""
    vertical = {"ascender": document.ascender, "descender": document.descender,
                "cap height": document.cap_height, "x-height": document.x_height}
    for name, value in vertical.items():
        if not -32768.5 <= value < 32767.5:
            raise GeneratorError(f"The {name} of the project is {plain(value)}, and a font holds "
                                 "-32768 to 32767.")
    return Measures(checked_units_per_em(document), *map(round_half_up, vertical.values()), slant, advances, boxes)


def head_values(measures: Measures, naming: Naming, date: int) -> dict[str, Any]:
    """`date` counts from 1970, the table from 1904."""
    x_min, y_min, x_max, y_max = measures.box
    return {"unitsPerEm": measures.units_per_em, "fontRevision": naming.revision,
            "created": date - epoch_diff, "modified": date - epoch_diff,
            "flags": 0b1011,  # baseline at y 0, side bearings at xMin, whole pixels per em
            "xMin": x_min, "yMin": y_min, "xMax": x_max, "yMax": y_max,
            "macStyle": (1 if naming.bold else 0) | (2 if naming.slope else 0), "lowestRecPPEM": 6}


def hhea_values(measures: Measures) -> dict[str, Any]:
    """The vertical measures are the project's, without a line gap. The caret leans by the slant."""
    drawn = [(advance, box) for advance, box in zip(measures.advances, measures.boxes) if box]
    em = measures.units_per_em
    return {"ascent": measures.ascender, "descent": measures.descender, "lineGap": 0,
            "advanceWidthMax": max(measures.advances),
            "minLeftSideBearing": min((box[0] for _, box in drawn), default=0),
            "minRightSideBearing": min(min((advance - box[2] for advance, box in drawn), default=0), 32767),
            "xMaxExtent": max((box[2] for _, box in drawn), default=0),
            "caretSlopeRise": em if measures.slant else 1,
            "caretSlopeRun": round_half_up(em * tan(radians(measures.slant)))}


def os2_values(measures: Measures, naming: Naming) -> dict[str, Any]:
    """What does not follow from the font's characters."""
    em, box = measures.units_per_em, measures.box
    widths = [advance for advance in measures.advances if advance]
    style = (_BOLD if naming.bold else 0) | (_ITALIC if naming.slope else 0)
    style |= _OBLIQUE if naming.slope == "Oblique" else 0
    return {
        "version": 4, "usWeightClass": naming.weight, "usWidthClass": naming.width, "fsType": 0,
        "achVendID": "    ", "fsSelection": _USE_TYPO_METRICS | (style or _REGULAR),
        "xAvgCharWidth": min(round_half_up(sum(widths) / len(widths)), 32767) if widths else 0,
        "ySubscriptXSize": round_half_up(em * 0.65), "ySuperscriptXSize": round_half_up(em * 0.65),
        "ySubscriptYSize": round_half_up(em * 0.6), "ySuperscriptYSize": round_half_up(em * 0.6),
        "ySubscriptYOffset": round_half_up(em * 0.075), "ySuperscriptYOffset": round_half_up(em * 0.35),
        "yStrikeoutSize": max(round_half_up(em * 0.05), 1),
        "yStrikeoutPosition": round_half_up(measures.x_height * 0.6 if measures.x_height > 0 else em * 0.3),
        "sTypoAscender": measures.ascender, "sTypoDescender": measures.descender, "sTypoLineGap": 0,
        "usWinAscent": max(measures.ascender, box[3], 0), "usWinDescent": max(-measures.descender, -box[1], 0),
        "sxHeight": measures.x_height, "sCapHeight": measures.cap_height}


def post_values(measures: Measures) -> dict[str, Any]:
    """The table counts angles to the left."""
    em = measures.units_per_em
    return {"italicAngle": -measures.slant if measures.slant else 0, "isFixedPitch": int(measures.is_fixed_pitch),
            "underlinePosition": -round_half_up(em * 0.1), "underlineThickness": max(round_half_up(em * 0.05), 1)}
