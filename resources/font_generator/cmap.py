"""The cmap table: which glyph a character maps to."""

import struct
from collections.abc import Mapping, Sequence
from typing import Any

from fontTools.ttLib import newTable
from fontTools.ttLib.tables._c_m_a_p import CmapSubtable

from .characters import CharacterMap

_UNICODE, _WINDOWS = 0, 3
# Encodings of the two platforms for characters of the basic plane, for all, and for variants.
_UNICODE_BASIC, _UNICODE_ALL, _UNICODE_VARIANTS = 3, 4, 5
_WINDOWS_BASIC, _WINDOWS_ALL = 1, 10
_LAST_OF_BASIC_PLANE = 0xFFFF


def build_cmap(characters: CharacterMap, names: Sequence[str]) -> Any:
    """The cmap table: format 4 for the basic plane, format 12 for all characters where there
    are others or format 4 has no room, and format 14 for variation selectors."""
    every = {scalar: names[glyph] for scalar, glyph in sorted(characters.scalars.items())}
    basic = {scalar: name for scalar, name in every.items() if scalar <= _LAST_OF_BASIC_PLANE}
    table = newTable("cmap")
    table.tableVersion = 0
    table.tables = []
    fits = _fits_format_4(basic, names)
    if fits:
        table.tables += [_subtable(4, _UNICODE, _UNICODE_BASIC, basic),
                         _subtable(4, _WINDOWS, _WINDOWS_BASIC, basic)]
    if len(every) > len(basic) or not fits:
        table.tables += [_subtable(12, _UNICODE, _UNICODE_ALL, every),
                         _subtable(12, _WINDOWS, _WINDOWS_ALL, every)]
    if characters.variants:
        variants = _subtable(14, _UNICODE, _UNICODE_VARIANTS, {})
        variants.uvsDict = {}
        for (scalar, selector), glyph in sorted(characters.variants.items()):
            variants.uvsDict.setdefault(selector, []).append((scalar, names[glyph]))
        table.tables.append(variants)
    return table


def _subtable(form: int, platform: int, encoding: int, characters: Mapping[int, str]) -> Any:
    subtable = CmapSubtable.newSubtable(form)
    subtable.platformID, subtable.platEncID, subtable.language = platform, encoding, 0
    subtable.cmap = characters
    return subtable


def _fits_format_4(characters: Mapping[int, str], names: Sequence[str]) -> bool:
    """Whether the table of the characters stays within the 16 bits of its length.

    A run of neighbouring characters takes 8 bytes, and another 2 for each of its characters
    where their glyphs are not neighbours as well.
    """
    runs = sum(scalar - 1 not in characters for scalar in characters)
    if 24 + 8 * runs + 2 * len(characters) <= 0xFFFF:
        return True

    class _Order:
        def getReverseGlyphMap(self, rebuild: bool = False) -> dict[str, int]:
            return {name: index for index, name in enumerate(names)}

    try:
        _subtable(4, _UNICODE, _UNICODE_BASIC, characters).compile(_Order())
    except (struct.error, OverflowError):
        return False
    return True
