"""The few building blocks all letters are made of.

Every function returns a list of outlines; `+` puts shapes together and the
overlaps are joined when the glyph is finished.
"""

import math

from .geometry import area, cross, curve, reverse_outline, unit
from .parameters import SLANT, SQUARENESS, STEM

E, N, W, S = 0, 90, 180, 270


class Node:
    """A place the pen passes: centre, direction and stroke width there.

    `pull` changes the handle length before and after the node. `skew` moves
    the left edge back and the right edge on, so that a tight inner curve gets
    as much room as the outer one.
    """

    def __init__(self, x, y, direction, width, pull=(1, 1), skew=0):
        self.centre = complex(x, y)
        self.direction = None if direction is None else unit(direction)
        self.width = width
        self.pull = pull
        self.skew = skew

    def edge(self, side):
        return self.centre + self.direction * side * (self.width / 2 * 1j - self.skew)

    def settle(self, neighbour):
        """Takes the direction of a circular arc to or from the neighbour."""
        if self.direction is None:
            chord = self.centre - neighbour.centre
            self.direction = (chord / abs(chord)) ** 2 / neighbour.direction


def at(x, y, direction, width, **more):
    """A node by the centre of the stroke."""
    return Node(x, y, direction, width, **more)


def end(x, y, width, **more):
    """The first or last node of a stroke; its direction follows from the curve."""
    return Node(x, y, None, width, **more)


def top(x, y, width, direction, **more):
    """A node at the top of a round; y is the outer edge."""
    return Node(x, y - width / 2, direction, width, **more)


def bottom(x, y, width, direction, **more):
    return Node(x, y + width / 2, direction, width, **more)


def left(x, y, width, direction, **more):
    """A node at the left of a round; x is the outer edge."""
    return Node(x + width / 2, y, direction, width, **more)


def right(x, y, width, direction, **more):
    return Node(x - width / 2, y, direction, width, **more)


def _edge_between(a, b, side, start, end):
    straight = abs(cross(a.direction, b.centre - a.centre)) < 0.01 * abs(b.centre - a.centre) \
        and abs(cross(a.direction, b.direction)) < 0.01
    if straight:
        return (start, end)
    return curve(start, a.direction, end, b.direction, SQUARENESS,
                 (a.pull[1], b.pull[0]))


def _cut_end(node, side, cut):
    """The corner of a stroke end, on a cut of the given angle."""
    corner = node.edge(side)
    if cut is None:
        return corner
    line = unit(cut)
    return corner - node.direction * (cross(corner - node.centre, line)
                                      / cross(node.direction, line))


def _counter_clockwise(outline):
    return outline if area(outline) > 0 else reverse_outline(outline)


def stroke(*nodes, start_cut=None, end_cut=None):
    """A stroke through the nodes; its ends are square unless a cut is given."""
    last = len(nodes) - 1
    nodes[0].settle(nodes[1])
    nodes[last].settle(nodes[last - 1])

    def corner(i, side):
        if i == 0:
            return _cut_end(nodes[0], side, start_cut)
        if i == last:
            return _cut_end(nodes[last], side, end_cut)
        return nodes[i].edge(side)

    sides = {}
    for side in (-1, 1):
        sides[side] = [_edge_between(nodes[i], nodes[i + 1], side,
                                     corner(i, side), corner(i + 1, side))
                       for i in range(last)]
    there, back = sides[-1], reverse_outline(sides[1])
    outline = there + [(there[-1][-1], back[0][0])] + back + [(back[-1][-1], there[0][0])]
    return [_counter_clockwise(outline)]


def loop(*nodes):
    """A closed stroke: an outer outline and a counter running against it."""
    outlines = []
    for side in (-1, 1):
        outlines.append([_edge_between(a, b, side, a.edge(side), b.edge(side))
                         for a, b in zip(nodes, nodes[1:] + nodes[:1])])
    outlines.sort(key=lambda outline: -abs(area(outline)))
    outer, counter = (_counter_clockwise(outline) for outline in outlines)
    return [outer, reverse_outline(counter)]


def ring(x0, y0, x1, y1, side, arch):
    """An o: sides and arches with their own thickness."""
    x, y = (x0 + x1) / 2, (y0 + y1) / 2
    return loop(top(x, y1, arch, W), left(x0, y, side, S),
                bottom(x, y0, arch, E), right(x1, y, side, N))


