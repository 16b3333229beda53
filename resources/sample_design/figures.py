"""The figures, all on the same advance."""

from .catalogue import centred_glyph
from .parameters import (CAP, FIGURE_ARCH, FIGURE_SIDE, FIGURE_STEM,
                         FIGURE_WIDTH, OVER)
from .shapes import (E, N, S, W, across, at, block, bottom, end, left, polygon,
                     right, ring, stroke, top, turned)

ROOF = CAP + OVER
FLOOR = -OVER
SIDE, ARCH, STEM = FIGURE_SIDE, FIGURE_ARCH, FIGURE_STEM
BAR = FIGURE_ARCH + 2


def figure(name, shift=0):
    """Registers a figure, `shift` units right of the middle of its advance."""
    return centred_glyph(name, FIGURE_WIDTH, shift)


@figure("zero")
def zero():
    return ring(0, FLOOR, 476, ROOF, SIDE, ARCH)


@figure("one", -14)
def one():
    return (block(248 - STEM, 0, 248, CAP)
            + polygon((0, 548), (36, 488), (248 - STEM + 20, 566), (248 - STEM + 20, CAP),
                      (248 - STEM - 4, CAP)))


@figure("two")
def two():
    return (stroke(end(46, 572, 75), top(218, ROOF, ARCH, E),
                   right(430, 520, SIDE - 2, S), at(286, 308, 223, 83),
                   at(61.5, BAR, 233, 82), end_cut=0)
            + block(10, 0, 442, BAR))


@figure("three")
def three():
    return (stroke(end(46, 598, 74), top(206, ROOF, ARCH, E),
                   right(414, 535, SIDE - 4, S), at(214, 368, W, 66), at(140, 368, W, 66))
            + stroke(at(140, 365, E, 66), at(210, 365, E, 66),
                     right(440, 186, SIDE, S), bottom(206, FLOOR, ARCH, W),
                     end(32, 102, 75)))


@figure("four")
def four():
    bar, low = BAR - 4, 152
    edge = across(74, 300, 480)
    return (block(302, 0, 302 + STEM, CAP) + block(0, low, 486, low + bar)
            + polygon((0, low + bar), (0, low + 30), (edge + 2, low + bar - 12),
                      (302 + STEM - 4, CAP - 4), (302 + STEM - 4, CAP), (382 - edge, CAP)))


@figure("five")
def five():
    return (block(56, CAP - BAR, 404, CAP)
            + block(56, 384, 134, CAP)
            + stroke(end(56, 372, 60), top(208, 450, ARCH, E, pull=(0.9, 1)),
                     right(436, 222, SIDE, S), bottom(200, FLOOR, ARCH, W),
                     end(26, 94, 75), start_cut=N))


@figure("six")
def six():
    return (ring(0, FLOOR, 466, 442, SIDE, ARCH - 2)
            + stroke(end(400, 640, 74), top(276, ROOF, ARCH, W),
                     left(0, 215, SIDE, S)))


@figure("seven")
def seven():
    return (block(0, CAP - BAR, 440, CAP)
            + polygon((84, 0), (176, 0), (440, CAP - BAR), (440, CAP - 20),
                      (346, CAP - 20)))


@figure("eight")
def eight():
    return (ring(28, 326, 442, ROOF, SIDE - 6, ARCH - 4)
            + ring(0, FLOOR, 470, 392, SIDE, ARCH - 2))


@figure("nine")
def nine():
    return turned(six(), 466, CAP)
