"""Parses JSON in UTF-8, quickly and without letting large documents grow."""

import json
from collections.abc import Callable
from typing import Any

from .errors import GeneratorError

_BYTE_ORDER_MARK = b"\xef\xbb\xbf"
_CHUNK = 1 << 16


def parse_json(data: bytes) -> tuple[Any, Callable[[str], str]]:
    """The value of a JSON text, and a function that every string in it has to pass through.

    The value's strings hold a character for each byte unless the text escapes characters by
    number: one emoji in a name would otherwise make four bytes of each one of the document, and
    parsing slower. Raises GeneratorError for what is not JSON in UTF-8.
    """
    data = data.removeprefix(_BYTE_ORDER_MARK)
    _check_utf8(data)
    escaped = b"\\u" in data
    text = data.decode("latin-1")
    del data
    if not escaped:
        try:
            return _parse(text), _characters_of_bytes
        except json.JSONDecodeError:
            pass  # and once more, for the place in characters
    try:
        return _parse(_characters_of_bytes(text)), str
    except json.JSONDecodeError as error:
        raise GeneratorError(
            f"The font description is not JSON: {error.msg[:1].lower()}{error.msg[1:]} "
            f"at line {error.lineno}, column {error.colno}.") from error


def _parse(text: str) -> Any:
    try:
        return json.loads(text, parse_constant=_refuse)
    except json.JSONDecodeError:
        raise
    except RecursionError as error:
        raise GeneratorError("The font description is not one: its brackets nest too deep.") from error
    except ValueError as error:  # a whole number of several thousand digits
        raise GeneratorError("The font description holds a number with too many digits.") from error


def _refuse(token: str) -> None:
    raise GeneratorError(f"The font description holds {token}, which is not a number of JSON.")


def _characters_of_bytes(text: str) -> str:
    return text if text.isascii() else text.encode("latin-1").decode("utf-8")


def _check_utf8(data: bytes) -> None:
    start = 0
    while start < len(data):
        try:
            data[start:start + _CHUNK].decode("utf-8")
            start += _CHUNK
        except UnicodeDecodeError as error:
            # What a chunk cuts in two counts with the next one.
            if error.reason != "unexpected end of data" or start + _CHUNK >= len(data):
                raise GeneratorError("The font description is not valid UTF-8 "
                                     f"(byte {start + error.start}).") from error
            start += error.start
