"""The capital letters."""

from .catalogue import glyph
from .parameters import (CAP, CAP_ARCH, CAP_BAR, CAP_SIDE, CAP_STEM, CAP_THICK,
                         CAP_THIN, OVER)
from .shapes import (E, N, S, W, across, arm_and_leg, at, beam, block, bottom,
                     double_vee, end, left, right, ring, stroke, top, vee, zigzag)

HALF = CAP_STEM / 2
ROOF = CAP + OVER
FLOOR = -OVER
MIDDLE = CAP / 2

# Side bearings: upright stems, rounds, diagonals
STRAIGHT, ROUND, DIAGONAL = 84, 46, 8


def upright(x=0):
    return block(x, 0, x + CAP_STEM, CAP)


def lobe(y0, y1, width, reach, lower=CAP_BAR, upper=CAP_BAR, side=CAP_SIDE):
    """The half round of B D P R, level where it leaves the stem."""
    return stroke(at(HALF, y1 - upper / 2, E, upper),
                  at(reach, y1 - upper / 2, E, upper),
                  right(width, (y0 + y1) / 2, side, S),
                  at(reach, y0 + lower / 2, W, lower),
                  at(HALF, y0 + lower / 2, W, lower))


@glyph("A", DIAGONAL, DIAGONAL)
def A():
    width, apex = 640, 100
    middle = width / 2 - 4
    thin = across(CAP_THIN, 275, CAP)
    thick = across(CAP_THICK, 275, CAP)
    a, b = middle - apex / 2, middle + apex / 2
    return (beam(0, 0, thin, CAP, a, b) + beam(0, width - thick, width, CAP, a, b)
            + block(120, 186, width - 120, 186 + CAP_BAR - 6))


@glyph("B", STRAIGHT, 42)
def B():
    return (upright() + lobe(334, CAP, 468, 262, 66, CAP_BAR - 2, CAP_SIDE - 4)
            + lobe(0, 392, 508, 280, CAP_BAR, 66))


@glyph("C", ROUND, 26)
def C():
    return stroke(end(560, 588, 82), top(352, ROOF, CAP_ARCH, W),
                  left(0, MIDDLE, CAP_SIDE, S), bottom(352, FLOOR, CAP_ARCH, E),
                  end(566, 114, 80))


@glyph("D", STRAIGHT, ROUND)
def D():
    return upright() + lobe(0, CAP, 602, 252)


@glyph("E", STRAIGHT, 36)
def E_():
    return (upright() + block(0, CAP - CAP_BAR, 432, CAP)
            + block(0, 320, 400, 320 + CAP_BAR - 4) + block(0, 0, 440, CAP_BAR))


@glyph("F", STRAIGHT, 26)
def F():
    return (upright() + block(0, CAP - CAP_BAR, 420, CAP)
            + block(0, 298, 386, 298 + CAP_BAR - 2))


@glyph("G", ROUND, STRAIGHT - 20)
def G():
    width = 612
    return (stroke(end(572, 592, 82), top(360, ROOF, CAP_ARCH, W),
                   left(0, MIDDLE, CAP_SIDE, S), bottom(354, FLOOR, CAP_ARCH, E),
                   right(width, 196, CAP_STEM, N), at(width - HALF, 356, N, CAP_STEM))
            + block(364, 356 - CAP_BAR + 4, width - 20, 356))


@glyph("H", STRAIGHT, STRAIGHT)
def H():
    width = 560
    return (upright() + upright(width - CAP_STEM)
            + block(20, 318, width - 20, 318 + CAP_BAR - 2))


@glyph("I", STRAIGHT, STRAIGHT)
def I():
    return upright()


@glyph("J", 14, STRAIGHT - 4)
def J():
    width = 350
    return stroke(end(34, 98, 78), bottom(160, FLOOR, CAP_ARCH, E),
                  right(width, 200, CAP_STEM, N), at(width - HALF, CAP, N, CAP_STEM))


