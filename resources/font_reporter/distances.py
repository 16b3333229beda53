"""How far apart two outlines are at most.

A contour is a list of its starting point and its segments, as the generator has them, besides
quadratic curves, which are their control and their end point (x1, y1, x, y).
"""

from collections.abc import Iterator, Sequence
from dataclasses import dataclass
from math import ceil, hypot, inf, sqrt

Contour = list[tuple[float, ...]]
Point = tuple[float, float]
# A piece of an outline from t = 0 to 1 is at x + t * dx + t * (1 - t) * bx, and alike for y: a
# line, or a parabola that bulges from it by a quarter of b. Of (x, y, dx, dy, bx, by, the length
# of d squared, and the middle and the radius of a circle around the piece).
Piece = tuple[float, float, float, float, float, float, float, float, float, float]

# Distances below this share of the em are not told apart from none.
RESOLUTION_IN_EMS = 0.05 / 1000
_ROUNDS = 12  # of Newton's method, which is slow near the double points of curves
# Where the nearest piece for a point is looked for, counted from that for the point before.
_STEPS = (0, 1, -1, 2, -2, 3, -3)


@dataclass(frozen=True, slots=True)
class Distance:
    """The largest distance in font units, and where: a point of the one outline and the nearest
    of the other. Outlines of which only one has any ink are infinitely far apart."""

    length: float
    point: Point
    nearest: Point


NONE = Distance(0.0, (0.0, 0.0), (0.0, 0.0))


def largest_distance(drawing: Sequence[Contour], exported: Sequence[Contour],
                     units_per_em: float) -> Distance:
    """The largest distance of any point of either outline from the other outline.

    Both ways count: a piece that is missing is far from what is left, and a piece too much
    is far from what was drawn. Contours of a single point are no outline.
    """
    resolution = units_per_em * RESOLUTION_IN_EMS
    one, other = _pieces(drawing, resolution), _pieces(exported, resolution)
    if not one or not other:
        spot = (one or other or [(0.0, 0.0)])[0][:2]
        return Distance(inf, spot, spot) if one or other else NONE
    there = _one_way(one, other, Distance(resolution, NONE.point, NONE.nearest))
    both = _one_way(other, one, there)
    return both if both.length > resolution else NONE


def _pieces(contours: Sequence[Contour], resolution: float) -> list[Piece]:
    """Lines and parabolas that stay within the resolution of the contours.

    A cubic curve differs from n parabolas by 0.048 of its third difference over n cubed; curves
    are cut into more pieces where they bend so much that one would have two nearest points.
    """
    result = []
    for contour in contours:
        x, y = contour[-1][-2:]
        for segment in contour:
            if len(segment) == 2:
                if segment != (x, y):
                    result.append(_piece(x, y, 0.0, 0.0, *segment))
            else:
                # The differences of the curve's points, by which it is a polynomial of t.
                x1, y1, x2, y2 = segment[:4]
                second_x, second_y = x - 2 * x1 + x2, y - 2 * y1 + y2
                if len(segment) == 4:
                    first_x, first_y, third_x, third_y = 2 * (x1 - x), 2 * (y1 - y), 0.0, 0.0
                else:
                    first_x, first_y = 3 * (x1 - x), 3 * (y1 - y)
                    third_x, third_y = segment[4] - x + 3 * (x1 - x2), segment[5] - y + 3 * (y1 - y2)
                    second_x, second_y = 3 * second_x, 3 * second_y
                third = hypot(third_x, third_y)
                bend = hypot(second_x, second_y) + 3 * third
                chord = hypot(segment[-2] - x, segment[-1] - y)
                count = max(ceil((0.048 * third / resolution) ** (1 / 3)),
                            1 + int(4 * bend / (chord + bend or 1.0)))
                px, py = x, y
                for step in range(1, count + 1):
                    t = step / count
                    qx = x + t * (first_x + t * (second_x + t * third_x))
                    qy = y + t * (first_y + t * (second_y + t * third_y))
                    # The bulge is that of the second derivative in the middle of the piece.
                    m = 3 * (t - 0.5 / count)
                    result.append(_piece(px, py, -(second_x + m * third_x) / count ** 2,
                                         -(second_y + m * third_y) / count ** 2, qx, qy))
                    px, py = qx, qy
            x, y = segment[-2:]
    return result


