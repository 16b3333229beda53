"""Whether contours of a glyph overlap, for which rasterizers want to be prepared."""

from collections.abc import Iterable, Sequence
from itertools import product, starmap

Point = tuple[int, int]
Edge = tuple[Point, Point]

# Comparing more pairs of contours than this takes longer than it is worth: a flag that is set
# without need only makes rasterizing slower.
_MOST_COMPARISONS = 20000


def contours_overlap(contours: Sequence[Sequence[Point]]) -> bool:
    """Whether any two contours cross or touch, or fill the same place in the same direction.

    Curves are judged by the polygon of their points, so that a few contours that only come close
    to each other count as well. A hole, which turns the other way, is no overlap.
    """
    polygons = sorted(map(_Polygon, contours), key=lambda polygon: polygon.box[0])
    comparisons = 0
    for place, one in enumerate(polygons):
        for other in polygons[place + 1:]:
            if other.box[0] > one.box[2]:
                break
            comparisons += 1
            if comparisons > _MOST_COMPARISONS:
                return True
            if not _boxes_meet(one.box, other.box):
                continue
            if any(starmap(_meet, product(one.edges_within(other.box), other.edges_within(one.box)))):
                return True
            if one.contains(other.edges[0][1]):
                other.winding += one.turn
            elif other.contains(one.edges[0][1]):
                one.winding += other.turn
    return any(abs(polygon.winding) > 1 for polygon in polygons)


class _Polygon:
    """`winding` counts how often its inside is wound around, by itself and by those around it."""

    def __init__(self, points: Sequence[Point]) -> None:
        self.edges = list(zip([points[-1], *points], points))
        self.box = _box(points)
        self.turn = self.winding = 1 if sum(x0 * y - x * y0 for (x0, y0), (x, y) in self.edges) > 0 else -1

    def edges_within(self, box: Sequence[int]) -> list[Edge]:
        return [edge for edge in self.edges if _boxes_meet(_box(edge), box)]

    def contains(self, point: Point) -> bool:
        """Whether a ray to the right of `point` leaves once more than it enters."""
        return sum((start[1] > point[1]) != (end[1] > point[1])
                   and (_side(start, end, point) > 0) == (end[1] > start[1])
                   for start, end in self.edges) % 2 == 1


def _box(points: Iterable[Point]) -> tuple[int, int, int, int]:
    xs, ys = zip(*points)
    return min(xs), min(ys), max(xs), max(ys)


def _boxes_meet(one: Sequence[int], other: Sequence[int]) -> bool:
    return one[0] <= other[2] and other[0] <= one[2] and one[1] <= other[3] and other[1] <= one[3]


def _meet(one: Edge, other: Edge) -> bool:
    """Whether each edge has the other's ends on both of its sides, or on itself."""
    return (_boxes_meet(_box(one), _box(other)) and _side(*one, other[0]) * _side(*one, other[1]) <= 0
            and _side(*other, one[0]) * _side(*other, one[1]) <= 0)


def _side(start: Point, end: Point, point: Point) -> int:
    return (end[0] - start[0]) * (point[1] - start[1]) - (end[1] - start[1]) * (point[0] - start[0])
