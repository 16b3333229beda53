"""The CFF table, which holds cubic outlines and the glyph names that go with them.

The table is put together here rather than by fontTools, whose module for it takes as long to
load as a font takes to encode.
"""

from collections import Counter
from collections.abc import Iterable, Sequence
from struct import pack
from typing import Any

from fontTools.encodings.StandardEncoding import StandardEncoding
from fontTools.ttLib import newTable

from .charstrings import Charstring, encoded_number
from .glyph_set import FontGlyph
from .metrics import Measures, is_fixed_pitch
from .naming import Naming
from .outlines import Box

# Strings that every reader knows by number, as far as they name glyphs of common fonts: the
# characters of Adobe's standard encoding from number 1 on, and these after them.
_NUMBERED_STRINGS = [".notdef", *(name for name in StandardEncoding if name != ".notdef"), *"""
    onesuperior logicalnot mu trademark Eth onehalf plusminus Thorn onequarter divide brokenbar
    degree thorn threequarters twosuperior registered minus eth multiply threesuperior copyright
    Aacute Acircumflex Adieresis Agrave Aring Atilde Ccedilla Eacute Ecircumflex Edieresis Egrave
    Iacute Icircumflex Idieresis Igrave Ntilde Oacute Ocircumflex Odieresis Ograve Otilde Scaron
    Uacute Ucircumflex Udieresis Ugrave Yacute Ydieresis Zcaron aacute acircumflex adieresis agrave
    aring atilde ccedilla eacute ecircumflex edieresis egrave iacute icircumflex idieresis igrave
    ntilde oacute ocircumflex odieresis ograve otilde scaron uacute ucircumflex udieresis ugrave
    yacute ydieresis zcaron""".split()]
_FIRST_OWN_STRING = 391

# Operators of the Top DICT and the Private DICT.
_VERSION, _FULL_NAME, _FAMILY_NAME, _FONT_BBOX = b"\x00", b"\x02", b"\x03", b"\x05"
_FONT_MATRIX, _CHARSET, _CHARSTRINGS, _PRIVATE = b"\x0c\x07", b"\x0f", b"\x11", b"\x12"
_IS_FIXED_PITCH, _ITALIC_ANGLE = b"\x0c\x01", b"\x0c\x02"
_DEFAULT_WIDTH, _NOMINAL_WIDTH = b"\x14", b"\x15"


class CffOutlines:
    """The outlines of all glyphs as a font with a CFF table has them."""

    sfnt_version = "OTTO"
    long_offsets = False

    def __init__(self, glyphs: Sequence[FontGlyph]) -> None:
        """Takes the shapes that were made of the drawings."""
        advances = Counter(glyph.advance for glyph in glyphs)
        self._default_width = max(advances, key=lambda advance: (advances[advance], -advance))
        # A width has 16 bits with a sign, and advances go up to 65,535.
        self._nominal_width = self._default_width
        if max(advances) - self._default_width > 32767 or self._default_width > 32767:
            self._nominal_width = 32768
        self._charstrings: list[bytes] = []
        self.boxes: list[Box | None] = []
        for glyph in glyphs:
            shape: Charstring = glyph.shape
            width = (b"" if glyph.advance == self._default_width else
                     encoded_number(glyph.advance - self._nominal_width))
            self._charstrings.append(width + shape.operators)
            self.boxes.append(shape.box)

    def tables(self, names: Sequence[str], measures: Measures, naming: Naming, slant: float) -> dict[str, Any]:
        """The tables that only fonts of this kind have."""
        maxp = newTable("maxp")
        maxp.tableVersion = 0x00005000
        private = (_integer(self._default_width) + _DEFAULT_WIDTH
                   + _integer(self._nominal_width) + _NOMINAL_WIDTH)
        return {"CFF ": _encode_cff(names, self._charstrings, private, measures, naming, slant), "maxp": maxp}


