"""What a font's drawings and characters say of it: how far it leans, which code pages it is good for."""

from collections.abc import Collection, Iterable
from math import atan2, degrees

from .document import Glyph

# Letters with a straight stem from top to bottom. Shorter pieces are serifs and joins rather than
# stems, and steeper slants no italics.
_STEMMED, _LEAST_STEM_IN_EMS, _STEEPEST = tuple("HIlhi|"), 0.25, 40.0

# Bit of ulCodePageRange1 and the code page. A page counts when the font has all of its letters;
# the pages of Han characters count with those that their scripts can't do without.
_ALPHABETS = {0: "cp1252", 1: "cp1250", 2: "cp1251", 3: "cp1253", 4: "cp1254", 5: "cp1255",
              6: "cp1256", 7: "cp1257", 8: "cp1258", 16: "cp874"}
# Bit, encoding and the lead bytes of the rows that count: kana or the commonest characters.
_HAN = {17: ("shift_jis", (0x82, 0x83)), 18: ("gb2312", range(0xB0, 0xD8)),
        19: ("euc_kr", range(0xB0, 0xC9)), 20: ("big5", range(0xA4, 0xC7))}
_FIRST_KANA, _LAST_HANGUL = 0x3040, 0xD7A3


def slant_angle(glyphs: Iterable[Glyph], units_per_em: int) -> float:
    """The angle of the stems in degrees from upright, positive to the right, to half a degree: the mean of all
    straight sides that can be one of a stem, each as heavy as it is high; 0 without any."""
    total = height = 0.0
    for contour in (contour for glyph in glyphs if glyph.text in _STEMMED for contour in glyph.outline.contours):
        for before, segment in zip(contour[-1:] + contour, contour):
            across, up = segment[-2] - before[-2], segment[-1] - before[-1]
            angle = degrees(atan2(across if up > 0 else -across, abs(up)))
            if len(segment) == 2 and abs(up) >= _LEAST_STEM_IN_EMS * units_per_em and abs(angle) <= _STEEPEST:
                total += angle * abs(up)
                height += abs(up)
    return height and round(total / height * 2) / 2 or 0


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