@glyph("K", STRAIGHT, 4)
def K():
    return upright() + arm_and_leg(CAP_STEM, CAP, 218, 530, CAP_THIN + 2,
                                   566, 0.72, CAP_THICK)


@glyph("L", STRAIGHT, 20)
def L():
    return upright() + block(0, 0, 410, CAP_BAR)


@glyph("M", STRAIGHT - 4, STRAIGHT - 4)
def M():
    width, foot = 706, 96
    a, b = width / 2 - foot / 2, width / 2 + foot / 2
    down = across(CAP_THICK, 270, CAP - 120)
    return (block(0, 0, CAP_STEM - 4, CAP) + block(width - CAP_STEM + 4, 0, width, CAP)
            + beam(120, a, b, CAP, 0, down) + beam(120, a, b, CAP, width - down, width))


@glyph("N", STRAIGHT, STRAIGHT)
def N_():
    width = 578
    thick = across(CAP_THICK - 1, 460, CAP)
    return (block(0, 0, CAP_STEM - 4, CAP) + block(width - CAP_STEM + 4, 0, width, CAP)
            + beam(0, width - thick, width, CAP, 0, thick))


@glyph("O", ROUND, ROUND)
def O():
    return ring(0, FLOOR, 690, ROOF, CAP_SIDE, CAP_ARCH)


@glyph("P", STRAIGHT, 30)
def P():
    return upright() + lobe(278, CAP, 486, 258)


@glyph("Q", ROUND, ROUND - 6)
def Q():
    return O() + beam(-118, 592, 700, 60, 438, 536)


@glyph("R", STRAIGHT, 14)
def R():
    thick = across(CAP_THICK, 200, 330)
    return (upright() + lobe(300, CAP, 490, 262)
            + beam(0, 532 - thick, 532, 340, 226, 226 + thick - 4))


@glyph("S", 36, 36)
def S_():
    return stroke(end(428, 590, 79), top(246, ROOF, CAP_ARCH, W),
                  left(18, 518, 90, S, pull=(1, 1.12), skew=9),
                  at(250, 356, -23, 95),
                  right(488, 186, 95, S, pull=(1.12, 1), skew=9),
                  bottom(236, FLOOR, CAP_ARCH, W), end(34, 114, 79))


@glyph("T", 16, 16)
def T():
    width = 530
    return (block(0, CAP - CAP_BAR, width, CAP)
            + block(width / 2 - HALF, 0, width / 2 + HALF, CAP))


@glyph("U", STRAIGHT - 4, STRAIGHT - 4)
def U():
    width = 556
    return stroke(at(HALF, CAP, S, CAP_STEM), left(0, 252, CAP_STEM, S),
                  bottom(width / 2, FLOOR, CAP_ARCH, E),
                  right(width, 252, CAP_STEM, N), at(width - HALF, CAP, N, CAP_STEM))


@glyph("V", DIAGONAL, DIAGONAL)
def V():
    return vee(634, CAP, CAP_THICK, CAP_THIN, 98)


@glyph("W", DIAGONAL + 6, DIAGONAL + 6)
def W_():
    return double_vee(916, CAP, CAP_THICK - 3, CAP_THIN - 3, 88)


@glyph("X", 12, 12)
def X():
    thick = across(CAP_THICK, 480, CAP)
    thin = across(CAP_THIN, 480, CAP)
    return (beam(0, 592 - thick, 592, CAP, 14, 14 + thick)
            + beam(0, 0, thin, CAP, 578 - thin, 578))


@glyph("Y", DIAGONAL, DIAGONAL)
def Y():
    width = 596
    a, b = width / 2 - HALF, width / 2 + HALF
    thick = across(CAP_THICK, 250, 420)
    thin = across(CAP_THIN, 250, 420)
    return (block(a, 0, b, 290) + beam(CAP, 0, thick, 270, a, b)
            + beam(270, a, b, CAP, width - thin, width))


@glyph("Z", 28, 28)
def Z():
    return zigzag(516, CAP, CAP_BAR, 110, 16, 8)
