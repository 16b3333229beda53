"""The small letters."""

from .catalogue import glyph
from .parameters import (ARCH, BAR, DEPTH, DOT, JOIN, OVER, SIDE, STEM, TALL,
                         THICK, THIN, XHEIGHT)
from .shapes import (E, N, S, W, across, arm_and_leg, at, beam, block, bottom, disc,
                     double_vee, end, flipped, left, polygon, right, ring, stem,
                     stroke, top, turned, vee, zigzag)

HALF = STEM / 2
ROOT = 0.62 * STEM    # where arches and bowls start, hidden in the stem
ROOF = XHEIGHT + OVER
FLOOR = -OVER
MIDDLE = XHEIGHT / 2

# Side bearings: upright stems, the far side of arches, rounds, diagonals
STRAIGHT, ARCHED, ROUND, DIAGONAL = 74, 68, 42, 10
DOTTED = STRAIGHT - (DOT - STEM) // 2    # the dot is wider than its stem


def arch(x, width, shoulder=322, end_cut=None):
    """A bow that grows out of the stem at x and comes down on the right."""
    return stroke(at(x + ROOT, 330, 68, JOIN),
                  top(x + 0.555 * width, ROOF, ARCH, E, pull=(0.95, 1)),
                  right(x + width, shoulder, STEM, S),
                  at(x + width - HALF, 0, S, STEM), end_cut=end_cut)


def bowl(width):
    """The round of b and p, its thin ends hidden in the stem on the left."""
    return stroke(at(ROOT, 338, 64, JOIN),
                  top(0.545 * width, ROOF, ARCH, E),
                  right(width, MIDDLE, SIDE, S),
                  bottom(0.545 * width, FLOOR, ARCH, W),
                  at(ROOT, XHEIGHT - 338, 116, JOIN))


BOWL = 476


@glyph("a", 38, STRAIGHT - 4)
def a():
    back = stroke(end(52, 424, 70), top(206, ROOF, ARCH + 2, E),
                  right(408, 338, STEM, S), at(408 - HALF, 0, S, STEM))
    belly = stroke(at(380, 290, W, 57), at(226, 279, 188, 61),
                   left(0, 136, SIDE - 4, S), bottom(186, FLOOR, ARCH - 1, E, pull=(1, 0.92)),
                   at(408 - ROOT, 124, 64, JOIN))
    return back + belly


@glyph("b", STRAIGHT, ROUND)
def b():
    return stem(0, 0, TALL) + bowl(BOWL)


@glyph("c", ROUND, 22)
def c():
    return stroke(end(378, 416, 71), top(238, ROOF, ARCH + 1, W),
                  left(0, MIDDLE, SIDE, S), bottom(238, FLOOR, ARCH + 1, E),
                  end(382, 82, 69))


@glyph("d", ROUND, STRAIGHT)
def d():
    return stem(BOWL - STEM, 0, TALL) + flipped(bowl(BOWL), BOWL)


@glyph("e", ROUND, 34)
def e():
    ring_ = stroke(at(462 - 39, 226, N, 78), right(462, 262, 78, N),
                   top(240, ROOF, ARCH, W), left(0, MIDDLE, SIDE, S),
                   bottom(248, FLOOR, ARCH + 1, E), end(420, 72, 67))
    return ring_ + block(40, 226, 423, 226 + 62)


@glyph("f", 14, -14)
def f():
    hook = stroke(top(314, TALL + OVER, 69, W), left(90, 588, STEM, S),
                  at(90 + HALF, 0, S, STEM), start_cut=80)
    return hook + block(0, XHEIGHT - BAR, 290, XHEIGHT)


@glyph("g", ROUND, STRAIGHT)
def g():
    width = BOWL
    hook = stroke(at(width - HALF, XHEIGHT, S, STEM), at(width - HALF, -30, S, STEM),
                  bottom(226, -212, ARCH, W), end(62, -148, 67))
    return flipped(bowl(width), width) + hook


@glyph("h", STRAIGHT, ARCHED)
def h():
    return stem(0, 0, TALL) + arch(0, 424)


@glyph("i", DOTTED, DOTTED)
def i():
    return stem(0, 0, XHEIGHT) + disc(HALF, 660, DOT)


