"""The tables of a font with quadratic outlines: glyf, loca, maxp and what unhinted ones need."""

import struct
from collections.abc import Sequence
from itertools import accumulate
from typing import Any

from fontTools.ttLib import newTable

from .errors import GeneratorError
from .glyf import GlyfOutline, encode_glyf, quadratic_outline
from .glyph_set import GREATEST_COORDINATE, LEAST_COORDINATE, FontGlyph
from .metrics import Measures
from .naming import Naming
from .outlines import Box

_LARGEST_SHORT_OFFSET = 0xFFFF * 2
_MOST_POINTS, _MOST_CONTOURS = 65535, 32767

# The instructions PUSHW 511, SCANCTRL, PUSHB 4, SCANTYPE: dropout control, which keeps strokes
# that are thinner than a pixel from falling apart.
_PREP = bytes((0xB8, 0x01, 0xFF, 0x85, 0xB0, 0x04, 0x8D))
# A gasp table with one range, every size: smooth in both directions.
_GASP = struct.pack(">HHHH", 1, 1, 0xFFFF, 0x000F)


class TrueTypeOutlines:
    """The outlines of all glyphs as a font with a glyf table has them."""

    sfnt_version = "\0\1\0\0"

    def __init__(self, glyphs: Sequence[FontGlyph], units_per_em: int) -> None:
        """Converts the outlines; raises GeneratorError for one that a glyf table can't hold."""
        self.outlines: list[GlyfOutline] = []
        self.boxes: list[Box | None] = []
        for glyph in glyphs:
            outline = quadratic_outline(glyph.outline, units_per_em)
            box = outline.box()
            _check(glyph, outline, box)
            self.outlines.append(outline)
            self.boxes.append(box)
        self._entries = [encode_glyf(outline) for outline in self.outlines]
        self._offsets = list(accumulate(map(len, self._entries), initial=0))

    @property
    def long_offsets(self) -> bool:
        """Whether the loca table needs 32 bits for an offset."""
        return self._offsets[-1] > _LARGEST_SHORT_OFFSET

    def tables(self, names: Sequence[str], measures: Measures, naming: Naming) -> dict[str, Any]:
        """The tables that only fonts of this kind have."""
        count = len(self._offsets)
        if self.long_offsets:
            loca = struct.pack(f">{count}I", *self._offsets)
        else:
            loca = struct.pack(f">{count}H", *[offset // 2 for offset in self._offsets])
        return {"glyf": b"".join(self._entries), "loca": loca, "maxp": self._maxp(),
                "gasp": _GASP, "prep": _PREP}

    def _maxp(self) -> Any:
        maxp = newTable("maxp")
        maxp.tableVersion = 0x00010000
        maxp.maxPoints = max(len(outline.xs) for outline in self.outlines)
        maxp.maxContours = max(len(outline.ends) for outline in self.outlines)
        maxp.maxCompositePoints = maxp.maxCompositeContours = 0
        maxp.maxZones = 2
        maxp.maxTwilightPoints = maxp.maxStorage = maxp.maxFunctionDefs = 0
        maxp.maxInstructionDefs = maxp.maxSizeOfInstructions = 0
        maxp.maxStackElements = 1  # of the instructions in prep
        maxp.maxComponentElements = maxp.maxComponentDepth = 0
        return maxp


def _check(glyph: FontGlyph, outline: GlyfOutline, box: Box | None) -> None:
    if len(outline.xs) > _MOST_POINTS or len(outline.ends) > _MOST_CONTOURS:
        raise GeneratorError(f"The drawing of {glyph.label} makes {len(outline.xs):,} points in "
                             f"{len(outline.ends):,} contours, and a font holds {_MOST_POINTS:,} "
                             f"in {_MOST_CONTOURS:,} for a glyph.")
    # Off-curve points can lie farther out than the controls of the curve that they stand for.
    if box and (min(box) < LEAST_COORDINATE or max(box) > GREATEST_COORDINATE
                or max(box[2] - box[0], box[3] - box[1]) > GREATEST_COORDINATE):
        raise GeneratorError(f"The drawing of {glyph.label} with quadratic curves is larger than "
                             "the 16 bits that a font has for coordinates.")
