"""The GDEF table: which glyphs are bases, ligatures and marks to whoever sets text."""

from collections.abc import Mapping, Sequence
from struct import pack
from unicodedata import category

from .characters import CharacterMap
from .layout import encode_class_definition

_BASE, _LIGATURE, _MARK = 1, 2, 3


def encode_glyph_classes(characters: CharacterMap, sequences: Mapping[tuple[int, ...], int],
                         advances: Sequence[int]) -> bytes | None:
    """The GDEF table of a font in which a combining mark has an advance; None for other fonts.

    Text engines set combining marks without any advance, as Unicode has them, unless a font says
    what its glyphs are. A preview of the project advances by what a mark was given, and so does
    the font when the mark counts as a base. Marks without advance stay marks.
    """
    marks = {glyph for scalar, glyph in characters.scalars.items() if category(chr(scalar)) == "Mn"}
    if not any(advances[glyph] for glyph in marks):
        return None
    classes = dict.fromkeys(characters.scalars.values(), _BASE)
    classes |= dict.fromkeys(sequences.values(), _LIGATURE)
    classes |= {glyph: _BASE if advances[glyph] else _MARK for glyph in marks}
    return pack(">HHHHHH", 1, 0, 12, 0, 0, 0) + encode_class_definition(classes)
