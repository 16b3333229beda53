"""The tables that hold the font's measures: head, hhea, hmtx, maxp, OS/2 and post."""

from collections.abc import Sequence
from dataclasses import dataclass
from math import radians, tan
from struct import pack
from typing import Any

from fontTools.ttLib import newTable
from fontTools.ttLib.tables.O_S_2f_2 import Panose, intersectUnicodeRanges

from .code_pages import code_page_bits
from .document import Document
from .errors import GeneratorError, plain
from .glyph_set import GlyphSet, round_half_up
from .naming import Naming
from .outlines import Box

_LEAST_EM, _GREATEST_EM = 16, 16384
# Seconds from 1904, where font dates begin, to 1970.
_EPOCH_OF_FONTS = 2082844800

# Bits of fsSelection.
_ITALIC, _BOLD, _REGULAR, _USE_TYPO_METRICS, _OBLIQUE = 1 << 0, 1 << 5, 1 << 6, 1 << 7, 1 << 9


@dataclass(frozen=True, slots=True)
class Measures:
    """The measures of a font in font units; `boxes` are None for glyphs without outline."""

    units_per_em: int
    ascender: int
    descender: int
    cap_height: int
    x_height: int
    advances: list[int]
    boxes: list[Box | None]

    @property
    def box(self) -> Box:
        boxes = [box for box in self.boxes if box]
        if not boxes:
            return 0, 0, 0, 0
        x_mins, y_mins, x_maxs, y_maxs = zip(*boxes)
        return min(x_mins), min(y_mins), max(x_maxs), max(y_maxs)


def checked_units_per_em(document: Document) -> int:
    """The units per em; raises GeneratorError if a font can't have them."""
    em = document.units_per_em
    if em != int(em) or not _LEAST_EM <= em <= _GREATEST_EM:
        raise GeneratorError(f"The project has {plain(em)} units per em, and a font has a whole "
                             f"number of them from {_LEAST_EM} to {_GREATEST_EM}.")
    return int(em)


def measure(document: Document, glyphs: GlyphSet, boxes: list[Box | None]) -> Measures:
    """The font's measures; raises GeneratorError for a vertical one that 16 bits don't hold."""
    def checked(name: str, value: float) -> int:
        if not -32768.5 <= value < 32767.5:
            raise GeneratorError(f"The {name} of the project is {plain(value)}, and a font holds "
                                 "-32768 to 32767.")
        return round_half_up(value)

    return Measures(
        units_per_em=checked_units_per_em(document),
        ascender=checked("ascender", document.ascender),
        descender=checked("descender", document.descender),
        cap_height=checked("cap height", document.cap_height),
        x_height=checked("x-height", document.x_height),
        advances=[glyph.advance for glyph in glyphs.glyphs],
        boxes=boxes,
    )


def build_head(measures: Measures, naming: Naming, seconds: int, long_offsets: bool) -> Any:
    """The head table; `seconds` since 1970 are the dates of creation and change."""
    head = newTable("head")
    head.tableVersion = 1.0
    head.fontRevision = naming.revision
    head.checkSumAdjustment = 0
    head.magicNumber = 0x5F0F3CF5
    head.flags = 0b1011  # baseline at y 0, side bearings at xMin, whole pixels per em
    head.unitsPerEm = measures.units_per_em
    head.created = head.modified = seconds + _EPOCH_OF_FONTS
    head.xMin, head.yMin, head.xMax, head.yMax = measures.box
    head.macStyle = (1 if naming.bold else 0) | (2 if naming.slope else 0)
    head.lowestRecPPEM = 6
    head.fontDirectionHint = 2
    head.indexToLocFormat = int(long_offsets)
    head.glyphDataFormat = 0
    return head


def build_hhea(measures: Measures, slant: float) -> Any:
    """The hhea table; its vertical measures are the project's, without a line gap. The caret
    leans by `slant` degrees to the right."""
    hhea = newTable("hhea")
    hhea.tableVersion = 0x00010000
    hhea.ascent, hhea.descent, hhea.lineGap = measures.ascender, measures.descender, 0
    drawn = [(advance, box) for advance, box in zip(measures.advances, measures.boxes) if box]
    hhea.advanceWidthMax = max(measures.advances)
    hhea.minLeftSideBearing = min((box[0] for _, box in drawn), default=0)
    narrowest = min((advance - box[2] for advance, box in drawn), default=0)
    hhea.minRightSideBearing = min(narrowest, 32767)
    hhea.xMaxExtent = max((box[2] for _, box in drawn), default=0)
    hhea.caretSlopeRise, hhea.caretSlopeRun, hhea.caretOffset = 1, 0, 0
    if slant:
        hhea.caretSlopeRise = measures.units_per_em
        hhea.caretSlopeRun = round_half_up(measures.units_per_em * tan(radians(slant)))
    hhea.reserved0 = hhea.reserved1 = hhea.reserved2 = hhea.reserved3 = 0
    hhea.metricDataFormat = 0
    hhea.numberOfHMetrics = _long_metrics(measures.advances)
    return hhea


