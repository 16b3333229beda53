"""Texts of several characters that one glyph stands for, as ligatures of a GSUB table."""

from collections.abc import Mapping, Sequence
from struct import pack

from .layout import encode_coverage, encode_layout

_LIGATURE, _EXTENSION = 4, 7
_LARGEST_SUBTABLE = 50000  # bytes; the offsets inside have 16 bits


def encode_sequences(sequences: Mapping[tuple[int, ...], int], scripts: Sequence[str]) -> bytes | None:
    """The GSUB table that replaces each sequence of glyphs by a glyph; None without sequences.

    The feature is ccmp, which no program lets its users switch off: a flag is one character to
    them, and so is a letter with its marks.
    """
    # The first ligature that matches is taken, so longer ones stand before their beginnings.
    ordered = sorted(sequences.items(), key=lambda entry: (entry[0][0], -len(entry[0]), entry[0]))
    if not ordered:
        return None
    subtables = []
    chunk: dict[int, list[bytes]] = {}
    size = 0
    for glyphs, ligature in ordered:
        count = len(glyphs)
        data = pack(f">HH{count - 1}H", ligature, count, *glyphs[1:])
        if chunk and size + len(data) + 8 > _LARGEST_SUBTABLE:
            subtables.append(_subtable(chunk))
            chunk, size = {}, 0
        chunk.setdefault(glyphs[0], []).append(data)
        size += len(data) + 8  # with its offset, and a set's offset and count
    subtables.append(_subtable(chunk))
    return encode_layout(scripts, "ccmp", _LIGATURE, _EXTENSION, subtables)


def _subtable(ligatures: Mapping[int, Sequence[bytes]]) -> bytes:
    coverage = encode_coverage(sorted(ligatures))
    coverage_start = 6 + 2 * len(ligatures)
    starts, sets = [], []
    start = coverage_start + len(coverage)
    for first in sorted(ligatures):
        entries = ligatures[first]
        offsets, offset = [], 2 + 2 * len(entries)
        for data in entries:
            offsets.append(offset)
            offset += len(data)
        starts.append(start)
        sets.append(pack(f">H{len(entries)}H", len(entries), *offsets) + b"".join(entries))
        start += offset
    return b"".join([pack(f">HHH{len(starts)}H", 1, coverage_start, len(starts), *starts),
                     coverage, *sets])