def polygon(*points):
    points = [complex(*point) for point in points]
    return [_counter_clockwise(list(zip(points, points[1:] + points[:1])))]


def block(x0, y0, x1, y1):
    return polygon((x0, y0), (x1, y0), (x1, y1), (x0, y1))


def stem(x, y0, y1, width=STEM, slant=SLANT):
    """A vertical whose head is cut with the slanted pen."""
    return polygon((x, y0), (x + width, y0), (x + width, y1), (x, y1 - slant))


def beam(y0, left0, right0, y1, left1, right1):
    """A diagonal with level ends, given by its two edges at both ends."""
    return polygon((left0, y0), (right0, y0), (right1, y1), (left1, y1))


def across(thickness, run, rise):
    """The level width of a diagonal of that thickness."""
    return thickness * math.hypot(run, rise) / abs(rise)


def vee(width, height, thick, thin, foot):
    """Two diagonals that meet in a level foot."""
    run = (width - foot) / 2
    down, up = across(thick, run, height), across(thin, run, height)
    x = run + (down - up) / 2
    return (beam(height, 0, down, 0, x, x + foot)
            + beam(0, x, x + foot, height, width - up, width))


def double_vee(width, height, thick, thin, foot):
    """Two vees that share the apex between them."""
    run = (width - foot) / 4
    down, up = across(thick, run, height), across(thin, run, height)
    a, apex, b = run + 4, 2 * run + 4, 3 * run + 4
    return (beam(height, 0, down, 0, a, a + foot)
            + beam(0, a, a + foot, height, apex, apex + foot)
            + beam(height, apex, apex + foot, 0, b, b + foot)
            + beam(0, b, b + foot, height, width - up, width))


def arm_and_leg(stem_width, height, foot, reach, arm, landing, lean, leg):
    """The right side of a k.

    The lower edge of the arm leaves the stem at foot height and reaches to the
    right; the leg starts within the arm, leans by `lean` per unit of height
    and lands with its right edge at `landing`. Arm and leg are thicknesses.
    """
    run = (reach - stem_width + 4) / (height - foot)
    level = arm * math.hypot(1, run)
    hidden = stem_width * 0.3
    upper = polygon((stem_width - 4, foot), (reach, height), (reach - level, height),
                    (hidden, height - (reach - level - hidden) / run), (hidden, foot))

    def start(x):
        """Where a leg edge that lands at x meets the middle of the arm."""
        y = (x - reach + level / 2 + run * height) / (run + lean)
        return (x - lean * y, y)

    width = leg * math.hypot(1, lean)
    lower = polygon((landing - width, 0), (landing, 0), start(landing),
                    start(landing - width))
    return upper + lower


def zigzag(width, height, bar, diagonal, inset, tail):
    """A z: two bars and the diagonal from corner to corner."""
    roof = height - bar
    return polygon((0, 0), (width, 0), (width, bar), (diagonal + 6, bar),
                   (width - tail, roof + bar * 0.12), (width - tail, height),
                   (inset, height), (inset, roof),
                   (width - tail - diagonal - 6, roof), (0, bar * 0.88))


def disc(x, y, diameter):
    """A dot around its centre."""
    r = diameter / 2
    nodes = [(x, y - r, E), (x + r, y, N), (x, y + r, W), (x - r, y, S)]
    return [[curve(complex(a[0], a[1]), unit(a[2]), complex(b[0], b[1]), unit(b[2]), 1)
             for a, b in zip(nodes, nodes[1:] + nodes[:1])]]


def _mapped(shape, change):
    return [_kept_sense(outline, [tuple(change(p) for p in s) for s in outline])
            for outline in shape]


def _kept_sense(before, after):
    return after if area(before) * area(after) > 0 else reverse_outline(after)


def moved(shape, dx, dy=0):
    return _mapped(shape, lambda p: p + complex(dx, dy))


def flipped(shape, width):
    """Left becomes right within 0..width."""
    return _mapped(shape, lambda p: complex(width - p.real, p.imag))


def turned(shape, width, height):
    """Half a turn within 0..width and 0..height."""
    return _mapped(shape, lambda p: complex(width, height) - p)
