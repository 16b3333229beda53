"""Which characters the font maps, and to which glyphs.

Glyphs are meant by their index in a list throughout.
"""

from collections.abc import Iterable, Sequence
from dataclasses import dataclass, field
from functools import cache
from unicodedata import normalize

from fontTools.unicodedata import ot_tags_from_script, script

SPACE = 0x20
NO_BREAK_SPACE = 0xA0

# The end mark of a format 4 character map can't be a character of it.
_UNMAPPABLE = {0xFFFF}

# From the first to the last character that is canonically another one, or several others that are
# never composed.
_CANONICAL = range(0x0340, 0x2FA1E)


@dataclass(slots=True)
class CharacterMap:
    """`scalars` holds the drawn characters and what they imply, `drawn` only the former.

    `sequences` are texts of several scalars that become one glyph, `variants` those whose second
    scalar is a variation selector. `overruled` are glyphs whose text a later glyph has too, with
    that glyph; `unmapped` are glyphs whose text the font can't map.
    """

    scalars: dict[int, int] = field(default_factory=dict)
    drawn: dict[int, int] = field(default_factory=dict)
    sequences: dict[tuple[int, ...], int] = field(default_factory=dict)
    variants: dict[tuple[int, int], int] = field(default_factory=dict)
    overruled: dict[int, int] = field(default_factory=dict)
    unmapped: list[int] = field(default_factory=list)


def map_characters(texts: Sequence[str | None]) -> CharacterMap:
    """Maps the texts of glyphs, given in project order; of equal texts the last one counts."""
    result = CharacterMap()
    winners: dict[str, int] = {}
    for glyph, text in enumerate(texts):
        if text:
            if text in winners:
                result.overruled[winners[text]] = glyph
            winners[text] = glyph
    long_texts = []
    for text, glyph in winners.items():
        if len(text) > 1:
            long_texts.append((text, glyph))
        elif ord(text) in _UNMAPPABLE:
            result.unmapped.append(glyph)
        else:
            result.drawn[ord(text)] = glyph
    result.overruled = {glyph: winners[texts[glyph]] for glyph in result.overruled}
    result.scalars = dict(result.drawn)
    composed = {normalize("NFC", text): glyph for text, glyph in long_texts}
    for text, glyph in composed.items():
        for scalar in _singles(text):
            result.scalars.setdefault(scalar, glyph)
    if SPACE in result.scalars:
        result.scalars.setdefault(NO_BREAK_SPACE, result.scalars[SPACE])
    _map_equivalents(result.scalars)
    # Text engines take these apart wherever the font has glyphs for their parts.
    long_texts += [(text, result.drawn[scalar]) for text, scalars in _equivalents().items()
                   for scalar in scalars if len(text) > 1 and scalar in result.drawn]
    for text, glyph in long_texts:
        _map_long_text(text, glyph, result)
    return result


def _map_long_text(text: str, glyph: int, result: CharacterMap) -> None:
    scalars = tuple(map(ord, text))
    reached = normalize("NFC", text)
    if len(scalars) == 2 and _is_variation_selector(scalars[1]):
        result.variants[scalars] = glyph
        return
    # Text engines bring marks into canonical order before they look for sequences.
    spellings = [tuple(map(ord, spelling)) for spelling in (text, reached, normalize("NFD", text))]
    typed = [spelling for spelling in spellings
             if len(spelling) > 1 and all(scalar in result.scalars for scalar in spelling)]
    for spelling in typed:
        result.sequences.setdefault(spelling, glyph)
    if not typed and all(result.scalars[scalar] != glyph for scalar in _singles(reached)):
        result.unmapped.append(glyph)


def _singles(composed: str) -> list[int]:
    """The characters that are by themselves a text, which is given in composed form."""
    return [ord(composed)] if len(composed) == 1 else _equivalents().get(composed, [])


@cache
def _equivalents() -> dict[str, list[int]]:
    """The characters that are canonically others, by those others in composed form."""
    equivalents: dict[str, list[int]] = {}
    for scalar in _CANONICAL:
        composed = normalize("NFC", chr(scalar))
        if composed != chr(scalar):
            equivalents.setdefault(composed, []).append(scalar)
    return equivalents


def _map_equivalents(scalars: dict[int, int]) -> None:
    """Maps the free canonical equivalents of mapped characters, the Angstrom sign by Å say."""
    equivalents = _equivalents()
    for scalar in sorted(scalars):
        composed = normalize("NFC", chr(scalar))
        glyph = scalars[scalar]
        if len(composed) == 1:
            scalars.setdefault(ord(composed), glyph)
            for equivalent in equivalents.get(composed, ()):
                scalars.setdefault(equivalent, glyph)


def _is_variation_selector(scalar: int) -> bool:
    return 0xFE00 <= scalar <= 0xFE0F or 0xE0100 <= scalar <= 0xE01EF


def scripts_of(scalars: Iterable[int]) -> list[str]:
    """The OpenType script tags of the scripts that the characters belong to, sorted."""
    occurring = set(map(script, map(chr, scalars))) - {"Zyyy", "Zinh", "Zzzz"}
    return sorted({tag for code in occurring for tag in ot_tags_from_script(code)} - {"DFLT"})
