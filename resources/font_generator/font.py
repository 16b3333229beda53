"""Puts a font together. OTF has the drawing's cubic curves in a CFF table, TTF quadratic ones in a glyf table, and
so have WOFF and WOFF2: browsers rasterize unhinted quadratic outlines evenly on every system."""

from collections import Counter
from collections.abc import Iterable
from functools import partial
from io import BytesIO
from math import atan2, degrees, radians, tan
from typing import Any

from fontTools.fontBuilder import FontBuilder, buildCmapSubTable
from fontTools.misc.roundTools import otRound
from fontTools.misc.timeTools import epoch_diff
from fontTools.otlLib.maxContextCalc import maxCtxFont
from fontTools.ttLib import TTFont, newTable
from fontTools.ttLib.tables.O_S_2f_2 import intersectUnicodeRanges
from fontTools.ttLib.tables.ttProgram import Program
from fontTools.ttLib.woff2 import WOFF2FlavorData

from .characters import code_page_bits
from .command import GeneratorError, Warnings, plain
from .document import Document, Glyph
from .glyph_set import GlyphSet, build_glyph_set
from .layout import add_layout
from .naming import Naming, name_records, parse_naming
from .shapes import Box, cubic_shape, quadratic_shape

FORMATS = ("otf", "ttf", "woff", "woff2")
_LEAST_EM, _GREATEST_EM = 16, 16384
_MOST_NAMED_GLYPHS = 32767 - 258  # those of a post table are counted in 15 bits, after 258 of fixed numbers
_LEAST_STEM_IN_EMS, _STEEPEST = 0.25, 40.0  # shorter pieces are serifs and joins, and steeper slants no italics
# Bits of fsSelection.
_ITALIC, _BOLD, _REGULAR, _USE_TYPO_METRICS, _OBLIQUE = 1 << 0, 1 << 5, 1 << 6, 1 << 7, 1 << 9


def build_font(document: Document, extension: str, quality: int, date: int) -> tuple[bytes, Warnings]:
    """The font file of a description, and its warnings; raises GeneratorError. `extension` is one of FORMATS,
    `quality` that of brotli for woff2, `date` in seconds since 1970."""
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
    values = _table_values(document, em, glyphs, boxes, naming)
    builder = FontBuilder(em, isTTF=not is_cubic)
    font = builder.font
    font.recalcBBoxes = False  # the boxes are those of the drawings
    builder.setupGlyphOrder(names)
    builder.setupHead(unitsPerEm=em, created=date - epoch_diff, modified=date - epoch_diff, **values["head"])
    builder.setupHorizontalHeader(**values["hhea"])
    builder.setupHorizontalMetrics({glyph.name: (glyph.advance, box[0] if box else 0)
                                    for glyph, box in zip(glyphs.glyphs, boxes)})
    if is_cubic:
        builder.setupCFF(naming.postscript, values["CFF "], stored, dict(defaultWidthX=default, nominalWidthX=nominal))
    else:
        builder.setupGlyf(stored, calcGlyphBounds=False)
        font["maxp"].recalc(font)
        font["maxp"].maxStackElements = 1  # of the instructions below
        # Smooth in both directions at every size, and dropout control, which keeps strokes that are thinner than
        # a pixel from falling apart.
        font["gasp"], font["prep"] = newTable("gasp"), newTable("prep")
        font["gasp"].version, font["gasp"].gaspRange = 1, {0xFFFF: 0x000F}
        font["prep"].program = Program()
        font["prep"].program.fromAssembly(["PUSHW[ ]", "511", "SCANCTRL[ ]", "PUSHB[ ]", "4", "SCANTYPE[ ]"])
    builder.setupCharacterMap({scalar: names[glyph] for scalar, glyph in characters.scalars.items()},
                              [(*pair, names[glyph]) for pair, glyph in characters.variants.items()] or None, True)
    if every := font["cmap"].getcmap(3, 10):  # of all planes, which is there for Windows only so far
        font["cmap"].tables.append(buildCmapSubTable(every.cmap, 12, 0, 4))
    builder.setupNameTable(name_records(document, naming), mac=False)
    builder.setupPost(keepGlyphNames=not is_cubic and len(names) <= _MOST_NAMED_GLYPHS, **values["post"])
    add_layout(font, document, glyphs)
    builder.setupOS2(**values["OS/2"])
    os2 = font["OS/2"]
    os2.setUnicodeRanges(intersectUnicodeRanges(characters.drawn))
    os2.ulCodePageRange1 = code_page_bits(characters.drawn)
    os2.usMaxContext = max(maxCtxFont(font), 1)
    if values["post"]["isFixedPitch"]:
        os2.panose = os2.panose | {"bFamilyType": 2, "bProportion": 9}  # Latin text, monospaced
    return _packed(font, extension, quality), glyphs.warnings


