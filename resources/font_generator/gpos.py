"""Kerning as a GPOS table."""

from collections.abc import Sequence
from struct import pack

from .kerning import Kerning
from .layout import encode_class_definition, encode_coverage, encode_layout

PAIR_ADJUSTMENT, EXTENSION_POSITIONING = 2, 9
_X_ADVANCE = 0x0004  # the one field of the value records

# Parts of a subtable are found by 16-bit offsets from its start. Keeping the matrix of a class
# subtable and its left glyphs within these leaves every offset of it small enough.
_LARGEST_MATRIX = 30000
_MOST_LEFT_GLYPHS = 4000
_LARGEST_OFFSET = 0xFFFF

Row = tuple[list[int], dict[int, int]]  # left glyphs, and their values by right group


def encode_kerning(kerning: Kerning, scripts: Sequence[str]) -> bytes | None:
    """The GPOS table of the kerning, under DFLT and the script tags; None without kerning.

    Left glyphs with equal values share them. Pairs are stored singly or as a matrix of classes,
    whichever takes less room. A left glyph is in one subtable only, since the first subtable that
    knows the left glyph can end the search.
    """
    merged: dict[tuple[tuple[int, int], ...], list[int]] = {}
    for group, row in zip(kerning.lefts, kerning.rows):
        merged.setdefault(tuple(sorted(row.items())), []).extend(group)
    rows = [(sorted(glyphs), dict(values)) for values, glyphs in merged.items()]
    if not rows:
        return None
    sizes = [len(group) for group in kerning.rights]
    single = sum(2 + 4 * sum(sizes[right] for right in row) + 4 * len(glyphs)
                 for glyphs, row in rows)
    columns = len(set(_columns(rows).values())) + 1
    matrix = 2 * len(rows) * columns + 6 * sum(sizes) + 6 * sum(len(glyphs) for glyphs, _ in rows)
    if matrix < single and 2 * columns <= _LARGEST_MATRIX:
        subtables = _class_subtables(rows, kerning.rights, _LARGEST_MATRIX // (2 * columns))
    else:
        subtables = _single_subtables(rows, kerning.rights)
    return encode_layout(scripts, "kern", PAIR_ADJUSTMENT, EXTENSION_POSITIONING, subtables)


def _columns(rows: Sequence[Row]) -> dict[int, tuple[tuple[int, int], ...]]:
    """For each right group, the rows that it occurs in and its values there."""
    columns: dict[int, list[tuple[int, int]]] = {}
    for index, (_, row) in enumerate(rows):
        for right, value in row.items():
            columns.setdefault(right, []).append((index, value))
    return {right: tuple(column) for right, column in columns.items()}


def _class_subtables(rows: Sequence[Row], rights: Sequence[list[int]], most_rows: int) -> list[bytes]:
    subtables = []
    chunk: list[Row] = []
    room = _MOST_LEFT_GLYPHS
    for glyphs, row in rows:
        for start in range(0, len(glyphs), _MOST_LEFT_GLYPHS):
            part = glyphs[start:start + _MOST_LEFT_GLYPHS]
            if chunk and (len(chunk) == most_rows or len(part) > room):
                subtables.append(_class_subtable(chunk, rights))
                chunk, room = [], _MOST_LEFT_GLYPHS
            chunk.append((part, row))
            room -= len(part)
    subtables.append(_class_subtable(chunk, rights))
    return subtables


def _class_subtable(rows: Sequence[Row], rights: Sequence[list[int]]) -> bytes:
    """One matrix of left classes, a row each, by right classes; class 0 on the right is the rest."""
    right_classes: dict[tuple[tuple[int, int], ...], int] = {}
    class_of_glyph: dict[int, int] = {}
    for right, column in _columns(rows).items():
        right_class = right_classes.setdefault(column, len(right_classes) + 1)
        for glyph in rights[right]:
            class_of_glyph[glyph] = right_class
    width = len(right_classes) + 1
    matrix = [0] * (width * len(rows))
    for column, right_class in right_classes.items():
        for row, value in column:
            matrix[row * width + right_class] = value
    lefts = {glyph: index for index, (glyphs, _) in enumerate(rows) for glyph in glyphs}
    coverage = encode_coverage(sorted(lefts))
    left_definition = encode_class_definition(lefts)
    coverage_start = 16 + 2 * len(matrix)
    left_start = coverage_start + len(coverage)
    right_start = left_start + len(left_definition)
    return b"".join([
        pack(">HHHHHHHH", 2, coverage_start, _X_ADVANCE, 0, left_start, right_start, len(rows), width),
        pack(f">{len(matrix)}h", *matrix),
        coverage, left_definition, encode_class_definition(class_of_glyph)])


def _single_subtables(rows: Sequence[Row], rights: Sequence[list[int]]) -> list[bytes]:
    subtables = []
    sets: list[bytes] = []
    owners: list[tuple[int, int]] = []  # left glyphs with the index of their pair set
    sets_size = 0
    for glyphs, row in rows:
        pair_set = _pair_set(row, rights)
        for start in range(0, len(glyphs), _MOST_LEFT_GLYPHS):
            part = glyphs[start:start + _MOST_LEFT_GLYPHS]
            # Header, coverage and offsets stand before the sets: the last one may be any size.
            last_offset = 16 + 8 * (len(owners) + len(part)) + sets_size
            if owners and last_offset > _LARGEST_OFFSET:
                subtables.append(_single_subtable(owners, sets))
                owners, sets, sets_size = [], [], 0
            owners += [(glyph, len(sets)) for glyph in part]
            sets.append(pair_set)
            sets_size += len(pair_set)
    subtables.append(_single_subtable(owners, sets))
    return subtables


def _pair_set(row: dict[int, int], rights: Sequence[list[int]]) -> bytes:
    pairs = sorted((glyph, value) for right, value in row.items() for glyph in rights[right])
    return pack(">H", len(pairs)) + b"".join([pack(">Hh", *pair) for pair in pairs])


def _single_subtable(owners: list[tuple[int, int]], sets: Sequence[bytes]) -> bytes:
    owners.sort()
    coverage = encode_coverage([glyph for glyph, _ in owners])
    coverage_start = 10 + 2 * len(owners)
    starts, start = [], coverage_start + len(coverage)
    for pair_set in sets:
        starts.append(start)
        start += len(pair_set)
    return b"".join([
        pack(">HHHHH", 1, coverage_start, _X_ADVANCE, 0, len(owners)),
        pack(f">{len(owners)}H", *[starts[index] for _, index in owners]),
        coverage, *sets])