def _long_metrics(advances: Sequence[int]) -> int:
    """How many glyphs have their own advance; the ones after share the last of these."""
    count = len(advances)
    while count > 1 and advances[count - 2] == advances[-1]:
        count -= 1
    return count


def encode_hmtx(measures: Measures) -> bytes:
    """Advances and left side bearings: a bearing is where the outline's box begins."""
    bearings = [box[0] if box else 0 for box in measures.boxes]
    count = _long_metrics(measures.advances)
    numbers = [number for pair in zip(measures.advances[:count], bearings) for number in pair]
    rest = bearings[count:]
    return pack(">" + "Hh" * count, *numbers) + pack(f">{len(rest)}h", *rest)


def build_os2(measures: Measures, naming: Naming, glyphs: GlyphSet, longest_context: int) -> Any:
    """The OS/2 table, version 4. Ranges and code pages are those of the drawn characters."""
    em = measures.units_per_em
    box = measures.box
    os2 = newTable("OS/2")
    os2.version = 4
    widths = [advance for advance in measures.advances if advance]
    os2.xAvgCharWidth = min(round_half_up(sum(widths) / len(widths)), 32767) if widths else 0
    os2.usWeightClass, os2.usWidthClass = naming.weight, naming.width
    os2.fsType = 0
    os2.ySubscriptXSize = os2.ySuperscriptXSize = round_half_up(em * 0.65)
    os2.ySubscriptYSize = os2.ySuperscriptYSize = round_half_up(em * 0.6)
    os2.ySubscriptXOffset = os2.ySuperscriptXOffset = 0
    os2.ySubscriptYOffset, os2.ySuperscriptYOffset = round_half_up(em * 0.075), round_half_up(em * 0.35)
    os2.yStrikeoutSize = max(round_half_up(em * 0.05), 1)
    os2.yStrikeoutPosition = (round_half_up(measures.x_height * 0.6) if measures.x_height > 0
                              else round_half_up(em * 0.3))
    os2.sFamilyClass = 0
    os2.panose = Panose()
    for field in ("FamilyType", "SerifStyle", "Weight", "Proportion", "Contrast", "StrokeVariation",
                  "ArmStyle", "LetterForm", "Midline", "XHeight"):
        setattr(os2.panose, f"b{field}", 0)
    if is_fixed_pitch(measures):
        os2.panose.bFamilyType, os2.panose.bProportion = 2, 9  # Latin text, monospaced
    os2.setUnicodeRanges(intersectUnicodeRanges(glyphs.characters.drawn))
    os2.ulCodePageRange1, os2.ulCodePageRange2 = code_page_bits(glyphs.characters.drawn)
    os2.achVendID = "    "
    os2.fsSelection = _USE_TYPO_METRICS
    os2.fsSelection |= _BOLD if naming.bold else 0
    os2.fsSelection |= _ITALIC if naming.slope else 0
    os2.fsSelection |= _OBLIQUE if naming.slope == "Oblique" else 0
    os2.fsSelection |= 0 if naming.bold or naming.slope else _REGULAR
    mapped = glyphs.characters.scalars
    os2.usFirstCharIndex = min(min(mapped, default=0), 0xFFFF)
    os2.usLastCharIndex = min(max(mapped, default=0), 0xFFFF)
    os2.sTypoAscender, os2.sTypoDescender, os2.sTypoLineGap = measures.ascender, measures.descender, 0
    os2.usWinAscent = max(measures.ascender, box[3], 0)
    os2.usWinDescent = max(-measures.descender, -box[1], 0)
    os2.sxHeight, os2.sCapHeight = measures.x_height, measures.cap_height
    os2.usDefaultChar, os2.usBreakChar = 0, 0x20
    os2.usMaxContext = longest_context
    return os2


def is_fixed_pitch(measures: Measures) -> bool:
    """Whether all glyphs that advance at all advance alike, the one for missing ones aside."""
    widths = [advance for advance in measures.advances[1:] if advance]
    return len(widths) > 1 and min(widths) == max(widths)


def build_post(measures: Measures, slant: float, glyph_names: Sequence[str], with_names: bool) -> Any:
    """The post table; a CFF table has its own glyph names, so that this one needs none. The
    table counts angles to the left: `slant` is in degrees to the right."""
    post = newTable("post")
    post.formatType = 2.0 if with_names else 3.0
    post.italicAngle = -slant if slant else 0
    post.underlinePosition = -round_half_up(measures.units_per_em * 0.1)
    post.underlineThickness = max(round_half_up(measures.units_per_em * 0.05), 1)
    post.isFixedPitch = int(is_fixed_pitch(measures))
    post.minMemType42 = post.maxMemType42 = post.minMemType1 = post.maxMemType1 = 0
    if with_names:
        post.glyphOrder = list(glyph_names)
        post.extraNames, post.mapping = [], {}
    return post