def checked_units_per_em(document: Document) -> int:
    """The units per em; raises GeneratorError if a font can't have them."""
    em = document.units_per_em
    if em != int(em) or not _LEAST_EM <= em <= _GREATEST_EM:
        raise GeneratorError(f"The project has {plain(em)} units per em, and a font has a whole "
                             f"number of them from {_LEAST_EM} to {_GREATEST_EM}.")
    return int(em)


def _table_values(document: Document, em: int, glyphs: GlyphSet, boxes: list[Box],
                  naming: Naming) -> dict[str, dict[str, Any]]:
    """What the tables of measures say, as far as it does not follow from other tables."""
    vertical = {"ascender": document.ascender, "descender": document.descender,
                "cap height": document.cap_height, "x-height": document.x_height}
    for name, value in vertical.items():
        if not -32768.5 <= value < 32767.5:
            raise GeneratorError(f"The {name} of the project is {plain(value)}, and a font holds -32768 to 32767.")
    ascender, descender, cap_height, x_height = map(otRound, vertical.values())
    widths = [glyph.advance for glyph in glyphs.glyphs if glyph.advance] or [0]
    # All glyphs that advance at all advance alike, the one for missing ones aside.
    others = [glyph.advance for glyph in glyphs.glyphs[1:] if glyph.advance]
    is_fixed_pitch = len(others) > 1 and min(others) == max(others)
    bearings = [glyph.advance - box[2] for glyph, box in zip(glyphs.glyphs, boxes) if box]
    edges = list(zip(*filter(None, boxes))) or [(0,)] * 4
    box = min(edges[0]), min(edges[1]), max(edges[2]), max(edges[3])
    slant = _slant_angle(document.glyphs, em) if naming.slope else 0  # to the right; tables count to the left
    style = _BOLD * (naming.weight == 700) | _ITALIC * bool(naming.slope) | _OBLIQUE * (naming.slope == "Oblique")
    names = {"version": f"{naming.revision:.3f}", "FullName": naming.full, "FamilyName": naming.family}
    return {
        "head": dict(zip(("xMin", "yMin", "xMax", "yMax"), box)) | {
            "fontRevision": naming.revision, "macStyle": (naming.weight == 700) | bool(naming.slope) << 1,
            "flags": 0b1011, "lowestRecPPEM": 6},  # baseline at y 0, side bearings at xMin, whole pixels per em
        "hhea": {
            "ascent": ascender, "descent": descender, "advanceWidthMax": max(widths), "xMaxExtent": box[2],
            "minLeftSideBearing": box[0], "minRightSideBearing": min([*bearings, 32767]) if bearings else 0,
            "caretSlopeRise": em if slant else 1, "caretSlopeRun": otRound(em * tan(radians(slant)))},
        "CFF ": {key: text for key, text in names.items() if text.isascii()} | {
            "isFixedPitch": is_fixed_pitch, "FontBBox": list(box), "ItalicAngle": -slant},
        "post": {"italicAngle": -slant, "isFixedPitch": int(is_fixed_pitch), "underlinePosition": -otRound(em * 0.1),
                 "underlineThickness": max(otRound(em * 0.05), 1)},
        "OS/2": {
            "version": 4, "usWeightClass": naming.weight, "usWidthClass": naming.width, "fsType": 0, "achVendID": " " * 4,
            "fsSelection": _USE_TYPO_METRICS | (style or _REGULAR), "sxHeight": x_height, "sCapHeight": cap_height,
            "xAvgCharWidth": min(otRound(sum(widths) / len(widths)), 32767),
            "ySubscriptXSize": otRound(em * 0.65), "ySuperscriptXSize": otRound(em * 0.65),
            "ySubscriptYSize": otRound(em * 0.6), "ySuperscriptYSize": otRound(em * 0.6),
            "ySubscriptYOffset": otRound(em * 0.075), "ySuperscriptYOffset": otRound(em * 0.35),
            "yStrikeoutSize": max(otRound(em * 0.05), 1),
            "yStrikeoutPosition": otRound(x_height * 0.6 if x_height > 0 else em * 0.3),
            "sTypoAscender": ascender, "sTypoDescender": descender, "sTypoLineGap": 0,
            "usWinAscent": max(ascender, box[3], 0), "usWinDescent": max(-descender, -box[1], 0)}}


def _slant_angle(glyphs: Iterable[Glyph], units_per_em: int) -> float:
    """The angle of the stems in degrees from upright, positive to the right, to half a degree: the mean of all
    straight sides that can be one of a stem, each as heavy as it is high; 0 without any."""
    total = height = 0.0
    for contour in (contour for glyph in glyphs if glyph.text in tuple("HIlhi|") for contour in glyph.outline.contours):
        for before, segment in zip(contour[-1:] + contour, contour):
            across, up = segment[-2] - before[-2], segment[-1] - before[-1]
            angle = degrees(atan2(across if up > 0 else -across, abs(up)))
            if len(segment) == 2 and abs(up) >= _LEAST_STEM_IN_EMS * units_per_em and abs(angle) <= _STEEPEST:
                total += angle * abs(up)
                height += abs(up)
    return height and round(total / height * 2) / 2 or 0


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
