"""Reads a font description and checks that it is one.

What is checked here is the description's shape: JSON in UTF-8, every member there and of its
type, numbers finite, text well formed. Whether a font can hold the values is decided where
they are used.
"""

from collections.abc import Callable, Iterator
from typing import Any, NamedTuple

from .errors import GeneratorError, quoted
from .json_text import parse_json
from .outlines import MalformedOutline, Outline, UnfitOutline, check_size, is_finite, read_outline
from .pieces import Pieces, cut, fit_together
from .workers import beside, processors

# A record of a name table holds at most 65,535 bytes of UTF-16; no text of a font is longer.
LONGEST_TEXT = 32767

# Letters with a straight stem from top to bottom.
SLANT_LETTERS = frozenset("HIlhi|")

_OWN_SHARE = 0.47

_TEXTS = {"name", "designer", "version", "copyright"}

Encode = Callable[[Outline], Any]
Encoder = Callable[[float], Encode]  # what the format makes of drawings in an em of so many units


class Glyph(NamedTuple):
    """A glyph as drawn. `text` is the character that it stands for, if any; the number of a glyph
    that no project has is 0. `shape` is what the font's format makes of the drawing; its `box` is
    None if there is nothing to see. The drawing itself is kept of a few letters only, by which
    to tell how far a font slants."""

    number: int  # its place in the project, counted from 1
    name: str
    text: str | None
    advance: float
    shape: Any
    drawing: Outline | None = None

    @property
    def label(self) -> str:
        """How messages call the glyph."""
        return _label(self.name, self.number)


def _label(name: str, number: int) -> str:
    return f"glyph {quoted(name)}" if name else f"the nameless glyph number {number}"


class KerningPair(NamedTuple):
    """`value` is added to the advance of a left glyph that a right glyph follows."""

    left: str
    right: str
    value: float


class Document(NamedTuple):
    """A font description; `descender` is negative below the baseline."""

    name: str
    designer: str
    version: str
    copyright: str
    units_per_em: float
    ascender: float
    descender: float
    cap_height: float
    x_height: float
    glyphs: list[Glyph]
    pairs: list[KerningPair]


class _Malformed(Exception):
    """Says what is wrong with an object; whoever reads the object knows what it is."""


def read_document(path: str, encoder: Encoder, meanwhile: Callable[[], None] = lambda: None) -> Document:
    """Reads the description in the file `path`; raises GeneratorError if it is not one.

    Outlines become shapes by the encoder as soon as they are read, so that only one at a time is
    there in full. Two processes share a long description; when this one is through with its
    part, it does what there is to do `meanwhile`.
    """
    data = _read_file(path)
    pieces = cut(data)
    try:
        members = _read_pieces(pieces, encoder(pieces.units_per_em), meanwhile) if pieces else None
        return _document(members or _read_whole(data, encoder))
    except _Malformed as fault:
        raise GeneratorError(f"The font description {fault}.") from fault


def _read_whole(data: bytes, encoder: Encoder) -> dict[str, Any]:
    root, read = parse_json(data)
    members = _members(root)
    for key in ("glyphs", "kerningPairs"):
        _list(members, key)
    return _read_members(members, read, encoder(_number(members, "unitsPerEm")))


def _read_pieces(pieces: Pieces, encode: Encode,
                 meanwhile: Callable[[], None]) -> dict[str, Any] | None:
    """The members of a description, or None if anything is wrong with a piece: what it is, is
    found by reading the description as a whole."""
    def read_some(indices: range) -> list[dict[str, Any]] | None:
        result = []
        try:
            for index in indices:
                root, read = parse_json(pieces.piece(index))
                result.append(_read_members(_members(root), read, encode))
        except (GeneratorError, _Malformed):
            return None
        return result

    # The other process has nothing else to do, and so gets the larger part.
    count = len(pieces)
    mine = int(count * _OWN_SHARE) if processors() > 1 and count > 3 else count
    wait = beside(lambda: read_some(range(mine, count))) if mine < count else list
    read = read_some(range(mine))
    meanwhile()
    others = wait()
    if read is None or others is None or not fit_together(read + others, pieces.units_per_em):
        return None
    members: dict[str, Any] = {}
    glyphs: list[Glyph] = []
    for part in read + others:
        before = len(glyphs)
        glyphs += [glyph._replace(number=glyph.number + before) for glyph in part["glyphs"]]
        members |= part
    return members | {"glyphs": glyphs}


