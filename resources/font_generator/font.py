"""Puts a font together, in each of the formats.

OTF has the drawing's cubic curves in a CFF table. TTF has quadratic ones in a glyf table, and
so have WOFF and WOFF2: browsers rasterize unhinted quadratic outlines evenly on every system,
and WOFF2 has a form of its own for points and side bearings that compresses better.
"""

from collections import Counter
from functools import partial
from io import BytesIO

from fontTools.fontBuilder import FontBuilder, buildCmapSubTable
from fontTools.otlLib.maxContextCalc import maxCtxFont
from fontTools.ttLib import TTFont, newTable
from fontTools.ttLib.tables.O_S_2f_2 import intersectUnicodeRanges
from fontTools.ttLib.tables.ttProgram import Program
from fontTools.ttLib.woff2 import WOFF2FlavorData

from .code_pages import code_page_bits
from .document import Document
from .errors import GeneratorError
from .glyph_set import FontGlyph, build_glyph_set
from .layout import add_layout
from .naming import Naming, name_records, parse_naming
from .outlines import UnfitOutline
from .shapes import Shape, cubic_shape, quadratic_shape
from .slant import slant_angle
from .tables import Measures, checked_units_per_em, head_values, hhea_values, measure, os2_values, post_values

FORMATS = ("otf", "ttf", "woff", "woff2")

# The date of fonts whose maker gives none, 1 January 2024: the same project, the same bytes.
_DATE = 1704067200
# The glyph names of a post table are counted in 15 bits, after the 258 that have fixed numbers.
_MOST_NAMED_GLYPHS = 32767 - 258


def build_font(document: Document, extension: str, quality: int,
               date: int | None) -> tuple[bytes, list[tuple[str, str]]]:
    """The font file of a description, and warnings as (glyph, message).

    `extension` is one of FORMATS, `quality` that of brotli for woff2, `date` in seconds since
    1970. Raises GeneratorError for what a font can't hold.
    """
    em = checked_units_per_em(document)
    glyphs = build_glyph_set(document)
    names = [glyph.name for glyph in glyphs.glyphs]
    advances = [glyph.advance for glyph in glyphs.glyphs]
    naming = parse_naming(document.name, document.version)
    cubic = extension == "otf"
    widths = _Widths(advances)
    shapes = [_shape(glyph, em, widths if cubic else None) for glyph in glyphs.glyphs]
    slant = slant_angle(document.glyphs, em) if naming.slope else 0.0
    measures = measure(document, slant, advances, [shape.box for shape in shapes])

    builder = FontBuilder(em, isTTF=not cubic)
    font = builder.font
    font.recalcBBoxes = False  # the boxes are those of the drawings
    builder.setupHead(**head_values(measures, naming, _DATE if date is None else date))
    builder.setupGlyphOrder(names)
    if cubic:
        builder.setupCFF(naming.postscript, _cff_values(measures, naming),
                         {name: shape.stored for name, shape in zip(names, shapes)}, widths.values())
    else:
        builder.setupGlyf({name: shape.stored for name, shape in zip(names, shapes)}, calcGlyphBounds=False)
    characters = glyphs.characters
    builder.setupCharacterMap(
        {scalar: names[glyph] for scalar, glyph in characters.scalars.items()}, allowFallback=True,
        uvs=[(*pair, names[glyph]) for pair, glyph in characters.variants.items()] or None)
    if every := font["cmap"].getcmap(3, 10):  # for all planes, and so far for Windows only
        font["cmap"].tables.append(buildCmapSubTable(every.cmap, 12, 0, 4))
    builder.setupHorizontalMetrics(
        {name: (glyph.advance, shape.box[0] if shape.box else 0)
         for name, glyph, shape in zip(names, glyphs.glyphs, shapes)})
    if not cubic:
        _setup_unhinted(font)
    builder.setupHorizontalHeader(**hhea_values(measures))
    builder.setupNameTable(name_records(document, naming), mac=False)
    builder.setupPost(keepGlyphNames=not cubic and len(names) <= _MOST_NAMED_GLYPHS, **post_values(measures))
    add_layout(font, document, glyphs)
    builder.setupOS2(**os2_values(measures, naming))
    os2 = font["OS/2"]
    os2.setUnicodeRanges(intersectUnicodeRanges(characters.drawn))
    os2.ulCodePageRange1 = code_page_bits(characters.drawn)
    if measures.is_fixed_pitch:
        os2.panose = os2.panose | {"bFamilyType": 2, "bProportion": 9}  # Latin text, monospaced
    os2.usMaxContext = max(maxCtxFont(font), 1)
    return _packed(font, extension, quality), glyphs.warnings


def _shape(glyph: FontGlyph, units_per_em: int, widths: "_Widths | None") -> Shape:
    try:
        if widths:
            return cubic_shape(glyph.source.outline, widths.number_for(glyph.advance))
        return quadratic_shape(glyph.source.outline, units_per_em)
    except UnfitOutline as fault:
        raise GeneratorError(f"The drawing of {glyph.source.label} {fault}.") from fault


class _Widths:
    """Advances in a CFF table: the commonest is left out, others count from the nominal one."""

    def __init__(self, advances: list[int]) -> None:
        counts = Counter(advances)
        self._default = max(counts, key=lambda advance: (counts[advance], -advance))
        # A width has 16 bits with a sign, and advances go up to 65,535.
        self._nominal = 32768 if max(advances) > 32767 else self._default

    def number_for(self, advance: int) -> int | None:
        return None if advance == self._default else advance - self._nominal

    def values(self) -> dict[str, int]:
        return {"defaultWidthX": self._default, "nominalWidthX": self._nominal}


def _cff_values(measures: Measures, naming: Naming) -> dict[str, object]:
    names = {"version": f"{naming.revision:.3f}", "FullName": naming.full, "FamilyName": naming.family}
    # The strings of this table have ASCII characters only.
    return {key: text for key, text in names.items() if text.isascii()} | {
        "isFixedPitch": measures.is_fixed_pitch, "FontBBox": list(measures.box), "ItalicAngle": -measures.slant}


def _setup_unhinted(font: TTFont) -> None:
    """The tables that go with outlines without hints."""
    font["maxp"].recalc(font)
    font["maxp"].maxStackElements = 1  # of the instructions below
    # Smooth in both directions at every size, and dropout control, which keeps strokes that are
    # thinner than a pixel from falling apart.
    font["gasp"] = newTable("gasp")
    font["gasp"].version, font["gasp"].gaspRange = 1, {0xFFFF: 0x000F}
    font["prep"] = newTable("prep")
    font["prep"].program = Program()
    font["prep"].program.fromAssembly(["PUSHW[ ]", "511", "SCANCTRL[ ]", "PUSHB[ ]", "4", "SCANTYPE[ ]"])


def _packed(font: TTFont, extension: str, quality: int) -> bytes:
    file = BytesIO()
    if extension == "woff2":
        try:
            import brotli
        except ImportError as error:
            raise GeneratorError("WOFF2 fonts need the Python package brotli, which is missing.") from error
        # fontTools asks for brotli's best and knows no other wish.
        brotli.compress = partial(brotli.compress, quality=quality)
        font.flavorData = WOFF2FlavorData(transformedTables={"glyf", "loca", "hmtx"})
    if extension.startswith("woff"):
        font.flavor = extension
    font.save(file)
    return file.getvalue()
