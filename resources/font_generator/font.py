"""Puts a font together, in each of the formats.

OTF has the drawing's cubic curves in a CFF table. TTF has quadratic ones in a glyf table, and
so have WOFF and WOFF2: browsers rasterize unhinted quadratic outlines evenly on every system,
and WOFF2 has a form of its own for points and side bearings that compresses better.
"""

from io import BytesIO
from typing import Any

from fontTools.ttLib import TTFont
from fontTools.ttLib.sfnt import SFNTWriter
from fontTools.ttLib.tables.DefaultTable import DefaultTable

from .characters import scripts_of
from .cmap import build_cmap
from .document import Document
from .formats import encoder_for
from .glyph_set import GlyphSet, build_glyph_set
from .gdef import encode_glyph_classes
from .gpos import EXTENSION_POSITIONING, PAIR_ADJUSTMENT, encode_kerning
from .gsub import encode_sequences
from .kerning import resolve_kerning
from .layout import encode_layout
from .metrics import (build_head, build_hhea, build_os2, build_post, checked_units_per_em,
                      encode_hmtx, measure)
from .naming import build_name_table, parse_naming
from .slant import slant_angle

# The date of fonts whose maker gives none, 1 January 2024: the same project, the same bytes.
_DATE = 1704067200
# The glyph names of a post table are counted in 15 bits, after the 258 that have fixed numbers.
_MOST_NAMED_GLYPHS = 32767 - 258


def build_font(document: Document, extension: str, quality: int,
               date: int | None) -> tuple[bytes, list[tuple[str, str]]]:
    """The font file of a description, and warnings as (glyph, message).

    The description has been read with the encoder for `extension`, which is one of FORMATS;
    `quality` is that of brotli for woff2, `date` in seconds since 1970. Raises GeneratorError
    for what a font can't hold.
    """
    encode = encoder_for(extension)(checked_units_per_em(document))
    glyphs = build_glyph_set(document, encode)
    names = [glyph.name for glyph in glyphs.glyphs]
    naming = parse_naming(document.name, document.version)
    if extension == "otf":
        from .cff import CffOutlines
        outlines = CffOutlines(glyphs.glyphs)
    else:
        from .truetype import TrueTypeOutlines
        outlines = TrueTypeOutlines(glyphs.glyphs)
    measures = measure(document, glyphs, outlines.boxes)
    stems = (glyph.drawing for glyph in document.glyphs if glyph.drawing)
    slant = slant_angle(stems, measures.units_per_em) if naming.slope else 0.0
    layout = _layout(document, glyphs)
    context = max([1, *map(len, glyphs.characters.sequences), 2 if "GPOS" in layout else 1])
    name_glyphs = extension != "otf" and len(names) <= _MOST_NAMED_GLYPHS
    tables = outlines.tables(names, measures, naming, slant) | layout | {
        "head": build_head(measures, naming, _DATE if date is None else date, outlines.long_offsets),
        "hhea": build_hhea(measures, slant),
        "hmtx": encode_hmtx(measures),
        "OS/2": build_os2(measures, naming, glyphs, context),
        "post": build_post(measures, slant, names, name_glyphs),
        "name": build_name_table(document, naming),
        "cmap": build_cmap(glyphs.characters, names),
    }
    compiled = _compile(tables, names)
    if extension == "woff2":
        from .woff2 import encode_woff2
        return encode_woff2(compiled, outlines.shapes, quality), glyphs.warnings
    return _pack(compiled, outlines.sfnt_version, extension), glyphs.warnings


def _layout(document: Document, glyphs: GlyphSet) -> dict[str, bytes]:
    """The GPOS, GSUB and GDEF tables, as far as there is anything to put in them."""
    kerning = resolve_kerning(document.pairs, glyphs.glyphs)
    characters = glyphs.characters
    sequences = {tuple(characters.scalars[scalar] for scalar in scalars): glyph
                 for scalars, glyph in characters.sequences.items()}
    classes = encode_glyph_classes(characters, sequences, [glyph.advance for glyph in glyphs.glyphs])
    scripts = scripts_of(characters.drawn) if kerning.rows or sequences or classes else []
    positions = encode_kerning(kerning, scripts)
    if classes and not positions:
        # Without such a table, text engines place marks by their own lights and drop advances.
        positions = encode_layout(scripts, "kern", PAIR_ADJUSTMENT, EXTENSION_POSITIONING, [])
    tables = {"GPOS": positions, "GSUB": encode_sequences(sequences, scripts), "GDEF": classes}
    return {tag: data for tag, data in tables.items() if data}


def _compile(tables: dict[str, Any], names: list[str]) -> dict[str, bytes]:
    """The tables as bytes; those that are bytes already stay what they are."""
    font = TTFont(recalcBBoxes=False, recalcTimestamp=False)
    font.setGlyphOrder(names)
    for tag, table in tables.items():
        if isinstance(table, bytes):
            table, data = DefaultTable(tag), table
            table.data = data
        font[tag] = table
    return {tag: font.getTableData(tag) for tag in tables}


def _pack(tables: dict[str, bytes], sfnt_version: str, extension: str) -> bytes:
    file = BytesIO()
    writer = SFNTWriter(file, len(tables), sfnt_version, "woff" if extension == "woff" else None)
    for tag in sorted(tables):
        writer[tag] = tables[tag]
    writer.close()
    return file.getvalue()
