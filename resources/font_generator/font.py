"""Puts a font together, in each of the formats.

OTF has the drawing's cubic curves in a CFF table. TTF has quadratic ones in a glyf table, and so have WOFF and
WOFF2: browsers rasterize unhinted quadratic outlines evenly on every system, and WOFF2 has a form of its own
for points and side bearings that compresses better.
"""

from collections import Counter
from functools import partial
from io import BytesIO
from math import radians, tan

from fontTools.fontBuilder import FontBuilder, buildCmapSubTable
from fontTools.misc.roundTools import otRound
from fontTools.misc.timeTools import epoch_diff
from fontTools.otlLib.maxContextCalc import maxCtxFont
from fontTools.ttLib import TTFont, newTable
from fontTools.ttLib.tables.O_S_2f_2 import intersectUnicodeRanges
from fontTools.ttLib.tables.ttProgram import Program
from fontTools.ttLib.woff2 import WOFF2FlavorData

from .classification import code_page_bits, slant_angle
from .command import GeneratorError, Warnings, plain
from .document import Document
from .glyph_set import GlyphSet, build_glyph_set
from .layout import add_layout
from .naming import Naming, name_records, parse_naming
from .shapes import Box, cubic_shape, quadratic_shape

FORMATS = ("otf", "ttf", "woff", "woff2")

_LEAST_EM, _GREATEST_EM = 16, 16384
# The glyph names of a post table are counted in 15 bits, after the 258 that have fixed numbers.
_MOST_NAMED_GLYPHS = 32767 - 258
# Bits of fsSelection.
_ITALIC, _BOLD, _REGULAR, _USE_TYPO_METRICS, _OBLIQUE = 1 << 0, 1 << 5, 1 << 6, 1 << 7, 1 << 9


def build_font(document: Document, extension: str, quality: int, date: int) -> tuple[bytes, Warnings]:
    """The font file of a description, and its warnings.

    `extension` is one of FORMATS, `quality` that of brotli for woff2, `date` in seconds since 1970. Raises
    GeneratorError for what a font can't hold.
    """
    em = checked_units_per_em(document)
    glyphs = build_glyph_set(document)
    characters, names = glyphs.characters, [glyph.name for glyph in glyphs.glyphs]
    naming = parse_naming(document.name, document.version)
    is_cubic = extension == "otf"
    # The commonest advance goes without saying; widths have 16 bits with a sign, and advances go up to 65,535.
    advances = Counter(glyph.advance for glyph in glyphs.glyphs)
    default = max(advances, key=lambda advance: (advances[advance], -advance))
    nominal = 32768 if max(advances) > 32767 else default
    stored, boxes = {}, []
    for name, (_, _, advance, source) in zip(names, glyphs.glyphs):
        stored[name], box = (cubic_shape(source, None if advance == default else advance - nominal) if is_cubic
                             else quadratic_shape(source, em))
        boxes.append(box)
    measures = _Measures(document, em, glyphs, boxes, naming)

    builder = FontBuilder(em, isTTF=not is_cubic)
    font = builder.font
    font.recalcBBoxes = False  # the boxes are those of the drawings
    builder.setupGlyphOrder(names)
    builder.setupHead(**measures.head(date - epoch_diff))
    builder.setupHorizontalHeader(**measures.hhea())
    builder.setupHorizontalMetrics({glyph.name: (glyph.advance, box[0] if box else 0)
                                    for glyph, box in zip(glyphs.glyphs, boxes)})
    if is_cubic:
        builder.setupCFF(naming.postscript, measures.cff(), stored, {"defaultWidthX": default, "nominalWidthX": nominal})
    else:
        builder.setupGlyf(stored, calcGlyphBounds=False)
        _setup_unhinted(font)
    builder.setupCharacterMap({scalar: names[glyph] for scalar, glyph in characters.scalars.items()}, allowFallback=True,
                              uvs=[(*pair, names[glyph]) for pair, glyph in characters.variants.items()] or None)
    if every := font["cmap"].getcmap(3, 10):  # of all planes, which is there for Windows only so far
        font["cmap"].tables.append(buildCmapSubTable(every.cmap, 12, 0, 4))
    builder.setupNameTable(name_records(document, naming), mac=False)
    builder.setupPost(keepGlyphNames=not is_cubic and len(names) <= _MOST_NAMED_GLYPHS, **measures.post())
    add_layout(font, document, glyphs)
    builder.setupOS2(**measures.os2())
    os2 = font["OS/2"]
    os2.setUnicodeRanges(intersectUnicodeRanges(characters.drawn))
    os2.ulCodePageRange1 = code_page_bits(characters.drawn)
    os2.usMaxContext = max(maxCtxFont(font), 1)
    if measures.is_fixed_pitch:
        os2.panose = os2.panose | {"bFamilyType": 2, "bProportion": 9}  # Latin text, monospaced
    return _packed(font, extension, quality), glyphs.warnings


def checked_units_per_em(document: Document) -> int:
    """The units per em; raises GeneratorError if a font can't have them."""
    em = document.units_per_em
    if em != int(em) or not _LEAST_EM <= em <= _GREATEST_EM:
        raise GeneratorError(f"The project has {plain(em)} units per em, and a font has a whole "
                             f"number of them from {_LEAST_EM} to {_GREATEST_EM}.")
    return int(em)