def _encode_cff(names: Sequence[str], charstrings: Sequence[bytes], private: bytes,
                measures: Measures, naming: Naming, slant: float) -> bytes:
    strings = {name: number for number, name in enumerate(_NUMBERED_STRINGS)}
    own: list[bytes] = []

    def number_of(text: str) -> int:
        number = strings.get(text)
        if number is None:
            number = strings[text] = _FIRST_OWN_STRING + len(own)
            own.append(text.encode("ascii"))
        return number

    charset = _charset([number_of(name) for name in names[1:]])
    dictionary = _integer(number_of(f"{naming.revision:.3f}")) + _VERSION
    for text, operator in ((naming.full, _FULL_NAME), (naming.family, _FAMILY_NAME)):
        if text.isascii():  # the strings of this table have no other characters
            dictionary += _integer(number_of(text)) + operator
    if is_fixed_pitch(measures):
        dictionary += _integer(1) + _IS_FIXED_PITCH
    if slant:  # counted to the left, as in the post table
        dictionary += _real(-slant) + _ITALIC_ANGLE
    dictionary += b"".join(map(_integer, measures.box)) + _FONT_BBOX
    if measures.units_per_em != 1000:
        scale = _real(1 / measures.units_per_em)
        zero = _integer(0)
        dictionary += scale + zero + zero + scale + zero + zero + _FONT_MATRIX

    # Offsets take five bytes each, so that the dictionary's size doesn't depend on them.
    size = len(dictionary) + 4 * 5 + 3
    start = b"\x01\x00\x04\x04" + _index([naming.postscript.encode("ascii")])
    strings_and_subroutines = _index(own) + _index([])
    charset_start = len(start) + len(_index([bytes(size)])) + len(strings_and_subroutines)
    private_start = charset_start + len(charset)
    dictionary += (_offset(charset_start) + _CHARSET
                   + _offset(private_start + len(private)) + _CHARSTRINGS
                   + _offset(len(private)) + _offset(private_start) + _PRIVATE)
    return b"".join([start, _index([dictionary]), strings_and_subroutines, charset, private,
                     _index(charstrings)])


def _charset(numbers: Sequence[int]) -> bytes:
    """The name numbers of the glyphs after the first, as ranges or singly, what is shorter."""
    ranges: list[list[int]] = []
    for number in numbers:
        if ranges and number == sum(ranges[-1]) + 1:
            ranges[-1][1] += 1
        else:
            ranges.append([number, 0])
    if len(ranges) * 2 < len(numbers):
        return b"\x02" + b"".join([pack(">HH", first, more) for first, more in ranges])
    return b"\x00" + pack(f">{len(numbers)}H", *numbers)


def _index(items: Sequence[bytes]) -> bytes:
    """An INDEX: the offsets of the items, from 1 on in as few bytes as they need, and the items."""
    if not items:
        return b"\0\0"
    offsets, offset = [1], 1
    for item in items:
        offset += len(item)
        offsets.append(offset)
    size = (offset.bit_length() + 7) // 8
    return b"".join([pack(">HB", len(items), size),
                     *[offset.to_bytes(size, "big") for offset in offsets], *items])


def _integer(value: int) -> bytes:
    if -107 <= value <= 107:
        return bytes((value + 139,))
    return b"\x1c" + pack(">h", value) if -32768 <= value <= 32767 else _offset(value)


def _offset(value: int) -> bytes:
    return b"\x1d" + pack(">i", value)


def _real(value: float) -> bytes:
    """A number in decimal digits of four bits each, a period being 10, a minus 14 and the end 15."""
    codes = {".": 10, "-": 14}
    digits: Iterable[int] = (codes[sign] if sign in codes else int(sign)
                             for sign in f"{value:.15f}".rstrip("0").rstrip("."))
    nibbles = [*digits, 15]
    nibbles += [15] * (len(nibbles) % 2)
    return b"\x1e" + bytes(high << 4 | low for high, low in zip(nibbles[::2], nibbles[1::2]))
