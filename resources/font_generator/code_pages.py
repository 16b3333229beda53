"""Which Windows code pages the font can be used for, as the OS/2 table tells."""

from collections.abc import Collection

# Bit of ulCodePageRange1 and the code page. A page counts when the font has all of its letters;
# the pages of Han characters count with those that their scripts can't do without.
_ALPHABETS = {0: "cp1252", 1: "cp1250", 2: "cp1251", 3: "cp1253", 4: "cp1254", 5: "cp1255",
              6: "cp1256", 7: "cp1257", 8: "cp1258", 16: "cp874"}
_LATIN_1 = 0
# Bit, encoding and the lead bytes of the rows that count: kana or the commonest characters.
_HAN = {17: ("shift_jis", (0x82, 0x83)), 18: ("gb2312", range(0xB0, 0xD8)),
        19: ("euc_kr", range(0xB0, 0xC9)), 20: ("big5", range(0xA4, 0xC7))}
_FIRST_KANA, _LAST_HANGUL = 0x3040, 0xD7A3


def code_page_bits(characters: Collection[int]) -> int:
    """The field ulCodePageRange1 for a font of these characters; ulCodePageRange2 has old pages only.

    A font without any code page is hidden or replaced by some programs, so that Latin 1 is set
    where nothing else is.
    """
    bits = 0
    for bit, encoding in _ALPHABETS.items():
        letters = _letters(bytes(range(0x80, 0x100)), encoding)
        if letters and letters <= set(characters):
            bits |= 1 << bit
    if any(_FIRST_KANA <= scalar <= _LAST_HANGUL for scalar in characters):
        for bit, (encoding, rows) in _HAN.items():
            if all(_letters_of_row(row, encoding) <= set(characters) for row in rows):
                bits |= 1 << bit
    return bits or 1 << _LATIN_1


def _letters(data: bytes, encoding: str) -> set[int]:
    return {ord(character) for character in data.decode(encoding, "ignore") if character.isalpha()}


def _letters_of_row(lead: int, encoding: str) -> set[int]:
    letters: set[int] = set()
    for trail in range(0x40, 0xFF):
        letters |= _letters(bytes((lead, trail)), encoding)
    # The rows hold full-width Latin, Greek and the like besides.
    return {scalar for scalar in letters if _FIRST_KANA <= scalar <= _LAST_HANGUL}
