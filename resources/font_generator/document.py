"""Reads a font description and checks that it is one: JSON in UTF-8, every member there and of its type,
numbers finite, text well formed, drawings of the size of a font. Raises GeneratorError for others."""

import json
from typing import Any, NamedTuple

from .command import GeneratorError, quoted
from .outlines import GREATEST_NUMBER, Outline, check_size, read_outline

_KINDS = {"a list": (list,), "text": (str,), "a number": (int, float)}
_LONGEST_TEXT = 32767  # a record of a name table holds at most 65,535 bytes of UTF-16


class Glyph(NamedTuple):
    """`number` is the glyph's place in the project, counted from 1; 0 is one that the project lacks."""
    number: int
    name: str
    text: str | None
    advance: float
    outline: Outline

    @property
    def label(self) -> str:
        return f"glyph {quoted(self.name)}" if self.name else f"the nameless glyph number {self.number}"


# `descender` is negative below the baseline; a pair is two names and what is added to the left advance.
Document = NamedTuple("Document", [
    ("name", str), ("designer", str), ("version", str), ("copyright", str), ("units_per_em", float),
    ("ascender", float), ("descender", float), ("cap_height", float), ("x_height", float),
    ("glyphs", list[Glyph]), ("pairs", list[tuple[str, str, float]])])


def read_document(path: str) -> Document:
    called = "The font description"
    try:
        with open(path, "rb") as file:
            root = _parse_json(file.read(), called)
    except OSError as error:
        raise GeneratorError(f"{called} {quoted(path)} cannot be read: {error.strerror}.") from error
    glyphs, pairs = (_member(root, key, "a list", called) for key in ("glyphs", "kerningPairs"))
    texts = [_member(root, key, "text", called) for key in ("name", "designer", "version", "copyright")]
    numbers = [_member(root, key, "a number", called)
               for key in ("unitsPerEm", "ascender", "descender", "capHeight", "xHeight")]
    return Document(*texts, *numbers, [_glyph(value, number) for number, value in enumerate(glyphs, 1)],
                    [_pair(value, number) for number, value in enumerate(pairs, 1)])


def _parse_json(data: bytes, called: str) -> Any:
    def refuse(token: str) -> None:
        raise GeneratorError(f"{called} holds {token}, which is not a number of JSON.")
    try:
        return json.loads(data.removeprefix(b"\xef\xbb\xbf").decode("utf-8"), parse_constant=refuse)
    except UnicodeDecodeError as error:
        raise GeneratorError(f"{called} is not valid UTF-8 (byte {error.start}).") from error
    except json.JSONDecodeError as error:
        reason = f"{error.msg[:1].lower()}{error.msg[1:]} at line {error.lineno}, column {error.colno}"
        raise GeneratorError(f"{called} is not JSON: {reason}.") from error
    except RecursionError as error:
        raise GeneratorError(f"{called} is not one: its brackets nest too deep.") from error
    except ValueError as error:  # a whole number of several thousand digits
        raise GeneratorError(f"{called} holds a number with too many digits.") from error


def _member(value: Any, key: str, kind: str, called: str) -> Any:
    """The member of an object that messages call so. It has to be there and of its kind."""
    if type(value) is not dict:
        raise GeneratorError(f"{called} is not a JSON object.")
    if key not in value:
        raise GeneratorError(f"{called} has no member {quoted(key)}.")
    member, fault = value[key], f"has a member {quoted(key)}"
    if type(member) not in _KINDS[kind]:
        fault += f" that is not {kind}"
    elif kind == "a number" and not abs(member) <= GREATEST_NUMBER:
        fault += " that is not a finite number"
    elif kind == "text" and len(member) > _LONGEST_TEXT:
        fault += f" of {len(member):,} characters, and a font holds at most {_LONGEST_TEXT:,}"
    elif kind == "text" and any("\ud800" <= character <= "\udfff" for character in member):
        fault += " with half a character in it"
    else:
        return member
    raise GeneratorError(f"{called} {fault}.")


def _glyph(value: Any, number: int) -> Glyph:
    called = f"Glyph number {number}{_names_in(value, 'name')}"
    for key in ("leftSideBearing", "rightSideBearing"):
        _member(value, key, "a number", called)  # the outline is already placed by it
    glyph = Glyph(number, _member(value, "name", "text", called),
                  _member(value, "unicode", "text", called) if "unicode" in value else None,
                  _member(value, "advanceWidth", "a number", called),
                  read_outline(_member(value, "fontPath", "a list", called), called))
    check_size(glyph.outline, f"The drawing of {glyph.label}")
    return glyph


def _pair(value: Any, number: int) -> tuple[str, str, float]:
    called = f"Kerning pair number {number}{_names_in(value, 'leftGlyph', 'rightGlyph')}"
    return (*(_member(value, key, "text", called) for key in ("leftGlyph", "rightGlyph")),
            _member(value, "value", "a number", called))


def _names_in(value: Any, *keys: str) -> str:
    names = [value.get(key) for key in keys] if type(value) is dict else []
    return "".join(f" {quoted(name)}" for name in names if type(name) is str and name)
