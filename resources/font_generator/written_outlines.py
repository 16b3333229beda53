"""Reads outlines quickly that are laid out as the program lays them out.

Most of a description is outlines, and most of the time to parse those goes into objects of two
numbers. Here the numbers of an outline are taken out in one go; what is left of the text tells
its commands, and whether the layout is the expected one. Any other JSON takes the usual way.
"""

import json
from math import isfinite

from .outlines import EMPTY, Contour, Outline, outline_of

_OPENING, _CLOSING = b'"fontPath" : [', b"]"
_BETWEEN_COMMANDS = b"\n        "
_BEFORE_CLOSING = b"\n      "

# The commands without digits: the ones of the controls' names go as well.
_MOVE, _LINE, _CURVE, _CLOSE = range(4)
_POINT = b'{ "x" : , "y" :  }'
_kind_of = {
    b'{ "type" : "moveTo", "point" : %s },' % _POINT: _MOVE,
    b'{ "type" : "lineTo", "point" : %s },' % _POINT: _LINE,
    b'{ "type" : "curveTo", "control" : %s, "control" : %s, "point" : %s },' % (_POINT, _POINT, _POINT): _CURVE,
    b'{ "type" : "closePath" },': _CLOSE,
}.__getitem__

_OF_NUMBERS = b"0123456789.-E"
_BLANKS = bytes(byte if byte in _OF_NUMBERS else ord(" ") for byte in range(256))


def take_outlines(data: bytes) -> tuple[bytes, list[bytes]]:
    """The JSON text `data` with a number from 0 on in the place of each outline that may be laid
    out as expected, and the texts of these outlines."""
    first, *parts = data.split(_OPENING)
    rest, outlines = [first], []
    for number, part in enumerate(parts):
        outline, bracket, after = part.partition(_CLOSING)
        rest.append(b'"fontPath" : %d%s' % (number, after if bracket else _CLOSING))
        outlines.append(outline)
    return b"".join(rest), outlines


def read_written_outline(text: bytes) -> Outline | None:
    """The outline whose commands are the JSON text `text`; None if it is laid out otherwise, or
    has anything in it that needs a closer look."""
    if not text:
        return EMPTY
    text = text.replace(b"e-", b"E-")  # there is no other capital E
    contours: list[Contour] = []
    contour: Contour | None = None
    at = 0
    try:
        layout = text.removesuffix(_BEFORE_CLOSING).translate(None, _OF_NUMBERS) + b","
        before, *commands = layout.split(_BETWEEN_COMMANDS)
        kinds = list(map(_kind_of, commands))
        numbers = tuple(json.loads(b"[%s]" % b",".join(text.translate(_BLANKS).split())))
        for kind in kinds:
            if kind == _CLOSE:
                contour = None
            elif kind == _MOVE:
                contour = [numbers[at:at + 2]]
                contours.append(contour)
                at += 2
            elif kind == _LINE:
                contour.append(numbers[at:at + 2])
                at += 2
            else:
                first, x1, y1, second, x2, y2, x, y = numbers[at:at + 8]
                if first != 1 or second != 2:  # of the controls' names
                    return None
                contour.append((x1, y1, x2, y2, x, y))
                at += 8
        fits = not before and at == len(numbers) and isfinite(sum(numbers))
    except (KeyError, ValueError, AttributeError, OverflowError):
        return None
    return outline_of(contours) if fits else None
