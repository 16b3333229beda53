"""The tables of a font with quadratic outlines: glyf, loca, maxp and what unhinted ones need."""

import struct
from collections.abc import Sequence
from itertools import accumulate
from typing import Any

from fontTools.ttLib import newTable

from .glyf import GlyfShape
from .glyph_set import FontGlyph
from .metrics import Measures
from .naming import Naming
from .outlines import Box

_LARGEST_SHORT_OFFSET = 0xFFFF * 2

# The instructions PUSHW 511, SCANCTRL, PUSHB 4, SCANTYPE: dropout control, which keeps strokes
# that are thinner than a pixel from falling apart.
_PREP = bytes((0xB8, 0x01, 0xFF, 0x85, 0xB0, 0x04, 0x8D))
# A gasp table with one range, every size: smooth in both directions.
_GASP = struct.pack(">HHHH", 1, 1, 0xFFFF, 0x000F)


class TrueTypeOutlines:
    """The outlines of all glyphs as a font with a glyf table has them."""

    sfnt_version = "\0\1\0\0"

    def __init__(self, glyphs: Sequence[FontGlyph]) -> None:
        """Takes the shapes that were made of the drawings."""
        self.shapes: list[GlyfShape] = [glyph.shape for glyph in glyphs]
        self.boxes: list[Box | None] = [shape.box for shape in self.shapes]
        self._offsets = list(accumulate((len(shape.entry) for shape in self.shapes), initial=0))

    @property
    def long_offsets(self) -> bool:
        """Whether the loca table needs 32 bits for an offset."""
        return self._offsets[-1] > _LARGEST_SHORT_OFFSET

    def tables(self, names: Sequence[str], measures: Measures, naming: Naming, slant: float) -> dict[str, Any]:
        """The tables that only fonts of this kind have."""
        count = len(self._offsets)
        if self.long_offsets:
            loca = struct.pack(f">{count}I", *self._offsets)
        else:
            loca = struct.pack(f">{count}H", *[offset // 2 for offset in self._offsets])
        return {"glyf": b"".join([shape.entry for shape in self.shapes]), "loca": loca,
                "maxp": self._maxp(), "gasp": _GASP, "prep": _PREP}

    def _maxp(self) -> Any:
        maxp = newTable("maxp")
        maxp.tableVersion = 0x00010000
        maxp.maxPoints = max(shape.points for shape in self.shapes)
        maxp.maxContours = max(shape.contours for shape in self.shapes)
        maxp.maxCompositePoints = maxp.maxCompositeContours = 0
        maxp.maxZones = 2
        maxp.maxTwilightPoints = maxp.maxStorage = maxp.maxFunctionDefs = 0
        maxp.maxInstructionDefs = maxp.maxSizeOfInstructions = 0
        maxp.maxStackElements = 1  # of the instructions in prep
        maxp.maxComponentElements = maxp.maxComponentDepth = 0
        return maxp
