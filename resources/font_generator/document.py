"""Reads a font description and checks that it is one.

What is checked here is the description's shape: JSON in UTF-8, every member there and of its
type, numbers finite, text well formed, outlines that fit a font. Whether a font can hold the
other values is decided where they are used.
"""

import json
from typing import Any, NamedTuple

from .errors import GeneratorError, quoted
from .outlines import MalformedOutline, Outline, UnfitOutline, check_size, is_finite, read_outline

# A record of a name table holds at most 65,535 bytes of UTF-16; no text of a font is longer.
LONGEST_TEXT = 32767


class Glyph(NamedTuple):
    """A glyph as drawn. `text` is the character that it stands for, if any; `number` is its place
    in the project, counted from 1, and 0 for a glyph that no project has."""

    number: int
    name: str
    text: str | None
    advance: float
    outline: Outline

    @property
    def label(self) -> str:
        """How messages call the glyph."""
        return f"glyph {quoted(self.name)}" if self.name else f"the nameless glyph number {self.number}"


class KerningPair(NamedTuple):
    """`value` is added to the advance of a left glyph that a right glyph follows."""

    left: str
    right: str
    value: float

    @property
    def label(self) -> str:
        """How messages call the pair."""
        return f"{quoted(self.left)} {quoted(self.right)}"


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


class _Object:
    """An object of JSON, whose members are there and of their type."""

    def __init__(self, value: Any) -> None:
        if type(value) is not dict:
            raise _Malformed("is not a JSON object")
        self.members = value

    def _member(self, key: str, kinds: tuple[type, ...], description: str) -> Any:
        if key not in self.members:
            raise _Malformed(f"has no member {quoted(key)}")
        if type(self.members[key]) not in kinds:
            raise _Malformed(f"has a member {quoted(key)} that is not {description}")
        return self.members[key]

    def list(self, key: str) -> list[Any]:
        return self._member(key, (list,), "a list")

    def number(self, key: str) -> float:
        value = self._member(key, (int, float), "a number")
        if not is_finite(value):
            raise _Malformed(f"has a member {quoted(key)} that is not a finite number")
        return value

    def text(self, key: str) -> str:
        value = self._member(key, (str,), "text")
        if len(value) > LONGEST_TEXT:
            raise _Malformed(f"has a member {quoted(key)} of {len(value):,} characters, and a font holds "
                             f"at most {LONGEST_TEXT:,}")
        if any("\ud800" <= character <= "\udfff" for character in value):
            raise _Malformed(f"has a member {quoted(key)} with half a character in it")
        return value


def read_document(path: str) -> Document:
    """Reads the description in the file `path`; raises GeneratorError if it is not one."""
    try:
        with open(path, "rb") as file:
            data = file.read()
    except OSError as error:
        raise GeneratorError(
            f"The font description {quoted(path)} cannot be read: {error.strerror}.") from error
    try:
        root = _Object(_parse_json(data))
        glyphs, pairs = root.list("glyphs"), root.list("kerningPairs")
        return Document(
            *map(root.text, ("name", "designer", "version", "copyright")),
            *map(root.number, ("unitsPerEm", "ascender", "descender", "capHeight", "xHeight")),
            [_glyph(value, number) for number, value in enumerate(glyphs, 1)],
            [_pair(value, number) for number, value in enumerate(pairs, 1)])
    except _Malformed as fault:
        raise GeneratorError(f"The font description {fault}.") from fault


def _parse_json(data: bytes) -> Any:
    def refuse(token: str) -> None:
        raise GeneratorError(f"The font description holds {token}, which is not a number of JSON.")

    try:
        return json.loads(data.removeprefix(b"\xef\xbb\xbf").decode("utf-8"), parse_constant=refuse)
    except UnicodeDecodeError as error:
        raise GeneratorError(f"The font description is not valid UTF-8 (byte {error.start}).") from error
    except json.JSONDecodeError as error:
        raise GeneratorError(f"The font description is not JSON: {error.msg[:1].lower()}{error.msg[1:]} "
                             f"at line {error.lineno}, column {error.colno}.") from error
    except RecursionError as error:
        raise GeneratorError("The font description is not one: its brackets nest too deep.") from error
    except ValueError as error:  # a whole number of several thousand digits
        raise GeneratorError("The font description holds a number with too many digits.") from error


def _glyph(value: Any, number: int) -> Glyph:
    called = f"Glyph number {number}{_names_in(value, 'name')}"
    try:
        members = _Object(value)
        for bearing in ("leftSideBearing", "rightSideBearing"):
            members.number(bearing)  # the outline is already placed by them
        glyph = Glyph(number, members.text("name"),
                      members.text("unicode") if "unicode" in members.members else None,
                      members.number("advanceWidth"), read_outline(members.list("fontPath")))
        check_size(glyph.outline)
        return glyph
    except _Malformed as fault:
        raise GeneratorError(f"{called} {fault}.") from fault
    except MalformedOutline as fault:
        raise GeneratorError(f"{called} has a malformed outline: {fault}.") from fault
    except UnfitOutline as fault:
        raise GeneratorError(f"The drawing of {glyph.label} {fault}.") from fault


def _pair(value: Any, number: int) -> KerningPair:
    try:
        members = _Object(value)
        return KerningPair(members.text("leftGlyph"), members.text("rightGlyph"), members.number("value"))
    except _Malformed as fault:
        called = f"Kerning pair number {number}{_names_in(value, 'leftGlyph', 'rightGlyph')}"
        raise GeneratorError(f"{called} {fault}.") from fault


def _names_in(value: Any, *keys: str) -> str:
    """The names in an object in which something may be wrong."""
    names = [value.get(key) for key in keys] if type(value) is dict else []
    return "".join(f" {quoted(name)}" for name in names if type(name) is str and name)