class _Measures:
    """The values of the tables of measures. The slant is in degrees to the right, tables count to the left."""

    def __init__(self, document: Document, em: int, glyphs: GlyphSet, boxes: list[Box], naming: Naming) -> None:
        vertical = {"ascender": document.ascender, "descender": document.descender,
                    "cap height": document.cap_height, "x-height": document.x_height}
        for name, value in vertical.items():
            if not -32768.5 <= value < 32767.5:
                raise GeneratorError(f"The {name} of the project is {plain(value)}, and a font holds -32768 to 32767.")
        self.ascender, self.descender, self.cap_height, self.x_height = map(otRound, vertical.values())
        self.em, self.naming = em, naming
        self.slant = slant_angle(document.glyphs, em) if naming.slope else 0
        self.widths = [glyph.advance for glyph in glyphs.glyphs if glyph.advance] or [0]
        # All glyphs that advance at all advance alike, the one for missing ones aside.
        others = [glyph.advance for glyph in glyphs.glyphs[1:] if glyph.advance]
        self.is_fixed_pitch = len(others) > 1 and min(others) == max(others)
        self.bearings = [glyph.advance - box[2] for glyph, box in zip(glyphs.glyphs, boxes) if box]
        edges = list(zip(*filter(None, boxes))) or [(0,)] * 4
        self.box = min(edges[0]), min(edges[1]), max(edges[2]), max(edges[3])

    def head(self, date: int) -> dict[str, object]:
        return dict(zip(("xMin", "yMin", "xMax", "yMax"), self.box)) | {
            "unitsPerEm": self.em, "fontRevision": self.naming.revision, "created": date, "modified": date, "lowestRecPPEM": 6,
            "flags": 0b1011,  # baseline at y 0, side bearings at xMin, whole pixels per em
            "macStyle": (self.naming.weight == 700) | bool(self.naming.slope) << 1}

    def hhea(self) -> dict[str, object]:
        return {"ascent": self.ascender, "descent": self.descender, "lineGap": 0, "advanceWidthMax": max(self.widths),
                "minLeftSideBearing": self.box[0], "minRightSideBearing": min(*self.bearings, 32767) if self.bearings else 0,
                "xMaxExtent": self.box[2], "caretSlopeRise": self.em if self.slant else 1,
                "caretSlopeRun": otRound(self.em * tan(radians(self.slant)))}

    def cff(self) -> dict[str, object]:
        names = {"version": f"{self.naming.revision:.3f}", "FullName": self.naming.full, "FamilyName": self.naming.family}
        # The strings of this table have ASCII characters only.
        return {key: text for key, text in names.items() if text.isascii()} | {
            "isFixedPitch": self.is_fixed_pitch, "FontBBox": list(self.box), "ItalicAngle": -self.slant}

    def os2(self) -> dict[str, object]:
        """What does not follow from the font's characters."""
        em, naming = self.em, self.naming
        style = (_BOLD if naming.weight == 700 else 0) | (_ITALIC if naming.slope else 0)
        style |= _OBLIQUE if naming.slope == "Oblique" else 0
        return {
            "version": 4, "usWeightClass": naming.weight, "usWidthClass": naming.width, "fsType": 0,
            "achVendID": "    ", "fsSelection": _USE_TYPO_METRICS | (style or _REGULAR),
            "xAvgCharWidth": min(otRound(sum(self.widths) / len(self.widths)), 32767),
            "ySubscriptXSize": otRound(em * 0.65), "ySuperscriptXSize": otRound(em * 0.65),
            "ySubscriptYSize": otRound(em * 0.6), "ySuperscriptYSize": otRound(em * 0.6),
            "ySubscriptYOffset": otRound(em * 0.075), "ySuperscriptYOffset": otRound(em * 0.35),
            "yStrikeoutSize": max(otRound(em * 0.05), 1),
            "yStrikeoutPosition": otRound(self.x_height * 0.6 if self.x_height > 0 else em * 0.3),
            "sTypoAscender": self.ascender, "sTypoDescender": self.descender, "sTypoLineGap": 0,
            "usWinAscent": max(self.ascender, self.box[3], 0), "usWinDescent": max(-self.descender, -self.box[1], 0),
            "sxHeight": self.x_height, "sCapHeight": self.cap_height}

    def post(self) -> dict[str, object]:
        return {"italicAngle": -self.slant, "isFixedPitch": int(self.is_fixed_pitch),
                "underlinePosition": -otRound(self.em * 0.1),
                "underlineThickness": max(otRound(self.em * 0.05), 1)}


def _setup_unhinted(font: TTFont) -> None:
    """The tables that go with outlines without hints."""
    font["maxp"].recalc(font)
    font["maxp"].maxStackElements = 1  # of the instructions below
    # Smooth in both directions at every size, and dropout control, which keeps strokes that are
    # thinner than a pixel from falling apart.
    font["gasp"], font["prep"] = newTable("gasp"), newTable("prep")
    font["gasp"].version, font["gasp"].gaspRange = 1, {0xFFFF: 0x000F}
    font["prep"].program = Program()
    font["prep"].program.fromAssembly(["PUSHW[ ]", "511", "SCANCTRL[ ]", "PUSHB[ ]", "4", "SCANTYPE[ ]"])


def _packed(font: TTFont, extension: str, quality: int) -> bytes:
    if extension == "woff2":
        try:
            import brotli
        except ImportError as error:
            raise GeneratorError("WOFF2 fonts need the Python package brotli, which is missing.") from error
        # fontTools asks for brotli's best and knows no other wish.
        brotli.compress = partial(brotli.compress, quality=quality)
        font.flavorData = WOFF2FlavorData(transformedTables={"glyf", "loca", "hmtx"})
    font.flavor = extension if extension.startswith("woff") else None
    file = BytesIO()
    font.save(file)
    return file.getvalue()
