"""Writes the drawings and the spacing file."""

import json

from . import accents, capitals, figures, lowercase, punctuation  # noqa: F401
from .catalogue import all_glyphs
from .geometry import box
from .kerning import PAIRS
from .parameters import ASCENDER, CAP, DESCENDER, FAMILY, UNITS_PER_EM, XHEIGHT

PAPER_TOP, PAPER_BOTTOM = 900, -300   # what a drawing shows around its baseline


def write(folder, spacing_file):
    folder.mkdir(exist_ok=True)
    for old in folder.glob("*.svg"):
        old.unlink()
    glyphs = sorted(all_glyphs(), key=lambda glyph: glyph.name)
    for glyph in glyphs:
        check(glyph)
        (folder / f"{glyph.name}.svg").write_text(drawing(glyph), encoding="ascii")
    spacing_file.write_text(spacing(glyphs), encoding="ascii")


def check(glyph):
    """Stops at what would move the drawing when it is read back."""
    corners = [[(s[0], s[-1]) for s in outline] for outline in glyph.outlines]
    if box(corners) != box(glyph.outlines):
        raise ValueError(f"{glyph.name}: a handle lies outside the outline")


def drawing(glyph):
    left, _, right, _ = box(glyph.outlines)
    shift = max(glyph.left_bearing, 0) - left
    width = max(right + shift, glyph.left_bearing + right - left + glyph.right_bearing)

    def place(point):
        return f"{_tenth(point.real + shift)} {_tenth(PAPER_TOP - point.imag)}"

    parts = []
    for outline in glyph.outlines:
        parts.append(f"M {place(outline[0][0])}")
        for segment in outline:
            if segment is outline[-1] and len(segment) == 2:
                break
            letter = "L" if len(segment) == 2 else "C"
            parts.append(f"{letter} " + " ".join(place(p) for p in segment[1:]))
        parts.append("Z")
    size = f"{_tenth(width)} {_tenth(PAPER_TOP - PAPER_BOTTOM)}"
    return (f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {size}">'
            f'<path d="{" ".join(parts)}"/></svg>\n')


def _tenth(units):
    """A whole number of font units as drawing units, ten to one."""
    whole = int(round(units))
    sign, whole = ("-", -whole) if whole < 0 else ("", whole)
    return f"{sign}{whole // 10}" + (f".{whole % 10}" if whole % 10 else "")


def spacing(glyphs):
    names = {glyph.name for glyph in glyphs}
    for pair in PAIRS:
        if not names.issuperset(pair[:2]):
            raise ValueError(f"kerning of an unknown glyph: {pair}")
    entries = ",\n".join(
        f'    "{glyph.name}": ' + json.dumps({
            "bottom": int(box(glyph.outlines)[1]),
            "leftSideBearing": glyph.left_bearing,
            "rightSideBearing": glyph.right_bearing}) for glyph in glyphs)
    metrics = json.dumps({
        "familyName": FAMILY, "unitsPerEm": UNITS_PER_EM, "ascender": ASCENDER,
        "descender": DESCENDER, "capHeight": CAP, "xHeight": XHEIGHT}, indent=2)
    pairs = ",\n".join("    " + json.dumps(list(pair)) for pair in PAIRS)
    return (metrics[:-2] + ',\n  "glyphs": {\n' + entries
            + '\n  },\n  "kerning": [\n' + pairs + "\n  ]\n}\n")