@glyph("j", -40, DOTTED)
def j():
    hook = stroke(at(160, XHEIGHT, S, STEM), at(160, -60, S, STEM),
                  bottom(-14, -212, ARCH, W),
                  start_cut=12, end_cut=98)
    return hook + disc(160, 660, DOT)


@glyph("k", STRAIGHT, 4)
def k():
    return stem(0, 0, TALL) + arm_and_leg(STEM, XHEIGHT, 152, 410, THIN, 430, 0.74, THICK)


@glyph("l", STRAIGHT, 24)
def l():
    return stroke(at(HALF, TALL - 9, S, STEM), at(HALF, 110, S, STEM),
                  bottom(176, FLOOR, BAR, E),
                  start_cut=12, end_cut=85)


@glyph("m", STRAIGHT, ARCHED)
def m():
    return stem(0, 0, XHEIGHT) + arch(0, 396, 358) + arch(396 - STEM, 396, 334)


@glyph("n", STRAIGHT, ARCHED)
def n():
    return stem(0, 0, XHEIGHT) + arch(0, 424)


@glyph("o", ROUND, ROUND)
def o():
    return ring(0, FLOOR, 496, ROOF, SIDE, ARCH)


@glyph("p", STRAIGHT, ROUND)
def p():
    return stem(0, DEPTH, XHEIGHT) + bowl(BOWL)


@glyph("q", ROUND, STRAIGHT)
def q():
    return stem(BOWL - STEM, DEPTH, XHEIGHT, slant=0) + flipped(bowl(BOWL), BOWL)


@glyph("r", STRAIGHT, 8)
def r():
    arm = stroke(at(ROOT, 300, 84, JOIN + 2), top(282, ROOF, 74, E), end_cut=84)
    return stem(0, 0, XHEIGHT) + arm


@glyph("s", 32, 32)
def s():
    return stroke(end(332, 420, 69), top(192, ROOF, ARCH + 1, W),
                  left(12, 368, 81, S, pull=(1, 1.12), skew=8),
                  at(192, 254, -21, 84),
                  right(376, 134, 85, S, pull=(1.12, 1), skew=8),
                  bottom(184, FLOOR, ARCH + 1, W), end(26, 82, 69))


@glyph("t", 14, 22)
def t():
    trunk = stroke(at(88 + HALF, 640, S, STEM), at(88 + HALF, 126, S, STEM),
                   bottom(284, FLOOR, BAR, E),
                   start_cut=24, end_cut=82)
    return trunk + block(0, XHEIGHT - BAR, 286, XHEIGHT)


@glyph("u", ARCHED, STRAIGHT)
def u():
    width = 424
    bow = turned(arch(0, width, end_cut=12), width, XHEIGHT)
    return stem(width - STEM, 0, XHEIGHT) + bow


@glyph("v", DIAGONAL, DIAGONAL)
def v():
    return vee(452, XHEIGHT, THICK, THIN, 86)


@glyph("w", DIAGONAL + 4, DIAGONAL + 4)
def w():
    return double_vee(694, XHEIGHT, THICK - 3, THIN - 3, 78)


@glyph("x", 12, 12)
def x():
    thick = across(THICK, 340, XHEIGHT)
    thin = across(THIN, 340, XHEIGHT)
    return (beam(0, 446 - thick, 446, XHEIGHT, 12, 12 + thick)
            + beam(0, 0, thin, XHEIGHT, 434 - thin, 434))


@glyph("y", DIAGONAL, DIAGONAL)
def y():
    width = 452
    thin, thick = across(THIN, 188, XHEIGHT), across(THICK, 188, XHEIGHT)
    slope, run = 69.4, 0.376    # the rising stroke, and its way left per unit down
    start = width - thin / 2
    tail = stroke(at(start, XHEIGHT, S - 90 + slope, THIN),
                  at(start - run * 545, -45, S - 90 + slope, THIN),
                  at(34, -178, W, ARCH), start_cut=0, end_cut=82)
    lean = 0.366
    down = polygon((0, XHEIGHT), (thick, XHEIGHT), (thick + lean * 440, 60),
                   (238, -20), (lean * 520, -20))
    return down + tail


@glyph("z", 28, 26)
def z():
    return zigzag(384, XHEIGHT, BAR, 102, 10, 6)