def _read_members(members: dict[str, Any], read: Callable[[str], str], encode: Encode) -> dict[str, Any]:
    """The members with the glyphs, pairs and texts among them read."""
    readers: dict[str, Callable[[Any, int], Any]] = {
        "glyphs": lambda value, number: _glyph(value, number, read, encode),
        "kerningPairs": lambda value, number: _pair(value, number, read)}
    for key in readers.keys() & members.keys():
        members[key] = [readers[key](value, number) for number, value in _taken(_list(members, key))]
    for key in _TEXTS & members.keys():
        members[key] = _text(members, key, read)
    return members


def _document(members: dict[str, Any]) -> Document:
    return Document(
        **{key: _member(members, key) for key in _TEXTS},
        units_per_em=_number(members, "unitsPerEm"),
        ascender=_number(members, "ascender"),
        descender=_number(members, "descender"),
        cap_height=_number(members, "capHeight"),
        x_height=_number(members, "xHeight"),
        glyphs=members["glyphs"],
        pairs=members["kerningPairs"],
    )


def _read_file(path: str) -> bytes:
    try:
        with open(path, "rb") as file:
            return file.read()
    except OSError as error:
        raise GeneratorError(
            f"The font description {quoted(path)} cannot be read: {error.strerror}.") from error


def _taken(values: list[Any]) -> Iterator[tuple[int, Any]]:
    """Each value with its number, taken out of the list: what a value is read into takes a
    fraction of its room."""
    values.reverse()
    for number in range(1, len(values) + 1):
        yield number, values.pop()


def _glyph(value: Any, number: int, read: Callable[[str], str], encode: Encode) -> Glyph:
    try:
        members = _members(value)
        for bearing in ("leftSideBearing", "rightSideBearing"):
            _number(members, bearing)  # the outline is already placed by them
        name = _text(members, "name", read)
        text = _text(members, "unicode", read) if "unicode" in members else None
        advance = _number(members, "advanceWidth")
        outline = read_outline(_list(members, "fontPath"))
        try:
            check_size(outline)
            shape = encode(outline)
        except UnfitOutline as fault:
            raise GeneratorError(f"The drawing of {_label(name, number)} {fault}.") from fault
        return Glyph(number, name, text, advance, shape, outline if text in SLANT_LETTERS else None)
    except _Malformed as fault:
        raise GeneratorError(f"Glyph number {number}{_called(value, 'name', read)} {fault}.") from fault
    except MalformedOutline as fault:
        raise GeneratorError(f"Glyph number {number}{_called(value, 'name', read)} has a malformed outline: "
                             f"{fault}.") from fault


def _pair(value: Any, number: int, read: Callable[[str], str]) -> KerningPair:
    try:
        members = _members(value)
        return KerningPair(_text(members, "leftGlyph", read), _text(members, "rightGlyph", read),
                           _number(members, "value"))
    except _Malformed as fault:
        called = _called(value, "leftGlyph", read) + _called(value, "rightGlyph", read)
        raise GeneratorError(f"Kerning pair number {number}{called} {fault}.") from fault


def _called(value: Any, key: str, read: Callable[[str], str]) -> str:
    """The name that stands under `key` of an object in which something else is wrong."""
    name = value.get(key) if type(value) is dict else None
    return f" {quoted(read(name))}" if type(name) is str and name else ""


def pair_label(left: str, right: str) -> str:
    """How messages call the pair of these two glyph names."""
    return f"{quoted(left)} {quoted(right)}"


def _members(value: Any) -> dict[str, Any]:
    if type(value) is not dict:
        raise _Malformed("is not a JSON object")
    return value


def _member(members: dict[str, Any], key: str) -> Any:
    try:
        return members[key]
    except KeyError:
        raise _Malformed(f"has no member {quoted(key)}") from None


def _list(members: dict[str, Any], key: str) -> list[Any]:
    value = _member(members, key)
    if type(value) is not list:
        raise _Malformed(f"has a member {quoted(key)} that is not a list")
    return value


def _text(members: dict[str, Any], key: str, read: Callable[[str], str]) -> str:
    value = _member(members, key)
    if type(value) is not str:
        raise _Malformed(f"has a member {quoted(key)} that is not text")
    value = read(value)
    if len(value) > LONGEST_TEXT:
        raise _Malformed(f"has a member {quoted(key)} of {len(value):,} characters, and a font holds "
                         f"at most {LONGEST_TEXT:,}")
    try:
        value.encode("utf-8")
    except UnicodeEncodeError:
        raise _Malformed(f"has a member {quoted(key)} with half a character in it") from None
    return value


def _number(members: dict[str, Any], key: str) -> float:
    value = _member(members, key)
    if type(value) is not int and type(value) is not float:
        raise _Malformed(f"has a member {quoted(key)} that is not a number")
    if not is_finite(value):
        raise _Malformed(f"has a member {quoted(key)} that is not a finite number")
    return value
