"""Accented letters and the letters of other languages."""

from .catalogue import accented_glyph, glyph, shape_of
from . import capitals, lowercase  # noqa: F401 - the letters that carry the accents
from .lowercase import ROUND, STRAIGHT
from .parameters import (ARCH, CAP, CAP_SIDE, LIGHT_DOT, OVER, SIDE, STEM,
                         TALL, XHEIGHT)
from .shapes import (E, N, S, W, at, block, bottom, disc, end, left, polygon, right,
                     stroke, top)

ACCENT = XHEIGHT + 72    # lower edge of the accents of small letters


def two_dots(middle, y, gap=192):
    return disc(middle - gap / 2, y, LIGHT_DOT) + disc(middle + gap / 2, y, LIGHT_DOT)


def grave(middle):
    return polygon((middle - 118, ACCENT + 158), (middle - 14, ACCENT + 158),
                   (middle + 66, ACCENT), (middle - 6, ACCENT))


def acute(middle):
    return polygon((middle + 118, ACCENT + 158), (middle + 14, ACCENT + 158),
                   (middle - 66, ACCENT), (middle + 6, ACCENT))


def wave(middle, y, width, thickness, slope):
    """A tilde around its middle."""
    w = width / 2
    return stroke(at(middle - w, y - 36, 58, thickness * 0.9),
                  top(middle - w * 0.46, y + 32 + thickness / 2, thickness, E),
                  at(middle, y, slope, thickness * 1.04),
                  bottom(middle + w * 0.46, y - 32 - thickness / 2, thickness, E),
                  at(middle + w, y + 36, 58, thickness * 0.9))


HIGH = CAP + 52 + LIGHT_DOT / 2
LOW = XHEIGHT + 100 + LIGHT_DOT / 2

accented_glyph("Adieresis", "A", two_dots(317, HIGH))
accented_glyph("Odieresis", "O", two_dots(345, HIGH + OVER))
accented_glyph("Udieresis", "U", two_dots(278, HIGH))
accented_glyph("adieresis", "a", two_dots(212, LOW))
accented_glyph("odieresis", "o", two_dots(248, LOW))
accented_glyph("udieresis", "u", two_dots(208, LOW))
accented_glyph("eacute", "e", acute(232))
accented_glyph("egrave", "e", grave(248))
accented_glyph("agrave", "a", grave(230))
accented_glyph("ntilde", "n", wave(222, ACCENT + 68, 300, 63, -46))


@glyph("ccedilla", ROUND, 22)
def ccedilla():
    tail = stroke(at(250, 12, S, 66), at(250, -52, S, 66), at(176, -190, 220, 34),
                  end_cut=0)
    return shape_of("c") + tail


@glyph("germandbls", STRAIGHT, 38)
def germandbls():
    half = STEM / 2
    return (stroke(at(half, 0, N, STEM), left(0, 548, STEM, N),
                   top(208, TALL + OVER, ARCH, E), right(402, 588, STEM - 2, S),
                   at(256, 422, W, 62), at(214, 422, W, 62))
            + stroke(at(214, 412, E, 62), at(254, 412, E, 62),
                     right(470, 200, SIDE, S), bottom(278, -OVER, ARCH, W),
                     end(160, 46, 66)))


@glyph("euro", 14, 22)
def euro():
    x = 66
    bowl = stroke(end(x + 428, 604, 76), top(x + 276, CAP + OVER, 73, W),
                  left(x, CAP / 2, CAP_SIDE - 7, S), bottom(x + 276, -OVER, 73, E),
                  end(x + 430, 94, 75))
    return (bowl + block(0, 394, x + 358, 394 + 60)
            + block(0, 250, x + 332, 250 + 60))
