"""Punctuation and symbols."""

from .accents import wave
from .catalogue import centred_glyph, glyph
from .geometry import unit
from .parameters import ARCH, CAP, CAP_ARCH, DOT, FIGURE_WIDTH, OVER, XHEIGHT
from .shapes import (E, N, S, W, across, at, beam, block, bottom, disc, end, flipped,
                     left, loop, moved, polygon, right, ring, stroke, top, turned)

R = DOT / 2
SIGN = 66            # strokes of mathematical and other light signs
ROOF, FLOOR = CAP + OVER, -OVER
TOP = CAP + 24       # quotation marks and slashes
AXIS = 346           # the height mathematical signs are centred on


def tail_dot(y=R):
    """A comma: a dot with the tail of a pen stroke."""
    return disc(R, y, DOT) + stroke(
        right(DOT, y, 74, S), at(R - 22, y - 142, 235, 36), end_cut=0)


def wedge(x):
    """A straight quotation mark: wider at the top."""
    return beam(CAP - 236, x + 13, x + 79, TOP, x, x + 92)


@glyph("period", 54, 54)
def period():
    return disc(R, R - 4, DOT)


@glyph("comma", 52, 54)
def comma():
    return tail_dot(R - 4)


@glyph("colon", 58, 58)
def colon():
    return disc(R, R - 4, DOT) + disc(R, XHEIGHT - R - 14, DOT)


@glyph("semicolon", 56, 58)
def semicolon():
    return tail_dot(R - 4) + disc(R, XHEIGHT - R - 14, DOT)


@glyph("exclam", 70, 70)
def exclam():
    return disc(R, R - 4, DOT) + beam(196, R - 32, R + 32, CAP, R - 50, R + 50)


@glyph("question", 30, 38)
def question():
    hook = stroke(end(34, 596, 74), top(186, ROOF, CAP_ARCH - 3, E),
                  right(382, 540, 88, S), at(268, 390, 221, 80),
                  left(160, 240, 78, S), at(199, 196, S, 78))
    return hook + disc(199, R - 4, DOT)


@glyph("quotesingle", 56, 56)
def quotesingle():
    return wedge(0)


@glyph("quotedbl", 56, 56)
def quotedbl():
    return wedge(0) + wedge(156)


@glyph("hyphen", 48, 48)
def hyphen():
    return block(0, 218, 250, 218 + 72)


@glyph("underscore", 0, 0)
def underscore():
    return block(0, -140, 500, -140 + SIGN)


@glyph("slash", 6, 6)
def slash():
    return beam(-100, 0, 78, TOP + 16, 290, 368)


@glyph("backslash", 6, 6)
def backslash():
    return flipped(slash(), 368)


@glyph("bar", 110, 110)
def bar():
    return block(0, -200, 72, 780)


@glyph("parenleft", 62, 30)
def parenleft():
    return stroke(at(222, 776, 233, 62), left(0, 300, 80, S), at(222, -176, -53, 62),
                  start_cut=0, end_cut=0)


@glyph("parenright", 30, 62)
def parenright():
    return flipped(parenleft(), 222)


@glyph("bracketleft", 84, 34)
def bracketleft():
    return block(0, -176, 78, 776) + block(0, 710, 200, 776) + block(0, -176, 200, -110)


@glyph("bracketright", 34, 84)
def bracketright():
    return flipped(bracketleft(), 200)


@glyph("braceleft", 30, 34)
def braceleft():
    half = stroke(at(254, 743, W, 66), at(228, 743, W, 66), left(86, 620, 76, S),
                  left(86, 424, 76, S), at(24, 306, W, 62), at(0, 306, W, 62))
    return half + flipped(turned(half, 254, 600), 254)


@glyph("braceright", 34, 30)
def braceright():
    return flipped(braceleft(), 254)


@centred_glyph("plus", FIGURE_WIDTH)
def plus():
    return (block(0, AXIS - SIGN / 2 - 1, 440, AXIS + SIGN / 2 - 1)
            + block(220 - 35, AXIS - 221, 220 + 35, AXIS + 219))


@centred_glyph("equal", FIGURE_WIDTH)
def equal():
    return block(0, AXIS + 54, 440, AXIS + 54 + SIGN) \
        + block(0, AXIS - 54 - SIGN, 440, AXIS - 54)


@centred_glyph("less", FIGURE_WIDTH)
def less():
    return turned(greater(), 430, 2 * AXIS)


@centred_glyph("greater", FIGURE_WIDTH)
def greater():
    return polygon((0, AXIS + 218), (0, AXIS + 142), (338, AXIS), (0, AXIS - 142),
                   (0, AXIS - 218), (430, AXIS - 36), (430, AXIS + 36))


@centred_glyph("asciitilde", FIGURE_WIDTH)
def asciitilde():
    return wave(228, AXIS, 408, 72, -38)


@centred_glyph("asciicircum", FIGURE_WIDTH)
def asciicircum():
    thin = across(68, 190, 300)
    return (beam(388, 0, thin, CAP, 215 - 40, 215 + 40)
            + beam(388, 430 - thin, 430, CAP, 215 - 40, 215 + 40))


@glyph("grave", 60, 60)
def grave():
    return polygon((0, 740), (108, 740), (196, 580), (122, 580))


@glyph("asterisk", 34, 34)
def asterisk():
    """Five arms, wider towards their ends, around one middle."""
    middle = complex(180, 560)
    shape = []
    for step in range(5):
        spin = unit(72 * step)
        corners = [middle + spin * p for p in (-30, 30, 40 + 176j, -40 + 176j)]
        shape += polygon(*[(p.real, p.imag) for p in corners])
    return shape


@glyph("numbersign", 26, 26)
def numbersign():
    return (beam(0, 92, 164, CAP, 192, 264) + beam(0, 312, 384, CAP, 412, 484)
            + block(28, 440, 548, 440 + 64) + block(0, 196, 520, 196 + 64))


@centred_glyph("dollar", FIGURE_WIDTH)
def dollar():
    s = stroke(end(386, 582, 73), top(224, ROOF - 6, ARCH + 3, W),
               left(16, 516, 83, S, pull=(1, 1.12), skew=8), at(226, 354, -23, 88),
               right(438, 188, 88, S, pull=(1.12, 1), skew=8),
               bottom(214, FLOOR + 6, ARCH + 3, W), end(32, 116, 73))
    return s + block(186, CAP - 34, 254, CAP + 88) + block(186, -88, 254, 34)


@glyph("percent", 36, 36)
def percent():
    small = ring(0, 340, 292, ROOF, 74, 62)
    return small + moved(small, 440, -352) + beam(0, 146, 222, CAP, 512, 588)


@glyph("ampersand", 40, 8)
def ampersand():
    return stroke(at(596, 0, 131.4, 93), at(180, 472, 131.4, 88),
                  left(96, 572, 82, N), top(262, ROOF, 70, E),
                  right(424, 568, 80, S), at(318, 424, 216, 72), at(150, 302, 216, 76),
                  left(0, 158, 94, S), bottom(236, FLOOR, 74, E),
                  at(566, 350, 78, 80), start_cut=0, end_cut=0)


@glyph("at", 46, 46)
def at_():
    outer = stroke(end(640, -104, 58), bottom(450, -150, 60, W),
                   left(0, 270, 72, N), top(430, 690, 62, E), right(830, 310, 72, S),
                   bottom(690, 56, 58, W), left(556, 170, 66, N), at(589, 470, N, 66))
    inner = loop(top(420, 484, 58, W), left(232, 268, 74, S), bottom(420, 54, 58, E),
                 right(618, 268, 64, N))
    return outer + inner
