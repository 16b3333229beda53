"""Reads a font description and checks that it is one.

What is checked here is the description's shape: JSON in UTF-8, every member there and of its
type, numbers finite, text well formed. Whether a font can hold the values is decided where
they are used.
"""

from collections.abc import Callable, Iterator
from dataclasses import dataclass
from typing import Any

from .errors import GeneratorError, quoted
from .json_text import parse_json
from .outlines import MalformedOutline, Outline, is_finite, read_outline

# A record of a name table holds at most 65,535 bytes of UTF-16; no text of a font is longer.
LONGEST_TEXT = 32767


@dataclass(frozen=True, slots=True)
class Glyph:
    """A glyph as drawn. `text` is the character that it stands for, if any; the number of a glyph
    that no project has is 0."""

    number: int  # its place in the project, counted from 1
    name: str
    text: str | None
    advance: float
    outline: Outline

    @property
    def label(self) -> str:
        """How messages call the glyph."""
        return f"glyph {quoted(self.name)}" if self.name else f"the nameless glyph number {self.number}"


@dataclass(frozen=True, slots=True)
class KerningPair:
    """`value` is added to the advance of a left glyph that a right glyph follows."""

    left: str
    right: str
    value: float


@dataclass(frozen=True, slots=True)
class Document:
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


def read_document(path: str) -> Document:
    """Reads the description in the file `path`; raises GeneratorError if it is not one."""
    root, read = parse_json(_read_file(path))
    try:
        members = _members(root)
        glyphs, pairs = _list(members, "glyphs"), _list(members, "kerningPairs")
        return Document(
            name=_text(members, "name", read),
            designer=_text(members, "designer", read),
            version=_text(members, "version", read),
            copyright=_text(members, "copyright", read),
            units_per_em=_number(members, "unitsPerEm"),
            ascender=_number(members, "ascender"),
            descender=_number(members, "descender"),
            cap_height=_number(members, "capHeight"),
            x_height=_number(members, "xHeight"),
            glyphs=[_glyph(value, number, read) for number, value in _taken(glyphs)],
            pairs=[_pair(value, number, read) for number, value in _taken(pairs)],
        )
    except _Malformed as fault:
        raise GeneratorError(f"The font description {fault}.") from fault


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


def _glyph(value: Any, number: int, read: Callable[[str], str]) -> Glyph:
    try:
        members = _members(value)
        for bearing in ("leftSideBearing", "rightSideBearing"):
            _number(members, bearing)  # the outline is already placed by them
        return Glyph(
            number=number,
            name=_text(members, "name", read),
            text=_text(members, "unicode", read) if "unicode" in members else None,
            advance=_number(members, "advanceWidth"),
            outline=read_outline(_list(members, "fontPath")),
        )
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
