"""Which characters the font maps, and to which glyphs, meant by their index in a list."""

from collections.abc import Collection, Sequence
from functools import cache
from unicodedata import normalize

from fontTools.unicodedata import ot_tags_from_script, script

SPACE, NO_BREAK_SPACE, _UNMAPPABLE = 0x20, 0xA0, 0xFFFF  # the last is the end mark of a format 4 character map
# Bit of ulCodePageRange1 and the code page. A page counts when the font has all of its letters;
# the pages of Han characters count with those that their scripts can't do without.
_ALPHABETS = {0: "cp1252", 1: "cp1250", 2: "cp1251", 3: "cp1253", 4: "cp1254", 5: "cp1255",
              6: "cp1256", 7: "cp1257", 8: "cp1258", 16: "cp874"}
# Bit, encoding and the lead bytes of the rows that count: kana or the commonest characters.
_HAN = {17: ("shift_jis", (0x82, 0x83)), 18: ("gb2312", range(0xB0, 0xD8)),
        19: ("euc_kr", range(0xB0, 0xC9)), 20: ("big5", range(0xA4, 0xC7))}
_FIRST_KANA, _LAST_HANGUL = 0x3040, 0xD7A3


class CharacterMap:
    """Maps the texts of glyphs; of equal texts the last one counts. `scalars` holds the drawn characters and what they
    imply, `drawn` only the former. `sequences` are texts of several scalars that become one glyph, `variants` those
    whose second scalar is a variation selector. `overruled` are glyphs whose text a later glyph has too, with that
    glyph; `unmapped` are glyphs whose text the font can't map."""

    def __init__(self, texts: Sequence[str | None]) -> None:
        self.sequences, self.variants = {}, {}
        winners = {text: glyph for glyph, text in enumerate(texts) if text}
        self.overruled = {glyph: winners[text] for glyph, text in enumerate(texts) if text and winners[text] != glyph}
        self.drawn = {ord(text): glyph for text, glyph in winners.items() if len(text) == 1}
        self.unmapped = [self.drawn.pop(_UNMAPPABLE)] if _UNMAPPABLE in self.drawn else []
        long_texts = [(text, glyph) for text, glyph in winners.items() if len(text) > 1]
        self.scalars = dict(self.drawn)
        for text, glyph in {normalize("NFC", text): glyph for text, glyph in long_texts}.items():
            for scalar in _singles(text):
                self.scalars.setdefault(scalar, glyph)
        if SPACE in self.scalars:
            self.scalars.setdefault(NO_BREAK_SPACE, self.scalars[SPACE])
        # Characters imply those that are canonically the same, Å the Angstrom sign say.
        for scalar in sorted(self.scalars):
            composed = normalize("NFC", chr(scalar))
            if len(composed) == 1:
                for same in (ord(composed), *_equivalents().get(composed, ())):
                    self.scalars.setdefault(same, self.scalars[scalar])
        # Text engines take these apart wherever the font has glyphs for their parts.
        long_texts += [(text, self.drawn[scalar]) for text, scalars in _equivalents().items()
                       for scalar in scalars if len(text) > 1 and scalar in self.drawn]
        for text, glyph in long_texts:
            self._map_long_text(text, glyph)

    def _map_long_text(self, text: str, glyph: int) -> None:
        if len(text) == 2 and ("\ufe00" <= text[1] <= "\ufe0f" or "\U000e0100" <= text[1] <= "\U000e01ef"):
            self.variants[ord(text[0]), ord(text[1])] = glyph
            return
        # Text engines bring marks into canonical order before they look for sequences.
        spellings = [text, normalize("NFC", text), normalize("NFD", text)]
        typed = [scalars for scalars in (tuple(map(ord, spelling)) for spelling in spellings)
                 if len(scalars) > 1 and self.scalars.keys() >= set(scalars)]
        for scalars in typed:
            self.sequences.setdefault(scalars, glyph)
        if not typed and all(self.scalars[scalar] != glyph for scalar in _singles(spellings[1])):
            self.unmapped.append(glyph)


def _singles(composed: str) -> list[int]:  # that are by themselves the text
    return [ord(composed)] if len(composed) == 1 else _equivalents().get(composed, [])


@cache
def _equivalents() -> dict[str, list[int]]:
    """The characters that are canonically another one, or several that are never composed, by those."""
    equivalents: dict[str, list[int]] = {}
    for scalar in range(0x0340, 0x2FA1E):  # from the first to the last one
        composed = normalize("NFC", chr(scalar))
        if composed != chr(scalar):
            equivalents.setdefault(composed, []).append(scalar)
    return equivalents


def scripts_of(scalars: Collection[int]) -> list[str]:
    occurring = set(map(script, map(chr, scalars))) - {"Zyyy", "Zinh", "Zzzz"}
    return sorted({tag for code in occurring for tag in ot_tags_from_script(code)} - {"DFLT"})


def code_page_bits(characters: Collection[int]) -> int:
    """The field ulCodePageRange1. A font without any page is hidden or replaced by some programs: Latin 1 then."""
    has = set(characters)
    bits = sum(1 << bit for bit, page in _ALPHABETS.items() if has >= _letters(page, *map(bytes, zip(range(128, 256)))))
    if any(_FIRST_KANA <= scalar <= _LAST_HANGUL for scalar in has):
        for bit, (encoding, leads) in _HAN.items():
            row = _letters(encoding, *(bytes((lead, trail)) for lead in leads for trail in range(0x40, 0xFF)))
            # The rows hold full-width Latin, Greek and the like besides.
            bits |= (has >= {scalar for scalar in row if _FIRST_KANA <= scalar <= _LAST_HANGUL}) << bit
    return bits or 1


def _letters(encoding: str, *codes: bytes) -> set[int]:
    characters = "".join(code.decode(encoding, "ignore") for code in codes)
    return {ord(character) for character in characters if character.isalpha()}
