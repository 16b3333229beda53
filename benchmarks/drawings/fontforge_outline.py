"""Prints what FontForge makes of a drawing.

    fontforge_outline.py DRAWING PROBE [turned]

"turned" turns its contours by their nesting, as one does before making a font. PROBE is a square
of 1,000 units at the origin on a page as the drawing's.
"""

import json
import sys
import time

import fontforge

font = fontforge.font()
font.em = 1000


def read(file, name):
    glyph = font.createChar(-1, name)
    glyph.importOutlines(file)
    return glyph


started = time.monotonic()
glyph = read(sys.argv[1], "drawing")
if sys.argv[3:]:
    glyph.correctDirection()
seconds = time.monotonic() - started
parts = []
for contour in glyph.foreground:
    curve = contour.dup()
    curve.is_quadratic = False
    points = list(curve)
    while points and not points[0].on_curve:
        points.append(points.pop(0))
    if not points:
        continue
    parts.append(f"M{points[0].x!r} {points[0].y!r}")
    held = []
    for point in [*points[1:], points[0]]:
        held.append(f"{point.x!r} {point.y!r}")
        if point.on_curve:
            parts.append(("C" if len(held) == 3 else "L") + " ".join(held[-3:]))
            held = []
    parts.append("Z")
box = read(sys.argv[2], "probe").boundingBox()
print(json.dumps({"path": "".join(parts), "scale": (box[2] - box[0]) / 1000, "x": box[0],
                  "y": box[3], "seconds": seconds}))