def _piece(x: float, y: float, bx: float, by: float, to_x: float, to_y: float) -> Piece:
    dx, dy = to_x - x, to_y - y
    square = dx * dx + dy * dy
    radius = sqrt(square) / 2 + hypot(bx, by) / 4
    return x, y, dx, dy, bx, by, square or 1.0, x + dx / 2, y + dy / 2, radius


def _samples(pieces: Sequence[Piece]) -> Iterator[Point]:
    """The beginnings of the pieces and the quarters of each, in drawing order."""
    for x, y, dx, dy, bx, by, *_ in pieces:
        yield x, y
        yield x + dx / 4 + bx * 3 / 16, y + dy / 4 + by * 3 / 16
        yield x + dx / 2 + bx / 4, y + dy / 2 + by / 4
        yield x + dx * 3 / 4 + bx * 3 / 16, y + dy * 3 / 4 + by * 3 / 16


def _nearest(piece: Piece, px: float, py: float) -> Point:
    """The point of the piece nearest to p, by Newton's method from its foot on the line
    between the piece's ends."""
    x, y, dx, dy, bx, by, square, *_ = piece
    t = ((px - x) * dx + (py - y) * dy) / square
    t = 0.0 if t < 0 else 1.0 if t > 1 else t
    if bx or by:
        for _ in range(_ROUNDS):
            across, up = px - x - t * (dx + (1 - t) * bx), py - y - t * (dy + (1 - t) * by)
            along_x, along_y = dx + (1 - 2 * t) * bx, dy + (1 - 2 * t) * by
            before = t
            t += (across * along_x + up * along_y) / ((along_x * along_x + along_y * along_y) or 1.0)
            t = 0.0 if t < 0 else 1.0 if t > 1 else t
            if abs(t - before) < 1e-4:
                break
    return x + t * (dx + (1 - t) * bx), y + t * (dy + (1 - t) * by)


def _one_way(pieces: Sequence[Piece], others: Sequence[Piece], worst: Distance) -> Distance:
    """The largest distance of a sample of `pieces` from `others`, or `worst` if that is larger.

    Only what exceeds the worst so far has to be known exactly. The outlines go along each other
    mostly, so that a piece that is near enough is found next to the one before.
    """
    count = len(others)
    limit = worst.length ** 2
    at = 0
    for px, py in _samples(pieces):
        for step in _STEPS:
            index = (at + step) % count
            x, y, dx, dy, bx, by, square, _, _, _ = others[index]
            t = ((px - x) * dx + (py - y) * dy) / square
            t = 0.0 if t < 0 else 1.0 if t > 1 else t
            # The point over the foot may not be the nearest: if it is near enough, that will do.
            if (x + t * (dx + (1 - t) * bx) - px) ** 2 + (y + t * (dy + (1 - t) * by) - py) ** 2 <= limit:
                at = index
                break
        else:
            near = (others[at], others[(at + 1) % count], others[at - 1])
            if any((x - px) ** 2 + (y - py) ** 2 <= limit
                   for x, y in (_nearest(piece, px, py) for piece in near)):
                continue
            least, found, reach = inf, (0.0, 0.0), inf
            for index, piece in enumerate(others):
                x, y, radius = piece[7:]
                if abs(x - px) > reach + radius or abs(y - py) > reach + radius:
                    continue  # nothing of it is nearer than what is found already
                qx, qy = _nearest(piece, px, py)
                square = (qx - px) ** 2 + (qy - py) ** 2
                if square < least:
                    least, found, at, reach = square, (qx, qy), index, sqrt(square)
                    if square <= limit:
                        break
            if least > limit:
                limit, worst = least, Distance(sqrt(least), (px, py), found)
    return worst
