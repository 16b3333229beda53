"""Cuts a long font description into pieces, each JSON by itself.

Read piece by piece, a description takes a fraction of the memory (and of the time, for the
memory of one piece serves the next), and two processes can share the pieces.
"""

import re
from collections.abc import Sequence
from typing import Any, NamedTuple

_PIECE = 400_000  # bytes
_BETWEEN_GLYPHS = re.compile(rb'\}\s*(,)\s*\{\s*"(?:name|unicode|advanceWidth)"')
_GLYPHS = b'"glyphs"'
_UNITS_PER_EM = re.compile(rb'"unitsPerEm"\s*:\s*([0-9]{1,9})\b')


class Pieces(NamedTuple):
    """The description `data`, cut between elements of its list "glyphs": the commas at `cuts` are
    in no piece. All of the glyphs need the units per em, which stand in one piece only."""

    data: bytes
    cuts: Sequence[int]
    units_per_em: int

    def __len__(self) -> int:
        return len(self.cuts) + 1

    def piece(self, index: int) -> bytes:
        """The JSON text of a piece, always an object: the first one has the members up to and
        with the list, the last one the rest of the list and the members behind it."""
        last = index == len(self.cuts)
        start = self.cuts[index - 1] + 1 if index else 0
        end = None if last else self.cuts[index]
        return b"".join([b'{"glyphs":[' if index else b"", self.data[start:end], b"" if last else b"]}"])


def cut(data: bytes) -> Pieces | None:
    """The pieces of the description `data`; None if it is short or can't be cut.

    If every piece is JSON and `fit_together` says so, the description is JSON of the same
    contents: the brackets that end the first piece are then exactly those that were open.
    """
    # Another member of that name, maybe hidden by escapes, would overrule the first.
    if len(data) < 2 * _PIECE or data.count(_GLYPHS) != 1 or b"\\u" in data:
        return None
    units = _UNITS_PER_EM.search(data)
    cuts: list[int] = []
    while place := _BETWEEN_GLYPHS.search(data, (cuts[-1] if cuts else 0) + _PIECE):
        cuts.append(place.start(1))
    return Pieces(data, cuts, int(units[1])) if units and cuts else None


def fit_together(members: Sequence[dict[str, Any]], units_per_em: int) -> bool:
    """Whether these members of all the pieces make one description."""
    first, *middle, last = members
    return (list(first)[-1:] == ["glyphs"] and first.get("unitsPerEm") == units_per_em
            and all(set(piece) == {"glyphs"} for piece in middle)
            and not (set(first) & set(last)) - {"glyphs"})
