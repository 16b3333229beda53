"""The parts that the positioning table (GPOS) and the substitution table (GSUB) share, as bytes.

Both are built without the object trees of fontTools: compiling those takes longer than the
rest of a font when there are tens of thousands of pairs, and offsets that overflow have to be
mended afterwards, whereas here every subtable is cut to size beforehand.
"""

from collections.abc import Mapping, Sequence
from struct import pack


def encode_layout(scripts: Sequence[str], feature: str, lookup_type: int, extension_type: int,
                  subtables: Sequence[bytes]) -> bytes:
    """A layout table with one feature of one lookup, on for DFLT and each of `scripts`.

    The subtables hang on extension records, whose offsets have 32 bits.
    """
    # Every script uses the same Script table, with nothing but a default language.
    tags = sorted({"DFLT", *scripts})
    script = pack(">HHHHHH", 4, 0, 0, 0xFFFF, 1, 0)
    script_list = pack(">H", len(tags))
    for tag in tags:
        script_list += pack(">4sH", tag.encode("ascii"), 2 + 6 * len(tags))
    script_list += script
    feature_list = pack(">H4sHHHH", 1, feature.encode("ascii"), 8, 0, 1, 0)

    count = len(subtables)
    records_start = 6 + 2 * count
    lookup_list = pack(f">HHHHH{count}H", 1, 4, extension_type, 0, count,
                       *range(records_start, records_start + 8 * count, 8))
    records, distance = [], 8 * count
    for subtable in subtables:
        records.append(pack(">HHI", 1, lookup_type, distance))
        distance += len(subtable) - 8  # the next record starts 8 bytes later

    script_start = 10
    feature_start = script_start + len(script_list)
    lookup_start = feature_start + len(feature_list)
    header = pack(">HHHHH", 1, 0, script_start, feature_start, lookup_start)
    return b"".join([header, script_list, feature_list, lookup_list, *records, *subtables])


def encode_coverage(glyphs: Sequence[int]) -> bytes:
    """A Coverage table of the glyphs, given in rising order: a list or ranges, what is shorter."""
    ranges = _ranges({glyph: 0 for glyph in glyphs})
    if len(ranges) * 6 < len(glyphs) * 2:
        data, index = [pack(">HH", 2, len(ranges))], 0
        for first, last, _ in ranges:
            data.append(pack(">HHH", first, last, index))
            index += last - first + 1
        return b"".join(data)
    return pack(f">HH{len(glyphs)}H", 1, len(glyphs), *glyphs)


def encode_class_definition(classes: Mapping[int, int]) -> bytes:
    """A ClassDef table of glyphs and their classes; glyphs that it leaves out have class 0."""
    ranges = _ranges({glyph: classes[glyph] for glyph in sorted(classes) if classes[glyph]})
    data = [pack(">HH", 2, len(ranges))]
    data += [pack(">HHH", *entry) for entry in ranges]
    return b"".join(data)


def _ranges(values: Mapping[int, int]) -> list[tuple[int, int, int]]:
    """(first, last, value) for each run of neighbouring glyphs, in rising order, of one value."""
    result: list[tuple[int, int, int]] = []
    for glyph, value in values.items():
        if result and result[-1][1] == glyph - 1 and result[-1][2] == value:
            result[-1] = (result[-1][0], glyph, value)
        else:
            result.append((glyph, glyph, value))
    return result
