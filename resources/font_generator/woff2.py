"""Packs a TrueType font as WOFF 2.0, by the W3C recommendation of that name.

The compressed form of outlines is made from their points at once. The way through fontTools
would be to compile the glyf table, take it apart again, and put it together a second time.
"""

from collections.abc import Mapping, Sequence
from struct import pack, unpack_from

from .errors import GeneratorError
from .glyf import GlyfOutline, GlyfShape

# The numbers of table tags in the directory, and the two transformations that are used: outlines
# as streams (whose number is 0, for these two tables only) and metrics without side bearings.
_TAG_NUMBERS = {"cmap": 0, "head": 1, "hhea": 2, "hmtx": 3, "maxp": 4, "name": 5, "OS/2": 6,
                "post": 7, "glyf": 10, "loca": 11, "prep": 12, "gasp": 17, "GDEF": 26, "GPOS": 27,
                "GSUB": 28}
_METRICS_WITHOUT_BEARINGS = 1 << 6
_HEADER_SIZE = 48
_HEAD_FLAG_LOSSLESS = 1 << 11
_OFF_CURVE = 0x80


def encode_woff2(tables: Mapping[str, bytes], shapes: Sequence[GlyfShape], quality: int) -> bytes:
    """The WOFF2 file of the tables, whose glyf, loca and hmtx belong to the shapes.

    `quality` is brotli's, 0 to 11; the best one takes twice the time of the next for one or
    two percent of size. Side bearings are left out: they are where the outlines begin.
    """
    try:
        import brotli
    except ImportError as error:
        raise GeneratorError("WOFF2 fonts need the Python package brotli, which is missing.") from error

    head, hhea = tables["head"], tables["hhea"]
    flags, = unpack_from(">H", head, 16)
    long_offsets, = unpack_from(">h", head, 50)
    metrics_count, = unpack_from(">H", hhea, 34)
    stored = dict(tables)
    stored["head"] = head[:16] + pack(">H", flags | _HEAD_FLAG_LOSSLESS) + head[18:]
    stored["glyf"] = _encode_outlines(shapes, long_offsets)
    stored["loca"] = b""
    stored["hmtx"] = _encode_advances(tables["hmtx"], metrics_count)
    # The locations are made from the outlines, so that they have to come next.
    order = [tag for tag in sorted(tables) if tag != "loca"]
    order.insert(order.index("glyf") + 1, "loca")

    directory = b""
    for tag in order:
        transformed = tag in ("glyf", "loca", "hmtx")
        directory += bytes((_TAG_NUMBERS[tag] | (_METRICS_WITHOUT_BEARINGS if tag == "hmtx" else 0),))
        directory += _base_128(len(tables[tag]))
        directory += _base_128(len(stored[tag])) if transformed else b""
    compressed = brotli.compress(b"".join(stored[tag] for tag in order), mode=brotli.MODE_FONT,
                                 quality=quality)
    size = _HEADER_SIZE + len(directory) + len(compressed)
    sfnt_size = 12 + sum(16 + len(data) + -len(data) % 4 for data in tables.values())
    header = pack(">4s4sIHHIIHHIIIII", b"wOF2", b"\0\1\0\0", size + -size % 4, len(tables), 0, sfnt_size,
                  len(compressed), *unpack_from(">HH", head, 4), 0, 0, 0, 0, 0)
    return header + directory + compressed + bytes(-size % 4)


def _encode_advances(hmtx: bytes, metrics_count: int) -> bytes:
    """The advances alone; the flags say that neither kind of side bearing is there."""
    return b"\x03" + b"".join(hmtx[start:start + 2] for start in range(0, 4 * metrics_count, 4))


def _encode_outlines(shapes: Sequence[GlyfShape], long_offsets: int) -> bytes:
    """The glyf table as streams, each of one kind of value. Boxes are left out throughout, since
    they are those of the points. So is which glyphs overlap: the place for it came into the format
    late, and of the common readers FreeType keeps it, others drop it, and fontTools up to 4.38
    refuses the whole font."""
    contour_counts = pack(f">{len(shapes)}h", *[shape.contours for shape in shapes])
    point_counts, flags, points = (b"".join(stream) for stream in zip(
        *[shape.packed or (b"", b"", b"") for shape in shapes]))
    box_bitmap = bytes((len(shapes) + 31) // 32 * 4)
    streams = [contour_counts, point_counts, flags, points, b"", box_bitmap, b""]
    header = pack(">HHHH7I", 0, 0, len(shapes), long_offsets, *map(len, streams))
    return header + b"".join(streams)


def pack_outline(outline: GlyfOutline) -> tuple[bytes, bytes, bytes]:
    """What the streams of point counts, flags and points hold of an outline."""
    point_counts, flags, points = bytearray(), bytearray(), bytearray()
    first = 0
    for end in outline.ends:
        point_counts += _count_255(end + 1 - first)
        first = end + 1
    if outline.ends:
        _append_points(outline, flags, points)
        points.append(0)  # the length of its instructions
    return bytes(point_counts), bytes(flags), bytes(points)


def _append_points(outline: GlyfOutline, flags: bytearray, points: bytearray) -> None:
    """Appends each point as a flag and one to four bytes.

    The flag tells the signs of the step from the point before and how its two lengths share the
    bytes: 0/8 or 8/0 with three more bits in the flag, 4/4, 8/8, 12/12 or 16/16.
    """
    last_x = last_y = 0
    for x, y, on in zip(outline.xs, outline.ys, outline.on_curve):
        dx, dy = x - last_x, y - last_y
        last_x, last_y = x, y
        across, up = abs(dx), abs(dy)
        flag = 0 if on else _OFF_CURVE
        if dx == 0 and up < 1280:
            flags.append(flag + up // 256 * 2 + (dy >= 0))
            points.append(up % 256)
            continue
        if dy == 0 and across < 1280:
            flags.append(flag + 10 + across // 256 * 2 + (dx >= 0))
            points.append(across % 256)
            continue
        flag += (dx >= 0) + 2 * (dy >= 0)
        if 0 < across <= 64 and 0 < up <= 64:
            across, up = across - 1, up - 1
            flags.append(flag + 20 + across // 16 * 16 + up // 16 * 4)
            points.append(across % 16 * 16 + up % 16)
        elif 0 < across <= 768 and 0 < up <= 768:
            across, up = across - 1, up - 1
            flags.append(flag + 84 + across // 256 * 12 + up // 256 * 4)
            points += bytes((across % 256, up % 256))
        elif across < 4096 and up < 4096:
            flags.append(flag + 120)
            points += (across << 12 | up).to_bytes(3, "big")
        else:
            flags.append(flag + 124)
            points += (across << 16 | up).to_bytes(4, "big")


def _count_255(number: int) -> bytes:
    """A 16-bit number in one byte if it is below 253, in two or three otherwise."""
    if number < 253:
        return bytes((number,))
    if number < 506:
        return bytes((255, number - 253))
    if number < 762:
        return bytes((254, number - 506))
    return b"\xfd" + number.to_bytes(2, "big")


def _base_128(number: int) -> bytes:
    """A number in groups of seven bits, the highest first; all but the last have the top bit."""
    data = [number & 0x7F]
    while number := number >> 7:
        data.append(number & 0x7F | 0x80)
    return bytes(reversed(data))
